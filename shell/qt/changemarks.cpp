#include "shell/qt/changemarks.h"

#include <QPainter>
#include <algorithm>

#include "shell/qt/liststyle.h"

namespace lm {
namespace {

constexpr int kLargestSign = 9, kSmallestSign = 5;  // pixels

// A plus of a new row, a line of text of an edited one.
void PaintSign(QPainter& painter, const QRect& place, RowState state) {
  const int room = std::min(place.width(), place.height()) - 5;
  const int side = std::min(room, kLargestSign) | 1;
  if (side < kSmallestSign) return;
  const QPoint middle = place.center();
  const QPoint across(side / 2, 0), down(0, side / 2);
  painter.drawLine(middle - across, middle + across);
  if (state == RowState::New) painter.drawLine(middle - down, middle + down);
}

}  // namespace

void PaintChangeMark(QPainter& painter, const QRect& place, RowState state, const QColor& colour,
                     const QColor& ground) {
  if (state == RowState::Saved) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(colour);
  painter.setPen(StandingOut(colour, ground, kMarkContrast));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
  painter.setPen(ReadableOn(colour));
  PaintSign(painter, place, state);
  painter.restore();
}

QPixmap ChangeMark(const QSize& size, RowState state, const QColor& colour, const QColor& ground,
                   double pixelRatio) {
  QPixmap picture(size * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  PaintChangeMark(painter, QRect(QPoint(), size), state, colour, ground);
  return picture;
}

}  // namespace lm
