#include "shell/tips.h"

#include <string>
#include <string_view>

#include "core/messagebox.h"

namespace lm {
namespace {

bool Always(const Ledger&) { return true; }
bool NoPractices(const Ledger& ledger) { return !ledger.fgPractices.HasData(); }
bool NoSessions(const Ledger& ledger) {
  return ledger.fgPractices.HasData() && !ledger.fgSessions.HasData();
}
bool HasSessions(const Ledger& ledger) { return ledger.fgSessions.HasData(); }
bool HasPractices(const Ledger& ledger) { return ledger.fgPractices.HasData(); }

constexpr std::string_view kSorting =
    "Click a column's heading to sort the list by that column. Click it a second time to reverse "
    "the order.";
constexpr std::string_view kPositioning =
    "Drag a column's heading to move the column, or drag the line between two headings to change "
    "its width. The layout is kept when you save.";

struct PageTip {
  Page page;
  bool (*fits)(const Ledger&);
  std::string_view title;
  std::string_view text;
};

constexpr PageTip kPageTips[] = {
    {Page::Calendar, Always, "Calendars",
     "The calendars show your sessions and events by week, in detail, by month, as a planner and "
     "by year. Choose the view with the tabs."},
    {Page::Sessions, NoPractices, "Sessions Page",
     "Practices come first: a session always belongs to a practice.\\n\\nClick the 'Practices' "
     "icon in "
     "the shortcuts bar to enter the practices you work at, then come back to enter your "
     "sessions."},
    {Page::Sessions, NoSessions, "New Sessions",
     "To enter a session, click the green 'plus' icon above the list. Dates and times can be typed "
     "in many ways, such as 'next mon' or '8:30am'; the fee is worked out from the hourly rate."},
    {Page::Sessions, HasSessions, "Sessions Page",
     "This page lists the sessions you work. Double click a session to open it, or type straight "
     "into "
     "its cells. The tabs choose which sessions are shown."},
    {Page::Sessions, HasSessions, "Data Sorting", kSorting},
    {Page::Sessions, HasSessions, "Column Positioning", kPositioning},
    {Page::Invoices, Always, "Invoices",
     "Invoices are prepared from the sessions that are not on an invoice yet. The list shows when "
     "each "
     "was sent and paid."},
    {Page::Reports, Always, "Reporting",
     "Reports add up your sessions, invoices and expenses over any period you choose."},
    {Page::Practices, Always, "Practices",
     "This page lists the practices you work at. Double click a practice to open it. Hourly rates "
     "entered here come before the rates on the Options screen."},
    {Page::Practices, HasPractices, "Data Sorting", kSorting},
    {Page::Practices, HasPractices, "Column Positioning", kPositioning},
    {Page::Pension, Always, "Pension Forms",
     "There is one Form A for each practice and month, one Form B for each month and one Form SOLO "
     "for "
     "each out-of-hours provider and month."},
    {Page::Expenses, Always, "General Expenses",
     "General expenses are costs of your work that belong to no single session, such as "
     "subscriptions. "
     "Costs of one session are entered on the session itself."},
    {Page::MyDetails, Always, "My Details",
     "What you enter here appears on your invoices and pension forms, so it is worth completing "
     "before "
     "the first of them. Changes are kept when you save."},
};

}  // namespace

void ShowPageTip(Ledger& ledger, Page page) {
  for (const PageTip& tip : kPageTips) {
    if (tip.page != page || !tip.fits(ledger)) continue;
    if (ledger.shownTips.contains(std::string(tip.text))) continue;
    return ShowTip(ledger, tip.title, tip.text);
  }
}

void ShowCurrentSessionsTip(Ledger& ledger) {
  ShowTip(
      ledger, "Current Sessions",
      "This tab shows the sessions of the last days and of the days to come. Choose another tab to "
      "see older and later ones. How many days are shown is set on the Options screen.");
}

}  // namespace lm
