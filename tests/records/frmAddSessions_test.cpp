// Several sessions in one step.
#include "records/frmAddSessions.h"

#include <gtest/gtest.h>

#include "records/windows.h"
#include "tests/records/surgery.h"

namespace lm::test {
namespace {

struct RunDesk : Surgery {
  // A run at Riverside on Mondays and Thursdays of February 2026: 02, 05, 09, 12, 16, 19, 23, 26.
  void Fill(frmAddSessions& window) {
    window.Enter(window.cboPractice, "Riverside");
    window.Enter(window.txtSDate, "01/02/2026");
    window.Enter(window.txtEDate, "28/02/2026");
    for (const std::size_t day : {0U, 3U}) window.Tick(*window.chkDay[day], true);
    window.Enter(window.txtSTime, "08:30");
    window.Enter(window.txtETime, "12:00");
  }
  int Count() const { return ledger.fgSessions.Rows() - ledger.fgSessions.FixedRows(); }
  std::string Row(int index, const std::vector<std::string>& keys) const {
    return Cells(ledger.fgSessions, ledger.fgSessions.FixedRows() + index, keys);
  }
};

TEST(AddSessions, NothingWithoutAPractice) {
  TestLedger test;
  EXPECT_FALSE(AddSessions(test));
  EXPECT_EQ(test.shown.TakeMessage(), "Unable to create new sessions");
}

TEST(AddSessions, MakesTheRunOnceAndInOneStep) {
  RunDesk run;
  frmAddSessions window(run);
  run.Fill(window);
  EXPECT_EQ(window.txtRate.Text(), "350.00");
  EXPECT_EQ(window.lblCount.Text(), "8 sessions will be created.");
  window.Press(window.cmdOk);
  EXPECT_EQ(run.OneMessage(), (Prompts{"Create Sessions", "8 sessions created."}));
  ASSERT_EQ(run.Count(), 8);
  EXPECT_EQ(run.Row(7, {"ID", "SDATE", "STIME", "ETIME", "EDATE", "RATE", "PRACTICE", "SESS_TYPE"}),
            "8 26/02/2026 08:30 12:00  350.00 1 1");
  EXPECT_EQ(run.Row(0, {"EXTRAS", "EXPENSES", "EMPLOYERCONTRIBRATE", "EMPLOYERCONTRIB",
                        "INCLUDEEMPLOYERCONTRIB", "TOTAL"}),
            "0 0 14.38 45.30 1 395.30");
  EXPECT_EQ(StateOfRow(run, run.ledger.fgSessions, 2), RowState::New);

  frmAddSessions again(run);
  run.Fill(again);
  EXPECT_EQ(again.lblCount.Text(), "0 sessions will be created. 8 exist already (grey).");
  again.Press(again.cmdOk);
  EXPECT_EQ(run.OneMessage(),
            (Prompts{"Create Sessions",
                     "0 sessions created.\r\n8 sessions already existed for the specified date and "
                     "start time so were not created."}));
  EXPECT_EQ(run.ledger.history.UndoCaption(), "Add Sessions");
  EXPECT_TRUE(run.ledger.history.Undo());
  EXPECT_EQ(run.Count(), 0);
  EXPECT_TRUE(run.ledger.history.Redo());
  EXPECT_EQ(run.Count(), 8);
}

// The contribution is a sum of doubles here: 73.33 an hour from 09:00 to 09:30 is 36.665 pounds as
// a Single, which prints 36.67.
TEST(AddSessions, MoneyOfEachType) {
  const struct {
    const char *type, *start, *end, *fee, *sums;
  } kCases[] = {{"NHS Normal", "09:00", "12:15", "325.00", "42.06 1 367.06 "},
                {"NHS OOH", "09:00", "09:30", "36.67", "5.27 1 41.94 "},
                {"Private", "09:00", "12:00", "", "0 0 0.00 "},
                {"NHS Normal", "20:00", "08:00", "-1200.00", "-155.30 1 -1355.30 03/02/2026"}};
  for (const auto& each : kCases) {
    RunDesk run;
    frmAddSessions window(run);
    run.Fill(window);
    window.Enter(window.txtRate, "");
    window.Enter(window.cboSessType, each.type);
    window.Enter(window.txtEDate, "02/02/2026");
    window.Enter(window.txtSTime, each.start);
    window.Enter(window.txtETime, each.end);
    if (*each.fee == 0) window.Enter(window.txtRate, "");
    EXPECT_EQ(window.txtRate.Text(), each.fee) << each.type;
    window.Press(window.cmdOk);
    ASSERT_EQ(run.Count(), 1);
    EXPECT_EQ(run.Row(0, {"EMPLOYERCONTRIB", "INCLUDEEMPLOYERCONTRIB", "TOTAL", "EDATE"}),
              each.sums)
        << each.type;
  }
}

TEST(AddSessions, MileageIsAnExpenseOfEachSession) {
  RunDesk run;
  SetOption(run, optNewRowPosition, "TOP");
  frmAddSessions window(run);
  run.Fill(window);
  window.Tick(window.chkMileageCharge, true);
  window.Press(window.cmdOk);
  const Grid& expenses = run.ledger.fgSessionExpenses;
  ASSERT_EQ(expenses.Rows(), expenses.FixedRows() + 8);
  EXPECT_EQ(Cells(expenses, expenses.FixedRows(), {"ID", "SESSID", "CATEGORY", "RATE"}),
            "8 8 0 4.80");
  EXPECT_EQ(expenses.TextMatrix(expenses.FixedRows(), "ITEM"),
            "Mileage charge to and from Practice (12 * \xA3"
            "0.40)");
  EXPECT_EQ(run.Row(0, {"ID", "SDATE", "EXPENSES", "TOTAL"}), "8 26/02/2026 4.80 400.10");
  EXPECT_TRUE(run.ledger.history.Undo());
  EXPECT_FALSE(expenses.HasData());
}

TEST(AddSessions, TellsAllThatIsMissingAtOnce) {
  RunDesk run;
  {
    frmAddSessions window(run);
    window.Press(window.cmdOk);
    EXPECT_EQ(run.OneMessage(),
              (Prompts{"Incomplete Data",
                       "No practice selected.\r\nNo start date entered.\r\nNo end date entered.\r\n"
                       "No start time entered.\r\nNo end time entered.\r\nNo days have been "
                       "selected. Use the checkboxes to select which days you want the sessions "
                       "created on."}));
    EXPECT_FALSE(window.Closed());
  }
  const struct {
    const char *first, *last, *practice, *told;
  } kCases[] = {
      {"02/02/2026", "01/02/2026", "Riverside", "Start date must be before the end date."},
      {"01/01/2026", "03/01/2027", "Riverside",
       "The difference between the start date and the end date cannot be more than 1 year."},
      {"01/01/2026", "02/01/2027", "Riverside", ""},
      {"05/02/2026", "05/02/2026", "Riverside", ""},
      {"01/02/2026", "28/02/2026", "Abbey",
       "No mileage to the Practice has been entered for this practice. This figure is required "
       "before a mileage charge can be included.\r\n\r\nTo add a mileage to the Practice, edit the "
       "Practice details on the Practice grid."}};
  for (const auto& each : kCases) {
    frmAddSessions window(run);
    run.Fill(window);
    window.Tick(window.chkMileageCharge, true);
    window.Enter(window.cboPractice, each.practice);
    window.Enter(window.txtSDate, each.first);
    window.Enter(window.txtEDate, each.last);
    window.Press(window.cmdOk);
    EXPECT_EQ(run.OneMessage().second == each.told, *each.told != 0) << each.first;
    EXPECT_EQ(window.Closed(), *each.told == 0) << each.first;
  }
}

TEST(AddSessions, ShowsTheDaysOfTheSpan) {
  RunDesk run;
  run.AddSession({"SDATE=05/02/2026", "STIME=08:30", "PRACTICE=2"});
  frmAddSessions window(run);
  run.Fill(window);
  const Grid& span = window.fgSpan;
  ASSERT_EQ(span.Rows(), 6);  // the Sunday 1st has a row of its own
  EXPECT_EQ(span.TextMatrix(1, 0), "Feb 2026");
  EXPECT_EQ(span.TextMatrix(1, 7), "1");
  EXPECT_EQ(span.TextMatrix(2, 1), "2");
  EXPECT_EQ(span.CellColour(CellSetting::flexcpBackColor, 2, 1), 34304);
  EXPECT_EQ(span.CellColour(CellSetting::flexcpBackColor, 2, 2), kNoColour);
  EXPECT_NE(span.CellColour(CellSetting::flexcpBackColor, 2, 4), 34304);
  EXPECT_EQ(window.lblCount.Text(), "7 sessions will be created. 1 exists already (grey).");
  window.Enter(window.txtEDate, "28/02/2028");
  EXPECT_EQ(span.Rows(), 1);
}

}  // namespace
}  // namespace lm::test
