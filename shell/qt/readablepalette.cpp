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

constexpr TextOnGround kTexts[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::ButtonText, QPalette::Button},
};

void KeepReadable() {
  const QPalette readable = ReadablePalette(QApplication::palette());
  if (readable != QApplication::palette()) QApplication::setPalette(readable);
}

}  // namespace

QPalette ReadablePalette(QPalette palette) {
  for (const auto& [text, ground] : kTexts)
    palette.setColor(QPalette::Disabled, text,
                     MixedColour(palette.color(QPalette::Active, text),
                                 palette.color(QPalette::Active, ground), kFading));
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
