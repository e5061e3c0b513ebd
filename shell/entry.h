// The start of the program, from the splash window to the first page. Every driver runs it: the
// desktop, the command line and the tests.
#pragma once

#include <functional>
#include <string_view>

#include "core/ledger.h"

namespace lm {

class frmMain;

struct EntryHooks {
  std::function<frmMain&()> createMain;  // makes the main window, once; the driver keeps it
  std::function<void()> showSplash;      // without waiting; may be empty, like the next
  std::function<void()> closeSplash;
  bool askName = true;  // a first start asks for the user's name in frmWelcome
};

// Runs the whole start. The ledger's program directory is chosen here when it is still empty.
// Null when the start ended before the main window was shown, after its message if it has one;
// then the program ends, with nothing saved.
frmMain* RunEntryProcedure(Ledger& ledger, const EntryHooks& hooks, std::string_view commandLine);

// The last part of the start: the first page, the splash window away, the main window shown.
void FinishStart(frmMain& window, const EntryHooks& hooks);

}  // namespace lm
