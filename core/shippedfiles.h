// Files that come with the program: put into it during the build, and placed in the program
// directory where they are missing.
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

// Writes the files that the program directory lacks, and their folder; what stands there stays as
// it is. False after one message, which names them ("invoice templates"), for the first file that
// could not be written.
bool PlaceShippedFiles(Ledger& ledger, std::span<const ShippedFile> files, std::string_view what);

}  // namespace lm
