// The five views, each a function from the tables, the options and the period to a grid.
#pragma once

#include <optional>
#include <string>

#include "calendar/calendar.h"

namespace lm {

void FillWeek(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid);
void FillDetail(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid);
void FillMonth(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid);
void FillPlanner(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid);
void FillYear(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid);
// Whichever the view is; the cursor stays where it was.
void FillCalendar(CalendarView view, const CalendarRecords& records, const CalendarPeriod& period,
                  Grid& grid);

// The day that a cell stands for; nothing for headings and cells without one.
std::optional<Date> DayOfCell(CalendarView view, const CalendarPeriod& period, const Grid& grid,
                              CellPlace cell);
// Where work on a day begins: its first cell, in Week and Detail that of 09:00; {-1, -1} for a day
// that is not in sight.
CellPlace CellOfDay(CalendarView view, const CalendarPeriod& period, const Grid& grid, Date day);
// The time at which a cell of Week or Detail begins, hh:nn; "" in the other views.
std::string TimeOfCell(CalendarView view, const Grid& grid, CellPlace cell);
// The practice of a row of Planner, by its ID; "" in the other views.
std::string PracticeOfCell(CalendarView view, const Grid& grid, CellPlace cell);

// The heading above the view: "February 2026", "2026".
std::string PeriodLabel(CalendarView view, const CalendarPeriod& period);

}  // namespace lm
