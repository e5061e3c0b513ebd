// Loading and saving: core/datafilecodec.h reads and writes the bytes, and here stand the order of
// the steps, the questions and the words.
#pragma once

#include <filesystem>
#include <string_view>

#include "core/datafilecodec.h"
#include "core/ledger.h"

namespace lm {

// Reads a table file into the grid, telling the splash; false after its message.
bool LoadGridFile(Ledger& ledger, const std::filesystem::path& path, Grid& grid);
bool SaveGridFile(Ledger& ledger, const std::filesystem::path& path, Grid& grid);

// Creates or replaces the file whole; false after a message with the platform's reason, behind
// what the caller puts in front of it.
bool WriteTextFile(Ledger& ledger, std::string_view text, const std::filesystem::path& path,
                   std::string_view front = "");

// Reads the data file at `path`, "LedgerMinder.dat" of the program directory when empty, after the
// shortcut keys. False when it could not: after its message, the tables before the damaged one
// hold what was read, the others nothing, and ledger.dataIncomplete stays set until a load
// succeeds.
bool LoadData(Ledger& ledger, const std::filesystem::path& path = {});

// Saves "Options.dat" and the data file and clears the change markers. Where the data file on the
// disk is no longer the one that this run loaded or saved, the user is asked first, and that one
// is kept beside it. False after a message or a No; the markers then stay.
bool Save(Ledger& ledger);
// The tables as a data file under any name, a backup's too. False after its message, which begins
// with `front`.
bool WriteDataFile(Ledger& ledger, const std::filesystem::path& path, std::string_view front = "");

}  // namespace lm
