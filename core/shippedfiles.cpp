#include "core/shippedfiles.h"

#include <filesystem>
#include <string>

#include "core/files.h"
#include "core/messagebox.h"

namespace lm {

bool PlaceShippedFiles(Ledger& ledger, std::span<const ShippedFile> files, std::string_view what) {
  for (const ShippedFile& shipped : files) {
    const std::filesystem::path folder = ledger.File(shipped.folder);
    const std::filesystem::path file = folder / shipped.name;
    if (MayExist(file)) continue;
    std::string error;
    if (MakeFolder(folder, error) && ReplaceFile(file, shipped.bytes, error)) continue;
    ShowMessage(ledger, "Unable to write the " + std::string(what) + " that come with LedgerMinder",
                "File: " + PathInMessage(file) + "\\n\\n" + error);
    return false;
  }
  return true;
}

}  // namespace lm
