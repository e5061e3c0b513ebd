// A screen of a size of its own, while this lives.
#pragma once

#include "shell/qt/freearea.h"

namespace lm::test {

// 1280 x 800 at 150 %.
constexpr QSize kSmallScreen(853, 533);
// The usual one of the tests: that of the offscreen platform is smaller than any of today.
constexpr QSize kLargeScreen(1920, 1040);

struct PretendedScreen {
  explicit PretendedScreen(const QSize& size) : screen(QPoint(), size) { PretendScreen(screen); }
  ~PretendedScreen() { PretendScreen({QPoint(), kLargeScreen}); }
  PretendedScreen(const PretendedScreen&) = delete;
  PretendedScreen& operator=(const PretendedScreen&) = delete;

  const QRect screen;
};

}  // namespace lm::test
