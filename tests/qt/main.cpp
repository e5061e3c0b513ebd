#include <gtest/gtest.h>

#include <QApplication>

#include "tests/qt/pretendedscreen.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  lm::PretendScreen({QPoint(), lm::test::kLargeScreen});
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
