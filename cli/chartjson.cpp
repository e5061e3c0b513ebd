#include "cli/chartjson.h"

namespace lm {

Json ChartLine(const Chart& chart) {
  Json labels = Json::array(), series = Json::array();
  for (const std::string& label : chart.labels) labels.push_back(Utf8(label));
  for (const ChartSeries& each : chart.series)
    series.push_back({{"name", Utf8(each.name)}, {"values", each.values}});
  return {{"chart",
           {{"type", static_cast<int>(chart.choice.type)},
            {"group", chart.choice.group == ChartGroup::Date ? "Date" : "Practice"},
            {"labels", labels},
            {"series", series}}}};
}

}  // namespace lm
