#include "shell/qt/windowmemory.h"

#include <QSettings>
#include <QWidget>
#include <cstdlib>

#include "shell/qt/freearea.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kNudge = 48;  // pixels by which window managers move windows of their own accord
constexpr int kFarthest = 100'000;  // more is no pixel of any screen

QRect ReadPlace(const QSettings& settings) {
  const QRect place = settings.value("place").toRect();
  const bool sane = place.isValid() && std::abs(place.x()) < kFarthest &&
                    std::abs(place.y()) < kFarthest && place.width() < kFarthest &&
                    place.height() < kFarthest;
  return sane ? place : QRect();
}

// The area that shows most of the place; the window's own when none shows any of it.
QRect AreaFor(const QRect& place, const QWidget& window) {
  QRect best = FreeArea(window);
  int most = 0;
  for (const QRect& area : FreeAreas()) {
    const QRect shown = area.intersected(place);
    const int size = shown.isEmpty() ? 0 : shown.width() * shown.height();
    if (size <= most) continue;
    most = size;
    best = area;
  }
  return best;
}

}  // namespace

WindowMemory::WindowMemory(const std::filesystem::path& programDirectory, const QString& window)
    : file_(FromPath(programDirectory / "Windows.ini")), name_(window) {}

void WindowMemory::Restore(QWidget& window, bool maximised) {
  QSettings settings(file_, QSettings::IniFormat);
  settings.beginGroup(name_);
  QRect place = ReadPlace(settings);
  if (place.isValid()) {
    place.setSize(place.size().expandedTo(window.minimumSizeHint()));
    window.setGeometry(Inside(place, AreaFor(place, window)));
  }
  maximised_ = maximised || settings.value("maximised").toString() == "true";
  if (maximised_) window.setWindowState(window.windowState() | Qt::WindowMaximized);
  given_ = window.geometry();
}

void WindowMemory::Keep(const QWidget& window) const {
  const bool maximised = window.isMaximized();
  const bool normal = !maximised && !window.isMinimized();
  const QRect place = normal ? window.geometry() : window.normalGeometry();
  const bool moved = (place.topLeft() - given_.topLeft()).manhattanLength() > kNudge;
  const bool changed = place.isValid() && (moved || place.size() != given_.size());
  if (!changed && maximised == maximised_) return;
  QSettings settings(file_, QSettings::IniFormat);
  settings.beginGroup(name_);
  if (changed) settings.setValue("place", place);
  settings.setValue("maximised", maximised);
}

}  // namespace lm
