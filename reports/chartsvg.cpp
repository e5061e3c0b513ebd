#include "reports/chartsvg.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "pdf/data/fontdata.h"
#include "reports/xmlescape.h"

namespace lm {
namespace {

// Two decimals of a point are finer than any screen.
std::string Number(double value) {
  constexpr double kFar = 1e6;
  char text[32];
  const double bounded = std::isfinite(value) ? std::clamp(value, -kFar, kFar) : 0;
  std::snprintf(text, sizeof text, "%.2f", bounded);
  std::string number(text);
  number.erase(number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.pop_back();
  return number == "-0" ? "0" : number;
}

std::string Attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string Hex(Colour colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(colour & 0xFF),
                static_cast<unsigned>(colour >> 8 & 0xFF),
                static_cast<unsigned>(colour >> 16 & 0xFF));
  return text;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  AsciiEscape().Append(escaped, text);
  return escaped;
}

constexpr std::array<std::string_view, 3> kAnchors{"start", "middle", "end"};

}  // namespace

SvgCanvas::SvgCanvas(double width, double height) {
  Add("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
      Attribute("width", Number(width) + "pt") + Attribute("height", Number(height) + "pt") +
      Attribute("viewBox", "0 0 " + Number(width) + " " + Number(height)) +
      Attribute("font-family", "Arial, 'Liberation Sans', Helvetica, sans-serif") + ">\n");
}

std::string SvgCanvas::Finish() {
  Add("</svg>\n");
  return std::move(svg_);
}

double SvgCanvas::TextWidth(std::string_view text, ChartFont font) {
  constexpr double kThousandths = 1000;
  const pdf::Widths& widths = pdf::kArial[font.bold ? 1 : 0][0];
  double width = 0;
  for (const char c : text) width += widths[static_cast<unsigned char>(c)];
  return width * font.size / kThousandths;
}

void SvgCanvas::FillBox(const ChartBox& box, Colour colour) {
  Add("<rect" + Attribute("x", Number(box.x)) + Attribute("y", Number(box.y)) +
      Attribute("width", Number(box.width)) + Attribute("height", Number(box.height)) +
      Attribute("fill", Hex(colour)) + "/>\n");
}

void SvgCanvas::AddPoints(std::span<const ChartPoint> points) {
  std::string text;
  for (const ChartPoint& point : points) {
    if (!text.empty()) text += ' ';
    text += Number(point.x) + ',' + Number(point.y);
  }
  Add(Attribute("points", text));
}

void SvgCanvas::FillPolygon(std::span<const ChartPoint> corners, Colour colour) {
  Add("<polygon");
  AddPoints(corners);
  Add(Attribute("fill", Hex(colour)) + "/>\n");
}

void SvgCanvas::DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) {
  Add("<polyline");
  AddPoints(points);
  Add(Attribute("fill", "none") + Attribute("stroke", Hex(pen.colour)) +
      Attribute("stroke-width", Number(pen.width)) + Attribute("stroke-linejoin", "round"));
  std::string dashes;
  for (const double length : pen.dashes) dashes += (dashes.empty() ? "" : " ") + Number(length);
  if (!dashes.empty()) Add(Attribute("stroke-dasharray", dashes));
  Add("/>\n");
}

void SvgCanvas::DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) {
  Add("<text" + Attribute("x", Number(place.x)) + Attribute("y", Number(place.y)) +
      Attribute("font-size", Number(style.font.size)) + Attribute("fill", Hex(style.colour)));
  if (style.font.bold) Add(Attribute("font-weight", "bold"));
  if (style.anchor != ChartAnchor::Left)
    Add(Attribute("text-anchor", kAnchors[static_cast<std::size_t>(style.anchor)]));
  if (style.turned != 0)
    Add(Attribute("transform", "rotate(" + Number(-style.turned) + " " + Number(place.x) + " " +
                                   Number(place.y) + ")"));
  Add(">" + Escaped(text) + "</text>\n");
}

}  // namespace lm
