#include "shell/qt/todaywidget.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

#include "shell/pages/todaypage.h"
#include "shell/qt/pagewidgets.h"
#include "shell/qt/qtext.h"
#include "shell/qt/todaygrid.h"

namespace lm {
namespace {

constexpr int kGap = 12;          // pixels between the lists
constexpr int kStepsWidth = 620;  // at most

// Takes the keys of the page while it is what the page shows.
class Part : public QFrame {
 public:
  Part(QWidget* page, const char* name, const QString& spoken) : page_(page) {
    setObjectName(name);
    setAccessibleName(spoken);
    setFrameShape(QFrame::NoFrame);
  }
  void SetFirst(QWidget* first) { first_ = first; }

 protected:
  void showEvent(QShowEvent* event) override {
    QFrame::showEvent(event);
    page_->setFocusProxy(first_);
  }

 private:
  QWidget* page_;
  QWidget* first_ = nullptr;
};

QLabel* MakeTitle(const QString& text) {
  auto* title = new QLabel(text);
  QFont font = title->font();
  font.setBold(true);
  title->setFont(font);
  title->setContentsMargins(10, 7, 10, 7);
  title->setAutoFillBackground(true);
  title->setBackgroundRole(QPalette::Button);
  return title;
}

TodayGrid* AddList(QHBoxLayout& across, const TodayList& list, const Grid& grid) {
  auto* frame = new QFrame;
  frame->setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(MakeTitle(ToQt(list.title)));
  auto* view = new TodayGrid(list);
  view->setObjectName(ToQt(grid.Name()));
  view->setAccessibleName(ToQt(list.title));
  view->setProperty("emptyText", QObject::tr("Nothing is chosen to be shown here."));
  column->addWidget(view, 1);
  across.addWidget(frame, 1);
  return view;
}

Part* MakeLists(const TodayPage& page, QWidget* widget) {
  auto* part = new Part(widget, "picLMToday", ToQt(page.tabLMToday.TabCaption(0)));
  auto* across = new QHBoxLayout(part);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(kGap);
  TodayGrid* schedule = AddList(*across, kTodaySchedule, page.fgUpcoming);
  TodayGrid* status = AddList(*across, kTodayStatus, page.fgLMTodayStatus);
  TodayGrid* finance = AddList(*across, kTodayFinance, page.fgFinance);
  QWidget::setTabOrder(schedule, status);
  QWidget::setTabOrder(status, finance);
  part->SetFirst(schedule);
  return part;
}

Part* MakeSteps(const TodayPage& page, QWidget* widget) {
  auto* part = new Part(widget, "picLMTodaySteps", QObject::tr("The first steps"));
  auto* steps = new QGridLayout;
  steps->setHorizontalSpacing(18);
  steps->setVerticalSpacing(18);
  steps->setColumnStretch(1, 1);
  auto* title = new QLabel(QObject::tr("The first steps"));
  QFont large = title->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.3);
  title->setFont(large);
  steps->addWidget(title, 0, 0, 1, 3);
  auto* about = new QLabel(
      QObject::tr("From the first session on, this page shows what is coming, what is left to do "
                  "and what comes in and goes out."));
  about->setWordWrap(true);
  steps->addWidget(about, 1, 0, 1, 3);
  const LabelField* const texts[] = {&page.lblLMTodayPractices, &page.lblLMTodayMyDetails,
                                     &page.lblLMTodaySessions, &page.lblLMTodayInvoices};
  QWidget* first = nullptr;
  int row = 2;
  for (const LabelField* text : texts) {
    const PageButton& spec = page.Buttons()[static_cast<std::size_t>(row - 2)];
    auto* number = new QLabel(QString::number(row - 1));
    number->setFont(large);
    auto* label = Named<QLabel>(text->Name().c_str());
    label->setWordWrap(true);
    QAbstractButton* button = MakePageButton(spec);
    button->setMinimumWidth(170);
    if (!first) first = button;
    steps->addWidget(number, row, 0, Qt::AlignTop);
    steps->addWidget(label, row, 1);
    steps->addWidget(button, row, 2, Qt::AlignVCenter);
    ++row;
  }
  auto* inner = new QWidget;
  inner->setLayout(steps);
  inner->setMaximumWidth(kStepsWidth);
  auto* middle = new QHBoxLayout;
  middle->addStretch(1);
  middle->addWidget(inner, 100);
  middle->addStretch(1);
  auto* column = new QVBoxLayout(part);
  column->addStretch(2);
  column->addLayout(middle);
  column->addStretch(3);
  part->SetFirst(first);
  return part;
}

}  // namespace

QWidget* MakeTodayWidget(const MainPage& mainPage) {
  const auto& page = static_cast<const TodayPage&>(mainPage);
  auto* widget = new QWidget;
  QVBoxLayout* column = MakeColumn(widget);
  auto* top = new QHBoxLayout;
  top->setSpacing(18);
  QTabBar* tabs = MakeTabs(page.tabLMToday);
  tabs->setFocusPolicy(Qt::NoFocus);  // there is but one
  top->addWidget(tabs);
  top->addStretch();
  top->addWidget(Named<QLabel>("lblLMTodayDate"));
  auto* help = Named<QLabel>("imgLMTodayHelp");
  help->setFocusPolicy(Qt::TabFocus);  // or it has no place among the stops of the Tab key
  top->addWidget(help);
  column->addLayout(top);
  Part* lists = MakeLists(page, widget);
  Part* steps = MakeSteps(page, widget);
  column->addWidget(lists, 1);
  column->addWidget(steps, 1);
  QWidget::setTabOrder(lists->findChildren<TodayGrid*>().back(), help);
  return widget;
}

}  // namespace lm
