#include "shell/qt/reportswidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/pages/reportspage.h"
#include "shell/qt/gridview.h"
#include "shell/qt/pagewidgets.h"
#include "shell/qt/qtext.h"
#include "shell/qt/twopartrow.h"

namespace lm {
namespace {

constexpr int kGap = 14;  // pixels between one choice and the next
constexpr int kDateBox = 104;

class Line : public QHBoxLayout {
 public:
  Line() {
    setSpacing(6);
    setContentsMargins(0, 0, 0, 0);
  }
  // A widget with its caption in front.
  template <typename Widget>
  Widget* Add(const Field& field, const QString& caption) {
    auto* widget = Named<Widget>(field.Name().c_str());
    if (!caption.isEmpty()) {
      auto* label = new QLabel(caption);
      label->setBuddy(widget);
      addWidget(label);
    }
    addWidget(widget);
    return widget;
  }
  void AddButton(const ReportsPage& page, const Button& button) {
    for (const PageButton& each : page.Buttons())
      if (each.button == &button) addWidget(MakePageButton(each));
  }
  QWidget* Whole() {
    auto* widget = new QWidget;
    widget->setLayout(this);
    return widget;
  }
};

void AddDate(Line& line, const TextField& field, const Button& picker, const QString& caption,
             const QString& picks) {
  auto* box = line.Add<QLineEdit>(field, caption);
  box->setFixedWidth(kDateBox);
  auto* button = line.Add<QToolButton>(picker, {});
  button->setProperty("lineIcon", "calendar");
  button->setProperty("pickerOf", box->objectName());
  button->setAccessibleName(picks);
  button->setToolTip(QObject::tr("%1 (Alt+Down)").arg(picks));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  line.addSpacing(kGap);
}

QWidget* MakePeriod(const ReportsPage& page) {
  auto* line = new Line;
  line->Add<QComboBox>(page.cboReportPeriod, QObject::tr("Period:"));
  line->addSpacing(kGap);
  AddDate(*line, page.txtReport_SDate, page.cmdReport_SDate, QObject::tr("From:"),
          QObject::tr("Choose the start date"));
  AddDate(*line, page.txtReport_EDate, page.cmdReport_EDate, QObject::tr("To:"),
          QObject::tr("Choose the end date"));
  line->addStretch();
  return line->Whole();
}

QWidget* MakeStandardChoices(const ReportsPage& page) {
  auto* line = new Line;
  auto* report = line->Add<QComboBox>(page.cboReport, QObject::tr("Report:"));
  report->setMaxVisibleItems(40);
  report->setMinimumContentsLength(26);
  report->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  report->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  report->setMaximumWidth(420);
  line->Add<QComboBox>(page.cboReportGroup, {})->setAccessibleName(QObject::tr("Group by"));
  line->AddButton(page, page.cmdRefreshReport);
  line->addStretch();
  auto* shown = new Line;
  shown->Add<QCheckBox>(page.chkHideEmptyRows, {})->setText(QObject::tr("Hide empty rows"));
  shown->Add<QCheckBox>(page.chkHideEmptyCols, {})->setText(QObject::tr("Hide empty colum&ns"));
  shown->addStretch();
  shown->AddButton(page, page.cmdChart);
  auto* widget = new QWidget;
  widget->setLayout(new TwoPartRow(line, shown, kGap));
  return widget;
}

QWidget* MakeGroupingChoices(const ReportsPage& page) {
  auto* line = new Line;
  line->Add<QComboBox>(page.cboGroupingReport, QObject::tr("Re&cords:"));
  line->addSpacing(kGap);
  line->Add<QComboBox>(page.cboGroupingReportCalculation, QObject::tr("Calc&ulation:"));
  line->addSpacing(kGap);
  line->Add<QComboBox>(page.cboGroupingLevels, QObject::tr("Levels:"));
  line->addSpacing(kGap);
  line->AddButton(page, page.cmdRefreshGroupingReport);
  line->addStretch();
  return line->Whole();
}

QWidget* MakeTaxChoices(const ReportsPage& page) {
  auto* line = new Line;
  line->addWidget(new QLabel(QObject::tr("Tax year:")));
  line->AddButton(page, page.cmdTaxYear_Previous);
  auto* year = line->Add<QLabel>(page.lblTaxYear, {});
  QFont bold = year->font();
  bold.setBold(true);
  year->setFont(bold);
  year->setAlignment(Qt::AlignCenter);
  year->setMinimumWidth(QFontMetrics(bold).horizontalAdvance("0000 - 0000") + 12);
  line->AddButton(page, page.cmdTaxYear_Next);
  line->addSpacing(kGap);
  line->AddButton(page, page.cmdRefreshTaxReport);
  line->addStretch();
  return line->Whole();
}

GridView* MakeReport(const Grid& grid, const QString& name, const QString& whenEmpty) {
  auto* view = Named<GridView>(grid.Name().c_str());
  view->setAccessibleName(name);
  view->setProperty("emptyText", whenEmpty);
  return view;
}

QWidget* MakeTab(QWidget* choices, GridView* report) {
  auto* tab = new QWidget;
  QVBoxLayout* column = MakeColumn(tab);
  column->addWidget(choices);
  column->addWidget(report, 1);
  return tab;
}

}  // namespace

QWidget* MakeReportsWidget(const MainPage& mainPage) {
  const auto& page = static_cast<const ReportsPage&>(mainPage);
  auto* widget = new QWidget;
  QVBoxLayout* column = MakeColumn(widget);
  auto* top = new QHBoxLayout;
  QTabBar* tabs = MakeTabs(page.tabReport);
  top->addWidget(tabs);
  top->addStretch();
  top->addWidget(Named<QLabel>("imgReportHelp"));
  column->addLayout(top);
  QWidget* period = MakePeriod(page);
  column->addWidget(period);
  auto* stack = new QStackedWidget;
  stack->addWidget(
      MakeTab(MakeStandardChoices(page),
              MakeReport(page.fgReports, QObject::tr("Standard report"),
                         QObject::tr("Choose a period and a report, then click Refresh."))));
  stack->addWidget(
      MakeTab(MakeGroupingChoices(page),
              MakeReport(page.fgGroupingReport, QObject::tr("Grouping report"),
                         QObject::tr("Choose a period, then click Refresh. Drag a column's heading "
                                     "to the left to group by it."))));
  GridView* tax = MakeReport(page.fgTaxReport, QObject::tr("Tax report"),
                             QObject::tr("Choose a tax year, then click Refresh."));
  tax->setProperty("sections", true);
  tax->setProperty("wrappedColumn", "ITEM");
  stack->addWidget(MakeTab(MakeTaxChoices(page), tax));
  column->addWidget(stack, 1);
  // The tax report has a year of its own.
  const auto showPeriod = [period](int tab) { period->setVisible(tab < 2); };
  QObject::connect(stack, &QStackedWidget::currentChanged, period, showPeriod);
  return widget;
}

}  // namespace lm
