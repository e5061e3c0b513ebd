// Whether the blank forms in "Form Templates" can be printed on, and proofs of how the figures fit.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/ledger.h"
#include "pension/formcoordinates.h"

namespace lm {

struct BlankFormReport {
  std::vector<std::string> faults;  // none: the form can be used
  bool isStandIn = false;
  std::filesystem::path proof;  // empty where none could be written
};

// Writes the proof beside the blank, "Proof GP A 2024-04.pdf": its pages under a grid in
// millimetres, with samples where figures are printed. An older proof that cannot be renewed goes.
BlankFormReport CheckBlankForm(Ledger& ledger, const FormBlank& blank);

}  // namespace lm
