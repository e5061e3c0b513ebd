#include "connections/windows.h"

#include "connections/frmAbout.h"
#include "connections/frmExportCalendar.h"
#include "connections/frmImportCalendar.h"
#include "connections/frmImportWizard.h"
#include "connections/frmSynchroniseOutlook.h"

namespace lm {
namespace {

// One window of its kind, which takes no words.
template <typename Window>
bool ShowOne(Ledger& ledger, const std::vector<std::string>&) {
  Window window(ledger);
  return ShowRecord(window, "", "This window is already open.", [] { return true; });
}

// The word is that of a booking service, without one the first.
bool ShowImportWizard(Ledger& ledger, const std::vector<std::string>& words) {
  const BookingFeed* feed = FindBookingFeed(words.empty() ? "" : words[0]);
  if (!feed) return false;
  frmImportWizard window(ledger, *feed);
  return ShowRecord(window, "", "This window is already open.", [] { return true; });
}

}  // namespace

void AddConnectionWindows(WindowCatalogue& catalogue) {
  catalogue.Add("frmAbout", ShowOne<frmAbout>);
  catalogue.Add("frmExportCalendar", ShowOne<frmExportCalendar>);
  catalogue.Add("frmImportCalendar", ShowOne<frmImportCalendar>);
  catalogue.Add("frmSynchroniseOutlook", ShowOne<frmSynchroniseOutlook>);
  catalogue.Add("frmImportWizard", ShowImportWizard);
}

}  // namespace lm
