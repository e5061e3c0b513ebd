#include "documents/moneyowed.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <utility>

#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kMostFigures = 3;  // of the days to pay
constexpr std::string_view kDayFormat = "d mmmm yyyy";

bool AreFigures(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string Payee(const Ledger& ledger) {
  const std::string account = MyDetail(ledger, kAccountNameField);
  if (!account.empty()) return account;
  return std::string(Trim(MyDetail(ledger, kMyTitleField) + " " + MyName(ledger)));
}

std::string DayWords(std::string_view cell) {
  const auto day = CellDate(cell);
  return day ? FormatDate(*day, kDayFormat) : "";
}

std::string AmountWords(const Grid& invoices, int row) {
  return Format(CurrencyOf(invoices.TextMatrix(row, "AMOUNT")), "£#,##0.00"_w);
}

using Part = std::pair<std::string_view, std::string>;  // words, and what is not known if ""

std::string JoinKnown(std::span<const Part> parts) {
  std::string text;
  for (const auto& [words, known] : parts)
    if (!known.empty()) text.append(words).append(known);
  return text;
}

int RemindersOf(const Grid& invoices, int row) {
  return std::max(0, ValInt(invoices.TextMatrix(row, "REMINDERS")));
}

// Six figures as banks write them; another text as it is.
std::string SortCode(const Ledger& ledger) {
  const std::string typed = MyDetail(ledger, kSortCodeField);
  const std::string code = RemoveAny(typed, " -");
  if (code.size() != 6 || !AreFigures(code)) return typed;
  return code.substr(0, 2) + "-" + code.substr(2, 2) + "-" + code.substr(4);
}

}  // namespace

std::optional<int> DaysToPay(const Ledger& ledger) {
  const std::string days(Trim(MyDetail(ledger, kDaysToPayField)));
  if (days.empty() || days.size() > kMostFigures || !AreFigures(days)) return std::nullopt;
  return ValInt(days);
}

std::string DueCell(const Ledger& ledger, std::string_view invoiceDate) {
  const auto date = CellDate(invoiceDate);
  const auto days = DaysToPay(ledger);
  return date && days ? CellText(*date + *days) : "";
}

void MoveDueDate(Ledger& ledger, int row) {
  Grid& invoices = ledger.fgInvoices;
  const std::string due = DueCell(ledger, invoices.TextMatrix(row, "IDATE"));
  if (!due.empty() && !invoices.TextMatrix(row, "DUEDATE").empty())
    invoices.SetTextMatrix(row, "DUEDATE", due);
}

void FillDueDates(Ledger& ledger) {
  Grid& invoices = ledger.fgInvoices;
  const Change change(ledger, "Days to Pay");
  const RedrawOff redrawOff(invoices);
  for (const int row : Records(invoices)) {
    if (!invoices.TextMatrix(row, "PAYDATE").empty()) continue;
    if (!invoices.TextMatrix(row, "DUEDATE").empty()) continue;
    const std::string due = DueCell(ledger, invoices.TextMatrix(row, "IDATE"));
    if (due.empty()) continue;
    invoices.SetTextMatrix(row, "DUEDATE", due);
    MarkEdited(ledger, invoices, row);
  }
}

PaymentState PaymentStateOf(const Grid& invoices, int row) {
  return {.sent = invoices.TextMatrix(row, "SDATE"),
          .paid = invoices.TextMatrix(row, "PAYDATE"),
          .due = invoices.TextMatrix(row, "DUEDATE")};
}

int DaysOverdue(const PaymentState& state, Date today) {
  const auto due = state.sent.empty() || !state.paid.empty() ? std::nullopt : CellDate(state.due);
  return due ? std::max(0, static_cast<int>(std::floor(today) - std::floor(*due))) : 0;
}

std::string OverdueText(const PaymentState& state, Date today) {
  const int days = DaysOverdue(state, today);
  return days == 0 ? "" : "Overdue by " + Counted(days, "day", "days") + ".";
}

std::string PayeeWords(const Ledger& ledger) {
  const Part parts[] = {{" to ", Payee(ledger)},
                        {", sort code ", SortCode(ledger)},
                        {", account number ", MyDetail(ledger, kAccountNumberField)}};
  return JoinKnown(parts);
}

std::string PaymentRequest(const Ledger& ledger, int row) {
  if (row < 0) return "";
  const Grid& invoices = ledger.fgInvoices;
  const Part parts[] = {{"Please pay ", AmountWords(invoices, row)},
                        {" by ", DayWords(invoices.TextMatrix(row, "DUEDATE"))},
                        {"", PayeeWords(ledger)},
                        {", quoting ", invoices.TextMatrix(row, "NUMBER")}};
  return JoinKnown(parts) + ".";
}

void RecordReminder(Ledger& ledger, int row) {
  Grid& invoices = ledger.fgInvoices;
  invoices.SetTextMatrix(row, "REMINDERS", PlainText(RemindersOf(invoices, row) + 1));
  invoices.SetTextMatrix(row, "REMINDDATE", CellText(ledger.platform.clock.Now()));
  MarkEdited(ledger, invoices, row);
}

std::string RemindersText(const Grid& invoices, int row) {
  const int count = RemindersOf(invoices, row);
  const std::string day = DayWords(invoices.TextMatrix(row, "REMINDDATE"));
  if (count == 0) return "";
  if (count == 1) return day.empty() ? "Reminded once." : "Reminded on " + day + ".";
  const std::string often = count == 2 ? "twice" : PlainText(count) + " times";
  return "Reminded " + often + (day.empty() ? "" : ", last on " + day) + ".";
}

std::string InvoiceDue(const Grid& invoices, int row, std::string_view wordsBeforeDay) {
  const Part parts[] = {{"", invoices.TextMatrix(row, "NUMBER")},
                        {" of ", DayWords(invoices.TextMatrix(row, "IDATE"))},
                        {", ", AmountWords(invoices, row)},
                        {wordsBeforeDay, DayWords(invoices.TextMatrix(row, "DUEDATE"))}};
  return JoinKnown(parts);
}

std::string PaymentReminder(const Ledger& ledger, int row) {
  if (row < 0) return "";
  return "I have not yet received payment of invoice " +
         InvoiceDue(ledger.fgInvoices, row, ", which was due on ") + ".";
}

std::string ReminderRequest(const Ledger& ledger, int row) {
  if (row < 0) return "";
  const Part parts[] = {{"Please pay it", PayeeWords(ledger)},
                        {", quoting ", ledger.fgInvoices.TextMatrix(row, "NUMBER")}};
  return JoinKnown(parts) + ".";
}

std::string ReminderHeading(const Ledger& ledger, int row) {
  if (row < 0) return "";
  constexpr std::string_view kHeadings[] = {"Reminder", "Second reminder", "Third reminder"};
  const auto before = static_cast<std::size_t>(RemindersOf(ledger.fgInvoices, row));
  if (before < std::size(kHeadings)) return std::string(kHeadings[before]);
  return "Reminder " + PlainText(RemindersOf(ledger.fgInvoices, row) + 1);
}

}  // namespace lm
