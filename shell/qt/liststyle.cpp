#include "shell/qt/liststyle.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/options.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr std::string_view kWhite = "16777215";
constexpr std::string_view kBlack = "0";
constexpr std::string_view kDefaultLines = "14609391";
constexpr std::string_view kDefaultFont = "Arial";  // in its place that of the windows
constexpr double kSmallestFont = 6, kLargestFont = 36;
constexpr int kTwipsPerInch = 1440;

QColor ColourOf(const std::string& text, std::string_view untouched, const QColor& otherwise) {
  if (text.empty() || text == untouched) return otherwise;
  const double number = Val(text);
  if (number < 0 || number > 0xFFFFFF) return otherwise;
  return ToQColor(static_cast<Colour>(number));
}

}  // namespace

QColor ToQColor(Colour colour) {
  if (colour < 0) return {};
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

Colour FromQColor(const QColor& colour) { return Rgb(colour.red(), colour.green(), colour.blue()); }

QColor MixedColour(const QColor& a, const QColor& b, double share) {
  return ToQColor(Mixed(FromQColor(a), FromQColor(b), share));
}

QColor ReadableOn(const QColor& ground) { return ToQColor(ReadableInk(FromQColor(ground))); }

QColor StandingOut(const QColor& colour, const QColor& ground, double ratio) {
  return ToQColor(StandingOut(FromQColor(colour), FromQColor(ground), ratio));
}

int TwipsToPixels(int twips, int logicalDpi) {
  return (twips * logicalDpi + kTwipsPerInch / 2) / kTwipsPerInch;
}

int PixelsToTwips(int pixels, int logicalDpi) {
  return pixels * kTwipsPerInch / std::max(1, logicalDpi);
}

ListStyle ListStyleOf(const Ledger& ledger, const QPalette& palette) {
  return ListStyleOf([&](int option) { return GetOption(ledger, option); }, palette);
}

ListStyle ListStyleOf(const OptionText& option, const QPalette& palette) {
  ListStyle style;
  style.base = ColourOf(option(optColourBackground), kWhite, palette.color(QPalette::Base));
  style.alternate = ColourOf(option(optColourAlternateRows), kWhite, style.base);
  const bool ownGround = style.base != palette.color(QPalette::Base);
  const QColor plainText = ownGround ? ReadableOn(style.base) : palette.color(QPalette::Text);
  style.text = StandingOut(ColourOf(option(optFontColour), kBlack, plainText), style.base);
  style.line =
      ColourOf(option(optColourGridLines), kDefaultLines, MixedColour(style.base, plainText, 0.12));

  const std::string fontName = option(optFontName);
  if (!fontName.empty() && fontName != kDefaultFont) style.font.setFamily(ToQt(fontName));
  const double size = Val(option(optFontSize));
  if (size > 0) style.font.setPointSizeF(std::clamp(size, kSmallestFont, kLargestFont));

  const std::string lines = option(optGridLines);
  style.horizontalLines = lines != "Vertical Only" && lines != "None";
  style.verticalLines = lines != "Horizontal Only" && lines != "None";
  return style;
}

}  // namespace lm
