// A chart on a page of a PDF, as vectors.
#pragma once

#include <string>
#include <string_view>

#include "pdf/clsPDFCreator.h"
#include "reports/chartcanvas.h"

namespace lm {

// Draws on the open page of a writer whose scale is points. The writer outlives it.
class PdfCanvas : public ChartCanvas {
 public:
  explicit PdfCanvas(clsPDFCreator& pdf) : pdf_(pdf) {}

  double TextWidth(std::string_view text, ChartFont font) override;
  void FillBox(const ChartBox& box, Colour colour) override;
  void FillPolygon(std::span<const ChartPoint> corners, Colour colour) override;
  void DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) override;
  void DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) override;

 private:
  void Choose(ChartFont font);

  clsPDFCreator& pdf_;
  ChartFont font_{0, false};  // in force
};

}  // namespace lm
