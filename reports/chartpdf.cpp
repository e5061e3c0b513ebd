#include "reports/chartpdf.h"

#include <cmath>
#include <cstdio>

#include "core/numbers.h"

namespace lm {
namespace {

constexpr int kFillShape = 5;
constexpr int kStrokeShape = 0;
constexpr int kBold = 1;
constexpr int kTextFlags[] = {0, 4, 2};  // by ChartAnchor

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", std::isfinite(value) ? value : 0.0);
  return text;
}

std::string Numbers(std::span<const ChartPoint> points) {
  std::string text;
  for (const ChartPoint& point : points)
    text += (text.empty() ? "" : ";") + Number(point.x) + ";" + Number(point.y);
  return text;
}

}  // namespace

void PdfCanvas::Choose(ChartFont font) {
  if (font == font_) return;
  pdf_.SetFont("Arial", font.size, font.bold ? kBold : 0);
  font_ = font;
}

double PdfCanvas::TextWidth(std::string_view text, ChartFont font) {
  Choose(font);
  return pdf_.GetTextWidth(text);
}

void PdfCanvas::FillBox(const ChartBox& box, Colour colour) {
  pdf_.SetColorFill(PlainText(colour));
  pdf_.DrawRect(box.x, box.y, box.width, box.height, kFillShape);
}

void PdfCanvas::FillPolygon(std::span<const ChartPoint> corners, Colour colour) {
  pdf_.SetColorFill(PlainText(colour));
  pdf_.DrawPolygon(Numbers(corners), kFillShape);
}

void PdfCanvas::DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) {
  if (points.size() < 2) return;
  pdf_.SetColorLine(PlainText(pen.colour));
  pdf_.SetLineWidth(pen.width);
  std::string dashes;
  for (const double length : pen.dashes) dashes += (dashes.empty() ? "" : ";") + Number(length);
  pdf_.SetDash(dashes.empty() ? "SOLID" : dashes);
  pdf_.DrawPolyline(Numbers(points), kStrokeShape);
}

void PdfCanvas::DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) {
  Choose(style.font);
  const int flags = kTextFlags[static_cast<int>(style.anchor)];
  pdf_.SetColorText(PlainText(style.colour));
  if (style.turned == 0) {
    pdf_.DrawText(place.x, place.y, text, flags);
    return;
  }
  pdf_.BeginSpace(place.x, place.y, 1, 1, -style.turned);
  pdf_.DrawText(0, 0, text, flags);
  pdf_.EndSpace();
}

}  // namespace lm
