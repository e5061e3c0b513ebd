// The scale beside a chart: round steps that hold all values, and 0.
#pragma once

#include <string>
#include <vector>

#include "reports/chartseries.h"

namespace lm {

struct ChartRange {
  double low = 0, high = 0;
  void Hold(double value) {
    if (value < low) low = value;
    if (value > high) high = value;
  }
};

struct ChartScale {
  double low = 0, high = 1, step = 1;
  bool shares = false;  // 1 is the whole
  ChartFigures figures = ChartFigures::Money;

  std::vector<double> Steps() const;  // from low to high
  std::string Text(double value) const;
};

// At most so many steps, at least one; of whole pieces, round amounts, round times, or round parts
// of the whole.
ChartScale MakeScale(ChartRange range, ChartFigures figures, bool shares, int mostSteps);

}  // namespace lm
