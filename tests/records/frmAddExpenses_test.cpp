// General expenses and their repeats.
#include "records/frmAddExpenses.h"

#include <gtest/gtest.h>

#include "records/expenselist.h"
#include "records/expenses.h"
#include "tests/records/surgery.h"

namespace lm::test {
namespace {

struct Expenses : testing::Test {
  TestLedger test;
  Grid& expenses = test.ledger.fgExpenses;

  std::string Days() const {
    std::string days;
    for (int row = expenses.FixedRows(); row < expenses.Rows(); ++row)
      days += expenses.TextMatrix(row, "DATE").substr(0, 5) + " ";
    return days;
  }
  void TickDay(frmAddExpenses& window, int day) {
    window.Click(window.fgRecurOnDays, (day - 1) / 7, (day - 1) % 7);
  }
};

TEST_F(Expenses, OneAloneHasNoNumber) {
  frmAddExpenses window(test);
  EXPECT_EQ(window.txtItem.Text(), "[New Expense]");
  EXPECT_EQ(window.txtExpenseDate.Text(), "03/02/2026");
  EXPECT_FALSE(window.txtStartDate.Visible());
  EXPECT_FALSE(window.Enter(window.txtAmount, "banana"));
  EXPECT_EQ(test.shown.TakeMessage(), "The 'Amount' must be a number.");
  window.Enter(window.txtAmount, "1,000");
  window.Enter(window.txtCategory, "Materials");
  window.Enter(window.txtNotes, "one\ntwo");
  window.Press(window.cmdOK);
  EXPECT_EQ(test.shown.TakeMessage(), "Expense Created");
  ASSERT_EQ(expenses.Rows(), expenses.FixedRows() + 1);
  EXPECT_EQ(Cells(expenses, expenses.FixedRows(),
                  {"DATE", "ITEM", "AMOUNT", "CATEGORY", "NOTES", "EXPENSEREPETITIONID"}),
            "03/02/2026 [New Expense] 1000.00 1 one\r\ntwo ");
  EXPECT_EQ(StateOfRow(test, expenses, expenses.FixedRows()), RowState::New);
}

// Each is a series of its own; "week:15" are Monday and Friday, "days:31" a day of the month,
// "the:Last Day" the other monthly form; then the start, and how it ends.
TEST_F(Expenses, Repeats) {
  const struct {
    const char *kind, *detail, *start, *until, *times, *days;
  } kCases[] = {
      {"week", "15", "04/02/2026", "", "3", "06/02 09/02 13/02 "},
      {"week", "1", "02/02/2026", "16/02/2026", "", "02/02 09/02 16/02 "},
      {"week", "7", "02/02/2026", "07/02/2026", "", ""},
      {"the", "Last Day", "31/01/2026", "", "3", "31/01 28/02 31/03 "},
      {"the", "First Monday", "03/02/2026", "", "2", "02/03 06/04 "},
      {"the", "Second Tuesday", "01/02/2026", "09/03/2026", "", "10/02 "},
      {"days", "31", "01/02/2026", "", "3", "31/03 31/05 31/07 "},
      {"days", "31", "01/02/2026", "28/02/2026", "", ""},
      {"days", "29", "01/02/2027", "", "2", "29/03 29/04 "},
  };
  for (const auto& each : kCases) {
    expenses.ClearData();
    frmAddExpenses window(test);
    const std::string kind = each.kind, detail = each.detail;
    window.Tick(kind == "week" ? window.optRepetition_Weekly : window.optRepetition_Monthly, true);
    if (kind == "week")
      for (const char day : detail)
        window.Tick(*window.chkDayOfWeek[static_cast<std::size_t>(day - '1')], true);
    if (kind == "days") TickDay(window, std::stoi(detail));
    if (kind == "the") {
      window.Tick(window.optMontlyRepeat_Day, true);
      window.Enter(window.cboRecurMontly, detail.substr(0, detail.find(' ')));
      window.Enter(window.cboDayOfWeek, detail.substr(detail.find(' ') + 1));
    }
    window.Enter(window.txtStartDate, each.start);
    if (*each.times != 0) window.Tick(window.optDuration_StopAfter, true);
    window.Enter(window.txtRepeatUntil, each.until);
    window.Enter(window.txtStopAfter, each.times);
    window.Press(window.cmdOK);
    EXPECT_EQ(Days(), each.days) << kind << " " << detail;
    EXPECT_TRUE(window.Closed());
  }
}

TEST_F(Expenses, ARepeatWithoutAnEndEndsByItself) {
  Repeat never{};
  never.kind = Repeat::Kind::MonthlyDays;
  never.start = DateSerial(2026, 2, 1);
  never.times = 99;
  EXPECT_TRUE(DaysOfRepeat(never).empty());
  never.days.set(31);
  const auto days = DaysOfRepeat(never);
  EXPECT_EQ(days.size(), 70u);  // seven a year, ten years
  EXPECT_EQ(CellText(days.back()), "31/01/2036");
}

TEST_F(Expenses, SeriesAreNumberedAndTakenBackWhole) {
  for (int run = 0; run < 2; ++run) {
    frmAddExpenses window(test);
    window.Tick(window.optRepetition_Weekly, true);
    window.Tick(*window.chkDayOfWeek[1], true);
    window.Tick(window.optDuration_StopAfter, true);
    window.Enter(window.txtStopAfter, "-2.7");
    EXPECT_EQ(window.txtStopAfter.Text(), "2");
    EXPECT_EQ(window.lblFirstDates.Text(), "2 expenses will be created: 03/02/2026, 10/02/2026.");
    window.Press(window.cmdOK);
    EXPECT_EQ(test.shown.messages.back().minorPrompt, "2 new expenses created.");
  }
  const int first = expenses.FixedRows();
  EXPECT_EQ(expenses.TextMatrix(first, "EXPENSEREPETITIONID"), "1");
  EXPECT_EQ(expenses.TextMatrix(first + 3, "EXPENSEREPETITIONID"), "2");
  EXPECT_TRUE(test.ledger.history.Undo());
  EXPECT_EQ(expenses.Rows(), first + 2);

  test.shown.answers = {Answer::Yes};
  EXPECT_TRUE(DeleteExpenseOfRow(test, first));
  EXPECT_TRUE(test.shown.messages.back().minorPrompt.starts_with("(This expense was created as"));
  EXPECT_EQ(expenses.TextMatrix(first, "EXPENSEREPETITIONID"), "1");
  EXPECT_FALSE(DeleteExpenseOfRow(test, -1));
  EXPECT_EQ(test.shown.TakeMessage(), "There is no expense selected to delete.");
}

TEST_F(Expenses, ChecksComeInThisOrder) {
  frmAddExpenses window(test);
  const auto told = [&] {
    window.Press(window.cmdOK);
    EXPECT_FALSE(window.Closed());
    return test.shown.TakeMessage();
  };
  window.Enter(window.txtItem, "");
  window.Enter(window.txtExpenseDate, "");
  window.Tick(window.optRepetition_Weekly, true);
  EXPECT_EQ(told(), "No expense 'Item' details have been entered.");
  window.Enter(window.txtItem, "Journal");
  EXPECT_EQ(told(), "No expense date has been entered.");
  window.Enter(window.txtExpenseDate, "3/2");
  EXPECT_EQ(told(), "No Repeat Until date has been entered.");
  window.Enter(window.txtRepeatUntil, "1/2/2026");
  EXPECT_EQ(told(), "The 'Repeat Until' date is earlier than the 'Start' date.");
  window.Tick(window.optDuration_StopAfter, true);
  EXPECT_FALSE(window.txtRepeatUntil.Enabled());
  EXPECT_EQ(told(), "Number of Occurrences has not been set");
  for (const char* wrong : {"100", "many"}) {
    EXPECT_FALSE(window.Enter(window.txtStopAfter, wrong));
    EXPECT_EQ(test.shown.TakeMessage(), "Invalid number");
  }
  window.Enter(window.txtStopAfter, "2");
  EXPECT_EQ(told(), "No days selected");
  window.Tick(window.optRepetition_Monthly, true);
  EXPECT_EQ(told(), "No days selected");
  EXPECT_FALSE(expenses.HasData());
}

TEST_F(Expenses, TheListReadsWhatIsTyped) {
  const int row = test.AddRow(expenses, {"DATE=03/02/2026", "ITEM=Journal", "AMOUNT=10.00"});
  FormatTables(test);
  ExpenseListRules rules(test);
  const struct {
    const char *key, *typed, *stored;
  } kCases[] = {{"DATE", "1/3", "01/03/2026"},    {"DATE", "banana", "01/03/2026"},
                {"AMOUNT", "1,250.5", "1250.50"}, {"AMOUNT", "much", "1250.50"},
                {"CATEGORY", "Travel", "2"},      {"ITEM", "Books", "Books"}};
  for (const auto& each : kCases) {
    EditCell(expenses, rules, row, expenses.ColIndex(each.key), each.typed);
    EXPECT_EQ(expenses.TextMatrix(row, each.key), each.stored) << each.typed;
  }
  EXPECT_FALSE(rules.MayEdit(row, expenses.ColIndex("EXPENSEREPETITIONID")));
}

}  // namespace
}  // namespace lm::test
