#include "connections/windows.h"

#include "connections/frmAbout.h"
#include "connections/frmExportCalendar.h"

namespace lm {
namespace {

bool ShowAbout(Ledger& ledger, const std::vector<std::string>&) {
  frmAbout window(ledger);
  return ShowRecord(window, "", "This window is already open.", [] { return true; });
}

bool ShowExportCalendar(Ledger& ledger, const std::vector<std::string>&) {
  frmExportCalendar window(ledger);
  return ShowRecord(window, "", "This window is already open.", [] { return true; });
}

}  // namespace

void AddConnectionWindows(WindowCatalogue& catalogue) {
  catalogue.Add("frmAbout", ShowAbout);
  catalogue.Add("frmExportCalendar", ShowExportCalendar);
}

}  // namespace lm
