// What a chart is painted on: a screen, paper, a picture or a file. Lengths are points, from the
// top left, Y downwards.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"

namespace lm {

struct ChartPoint {
  double x = 0, y = 0;
};

struct ChartBox {
  double x = 0, y = 0, width = 0, height = 0;

  double Right() const { return x + width; }
  double Bottom() const { return y + height; }
  ChartPoint Middle() const { return {x + width / 2, y + height / 2}; }
  std::vector<ChartPoint> Corners() const {
    return {{x, y}, {Right(), y}, {Right(), Bottom()}, {x, Bottom()}};
  }
  bool Has(ChartPoint point) const {
    return point.x >= x && point.x < Right() && point.y >= y && point.y < Bottom();
  }
};

enum class ChartAnchor { Left, Centre, Right };  // what of the text stands at its place

struct ChartFont {
  int size = 9;  // points
  bool bold = false;
  bool operator==(const ChartFont&) const = default;
};

struct ChartTextStyle {
  ChartFont font;
  ChartAnchor anchor = ChartAnchor::Left;
  Colour colour = 0;
  double turned = 0;  // degrees, counter-clockwise round its place
};

struct ChartPen {
  Colour colour = 0;
  double width = 1;
  std::span<const double> dashes = {};  // lengths of dashes and gaps; none: a whole line
};

class ChartCanvas {
 public:
  virtual ~ChartCanvas() = default;
  virtual double TextWidth(std::string_view text, ChartFont font) = 0;
  virtual void FillBox(const ChartBox& box, Colour colour) = 0;
  virtual void FillPolygon(std::span<const ChartPoint> corners, Colour colour) = 0;
  virtual void DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) = 0;
  // The place is on the baseline. Texts are Windows-1252.
  virtual void DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) = 0;
};

// The colours around the values, by the ground on which a chart stands.
struct ChartInk {
  Colour ground, text, faintText, line, axis;
};

constexpr ChartInk kPaperInk{Rgb(255, 255, 255), Rgb(32, 33, 36), Rgb(95, 99, 104),
                             Rgb(226, 229, 233), Rgb(128, 134, 139)};

}  // namespace lm
