// The filter boxes and Find as they are used by the keys.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "core/shortcuts.h"
#include "shell/frmFind.h"
#include "shell/pages/mainpage.h"
#include "shell/qt/binder.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct Desk : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;

  Desk() {
    SetDefaultShortcuts(test.ledger);
    FillDemo(test);
    AddWindows(windows);
    screen = std::make_unique<frmMain>(test.ledger, windows);
  }
};

TEST_F(Desk, AFilterNarrowsItsListByTheKeys) {
  MainWindow window(*screen);
  screen->ShowPage(Page::Practices);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto* box = window.findChild<QLineEdit*>("txtFilterPractices");
  const auto rows = [&] {
    QApplication::processEvents();
    return window.CurrentList()->model()->rowCount();
  };
  const int all = rows();
  QTest::keyClick(window.CurrentList(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(box->hasFocus());
  QTest::keyClicks(box, "riverside");
  EXPECT_EQ(rows(), 1);
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_TRUE(window.CurrentList()->hasFocus());
  EXPECT_TRUE(window.CurrentList()->currentIndex().isValid());
  EXPECT_EQ(rows(), 1) << "left with the words in it";
  box->setFocus();
  QTest::keyClicks(box, "zzz");
  EXPECT_EQ(rows(), 0);
  EXPECT_EQ(window.CurrentList()->whenEmpty(),
            "No practice matches \"riversidezzz\". Escape clears the filter.");
  QTest::keyClick(box, Qt::Key_Escape);
  EXPECT_EQ(box->text(), "");
  EXPECT_EQ(rows(), all);
}

TEST_F(Desk, EveryListPageHasAFilterAboveIt) {
  MainWindow window(*screen);
  for (const auto& page : screen->Pages()) {
    const bool lists = !page->Lists().empty();
    EXPECT_EQ(page->FilterBox() != nullptr, lists) << page->Spec().caption;
    if (!lists) continue;
    screen->ShowPage(page->Spec().page);
    window.resize(1240, 780);
    window.show();
    QApplication::processEvents();
    auto* box = window.findChild<QLineEdit*>(page->FilterBox()->Name().c_str());
    ASSERT_TRUE(box) << page->Spec().caption;
    EXPECT_TRUE(box->isVisible());
    EXPECT_LT(box->mapTo(&window, box->rect().bottomLeft()).y(),
              window.CurrentList()->mapTo(&window, QPoint()).y());
  }
}

TEST_F(Desk, FindGoesFromTheBoxToTheRecord) {
  frmFind find(*screen);
  ScreenDialog dialog(*FindView("frmFind"), find, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* box = dialog.findChild<QLineEdit*>("txtFind");
  auto* results = dialog.findChild<GridView*>("fgResults");
  EXPECT_TRUE(box->hasFocus());
  QTest::keyClicks(box, "riverside");
  QApplication::processEvents();
  EXPECT_GT(results->model()->rowCount(), 2);
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_TRUE(results->hasFocus());
  QTest::keyClick(results, Qt::Key_Return);
  EXPECT_TRUE(find.Closed());
  EXPECT_EQ(screen->lastSearch, "riverside");

  frmFind again(*screen);
  ScreenDialog second(*FindView("frmFind"), again, nullptr);
  second.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&second));
  box = second.findChild<QLineEdit*>("txtFind");
  EXPECT_EQ(box->selectedText(), "riverside");
  QTest::keyClick(box, Qt::Key_Escape);
  EXPECT_TRUE(again.Closed());
}

}  // namespace
}  // namespace lm::test
