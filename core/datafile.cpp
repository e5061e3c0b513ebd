#include "core/datafile.h"

#include <exception>
#include <functional>
#include <optional>
#include <vector>

#include "core/files.h"
#include "core/formatting.h"
#include "core/frmGetPassword.h"
#include "core/keptversion.h"
#include "core/keys.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "core/upgrades.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

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

std::string KeyOf(const Ledger& ledger, const Grid& grid) {
  return TableKey(grid.Name(), ledger.dataPassword);
}

// The bytes of a data file. Nothing after its message.
std::optional<std::string> ReadDataFile(Ledger& ledger, const fs::path& path) {
  std::error_code ignored;
  if (!fs::exists(path, ignored)) {
    ShowMessage(ledger, "Missing File", PathInMessage(path));
    return std::nullopt;
  }
  std::string error;
  auto bytes = ReadFile(path, error);
  if (!bytes) ShowMessage(ledger, error, PathInMessage(path), Buttons::Ok, Icon::Critical);
  return bytes;
}

void ShowNoDataFile(Ledger& ledger, const fs::path& path) {
  ShowMessage(ledger, "This is not a LedgerMinder data file",
              PathInMessage(path) + "\\n\\nTry loading a backup file.", Buttons::Ok, Icon::Critical,
              "", WebPage("/UnableToLoad.php"));
}

// By the major and the minor number; a revision changes no file.
bool IsNewer(std::string_view version) {
  const auto theirs = Split(version, '.'), ours = Split(ProgramVersion(), '.');
  for (const std::size_t part : {0U, 1U}) {
    const int their = part < theirs.size() ? ValInt(theirs[part]) : 0;
    if (their != ValInt(ours[part])) return their > ValInt(ours[part]);
  }
  return false;
}

// What a later version stored cannot be guessed at.
bool RefuseNewer(Ledger& ledger, const fs::path& path, const std::string& version) {
  if (!IsNewer(version)) return false;
  ShowMessage(ledger, "This file was saved by a newer version of LedgerMinder",
              PathInMessage(path) + "\\n\\nIt was saved by version " + version +
                  "; this is version " + std::string(ProgramVersion()) +
                  ". Install the newer version to open it. The file was left as it is.",
              Buttons::Ok, Icon::Critical);
  return true;
}

// The clear password of the file, "" when it has none. Nothing when the user gave it up or it is
// wrong: there is no second attempt.
std::optional<std::string> PasswordOf(Ledger& ledger, const fs::path& path,
                                      const DataFileParts& file) {
  if (file.passwordHash == DigestOf("")) return "";
  const std::string entered = AskPassword(ledger, PathText(path.filename()));
  if (entered.empty()) return std::nullopt;
  if (DigestOf(entered) == file.passwordHash) return entered;
  ShowMessage(ledger, "Incorrect Password",
              "Passwords are case sensitive.\\nPlease ensure you do not have CAPS LOCK on.");
  return std::nullopt;
}

// The first damage is told. The tables behind it are made blank too: a part of the records that
// looks like all of them would be worked on.
void TellDamage(Ledger& ledger, const Damage& first) {
  if (first.part != DamagedPart::Table)
    return ShowDamage(ledger, first.part == DamagedPart::Header ? "Header" : "File");
  for (std::size_t i = first.table; i < kTables.size(); ++i)
    MakeBlank(*ledger.dataTables[i], kTables[i]);
  ShowTableDamage(ledger, kTables[first.table].name);
}

// Files of before version 4 had fewer tables; one of today that lacks some was cut off.
void TellMissingTables(Ledger& ledger, std::size_t sections, std::string_view version) {
  if (sections == kTables.size() || ValInt(Split(version, '.').front()) < 4) return;
  std::string missing;
  for (std::size_t i = sections; i < kTables.size(); ++i)
    missing += (missing.empty() ? "" : ", ") + std::string(kTables[i].name.substr(2));
  ShowMessage(ledger, "A part of the data file is missing",
              "These tables are not in the file, and are empty now: " + missing +
                  ".\\n\\nThe file may have been cut off. If they should hold records, choose "
                  "Exit Without Saving, and load a backup file.",
              Buttons::Ok, Icon::Exclamation, "", WebPage("/UnableToLoad.php"));
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
  else
    AddMissingShortcuts(ledger);
}

// The text of a file to write. Nothing after its message: a table outgrew its digest or the
// memory, and the file stays as it is.
std::optional<std::string> Built(Ledger& ledger, const fs::path& path,
                                 const std::function<std::string()>& build,
                                 std::string_view front = "") {
  try {
    return build();
  } catch (const std::exception&) {
    ShowMessage(ledger, std::string(front) + "The data is too large to be saved",
                PathInMessage(path) + "\\n\\nThe file was left as it is.", Buttons::Ok,
                Icon::Critical);
    return std::nullopt;
  }
}

bool MaySave(Ledger& ledger, std::string_view front = "") {
  if (!ledger.dataIncomplete) return true;
  ShowMessage(ledger, std::string(front) + "The data was not loaded completely",
              "Nothing was saved, since less than the data file holds would have taken its "
              "place.\\n\\nTry reloading the data, or load a backup file.",
              Buttons::Ok, Icon::Critical);
  return false;
}

}  // namespace

bool LoadGridFile(Ledger& ledger, const fs::path& path, Grid& grid) {
  ledger.platform.progress.Show(-1, "Loading " + NativePathText(path) + "...");
  std::error_code ignored;
  if (!fs::exists(path, ignored)) {
    ShowMessage(ledger, "Unable to find the file " + PathInMessage(path));
    return false;
  }
  std::string error;
  const auto text = ReadFile(path, error);
  if (!text) {
    ShowMessage(ledger, error, PathInMessage(path), Buttons::Ok, Icon::Critical);
    return false;
  }
  if (LoadGridFromText(*text, KeyOf(ledger, grid), grid) == TableState::Whole) return true;
  ShowTableDamage(ledger, grid.Name());
  return false;
}

bool WriteTextFile(Ledger& ledger, std::string_view text, const fs::path& path,
                   std::string_view front) {
  std::string error;
  if (ReplaceFile(path, text, error)) return true;
  ShowMessage(ledger, std::string(front) + error, PathInMessage(path), Buttons::Ok, Icon::Critical);
  return false;
}

bool SaveGridFile(Ledger& ledger, const fs::path& path, Grid& grid) {
  const auto text = Built(ledger, path, [&] { return GridToText(grid, KeyOf(ledger, grid)); });
  return text && WriteTextFile(ledger, *text, path);
}

bool LoadData(Ledger& ledger, const fs::path& path) {
  const fs::path source = path.empty() ? ledger.DataFile() : path;
  LoadShortcuts(ledger);
  // Until a first load the tables are blank. Later on they hold the user's work, which a load that
  // fails before it touches them does not harm.
  if (ledger.starting) ledger.dataIncomplete = true;

  const auto bytes = ReadDataFile(ledger, source);
  if (!bytes) return false;
  const auto file = TakeApart(*bytes);
  if (!file) {
    ShowNoDataFile(ledger, source);
    return false;
  }
  if (RefuseNewer(ledger, source, VersionOf(*file))) return false;
  const auto password = PasswordOf(ledger, source, *file);
  if (!password) return false;
  const BusyPointer busy(ledger.platform);
  const DecodedDataFile read = DecodeDataFile(*file, *password, ledger.dataTables);
  const bool whole = read.damage.empty();
  if (whole || read.damage.front().part == DamagedPart::Table) {
    ledger.dataPassword = *password;
    SetOption(ledger, optPasswordHash, file->passwordHash);
    ledger.dataIncomplete = true;  // until every step is through
  }
  if (!whole) {
    TellDamage(ledger, read.damage.front());
    return false;
  }
  UpgradeTables(ledger, file->sections.size());
  FormatTables(ledger);
  if (!read.version.empty()) ledger.dataFileVersion = read.version;
  if (!CorrectReturnDates(ledger, *bytes, read.version)) return false;
  TellMissingTables(ledger, file->sections.size(), read.version);
  HideKeys(ledger.fgSessionExpenses);
  HideKeys(ledger.fgExtras);
  RememberVersion(ledger, source, *bytes);
  ledger.dataIncomplete = false;
  return true;
}

bool WriteDataFile(Ledger& ledger, const fs::path& path, std::string_view front) {
  if (!MaySave(ledger, front)) return false;
  const auto build = [&] {
    return EncodeDataFile(ledger.dataTables, ledger.dataPassword, ProgramVersion(),
                          ledger.platform.clock.Now());
  };
  const auto text = Built(ledger, path, build, front);
  if (!text || !WriteTextFile(ledger, *text, path, front)) return false;
  RememberVersion(ledger, path, *text);
  return true;
}

bool Save(Ledger& ledger) {
  if (!MaySave(ledger) || !KeepOtherVersion(ledger)) return false;
  StoreTypedDetails(ledger);
  if (!SaveOptions(ledger) || !WriteDataFile(ledger, ledger.DataFile())) return false;
  for (Grid* grid : ledger.dataTables) ClearMarkers(*grid);
  ledger.history.Saved();
  return true;
}

}  // namespace lm
