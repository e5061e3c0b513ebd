#include "shell/pages/expensespage.h"

#include <cmath>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Expenses, "Expenses", "expenses", "mnuViewExpenses"};

constexpr RecordList::Texts kTexts{
    "Expenses",
    "No expenses here. Choose another period above, or add an expense with the green plus."};

enum ExpenseTab { kRecent, kTaxYear, kAll };

}  // namespace

ExpensesPage::ExpensesPage(frmMain& theWindow)
    : MainPage(theWindow, kSpec), list_(AddList(ledger.fgExpenses, kTexts, &rules_)) {
  list_.FilterBy(tabExpenses, [this](int tab) { return ShownOn(tab); });
  SetTabs(tabExpenses);
  SetFilter(txtFilterExpenses);
  SetGrouping({&cboGroupExpenses, &lblGrpByExpense, &lblCollapseExpenses});
  list_.GroupBy(kGroupedExpenses, Grouping());
  AddButton({&cmdAddExpense, "plus", "frmAddExpenses"}, "Add Expense",
            [this] { rules_.AddPressed(); });
  AddButton({&cmdEditExpense, "edit"}, "Edit Expense", [this] { EditSelected(); });
  AddButton({&cmdDeleteExpense, "delete"}, "Delete Expense", [this] { DeleteSelected(list_); });
  SetItemButtons(cmdAddExpense, cmdEditExpense, cmdDeleteExpense);
  FromEverywhere("mnuNewExpense", Pressing(cmdAddExpense));
  AddTip({"General Expenses",
          "General expenses are costs of your work that belong to no single session, such as "
          "subscriptions. Costs of one session are entered on the session itself."});
  AddListTips([this] { return ledger.fgExpenses.HasData(); });
}

// An expense has no window: its cells are typed into where they stand.
void ExpensesPage::EditSelected() {
  const int row = list_.SelectedRecord("Edit Expense", "There is no expense selected to edit.");
  if (row < 0) return;
  const Grid& expenses = ledger.fgExpenses;
  window.RequestCellEdit(ledger.fgExpenses, row,
                         expenses.Col() > 0 ? expenses.Col() : expenses.ColIndex("ITEM"));
}

// An expense whose date is damaged is on every tab, so that it can be found and mended.
RowTest ExpensesPage::ShownOn(int tab) const {
  if (tab == kAll) return [](int) { return true; };
  const Grid& expenses = ledger.fgExpenses;
  const Date today = std::floor(ledger.platform.clock.Now());
  const Date year = TaxYearStart(today);
  const Date first =
      tab == kTaxYear ? year : today - Val(GetOption(ledger, optRecentExpensePeriod));
  const Date behind = tab == kTaxYear ? AddMonths(year, 12) : today + 1;
  return [&expenses, col = expenses.ColIndex("DATE"), first, behind](int row) {
    const auto day = CellDate(expenses.TextMatrix(row, col));
    return !day || (*day >= first && *day < behind);
  };
}

}  // namespace lm
