#include "shell/pages/comingpages.h"

namespace lm {
namespace {

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

ReportsPage::ReportsPage(frmMain& theWindow) : MainPage(theWindow, kReports) {
  AddTip({"Reporting",
          "Reports add up your sessions, invoices and expenses over any period you choose."});
}

TodayPage::TodayPage(frmMain& theWindow) : MainPage(theWindow, kToday) {}

}  // namespace lm
