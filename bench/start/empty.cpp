// An empty Qt window: what the start of the desktop is held against.
#include <QApplication>
#include <QMainWindow>

#include "bench/start/usable.h"

int main(int argc, char** argv) {
  const Clock::time_point start = Clock::now();
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1240, 780);
  window.show();
  TellWhenUsable(start);
  return 0;
}
