#include "records/expenselist.h"

#include "core/rows.h"
#include "entry/checks.h"
#include "records/expenses.h"
#include "records/windows.h"

namespace lm {

bool ExpenseListRules::MayEdit(int row, int col) {
  const std::string& key = ledger_.fgExpenses.ColKey(col);
  return IsRecord(ledger_.fgExpenses, row) && !key.empty() && key != "EXPENSEREPETITIONID";
}

Picker ExpenseListRules::PickerOf(int /*row*/, int col) {
  const std::string& key = ledger_.fgExpenses.ColKey(col);
  if (key == "DATE") return Picker::Calendar;
  return key == "AMOUNT" ? Picker::Numbers : Picker::None;
}

std::optional<std::string> ExpenseListRules::Accept(int /*row*/, int col, std::string_view text) {
  const std::string& key = ledger_.fgExpenses.ColKey(col);
  if (key == "DATE") return EnterDate(ledger_, text);
  if (key == "AMOUNT") return EnterAmount(ledger_, text);
  return std::string(text);
}

void ExpenseListRules::Edited(int row, int /*col*/) {
  MarkEdited(ledger_, ledger_.fgExpenses, row);
}

void ExpenseListRules::AddPressed() { NewExpense(ledger_); }

void ExpenseListRules::DeletePressed(int row) { DeleteExpenseOfRow(ledger_, row); }

}  // namespace lm
