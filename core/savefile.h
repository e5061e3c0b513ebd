// Where a file that the user wants goes, asked and looked at before anything is written.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/platform.h"

namespace lm {

// The data file, the options or the shortcut keys, which nothing else may replace.
bool IsOwnFile(const Ledger& ledger, const std::filesystem::path& path);

// Shows the dialog. A name typed without an extension gets that of the chosen kind, asking first
// where such a file is there already; a file that the program itself lives on is refused with a
// message that `unable` begins. Nothing when the user cancelled, or after that message.
std::optional<SaveTarget> AskWhereToSave(Ledger& ledger, std::string_view title,
                                         std::string_view unable,
                                         const std::vector<FileFilter>& filters,
                                         const std::filesystem::path& start);

}  // namespace lm
