// Charts on the screen, as PNG and on paper.
#pragma once

#include <QPalette>
#include <string>

#include "reports/chartcanvas.h"
#include "reports/frmChart.h"

class QPagedPaintDevice;
class QPainter;
class QWidget;

namespace lm {

class PainterCanvas : public ChartCanvas {
 public:
  // Its units are to be points. Without a painter it measures texts, and draws nothing.
  explicit PainterCanvas(QPainter* painter = nullptr);

  double TextWidth(std::string_view text, ChartFont font) override;
  void FillBox(const ChartBox& box, Colour colour) override;
  void FillPolygon(std::span<const ChartPoint> corners, Colour colour) override;
  void DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) override;
  void DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) override;

 private:
  QPainter* painter_;
};

// Light or dark, as the palette is.
ChartInk InkOf(const QPalette& palette);

// The bytes of a picture with titles and legend, fit for a document; "" when there is no memory for
// it.
std::string ChartPng(const Chart& chart, const ChartTitles& titles);

// Fills the page. False when the device takes nothing.
bool PaintChart(QPagedPaintDevice& paper, const Chart& chart, const ChartTitles& titles);
// Shows the print preview, from which it can be printed.
void PrintChart(const frmChart& screen, QWidget* parent);

}  // namespace lm
