#include "documents/moneyowed.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kMostFigures = 3;  // of the days to pay

bool AreFigures(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string Payee(const Ledger& ledger) {
  const std::string account = MyDetail(ledger, kAccountNameField);
  if (!account.empty()) return account;
  return std::string(Trim(MyDetail(ledger, kMyTitleField) + " " + MyName(ledger)));
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

std::string PaymentRequest(const Ledger& ledger, int row) {
  if (row < 0) return "";
  const Grid& invoices = ledger.fgInvoices;
  const auto due = CellDate(invoices.TextMatrix(row, "DUEDATE"));
  const std::pair<std::string_view, std::string> parts[] = {
      {"Please pay ", Format(CurrencyOf(invoices.TextMatrix(row, "AMOUNT")), "£#,##0.00"_w)},
      {" by ", due ? FormatDate(*due, "d mmmm yyyy") : ""},
      {" to ", Payee(ledger)},
      {", sort code ", SortCode(ledger)},
      {", account number ", MyDetail(ledger, kAccountNumberField)},
      {", quoting ", invoices.TextMatrix(row, "NUMBER")}};
  std::string request;
  for (const auto& [words, text] : parts)
    if (!text.empty()) request.append(words).append(text);
  return request + ".";
}

}  // namespace lm
