// Columns that the user hides and shows, and the way back.
#include "shell/columnchoice.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/datafile.h"
#include "core/formatting.h"
#include "core/options.h"
#include "core/tables.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct Columns : testing::Test {
  test::TestLedger test;
  Grid& sessions = test.ledger.fgSessions;

  Columns() { SetOption(test.ledger, optPensionCountry, "England"); }
  void SetUp() override { FormatTables(test.ledger); }
  std::string Offered(const Grid& table) {
    std::string keys;
    for (const ColumnChoice& each : ColumnChoices(table)) keys += each.key + " ";
    return keys;
  }
  std::string Order() {
    std::string keys;
    for (int col = 1; col < sessions.Cols(); ++col)
      keys += sessions.ColKey(col) + "=" + std::to_string(sessions.ColWidth(col)) + " ";
    return keys;
  }
};

TEST_F(Columns, IdsAndWhatIsOnlyWorkedWithAreNotOffered) {
  EXPECT_EQ(Offered(sessions),
            "PRACTICE INVOICE SDATE EDATE STIME ETIME SESS_TYPE RATE EXTRAS EMPLOYERCONTRIB "
            "EXPENSES TOTAL NOTES PUBLICNOTE FORMS ");
  EXPECT_EQ(Offered(test.ledger.fgExpenses), "DATE ITEM AMOUNT CATEGORY Notes ");
  SetOption(test.ledger, optPensionCountry, "Scotland");
  FormatTables(test.ledger);
  EXPECT_EQ(Offered(sessions).find("EMPLOYERCONTRIB"), std::string::npos);
  EXPECT_EQ(Offered(Grid("fgReports")), "");
}

TEST_F(Columns, AHiddenOneIsHiddenUntilItIsShownAgain) {
  ShowColumn(sessions, "RATE", false);
  ShowColumn(sessions, "ID", true);
  EXPECT_FALSE(sessions.ColVisible(sessions.ColIndex("RATE")));
  EXPECT_FALSE(sessions.ColVisible(sessions.ColIndex("ID")));
  FormatTables(test.ledger);  // as after loading and after the options
  EXPECT_FALSE(sessions.ColVisible(sessions.ColIndex("RATE")));
  ShowColumn(sessions, "RATE", true);
  EXPECT_TRUE(sessions.ColVisible(sessions.ColIndex("RATE")));
}

TEST_F(Columns, TheLastOneStays) {
  Grid& expenses = test.ledger.fgExpenses;
  for (const char* key : {"DATE", "ITEM", "AMOUNT", "CATEGORY", "Notes"})
    ShowColumn(expenses, key, false);
  EXPECT_TRUE(expenses.ColVisible(expenses.ColIndex("Notes")));
  const auto choices = ColumnChoices(expenses);
  const auto fixed = std::ranges::find(choices, false, &ColumnChoice::mayChange);
  ASSERT_NE(fixed, choices.end());
  EXPECT_EQ(fixed->key, "Notes");
}

TEST_F(Columns, ResetGivesTheShippedOrderAndWidths) {
  const std::string shipped = Order();
  ShowColumn(sessions, "SDATE", false);
  sessions.SetColWidth(sessions.ColIndex("RATE"), 4000);
  sessions.SetColPosition(sessions.ColIndex("TOTAL"), 2);
  sessions.SetColPosition(sessions.ColIndex("NOTES"), 1);
  ASSERT_NE(Order(), shipped);
  ResetColumns(sessions);
  EXPECT_EQ(Order(), shipped);
}

}  // namespace
}  // namespace lm
