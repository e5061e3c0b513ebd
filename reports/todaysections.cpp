// What stands in each section of LM Today.
#include <algorithm>
#include <cmath>
#include <utility>

#include "calendar/calendar.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"
#include "documents/moneyowed.h"
#include "pension/month.h"
#include "reports/rowtags.h"
#include "reports/today.h"

namespace lm {
namespace {

constexpr std::string_view kNoPractice = "-1";
constexpr std::string_view kDay = "ddd dd/mm/yy";

using Rows = std::vector<TodayRow>;

bool IsEmpty(const Grid& table, int row, std::string_view key) {
  return table.TextMatrix(row, key).empty();
}

std::string TagOf(char letter, const Grid& table, int row) {
  const int col = table.FindCol("ID");
  return letter + (col < 0 ? "" : table.TextMatrix(row, col));
}

// A date as it is shown, "-" for none; nothing for a text that is no date.
std::optional<std::string> ShownDate(const Grid& table, int row, std::string_view key,
                                     std::string_view pattern = kDay) {
  const std::string cell = table.TextMatrix(row, key);
  if (cell.empty()) return "-";
  const auto date = CellDate(cell);
  return date ? std::optional(FormatDate(*date, pattern)) : std::nullopt;
}

// ---- Schedule

std::string Time(const Grid& table, int row, std::string_view key) {
  const auto time = CellTime(table.TextMatrix(row, key));
  return time ? ToLower(FormatDate(*time, "h:nnAMPM")) : "";
}

std::string FromTo(const std::string& from, const std::string& to) {
  return from.empty() || to.empty() ? from + to : from + " - " + to;
}

Rows UpcomingSessions(const TodayRecords& records) {
  const Grid& sessions = records.ledger.fgSessions;
  struct Start {
    Date day, time;
    int row;
  };
  std::vector<Start> starts;
  for (const int row : records.Sessions().upcoming)
    starts.push_back({*CellDate(sessions.TextMatrix(row, "SDATE")),
                      CellTime(sessions.TextMatrix(row, "STIME")).value_or(0), row});
  std::ranges::stable_sort(starts, {},
                           [](const Start& start) { return std::pair(start.day, start.time); });
  Rows rows;
  std::optional<Date> day;
  for (const Start& start : starts) {
    if (day != start.day)
      rows.push_back({.name = FormatDate(start.day, "dddd d mmmm"), .when = "", .isDay = true});
    day = start.day;
    rows.push_back(
        {.name = records.PracticeName(sessions, start.row),
         .when = FromTo(Time(sessions, start.row, "STIME"), Time(sessions, start.row, "ETIME")),
         .tag = TagOf('S', sessions, start.row)});
  }
  return rows;
}

Rows UpcomingEvents(const TodayRecords& records) {
  Rows rows;
  const auto [first, last] = records.upcoming;
  for (const CalendarEvent& event : EventsBetween(records.ledger, first, last, EventDays::All)) {
    const std::string from = FormatDate(event.start, "ddd d mmm");
    const std::string to = event.end != event.start ? FormatDate(event.end, "ddd d mmm") : "";
    rows.push_back({.name = event.title, .when = FromTo(from, to), .tag = EventTag(event.id)});
  }
  return rows;
}

constexpr TodaySection kScheduleSections[] = {
    {"SESSIONS", "Upcoming Sessions", "", optTodayUpcomingSessions, TodayTotal::None,
     UpcomingSessions},
    {"EVENTS", "Events", "", optTodayUpcomingEvents, TodayTotal::None, UpcomingEvents},
};

// ---- Status

Rows SessionAmounts(const TodayRecords& records, const std::vector<int>& which,
                    std::string_view amountKey) {
  const Grid& sessions = records.ledger.fgSessions;
  const int dateCol = sessions.ColIndex("SDATE"), amountCol = sessions.ColIndex(amountKey);
  Rows rows;
  rows.reserve(which.size());
  for (const int row : which)
    rows.push_back({.name = records.PracticeName(sessions, row),
                    .when = FormatDate(*CellDate(sessions.TextMatrix(row, dateCol)), kDay),
                    .amount = CurrencyOf(sessions.TextMatrix(row, amountCol)),
                    .tag = TagOf('S', sessions, row)});
  return rows;
}

Rows UninvoicedSessions(const TodayRecords& records) {
  return SessionAmounts(records, records.Sessions().uninvoiced, "TOTAL");
}

Rows UnpensionedSessions(const TodayRecords& records) {
  return SessionAmounts(records, records.Sessions().unpensioned, "TOTAL");
}

Rows Invoices(const TodayRecords& records, bool sent, std::string_view dateKey) {
  const Grid& invoices = records.ledger.fgInvoices;
  Rows rows;
  for (const int row : Records(invoices)) {
    if (IsEmpty(invoices, row, "SDATE") == sent) continue;
    if (sent && !IsEmpty(invoices, row, "PAYDATE")) continue;
    if (const auto date = ShownDate(invoices, row, dateKey))
      rows.push_back({.name = records.PracticeName(invoices, row),
                      .when = *date,
                      .amount = CurrencyOf(invoices.TextMatrix(row, "AMOUNT")),
                      .tag = TagOf('I', invoices, row)});
  }
  return rows;
}

Rows UnsentInvoices(const TodayRecords& records) { return Invoices(records, false, "CDATE"); }
Rows UnpaidInvoices(const TodayRecords& records) { return Invoices(records, true, "SDATE"); }

Rows OverdueInvoices(const TodayRecords& records) {
  const Grid& invoices = records.ledger.fgInvoices;
  Rows rows;
  for (const int row : Records(invoices))
    if (DaysOverdue(PaymentStateOf(invoices, row), records.today) > 0)
      rows.push_back({.name = records.PracticeName(invoices, row),
                      .when = *ShownDate(invoices, row, "DUEDATE"),
                      .amount = CurrencyOf(invoices.TextMatrix(row, "AMOUNT")),
                      .tag = TagOf('I', invoices, row)});
  return rows;
}

Rows UnreturnedForms(const TodayRecords& records, const Grid& forms, bool opens) {
  Rows rows;
  for (const int row : Records(forms)) {
    if (IsEmpty(forms, row, "SENTTOPRACTICE") || !IsEmpty(forms, row, "RCVDFROMPRACTICE")) continue;
    if (const auto month = ShownDate(forms, row, "MONTH", "mmm yy"))
      rows.push_back({.name = records.PracticeName(forms, row),
                      .when = *month,
                      .amount = CurrencyOf(forms.TextMatrix(row, "AMOUNT")),
                      .tag = opens ? TagOf('A', forms, row) : "",
                      .finder = opens ? FormFinder(forms, row) : ""});
  }
  return rows;
}

Rows UnreturnedFormsA(const TodayRecords& records) {
  return UnreturnedForms(records, records.ledger.fgPensionA, true);
}

Rows UnreturnedFormsC(const TodayRecords& records) {
  return UnreturnedForms(records, records.ledger.fgPensionC, false);
}

constexpr TodaySection kStatusSections[] = {
    {"UNINVOICED SESSIONS", "Uninvoiced Sessions", "(up until today)", optTodayUninvoiced,
     TodayTotal::OfRows, UninvoicedSessions},
    {"UNPENSIONED SESSIONS", "Unpensioned Sessions", "(previous mths)", optTodayUnpensioned,
     TodayTotal::OfRows, UnpensionedSessions},
    {"UNSENT INVOICES", "Unsent Invoices", "", optTodayUnsent, TodayTotal::OfRows, UnsentInvoices},
    {"UNPAID INVOICES", "Unpaid Invoices", "", optTodayUnpaid, TodayTotal::OfRows, UnpaidInvoices},
    {.key = "OVERDUE INVOICES",
     .caption = "Overdue Invoices",
     .note = "(of these)",
     .shown = optTodayUnpaid,
     .total = TodayTotal::OfRows,
     .rows = OverdueInvoices,
     .onlyWithRows = true},
    {"UNRETURNED PENSION FORM As", "Unreturned Pension Form A's", "", optTodayUnreturnedFormA,
     TodayTotal::OfRows, UnreturnedFormsA},
    {.key = "UNRETURNED PENSION FORM Cs",
     .caption = "Pension Form C's",
     .note = "(not returned)",
     .shown = optTodayUnreturnedFormC,
     .total = TodayTotal::OfRows,
     .rows = UnreturnedFormsC,
     .shownToo = optHasRetiredForms},
};

// ---- Finance

Rows PaidInvoices(const TodayRecords& records) {
  const Grid& invoices = records.ledger.fgInvoices;
  const int paidCol = invoices.ColIndex("PAYDATE");
  Rows rows;
  for (const int row : Records(invoices)) {
    const auto paid = CellDate(invoices.TextMatrix(row, paidCol));
    if (!records.recent.Has(paid)) continue;
    rows.push_back({.name = records.PracticeName(invoices, row),
                    .when = FormatDate(*paid, kDay),
                    .amount = CurrencyOf(invoices.TextMatrix(row, "AMOUNT")) -
                              CurrencyOf(invoices.TextMatrix(row, "EMPLOYERCONTRIB")),
                    .tag = TagOf('I', invoices, row)});
  }
  return rows;
}

Rows Expenses(const TodayRecords& records) {
  const Grid& expenses = records.ledger.fgExpenses;
  const int dateCol = expenses.ColIndex("DATE");
  Rows rows;
  for (const int row : Records(expenses)) {
    const auto date = CellDate(expenses.TextMatrix(row, dateCol));
    if (!records.recent.Has(date)) continue;
    rows.push_back({.name = expenses.TextMatrix(row, "ITEM"),
                    .when = FormatDate(*date, kDay),
                    .amount = CurrencyOf(expenses.TextMatrix(row, "AMOUNT"))});
  }
  return rows;
}

Rows SessionExpenses(const TodayRecords& records) {
  return SessionAmounts(records, records.Sessions().withExpenses, "EXPENSES");
}

void AddContributions(const TodayRecords& records, const Grid& forms, std::string_view form,
                      std::span<const std::string_view> sums, Rows& rows) {
  const bool byPractice = forms.FindCol("PRACTICE") >= 0;
  for (const int row : Records(forms)) {
    if (!records.recent.Has(CellDate(forms.TextMatrix(row, "SENTTOHA")))) continue;
    const Month month = Month::OfCell(forms.TextMatrix(row, "MONTH"));
    TodayRow& added = rows.emplace_back(
        TodayRow{.name = std::string(form), .when = month ? month.Text("Mmm yyyy") : "-"});
    if (byPractice) added.name += " - " + records.PracticeName(forms, row);
    for (const std::string_view key : sums) added.amount += CurrencyOf(forms.TextMatrix(row, key));
  }
}

Rows PensionContributions(const TodayRecords& records) {
  constexpr std::string_view kTotal[] = {"TOTAL_CONTRIB"};
  constexpr std::string_view kOwnOfSolo[] = {"MY_CONTRIB", "AVC", "EXTRAYEARS", "ADDITIONAL",
                                             "ERRBO"};
  Rows rows;
  AddContributions(records, records.ledger.fgPensionB, "Form B", kTotal, rows);
  AddContributions(records, records.ledger.fgPensionD, "Form D", kTotal, rows);
  AddContributions(records, records.ledger.fgPensionSolo, "Form SOLO", kOwnOfSolo, rows);
  return rows;
}

constexpr int kComesIn = +1, kGoesOut = -1;

constexpr TodaySection kFinanceSections[] = {
    {"RECENTLY PAID INVOICES", "Income Received",
     "Does not include employer pension contributions.", optTodayRecentlyPaid, TodayTotal::OfRows,
     PaidInvoices, kComesIn},
    {"EXPENSES", "Expenses", "", optTodayRecentExpenses, TodayTotal::OfRows, Expenses, kGoesOut},
    {"SESSION EXPENSES", "Session Expenses", "", optTodaySessionExpenses, TodayTotal::OfRows,
     SessionExpenses, kGoesOut},
    {"RECENT PENSION CONTRIBUTIONS", "Pension Contributions",
     "Personal contributions only. Does not include employer contributions.",
     optTodayPensionContribs, TodayTotal::OfRows, PensionContributions, kGoesOut},
    {kBalanceKey, "Balance", "", optTodayBalance, TodayTotal::Balance, nullptr},
};

// ---- The lists

constexpr TodayColumn kScheduleColumns[] = {{"DAY", 180}, {"NAME", 1590}, {"TIME", -1}};
constexpr TodayColumn kAmountColumns[] = {
    {"NAME", 1800}, {"DATE", 1200}, {"", 1400}, {"AMOUNT", -1, Alignment::Right}};

}  // namespace

const TodayList kTodaySchedule{"Schedule",
                               "Error while processing LedgerMinder Today sheet (schedule)",
                               kScheduleColumns, 1, kScheduleSections};
const TodayList kTodayStatus{"Status", "Error while processing LedgerMinder Today sheet (status)",
                             kAmountColumns, 0, kStatusSections};
const TodayList kTodayFinance{"Finance",
                              "Error while processing LedgerMinder Today sheet (finance)",
                              kAmountColumns, 0, kFinanceSections};

// ---- The records

TodayRecords::TodayRecords(const Ledger& theLedger)
    : ledger(theLedger),
      today(std::floor(theLedger.platform.clock.Now())),
      upcoming{today, today + ValInt(GetOption(theLedger, optUpcomingDays))},
      recent{today - ValInt(GetOption(theLedger, optFinancePeriod)), today},
      practices_(theLedger.fgPractices.RowsBy("ID")) {}

std::string TodayRecords::PracticeName(const Grid& table, int row) const {
  const auto practice = practices_.find(table.TextMatrix(row, "PRACTICE"));
  return practice == practices_.end() ? ""
                                      : ledger.fgPractices.TextMatrix(practice->second, "NAME");
}

const TodayRecords::SessionRows& TodayRecords::Sessions() const {
  if (sessions_) return *sessions_;
  const Grid& sessions = ledger.fgSessions;
  const int dateCol = sessions.ColIndex("SDATE"), practiceCol = sessions.ColIndex("PRACTICE"),
            invoiceCol = sessions.ColIndex("INVOICE"), formsCol = sessions.ColIndex("FORMS"),
            typeCol = sessions.ColIndex("SESS_TYPE"), expensesCol = sessions.ColIndex("EXPENSES");
  const Date thisMonth = FirstOfMonth(today);
  const auto hasPractice = [&](int row) {
    const std::string practice = sessions.TextMatrix(row, practiceCol);
    return !practice.empty() && practice != kNoPractice;
  };
  const auto goesOnForms = [&](int row) {
    const int type = ValInt(sessions.TextMatrix(row, typeCol));
    return type != kTypePrivate && type != kTypeUnpensioned;
  };
  SessionRows rows;
  for (const int row : Records(sessions)) {
    const auto day = CellDate(sessions.TextMatrix(row, dateCol));
    if (!day) continue;
    if (upcoming.Has(day)) rows.upcoming.push_back(row);
    if (*day <= today && sessions.TextMatrix(row, invoiceCol).empty() && hasPractice(row))
      rows.uninvoiced.push_back(row);
    if (*day < thisMonth && sessions.TextMatrix(row, formsCol).empty() && goesOnForms(row) &&
        hasPractice(row))
      rows.unpensioned.push_back(row);
    if (recent.Has(day) && CurrencyOf(sessions.TextMatrix(row, expensesCol)) != Currency())
      rows.withExpenses.push_back(row);
  }
  return sessions_.emplace(std::move(rows));
}

}  // namespace lm
