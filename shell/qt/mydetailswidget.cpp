#include "shell/qt/mydetailswidget.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>
#include <vector>

#include "shell/pages/mydetails.h"
#include "shell/qt/pagewidgets.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

// The fields of one tab in two columns, the first half in the left one.
QWidget* MakeTab(MyDetailsTab tab) {
  std::vector<const MyDetailSpec*> fields;
  for (const MyDetailSpec& spec : kMyDetailSpecs)
    if (spec.tab == tab) fields.push_back(&spec);
  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(20, 20, 20, 20);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(12);
  grid->setColumnMinimumWidth(2, 28);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(4, 1);
  const auto half = static_cast<int>(fields.size() + 1) / 2;
  // Column by column, so that the Tab key goes that way too.
  for (int i = 0; i < static_cast<int>(fields.size()); ++i) {
    const MyDetailSpec& spec = *fields[static_cast<std::size_t>(i)];
    auto* box = new QLineEdit;
    box->setObjectName(ToQt(MyDetailBox(spec)));
    auto* caption = new QLabel(ToQt(spec.caption));
    caption->setBuddy(box);
    const int column = i < half ? 0 : 3;
    grid->addWidget(caption, i % half, column);
    grid->addWidget(box, i % half, column + 1);
  }
  grid->setRowStretch(half, 1);
  return page;
}

}  // namespace

QWidget* MakeMyDetailsWidget(const MainPage&) {
  auto* page = new QWidget;
  QVBoxLayout* column = MakeColumn(page);
  auto* name = Named<QLabel>("lblMyName");
  QFont bold = name->font();
  bold.setBold(true);
  name->setFont(bold);
  column->addWidget(name);
  auto* tabs = Named<QTabWidget>("tabMyDetails");
  for (std::size_t i = 0; i < kMyDetailsTabs.size(); ++i)
    tabs->addTab(MakeTab(static_cast<MyDetailsTab>(i)), ToQt(kMyDetailsTabs[i]));
  column->addWidget(tabs, 1);
  auto* hint = Named<QLabel>("lblMyDetailsHint");
  hint->setWordWrap(true);
  column->addWidget(hint);
  const auto showFirstBox = [page, tabs] {
    page->setFocusProxy(tabs->currentWidget()->findChild<QLineEdit*>());
  };
  QObject::connect(tabs, &QTabWidget::currentChanged, page, showFirstBox);
  showFirstBox();
  return page;
}

}  // namespace lm
