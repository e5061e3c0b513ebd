// The Expenses page, whose records have no IDs.
#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/expensespage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct ExpensesDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& expenses = ledger.fgExpenses;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  ExpensesDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    ledger.starting = false;
    const struct {
      const char *day, *item, *amount, *category;
    } kExpenses[] = {{"03/02/2026", "new", "1,000.50", "1"}, {"04/01/2026", "edge", "10", "2"},
                     {"03/01/2026", "old", "20", "1"},       {"03/01/2026", "old", "20", "1"},
                     {"05/04/2025", "last year", "5", "2"},  {"banana", "damaged", "", ""}};
    for (const auto& each : kExpenses)
      test.AddRow(expenses,
                  {std::string("DATE=") + each.day, std::string("ITEM=") + each.item,
                   std::string("AMOUNT=") + each.amount, std::string("CATEGORY=") + each.category});
    FormatTables(ledger);
    window->DataLoaded();
    window->ShowPage(Page::Expenses);
  }
  ExpensesPage& Shown() { return window->PageOf<ExpensesPage>(); }
  std::string InSight(std::string_view key = "ITEM") const {
    std::string titles;
    for (int row = expenses.FixedRows(); row < expenses.Rows(); ++row)
      if (expenses.RowVisible(row)) titles += expenses.DisplayText(row, key) + "|";
    return titles;
  }
};

TEST_F(ExpensesDesk, TabsGoByTheDate) {
  EXPECT_EQ(InSight(), "new|edge|damaged|") << "thirty days";
  window->Enter(Shown().tabExpenses, "This Tax Year");
  EXPECT_EQ(InSight(), "new|edge|old|old|damaged|");
  window->Enter(Shown().tabExpenses, "All");
  EXPECT_EQ(InSight(), "new|edge|old|old|last year|damaged|");
}

TEST_F(ExpensesDesk, GroupsByCategoryWithSums) {
  window->Enter(Shown().tabExpenses, "This Tax Year");
  window->Enter(Shown().cboGroupExpenses, "Category");
  window->Press(Shown().lblCollapseExpenses);
  EXPECT_EQ(InSight("AMOUNT"), "0.00|1,040.50|10.00|");
  ASSERT_TRUE(window->SaveAll());
  window->Enter(Shown().cboGroupExpenses, "No Grouping");
  EXPECT_EQ(expenses.Rows(), expenses.FixedRows() + 6);
}

TEST_F(ExpensesDesk, OneOfTwoAlikeIsDeletedAndWhatIsAddedStaysInSight) {
  window->Enter(Shown().tabExpenses, "All");
  expenses.Select(expenses.FixedRows() + 3, 1);
  test.shown.answers = {Answer::Yes};
  window->Press(Shown().cmdDeleteExpense);
  EXPECT_EQ(InSight(), "new|edge|old|last year|damaged|");
  window->Press(*window->FindField("mnuUndo"));
  EXPECT_EQ(InSight(), "new|edge|old|old|last year|damaged|");
  window->Enter(Shown().tabExpenses, "Recent");
  test.shown.modal.push_back([](Screen& screen) {
    screen.Enter(*screen.FindField("txtItem"), "Insurance");
    screen.Enter(*screen.FindField("txtExpenseDate"), "1/6/2025");
    screen.Press(*screen.FindField("cmdOK"));
  });
  window->Press(*window->FindField("mnuNewExpense"));
  EXPECT_EQ(InSight(), "new|edge|damaged|Insurance|");
}

}  // namespace
}  // namespace lm
