// The window of a chart: values told by the pointer and the keys, its places, and its pictures.
#include <gtest/gtest.h>

#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolTip>

#include "reports/chartmarks.h"
#include "reports/frmChart.h"
#include "reports/frmChartOptions.h"
#include "shell/qt/binder.h"
#include "shell/qt/chartpainting.h"
#include "shell/qt/chartwidget.h"
#include "shell/qt/gridview.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/views.h"
#include "tests/reports/chart_desk.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

struct ChartWindowTest : testing::Test {
  TestLedger test;
  ReportMatrix report = YearOfWork();
  frmChart screen{test, report, "Work Value", "A year"};
  ScreenDialog dialog{*FindView("frmChart"), screen, nullptr};
  ChartWidget& plot = *dialog.findChild<ChartWidget*>();

  void Show(ChartChoice choice) {
    screen.SetChoice(choice);
    dialog.show();
    QTest::qWait(0);
  }
  QString Spoken() const { return plot.accessibleName(); }
};

TEST_F(ChartWindowTest, ThePointerTellsTheValue) {
  Show({ChartType::Columns, ChartGroup::Date});
  QTest::mouseMove(&plot, plot.PlaceOf({1, 4}));
  EXPECT_EQ(plot.Marked(), (ChartPart{1, 4}));
  EXPECT_EQ(Spoken(), "Chart, Elm Tree Medical Centre, Aug 25: 910.00");
  EXPECT_EQ(QToolTip::text(), "Elm Tree Medical Centre\nAug 25: 910.00");
  QTest::mouseMove(&plot, QPoint(2, 2));
  EXPECT_FALSE(plot.Marked());
  EXPECT_EQ(Spoken(), "Chart");
  EXPECT_TRUE(plot.accessibleDescription().startsWith("Clustered columns, Apr 25 to Mar 26. "));
  screen.SetChoice({ChartType::Pie, ChartGroup::Practice});
  QTest::mouseMove(&plot, plot.PlaceOf({0, 1}));
  EXPECT_EQ(Spoken(), "Chart, Elm Tree Medical Centre: 4990.00 (19%)");
  EXPECT_TRUE(plot.accessibleDescription().startsWith("Pie. ")) << "it follows the chart";
}

TEST_F(ChartWindowTest, TheKeysGoFromValueToValue) {
  Show({ChartType::Lines, ChartGroup::Date});
  EXPECT_TRUE(plot.hasFocus() || dialog.focusWidget() == &plot);
  const std::pair<Qt::Key, ChartPart> kSteps[] = {
      {Qt::Key_Right, {0, 0}}, {Qt::Key_Right, {0, 1}},  {Qt::Key_Up, {1, 1}},
      {Qt::Key_End, {1, 11}},  {Qt::Key_Right, {1, 11}}, {Qt::Key_Left, {1, 10}},
      {Qt::Key_Down, {0, 10}}, {Qt::Key_Down, {0, 10}},  {Qt::Key_Home, {0, 0}}};
  for (const auto& [key, part] : kSteps) {
    QTest::keyClick(&plot, key);
    EXPECT_EQ(plot.Marked(), part) << key;
  }
  EXPECT_EQ(Spoken(), "Chart, Riverside Surgery, Apr 25: 1250.00");
  QTest::keyClick(&plot, Qt::Key_Escape);
  EXPECT_TRUE(screen.Closed());
}

TEST_F(ChartWindowTest, PlacesFollowTheWindow) {
  Show({ChartType::Stacked, ChartGroup::Date});
  const auto at = [&](const char* name) {
    const auto* widget = dialog.findChild<QWidget*>(name);
    return QRect(widget->mapTo(&dialog, QPoint()), widget->size());
  };
  for (const QSize size : {QSize(700, 500), QSize(1240, 740)}) {
    dialog.resize(size);
    QTest::qWait(0);
    const int dpi = 96;
    EXPECT_EQ(at("lblSubTitle").top() - at("lblMainTitle").bottom() - 1, TwipsToPixels(220, dpi));
    EXPECT_EQ(at("lblLegend").top() - at("plotChart").top(), TwipsToPixels(100, dpi));
    EXPECT_EQ(at("plotChart").bottom() - at("fgLegend").bottom(), TwipsToPixels(100, dpi));
    EXPECT_EQ(at("fgLegend").left() - at("plotChart").right() - 1,
              TwipsToPixels(50, dpi) + TwipsToPixels(100, dpi));
    EXPECT_GT(at("plotChart").width(), size.width() / 2);
  }
}

TEST_F(ChartWindowTest, OptionsShowWhatIsChosen) {
  test.shown.modal.push_back([&](Screen& options) {
    ScreenDialog window(*FindView("frmChartOptions"), options, nullptr);
    window.show();
    auto* types = window.findChild<QListWidget*>("picChartType");
    ASSERT_EQ(types->count(), kChartTypes);
    for (int row = 0; row < types->count(); ++row) EXPECT_FALSE(types->item(row)->icon().isNull());
    QTest::mouseClick(types->viewport(), Qt::LeftButton, {},
                      types->visualItemRect(types->item(4)).center());
    EXPECT_EQ(screen.Shown().choice.type, ChartType::Areas);
    auto* byDate = window.findChild<QRadioButton*>("picByDate");
    byDate->click();
    EXPECT_EQ(screen.Shown().choice.group, ChartGroup::Date);
    window.findChild<QRadioButton*>("picByPractice")->click();
    EXPECT_FALSE(byDate->isChecked());
    QTest::keyClick(types, Qt::Key_Right);
    EXPECT_EQ(screen.Shown().choice, (ChartChoice{ChartType::Pie, ChartGroup::Practice}));
  });
  dialog.findChild<QPushButton*>("cmdChartOptions")->click();
}

TEST_F(ChartWindowTest, PngHasTheColoursOnWhitePaper) {
  Show({ChartType::Stacked, ChartGroup::Date});
  const std::string bytes = ChartPng(screen.Shown(), screen.Titles());
  const QImage picture = QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
  ASSERT_EQ(picture.size(), QSize(1684, 1190));
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
  std::vector<int> found(4);
  for (int y = 0; y < picture.height(); y += 2)
    for (int x = 0; x < picture.width(); x += 2)
      for (int i = 0; i < 4; ++i)
        found[static_cast<std::size_t>(i)] +=
            picture.pixelColor(x, y) == ToQColor(ChartColour(screen.Shown(), i));
  for (const int count : found) EXPECT_GT(count, 500);
}

}  // namespace
}  // namespace lm::test
