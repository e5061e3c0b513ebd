#include "shell/pages/comingpages.h"

namespace lm {
namespace {

constexpr PageSpec kCalendar{
    Page::Calendar,
    "Calendar",
    "calendar",
    "mnuViewCalendar",
    "",
    "The calendar views are not available in this version yet. Your sessions are on the Sessions "
    "page."};
constexpr PageSpec kReports{
    Page::Reports,    "Reports", "reports",
    "mnuViewReports", "",        "The reports are not available in this version yet."};
constexpr PageSpec kToday{
    Page::LMToday,
    "LM Today",
    "lmtoday",
    "mnuViewLMToday",
    "",
    "LM Today will show your coming sessions and what is left to do. It is not available in this "
    "version yet."};

}  // namespace

CalendarPage::CalendarPage(frmMain& theWindow) : MainPage(theWindow, kCalendar) {
  AddTip({"Calendars",
          "The calendars show your sessions and events by week, in detail, by month, as a planner "
          "and by year. Choose the view with the tabs."});
}

ReportsPage::ReportsPage(frmMain& theWindow) : MainPage(theWindow, kReports) {
  AddTip({"Reporting",
          "Reports add up your sessions, invoices and expenses over any period you choose."});
}

TodayPage::TodayPage(frmMain& theWindow) : MainPage(theWindow, kToday) {}

}  // namespace lm
