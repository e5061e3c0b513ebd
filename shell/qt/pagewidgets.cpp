#include "shell/qt/pagewidgets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/pages/mainpage.h"
#include "shell/qt/calendarwidget.h"
#include "shell/qt/filterbox.h"
#include "shell/qt/footband.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mydetailswidget.h"
#include "shell/qt/qtext.h"
#include "shell/qt/reportswidget.h"
#include "shell/qt/todaywidget.h"
#include "shell/qt/twopartrow.h"

namespace lm {
namespace {

constexpr int kSpacing = 10;

struct OwnWidget {
  Page page;
  QWidget* (*make)(const MainPage& page);
};

// The pages that are more than buttons, tabs and lists, one a line.
constexpr OwnWidget kOwnWidgets[] = {
    {Page::Calendar, MakeCalendarWidget},
    {Page::MyDetails, MakeMyDetailsWidget},
    {Page::Reports, MakeReportsWidget},
    {Page::LMToday, MakeTodayWidget},
};

template <typename Widget>
Widget* NamedAfter(const Field& field) {
  return Named<Widget>(field.Name().c_str());
}

QAbstractButton* MakeButton(const PageButton& spec, bool drops) {
  QAbstractButton* button = nullptr;
  if (drops)
    button = NamedAfter<QToolButton>(*spec.button);
  else
    button = NamedAfter<QPushButton>(*spec.button);
  button->setProperty("lineIcon", ToQt(spec.drawing));
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keys with the list
  return button;
}

QHBoxLayout* MakeButtons(const std::vector<PageButton>& specs) {
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  for (const PageButton& spec : specs) {
    const bool drops = !spec.menu.empty();
    QAbstractButton* button = MakeButton(spec, drops);
    if (!drops) {
      row->addWidget(button);
      continue;
    }
    // Narrow, and part of the button before it: its menu says more of the same.
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(1);
    pair->addItem(row->takeAt(row->count() - 1));
    pair->addWidget(button);
    row->addLayout(pair);
  }
  row->addStretch();
  return row;
}

void AddGrouping(QHBoxLayout& row, const GroupControls& controls) {
  auto* group = NamedAfter<QComboBox>(*controls.choice);
  auto* caption = new QLabel(QObject::tr("&Group by:"));
  caption->setBuddy(group);
  row.addWidget(NamedAfter<QLabel>(*controls.expand));
  row.addSpacing(6);
  row.addWidget(NamedAfter<QLabel>(*controls.collapse));
  row.addSpacing(12);
  row.addWidget(caption);
  row.addWidget(group);
}

}  // namespace

QTabBar* MakeTabs(const TabField& field) {
  auto* tabs = Named<QTabBar>(field.Name().c_str());
  tabs->setExpanding(false);
  tabs->setDrawBase(false);
  tabs->setDocumentMode(true);
  // From the start, so that the page leaves room for them when it is first shown.
  for (int i = 0; i < field.Count(); ++i) tabs->addTab(ToQt(field.TabCaption(i)));
  return tabs;
}

QAbstractButton* MakePageButton(const PageButton& spec) { return MakeButton(spec, false); }

namespace {

GridView* MakeList(const RecordList& list) {
  auto* view = Named<GridView>(list.Table().Name().c_str());
  view->setAccessibleName(ToQt(list.ShownTexts().name));
  view->ReadWhenShown();
  view->whenEmpty = [&list] { return ToQt(list.EmptyText()); };
  return view;
}

QWidget* MakeListWithFoot(const MainPage& page, const RecordList& list) {
  auto* widget = new QWidget;
  QVBoxLayout* column = MakeColumn(widget);
  column->setSpacing(0);
  GridView* view = MakeList(list);
  column->addWidget(view, 1);
  column->addWidget(new FootBand(
      *view, [&list] { return FootOf(list); }, [&page] { page.ShowAll(); }));
  return widget;
}

// Of several lists the main window shows the one in front.
QWidget* MakeLists(const MainPage& page) {
  if (page.Lists().size() == 1) return MakeListWithFoot(page, *page.Lists().front());
  auto* stack = new QStackedWidget;
  for (const auto& list : page.Lists()) stack->addWidget(MakeListWithFoot(page, *list));
  return stack;
}

FilterBox* MakeFilter(const MainPage& page, QWidget& widget) {
  auto* box = NamedAfter<FilterBox>(*page.FilterBox());
  box->setPlaceholderText(QObject::tr("Filter"));
  box->setAccessibleName(QObject::tr("Filter %1").arg(ToQt(page.Spec().caption)));
  box->setProperty("escapeClears", true);
  box->setFixedWidth(box->fontMetrics().averageCharWidth() * 28);
  QObject::connect(box, &FilterBox::entered, &widget, [&page] {
    for (const auto& list : page.Lists()) list->PrepareToNarrow();
  });
  // Also where the list stays empty, what it says changes with the words.
  QObject::connect(box, &QLineEdit::textChanged, &widget, [&widget] {
    for (GridView* list : widget.findChildren<GridView*>()) list->viewport()->update();
  });
  return box;
}

// The tabs on the left, the filter on the right; without tabs it stands beside the buttons.
void AddTabsAndFilter(const MainPage& page, QWidget& widget, QVBoxLayout& column,
                      QHBoxLayout* buttons) {
  QHBoxLayout* row = buttons;
  if (page.Tabs() || !row) {
    row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    column.addLayout(row);
  }
  if (page.Tabs()) row->addWidget(MakeTabs(*page.Tabs()), 1);
  if (page.FilterBox()) row->addWidget(MakeFilter(page, widget));
}

QWidget* MakeListPage(const MainPage& page) {
  auto* widget = new QWidget;
  QVBoxLayout* column = MakeColumn(widget);
  QHBoxLayout* top = nullptr;
  if (!page.Buttons().empty()) {
    top = MakeButtons(page.Buttons());
    if (page.Grouping().choice) {
      auto* grouping = new QHBoxLayout;
      grouping->addStretch();
      AddGrouping(*grouping, page.Grouping());
      column->addLayout(new TwoPartRow(top, grouping, kSpacing));
      top = grouping;
    } else {
      column->addLayout(top);
    }
  }
  AddTabsAndFilter(page, *widget, *column, top);
  column->addWidget(MakeLists(page), 1);
  return widget;
}

}  // namespace

QVBoxLayout* MakeColumn(QWidget* page) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kSpacing);
  return column;
}

QWidget* MakePageWidget(const MainPage& page) {
  for (const OwnWidget& own : kOwnWidgets)
    if (own.page == page.Spec().page) return own.make(page);
  return MakeListPage(page);
}

}  // namespace lm
