// The My Details page as widgets.
#pragma once

class QWidget;

namespace lm {

class MainPage;

QWidget* MakeMyDetailsWidget(const MainPage& page);

}  // namespace lm
