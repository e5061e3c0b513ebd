#include "core/rows.h"

#include <gtest/gtest.h>

#include "core/options.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

TEST(Rows, MarkersTellTheRowsState) {
  test::TestLedger t;
  Ledger& ledger = t;
  Grid& grid = ledger.fgEvents;
  EXPECT_FALSE(HasUnsavedRows(ledger));
  const int loaded = grid.AddItem("");
  EXPECT_EQ(StateOfRow(ledger, grid, loaded), RowState::Saved);
  const int added = AddRecord(ledger, grid);
  MarkEdited(ledger, grid, added);
  EXPECT_EQ(StateOfRow(ledger, grid, added), RowState::New) << "a new row stays new";
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpBackColor, added, 0), 16711680);
  ClearMarkers(grid);
  EXPECT_FALSE(HasUnsavedRows(ledger));
  MarkEdited(ledger, grid, loaded);
  EXPECT_EQ(StateOfRow(ledger, grid, loaded), RowState::Edited);
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpBackColor, loaded, 0), 16776960);
  EXPECT_TRUE(HasUnsavedRows(ledger));
  grid.SetCell(CellSetting::flexcpBackColor, {2, 0, grid.Rows() - 1, 0}, "0");
  EXPECT_FALSE(HasUnsavedRows(ledger));
}

// What the user does to the colours while rows wait to be saved must not hide that they wait.
TEST(Rows, AStateOutlivesAChangeOfColours) {
  test::TestLedger t;
  for (const char* colour : {"255", "0", "", "banana"}) {
    Grid& grid = t.ledger.fgEvents;
    grid.ClearData();
    AddRecord(t, grid);
    SetOption(t, optNewRowColour, colour);
    SetOption(t, optEditedRowColour, colour);
    EXPECT_TRUE(HasUnsavedRows(t)) << colour;
    MarkEdited(t, grid, grid.AddItem(""));
    EXPECT_NE(StateOfRow(t, grid, 3), RowState::Saved) << colour;
  }
}

TEST(Rows, NewRowsGoWhereTheOptionSays) {
  test::TestLedger t;
  Grid& grid = t.ledger.fgEvents;
  const struct {
    std::string option;
    int row;
  } cases[] = {{"BOTTOM", 2}, {"bottom", 3}, {"TOP", 2}, {"", 2}, {"Bottom", 6}};
  for (const auto& c : cases) {
    SetOption(t, optNewRowPosition, c.option);
    EXPECT_EQ(AddRecord(t, grid), c.row) << c.option;
  }
}

TEST(Rows, NextIds) {
  const struct {
    std::vector<std::string> ids;
    int next;
  } cases[] = {{{}, 1},     {{"3", "12", "5"}, 13},   {{"", "banana"}, 1},
               {{"-4"}, 1}, {{"2147483647", "8"}, 9}, {{"99999999999999999999", "8"}, 9}};
  for (const auto& c : cases) {
    Grid grid("fgEvents");
    MakeBlank(grid, *FindTable("fgEvents"));
    for (const auto& id : c.ids) grid.AddItem("\t" + id);
    EXPECT_EQ(NextId(grid), c.next) << (c.ids.empty() ? "none" : c.ids[0]);
  }
}

}  // namespace
}  // namespace lm
