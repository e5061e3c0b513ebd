// Two programs on one folder, or one file shared by two computers: the last save must not win
// silently. A save looks whether the data file on the disk is still the one that this run loaded or
// saved, and keeps it beside the new one where it is not.
#pragma once

#include <filesystem>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// After a load or a save: when `path` is the ledger's data file, these bytes are what this run
// knows of it.
void RememberVersion(Ledger& ledger, const std::filesystem::path& path, std::string_view bytes);

// Before a save. True when the data file may be replaced: it is the known one, or it is not there,
// or the user agreed and it was copied to "LedgerMinder kept 28 Feb 2026 1030.dat". A run without a
// user agrees. False after a No, or after the message of what failed.
bool KeepOtherVersion(Ledger& ledger);

}  // namespace lm
