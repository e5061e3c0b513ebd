#include "core/startup.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

#include "core/clsRC4.h"
#include "core/datafile.h"
#include "core/files.h"
#include "core/format.h"
#include "core/keys.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/tables.h"
#include "core/temporaryfiles.h"
#include "core/text.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDocumentFolders[] = {"Invoices", "Pension Forms"};
constexpr std::string_view kTemplateFolders[] = {"Invoice Templates", "Form Templates"};
constexpr std::string_view kConfirm = "CONFIRM";

bool Exists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

bool MakeFolderOrTell(Ledger& ledger, const fs::path& path) {
  std::string error;
  if (MakeFolder(path, error)) return true;
  ShowMessage(ledger, error, PathInMessage(path), Buttons::Ok, Icon::Critical);
  return false;
}

bool MakeFolders(Ledger& ledger) {
  const auto make = [&](std::string_view folder) {
    return MakeFolderOrTell(ledger, ledger.File(folder));
  };
  return MakeFolderOrTell(ledger, ledger.programDirectory) &&
         std::ranges::all_of(kDocumentFolders, make) && std::ranges::all_of(kTemplateFolders, make);
}

// The options and tables of a first start.
void MakeBlank(Ledger& ledger) {
  for (std::size_t i = 0; i < kTables.size(); ++i) MakeBlank(*ledger.dataTables[i], kTables[i]);
  Grid& options = ledger.fgOptions;
  options.SetRows(0);
  options.SetCols(0);
  options.SetRows(2);
  options.SetCols(kOptionCount);
  options.SetRowHidden(1, true);
  SetFirstInstallOptions(ledger);
}

bool SameCells(const Grid& one, const Grid& other) {
  if (one.Rows() != other.Rows() || one.Cols() != other.Cols()) return false;
  for (int row = 0; row < one.Rows(); ++row)
    for (int col = 0; col < one.Cols(); ++col)
      if (one.TextMatrix(row, col) != other.TextMatrix(row, col)) return false;
  return true;
}

bool IsBlankOptionsFile(const Ledger& ledger) {
  std::string ignored;
  const auto bytes = ReadFile(ledger.OptionsFile(), ignored);
  Ledger blank(ledger.platform);
  MakeBlank(blank);
  Grid found("fgOptions");
  return bytes &&
         LoadGridFromText(*bytes, TableKey(found.Name(), ""), found) == TableState::Whole &&
         SameCells(found, blank.fgOptions);
}

bool IsBlankDataFile(const Ledger& ledger) {
  std::string ignored;
  const auto bytes = ReadFile(ledger.DataFile(), ignored);
  const auto file = bytes ? TakeApart(*bytes) : std::nullopt;
  if (!file || file->passwordHash != DigestOf("")) return false;
  Ledger found(ledger.platform);
  return DecodeDataFile(*file, "", found.dataTables).damage.empty() &&
         std::ranges::none_of(found.dataTables, &Grid::HasData);
}

// The clear text of the log; empty when it was not written by this program.
std::string ClearLog(std::string_view text) {
  try {
    return clsRC4().DecryptString(text, SecurityLogKey(), true);
  } catch (const std::exception&) {
    return "";  // not Base64
  }
}

std::string LastOpened(std::string_view stored) {
  std::string text = ClearLog(stored);
  if (!text.ends_with(kConfirm)) return "UNKNOWN - Security log tampered.";
  text.resize(text.size() - kConfirm.size());
  return text;
}

std::string NewRecord(Platform& platform) {
  return FormatDate(platform.clock.Now(), "ddd dd-mmm-yyyy hh:nn") + " by " +
         platform.system.UserName() + std::string(kConfirm);
}

// A program run where it was built must not leave records there: such folders are thrown away.
bool IsBuildFolder(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder / "CMakeCache.txt", ignored) ||
         fs::exists(folder.parent_path() / "CMakeCache.txt", ignored);
}

// Where a package put the program, records would lie among everybody's programs; root could write
// them there, and so could the owner of ~/.local.
bool IsInstalledFolder(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder.parent_path() / "share/doc/ledgerminder/copyright", ignored);
}

void ShowLogError(Ledger& ledger) {
  ShowMessage(ledger, "Unexpected error processing the security log",
              "This error is non-critical, but please email " + std::string(kSupportAddress) +
                  " if it persists.");
}

}  // namespace

fs::path ChooseProgramDirectory(Platform& platform) {
  const fs::path own = platform.system.ExecutableDirectory();
  const bool portable = IsWritableFolder(own) && !IsBuildFolder(own) && !IsInstalledFolder(own);
  return portable ? own : platform.system.UserDataDirectory();
}

void RemoveLeftovers(const Ledger& ledger) {
  RemoveLeftTemporaryFiles(ledger.programDirectory);
  for (const std::string_view folder : kDocumentFolders)
    RemoveLeftTemporaryFiles(ledger.File(folder));
}

bool IsFirstStart(const Ledger& ledger) {
  const bool options = MayExist(ledger.OptionsFile());
  const bool data = MayExist(ledger.DataFile());
  if (options && data) return false;
  return options ? IsBlankOptionsFile(ledger) : !data || IsBlankDataFile(ledger);
}

bool MakeProgramDirectory(Ledger& ledger) {
  if (!MakeFolders(ledger)) return false;
  MakeBlank(ledger);
  ledger.dataPassword.clear();
  ledger.dataIncomplete = false;
  if (!WriteDataFile(ledger, ledger.DataFile())) return false;
  if (SaveOptions(ledger)) return true;
  std::error_code ignored;
  fs::remove(ledger.DataFile(), ignored);
  return false;
}

bool AnotherInstanceRuns(Platform& platform) {
  const std::string name = ToUpper(kProductName);
  return std::ranges::count_if(platform.system.RunningProcesses(), [&](const std::string& process) {
           return ToUpper(process).starts_with(name);
         }) > 1;
}

void ProcessSecurityLog(Ledger& ledger) {
  const fs::path path = ledger.File("Security.log");
  std::string text = "UNKNOWN - Security log not found.";
  std::string error;
  if (Exists(path)) {
    const auto stored = ReadFile(path, error);
    if (!stored) return ShowLogError(ledger);
    text = LastOpened(*stored);
  }
  ledger.platform.progress.ShowLastOpened("Last Opened: " + text);

  const std::string record =
      clsRC4().EncryptString(NewRecord(ledger.platform), SecurityLogKey(), true);
  if (!ReplaceFile(path, record, error)) ShowLogError(ledger);
}

}  // namespace lm
