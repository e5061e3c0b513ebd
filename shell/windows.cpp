#include "shell/windows.h"

#include "connections/windows.h"
#include "documents/windows.h"
#include "pension/windows.h"
#include "records/windows.h"
#include "shell/frmConfigure.h"
#include "shell/frmFind.h"
#include "shell/frmGettingStarted.h"
#include "shell/frmShortcutKeys.h"

namespace lm {

void AddWindows(WindowCatalogue& catalogue) {
  AddRecordWindows(catalogue);
  AddDocumentWindows(catalogue);
  AddPensionWindows(catalogue);
  AddConnectionWindows(catalogue);
}

void AddMainWindows(WindowCatalogue& catalogue, frmMain& main) {
  catalogue.Add("frmConfigure", [&main](Ledger&, const std::vector<std::string>& words) {
    frmConfigure window(main);
    window.Show(words);
    return ShowRecord(window, "", "The options are already open.", [] { return true; });
  });
  catalogue.Add("frmFind", [&main](Ledger&, const std::vector<std::string>&) {
    frmFind window(main);
    if (!ShowRecord(window, "", "Find is already open.", [] { return true; })) return false;
    window.OpenChosen();
    return true;
  });
  catalogue.Add("frmGettingStarted", [&main](Ledger&, const std::vector<std::string>&) {
    frmGettingStarted window(main);
    return ShowRecord(window, "", "The first steps are already open.", [] { return true; });
  });
  catalogue.Add("frmShortcutKeys", [&main](Ledger&, const std::vector<std::string>&) {
    frmShortcutKeys window(main);
    return ShowRecord(window, "", "The shortcut keys are already open.", [] { return true; });
  });
}

}  // namespace lm
