// The Calendar page on the screen: period and buttons, tabs, the view in front, the legend of its
// colours, and the tooltip that floats over it.
#pragma once

#include "calendar/calendar.h"

class QWidget;

namespace lm {

class CalendarPage;
class MainPage;

QWidget* MakeCalendarWidget(const MainPage& page);
// One view with its headings; its two parts are CalendarGrids, bound to nothing yet.
QWidget* MakeCalendarView(const CalendarPage& page, CalendarView view, const Grid& grid);

}  // namespace lm
