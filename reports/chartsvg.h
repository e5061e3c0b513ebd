// A chart as SVG text.
#pragma once

#include <string>
#include <string_view>

#include "reports/chartcanvas.h"

namespace lm {

// The text is UTF-8 and well-formed, whatever stands in the chart's texts; it is set in Arial, or a
// font of its widths, by which TextWidth measures.
class SvgCanvas : public ChartCanvas {
 public:
  SvgCanvas(double width, double height);
  // The whole picture; nothing may be drawn afterwards.
  std::string Finish();

  double TextWidth(std::string_view text, ChartFont font) override;
  void FillBox(const ChartBox& box, Colour colour) override;
  void FillPolygon(std::span<const ChartPoint> corners, Colour colour) override;
  void DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) override;
  void DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) override;

 private:
  void Add(std::string_view text) { svg_ += text; }
  void AddPoints(std::span<const ChartPoint> points);

  std::string svg_;
};

}  // namespace lm
