#include "shell/pages.h"

namespace lm {

const std::array<PageSpec, kPageColumns - 1> kPages{{
    {Page::Calendar, "Calendar", "calendar", "mnuViewCalendar", "",
     "The calendar views are not available in this version yet. Your sessions are on the Sessions "
     "page."},
    {Page::Sessions, "Sessions", "sessions", "mnuViewSessions", "cmdSessionPage", ""},
    {Page::Events, "Events", "events", "mnuVewEvents", "cmdEventPage",
     "Your events are listed here. They cannot be added or changed in this version yet."},
    {Page::Invoices, "Invoices", "invoices", "mnuViewInvoices", "cmdInvoicePage", ""},
    {Page::Reports, "Reports", "reports", "mnuViewReports", "",
     "The reports are not available in this version yet."},
    {Page::Practices, "Practices", "practices", "mnuViewPractices", "cmdPracticePage", ""},
    {Page::Pension, "Pension", "pension", "mnuViewPension", "cmdPensionPage", ""},
    {Page::Expenses, "Expenses", "expenses", "mnuViewExpenses", "",
     "Your general expenses are listed here. They cannot be added or changed in this version yet."},
    {Page::MyDetails, "My Details", "mydetails", "mnuViewMyDetails", "", ""},
    {Page::LMToday, "LM Today", "lmtoday", "mnuViewLMToday", "",
     "LM Today will show your coming sessions and what is left to do. It is not available in this "
     "version yet."},
}};

const PageSpec& PageSpecOf(Page page) {
  return kPages[static_cast<std::size_t>(ColumnOf(page) - 1)];
}

}  // namespace lm
