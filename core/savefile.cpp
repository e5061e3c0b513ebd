#include "core/savefile.h"

#include <string>

#include "core/files.h"
#include "core/messagebox.h"

namespace lm {

namespace fs = std::filesystem;

bool IsOwnFile(const Ledger& ledger, const fs::path& path) {
  const fs::path own[] = {ledger.DataFile(), ledger.OptionsFile(), ledger.File("ShortcutKeys.dat")};
  std::error_code ignored;
  for (const fs::path& file : own)
    if (path == file || fs::equivalent(path, file, ignored)) return true;
  return false;
}

std::optional<SaveTarget> AskWhereToSave(Ledger& ledger, std::string_view title,
                                         std::string_view unable,
                                         const std::vector<FileFilter>& filters,
                                         const fs::path& start) {
  SaveTarget target = ledger.platform.system.AskSaveFile(title, filters, start);
  if (target.path.empty()) return std::nullopt;
  const bool typedWhole = target.path.has_extension();
  if (!typedWhole) target.path += filters[target.filter].pattern.substr(1);
  if (IsOwnFile(ledger, target.path)) {
    ShowMessage(ledger, std::string(unable) + "The program itself uses this file",
                PathInMessage(target.path) + "\\n\\nChoose another name or folder.");
    return std::nullopt;
  }
  if (!typedWhole && MayExist(target.path) &&
      !Ask(ledger, "Replace the file that is there?", PathInMessage(target.path)))
    return std::nullopt;
  return target;
}

}  // namespace lm
