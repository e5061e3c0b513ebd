#include "core/datafilecodec.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <random>

#include "core/clsMD5.h"
#include "core/clsRC4.h"
#include "core/format.h"
#include "core/keys.h"
#include "core/numbers.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kHashLength = 32;
constexpr std::size_t kDigestRecordLength = kHashLength + 2;
constexpr std::ptrdiff_t kMostColumns = 1000;  // no table comes near it; a forged file might
constexpr int kLongestPadding = 13;
constexpr std::size_t kDigestBlock = 64;
constexpr std::size_t kMostDigestedOfLastBlock = 56;

std::span<unsigned char> BytesOf(std::string& text) {
  return {reinterpret_cast<unsigned char*>(text.data()), text.size()};
}

// Takes the text up to the separator, and the separator, off the front. Without a separator all
// of it is taken.
std::string_view TakeUpTo(std::string_view& text, char separator) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  return taken;
}

// A table's plain text, taken apart down to its records.
struct PlainTable {
  std::string_view digested;  // what the digest is of
  std::string_view storedDigest;
  std::string_view records;  // padding, widths and rows
};

std::optional<PlainTable> TakeApartPlain(std::string_view plain) {
  const std::size_t end = plain.rfind(kRecordEnd);
  if (plain.size() < kDigestRecordLength || end == plain.npos || end == 0) return std::nullopt;
  const std::size_t before = plain.rfind(kRecordEnd, end - 1);
  if (before == plain.npos) return std::nullopt;
  std::string_view last = plain.substr(before + 1, end - before - 1);
  return PlainTable{plain.substr(0, plain.size() - kDigestRecordLength), TakeUpTo(last, kFieldEnd),
                    plain.substr(0, before + 1)};
}

bool ReadWidths(std::string_view record, Grid& grid) {
  const auto count = std::ranges::count(record, kFieldEnd);
  if (count < 1 || count > kMostColumns) return false;
  grid.SetCols(static_cast<int>(count));
  for (int col = 0; col < grid.Cols(); ++col)
    grid.SetColWidth(col, ValInt(TakeUpTo(record, kFieldEnd)));
  return record.empty();
}

bool ReadRecords(std::string_view records, Grid& grid) {
  TakeUpTo(records, kRecordEnd);  // the padding
  if (!ReadWidths(TakeUpTo(records, kRecordEnd), grid)) return false;
  // Every record has a field for each column: a table that lost one on the way is not as it was
  // written.
  while (!records.empty())
    if (!grid.AppendRecord(TakeUpTo(records, kRecordEnd))) return false;
  return true;
}

void MakeEmpty(Grid& grid) {
  grid.SetRows(0);
  grid.SetCols(1);
}

void SetHeaders(Grid& grid) {
  grid.SetFixedRows(2);
  grid.SetRowHidden(1, true);
  grid.SetColWidth(0, kMarkerWidth);
  for (int col = 1; col < grid.Cols(); ++col) grid.SetColKey(col, grid.TextMatrix(1, col));
}

TableState ReadTable(std::string_view section, std::string_view key, Grid& grid) {
  const std::string plain = clsRC4().DecryptString(section, key, true);
  const auto table = TakeApartPlain(plain);
  if (!table) return TableState::Unreadable;
  if (DigestOf(table->digested) != table->storedDigest) return TableState::DigestWrong;
  if (!ReadRecords(table->records, grid)) return TableState::Unreadable;
  SetHeaders(grid);
  return TableState::Whole;
}

std::string Noise(std::mt19937& random) {
  std::uniform_real_distribution<double> length(0, kLongestPadding);
  std::uniform_int_distribution<int> code(32, 126);
  std::string noise(static_cast<std::size_t>(std::lround(length(random))), ' ');
  for (char& c : noise) c = static_cast<char>(code(random));
  return noise;
}

// The digest leaves out the end of a text whose last block is fuller: a changed character there
// would pass unseen.
bool DigestCoversAll(std::size_t length) {
  return length % kDigestBlock <= kMostDigestedOfLastBlock;
}

// Noise for the front, so that two saves of the same data differ throughout.
std::string PaddingFor(std::size_t length) {
  std::mt19937 random{std::random_device{}()};
  std::string padding = Noise(random);
  while (!DigestCoversAll(padding.size() + length)) padding = Noise(random);
  return padding;
}

constexpr std::size_t kRoomForCell = 16;  // more than most cells take; longer ones make it grow

std::size_t RoomFor(const Grid& grid) {
  return kRoomForCell * static_cast<std::size_t>(grid.Rows()) *
         static_cast<std::size_t>(grid.Cols());
}

std::string PlainTableText(const Grid& grid) {
  std::string text;
  text.reserve(RoomFor(grid));
  const auto endField = [&text] { text += kFieldEnd; };
  const auto endRecord = [&text] { text += kRecordEnd; };
  endField();  // of the padding record, whose text comes last
  endRecord();
  for (int col = 0; col < grid.Cols(); ++col) {
    text += PlainText(grid.ColWidth(col));
    endField();
  }
  endRecord();
  for (int row = 0; row < grid.Rows(); ++row) {
    if (grid.RowOutlineLevel(row) != 0) continue;
    grid.WriteRecord(row, text);
    endRecord();
  }
  text.insert(0, PaddingFor(text.size()));
  text += DigestOf(text);
  endField();
  endRecord();
  return text;
}

// The table section behind the text: a large file is put together in one place.
void AppendSection(const Grid& grid, std::string_view key, std::string& text) {
  std::string plain = PlainTableText(grid);
  clsRC4 cipher;
  cipher.EncryptByte(BytesOf(plain), key);
  cipher.AppendEncode64(plain, text);
}

bool IsHash(std::string_view text) {
  return text.size() == kHashLength && text.find_first_not_of("0123456789ABCDEF") == text.npos;
}

bool IsVersion(std::string_view text) {
  const auto numbers = Split(text, '.');
  return numbers.size() == 3 && std::ranges::all_of(numbers, AllDigits);
}

// The version of the program that wrote the file, which is all that is read of the header: the
// tables prove by themselves that they are whole. Nothing for a header that does not begin with a
// version.
std::optional<std::string> VersionFromHeader(std::string_view header) {
  if (header.empty()) return "";
  try {
    const std::string clear = clsRC4().DecryptString(header, HeaderKey(), true);
    const auto fields = Split(clear, kFieldEnd);
    if (fields.size() > 1 && IsVersion(fields[0])) return std::string(fields[0]);
  } catch (const std::exception&) {
    // not Base64
  }
  return std::nullopt;
}

std::string HeaderText(std::string_view version, Date saved) {
  std::string header(version);
  header += kFieldEnd;
  header += FormatDate(saved, "dd-mm-yyyy hh:nn:ss");
  header += kFieldEnd;  // and two fields that hold nothing
  header += kFieldEnd;
  return clsRC4().EncryptString(header, HeaderKey(), true);
}

// Earlier versions had fewer tables. The eighth and the ninth came together.
bool IsOlderFormat(std::size_t sections) {
  return sections >= 5 && sections != 8 && sections < kDataTables;
}

}  // namespace

std::string DigestOf(std::string_view text) { return clsMD5().DigestStrToHexStr(text); }

TableState LoadGridFromText(std::string_view section, std::string_view key, Grid& grid) {
  RedrawOff redrawOff(grid);
  MakeEmpty(grid);
  TableState state = TableState::Unreadable;
  try {
    state = ReadTable(section, key, grid);
  } catch (const std::exception&) {
    // not Base64, or too long to be read
  }
  if (state != TableState::Whole) MakeEmpty(grid);
  return state;
}

std::string GridToText(const Grid& grid, std::string_view key) {
  std::string section;
  AppendSection(grid, key, section);
  return section;
}

std::optional<DataFileParts> TakeApart(std::string_view bytes) {
  DataFileParts file;
  file.sections = Split(bytes, kSectionEnd);
  file.passwordHash = file.sections.front().substr(0, kHashLength);
  if (!IsHash(file.passwordHash)) return std::nullopt;
  file.header = file.sections.front().substr(kHashLength);
  file.sections.erase(file.sections.begin());
  return file;
}

std::string VersionOf(const DataFileParts& file) {
  return VersionFromHeader(file.header).value_or("");
}

DecodedDataFile DecodeDataFile(const DataFileParts& file, std::string_view password,
                               std::span<Grid* const> tables) {
  const auto version = VersionFromHeader(file.header);
  if (!version) return {"", {{DamagedPart::Header}}};
  DecodedDataFile decoded{*version, {}};
  if (file.sections.size() > tables.size()) {
    decoded.damage.push_back({DamagedPart::File});
    return decoded;
  }
  const bool older = IsOlderFormat(file.sections.size());
  for (std::size_t i = 0; i < tables.size(); ++i) {
    Grid& grid = *tables[i];
    TableState state = older ? TableState::Whole : TableState::Missing;
    if (i < file.sections.size())
      state = LoadGridFromText(file.sections[i], TableKey(grid.Name(), password), grid);
    else
      MakeEmpty(grid);
    if (state != TableState::Whole) decoded.damage.push_back({DamagedPart::Table, i, state});
  }
  return decoded;
}

std::string EncodeDataFile(std::span<Grid* const> tables, std::string_view password,
                           std::string_view version, Date saved) {
  std::string text = DigestOf(password) + HeaderText(version, saved);
  std::size_t room = text.size();
  for (const Grid* grid : tables) room += RoomFor(*grid) / 3 * 4;
  text.reserve(room);
  for (const Grid* grid : tables) {
    text += kSectionEnd;
    AppendSection(*grid, TableKey(grid->Name(), password), text);
  }
  return text;
}

}  // namespace lm
