#include "shell/printtable.h"

#include <algorithm>
#include <optional>

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/tables.h"
#include "core/text.h"
#include "shell/grouping.h"

namespace lm {
namespace {

// Behind the marker column.
int FirstPrinted(const Grid& grid) { return HasMarker(grid) ? 1 : 0; }

std::string ShownText(const Grid& grid, int row, int col) {
  return grid.IsSubtotal(row) ? ShownInGroup(grid, row, col, FirstPrinted(grid))
                              : grid.DisplayText(row, col);
}

// Of a report: a row of nothing but zeros, which the user wanted out of sight.
bool IsSliver(const Grid& grid, int row) {
  constexpr int kSliver = 15;  // twips
  return grid.RowHeight(row) >= 0 && grid.RowHeight(row) <= kSliver;
}

bool IsInSight(const Grid& grid, int row) { return !grid.IsSubtotal(row) && !grid.RowHidden(row); }

// Group rows alone, with sums of nothing, are no reason to print a column, but their titles are.
bool HasText(const Grid& grid, int col) {
  bool shown = false, recorded = false;
  for (int row = grid.FixedRows(); row < grid.Rows() && !(shown && recorded); ++row) {
    const bool group = grid.IsSubtotal(row);
    shown = shown || (grid.RowVisible(row) && !ShownText(grid, row, col).empty());
    recorded = recorded || (group ? TitlePlace(grid, row, FirstPrinted(grid)) == col
                                  : IsInSight(grid, row) && !grid.TextMatrix(row, col).empty());
  }
  return shown && recorded;
}

bool HoldsDays(const Grid& grid, int col) {
  return grid.ColVisible(col) && grid.ColDataType(col) == DataType::Date &&
         grid.ColFormat(col).find('h') == std::string::npos;
}

// Amounts of records are summed; what a practice pays an hour is no amount.
bool IsSummed(const Grid& grid, int col) {
  return grid.ColFormat(col) == kAmountFormat && HasMarker(grid) &&
         !grid.ColKey(col).starts_with("RATE_");
}

std::string SumOf(const Grid& grid, int col) {
  Double sum = 0;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (IsInSight(grid, row)) sum += Val(RemoveAny(grid.TextMatrix(row, col), ","));
  return Format(sum, kAmountFormat);
}

PrintedRow Sums(const Grid& grid, const std::vector<int>& columns) {
  PrintedRow sums{std::vector<std::string>(columns.size()), true};
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (IsSummed(grid, columns[i])) sums.texts[i] = SumOf(grid, columns[i]);
  if (!sums.texts.front().empty()) return sums;
  sums.texts.front() = "Total";
  sums.title = 0;
  return sums;
}

}  // namespace

Alignment ShownAlignment(const Grid& grid, int row, int col) {
  const int own = ValInt(grid.Cell(CellSetting::flexcpAlignment, row, col));
  if (own > 0 && own <= static_cast<int>(Alignment::Right)) return static_cast<Alignment>(own);
  const Alignment column = grid.ColAlignment(col);
  if (column != Alignment::General) return column;
  // A column of figures is one with a number format, whether it is marked as money or not.
  const bool figures = grid.ColDataType(col) == DataType::Money ||
                       grid.ColFormat(col).find('#') != std::string::npos;
  return figures ? Alignment::Right : Alignment::Left;
}

PrintTable MakePrintTable(const Grid& grid) {
  PrintTable table;
  std::vector<int> columns;
  for (int col = FirstPrinted(grid); col < grid.Cols(); ++col)
    if (grid.ColVisible(col) && HasText(grid, col)) columns.push_back(col);
  for (const int col : columns) {
    table.captions.push_back(grid.TextMatrix(CaptionRow(grid), col));
    table.alignments.push_back(ShownAlignment(grid, -1, col));
  }
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (!grid.RowVisible(row) || IsSliver(grid, row)) continue;
    const int first = FirstPrinted(grid);
    const bool heads = grid.Cell(CellSetting::flexcpFontBold, row, first) == "TRUE";
    PrintedRow printed{{}, heads};
    const int title = grid.IsSubtotal(row) ? TitlePlace(grid, row, first) : heads ? first : -1;
    for (const int col : columns) {
      if (col == title) printed.title = static_cast<int>(printed.texts.size());
      printed.texts.push_back(ShownText(grid, row, col));
      printed.alignments.push_back(ShownAlignment(grid, row, col));
    }
    table.rows.push_back(std::move(printed));
  }
  table.summed = std::ranges::any_of(columns, [&](int col) { return IsSummed(grid, col); });
  if (table.summed) table.rows.push_back(Sums(grid, columns));
  return table;
}

std::string PrintedDays(const Grid& grid) {
  int col = FirstPrinted(grid);
  while (col < grid.Cols() && !HoldsDays(grid, col)) ++col;
  std::optional<Date> first, last;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    const auto day = IsInSight(grid, row) ? CellDate(grid.TextMatrix(row, col)) : std::nullopt;
    if (!day) continue;
    first = first ? std::min(*first, *day) : *day;
    last = last ? std::max(*last, *day) : *day;
  }
  return first ? CellText(*first) + " to " + CellText(*last) : "";
}

}  // namespace lm
