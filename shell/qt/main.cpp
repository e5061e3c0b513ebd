// LedgerMinder on the desktop: makes the ports and the ledger, runs the start, and hands over to
// the event loop.
#include <QApplication>
#include <QIcon>
#include <iostream>
#include <memory>
#include <string_view>

#include "core/files.h"
#include "core/options.h"
#include "shell/entry.h"
#include "shell/native.h"
#include "shell/qt/desktop.h"
#include "shell/qt/icons.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/readablepalette.h"
#include "shell/qt/typeahead.h"
#include "shell/windows.h"

namespace {

constexpr std::string_view kUsage =
    "Usage: ledgerminder [DATAFILE]\n"
    "\n"
    "  DATAFILE    the data file to open, with auto save turned off; otherwise your own\n"
    "  --help      tells this\n"
    "  --version   tells the program's version\n"
    "\n"
    "ledgerminder-cli is the same program without a screen.\n";

// Answers a question about the program itself; false when none was asked.
bool AnswerAtOnce(std::string_view word) {
  if (word == "--help")
    std::cout << kUsage;
  else if (word == "--version")
    std::cout << "LedgerMinder " << lm::ProgramVersion() << '\n';
  else
    return false;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  lm::native::OutliveFileSizeLimit();
  if (argc > 1 && AnswerAtOnce(argv[1])) return 0;  // a display is not needed for it
  QApplication application(argc, argv);
  QApplication::setApplicationName("LedgerMinder");
  QApplication::setDesktopFileName("ledgerminder");
  QApplication::setWindowIcon(lm::LineIcon("ledgerminder"));
  // The main window alone ends the program; a splash window or a tip that closes does not.
  QApplication::setQuitOnLastWindowClosed(false);
  const lm::PaletteKeeper palette;
  const lm::TypeAhead typeAhead;

  lm::DesktopPlatform desktop;
  lm::Ledger ledger(desktop.platform);
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

  const std::string dataFile = lm::PathText(lm::ToPath(application.arguments().value(1)));
  if (!lm::RunEntryProcedure(ledger, hooks, dataFile)) return 0;
  return screen->Closed() ? 0 : QApplication::exec();
}
