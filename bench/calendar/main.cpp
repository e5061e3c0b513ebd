// From the key that moves the calendar's period to the painted view, at 50,000 sessions:
// QT_QPA_PLATFORM=offscreen calendar_paint_bench. Prints the median of 51 moves for each view.
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/formatting.h"
#include "core/options.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/calendarpage.h"
#include "shell/qt/mainwindow.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kSessions = 50'000;
constexpr int kMoves = 51;

void FillDiary(lm::test::TestLedger& test) {
  lm::Ledger& ledger = test.ledger;
  for (int i = 1; i <= 40; ++i)
    test.AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i)});
  lm::Grid& sessions = ledger.fgSessions;
  const lm::RedrawOff off(sessions);
  for (int i = 1; i <= kSessions; ++i) {
    const int row = sessions.AddItem("");
    sessions.SetTextMatrix(row, "ID", std::to_string(i));
    sessions.SetTextMatrix(row, "PRACTICE", std::to_string(1 + i * 7 % 40));
    sessions.SetTextMatrix(row, "SDATE",
                           lm::CellText(lm::DateSerial(2000, 1, 1 + i * 31 % 13'000)));
    sessions.SetTextMatrix(row, "STIME", "09:00");
    sessions.SetTextMatrix(row, "ETIME", "12:30");
    sessions.SetTextMatrix(row, "SESS_TYPE", "1");
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  lm::test::TestLedger test;
  FillDiary(test);
  lm::SetDefaultShortcuts(test);
  lm::SetOption(test, lm::optShowTips, "FALSE");
  test.ledger.starting = false;
  lm::WindowCatalogue windows;
  lm::AddWindows(windows);
  lm::frmMain screen(test, windows);
  lm::MainWindow window(screen);
  window.resize(1240, 780);
  window.show();
  screen.ShowPage(lm::Page::Calendar);
  auto& page = screen.PageOf<lm::CalendarPage>();
  for (int view = 0; view < page.tabCalendar.Count(); ++view) {
    screen.Choose(page.tabCalendar, view);
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    std::vector<double> times;
    for (int move = 0; move < kMoves; ++move) {
      QElapsedTimer timer;
      timer.start();
      QTest::keyClick(&window, move % 2 ? Qt::Key_Left : Qt::Key_Right, Qt::AltModifier);
      QApplication::processEvents();  // paints what changed
      times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    std::printf("%-8s %6.2f ms, longest %6.2f ms\n", page.tabCalendar.TabCaption(view).c_str(),
                times[kMoves / 2], times.back());
  }
  return 0;
}
