#include "shell/qt/readablepalette.h"

#include <QApplication>
#include <QEvent>

#include "shell/qt/liststyle.h"

namespace lm {
namespace {

constexpr double kFading = 0.42;  // from the text's colour towards the ground's

struct TextOnGround {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};

constexpr TextOnGround kFadingTexts[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},
};

// A link may stand on either of two grounds.
constexpr TextOnGround kTexts[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::Link, QPalette::Window},
    {QPalette::Link, QPalette::Base},
};

QColor Solid(const QColor& colour, const QColor& ground) {
  QColor opaque = colour;
  opaque.setAlpha(255);
  return MixedColour(ground, opaque, colour.alphaF());
}

void KeepReadable() {
  const QPalette readable = ReadablePalette(QApplication::palette());
  if (readable != QApplication::palette()) QApplication::setPalette(readable);
}

}  // namespace

QPalette ReadablePalette(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive})
    for (const auto& [text, ground] : kTexts) {
      const QColor under = palette.color(group, ground);
      palette.setColor(group, text, StandingOut(Solid(palette.color(group, text), under), under));
    }
  for (const auto& [text, ground] : kFadingTexts) {
    const QColor under = palette.color(QPalette::Active, ground);
    const QColor faded = MixedColour(palette.color(QPalette::Active, text), under, kFading);
    palette.setColor(QPalette::Disabled, text, StandingOut(faded, under));
  }
  // White stays white here; it is the ground that gives way.
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    palette.setColor(group, QPalette::Highlight,
                     StandingOut(palette.color(group, QPalette::Highlight),
                                 palette.color(group, QPalette::HighlightedText)));
  return palette;
}

PaletteKeeper::PaletteKeeper() {
  KeepReadable();
  qApp->installEventFilter(this);
}

bool PaletteKeeper::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) KeepReadable();
  return false;
}

}  // namespace lm
