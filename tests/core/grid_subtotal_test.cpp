#include <gtest/gtest.h>

#include "core/grid.h"

namespace lm {
namespace {

// Practice, month and two figures, sorted.
void Fill(Grid& grid, const std::vector<std::string>& rows) {
  grid.SetCols(4);
  grid.SetRows(1);
  grid.SetFixedRows(1);
  for (const std::string& row : rows) grid.AddItem(row);
}

// All data rows, one text each: a group row's level in brackets, then its cells.
std::vector<std::string> Table(const Grid& grid) {
  std::vector<std::string> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    std::string line;
    if (grid.IsSubtotal(row)) line = "[" + std::to_string(grid.RowOutlineLevel(row)) + "] ";
    for (int col = 0; col < grid.Cols(); ++col)
      line += (col ? "|" : "") + grid.TextMatrix(row, col);
    rows.push_back(line);
  }
  return rows;
}

using Lines = std::vector<std::string>;
const Lines kRecords{"A\tJan\t1\t10", "A\tJan\t2\t20", "A\tFeb\t3\t30", "B\tFeb\t4\t40"};

TEST(GridSubtotal, NestedGroupsAbove) {
  Grid grid("fgTest");
  Fill(grid, kRecords);
  for (const int total : {3, 2}) grid.Subtotal(SubtotalFunction::Sum, -1, total, {.level = 1});
  for (const int total : {3, 2}) grid.Subtotal(SubtotalFunction::Sum, 0, total, {.level = 2});
  for (const int total : {3, 2}) grid.Subtotal(SubtotalFunction::Sum, 1, total, {.level = 3});
  const Lines expected{"[1] Total||10|100", "[2] A||6|60",   "[3] |Jan|3|30", "A|Jan|1|10",
                       "A|Jan|2|20",        "[3] |Feb|3|30", "A|Feb|3|30",    "[2] B||4|40",
                       "[3] |Feb|4|40",     "B|Feb|4|40"};
  EXPECT_EQ(Table(grid), expected);
  grid.ClearSubtotals();
  EXPECT_EQ(Table(grid), (Lines{"A|Jan|1|10", "A|Jan|2|20", "A|Feb|3|30", "B|Feb|4|40"}));
}

TEST(GridSubtotal, NestedGroupsBelow) {
  Grid grid("fgTest");
  Fill(grid, kRecords);
  grid.SetSubtotalPosition(SubtotalPosition::Below);
  grid.Subtotal(SubtotalFunction::Sum, -1, 2, {.level = 1});
  grid.Subtotal(SubtotalFunction::Sum, 0, 2, {.level = 2});
  grid.Subtotal(SubtotalFunction::Sum, 1, 2, {.level = 3});
  const Lines expected{"A|Jan|1|10", "A|Jan|2|20", "[3] |Jan|3|", "A|Feb|3|30", "[3] |Feb|3|",
                       "[2] A||6|",  "B|Feb|4|40", "[3] |Feb|4|", "[2] B||4|",  "[1] Total||10|"};
  EXPECT_EQ(Table(grid), expected);
}

// The grand total stands outside all groups, in whatever order the calls come.
TEST(GridSubtotal, GrandTotalOfTheSameLevelOrLate) {
  const Lines expected{"[1] Total||10|", "[1] A||6|", "A|Jan|1|10", "A|Jan|2|20",
                       "A|Feb|3|30",     "[1] B||4|", "B|Feb|4|40"};
  for (const bool grandFirst : {true, false}) {
    Grid grid("fgTest");
    Fill(grid, kRecords);
    for (const int groupOn : grandFirst ? std::vector{-1, 0} : std::vector{0, -1})
      grid.Subtotal(SubtotalFunction::Sum, groupOn, 2, {.level = 1});
    EXPECT_EQ(Table(grid), expected) << grandFirst;
  }
}

TEST(GridSubtotal, Functions) {
  const struct {
    SubtotalFunction function;
    Lines cells;  // of group A, with one more record of 60 behind it
    std::string figure;
  } cases[] = {
      {SubtotalFunction::Sum, {"0.1", "0.2", "", "12,3x"}, "123.3"},
      {SubtotalFunction::Sum, {"1,000", "-0.01"}, "999.99"},
      {SubtotalFunction::Sum, {"banana", ""}, "0"},
      {SubtotalFunction::Percent, {"10", "10"}, "25"},
      {SubtotalFunction::Percent, {"", ""}, "0"},
      {SubtotalFunction::Percent, {"-60"}, "0"},
      {SubtotalFunction::Count, {"", "x", "5"}, "3"},
      {SubtotalFunction::Average, {"10", "", "5"}, "7.5"},
      {SubtotalFunction::Average, {"", ""}, ""},
      {SubtotalFunction::Maximum, {"-9", "", "-10"}, "-9"},
      {SubtotalFunction::Minimum, {"9", "", "10"}, "9"},
      {SubtotalFunction::Minimum, {""}, ""},
      {SubtotalFunction::Sum, {"900000000000000", "900000000000000"}, "922337203685477.5807"},
      {SubtotalFunction::Sum, {"-900000000000000", "-900000000000000"}, "-922337203685477.5807"},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    Fill(grid, {});
    for (const auto& cell : c.cells) grid.AddItem("A\t\t" + cell);
    grid.AddItem("B\t\t60");
    grid.Subtotal(c.function, 0, 2, {});
    EXPECT_EQ(grid.TextMatrix(1, 2), c.figure) << static_cast<int>(c.function) << " " << c.cells[0];
  }
}

TEST(GridSubtotal, SumsAreExactInPence) {
  Grid grid("fgTest");
  Fill(grid, {});
  for (int i = 0; i < 10000; ++i) grid.AddItem("A\t\t0.01");
  grid.Subtotal(SubtotalFunction::Sum, 0, 2, {});
  EXPECT_EQ(grid.TextMatrix(1, 2), "100");
}

TEST(GridSubtotal, WhereAGroupEnds) {
  const struct {
    std::string what;
    Lines records;
    int groupOn;
    SubtotalStyle style;
    Lines captions;
  } cases[] = {
      {"case does not matter", {"a", "A", "b"}, 0, {}, {"a", "b"}},
      {"an earlier column too, when asked", {"A\tx", "B\tx"}, 1, {.matchFrom = 0}, {"x", "x"}},
      {"its own column alone", {"A\tx", "B\tx"}, 1, {}, {"x"}},
      {"empty values are a group", {"", "", "b"}, 0, {.caption = "<%s>"}, {"<>", "<b>"}},
      {"a column to the right says nothing", {"A\tx", "A\ty"}, 0, {.matchFrom = 3}, {"A"}},
      {"no records", {}, 0, {}, {}},
      {"no records, grand total", {}, -1, {}, {}},
      {"a level below 1 is 1", {"A"}, 0, {.level = 0}, {"A"}},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    Fill(grid, c.records);
    grid.Subtotal(SubtotalFunction::Count, c.groupOn, 3, c.style);
    Lines captions;
    for (int row = 1; row < grid.Rows(); ++row)
      if (grid.IsSubtotal(row)) captions.push_back(grid.TextMatrix(row, c.groupOn));
    EXPECT_EQ(captions, c.captions) << c.what;
  }
}

// Two practices of one name are two groups, whatever order the records came in.
TEST(GridSubtotal, GroupsGoByIdWhereTheColumnHasIds) {
  Grid grid("fgTest");
  Fill(grid, {"2\t\t1", "10\t\t2", "3\t\t4", "2\t\t8", "10\t\t16", "9\t\t32"});
  grid.SetColComboList(0, "#2;Same|#10;Same|#3;Other");
  grid.Sort(SortSetting::GenericAscending, 0);
  grid.Subtotal(SubtotalFunction::Sum, 0, 2, {});
  EXPECT_EQ(Table(grid), (Lines{"[1] ||32|", "9||32|", "[1] Other||4|", "3||4|", "[1] Same||9|",
                                "2||1|", "2||8|", "[1] Same||18|", "10||2|", "10||16|"}));
  EXPECT_EQ(grid.GroupValue(5), "2");
  EXPECT_EQ(grid.GroupValue(8), "10");
  EXPECT_EQ(grid.GroupValue(9), "") << "a record";

  grid.SetColComboList(0, "Same|same");
  grid.ClearSubtotals();
  for (int row = 1; row < grid.Rows(); ++row) grid.SetTextMatrix(row, 0, row % 2 ? "Same" : "same");
  grid.Subtotal(SubtotalFunction::Sum, 0, 2, {});
  EXPECT_EQ(grid.Rows(), 8) << "entries without ids are the same without regard to case";
}

TEST(GridSubtotal, CaptionsAndFiguresAreShownAsTheyAre) {
  Grid grid("fgTest");
  Fill(grid, {"1\t01/02/2026\t1234.5\t7", "2\t01/02/2026\t1\t7"});
  grid.SetColComboList(0, "#1;Riverside|#2;Northgate");
  grid.SetColFormat(1, "mmm yyyy");
  grid.SetColFormat(2, "#,##0.00");
  grid.SetColFormat(3, "#,##0.00");
  grid.Subtotal(SubtotalFunction::Sum, 1, 2, {.level = 1});
  grid.Subtotal(SubtotalFunction::Count, 1, 3, {.level = 1, .format = "0"});
  grid.Subtotal(SubtotalFunction::Sum, 0, 2,
                {.level = 2, .backColour = 9, .foreColour = 8, .bold = false});
  EXPECT_EQ(grid.DisplayText(1, 1), "Feb 2026");
  EXPECT_EQ(grid.TextMatrix(1, 1), "Feb 2026");
  EXPECT_EQ(grid.DisplayText(1, 2), "1,235.50");
  EXPECT_EQ(grid.DisplayText(1, 3), "2");
  EXPECT_EQ(grid.DisplayText(2, 0), "Riverside");
  EXPECT_EQ(grid.DisplayText(3, 3), "7.00");
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpBackColor, 2, 1), 9);
  EXPECT_EQ(grid.Cell(CellSetting::flexcpForeColor, 2, 0), "8");
  EXPECT_EQ(grid.Cell(CellSetting::flexcpFontBold, 2, 0), "FALSE");
  EXPECT_EQ(grid.Cell(CellSetting::flexcpFontBold, 1, 0), "TRUE");
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpBackColor, 3, 1), kNoColour);
}

TEST(GridSubtotal, CollapsedGroupsHideWhatIsInThem) {
  const struct {
    SubtotalPosition position;
    int outline;
    std::string visible;  // a digit for a group row's level, a dot for a record
  } cases[] = {
      {SubtotalPosition::Above, 0, "123..3.23."}, {SubtotalPosition::Above, 1, "1"},
      {SubtotalPosition::Above, 2, "122"},        {SubtotalPosition::Above, 3, "123323"},
      {SubtotalPosition::Below, 0, "..3.32.321"}, {SubtotalPosition::Below, 1, "1"},
      {SubtotalPosition::Below, 2, "221"},        {SubtotalPosition::Below, 3, "332321"},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    Fill(grid, kRecords);
    grid.SetSubtotalPosition(c.position);
    for (int level = 1; level <= 3; ++level)
      grid.Subtotal(SubtotalFunction::Sum, level - 2, 2, {.level = level});
    grid.Outline(c.outline);
    std::string visible;
    for (int row = 1; row < grid.Rows(); ++row)
      if (grid.RowVisible(row)) visible += ".123"[grid.RowOutlineLevel(row)];
    EXPECT_EQ(visible, c.visible) << c.outline;
  }
  Grid grid("fgTest");
  Fill(grid, kRecords);
  grid.Subtotal(SubtotalFunction::Sum, 0, 2, {});
  grid.SetRowCollapsed(1, true);
  EXPECT_FALSE(grid.RowVisible(2));
  grid.SetRowCollapsed(1, false);
  grid.SetRowHidden(2, true);
  EXPECT_FALSE(grid.RowVisible(2));
  EXPECT_TRUE(grid.RowVisible(3));
}

}  // namespace
}  // namespace lm
