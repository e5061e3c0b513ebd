// The proof of a blank form: its pages under a grid in millimetres, with samples at the places of
// the figures.
#pragma once

#include <filesystem>
#include <string>

#include "core/ledger.h"
#include "pension/formcoordinates.h"

namespace lm {

// Of the first `pages` pages. What kept it from being written, else ""; a file that was there then
// stays.
std::string WriteBlankProof(Ledger& ledger, const FormBlank& blank, int pages,
                            const std::filesystem::path& proof);

}  // namespace lm
