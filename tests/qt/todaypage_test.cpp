// LM Today on the screen: folding by mouse and keys, the way of the Tab key, what has no room.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "core/options.h"
#include "shell/frmMain.h"
#include "shell/pages/todaypage.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/todaygrid.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct TodayScreen : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;
  std::unique_ptr<MainWindow> window;
  TodayPage* page = nullptr;

  void Open(bool demo = true) {
    if (demo) FillDemo(test);
    AddWindows(windows);
    test.shown.catalogue = &windows;
    screen = std::make_unique<frmMain>(test, windows);
    window = std::make_unique<MainWindow>(*screen);
    window->resize(1240, 780);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    page = &screen->PageOf<TodayPage>();
    screen->ShowPage(Page::LMToday);
    QApplication::processEvents();
  }
  TodayGrid& View(const Grid& grid) {
    return *window->findChild<TodayGrid*>(QString::fromStdString(grid.Name()));
  }
  static QPoint Middle(const TodayGrid& view, int gridRow, int col) {
    return view.visualRect(view.model()->index(view.Model().ModelRow(gridRow), col)).center();
  }
};

TEST_F(TodayScreen, HeadingsFoldByMouseAndKeys) {
  Open();
  Grid& grid = page->fgLMTodayStatus;
  TodayGrid& view = View(grid);
  const int heading = grid.FixedRows(), record = heading + 1;
  for (const int col : {0, 3}) {
    for (const bool open : {false, true}) {
      QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Middle(view, heading, col));
      QApplication::processEvents();
      EXPECT_EQ(grid.RowVisible(record), open) << col;
    }
  }
  view.setFocus();
  grid.Select(record, 0);
  const struct {
    Qt::Key key;
    bool open;
  } kKeys[] = {{Qt::Key_Left, true},  // to the heading
               {Qt::Key_Left, false}, {Qt::Key_Right, true},  {Qt::Key_Space, false},
               {Qt::Key_Space, true}, {Qt::Key_Return, false}};
  for (const auto& [key, open] : kKeys) {
    QTest::keyClick(&view, key);
    QApplication::processEvents();
    EXPECT_EQ(grid.Row(), heading) << key;
    EXPECT_EQ(grid.RowVisible(record), open) << key;
  }
  EXPECT_EQ(grid.ColWidth(0), 1800) << "the view fits its columns and leaves those of the list";
}

TEST_F(TodayScreen, EnterAndDoubleClickOpen) {
  Open();
  Grid& grid = page->fgLMTodayStatus;
  TodayGrid& view = View(grid);
  const int record = grid.FixedRows() + 1;
  const std::string tag = grid.Cell(CellSetting::flexcpData, record, 0);
  const std::vector<std::string> opened{"frmSession " + tag.substr(1)};
  view.setFocus();
  grid.Select(record, 0);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_EQ(test.shown.opened, opened);
  test.shown.opened.clear();
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, Middle(view, record, 3));
  EXPECT_EQ(test.shown.opened, opened);
}

TEST_F(TodayScreen, TabWalksTheListsAndTheCursorShows) {
  Open();
  QList<QWidget*> way{&View(page->fgUpcoming), &View(page->fgLMTodayStatus), &View(page->fgFinance),
                      window->findChild<QLabel*>("imgLMTodayHelp")};
  for (QWidget* stop : way) {
    EXPECT_EQ(QApplication::focusWidget(), stop);
    if (auto* list = qobject_cast<TodayGrid*>(stop)) {
      EXPECT_TRUE(list->currentIndex().isValid());
    }
    QTest::keyClick(stop, Qt::Key_Tab);
  }
}

TEST_F(TodayScreen, NothingIsCutInASmallWindow) {
  Open();
  window->resize(1024, 560);
  QApplication::processEvents();
  for (const Grid* grid : page->lists) {
    const TodayGrid& view = View(*grid);
    EXPECT_EQ(view.horizontalHeader()->length(), view.viewport()->width());
    const QFontMetrics metrics(view.Style().font);
    const int last = grid->Cols() - 1;
    for (int row = grid->FixedRows(); row < grid->Rows(); ++row)
      if (grid != &page->fgUpcoming) {
        EXPECT_LE(metrics.horizontalAdvance(
                      view.model()->index(view.Model().ModelRow(row), last).data().toString()),
                  view.columnWidth(last));
      }
  }
  // The long notes take lines below their captions there.
  const TodayGrid& finance = View(page->fgFinance);
  EXPECT_TRUE(finance.NoteIsBelow(page->fgFinance.FixedRows()));
  EXPECT_GT(finance.rowHeight(0), 2 * QFontMetrics(finance.Style().font).height());
}

TEST_F(TodayScreen, ReadersHearWhetherASectionIsOpen) {
  Open();
  const TodayGrid& view = View(page->fgFinance);
  const auto spoken = [&](int row) {
    return view.model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
  };
  EXPECT_TRUE(spoken(0).endsWith(QString::fromUtf8("contributions., £565.00, open")));
  page->fgFinance.SetRowCollapsed(page->fgFinance.FixedRows(), true);
  QApplication::processEvents();
  EXPECT_TRUE(spoken(0).endsWith("folded"));
}

TEST_F(TodayScreen, TheFirstStepsHaveTheKeys) {
  Open(false);
  auto* practice = window->findChild<QPushButton*>("cmdLMTodayPractices");
  EXPECT_TRUE(practice->isVisible());
  EXPECT_TRUE(practice->hasFocus());
  EXPECT_FALSE(View(page->fgUpcoming).isVisible());
  test.AddRow(test.ledger.fgSessions, {"ID=1", "SDATE=03/02/2026", "SESS_TYPE=1"});
  screen->ShowPage(Page::Sessions);
  screen->ShowPage(Page::LMToday);
  EXPECT_FALSE(practice->isVisible());
  EXPECT_TRUE(View(page->fgUpcoming).hasFocus());
}

}  // namespace
}  // namespace lm::test
