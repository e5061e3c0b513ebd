// LedgerMinder on the desktop: makes the ports and the ledger, runs the start, and hands over to
// the event loop.
#include <QApplication>
#include <QIcon>
#include <memory>

#include "shell/entry.h"
#include "shell/qt/desktop.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/readablepalette.h"
#include "shell/windows.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("LedgerMinder");
  QApplication::setDesktopFileName("ledgerminder");
  QApplication::setWindowIcon(QIcon(":/icons/ledgerminder.svg"));
  // The main window alone ends the program; a splash window or a tip that closes does not.
  QApplication::setQuitOnLastWindowClosed(false);
  const lm::PaletteKeeper palette;

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

  const std::string dataFile = lm::FromQt(application.arguments().value(1));
  if (!lm::RunEntryProcedure(ledger, hooks, dataFile)) return 0;
  return screen->Closed() ? 0 : QApplication::exec();
}
