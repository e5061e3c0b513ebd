// Backups: the data file under another name, saved and loaded by the user, or saved at closing.
#include <system_error>

#include "core/datafile.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/savefile.h"
#include "shell/frmMain.h"
#include "shell/ungroupedlists.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnable = "Unable to save backup.\\n";

fs::path BackupFileOf(const Ledger& ledger, Date day) {
  return ledger.File("LedgerMinderBackup " + FormatDate(day, "dd mmm yyyy") + ".bak");
}

void RememberBackup(Ledger& ledger, const fs::path& path) {
  SetOption(ledger, optLastBackupFile, PathText(path));
  SetOption(ledger, optLastBackupDate, FormatDate(ledger.platform.clock.Now(), "dd/mm/yyyy hh:nn"));
  SaveOptions(ledger);
}

}  // namespace

bool frmMain::SaveBackup() {
  const auto target =
      AskWhereToSave(ledger, "Save Backup...", kUnable, {{"Backup (*.bak)", "*.bak"}},
                     BackupFileOf(ledger, ledger.platform.clock.Now()));
  if (!target) return false;
  const BusyPointer busy(ledger.platform);
  const UngroupedLists ungrouped(*this);
  if (!WriteDataFile(ledger, target->path, kUnable)) return false;
  RememberBackup(ledger, target->path);
  return true;
}

void frmMain::LoadBackup() {
  const fs::path path = ledger.platform.system.AskOpenFile(
      "Load Backup...", {"Backups (*.bak)", "*.bak"}, ledger.programDirectory);
  if (path.empty()) return;
  if (HasUnsaved(ledger) &&
      !Ask(ledger, "Load the backup in place of your unsaved changes?",
           "What was entered since the last save will be lost.", "Load Backup", Answer::Yes))
    return;
  ShowMessage(ledger, "Auto save is now turned off",
              "When a backup file is loaded auto-save is turned off.\\n\\nYou can turn it back on "
              "from the Options screen.",
              Buttons::Ok, Icon::Information);
  SetOption(ledger, optAutoSave, "FALSE");
  bool loaded = false;
  {
    const UngroupedLists ungrouped(*this);
    loaded = LoadData(ledger, path);
    if (loaded) DataLoaded();
  }
  if (!loaded) return LeaveAfterFailedLoad();
  SaveOptions(ledger);  // auto save stays off in later runs
  ApplyShortcutsToMenus();
  ShowPage(CurrentPage());
}

// The tables hold a part of the backup, or none of it: nothing of that may be saved.
void frmMain::LeaveAfterFailedLoad() {
  ShowMessage(ledger, "The backup could not be loaded",
              "LedgerMinder closes now without saving. Your data file stays as it was saved last.");
  ledger.exitWithoutSaving = true;
  UnloadAllWindows();
}

void frmMain::BackUpIfDue() {
  const Double days = Val(GetOption(ledger, optAutoBackupDays));
  if (days <= 0) return;
  const Date now = ledger.platform.clock.Now();
  const auto last = CellDateTime(GetOption(ledger, optLastBackupDate));  // none: a backup is due
  if (last && *last + days > now) return;
  const fs::path path = BackupFileOf(ledger, now);
  const UngroupedLists ungrouped(*this);
  if (WriteDataFile(ledger, path)) RememberBackup(ledger, path);
}

}  // namespace lm
