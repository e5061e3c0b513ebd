// The pages of the main window as widgets, named after the screen's fields and tables.
#pragma once

class QAbstractButton;
class QTabBar;
class QVBoxLayout;
class QWidget;

namespace lm {

class MainPage;
struct PageButton;
class TabField;

// What a page shows is built from its own description; one that needs other widgets has a maker of
// its own.
QWidget* MakePageWidget(const MainPage& page);

// For makers of a page's own widgets.
template <typename Widget>
Widget* Named(const char* name) {
  auto* widget = new Widget;
  widget->setObjectName(name);
  return widget;
}
QVBoxLayout* MakeColumn(QWidget* page);
QTabBar* MakeTabs(const TabField& field);
QAbstractButton* MakePageButton(const PageButton& spec);

}  // namespace lm
