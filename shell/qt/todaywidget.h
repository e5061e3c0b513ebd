// The LM Today page as widgets: the day, three lists side by side, or the first steps.
#pragma once

class QWidget;

namespace lm {

class MainPage;

QWidget* MakeTodayWidget(const MainPage& page);

}  // namespace lm
