#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStyleFactory>
#include <set>

#include "core/options.h"
#include "shell/qt/changemarks.h"
#include "shell/qt/icons.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/readablepalette.h"

namespace lm::test {
namespace {

double Ratio(const QColor& a, const QColor& b) {
  return ContrastRatio(FromQColor(a), FromQColor(b));
}

QPalette Dark() {
  QPalette dark(QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));  // pale, with white on it
  dark.setColor(QPalette::Link, QColor(0x29, 0x80, 0xb9));
  return dark;
}

TEST(ReadablePalette, HasEveryTextStandOut) {
  struct Pair {
    QPalette::ColorRole text, ground;
  };
  constexpr Pair kPairs[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::HighlightedText, QPalette::Highlight},
  };
  constexpr Pair kEnabledPairs[] = {{QPalette::PlaceholderText, QPalette::Base},
                                    {QPalette::Link, QPalette::Window},
                                    {QPalette::Link, QPalette::Base}};
  for (const QPalette& palette : {QApplication::palette(), QPalette(Qt::white), Dark()}) {
    const QPalette readable = ReadablePalette(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      for (const auto& [text, ground] : kPairs)
        EXPECT_GE(Ratio(readable.color(group, text), readable.color(group, ground)), kTextContrast)
            << group << ' ' << text;
      if (group == QPalette::Disabled) continue;
      for (const auto& [text, ground] : kEnabledPairs)
        EXPECT_GE(Ratio(readable.color(group, text), readable.color(group, ground)), kTextContrast)
            << group << ' ' << text;
    }
    EXPECT_EQ(ReadablePalette(readable), readable);
  }
}

TEST(Icons, StandOutFromTheWindow) {
  const QPalette before = QApplication::palette();
  for (const QPalette& palette : {before, Dark()}) {
    QApplication::setPalette(palette);
    for (const QColor& colour : {AccentColour(), GoodColour(), WarningColour(), DangerColour()})
      EXPECT_GE(Ratio(colour, palette.color(QPalette::Window)), kMarkContrast)
          << colour.name().toStdString();
  }
  QApplication::setPalette(before);
}

// The edited row's shipped colour is pale on white, the new row's dark on a dark list.
TEST(ChangeMark, HasAnEdgeAndASignOfItsOwn) {
  for (const QColor& ground : {QColor(Qt::white), QColor(30, 30, 30)}) {
    std::set<QByteArray> pictures;
    for (const auto state : {RowState::New, RowState::Edited}) {
      const QColor colour = ToQColor(state == RowState::New ? 16711680 : 16776960);
      const QImage mark = ChangeMark({16, 20}, state, colour, ground, 1).toImage();
      EXPECT_GE(Ratio(mark.pixelColor(0, 10), ground), kMarkContrast);
      EXPECT_GE(Ratio(mark.pixelColor(7, 9), mark.pixelColor(2, 2)), kTextContrast);
      const QImage sign = mark.createMaskFromColor(mark.pixel(2, 2));
      pictures.insert(QByteArray(reinterpret_cast<const char*>(sign.constBits()),
                                 static_cast<int>(sign.sizeInBytes())));
    }
    EXPECT_EQ(pictures.size(), 2U);
  }
}

TEST(ListStyle, TextsStandOutWhateverTheOptionsSay) {
  const auto options = [](int option) -> std::string {
    return option == optFontColour ? "14737632" : "";  // a pale grey
  };
  const ListStyle style = ListStyleOf(options, QPalette(Qt::white));
  EXPECT_GE(Ratio(style.text, style.base), kTextContrast);
}

}  // namespace
}  // namespace lm::test
