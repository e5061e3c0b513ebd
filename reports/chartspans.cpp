#include "reports/chartspans.h"

#include <algorithm>
#include <cmath>

namespace lm {
namespace {

bool Stacks(ChartType type) {
  return type == ChartType::Stacked || type == ChartType::Percent || type == ChartType::Areas;
}

}  // namespace

ChartSpans::ChartSpans(const Chart& chart)
    : chart_(chart),
      labels_(chart.labels.size()),
      above_(labels_ * chart.series.size()),
      below_(above_.size()),
      reach_(labels_, 0) {
  const bool stacks = Stacks(chart.choice.type);
  for (std::size_t label = 0; label < labels_; ++label) {
    for (const ChartSeries& series : chart.series) reach_[label] += std::abs(series.values[label]);
    const double unit =
        chart.choice.type == ChartType::Percent && reach_[label] > 0 ? reach_[label] : 1;
    double up = 0, down = 0;
    for (std::size_t series = 0; series < chart.series.size(); ++series) {
      const double value = chart.series[series].values[label] / unit;
      const std::size_t at = series * labels_ + label;
      above_[at] = {up, up + std::max(value, 0.0)};
      below_[at] = {down, down + std::min(value, 0.0)};
      range_.Hold(above_[at].to);
      range_.Hold(below_[at].to);
      if (!stacks) continue;
      up = above_[at].to;
      down = below_[at].to;
    }
  }
}

ChartSpan ChartSpans::Of(int series, int label) const {
  const double value =
      chart_.series[static_cast<std::size_t>(series)].values[static_cast<std::size_t>(label)];
  return value < 0 ? Below(series, label) : Above(series, label);
}

}  // namespace lm
