// Planner: the practices against the days of a month; events stand in the headings.
#include <algorithm>
#include <cmath>

#include "calendar/views.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"

namespace lm {
namespace {

constexpr int kFixedCols = 1;
constexpr int kFewestFixedRows = 2;
constexpr int kPracticeWidth = 1500, kHeadingHeight = 510;  // twips
constexpr int kSaturday = 6;                                // Monday first

void WriteDays(const Ledger& ledger, const CalendarPeriod& period, Grid& grid) {
  const Date today = std::floor(ledger.platform.clock.Now());
  grid.SetColWidth(0, kPracticeWidth);
  grid.SetRowHeight(0, kHeadingHeight);
  for (int day = 0; day < period.Days(); ++day) {
    const Date date = period.FirstOfMonth() + day;
    const int col = kFixedCols + day;
    grid.SetTextMatrix(0, col,
                       FormatDate(date, "ddd").substr(0, 2) + "\r\n" + FormatDate(date, "d"));
    grid.SetCell(CellSetting::flexcpData, 0, col, CellText(date));
    grid.SetCell(CellSetting::flexcpAlignment, 0, col,
                 PlainText(static_cast<int>(Alignment::Centre)));
    if (date == today)
      grid.SetCellColour(CellSetting::flexcpBackColor, {0, col, 0, col},
                         OptionColour(ledger, optColourToday));
    grid.SetCellColour(
        CellSetting::flexcpBackColor, {grid.FixedRows(), col, grid.Rows() - 1, col},
        OptionColour(ledger,
                     WeekdayMondayFirst(date) >= kSaturday ? optColourWeekends : optColourWorkday));
  }
}

void ShowSessions(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const SessionLook look(records.ledger);
  std::unordered_map<std::string, int> rows;  // of the grid, by practice
  for (int row = grid.Rows() - 1; row >= grid.FixedRows(); --row) rows[grid.DataOfRow(row)] = row;
  rows.erase("");
  const Date first = period.FirstOfMonth();
  for (const CalendarSession& session : records.SessionsBetween(first, first + period.Days() - 1)) {
    const auto row = rows.find(look.Text(session.row, "PRACTICE"));
    if (row == rows.end()) continue;
    const CellPlace cell{row->second, kFixedCols + static_cast<int>(session.start - first)};
    ShowRecord(grid, cell, look.ColourOf(session.row),
               TagAt(grid, cell.row, cell.col) + SessionTag(look.Text(session.row, "ID")) + "|",
               "");
  }
}

void HideEmptyRows(Grid& grid) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    bool empty = true;
    for (int col = kFixedCols; col < grid.Cols() && empty; ++col)
      empty = TagAt(grid, row, col).empty();
    grid.SetRowHidden(row, empty);
  }
}

}  // namespace

void FillPlanner(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const Ledger& ledger = records.ledger;
  const Date first = period.FirstOfMonth();
  const auto events = PackEvents(EventsBetween(ledger, first, first + period.Days() - 1));
  const int fixedRows = std::max(kFewestFixedRows, 1 + LinesOf(events));
  const Records practices(ledger.fgPractices);
  const auto count = static_cast<int>(std::distance(practices.begin(), practices.end()));
  StartView(grid, fixedRows, kFixedCols, fixedRows + count, kFixedCols + period.Days());
  int row = fixedRows;
  for (const int practice : practices) {
    grid.SetTextMatrix(row, 0, ledger.fgPractices.TextMatrix(practice, "NAME"));
    grid.SetDataOfRow(row++, ledger.fgPractices.TextMatrix(practice, "ID"));
  }
  WriteDays(ledger, period, grid);
  for (const PlacedEvent& placed : events)
    for (Date day = placed.event.start; day <= placed.event.end; ++day)
      ShowRecord(grid, {1 + placed.line, kFixedCols + static_cast<int>(day - first)},
                 placed.event.colour, EventTag(placed.event.id), placed.event.title);
  ShowSessions(records, period, grid);
  if (!period.showEmptyRows) HideEmptyRows(grid);
  for (int line = 1; line < fixedRows; ++line) grid.SetMergeRow(line, true);
  KeepApartAcross(grid, 1, fixedRows - 1);
}

}  // namespace lm
