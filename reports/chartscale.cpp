#include "reports/chartscale.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace lm {
namespace {

constexpr double kTimes[] = {1, 2, 5, 10, 15, 30, 60};  // minutes
constexpr double kMinutesAnHour = 60;
constexpr double kTenth = 0.1;  // of the whole

// 1, 2 or 5 times a power of ten, not below the value.
double RoundUp(double value) {
  const double power = std::pow(10, std::floor(std::log10(value)));
  for (const double step : {1.0, 2.0, 5.0})
    if (value <= step * power * (1 + 1e-9)) return step * power;
  return 10 * power;
}

double RoundStep(double least, ChartFigures figures, bool shares) {
  if (shares) return std::max(RoundUp(least), kTenth);
  if (figures == ChartFigures::Count) return std::max(RoundUp(least), 1.0);
  if (figures == ChartFigures::Money) return std::max(RoundUp(least), 0.01);
  if (least <= kMinutesAnHour) return *std::ranges::lower_bound(kTimes, least);
  return RoundUp(least / kMinutesAnHour) * kMinutesAnHour;
}

}  // namespace

ChartScale MakeScale(ChartRange range, ChartFigures figures, bool shares, int mostSteps) {
  ChartScale scale;
  scale.figures = figures;
  scale.shares = shares;
  if (shares) range = {range.low < 0 ? range.low : 0, range.low < 0 ? range.high : 1};
  if (range.low == range.high) range.high = figures == ChartFigures::Hours ? kMinutesAnHour : 1;
  // Rounding both ends outwards may take two more steps than there are in between.
  const int most = std::max(mostSteps, 1);
  double least = (range.high - range.low) / most;
  do {
    scale.step = RoundStep(least, figures, shares);
    scale.low = std::floor(range.low / scale.step + 1e-9) * scale.step;
    scale.high = std::ceil(range.high / scale.step - 1e-9) * scale.step;
    least = scale.step * 1.5;
  } while (std::round((scale.high - scale.low) / scale.step) >
           std::max(most, range.low < 0 && range.high > 0 ? 2 : 1));
  return scale;
}

std::vector<double> ChartScale::Steps() const {
  std::vector<double> steps;
  const int count = static_cast<int>(std::round((high - low) / step));
  for (int i = 0; i <= count; ++i) {
    const double value = low + i * step;
    steps.push_back(std::abs(value) < step / 2 ? 0 : value);
  }
  return steps;
}

std::string ChartScale::Text(double value) const {
  return shares ? ShareText(value) : ChartValueText(value, figures);
}

}  // namespace lm
