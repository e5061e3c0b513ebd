// "Open with" in the registry of Windows, and its trace when it is taken back.
#include "shell/qt/openwith.h"

#include <gtest/gtest.h>

#include <QSettings>

namespace lm {
namespace {

TEST(OpenWith, IsOfferedAndTakenBack) {
#ifdef Q_OS_WIN
  const auto traces = [] {
    const QSettings classes("HKEY_CURRENT_USER\\Software\\Classes", QSettings::NativeFormat);
    return classes.allKeys().filter("LedgerMinder").size();
  };
  EXPECT_TRUE(OfferOpenWith(true));
  EXPECT_EQ(OpenWithOffered(), true);
  EXPECT_GT(traces(), 0);
  EXPECT_TRUE(OfferOpenWith(false));
  EXPECT_EQ(OpenWithOffered(), false);
  EXPECT_EQ(traces(), 0);
#else
  EXPECT_FALSE(OpenWithOffered());
  EXPECT_FALSE(OfferOpenWith(true));
#endif
}

}  // namespace
}  // namespace lm
