// The Calendar page, by mouse and keys.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>

#include "core/options.h"
#include "core/rows.h"
#include "shell/frmMain.h"
#include "shell/qt/calendargrid.h"
#include "shell/qt/mainwindow.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct CalendarWindow : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;
  std::unique_ptr<MainWindow> window;
  CalendarPage* page = nullptr;

  CalendarWindow() {
    FillDemo(test);
    test.ledger.starting = false;
    SetOption(test, optShowTips, "FALSE");
    AddWindows(windows);
    test.shown.catalogue = &windows;
    screen = std::make_unique<frmMain>(test, windows);
    window = std::make_unique<MainWindow>(*screen);
    window->resize(1240, 780);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    page = &screen->PageOf<CalendarPage>();
    test.ledger.fgSessions.ClearData();
    test.AddRow(test.ledger.fgSessions, {"ID=1", "PRACTICE=1", "SDATE=04/02/2026", "STIME=09:00",
                                         "ETIME=12:00", "SESS_TYPE=1"});
    screen->ShowPage(Page::Calendar);
    // Week opens at eight in the morning.
    EXPECT_TRUE(QTest::qWaitFor([&] { return View("fgWeek").rowAt(2) == 16; }));
  }
  CalendarGrid& View(const char* name) { return *window->findChild<CalendarGrid*>(name); }
  // The middle of a cell of the grid, in the view's viewport.
  static QPoint Middle(CalendarGrid& view, int gridRow, int col) {
    const int row = view.Model().ModelRow(gridRow);
    return {view.columnViewportPosition(col) + view.columnWidth(col) / 2,
            view.rowViewportPosition(row) + view.rowHeight(row) / 2};
  }
};

TEST_F(CalendarWindow, FillsItsRoomAndOpensAtWork) {
  CalendarGrid& week = View("fgWeek");
  EXPECT_EQ(week.horizontalScrollBar()->maximum(), 0);
  auto* headings = window->findChildren<CalendarGrid*>().front();
  for (CalendarGrid* each : window->findChildren<CalendarGrid*>())
    if (each->HeadingsOf() == "fgWeek") headings = each;
  for (int col = 0; col < 8; ++col)
    EXPECT_EQ(headings->columnViewportPosition(col), week.columnViewportPosition(col)) << col;
  screen->Enter(page->tabCalendar, "Month");
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return View("fgMonth").isVisible() && View("fgMonth").verticalScrollBar()->maximum() == 0;
  }));
}

TEST_F(CalendarWindow, ASessionIsDraggedToAnotherTime) {
  CalendarGrid& week = View("fgWeek");
  const QPoint from = Middle(week, 22, 3), to = Middle(week, 26, 5);
  test.shown.answers = {Answer::Yes};
  QTest::mousePress(week.viewport(), Qt::LeftButton, {}, from);
  QTest::mouseMove(week.viewport(), from + QPoint(30, 30));
  QTest::mouseMove(week.viewport(), to);
  EXPECT_EQ(week.Target(), (CellPlace{26, 5}));
  QTest::mouseRelease(week.viewport(), Qt::LeftButton, {}, to);
  const Grid& sessions = test.ledger.fgSessions;
  EXPECT_EQ(sessions.TextMatrix(sessions.FixedRows(), "SDATE"), "06/02/2026");
  EXPECT_EQ(sessions.TextMatrix(sessions.FixedRows(), "STIME"), "12:00");
  EXPECT_EQ(sessions.TextMatrix(sessions.FixedRows(), "ETIME"), "15:00");
  EXPECT_EQ(week.Target(), CellPlace{});
}

TEST_F(CalendarWindow, DoubleClickAndEnterOpenOrAdd) {
  CalendarGrid& week = View("fgWeek");
  std::string opened;
  const auto note = [&](Screen& shown) { opened = shown.FindField("cSTime")->Text(); };
  test.shown.modal = {note, note};
  QTest::mouseDClick(week.viewport(), Qt::LeftButton, {}, Middle(week, 24, 2));
  EXPECT_EQ(opened, "11:00");
  week.setFocus();
  QTest::keyClick(&week, Qt::Key_Down);
  EXPECT_EQ(page->fgWeek.Row(), 25) << "from the cell that was clicked";
  page->fgWeek.Select(21, 2);
  QTest::keyClick(&week, Qt::Key_Return);
  EXPECT_EQ(opened, "09:30");
}

// Without a button: what QTest moves still bears the one that was pressed last.
void Rest(QWidget& widget, const QPoint& at) {
  QMouseEvent move(QEvent::MouseMove, QPointF(at), QPointF(widget.mapToGlobal(at)), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &move);
}

TEST_F(CalendarWindow, AToolTipComesWhereThePointerRests) {
  CalendarGrid& week = View("fgWeek");
  auto* tip = window->findChild<QFrame*>("picCalendarToolTip");
  EXPECT_FALSE(tip->isVisible());
  Rest(*week.viewport(), Middle(week, 21, 3));
  EXPECT_TRUE(QTest::qWaitFor([&] { return tip->isVisible(); }));
  EXPECT_EQ(tip->findChild<QLabel*>("lblCalendarTooltipTitle")->text(), "Wednesday 4 Feb 2026");
  Rest(*week.viewport(), Middle(week, 21, 5));
  EXPECT_FALSE(tip->isVisible());
}

TEST_F(CalendarWindow, ReadersHearDayTimeAndState) {
  CalendarGrid& week = View("fgWeek");
  const auto heard = [&](int gridRow, int col) {
    return week.model()
        ->index(week.Model().ModelRow(gridRow), col)
        .data(Qt::AccessibleTextRole)
        .toString()
        .toStdString();
  };
  EXPECT_EQ(heard(20, 3),
            "Wednesday 4 Feb 2026, 09:00, Riverside Surgery 09:00-12:00 Invoice: {none} Forms: "
            "{none}");
  EXPECT_EQ(heard(20, 1), "Monday 2 Feb 2026, 09:00");
}

TEST_F(CalendarWindow, ManyEventsLeaveRoomForTheDays) {
  for (int i = 0; i < 60; ++i)
    test.AddRow(test.ledger.fgEvents, {"TITLE=Event", "SDATE=03/02/2026", "CATEGORY=1"});
  page->Shown();
  CalendarGrid& week = View("fgWeek");
  EXPECT_TRUE(QTest::qWaitFor([&] { return page->fgWeek.FixedRows() > 60; }));
  QApplication::processEvents();
  EXPECT_GT(week.height(), 250);
}

TEST_F(CalendarWindow, AClickInYearWaitsForASecondOne) {
  screen->Enter(page->tabCalendar, "Year");
  QApplication::processEvents();
  CalendarGrid& year = View("fgYear");
  bool opened = false;
  test.shown.modal = {[&](Screen&) { opened = true; }};
  const QPoint day = Middle(year, 4, 20);
  QTest::mouseDClick(year.viewport(), Qt::LeftButton, {}, day);
  QTest::qWait(QApplication::doubleClickInterval() + 100);
  EXPECT_TRUE(opened);
  EXPECT_EQ(page->View(), CalendarView::Year);
  QTest::mouseClick(year.viewport(), Qt::LeftButton, {}, day);
  EXPECT_TRUE(QTest::qWaitFor([&] { return page->View() == CalendarView::Month; }));
}

}  // namespace
}  // namespace lm::test
