// The Reports page on the screen: a line of choices for each report, and the report below it.
#pragma once

class QWidget;

namespace lm {

class MainPage;

QWidget* MakeReportsWidget(const MainPage& page);

}  // namespace lm
