// Saving from the main window, and the way from its close request to the end.
#include "core/datafile.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "shell/frmMain.h"
#include "shell/ungroupedlists.h"

namespace lm {

bool frmMain::SaveAll() {
  const UngroupedLists ungrouped(*this);
  return Save(ledger);
}

bool frmMain::CloseMain() {
  if (Closed()) return true;
  if (!ledger.exitWithoutSaving) {
    if (!ConfirmExit()) return false;
    // Tables that a failed load left incomplete must replace neither the file nor today's backup.
    // There is nothing to keep in them but what was entered since.
    const bool nothingToSave = ledger.dataIncomplete && !HasUnsaved(ledger);
    // A save that failed has told why. The window stays, since closing would lose the changes.
    if (OptionIsTrue(ledger, optAutoSave) && !nothingToSave && !SaveAll()) return false;
    if (!ledger.dataIncomplete) BackUpIfDue();
  }
  UnloadAllWindows();
  return true;
}

bool frmMain::ConfirmExit() {
  if (!OptionIsTrue(ledger, optConfirmExit)) return true;
  const bool autoSaveOff = EqualsIgnoreCase(GetOption(ledger, optAutoSave), "FALSE");
  return Ask(ledger, "Do you really want to exit?", autoSaveOff ? "Autosave is turned off." : "",
             "Exit LedgerMinder");
}

void frmMain::ExitWithoutSaving() {
  if (!Ask(ledger, "Exit without saving?")) return;
  ledger.exitWithoutSaving = true;
  UnloadAllWindows();
}

void frmMain::UnloadAllWindows() {
  const std::vector<Screen*> open = ledger.openScreens;
  for (auto screen = open.rbegin(); screen != open.rend(); ++screen) (*screen)->Close();
  Close();
}

}  // namespace lm
