// Milliseconds from main() until the first window has been painted and takes input: of the program
// with the data file in DIR, or of an empty window. Usage: start_bench DIR | --empty | --make DIR
// SESSIONS. start.sh beside it compares them.
//
// --make writes a data file of so many sessions to DIR; all options are those of a first start: LM
// Today is in front, with its tip.

#include <QApplication>
#include <QEventLoop>
#include <QMainWindow>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "core/datafile.h"
#include "core/options.h"
#include "core/startup.h"
#include "shell/entry.h"
#include "shell/qt/desktop.h"
#include "shell/qt/mainwindow.h"
#include "shell/windows.h"

namespace {

constexpr int kPractices = 40;

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Until nothing waits to be painted or handled.
void Settle() {
  QEventLoop loop;
  QTimer::singleShot(0, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
  loop.exec();
}

int Make(lm::Ledger& ledger, int sessions) {
  lm::SetFirstInstallOptions(ledger);
  if (!lm::MakeProgramDirectory(ledger)) return 1;
  for (int i = 1; i <= kPractices; ++i) {
    const int row = ledger.fgPractices.AddItem("");
    ledger.fgPractices.SetTextMatrix(row, "ID", std::to_string(i));
    ledger.fgPractices.SetTextMatrix(row, "NAME", "Practice " + std::to_string(i));
  }
  for (int i = 1; i <= sessions; ++i) {
    const int row = ledger.fgSessions.AddItem("");
    const auto set = [&](std::string_view key, std::string_view text) {
      ledger.fgSessions.SetTextMatrix(row, key, text);
    };
    set("ID", std::to_string(i));
    set("PRACTICE", std::to_string(1 + i * 7 % kPractices));
    set("SDATE", lm::CellText(lm::DateSerial(1990, 1, 1 + i * 31 % 13'000)));
    set("STIME", "08:30");
    set("ETIME", "12:30");
    set("SESS_TYPE", "1");
    for (const char* key : {"RATE", "EXTRAS", "EXPENSES", "EMPLOYERCONTRIB", "TOTAL"})
      set(key, std::to_string(i % 500) + ".25");
    set("NOTES", "Door code at the side entrance, visits after lunch");
  }
  return lm::Save(ledger) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const Clock::time_point start = Clock::now();
  const std::string word = argc > 1 ? argv[1] : "";
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);

  if (word == "--empty") {
    QMainWindow window;
    window.resize(1240, 780);
    window.show();
    Settle();
    std::printf("empty %.1f ms\n", MillisecondsSince(start));
    return 0;
  }

  lm::DesktopPlatform desktop;
  lm::Ledger ledger(desktop.platform);
  ledger.programDirectory = word == "--make" && argc > 2 ? argv[2] : word;
  if (word == "--make") return Make(ledger, argc > 3 ? std::atoi(argv[3]) : 0);

  lm::WindowCatalogue windows;
  lm::AddWindows(windows);
  desktop.windows.SetCatalogue(ledger, windows);
  std::unique_ptr<lm::frmMain> screen;
  std::unique_ptr<lm::MainWindow> window;
  lm::EntryHooks hooks;
  double loaded = 0;
  hooks.createMain = [&]() -> lm::frmMain& {
    screen = std::make_unique<lm::frmMain>(ledger, windows);
    window = std::make_unique<lm::MainWindow>(*screen);
    return *screen;
  };
  hooks.showSplash = [&] { desktop.progress.OpenSplash(); };
  hooks.closeSplash = [&] {
    loaded = MillisecondsSince(start);
    desktop.progress.CloseSplash();
  };
  if (!lm::RunEntryProcedure(ledger, hooks, "")) return 1;
  const double shown = MillisecondsSince(start);
  Settle();
  std::printf("data and first page %.1f ms, shown %.1f ms, usable %.1f ms\n", loaded, shown,
              MillisecondsSince(start));
  return 0;
}
