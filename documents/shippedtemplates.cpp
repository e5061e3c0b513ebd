#include "documents/shippedtemplates.h"

#include <filesystem>
#include <string>

#include "core/files.h"
#include "core/messagebox.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

// Also true for what cannot be looked at: nothing may take its place.
bool MayExist(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type() != fs::file_type::not_found;
}

}  // namespace

bool PlaceShippedTemplates(Ledger& ledger) {
  for (const ShippedFile& shipped : ShippedTemplates()) {
    const fs::path folder = ledger.File(shipped.folder);
    const fs::path file = folder / shipped.name;
    if (MayExist(file)) continue;
    std::string error;
    if (MakeFolder(folder, error) && ReplaceFile(file, shipped.bytes, error)) continue;
    ShowMessage(ledger, "Unable to write the invoice templates that come with LedgerMinder",
                "File: " + PathText(file) + "\\n\\n" + error);
    return false;
  }
  return true;
}

}  // namespace lm
