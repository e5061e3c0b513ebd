// The Calendar page on the screen: period and buttons, tabs, the view in front, the legend of its
// colours, and the tooltip that floats over it.
#pragma once

class QWidget;

namespace lm {

class MainPage;

QWidget* MakeCalendarWidget(const MainPage& page);

}  // namespace lm
