// When the window of a program is usable, told in the same way by all that are compared.
#pragma once

#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using Clock = std::chrono::system_clock;

// Waits until nothing is left to be painted or handled; then tells the milliseconds since the
// launch, which the environment has as LAUNCHED in seconds, and since main().
inline void TellWhenUsable(Clock::time_point start) {
  QEventLoop loop;
  QTimer::singleShot(0, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
  loop.exec();
  using Milliseconds = std::chrono::duration<double, std::milli>;
  const auto now = Clock::now();
  const char* launched = std::getenv("LAUNCHED");
  const double since =
      Milliseconds(now.time_since_epoch()).count() - (launched ? std::atof(launched) * 1000 : 0);
  std::printf("%.1f %.1f\n", since, Milliseconds(now - start).count());
}
