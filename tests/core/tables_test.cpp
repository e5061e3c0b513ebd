#include "core/tables.h"

#include <gtest/gtest.h>

#include <set>

#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

std::string Keys(const Grid& grid) {
  std::string keys;
  for (int col = 1; col < grid.Cols(); ++col) keys += (col > 1 ? " " : "") + grid.ColKey(col);
  return keys;
}

TEST(Tables, NoKeyStandsTwice) {
  for (const TableSpec& table : kTables) {
    std::set<std::string> keys;
    for (const ColumnSpec& column : table.columns)
      EXPECT_TRUE(keys.insert(ToUpper(column.key)).second) << table.name << " " << column.key;
  }
}

TEST(Tables, ColumnsStandBesideTheirNeighbours) {
  const struct {
    std::string table, before, after;
  } cases[] = {
      {"fgPractices", "NAME", "BRANCHOF"},
      {"fgPractices", "PCODE", "ODS_CODE"},
      {"fgSessions", "RATE", "EXTRAS"},
      {"fgSessions", "EXTRAS", "EMPLOYERCONTRIB"},
      {"fgSessions", "EXPENSES", "TOTAL"},
      {"fgSessions", "NOTES", "PUBLICNOTE"},
      {"fgInvoices", "CDATE", "IDATE"},
      {"fgInvoices", "AMOUNT", "EMPLOYERCONTRIB"},
      {"fgPensionB", "EXTRA_YEARS", "ADDITIONAL"},
      {"fgPensionB", "ADDITIONAL", "ERRBO"},
      {"fgPensionB", "ERRBO", "TOTAL_CONTRIB"},
      {"fgPensionSolo", "EXTRAYEARS", "ERRBO"},
      {"fgPensionSolo", "ERRBO", "ADDITIONAL"},
      {"fgEvents", "TITLE", "LOCATION"},
  };
  test::TestLedger t;
  for (const auto& c : cases) {
    const Grid& grid = *t.ledger.Table(c.table);
    EXPECT_EQ(grid.ColIndex(c.after), grid.ColIndex(c.before) + 1) << c.table << " " << c.after;
  }
  EXPECT_EQ(t.ledger.fgPractices.ColIndex("BRANCHOF"), 3);
}

TEST(Tables, ABlankTable) {
  Grid grid("fgExpenses");
  grid.SetCols(30);
  grid.SetColComboList(4, "left|over");
  grid.AddItem("left over");
  MakeBlank(grid, *FindTable("FGEXPENSES"));
  EXPECT_EQ(Keys(grid), "DATE ITEM AMOUNT CATEGORY Notes EXPENSEREPETITIONID");
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.FixedRows(), 2);
  EXPECT_TRUE(grid.RowHidden(1));
  EXPECT_FALSE(grid.HasData());
  EXPECT_EQ(grid.ColWidth(0), 120);
  EXPECT_EQ(grid.ColKey(0) + grid.TextMatrix(0, 0) + grid.TextMatrix(1, 0), "");
  EXPECT_EQ(grid.ColComboList(4), "");
  for (const char* key : {"notes", "Notes", "NOTES"}) EXPECT_EQ(grid.ColIndex(key), 5);
  EXPECT_EQ(grid.TextMatrix(1, 5), "Notes");
  EXPECT_EQ(grid.ColWidth(6), 0);
  EXPECT_EQ(FindTable("fgNone"), nullptr);
}

TEST(Tables, MissingColumnsComeBesideTheirNeighbours) {
  const TableSpec& table = *FindTable("fgEvents");
  Grid whole("fgEvents");
  MakeBlank(whole, table);
  // Without each column in turn, and with none at all.
  for (int missing = 1; missing <= whole.Cols(); ++missing) {
    Grid grid("fgEvents");
    MakeBlank(grid, table);
    grid.AddItem("\t1\tCourse");
    if (missing < whole.Cols()) grid.SetColPosition(missing, grid.Cols() - 1);
    grid.SetCols(missing < whole.Cols() ? grid.Cols() - 1 : 1);
    AddMissingColumns(grid, table);
    EXPECT_EQ(Keys(grid), Keys(whole));
    for (int col = 1; col < grid.Cols(); ++col) {
      EXPECT_EQ(grid.TextMatrix(0, col), whole.TextMatrix(0, col));
      EXPECT_EQ(grid.TextMatrix(1, col), whole.TextMatrix(1, col));
      EXPECT_EQ(grid.ColWidth(col), whole.ColWidth(col));
    }
    EXPECT_EQ(grid.TextMatrix(2, "TITLE"), missing == 2 || missing == whole.Cols() ? "" : "Course");
  }
}

TEST(Tables, AUsersColumnOrderStays) {
  const TableSpec& table = *FindTable("fgEvents");
  Grid grid("fgEvents");
  MakeBlank(grid, table);
  grid.SetColPosition(grid.ColIndex("NOTES"), 1);
  grid.SetColPosition(grid.ColIndex("LOCATION"), grid.Cols() - 1);
  grid.SetCols(grid.Cols() - 1);
  AddMissingColumns(grid, table);
  EXPECT_EQ(Keys(grid), "NOTES ID TITLE LOCATION CATEGORY SDATE EDATE");
}

TEST(Tables, TheLedgerHasThemAll) {
  test::TestLedger t;
  for (const TableSpec& table : kTables) {
    ASSERT_NE(t.ledger.Table(table.name), nullptr) << table.name;
    EXPECT_EQ(t.ledger.Table(table.name)->Name(), table.name);
    EXPECT_EQ(t.ledger.Table(ToUpper(table.name))->Cols(),
              static_cast<int>(table.columns.size()) + 1);
  }
  EXPECT_EQ(t.ledger.Table("fgshortcuts"), &t.ledger.fgShortcuts);
  EXPECT_EQ(t.ledger.Table(""), nullptr);
  EXPECT_EQ(t.ledger.fgOptions.Cols(), 120);
}

}  // namespace
}  // namespace lm
