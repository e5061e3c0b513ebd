// The stored files as bytes, and the tables that they hold. Pure: nothing is asked or shown here,
// so that loading, backups, upgrades and the fuzzers all read by the same rules.
//
// A table's plain text: a padding record of 0 to 13 random printable characters, a width record, a
// record for each row of outline level 0, and a digest record over all before it; a character 31
// ends each field, a character 30 each record. Enciphered and in Base64 it is a table section.
//
// "Options.dat" and "ShortcutKeys.dat" are one table section each. The data file is one line: 32
// characters of password hash, the enciphered header, then for each of the thirteen tables a
// character 29 and its section.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/celltexts.h"
#include "core/dates.h"
#include "core/grid.h"

namespace lm {

// The digest of a text, as the files use it.
std::string DigestOf(std::string_view text);

enum class TableState { Whole, Missing, Unreadable, DigestWrong };

// Reads a table section. A table that is not whole leaves the grid empty: no rows, one column.
TableState LoadGridFromText(std::string_view section, std::string_view key, Grid& grid);

// The table's section; its digest covers every character. Throws std::overflow_error for a table
// of 256 MiB and more, which no digest covers.
std::string GridToText(const Grid& grid, std::string_view key);

// A data file taken apart; the parts point into its bytes.
struct DataFileParts {
  std::string_view passwordHash;  // DigestOf the password, of "" where there is none
  std::string_view header;        // enciphered
  std::vector<std::string_view> sections;
};

// Nothing for bytes that do not begin with a password hash: they are no data file.
std::optional<DataFileParts> TakeApart(std::string_view bytes);

// Of the program that wrote the file; "" where the header does not tell. It needs no password.
std::string VersionOf(const DataFileParts& file);

enum class DamagedPart { Header, File, Table };  // File: it has more sections than there are tables

struct Damage {
  DamagedPart part;
  std::size_t table = 0;                   // where the part is Table, which one
  TableState state = TableState::Missing;  // and what is wrong with it
};

struct DecodedDataFile {
  std::string version;         // of the program that wrote the file; "" when it has no header
  std::vector<Damage> damage;  // in the order of the file; empty when the file is whole
};

// Reads the sections into the tables, in their order. Tables that are damaged or missing are left
// empty, which is no damage where earlier versions had none of them; a damaged header or file is
// the only damage told, and leaves the tables as they were.
DecodedDataFile DecodeDataFile(const DataFileParts& file, std::string_view password,
                               std::span<Grid* const> tables);

// The whole data file. Throws as GridToText does.
std::string EncodeDataFile(std::span<Grid* const> tables, std::string_view password,
                           std::string_view version, Date saved);

}  // namespace lm
