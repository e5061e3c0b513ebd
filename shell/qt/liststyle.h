// The look of all lists, from the options.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <functional>
#include <string>

#include "core/contrast.h"
#include "core/grid.h"
#include "core/ledger.h"

namespace lm {

struct ListStyle {
  QFont font;
  QColor base;
  QColor alternate;
  QColor text;
  QColor line;
  bool horizontalLines = true;
  bool verticalLines = true;
};

// An option that still holds its default leaves the matter to the palette, so that a dark desktop
// gets dark lists.
ListStyle ListStyleOf(const Ledger& ledger, const QPalette& palette);
// The same with options from elsewhere.
using OptionText = std::function<std::string(int option)>;
ListStyle ListStyleOf(const OptionText& option, const QPalette& palette);

// Invalid for kNoColour.
QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);
// From a towards b: a share of 0 is all a, of 1 all b.
QColor MixedColour(const QColor& a, const QColor& b, double share);
// Black or white, whichever is read better on this ground.
QColor ReadableOn(const QColor& ground);
// See core/contrast.h.
QColor StandingOut(const QColor& colour, const QColor& ground, double ratio = kTextContrast);

// Twips, 1440 to the inch, and device-independent pixels of this widget's screen.
int TwipsToPixels(int twips, int logicalDpi);
int PixelsToTwips(int pixels, int logicalDpi);

}  // namespace lm
