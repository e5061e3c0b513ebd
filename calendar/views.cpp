#include "calendar/views.h"

#include <iterator>

#include "calendar/timeslots.h"
#include "core/format.h"
#include "core/numbers.h"

namespace lm {
namespace {

using Fill = void (*)(const CalendarRecords&, const CalendarPeriod&, Grid&);
constexpr Fill kFills[] = {FillWeek, FillDetail, FillMonth, FillPlanner, FillYear};

constexpr int kDaysOfWeek = 7;
constexpr int kWeeksOfMonth = 6;
constexpr int kRowsOfYearsMonth = 3;

bool IsDataCell(const Grid& grid, CellPlace cell) {
  return cell.row >= grid.FixedRows() && cell.row < grid.Rows() && cell.col >= grid.FixedCols() &&
         cell.col < grid.Cols();
}

std::optional<Date> DayOfYear(const CalendarPeriod& period, const Grid& grid, CellPlace cell) {
  const int row = cell.row - grid.FixedRows();
  const Date first = DateSerial(period.year, row / kRowsOfYearsMonth + 1, 1);
  const int day = cell.col - grid.FixedCols() - (WeekdayMondayFirst(first) - 1) + 1;
  if (day < 1 || day > ToCivilDate(LastOfMonth(first)).day) return std::nullopt;
  return first + day - 1;
}

}  // namespace

void FillCalendar(CalendarView view, const CalendarRecords& records, const CalendarPeriod& period,
                  Grid& grid) {
  const RedrawOff redrawOff(grid);
  const CellPlace cursor{grid.Row() - grid.FixedRows(), grid.Col()};
  kFills[static_cast<std::size_t>(view)](records, period, grid);
  const CellPlace now{cursor.row + grid.FixedRows(), cursor.col};
  if (cursor.row >= 0 && IsDataCell(grid, now)) grid.Select(now.row, now.col);
}

// The lines of events in the headings of Week and Planner belong to the days below them.
std::optional<Date> DayOfCell(CalendarView view, const CalendarPeriod& period, const Grid& grid,
                              CellPlace cell) {
  const bool eventLines = view == CalendarView::Week || view == CalendarView::Planner;
  const int firstRow = eventLines ? 1 : grid.FixedRows();
  if (cell.row < firstRow || cell.row >= grid.Rows() || cell.col < grid.FixedCols() ||
      cell.col >= grid.Cols())
    return std::nullopt;
  const int row = cell.row - grid.FixedRows(), col = cell.col - grid.FixedCols();
  switch (view) {
    case CalendarView::Week:
      return period.weekStart + col;
    case CalendarView::Detail:
      return CellDate(grid.DataOfRow(cell.row));
    case CalendarView::Month: {
      const int rowsPerDay = (grid.Rows() - grid.FixedRows()) / kWeeksOfMonth;
      return period.FirstCell() + row / rowsPerDay * kDaysOfWeek + col;
    }
    case CalendarView::Planner:
      return CellDate(grid.Cell(CellSetting::flexcpData, 0, cell.col));
    case CalendarView::Year:
      return DayOfYear(period, grid, cell);
  }
  return std::nullopt;
}

CellPlace CellOfDay(CalendarView view, const CalendarPeriod& period, const Grid& grid, Date day) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    for (int col = grid.FixedCols(); col < grid.Cols(); ++col) {
      const CellPlace cell{row, col};
      const std::string time = TimeOfCell(view, grid, cell);
      if ((time.empty() || time == "09:00") && DayOfCell(view, period, grid, cell) == day)
        return cell;
    }
  return {};
}

std::string TimeOfCell(CalendarView view, const Grid& grid, CellPlace cell) {
  if (!IsDataCell(grid, cell)) return "";
  if (view == CalendarView::Week)
    return TimeSlots((grid.Rows() - grid.FixedRows()) / kHoursOfDay)
        .TimeOf(cell.row - grid.FixedRows());
  if (view == CalendarView::Detail)
    return TimeSlots((grid.Cols() - grid.FixedCols()) / kHoursOfDay)
        .TimeOf(cell.col - grid.FixedCols());
  return "";
}

std::string PracticeOfCell(CalendarView view, const Grid& grid, CellPlace cell) {
  return view == CalendarView::Planner && IsDataCell(grid, cell) ? grid.DataOfRow(cell.row) : "";
}

std::string PeriodLabel(CalendarView view, const CalendarPeriod& period) {
  switch (view) {
    case CalendarView::Week:
      return FormatDate(period.weekStart, "mmmm yyyy");
    case CalendarView::Year:
      return Format(period.year, "0000");
    default:
      return FormatDate(period.FirstOfMonth(), "mmmm yyyy");
  }
}

}  // namespace lm
