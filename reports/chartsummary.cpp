#include "reports/chartsummary.h"

#include <algorithm>

#include "core/text.h"
#include "reports/chartdrawing.h"

namespace lm {
namespace {

std::string LargestOf(const Chart& chart, const ChartSeries& series) {
  const auto largest = std::ranges::max_element(series.values);
  const auto label = static_cast<std::size_t>(largest - series.values.begin());
  return series.name + ": " + ChartValueText(*largest, chart.figures) + " at most, in " +
         chart.labels[label];
}

}  // namespace

std::string ChartSummary(const Chart& chart) {
  if (chart.IsEmpty()) return std::string(kNothingToChart);
  std::string text(kChartTypeNames[static_cast<std::size_t>(chart.choice.type)]);
  const bool ofTime = chart.ofTime && !chart.IsPie();
  if (ofTime) text += ", " + chart.labels.front() + " to " + chart.labels.back();
  const char* before = ". ";
  const auto say = [&](const std::string& value) {
    text += before + Replace(value, "\n", ", ");
    before = "; ";
  };
  for (int series = 0; series < static_cast<int>(chart.series.size()); ++series) {
    if (ofTime) {
      say(LargestOf(chart, chart.series[static_cast<std::size_t>(series)]));
      continue;
    }
    for (int label = 0; label < static_cast<int>(chart.labels.size()); ++label)
      say(PartText(chart, {series, label}));
  }
  return text;
}

}  // namespace lm
