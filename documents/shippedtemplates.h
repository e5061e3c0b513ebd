// The document templates that come with the program, enciphered and put into it during the build,
// with the pictures that they use.
#pragma once

#include <span>
#include <string_view>

#include "core/ledger.h"

namespace lm {

struct ShippedFile {
  std::string_view folder;  // of the program directory: "Invoice Templates"
  std::string_view name;    // "Light Blue.tmpl"
  std::string_view bytes;
};

std::span<const ShippedFile> ShippedTemplates();

// Writes the files that the program directory lacks, and their folder; what stands there stays as
// it is. False after one message, for the first file that could not be written.
bool PlaceShippedTemplates(Ledger& ledger);

}  // namespace lm
