// The program's drawings: the part of SVG that they use, drawn by Qt's painter alone, so that they
// look alike wherever the program is installed.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QXmlStreamReader>
#include <functional>
#include <vector>

namespace lm {

class LineDrawing {
 public:
  // Paths (of lines, curves and arcs of circles), rectangles and circles, filled and stroked in one
  // colour, in groups or not. Anything else is left out; what is no XML is no drawing.
  explicit LineDrawing(const QByteArray& svg);

  // Fills `bounds`; `colourOf` gives the colour for a name of the drawing: "#c8362b",
  // "currentColor".
  void Paint(QPainter& painter, const QRectF& bounds,
             const std::function<QColor(const QString& name)>& colourOf) const;

 private:
  struct Look {
    QString fill = QStringLiteral("#000000"), stroke = QStringLiteral("none");
    QPen pen{Qt::SolidLine};
    Look();
  };
  struct Shape {
    QPainterPath path;
    Look look;
  };

  static void Read(const QXmlStreamAttributes& attributes, Look& look);

  QRectF box_;
  std::vector<Shape> shapes_;
};

}  // namespace lm
