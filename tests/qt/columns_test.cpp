// The columns of the main window's lists: their menu, their widths, and what the status bar says of
// a locked row.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include "core/options.h"
#include "core/tables.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct Columns : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;
  std::unique_ptr<MainWindow> window;
  GridView* list = nullptr;
  Grid& sessions = test.ledger.fgSessions;

  void SetUp() override {
    FillDemo(test);
    AddWindows(windows);
    screen = std::make_unique<frmMain>(test.ledger, windows);
    window = std::make_unique<MainWindow>(*screen);
    screen->ShowPage(Page::Sessions);
    window->resize(1240, 780);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QApplication::processEvents();
    list = window->CurrentList();
  }

  // Presses the entry of the header's menu whose text begins so; false when there is none.
  bool Press(const QString& entry) {
    bool pressed = false;
    QTimer::singleShot(0, window.get(), [&] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_TRUE(menu);
      for (QAction* action : menu->actions())
        if (action->text().remove('&').startsWith(entry) && action->isEnabled()) {
          pressed = true;
          action->trigger();
          break;
        }
      menu->close();
    });
    QTest::keyClick(list, Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    QApplication::processEvents();
    return pressed;
  }
};

TEST_F(Columns, TheMenuHidesFitsAndResets) {
  const int rate = sessions.ColIndex("RATE");
  EXPECT_TRUE(Press("Rate"));
  EXPECT_TRUE(list->isColumnHidden(rate));
  EXPECT_FALSE(Press("ID"));
  const int practice = sessions.ColIndex("PRACTICE");
  sessions.SetTextMatrix(sessions.FixedRows(), "NOTES", std::string(60, 'W'));
  const int notes = sessions.ColIndex("NOTES");
  const int before = list->columnWidth(notes);
  EXPECT_TRUE(Press("Fit All"));
  EXPECT_GT(list->columnWidth(notes), before);
  EXPECT_GT(sessions.ColWidth(notes), 0) << "kept with the data";
  EXPECT_TRUE(list->isColumnHidden(rate)) << "what is hidden stays so";
  sessions.SetColPosition(practice, notes);
  EXPECT_TRUE(Press("Reset"));
  EXPECT_FALSE(list->isColumnHidden(sessions.ColIndex("RATE")));
  EXPECT_EQ(sessions.ColIndex("PRACTICE"), practice);
  EXPECT_EQ(sessions.ColWidth(notes), -1);
}

TEST_F(Columns, TheLastOneTakesTheRoomThatIsLeft) {
  screen->ShowPage(Page::Expenses);
  QApplication::processEvents();
  list = window->CurrentList();
  EXPECT_EQ(list->horizontalHeader()->length(), list->viewport()->width());
  Grid& expenses = *list->Shown();
  const int notes = expenses.ColIndex("Notes");
  EXPECT_EQ(expenses.ColWidth(notes), -1) << "which is no width that the user gave";
  list->horizontalHeader()->resizeSection(expenses.ColIndex("ITEM"), 5000);
  EXPECT_GT(list->columnWidth(notes), 50) << "and keeps its own where none is left";
}

TEST_F(Columns, NoHeadingIsCutUntilTheUserSaysSo) {
  const int type = sessions.ColIndex("SESS_TYPE");
  const int forms = sessions.ColIndex("FORMS");
  const QFontMetrics metrics(list->Style().font);
  EXPECT_GE(list->columnWidth(forms), metrics.horizontalAdvance("Forms"));
  sessions.SetColWidth(type, 300);
  QApplication::processEvents();
  EXPECT_LT(list->columnWidth(type), 30);
  EXPECT_EQ(list->Style().font.family(), QApplication::font().family());
  SetOption(test.ledger, optFontName, "Courier");
  list->ReadStyle();
  EXPECT_EQ(list->Style().font.family(), "Courier");
}

TEST_F(Columns, TheStatusBarSaysWhyTheRowIsLocked) {
  const auto says = [&](const QString& text) {
    for (const QLabel* label : window->statusBar()->findChildren<QLabel*>())
      if (label->text() == text && label->isVisible()) return true;
    return false;
  };
  int row = -1;
  for (int each = 0; each < list->model()->rowCount() && row < 0; ++each)
    if (list->Model().GridRow(list->model()->index(each, 1)) >= 0) row = each;
  ASSERT_GE(row, 0) << "the demo has sessions in sight";
  const int gridRow = list->Model().GridRow(list->model()->index(row, 1));
  sessions.SetTextMatrix(gridRow, "INVOICE", "");
  sessions.SetTextMatrix(gridRow, "FORMS", "SOLO");
  sessions.Select(gridRow, sessions.ColIndex("RATE"));
  window->RefreshStatus();
  EXPECT_TRUE(says("On Form SOLO"));
  sessions.SetTextMatrix(gridRow, "FORMS", "");
  window->RefreshStatus();
  EXPECT_FALSE(says("On Form SOLO"));
}

}  // namespace
}  // namespace lm::test
