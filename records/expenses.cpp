#include "records/expenses.h"

#include <algorithm>

#include "core/change.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

int NextSeries(const Grid& expenses) {
  int largest = 0;
  const int col = expenses.ColIndex("EXPENSEREPETITIONID");
  for (const int row : Records(expenses))
    largest = std::max(largest, ValInt(expenses.TextMatrix(row, col)));
  return largest + 1;
}

}  // namespace

std::vector<ComboItem> ExpenseCategoryItems(const Ledger& ledger) {
  std::vector<ComboItem> items;
  const std::string option = GetOption(ledger, optExpenseCategories);
  for (const std::string_view entry : Split(option, '|')) {
    const auto parts = Split(entry, ';');
    if (parts.size() < 2 || !parts[0].starts_with('#')) continue;
    items.push_back({std::string(parts[1]), std::string(parts[0].substr(1))});
  }
  return items;
}

void AddExpenses(Ledger& ledger, const Expense& expense, const std::vector<Date>& days,
                 bool isSeries) {
  Grid& expenses = ledger.fgExpenses;
  const Change change(ledger, isSeries ? "Add Expenses" : "Add Expense");
  const RedrawOff redrawOff(expenses);
  const std::string series = isSeries ? PlainText(NextSeries(expenses)) : "";
  for (const Date day : days) {
    const int row = AddRecord(ledger, expenses);
    expenses.SetTextMatrix(row, "DATE", CellText(day));
    expenses.SetTextMatrix(row, "ITEM", expense.item);
    expenses.SetTextMatrix(row, "AMOUNT", expense.amount);
    expenses.SetTextMatrix(row, "CATEGORY", expense.category);
    expenses.SetTextMatrix(row, "NOTES", expense.notes);
    expenses.SetTextMatrix(row, "EXPENSEREPETITIONID", series);
  }
}

bool DeleteExpenseOfRow(Ledger& ledger, int row) {
  Grid& expenses = ledger.fgExpenses;
  if (row < expenses.FixedRows()) {
    ShowMessage(ledger, "There is no expense selected to delete.");
    return false;
  }
  if (!IsRecord(expenses, row)) {
    ShowMessage(ledger, "Select an ungrouped row.");
    return false;
  }
  const bool ofSeries = !expenses.TextMatrix(row, "EXPENSEREPETITIONID").empty();
  if (!Ask(ledger, "Delete the selected Expense?",
           ofSeries ? "(This expense was created as a repeating expense, but only the selected "
                      "instance will be deleted.)"
                    : "",
           "Delete Expense"))
    return false;
  const Change change(ledger, "Delete Expense");
  expenses.RemoveItem(row);
  return true;
}

}  // namespace lm
