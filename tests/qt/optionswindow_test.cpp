// The options window, as it is used.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "documents/shippedtemplates.h"
#include "shell/frmConfigure.h"
#include "shell/frmMain.h"
#include "shell/qt/gridview.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct OptionsView : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> main;
  std::unique_ptr<frmConfigure> screen;
  std::unique_ptr<ScreenDialog> dialog;

  OptionsView() {
    FillDemo(test);
    PlaceShippedTemplates(test);
    AddWindows(windows);
    main = std::make_unique<frmMain>(test, windows);
    screen = std::make_unique<frmConfigure>(*main);
    dialog = std::make_unique<ScreenDialog>(*FindView("frmConfigure"), *screen, nullptr);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  template <typename Widget>
  Widget& Find(const char* name) {
    return *dialog->findChild<Widget*>(name);
  }
  void Point(GridView& list, int row, int col) {
    const QModelIndex cell = list.model()->index(row, col);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(cell).center());
    QApplication::processEvents();
  }
};

TEST_F(OptionsView, ARefusedTextKeepsItsFrameAndTabInFront) {
  auto& chooser = Find<GridView>("fgChooser");
  Point(chooser, 5, 2);
  ASSERT_TRUE(Find<QWidget>("framePension").isVisible());
  EXPECT_FALSE(Find<QWidget>("frameGeneral").isVisible());
  auto& avc = Find<QLineEdit>("txtDefaultAVC");
  avc.setFocus();
  avc.selectAll();
  QTest::keyClicks(&avc, "150%");
  Point(chooser, 1, 2);
  EXPECT_TRUE(Find<QWidget>("framePension").isVisible());
  EXPECT_EQ(dialog->focusWidget(), &avc);
  Find<QTabWidget>("tabPension").setCurrentIndex(1);
  EXPECT_EQ(Find<QTabWidget>("tabPension").currentIndex(), 0);
  avc.selectAll();
  QTest::keyClicks(&avc, "15%");
  Point(chooser, 1, 2);
  EXPECT_TRUE(Find<QWidget>("frameFormatting").isVisible());
}

TEST_F(OptionsView, AltAndArrowsStepTheTabsInSight) {
  QTest::keyClick(dialog.get(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Find<QTabWidget>("tabGeneral").currentIndex(), 1);
  auto& chooser = Find<GridView>("fgChooser");
  chooser.setFocus();
  QTest::keyClick(&chooser, Qt::Key_Down);
  ASSERT_TRUE(Find<QWidget>("frameFormatting").isVisible());
  QTest::keyClick(dialog.get(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Find<QTabWidget>("tabFormat").currentIndex(), 1);
  EXPECT_EQ(Find<QTabWidget>("tabGeneral").currentIndex(), 1);
}

TEST_F(OptionsView, TheExampleFollowsTheKeys) {
  auto& prefix = Find<QLineEdit>("txtInvoicePrefix");
  prefix.setFocus();
  prefix.selectAll();
  QTest::keyClicks(&prefix, "A");
  EXPECT_EQ(Find<QLabel>("lblExampleInvoice").text(), "A00123");
  QTest::keyClicks(&prefix, "/");
  EXPECT_EQ(Find<QLabel>("lblExampleInvoice").text(), "A/00123");
}

TEST_F(OptionsView, ColoursAreChosenByMouseAndSpace) {
  test.shown.colour = 255;
  Point(Find<GridView>("fgChooser"), 1, 2);
  auto& colours = Find<GridView>("fgColours_Grids");
  Point(colours, 0, 2);
  EXPECT_EQ(screen->fgColours_Grids.Text(optColourBackground), "255");
  test.shown.colour = 256;
  QTest::keyClick(&colours, Qt::Key_Space);
  EXPECT_EQ(screen->fgColours_Grids.Text(optColourBackground), "256");
  test.shown.colour = 65535;
  Find<QPushButton>("picFontColor").click();
  EXPECT_EQ(screen->options.Text(optFontColour), "65535");
  QApplication::processEvents();
  EXPECT_EQ(Find<GridView>("fgSample").Style().base, QColor(0, 1, 0));
  EXPECT_EQ(Find<GridView>("fgSample").Style().text, QColor(255, 255, 0));
  EXPECT_NE(colours.Style().base, QColor(0, 1, 0));
}

TEST_F(OptionsView, TemplatesAreAList) {
  auto& list = Find<QListWidget>("lstTemplates");
  ASSERT_EQ(list.count(), 5);
  EXPECT_EQ(list.currentItem()->text().toStdString(), screen->options.Text(optInvoiceTemplate));
  list.setCurrentRow(0);
  EXPECT_EQ(screen->options.Text(optInvoiceTemplate), "Classic.tmpl");
}

}  // namespace
}  // namespace lm::test
