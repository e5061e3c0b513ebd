// The sign of a row that is not saved: the colour of the options, with an edge and a sign that tell
// it to eyes that do not see the colour.
#pragma once

#include <QPixmap>

#include "core/rows.h"

class QPainter;

namespace lm {

// Nothing for a saved row. The ground is what stands around the mark.
void PaintChangeMark(QPainter& painter, const QRect& place, RowState state, const QColor& colour,
                     const QColor& ground);
// The same for a label; sides in device-independent pixels.
QPixmap ChangeMark(const QSize& size, RowState state, const QColor& colour, const QColor& ground,
                   double pixelRatio);

}  // namespace lm
