// From a key stroke in the box above the list of 50,000 sessions to the painted list, and the same
// in Find: QT_QPA_PLATFORM=offscreen filter_paint_bench. Prints the median and the longest.
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench/ledgers.h"
#include "core/options.h"
#include "core/shortcuts.h"
#include "shell/frmFind.h"
#include "shell/pages/sessionspage.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/views.h"
#include "shell/windows.h"

namespace {

constexpr int kSessions = 50'000;
constexpr int kRounds = 5;
constexpr const char* kTyped = "practice 12 feb";

double Milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Types the words and takes them back, letter by letter, again and again.
void TypeInto(QLineEdit& box, const char* what) {
  std::vector<double> times;
  const auto press = [&](const auto& key) {
    QElapsedTimer timer;
    timer.start();
    key();
    QApplication::processEvents();  // reads and paints what changed
    times.push_back(Milliseconds(timer));
  };
  for (int round = 0; round < kRounds; ++round) {
    for (const char letter : std::string(kTyped)) press([&] { QTest::keyClick(&box, letter); });
    while (!box.text().isEmpty()) press([&] { QTest::keyClick(&box, Qt::Key_Backspace); });
  }
  std::ranges::sort(times);
  std::printf("%-8s a key stroke %6.2f ms, longest %6.2f ms\n", what, times[times.size() / 2],
              times.back());
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  lm::test::TestLedger& test = lm::bench::BusyLedger(kSessions);
  lm::SetDefaultShortcuts(test);
  lm::SetOption(test, lm::optShowTips, "FALSE");
  test.ledger.starting = false;
  lm::WindowCatalogue windows;
  lm::AddWindows(windows);
  lm::frmMain screen(test, windows);
  lm::MainWindow window(screen);
  window.resize(1240, 780);
  window.show();
  screen.ShowPage(lm::Page::Sessions);
  screen.Enter(screen.PageOf<lm::SessionsPage>().tabSessions, "All");
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  auto& box = *window.findChild<QLineEdit*>("txtFilterSessions");
  QElapsedTimer timer;
  timer.start();
  box.setFocus();
  std::printf("Filter   takes the focus in %.2f ms\n", Milliseconds(timer));
  TypeInto(box, "Filter");

  timer.start();
  lm::frmFind find(screen);
  lm::ScreenDialog dialog(*lm::FindView("frmFind"), find, nullptr);
  dialog.show();
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  std::printf("Find     opens in %.2f ms\n", Milliseconds(timer));
  TypeInto(*dialog.findChild<QLineEdit*>("txtFind"), "Find");
  return 0;
}
