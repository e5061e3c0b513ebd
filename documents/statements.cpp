#include "documents/statements.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "core/dates.h"
#include "core/format.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/moneyowed.h"
#include "records/practices.h"

namespace lm {
namespace {

struct OwedInvoice {
  int row;
  Date due;
};

// Sent and not paid; without a day of payment an invoice stands behind the others.
std::map<std::string, std::vector<OwedInvoice>> OwedByPractice(const Ledger& ledger) {
  constexpr Date kNever = 1e9;
  const Grid& invoices = ledger.fgInvoices;
  const int practice = invoices.ColIndex("PRACTICE");
  std::map<std::string, std::vector<OwedInvoice>> owed;
  for (const int row : Records(invoices)) {
    const PaymentState state = PaymentStateOf(invoices, row);
    if (!state.sent.empty() && state.paid.empty())
      owed[invoices.TextMatrix(row, practice)].push_back(
          {row, CellDate(state.due).value_or(kNever)});
  }
  return owed;
}

Statement StatementOf(const Ledger& ledger, const std::string& practice,
                      std::vector<OwedInvoice> owed) {
  const Grid& invoices = ledger.fgInvoices;
  std::ranges::stable_sort(owed, {}, &OwedInvoice::due);
  Statement statement;
  statement.practice = practice;
  std::optional<Date> last;
  for (const OwedInvoice& invoice : owed) {
    const std::string id = invoices.TextMatrix(invoice.row, "ID");
    const Currency amount = CurrencyOf(invoices.TextMatrix(invoice.row, "AMOUNT"));
    statement.invoices.push_back(id);
    statement.total += amount;
    const int days =
        DaysOverdue(PaymentStateOf(invoices, invoice.row), ledger.platform.clock.Now());
    if (days == 0) continue;
    statement.overdueInvoices.push_back(id);
    statement.overdue += amount;
    statement.oldestDays = std::max(statement.oldestDays, days);
    last = std::max(last, CellDate(invoices.TextMatrix(invoice.row, "REMINDDATE")));
  }
  if (last) statement.lastReminder = CellText(*last);
  return statement;
}

}  // namespace

std::vector<Statement> OverdueStatements(const Ledger& ledger) {
  std::vector<Statement> statements;
  for (auto& [practice, owed] : OwedByPractice(ledger)) {
    Statement statement = StatementOf(ledger, practice, std::move(owed));
    if (!statement.overdueInvoices.empty()) statements.push_back(std::move(statement));
  }
  std::unordered_map<std::string, std::string> names;
  for (const Statement& each : statements)
    names[each.practice] = PracticeName(ledger, each.practice);
  std::ranges::stable_sort(statements, [&](const Statement& a, const Statement& b) {
    return CompareIgnoreCase(names[a.practice], names[b.practice]) < 0;
  });
  return statements;
}

std::string StatementRequest(const Ledger& ledger, const Statement& statement) {
  return "Please pay " + Format(statement.overdue, "£#,##0.00"_w) + ", which is overdue," +
         PayeeWords(ledger) + ", quoting the numbers of the invoices.";
}

std::string StatementLines(const Ledger& ledger, const Statement& statement) {
  const Grid& invoices = ledger.fgInvoices;
  const auto rows = invoices.RowsBy("ID");
  std::vector<std::string> lines;
  for (const std::string& id : statement.overdueInvoices)
    if (const auto row = rows.find(id); row != rows.end())
      lines.push_back(InvoiceDue(invoices, row->second, ", due on "));
  return Join(lines, "\r\n");
}

}  // namespace lm
