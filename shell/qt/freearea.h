// Where windows may stand. All in device-independent pixels.
#pragma once

#include <QRect>
#include <vector>

class QWidget;

namespace lm {

// The part of the window's screen that its inside may take: without task bars, and without the
// window's own frame and title bar.
QRect FreeArea(const QWidget& window);
// The same of every screen that there is now.
std::vector<QRect> FreeAreas();
// The place made no larger than the area, and moved into it.
QRect Inside(const QRect& place, const QRect& area);

// For tests: the free part of the only screen; an empty one brings the real screens back.
void PretendScreen(const QRect& screen);

}  // namespace lm
