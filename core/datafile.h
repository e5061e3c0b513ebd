// The three stored files made of tables.
//
// A table's plain text: a padding record of 0 to 13 random printable characters, a width record, a
// record for each row of outline level 0, and a digest record over all before it; a character 31
// ends each field, a character 30 each record. Enciphered and in Base64 it is a table section.
//
// "Options.dat" and "ShortcutKeys.dat" are one table section each. The data file is one line: 32
// characters of password hash, the enciphered header, then for each of the thirteen tables a
// character 29 and its section.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/celltexts.h"
#include "core/ledger.h"

namespace lm {

// Reads a table file into the grid, telling the splash; false after its message.
bool LoadGridFile(Ledger& ledger, const std::filesystem::path& path, Grid& grid);
enum class GridLoad { Loaded, Unreadable, DigestWrong };  // DigestWrong has shown its message
GridLoad LoadGridFromText(Ledger& ledger, std::string_view text, Grid& grid);

std::string GridToText(Ledger& ledger, const Grid& grid);
bool SaveGridFile(Ledger& ledger, const std::filesystem::path& path, Grid& grid);

// Creates or replaces the file whole; false after a message with the platform's reason.
bool WriteTextFile(Ledger& ledger, std::string_view text, const std::filesystem::path& path);

// Reads the data file at `path`, "LedgerMinder.dat" of the program directory when empty, after the
// shortcut keys. False when it could not: after its message, the tables before the damaged one
// hold what was read, the others nothing, and ledger.dataIncomplete stays set until a load
// succeeds.
bool LoadData(Ledger& ledger, const std::filesystem::path& path = {});

// Saves "Options.dat" and the data file and clears the change markers. False after its message;
// the markers then stay.
bool Save(Ledger& ledger);
bool WriteDataFile(Ledger& ledger, const std::filesystem::path& path);

// The digest of a text, as the files use it.
std::string DigestOf(std::string_view text);

}  // namespace lm
