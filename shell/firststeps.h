// What a new user does first, in this order, and what is done of it.
#pragma once

#include <string>

#include "core/ledger.h"

namespace lm {

struct FirstStep {
  std::string text;  // what the step is for, and what is done of it
  bool done;
};

FirstStep PracticesStep(const Ledger& ledger);
FirstStep MyDetailsStep(const Ledger& ledger);
FirstStep SessionsStep(const Ledger& ledger);

}  // namespace lm
