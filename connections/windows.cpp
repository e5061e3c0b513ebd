#include "connections/windows.h"

#include "connections/frmAbout.h"

namespace lm {
namespace {

bool ShowAbout(Ledger& ledger, const std::vector<std::string>&) {
  frmAbout window(ledger);
  return ShowRecord(window, "", "This window is already open.", [] { return true; });
}

}  // namespace

void AddConnectionWindows(WindowCatalogue& catalogue) { catalogue.Add("frmAbout", ShowAbout); }

}  // namespace lm
