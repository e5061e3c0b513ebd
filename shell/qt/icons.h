// The program's own drawings: outline pictures of 24 x 24, coloured at paint time, so that they
// follow the palette, the disabled state and the screen's resolution.
#pragma once

#include <QColor>
#include <QIcon>

class QWidget;

namespace lm {

// An empty icon when there is no drawing of this name. Without a colour it takes the text colour
// of buttons.
QIcon LineIcon(const QString& name, const QColor& colour = {});

// Colours that say something, readable on light and on dark ground.
QColor AccentColour();
QColor GoodColour();
QColor WarningColour();
QColor DangerColour();

// Gives every button below `root` with a property "lineIcon" the drawing of that name, and every
// label with a property "picture" the picture, in its own colours and the label's least size.
void ApplyLineIcons(QWidget& root);

}  // namespace lm
