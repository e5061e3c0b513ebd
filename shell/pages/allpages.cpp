#include "shell/pages/allpages.h"

#include "shell/pages/calendarpage.h"
#include "shell/pages/eventspage.h"
#include "shell/pages/expensespage.h"
#include "shell/pages/invoicespage.h"
#include "shell/pages/mydetailspage.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/practicespage.h"
#include "shell/pages/reportspage.h"
#include "shell/pages/sessionspage.h"
#include "shell/pages/todaypage.h"

namespace lm {
namespace {

using MakePage = std::unique_ptr<MainPage> (*)(frmMain& window);

template <typename Kind>
std::unique_ptr<MainPage> Make(frmMain& window) {
  return std::make_unique<Kind>(window);
}

constexpr MakePage kPages[] = {
    Make<CalendarPage>,   //
    Make<SessionsPage>,   //
    Make<EventsPage>,     //
    Make<InvoicesPage>,   //
    Make<ReportsPage>,    //
    Make<PracticesPage>,  //
    Make<PensionPage>,    //
    Make<ExpensesPage>,   //
    Make<MyDetailsPage>,  //
    Make<TodayPage>,
};

}  // namespace

std::vector<std::unique_ptr<MainPage>> MakePages(frmMain& window) {
  std::vector<std::unique_ptr<MainPage>> pages;
  for (const MakePage make : kPages) pages.push_back(make(window));
  return pages;
}

}  // namespace lm
