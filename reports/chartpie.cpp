#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/contrast.h"
#include "reports/chartmarks.h"
#include "reports/chartplots.h"

namespace lm {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr ChartFont kShareFont{9, true};
constexpr double kOutside = 16;  // points round the circle, for the shares that it cannot hold

class PiePlot : public ChartPlot {
 public:
  PiePlot(const Chart& chart, const ChartBox& box, const ChartInk& ink)
      : chart_(chart), ink_(ink), middle_(box.Middle()) {
    radius_ = std::max(std::min(box.width, box.height) / 2 - kOutside, 1.0);
    const double whole = WholeOf(chart);
    ends_.push_back(0);
    for (const double value : chart.series.front().values)
      ends_.push_back(ends_.back() + value / whole);
  }

  void Paint(ChartCanvas& canvas) const override {
    for (int part = 0; part < Parts(); ++part)
      canvas.FillPolygon(Outline({0, part}), ChartColour(chart_, part));
    for (int part = 0; part < Parts() && Parts() > 1; ++part) {
      const ChartPoint edge[] = {middle_, On(radius_, Start(part))};
      canvas.DrawLine(edge, {ink_.ground, 1});
    }
    for (int part = 0; part < Parts(); ++part)
      PaintEdge(canvas, chart_, part, Outline({0, part}), ink_.ground);
    PaintShares(canvas);
  }

  std::optional<ChartPart> At(ChartPoint point) const override {
    const double x = point.x - middle_.x, y = point.y - middle_.y;
    if (std::hypot(x, y) > radius_) return std::nullopt;
    const double turned = std::atan2(x, -y) / kTurn;
    const double at = turned < 0 ? turned + 1 : turned;
    const auto end = std::ranges::upper_bound(ends_, at);
    const auto part = static_cast<int>(end - ends_.begin()) - 1;
    return ChartPart{0, std::clamp(part, 0, Parts() - 1)};
  }

  std::vector<ChartPoint> Outline(ChartPart part) const override {
    constexpr double kFine = 1 / 360.0;  // of a turn
    const double start = Start(part.label), end = Start(part.label + 1);
    std::vector<ChartPoint> corners;
    if (Parts() > 1) corners.push_back(middle_);
    const int steps = std::max(1, static_cast<int>(std::ceil((end - start) / kFine)));
    for (int i = 0; i <= steps; ++i)
      corners.push_back(On(radius_, start + (end - start) * i / steps));
    return corners;
  }

 private:
  int Parts() const { return static_cast<int>(ends_.size()) - 1; }
  double Start(int part) const { return ends_[static_cast<std::size_t>(part)]; }
  // From the top, clockwise.
  ChartPoint On(double radius, double turn) const {
    return {middle_.x + radius * std::sin(turn * kTurn),
            middle_.y - radius * std::cos(turn * kTurn)};
  }

  // In its part where that is wide enough, else beside it, unless the one before reaches there.
  void PaintShares(ChartCanvas& canvas) const {
    constexpr double kInside = 0.7, kAir = 6;
    double reached = -1;  // of the circle outside
    for (int part = 0; part < Parts(); ++part) {
      const double share = Start(part + 1) - Start(part), at = Start(part) + share / 2;
      const std::string text = ShareText(share);
      const double width = canvas.TextWidth(text, kShareFont) + kAir;
      const double room = share >= 0.5 ? 2 * radius_ * kInside
                                       : 2 * radius_ * kInside * std::sin(share * kTurn / 2);
      const bool inside = room >= width;
      const double needed = width / (kTurn * (radius_ + kOutside / 2)) / 2;
      if (!inside && (at - needed < reached || at + needed > 1 + std::min(0.0, reached))) continue;
      if (!inside) reached = at + needed;
      ChartPoint place = On(inside ? radius_ * kInside : radius_ + kOutside / 2 + 1, at);
      place.y += kShareFont.size * 0.36;
      const Colour colour = inside ? ReadableInk(ChartColour(chart_, part)) : ink_.text;
      const double aside = std::sin(at * kTurn);
      const ChartAnchor anchor = inside || std::abs(aside) < 0.3 ? ChartAnchor::Centre
                                 : aside > 0                     ? ChartAnchor::Left
                                                                 : ChartAnchor::Right;
      if (!inside && anchor != ChartAnchor::Centre) place.x += aside > 0 ? -4 : 4;
      canvas.DrawText(place, text, {kShareFont, anchor, colour});
    }
  }

  const Chart& chart_;
  ChartInk ink_;
  ChartPoint middle_;
  double radius_;
  std::vector<double> ends_;  // shares added up, from 0 to 1
};

}  // namespace

std::unique_ptr<ChartPlot> MakePie(const Chart& chart, const ChartBox& box, const ChartInk& ink) {
  return std::make_unique<PiePlot>(chart, box, ink);
}

}  // namespace lm
