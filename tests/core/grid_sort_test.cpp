#include <gtest/gtest.h>

#include <random>

#include "core/grid.h"

namespace lm {
namespace {

std::vector<std::string> Column(const Grid& grid, int col = 0) {
  std::vector<std::string> cells;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    cells.push_back(grid.TextMatrix(row, col));
  return cells;
}

TEST(GridSort, ByWhatTheColumnHolds) {
  using Cells = std::vector<std::string>;
  const auto generic = SortSetting::GenericAscending;
  const struct {
    std::string what;
    SortSetting setting;
    DataType type;
    std::string list;
    Cells cells, sorted;
  } cases[] = {
      {"texts without case",
       generic,
       DataType::Text,
       "",
       {"b", "", "A", "B", "a"},
       {"", "A", "a", "b", "B"}},
      {"texts that are all numbers",
       generic,
       DataType::Text,
       "",
       {"10", "9", "", "1,000"},
       {"", "9", "10", "1,000"}},
      {"texts of which one is none",
       generic,
       DataType::Text,
       "",
       {"10", "9", "x"},
       {"10", "9", "x"}},
      {"money",
       generic,
       DataType::Money,
       "",
       {"10", "-2.5", "9.99", ""},
       {"", "-2.5", "9.99", "10"}},
      {"damaged money",
       generic,
       DataType::Money,
       "",
       {"10", "12,3x", "", "9"},
       {"", "12,3x", "9", "10"}},
      {"dates",
       generic,
       DataType::Date,
       "",
       {"02/01/2026", "31/12/2025", "", "1/2/2026"},
       {"", "31/12/2025", "02/01/2026", "1/2/2026"}},
      {"damaged dates",
       generic,
       DataType::Date,
       "",
       {"01/01/2026", "banana", "31/02/2026", "99:99"},
       {"31/02/2026", "99:99", "banana", "01/01/2026"}},
      {"times",
       generic,
       DataType::Date,
       "",
       {"18:30", "09:00", "6:15"},
       {"6:15", "09:00", "18:30"}},
      {"what a list shows",
       generic,
       DataType::Text,
       "#1;Zoe|#2;adam|#3;Bea",
       {"1", "2", "3", "9"},
       {"9", "2", "3", "1"}},
      {"downwards",
       SortSetting::GenericDescending,
       DataType::Money,
       "",
       {"9", "", "10", "x"},
       {"10", "9", "x", ""}},
      {"numbers asked for",
       SortSetting::NumericDescending,
       DataType::Text,
       "",
       {"9", "x", "10"},
       {"10", "9", "x"}},
      {"texts asked for",
       SortSetting::StringNoCaseAscending,
       DataType::Money,
       "",
       {"9", "b", "10", "A"},
       {"10", "9", "A", "b"}},
  };
  for (const auto& c : cases) {
    Grid grid("fgTest");
    grid.SetCols(1);
    grid.SetColDataType(0, c.type);
    grid.SetColComboList(0, c.list);
    for (const auto& cell : c.cells) grid.AddItem(cell);
    grid.Sort(c.setting, 0);
    EXPECT_EQ(Column(grid), c.sorted) << c.what;
  }
}

TEST(GridSort, OverSeveralColumnsAndStable) {
  Grid grid("fgTest");
  grid.SetCols(3);
  grid.SetRows(1);
  grid.SetFixedRows(1);
  grid.SetTextMatrix(0, 0, "zzz caption");
  for (const char* row : {"b\t2\t1", "a\t10\t2", "B\t2\t3", "a\t9\t4", "b\t1\t5"})
    grid.AddItem(row);
  grid.Sort(SortSetting::GenericAscending, 0, 1);
  EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"4", "2", "5", "1", "3"}));
  EXPECT_EQ(grid.TextMatrix(0, 0), "zzz caption");
  grid.Sort(SortSetting::GenericDescending, 0);
  EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"5", "1", "3", "4", "2"}));
  grid.Sort(SortSetting::GenericAscending, 2, 99);
  EXPECT_EQ(Column(grid, 2), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST(GridSort, GroupRowsGo) {
  Grid grid("fgTest");
  grid.SetCols(2);
  for (const char* row : {"a\t2", "b\t1"}) grid.AddItem(row);
  grid.Subtotal(SubtotalFunction::Sum, 0, 1, {});
  ASSERT_EQ(grid.Rows(), 4);
  grid.Sort(SortSetting::GenericAscending, 1);
  EXPECT_EQ(Column(grid), (std::vector<std::string>{"b", "a"}));
}

// Whatever the cells hold, sorting keeps every row and settles on one order.
TEST(GridSort, HostileCells) {
  std::mt19937 random(7);
  const std::string pieces[] = {
      "",      "1",     "-",          ".",          ",",
      "12,3x", "1E999", "01/01/2026", "00/00/0000", "25:61",
      " ",     "\xff",  "nan",        "inf",        "9999999999999999999999"};
  for (const DataType type : {DataType::Text, DataType::Money, DataType::Date}) {
    Grid grid("fgTest");
    grid.SetCols(1);
    grid.SetColDataType(0, type);
    for (int i = 0; i < 500; ++i)
      grid.AddItem(pieces[random() % std::size(pieces)] + pieces[random() % std::size(pieces)]);
    std::vector<std::string> before = Column(grid);
    grid.Sort(SortSetting::GenericAscending, 0);
    const std::vector<std::string> once = Column(grid);
    grid.Sort(SortSetting::GenericAscending, 0);
    EXPECT_EQ(Column(grid), once);
    std::vector<std::string> after = once;
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(before, after);
  }
}

}  // namespace
}  // namespace lm
