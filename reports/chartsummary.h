// What a chart shows, in words for those who do not see it.
#pragma once

#include <string>

#include "reports/chartseries.h"

namespace lm {

// Of names every value: "Pie. A: 30.00 (35%); B: 55.00 (65%)". Of periods, of which there may be
// hundreds, the range and each practice's largest value: "Lines, Apr 25 to Mar 26. Riverside
// Surgery: 1510.00 at most, in Oct 25". Of an empty chart, that it is.
std::string ChartSummary(const Chart& chart);

}  // namespace lm
