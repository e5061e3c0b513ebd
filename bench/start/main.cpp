// How long the desktop takes from its launch, and from main(), until its first window has been
// painted and takes input. Usage: start_bench DIR | --make DIR SESSIONS. start.sh beside it holds
// it against an empty window.
//
// --make writes a data file of so many sessions to DIR; all options are those of a first start: LM
// Today is in front, with its tip.

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "bench/start/usable.h"
#include "core/datafile.h"
#include "core/options.h"
#include "core/startup.h"
#include "shell/entry.h"
#include "shell/qt/desktop.h"
#include "shell/qt/mainwindow.h"
#include "shell/windows.h"

namespace {

constexpr int kPractices = 40;
constexpr int kOnAnInvoice = 8;  // sessions

using Cells = std::initializer_list<std::pair<const char*, std::string>>;

void Add(lm::Grid& table, const Cells& cells) {
  const int row = table.AddItem("");
  for (const auto& [key, text] : cells) table.SetTextMatrix(row, key, text);
}

// Years of work whose paperwork is done: every session on a form and on a paid invoice.
int Make(lm::Ledger& ledger, int sessions) {
  lm::SetFirstInstallOptions(ledger);
  if (!lm::MakeProgramDirectory(ledger)) return 1;
  for (int i = 1; i <= kPractices; ++i)
    Add(ledger.fgPractices, {{"ID", std::to_string(i)}, {"NAME", "Practice " + std::to_string(i)}});
  for (int i = 0; i < sessions; ++i) {
    const std::string day = lm::CellText(lm::DateSerial(1990, 1, 1 + i * 31 % 13'000));
    const std::string amount = std::to_string(i % 500) + ".25";
    const std::string practice = std::to_string(1 + i / kOnAnInvoice % kPractices);
    const std::string invoice = std::to_string(1 + i / kOnAnInvoice);
    Add(ledger.fgSessions, {{"ID", std::to_string(i + 1)},
                            {"PRACTICE", practice},
                            {"INVOICE", invoice},
                            {"SDATE", day},
                            {"STIME", "08:30"},
                            {"ETIME", "12:30"},
                            {"SESS_TYPE", "1"},
                            {"RATE", amount},
                            {"EXTRAS", amount},
                            {"EXPENSES", amount},
                            {"EMPLOYERCONTRIB", amount},
                            {"TOTAL", amount},
                            {"FORMS", "A,B"},
                            {"NOTES", "Door code at the side entrance, visits after lunch"}});
    if (i % kOnAnInvoice == 0)
      Add(ledger.fgInvoices, {{"ID", invoice},
                              {"NUMBER", "INV-" + invoice},
                              {"PRACTICE", practice},
                              {"CDATE", day},
                              {"IDATE", day},
                              {"SDATE", day},
                              {"AMOUNT", amount},
                              {"PAYDATE", day},
                              {"RECEIPTDATE", day}});
  }
  return lm::Save(ledger) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const Clock::time_point start = Clock::now();
  const std::string word = argc > 1 ? argv[1] : "";
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);

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
  hooks.createMain = [&]() -> lm::frmMain& {
    screen = std::make_unique<lm::frmMain>(ledger, windows);
    window = std::make_unique<lm::MainWindow>(*screen);
    return *screen;
  };
  hooks.showSplash = [&] { desktop.progress.OpenSplash(); };
  hooks.closeSplash = [&] { desktop.progress.CloseSplash(); };
  if (!lm::RunEntryProcedure(ledger, hooks, "")) return 1;
  TellWhenUsable(start);
  return 0;
}
