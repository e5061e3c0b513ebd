#include "shell/qt/freearea.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace lm {
namespace {

// The frame of a window that is not on the screen yet is not known; this much is enough for the
// common ones.
constexpr int kTitleBar = 30;
constexpr int kEdge = 3;

QRect pretended;

QRect WithoutFrame(const QRect& screen) {
  return screen.adjusted(kEdge, kTitleBar, -kEdge, -kEdge);
}

}  // namespace

QRect FreeArea(const QWidget& window) {
  return WithoutFrame(pretended.isEmpty() ? window.screen()->availableGeometry() : pretended);
}

std::vector<QRect> FreeAreas() {
  if (!pretended.isEmpty()) return {WithoutFrame(pretended)};
  std::vector<QRect> areas;
  for (const QScreen* screen : QGuiApplication::screens())
    areas.push_back(WithoutFrame(screen->availableGeometry()));
  return areas;
}

QRect Inside(const QRect& place, const QRect& area) {
  QRect inside(place.topLeft(), place.size().boundedTo(area.size()));
  inside.moveLeft(std::clamp(inside.left(), area.left(), area.right() + 1 - inside.width()));
  inside.moveTop(std::clamp(inside.top(), area.top(), area.bottom() + 1 - inside.height()));
  return inside;
}

void PretendScreen(const QRect& screen) { pretended = screen; }

}  // namespace lm
