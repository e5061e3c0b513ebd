#include "reports/chartplots.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

#include "reports/chartmarks.h"

namespace lm {
namespace {

constexpr double kLeastSlot = 1;  // points
constexpr double kNear = 10;      // of the pointer from a line, and from a flat column

std::vector<ChartPoint> Corners(const ChartBox& box) {
  return {{box.x, box.y}, {box.Right(), box.y}, {box.Right(), box.Bottom()}, {box.x, box.Bottom()}};
}

// Labels that are drawn together, mostly one.
struct Slot {
  int first, last;
  int label;  // stands for all of them
};

class AxesPlot : public ChartPlot {
 public:
  AxesPlot(const Chart& chart, ChartSpans spans, const ChartAxes& axes, const ChartInk& ink)
      : chart_(chart), spans_(std::move(spans)), axes_(axes), ink_(ink) {
    const int together = std::max(1, static_cast<int>(std::ceil(kLeastSlot / axes.Slot())));
    for (int first = 0; first < axes.Labels(); first += together) {
      Slot slot{first, std::min(first + together, axes.Labels()) - 1, first};
      for (int label = first; label <= slot.last; ++label)
        if (spans_.Reach(label) > spans_.Reach(slot.label)) slot.label = label;
      slots_.push_back(slot);
    }
  }

 protected:
  int Series() const { return static_cast<int>(chart_.series.size()); }
  double ValueOf(ChartPart part) const {
    return chart_.series[static_cast<std::size_t>(part.series)]
        .values[static_cast<std::size_t>(part.label)];
  }
  bool Dense() const { return static_cast<int>(slots_.size()) < axes_.Labels(); }
  const Slot& SlotAt(double x) const {
    const auto together = static_cast<std::size_t>(slots_.front().last + 1);
    return slots_[static_cast<std::size_t>(axes_.LabelAt(x)) / together];
  }
  double LeftOf(const Slot& slot) const { return axes_.Left(slot.first); }
  double WidthOf(const Slot& slot) const { return (slot.last - slot.first + 1) * axes_.Slot(); }
  double MiddleOf(const Slot& slot) const { return LeftOf(slot) + WidthOf(slot) / 2; }
  Slot SlotOf(int label) const {
    return Dense() ? SlotAt(axes_.Middle(label)) : Slot{label, label, label};
  }

  const Chart& chart_;
  ChartSpans spans_;
  ChartAxes axes_;
  ChartInk ink_;
  std::vector<Slot> slots_;
};

class ColumnPlot : public AxesPlot {
 public:
  using AxesPlot::AxesPlot;

  void Paint(ChartCanvas& canvas) const override {
    for (const Slot& slot : slots_)
      for (const int series : PaintOrder(slot.label)) {
        ChartBox box = BoxOf({series, slot.label}, slot);
        if (ValueOf({series, slot.label}) == 0) continue;
        // A hair of the ground keeps the layers of a stack apart.
        if (Stacked() && box.height > 3) box.height -= 0.6;
        canvas.FillBox(box, ChartColour(chart_, series));
        PaintEdge(canvas, chart_, series, box.Corners(), ink_.ground);
      }
  }

  std::optional<ChartPart> At(ChartPoint point) const override {
    const Slot& slot = SlotAt(point.x);
    std::vector<int> order = PaintOrder(slot.label);
    std::ranges::reverse(order);
    for (const double air : {0.0, kNear})
      for (const int series : order) {
        ChartBox box = BoxOf({series, slot.label}, slot);
        box.y -= air;
        box.height += 2 * air;
        if ((air == 0 || !Stacked()) && box.Has(point)) return ChartPart{series, slot.label};
      }
    return std::nullopt;
  }

  std::vector<ChartPoint> Outline(ChartPart part) const override {
    return Corners(BoxOf(part, SlotOf(part.label)));
  }

 private:
  static constexpr double kWidest = 64, kShare = 0.8, kGap = 1, kHair = 0.75;

  bool Stacked() const { return chart_.choice.type != ChartType::Columns; }
  int SideBySide() const { return Stacked() ? 1 : Series(); }
  double GroupWidth(const Slot& slot) const {
    const double slotWidth = WidthOf(slot);
    return Dense() ? slotWidth : std::min(slotWidth * kShare, kWidest * SideBySide());
  }
  // Too narrow to stand side by side: they stand behind one another, the tallest at the back.
  bool Behind() const { return GroupWidth(slots_.front()) / SideBySide() < kHair; }

  std::vector<int> PaintOrder(int label) const {
    std::vector<int> order(static_cast<std::size_t>(Series()));
    std::iota(order.begin(), order.end(), 0);
    if (!Stacked() && Behind())
      std::ranges::stable_sort(order, std::greater(), [&](int series) {
        return std::abs(ValueOf({series, label}));
      });
    return order;
  }

  ChartBox BoxOf(ChartPart part, const Slot& slot) const {
    const double group = GroupWidth(slot), left = MiddleOf(slot) - group / 2;
    const ChartSpan span = spans_.Of(part.series, part.label);
    const double from = axes_.Y(span.from), to = axes_.Y(span.to);
    ChartBox box{left, std::min(from, to), group, std::abs(to - from)};
    if (Stacked() || Behind()) return box;
    box.width = group / SideBySide();
    box.x += part.series * box.width;
    if (box.width > 4 * kGap) box.width -= kGap;
    return box;
  }
};

class LinePlot : public AxesPlot {
 public:
  using AxesPlot::AxesPlot;

  void Paint(ChartCanvas& canvas) const override {
    const bool marked = axes_.Labels() == 1 || axes_.Slot() > 9;
    for (int series = 0; series < Series(); ++series) {
      const std::vector<ChartPoint> points = PointsOf(series);
      const double width = Dense() ? 0.75 : 1.6;
      canvas.DrawLine(points,
                      {ChartLineColour(chart_, series, ink_.ground), width, ChartDashes(series)});
      if (!marked) continue;
      for (const ChartPoint& point : points)
        PaintMarker(canvas, chart_, series, point, ink_.ground);
    }
  }

  std::optional<ChartPart> At(ChartPoint point) const override {
    const Slot& slot = SlotAt(point.x);
    std::optional<ChartPart> nearest;
    double least = kNear;
    for (int label = slot.first; label <= slot.last; ++label)
      for (int series = 0; series < Series(); ++series) {
        const double distance = std::abs(Place({series, label}).y - point.y);
        if (distance > least) continue;
        least = distance;
        nearest = ChartPart{series, label};
      }
    return nearest;
  }

  std::vector<ChartPoint> Outline(ChartPart part) const override {
    constexpr double kReach = 5;
    const ChartPoint place = Place(part);
    return Corners({place.x - kReach, place.y - kReach, 2 * kReach, 2 * kReach});
  }

 private:
  ChartPoint Place(ChartPart part) const {
    return {axes_.Middle(part.label), axes_.Y(ValueOf(part))};
  }

  // Where several labels share a slot, its lowest and its highest value, in their order.
  std::vector<ChartPoint> PointsOf(int series) const {
    std::vector<ChartPoint> points;
    for (const Slot& slot : slots_) {
      int low = slot.first, high = slot.first;
      for (int label = slot.first; label <= slot.last; ++label) {
        if (ValueOf({series, label}) < ValueOf({series, low})) low = label;
        if (ValueOf({series, label}) > ValueOf({series, high})) high = label;
      }
      points.push_back(Place({series, std::min(low, high)}));
      if (low != high) points.push_back(Place({series, std::max(low, high)}));
    }
    return points;
  }
};

class AreaPlot : public AxesPlot {
 public:
  using AxesPlot::AxesPlot;

  void Paint(ChartCanvas& canvas) const override {
    for (int series = 0; series < Series(); ++series) {
      PaintBand(canvas, series, &ChartSpans::Above);
      if (spans_.HasBelow()) PaintBand(canvas, series, &ChartSpans::Below);
    }
  }

  std::optional<ChartPart> At(ChartPoint point) const override {
    const Slot& slot = SlotAt(point.x);
    for (int series = 0; series < Series(); ++series) {
      const auto [from, to] = Height({series, slot.label});
      if (point.y >= to && point.y < from) return ChartPart{series, slot.label};
    }
    return std::nullopt;
  }

  std::vector<ChartPoint> Outline(ChartPart part) const override {
    constexpr double kReach = 2;
    const auto [from, to] = Height(part);
    return Corners({MiddleOf(SlotOf(part.label)) - kReach, to, 2 * kReach, from - to});
  }

 private:
  using Band = ChartSpan (ChartSpans::*)(int series, int label) const;

  // The lower edge on the paper, and the upper.
  std::pair<double, double> Height(ChartPart part) const {
    const ChartSpan span = spans_.Of(part.series, part.label);
    const double from = axes_.Y(span.from), to = axes_.Y(span.to);
    return {std::max(from, to), std::min(from, to)};
  }

  void PaintBand(ChartCanvas& canvas, int series, Band band) const {
    std::vector<ChartPoint> corners, back;
    const auto add = [&](double x, ChartSpan span) {
      corners.push_back({x, axes_.Y(span.to)});
      back.push_back({x, axes_.Y(span.from)});
    };
    for (const Slot& slot : slots_) {
      const ChartSpan span = (spans_.*band)(series, slot.label);
      // A single label has no neighbour to reach to.
      if (slots_.size() == 1) add(LeftOf(slot), span);
      add(slots_.size() == 1 ? LeftOf(slot) + WidthOf(slot) : MiddleOf(slot), span);
    }
    corners.insert(corners.end(), back.rbegin(), back.rend());
    canvas.FillPolygon(corners, ChartColour(chart_, series));
    PaintEdge(canvas, chart_, series, std::move(corners), ink_.ground);
  }
};

}  // namespace

int ChartAxes::LabelAt(double x) const {
  const double label = std::floor((x - box_.x) / Slot());
  return static_cast<int>(std::clamp(label, 0.0, labels_ - 1.0));
}

std::unique_ptr<ChartPlot> MakePlot(const Chart& chart, ChartSpans spans, const ChartAxes& axes,
                                    const ChartInk& ink) {
  if (chart.choice.type == ChartType::Lines)
    return std::make_unique<LinePlot>(chart, std::move(spans), axes, ink);
  if (chart.choice.type == ChartType::Areas)
    return std::make_unique<AreaPlot>(chart, std::move(spans), axes, ink);
  return std::make_unique<ColumnPlot>(chart, std::move(spans), axes, ink);
}

}  // namespace lm
