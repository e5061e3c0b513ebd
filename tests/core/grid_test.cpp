#include "core/grid.h"

#include <gtest/gtest.h>

#include "core/text.h"

namespace lm {
namespace {

// Three columns A, B, C behind the marker, two header rows, and the given data rows.
void Fill(Grid& grid, const std::vector<std::string>& rows) {
  grid.SetCols(4);
  grid.SetRows(2);
  grid.SetFixedRows(2);
  grid.SetFixedCols(1);
  for (int col = 1; col < 4; ++col)
    grid.SetColKey(col, std::string(1, static_cast<char>('@' + col)));
  for (const std::string& row : rows) grid.AddItem("\t" + row);
}

class Recorder : public GridObserver {
 public:
  std::string log;
  void CellsChanged(Grid&, const CellRange& range) override {
    Note("cells", {range.row1, range.col1, range.row2, range.col2});
  }
  void RowsInserted(Grid&, int row, int count) override { Note("inserted", {row, count}); }
  void RowsRemoved(Grid&, int row, int count) override { Note("removed", {row, count}); }
  void LayoutChanged(Grid&) override { Note("layout", {}); }
  void CursorMoved(Grid&) override { Note("cursor", {}); }
  void GridReset(Grid&) override { Note("reset", {}); }

 private:
  void Note(const std::string& what, const std::vector<int>& numbers) {
    log += log.empty() ? what : "; " + what;
    for (const int number : numbers) log += " " + std::to_string(number);
  }
};

TEST(Grid, OutsideTheTableReadsEmptyAndWritesNothing) {
  Grid grid("fgTest");
  Fill(grid, {"x"});
  for (const auto& [row, col] : {std::pair{-1, 1}, {99, 1}, {2, -1}, {2, 99}}) {
    grid.SetTextMatrix(row, col, "lost");
    grid.SetCell(CellSetting::flexcpData, row, col, "lost");
    EXPECT_EQ(grid.TextMatrix(row, col), "");
    EXPECT_EQ(grid.DisplayText(row, col), "");
    EXPECT_EQ(grid.Cell(CellSetting::flexcpData, row, col), "");
    EXPECT_EQ(grid.CellColour(CellSetting::flexcpBackColor, row, col), kNoColour);
    EXPECT_EQ(grid.MergedRange(row, col), (CellRange{row, col, row, col}));
  }
  grid.DeclareKey("NO SUCH COLUMN");
  grid.SetTextMatrix(2, "NO SUCH COLUMN", "lost");
  grid.SetColFormat(-1, "0.00");
  grid.SetColPosition(-1, 2);
  grid.SetColPosition(1, 99);
  grid.RemoveItem(99);
  grid.Sort(SortSetting::GenericAscending, grid.ColIndex("NO SUCH COLUMN"));
  grid.Subtotal(SubtotalFunction::Sum, 99, 1, {});
  EXPECT_EQ(grid.FindRow("x", -1, -1), -1);
  EXPECT_TRUE(grid.RowsBy("NO SUCH COLUMN").empty());
  EXPECT_EQ(grid.TextMatrix(2, "A"), "x");
  EXPECT_EQ(grid.Rows(), 3);
}

TEST(Grid, KeysTravelWithTheirColumns) {
  Grid grid("fgTest");
  Fill(grid, {"1\t2\t3"});
  grid.SetColFormat(3, "0.00");
  grid.SetColPosition(3, 1);
  EXPECT_EQ(grid.ColIndex("c"), 1);
  EXPECT_EQ(grid.ColIndex("A"), 2);
  EXPECT_EQ(grid.ColIndex("b"), 3);
  EXPECT_EQ(grid.ColIndex(""), -1);
  EXPECT_EQ(grid.TextMatrix(2, "C"), "3");
  EXPECT_EQ(grid.DisplayText(2, 1), "3.00");
  grid.SetColPosition(1, 3);
  EXPECT_EQ(grid.ColIndex("C"), 3);
  EXPECT_EQ(grid.TextMatrix(2, 3), "3");
}

TEST(Grid, DroppedColumnsLeaveNothingBehind) {
  Grid grid("fgTest");
  Fill(grid, {"1\t2\t3"});
  grid.SetCell(CellSetting::flexcpData, 2, 3, "tag");
  grid.SetColPosition(3, 1);
  grid.SetCols(2);
  EXPECT_EQ(grid.TextMatrix(2, 1), "3");
  grid.SetCols(4);
  for (int col = 2; col < 4; ++col) {
    EXPECT_EQ(grid.TextMatrix(2, col), "");
    EXPECT_EQ(grid.ColKey(col), "");
  }
  EXPECT_EQ(grid.Cell(CellSetting::flexcpData, 2, 1), "tag");
}

TEST(Grid, CellsHoldNoSeparatorsOfTheFile) {
  Grid grid("fgTest");
  Fill(grid, {});
  const int row = grid.AddItem(
      "\ta\x1f"
      "b\tc\td\te\tbeyond the last column");
  EXPECT_EQ(grid.TextMatrix(row, 1), "ab");
  EXPECT_EQ(grid.TextMatrix(row, 3), "d");
  grid.SetTextMatrix(row, 2,
                     std::string_view("\x1d"
                                      "x\x1e\0y",
                                      5));
  EXPECT_EQ(grid.TextMatrix(row, 2), std::string_view("x\0y", 3));
  grid.SetCell(CellSetting::flexcpText, {row, 1, row, 3}, "p\x1eq");
  EXPECT_EQ(grid.TextMatrix(row, 3), "pq");
}

TEST(Grid, ACellMayBeCopiedWithinItsRow) {
  Grid grid("fgTest");
  grid.SetCols(8);
  grid.SetRows(1);
  grid.SetTextMatrix(0, 0, "short");
  for (int col = 1; col < 8; ++col) grid.SetTextMatrix(0, col, grid.TextMatrix(0, col - 1));
  EXPECT_EQ(grid.TextMatrix(0, 7), "short");
}

TEST(Grid, RowsComeAndGo) {
  Grid grid("fgTest");
  Fill(grid, {"1", "2", "3"});
  EXPECT_EQ(grid.AddItem("\t0", 2), 2);
  EXPECT_EQ(grid.AddItem("\t4", 99), 6);
  EXPECT_EQ(grid.FindRow("0", "A"), 2);
  EXPECT_EQ(grid.FindRow("4", 3, 1), 6);
  EXPECT_EQ(grid.FindRow("0", 3, 1), -1);
  grid.RemoveItem(2);
  EXPECT_EQ(grid.TextMatrix(2, 1), "1");
  grid.SetRows(-5);
  EXPECT_EQ(grid.Rows(), 0);
  EXPECT_FALSE(grid.HasData());
  grid.ClearData();
  EXPECT_EQ(grid.Rows(), 0);
  EXPECT_EQ(grid.AddItem("\tx"), 0);
}

TEST(Grid, RowsByPassesOverGroupRowsAndEmptyCells) {
  Grid grid("fgTest");
  Fill(grid, {"1", "", "2", "1"});
  grid.SetTextMatrix(1, 1, "A");
  grid.Subtotal(SubtotalFunction::Count, -1, 2, {});
  const auto rows = grid.RowsBy("a");
  EXPECT_EQ(rows, (std::unordered_map<std::string, int>{{"1", 3}, {"2", 5}}));
}

TEST(Grid, TheCursorStaysOnItsRecord) {
  Grid grid("fgTest");
  Fill(grid, {"b", "c", "a"});
  grid.Select(4, 1);
  grid.AddItem("\td", 2);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "a");
  grid.Sort(SortSetting::GenericAscending, 1);
  EXPECT_EQ(grid.Row(), 2);
  grid.Subtotal(SubtotalFunction::Count, -1, 2, {});
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "a");
  grid.Select(2, 1);
  grid.ClearSubtotals();
  EXPECT_EQ(grid.Row(), -1);
  grid.Select(5, 1);
  grid.RemoveItem(5);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 1), "c");
  grid.ClearData();
  EXPECT_EQ(grid.Row(), -1);
}

TEST(Grid, TheObserverHearsTheSmallestTrueNotice) {
  Grid grid("fgTest");
  Fill(grid, {"1\t2\t3", "4\t5\t6"});
  Recorder recorder;
  grid.AddObserver(recorder);
  const struct {
    std::function<void()> change;
    std::string log;
  } cases[] = {
      {[&] { grid.SetTextMatrix(2, 1, "9"); }, "cells 2 1 2 1"},
      {[&] { grid.SetTextMatrix(2, 1, "9"); }, ""},
      {[&] {
         grid.SetCell(CellSetting::flexcpText, {3, 9, 2, 2}, "x");
       },
       "cells 2 2 3 3"},
      {[&] {
         grid.SetCellColour(CellSetting::flexcpBackColor, {2, 0, 3, 0}, 5);
       },
       "cells 2 0 3 0"},
      {[&] { grid.AddItem("\tnew"); }, "inserted 4 1"},
      {[&] { grid.RemoveItem(2); }, "removed 2 1"},
      {[&] { grid.SetRows(7); }, "inserted 4 3"},
      {[&] { grid.ClearData(); }, "removed 2 5"},
      {[&] { grid.SetColWidth(1, 700); }, "layout"},
      {[&] { grid.SetColWidth(1, 700); }, ""},
      {[&] { grid.Select(0, 1); }, "cursor"},
      {[&] { grid.SetMergeCells(MergeSetting::Free); }, "layout"},
      {[&] { grid.Sort(SortSetting::GenericAscending, 1); }, "reset"},
      {[&] {
         const RedrawOff outer(grid);
         grid.AddItem("\tx");
         const RedrawOff inner(grid);
         grid.SetTextMatrix(2, 1, "y");
       },
       "reset"},
      {[&] { const RedrawOff off(grid); }, ""},
      {[&] { grid.SetRedraw(true); }, ""},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    recorder.log.clear();
    cases[i].change();
    EXPECT_EQ(recorder.log, cases[i].log) << "case " << i;
  }
}

TEST(Grid, PropertiesBelongToTheirCells) {
  Grid grid("fgTest");
  Fill(grid, {"1\t2\t3", "4\t5\t6"});
  const struct {
    CellSetting setting;
    std::string set, read, unset;
  } cases[] = {
      {CellSetting::flexcpBackColor, "255", "255", ""},
      {CellSetting::flexcpForeColor, "0", "0", ""},
      {CellSetting::flexcpFontBold, "true", "TRUE", ""},
      {CellSetting::flexcpChecked, "FALSE", "FALSE", ""},
      {CellSetting::flexcpPicture, "status1", "status1", ""},
      {CellSetting::flexcpAlignment, "2", "2", "0"},
      {CellSetting::flexcpAlignment, "99", "0", "0"},
      {CellSetting::flexcpData, "S12", "S12", ""},
  };
  for (const auto& c : cases) {
    grid.SetCell(c.setting, 2, 1, c.set);
    EXPECT_EQ(grid.Cell(c.setting, 2, 1), c.read);
    EXPECT_EQ(grid.Cell(c.setting, 3, 1), c.unset);
    grid.SetCell(c.setting, 2, 1, "");
    EXPECT_EQ(grid.Cell(c.setting, 2, 1), c.unset);
  }
}

TEST(Grid, ShownTexts) {
  const struct {
    std::string list, format, cell, shown;
  } cases[] = {
      {"", "", "as it is", "as it is"},
      {"", "#,##0.00", "1234.5", "1,234.50"},
      {"", "#,##0.00", "12,3x", "12,3x"},
      {"", "#,##0.00", "", ""},
      {"", "mmm yyyy", "01/02/2026", "Feb 2026"},
      {"", "mmm yyyy", "banana", "banana"},
      {"#1;Riverside|#2;North; the Hill", "", "2", "North; the Hill"},
      {"#1;Riverside|#2;Northgate", "", "9", ""},
      {"#1;Riverside|#2;Northgate", "", "", ""},
      {"| #1;Riverside|#2;Northgate", "", "1", "Riverside"},
      {"B|SOLO", "", "SOLO", "SOLO"},
      {"BACS|Cheque", "", "By hand", "By hand"},
      {"#0;Private|#0;Twice", "0.00", "0", "Private"},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    Fill(grid, {});
    grid.SetTextMatrix(0, 1, "1");
    grid.SetColComboList(1, c.list);
    grid.SetColFormat(1, c.format);
    grid.AddItem("\t" + c.cell);
    EXPECT_EQ(grid.DisplayText(2, "A"), c.shown) << c.list << " " << c.format << " " << c.cell;
    EXPECT_EQ(grid.DisplayText(0, "A"), "1") << "captions are no cells";
  }
}

TEST(Grid, ComboListsFallApartIntoIdsAndTexts) {
  using Entries = std::vector<std::pair<std::string, std::string>>;
  EXPECT_EQ(ComboEntries(""), Entries());
  EXPECT_EQ(ComboEntries("B|SOLO"), (Entries{{"B", "B"}, {"SOLO", "SOLO"}}));
  EXPECT_EQ(ComboEntries("| #-1;Holiday|#2;"), (Entries{{"", ""}, {"-1", "Holiday"}, {"2", ""}}));
  EXPECT_EQ(ComboEntries("#|#;|;"), (Entries{{"#", "#"}, {"", ""}, {";", ";"}}));
}

// The merged range of each data cell as rows of letters: cells with the same letter are one block.
std::string Blocks(const Grid& grid) {
  std::string blocks;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    for (int col = 1; col < grid.Cols(); ++col) {
      const CellRange range = grid.MergedRange(row, col);
      EXPECT_EQ(grid.MergedRange(range.row2, range.col2), range);
      blocks += static_cast<char>('a' + (range.row1 - grid.FixedRows()) * 3 + range.col1 - 1);
    }
    blocks += row + 1 < grid.Rows() ? " " : "";
  }
  return blocks;
}

TEST(Grid, MergedBlocks) {
  const struct {
    MergeSetting setting;
    bool rows, cols;
    std::vector<std::string> cells;
    std::string blocks;
  } cases[] = {
      {MergeSetting::Never, true, true, {"x\tx\tx", "x\tx\tx"}, "abc def"},
      {MergeSetting::Free, true, false, {"x\tx\ty", "\t\tx"}, "aac def"},
      {MergeSetting::Free, false, true, {"x\tx\ty", "x\ty\ty", "y\ty\t"}, "abc aec gei"},
      {MergeSetting::Free, true, true, {"x\tx\ty", "x\tz\ty"}, "aac dec"},
      {MergeSetting::RestrictAll, false, true, {"x\tp\tp", "x\tp\tp", "y\tp\tp"}, "abc abc ghi"},
      {MergeSetting::RestrictColumns,
       false,
       true,
       {"x\tp\tp", "x\tq\tp", "x\tq\tp"},
       "abc aef aef"},
      {MergeSetting::RestrictRows, true, false, {"x\tx\ty", "p\tp\tp"}, "aac ddf"},
      {MergeSetting::RestrictRows, true, false, {"x\ty\tz", "p\tp\tp"}, "abc def"},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    Fill(grid, c.cells);
    grid.SetTextMatrix(1, 1, "x");
    grid.SetMergeCells(c.setting);
    for (int row = 0; row < grid.Rows(); ++row) grid.SetMergeRow(row, c.rows);
    for (int col = 0; col < grid.Cols(); ++col) grid.SetMergeCol(col, c.cols);
    EXPECT_EQ(Blocks(grid), c.blocks) << static_cast<int>(c.setting) << " " << c.cells[0];
  }
}

TEST(Grid, MergesGoByWhatIsSeen) {
  Grid grid("fgTest");
  Fill(grid, {"1\tx", "7\tx", "2\tx", "1\tx"});
  grid.SetColComboList(1, "#1;Same|#2;Same|#7;Other");
  grid.SetMergeCells(MergeSetting::Free);
  grid.SetMergeCol(1, true);
  grid.SetRowHidden(3, true);
  EXPECT_EQ(grid.MergedRange(4, 1), (CellRange{2, 1, 5, 1}));
  grid.SetRowOutlineLevel(4, 1);
  EXPECT_EQ(grid.MergedRange(2, 1), (CellRange{2, 1, 2, 1}));
}

}  // namespace
}  // namespace lm
