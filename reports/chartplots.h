// The values of a chart inside its axes: columns, lines, areas, or a circle.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "reports/chartcanvas.h"
#include "reports/chartspans.h"

namespace lm {

// One value.
struct ChartPart {
  int series = 0;
  int label = 0;
  bool operator==(const ChartPart&) const = default;
};

class ChartPlot {
 public:
  virtual ~ChartPlot() = default;
  virtual void Paint(ChartCanvas& canvas) const = 0;
  // What stands at a point of the box; for a line, near it.
  virtual std::optional<ChartPart> At(ChartPoint point) const = 0;
  // Round the value, for marking it.
  virtual std::vector<ChartPoint> Outline(ChartPart part) const = 0;
};

// Where labels stand, side by side, and values, on the scale.
class ChartAxes {
 public:
  ChartAxes(const ChartBox& box, const ChartScale& scale, int labels)
      : box_(box), scale_(scale), labels_(labels) {}
  const ChartBox& Box() const { return box_; }
  const ChartScale& Scale() const { return scale_; }
  int Labels() const { return labels_; }
  double Slot() const { return box_.width / labels_; }
  double Left(int label) const { return box_.x + label * Slot(); }
  double Middle(int label) const { return Left(label) + Slot() / 2; }
  double Y(double value) const {
    return box_.Bottom() - (value - scale_.low) / (scale_.high - scale_.low) * box_.height;
  }
  int LabelAt(double x) const;  // the nearest

 private:
  ChartBox box_;
  ChartScale scale_;
  int labels_;
};

// All of what is handed over outlives the plot, `spans` apart, which it keeps. Labels that have
// less than a point of room share a slot: there the one whose values reach furthest stands for all.
std::unique_ptr<ChartPlot> MakePlot(const Chart& chart, ChartSpans spans, const ChartAxes& axes,
                                    const ChartInk& ink);
// In the middle of the box.
std::unique_ptr<ChartPlot> MakePie(const Chart& chart, const ChartBox& box, const ChartInk& ink);

}  // namespace lm
