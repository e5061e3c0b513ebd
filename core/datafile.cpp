#include "core/datafile.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <vector>

#include "core/clsMD5.h"
#include "core/clsRC4.h"
#include "core/files.h"
#include "core/format.h"
#include "core/formatting.h"
#include "core/frmGetPassword.h"
#include "core/keys.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHashLength = 32;
constexpr std::size_t kDigestRecordLength = kHashLength + 2;
constexpr std::ptrdiff_t kMostColumns = 1000;  // no table comes near it; a forged file might
constexpr int kLongestPadding = 13;
constexpr int kMarkerWidth = 120;
constexpr std::string_view kDataFile = "LedgerMinder.dat";

std::span<unsigned char> BytesOf(std::string& text) {
  return {reinterpret_cast<unsigned char*>(text.data()), text.size()};
}

void ShowDamage(Ledger& ledger, std::string_view what) {
  ShowMessage(ledger, "Decryption Error: " + std::string(what),
              "The data file may be corrupted. Try loading a backup file.", Buttons::Ok,
              Icon::Critical, "", WebPage("/UnableToLoad.php"));
}

void ShowTableDamage(Ledger& ledger, std::string_view table) {
  if (!EqualsIgnoreCase(table, "fgOptions")) return ShowDamage(ledger, table.substr(2));
  ShowMessage(ledger, "Error loading the Options file",
              "The file may be corrupted. Instructions on how to correct this are available on the "
              "LedgerMinder website at the following link.",
              Buttons::Ok, Icon::Critical, "", WebPage("/OptionsFileError.php"));
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

std::optional<PlainTable> TakeApart(std::string_view plain) {
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

GridLoad ReadTable(Ledger& ledger, std::string_view text, Grid& grid) {
  clsRC4 cipher;
  const std::string plain = cipher.DecryptString(text, TableKey(ledger, grid.Name()), true);
  const auto table = TakeApart(plain);
  if (!table) return GridLoad::Unreadable;
  if (DigestOf(table->digested) != table->storedDigest) {
    ShowTableDamage(ledger, grid.Name());
    return GridLoad::DigestWrong;
  }
  if (!ReadRecords(table->records, grid)) return GridLoad::Unreadable;
  SetHeaders(grid);
  return GridLoad::Loaded;
}

// Noise at the front, so that two saves of the same data differ throughout.
std::string Padding() {
  std::mt19937 random{std::random_device{}()};
  std::uniform_real_distribution<double> length(0, kLongestPadding);
  std::uniform_int_distribution<int> code(32, 126);
  std::string padding(static_cast<std::size_t>(std::lround(length(random))), ' ');
  for (char& c : padding) c = static_cast<char>(code(random));
  return padding;
}

constexpr std::size_t kRoomForCell = 16;  // more than most cells take; longer ones make it grow

std::size_t RoomFor(const Grid& grid) {
  return kRoomForCell * static_cast<std::size_t>(grid.Rows()) *
         static_cast<std::size_t>(grid.Cols());
}

std::string PlainTableText(const Grid& grid) {
  std::string text = Padding();
  text.reserve(RoomFor(grid));
  const auto endField = [&text] { text += kFieldEnd; };
  const auto endRecord = [&text] { text += kRecordEnd; };
  endField();
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
  text += DigestOf(text);
  endField();
  endRecord();
  return text;
}

// The table section behind the text: a large file is put together in one place.
void AppendSection(Ledger& ledger, const Grid& grid, std::string& text) {
  std::string plain = PlainTableText(grid);
  clsRC4 cipher;
  cipher.EncryptByte(BytesOf(plain), TableKey(ledger, grid.Name()));
  cipher.AppendEncode64(plain, text);
}

// The data file.

struct DataFile {
  std::string text;
  std::string_view passwordHash;
  std::string_view header;  // enciphered
  std::vector<std::string_view> sections;
};

bool IsHash(std::string_view text) {
  return text.size() == kHashLength && text.find_first_not_of("0123456789ABCDEF") == text.npos;
}

// Null after its message.
std::unique_ptr<DataFile> ReadDataFile(Ledger& ledger, const fs::path& path) {
  std::error_code ignored;
  if (!fs::exists(path, ignored)) {
    ShowMessage(ledger, "Missing File", PathText(path));
    return nullptr;
  }
  std::string error;
  auto text = ReadFile(path, error);
  if (!text) {
    ShowMessage(ledger, error, PathText(path), Buttons::Ok, Icon::Critical);
    return nullptr;
  }
  auto file = std::make_unique<DataFile>();
  file->text = std::move(*text);
  file->sections = Split(file->text, kSectionEnd);
  file->passwordHash = file->sections.front().substr(0, kHashLength);
  if (!IsHash(file->passwordHash)) {
    ShowMessage(ledger, "This is not a LedgerMinder data file",
                PathText(path) + "\\n\\nTry loading a backup file.", Buttons::Ok, Icon::Critical,
                "", WebPage("/UnableToLoad.php"));
    return nullptr;
  }
  file->header = file->sections.front().substr(kHashLength);
  file->sections.erase(file->sections.begin());
  return file;
}

bool IsVersion(std::string_view text) {
  const auto numbers = Split(text, '.');
  return numbers.size() == 3 && std::ranges::all_of(numbers, AllDigits);
}

// The version of the program that wrote the file, which is all that is read of the header: the
// tables prove by themselves that they are whole. "" for a file without a header, nothing for a
// header that does not begin with a version.
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

std::string HeaderText(Ledger& ledger) {
  std::string header(ProgramVersion());
  header += kFieldEnd;
  header += FormatDate(ledger.platform.clock.Now(), "dd-mm-yyyy hh:nn:ss");
  header += kFieldEnd;  // and two fields that hold nothing
  header += kFieldEnd;
  return clsRC4().EncryptString(header, HeaderKey(), true);
}

// The clear password of the file, "" when it has none. Nothing when the user gave it up or it is
// wrong: there is no second attempt.
std::optional<std::string> PasswordOf(Ledger& ledger, const fs::path& path, const DataFile& file) {
  if (file.passwordHash == DigestOf("")) return "";
  const std::string entered = AskPassword(ledger, PathText(path.filename()));
  if (entered.empty()) return std::nullopt;
  if (DigestOf(entered) == file.passwordHash) return entered;
  ShowMessage(ledger, "Incorrect Password",
              "Passwords are case sensitive.\\nPlease ensure you do not have CAPS LOCK on.");
  return std::nullopt;
}

// Stops at the first table that is damaged or missing; it and those behind it are blank then.
bool ReadTables(Ledger& ledger, const DataFile& file) {
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    Grid& grid = *ledger.dataTables[i];
    const GridLoad result = i < file.sections.size()
                                ? LoadGridFromText(ledger, file.sections[i], grid)
                                : GridLoad::Unreadable;
    if (result == GridLoad::Loaded) continue;
    for (std::size_t rest = i; rest < kTables.size(); ++rest)
      MakeBlank(*ledger.dataTables[rest], kTables[rest]);
    if (result == GridLoad::Unreadable) ShowTableDamage(ledger, grid.Name());
    return false;
  }
  return true;
}

void ReplaceEmpty(Grid& grid, std::string_view key, std::string_view text) {
  const int col = grid.ColIndex(key);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (grid.TextMatrix(row, col).empty()) grid.SetTextMatrix(row, col, text);
}

void RemoveCommas(Grid& grid, std::string_view key) {
  const int col = grid.ColIndex(key);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    grid.SetTextMatrix(row, col, RemoveAny(grid.TextMatrix(row, col), ","));
}

void AddInvoiceColumns(Grid& invoices, const TableSpec& table) {
  const bool lacksDate = invoices.ColIndex("IDATE") < 0;
  AddMissingColumns(invoices, table);
  if (!lacksDate) return;
  for (int row = invoices.FixedRows(); row < invoices.Rows(); ++row)
    invoices.SetTextMatrix(row, "IDATE", invoices.TextMatrix(row, "CDATE"));
}

// Gives the tables of an older file today's shape; a current file passes unchanged.
void BringUpToDate(Ledger& ledger) {
  std::vector<std::unique_ptr<RedrawOff>> redrawOff;
  for (Grid* grid : ledger.dataTables) redrawOff.push_back(std::make_unique<RedrawOff>(*grid));

  for (std::size_t i = 0; i < kTables.size(); ++i) {
    Grid& grid = *ledger.dataTables[i];
    if (grid.Rows() < grid.FixedRows())
      MakeBlank(grid, kTables[i]);
    else if (&grid == &ledger.fgInvoices)
      AddInvoiceColumns(grid, kTables[i]);
    else
      AddMissingColumns(grid, kTables[i]);
  }
  RemoveCommas(ledger.fgInvoices, "AMOUNT");
  ReplaceEmpty(ledger.fgSessions, "EMPLOYERCONTRIB", "0.00");
  ReplaceEmpty(ledger.fgSessions, "TOTAL", "0.00");
}

void HideKeys(Grid& grid) {
  for (const std::string_view key : {"ID", "SESSID"}) grid.SetColHidden(grid.ColIndex(key), true);
}

// Shortcuts that cannot be read have shown their message; the program runs without them.
void LoadShortcuts(Ledger& ledger) {
  const fs::path path = ledger.File("ShortcutKeys.dat");
  std::error_code ignored;
  if (!fs::exists(path, ignored))
    SetDefaultShortcuts(ledger);
  else if (!LoadGridFile(ledger, path, ledger.fgShortcuts))
    MakeBlank(ledger.fgShortcuts, kShortcutsTable);
}

}  // namespace

std::string DigestOf(std::string_view text) { return clsMD5().DigestStrToHexStr(text); }

GridLoad LoadGridFromText(Ledger& ledger, std::string_view text, Grid& grid) {
  RedrawOff redrawOff(grid);
  MakeEmpty(grid);
  GridLoad result = GridLoad::Unreadable;
  try {
    result = ReadTable(ledger, text, grid);
  } catch (const std::exception&) {
    // not Base64, or too long to be read
  }
  if (result != GridLoad::Loaded) MakeEmpty(grid);
  return result;
}

bool LoadGridFile(Ledger& ledger, const fs::path& path, Grid& grid) {
  ledger.platform.progress.Show(-1, "Loading " + PathText(path) + "...");
  std::error_code ignored;
  if (!fs::exists(path, ignored)) {
    ShowMessage(ledger, "Unable to find the file " + PathText(path));
    return false;
  }
  std::string error;
  const auto text = ReadFile(path, error);
  if (!text) {
    ShowMessage(ledger, error, PathText(path), Buttons::Ok, Icon::Critical);
    return false;
  }
  const GridLoad result = LoadGridFromText(ledger, *text, grid);
  if (result == GridLoad::Unreadable) ShowTableDamage(ledger, grid.Name());
  return result == GridLoad::Loaded;
}

std::string GridToText(Ledger& ledger, const Grid& grid) {
  std::string section;
  AppendSection(ledger, grid, section);
  return section;
}

bool WriteTextFile(Ledger& ledger, std::string_view text, const fs::path& path) {
  std::string error;
  if (ReplaceFile(path, text, error)) return true;
  ShowMessage(ledger, error, PathText(path), Buttons::Ok, Icon::Critical);
  return false;
}

namespace {

std::string DataFileText(Ledger& ledger) {
  std::string text = DigestOf(ledger.dataPassword) + HeaderText(ledger);
  std::size_t room = text.size();
  for (const Grid* grid : ledger.dataTables) room += RoomFor(*grid) / 3 * 4;
  text.reserve(room);
  for (const Grid* grid : ledger.dataTables) {
    text += kSectionEnd;
    AppendSection(ledger, *grid, text);
  }
  return text;
}

// A table that outgrew its digest or the memory is told, and the file stays as it is.
bool WriteBuilt(Ledger& ledger, const fs::path& path, const std::function<std::string()>& build) {
  std::string text;
  try {
    text = build();
  } catch (const std::exception&) {
    ShowMessage(ledger, "The data is too large to be saved",
                PathText(path) + "\\n\\nThe file was left as it is.", Buttons::Ok, Icon::Critical);
    return false;
  }
  return WriteTextFile(ledger, text, path);
}

}  // namespace

bool SaveGridFile(Ledger& ledger, const fs::path& path, Grid& grid) {
  return WriteBuilt(ledger, path, [&] { return GridToText(ledger, grid); });
}

bool LoadData(Ledger& ledger, const fs::path& path) {
  const fs::path source = path.empty() ? ledger.File(kDataFile) : path;
  LoadShortcuts(ledger);
  // Until a first load the tables are blank. Later on they hold the user's work, which a load that
  // fails before it touches them does not harm.
  if (ledger.starting) ledger.dataIncomplete = true;

  const auto file = ReadDataFile(ledger, source);
  if (!file) return false;
  const auto password = PasswordOf(ledger, source, *file);
  if (!password) return false;
  const BusyPointer busy(ledger.platform);
  const auto version = VersionFromHeader(file->header);
  if (!version || file->sections.size() > kTables.size()) {
    ShowDamage(ledger, version ? "File" : "Header");
    return false;
  }

  ledger.dataPassword = *password;
  SetOption(ledger, optPasswordHash, file->passwordHash);
  ledger.dataIncomplete = true;
  if (!ReadTables(ledger, *file)) return false;
  BringUpToDate(ledger);
  FormatTables(ledger);
  if (!version->empty()) ledger.dataFileVersion = *version;
  HideKeys(ledger.fgSessionExpenses);
  HideKeys(ledger.fgExtras);
  ledger.dataIncomplete = false;
  return true;
}

bool WriteDataFile(Ledger& ledger, const fs::path& path) {
  if (ledger.dataIncomplete) {
    ShowMessage(ledger, "The data was not loaded completely",
                "Nothing was saved, since less than the data file holds would have taken its "
                "place.\\n\\nTry reloading the data, or load a backup file.",
                Buttons::Ok, Icon::Critical);
    return false;
  }
  return WriteBuilt(ledger, path, [&] { return DataFileText(ledger); });
}

bool Save(Ledger& ledger) {
  StoreTypedDetails(ledger);
  if (!SaveOptions(ledger) || !WriteDataFile(ledger, ledger.File(kDataFile))) return false;
  for (Grid* grid : ledger.dataTables) ClearMarkers(*grid);
  ledger.history.Saved();
  return true;
}

}  // namespace lm
