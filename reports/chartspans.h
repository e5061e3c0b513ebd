// From where to where each value of a chart reaches: beside one another from 0, or stacked, those
// above 0 upwards and those below downwards.
#pragma once

#include <vector>

#include "reports/chartscale.h"

namespace lm {

struct ChartSpan {
  double from = 0, to = 0;
};

class ChartSpans {
 public:
  explicit ChartSpans(const Chart& chart);

  // Of the value itself, stacked where the type stacks.
  ChartSpan Of(int series, int label) const;
  // Of a value's part above 0, and of that below, in their own stacks: an area needs both, for it
  // goes on where the value has changed sides.
  ChartSpan Above(int series, int label) const { return above_[At(series, label)]; }
  ChartSpan Below(int series, int label) const { return below_[At(series, label)]; }
  bool HasBelow() const { return range_.low < 0; }

  const ChartRange& Range() const { return range_; }
  // How far the label's values reach together; by that a label stands for its neighbours.
  double Reach(int label) const { return reach_[static_cast<std::size_t>(label)]; }

 private:
  std::size_t At(int series, int label) const {
    return static_cast<std::size_t>(series) * labels_ + static_cast<std::size_t>(label);
  }

  const Chart& chart_;
  std::size_t labels_;
  std::vector<ChartSpan> above_, below_;
  std::vector<double> reach_;
  ChartRange range_;
};

}  // namespace lm
