#include "reports/chartmarks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/contrast.h"

namespace lm {
namespace {

// Eyes without one of the three cones tell any two of these apart (a distance of 14 and more in
// CIELAB, 16 among the first sixteen), and each stands out from white paper and from a dark window.
// The first six are those that were proposed for colour-blind readers; the others keep the largest
// distance from all before them.
constexpr std::array<Colour, kMostSeries> kPalette{
    Rgb(0x00, 0x72, 0xB2), Rgb(0xE6, 0x9F, 0x00), Rgb(0x00, 0x9E, 0x73), Rgb(0xD5, 0x5E, 0x00),
    Rgb(0x56, 0xB4, 0xE9), Rgb(0xCC, 0x79, 0xA7), Rgb(0x5A, 0x3A, 0x16), Rgb(0x7C, 0x0C, 0xDF),
    Rgb(0xE0, 0xCE, 0x85), Rgb(0x88, 0x07, 0x5D), Rgb(0xAC, 0xD7, 0xB8), Rgb(0x49, 0x29, 0xA3),
    Rgb(0xB7, 0x6E, 0xF7), Rgb(0xF3, 0x16, 0x51), Rgb(0x16, 0xE4, 0xF3), Rgb(0x88, 0x4C, 0x07),
    Rgb(0xA5, 0x09, 0x47), Rgb(0x8B, 0x23, 0x84), Rgb(0xD4, 0xA9, 0x54), Rgb(0x75, 0x69, 0x38)};
constexpr Colour kGrey = Rgb(0xB2, 0xB2, 0xB2);
constexpr double kEdge = 0.75;  // points

// Corners of the markers, round a middle at 0, 0.
constexpr double kReach = 3;  // points
constexpr ChartPoint kSquare[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
constexpr ChartPoint kTriangle[] = {{0, -1.2}, {1.2, 1}, {-1.2, 1}};
constexpr ChartPoint kDiamond[] = {{0, -1.4}, {1.4, 0}, {0, 1.4}, {-1.4, 0}};
constexpr ChartPoint kPointingDown[] = {{0, 1.2}, {-1.2, -1}, {1.2, -1}};
constexpr std::array<std::span<const ChartPoint>, 5> kMarkers{
    std::span<const ChartPoint>{}, kSquare, kTriangle, kDiamond, kPointingDown};  // none: a circle

constexpr double kDash[] = {6, 3}, kDot[] = {1.5, 2.5}, kDashDot[] = {7, 2.5, 1.5, 2.5};
constexpr std::array<std::span<const double>, 4> kDashes{std::span<const double>{}, kDash, kDot,
                                                         kDashDot};

std::vector<ChartPoint> Circle() {
  constexpr int kCorners = 16;
  std::vector<ChartPoint> corners;
  for (int i = 0; i < kCorners; ++i) {
    const double angle = i * 2 * std::numbers::pi / kCorners;
    corners.push_back({1.1 * std::cos(angle), 1.1 * std::sin(angle)});
  }
  return corners;
}

}  // namespace

Colour ChartColour(const Chart& chart, int entry) {
  return entry == chart.others ? kGrey : kPalette[static_cast<std::size_t>(entry) % kMostSeries];
}

Colour ChartLineColour(const Chart& chart, int entry, Colour ground) {
  return StandingOut(ChartColour(chart, entry), ground, kMarkContrast);
}

void PaintEdge(ChartCanvas& canvas, const Chart& chart, int entry, std::vector<ChartPoint> corners,
               Colour ground) {
  const Colour edge = ChartLineColour(chart, entry, ground);
  if (corners.empty() || edge == ChartColour(chart, entry)) return;
  corners.push_back(corners.front());
  canvas.DrawLine(corners, {edge, kEdge});
}

// Each round through the markers takes the next dashes.
std::span<const double> ChartDashes(int entry) {
  return kDashes[static_cast<std::size_t>(entry) / kMarkers.size() % kDashes.size()];
}

void PaintMarker(ChartCanvas& canvas, const Chart& chart, int entry, ChartPoint middle,
                 Colour ground) {
  static const std::vector<ChartPoint> circle = Circle();
  std::span<const ChartPoint> shape = kMarkers[static_cast<std::size_t>(entry) % kMarkers.size()];
  if (shape.empty()) shape = circle;
  std::vector<ChartPoint> corners;
  for (const ChartPoint& corner : shape)
    corners.push_back({middle.x + corner.x * kReach, middle.y + corner.y * kReach});
  canvas.FillPolygon(corners, ChartColour(chart, entry));
  PaintEdge(canvas, chart, entry, std::move(corners), ground);
}

void PaintSwatch(ChartCanvas& canvas, const Chart& chart, int entry, const ChartBox& box,
                 Colour ground) {
  const ChartPoint middle = box.Middle();
  if (chart.choice.type == ChartType::Lines) {
    const ChartPoint line[] = {{box.x, middle.y}, {box.Right(), middle.y}};
    canvas.DrawLine(line, {ChartLineColour(chart, entry, ground), 1.5, ChartDashes(entry)});
    PaintMarker(canvas, chart, entry, middle, ground);
    return;
  }
  const double side = std::min({box.width, box.height, 9.0});
  const ChartBox square{middle.x - side / 2, middle.y - side / 2, side, side};
  canvas.FillBox(square, ChartColour(chart, entry));
  PaintEdge(canvas, chart, entry, square.Corners(), ground);
}

}  // namespace lm
