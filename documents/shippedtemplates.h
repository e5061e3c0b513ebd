// The document templates that come with the program, enciphered and put into it during the build,
// with the pictures that they use.
#pragma once

#include "core/shippedfiles.h"

namespace lm {

std::span<const ShippedFile> ShippedTemplates();

// See PlaceShippedFiles.
bool PlaceShippedTemplates(Ledger& ledger);

}  // namespace lm
