#include "reports/figures.h"

#include <cmath>

namespace lm {

namespace {

constexpr Double kMinutesADay = 1440;

}  // namespace

SessionHours::SessionHours(const Grid& sessions)
    : sessions_(sessions),
      startDate_(sessions.ColIndex("SDATE")),
      endDate_(sessions.ColIndex("EDATE")),
      startTime_(sessions.ColIndex("STIME")),
      endTime_(sessions.ColIndex("ETIME")) {}

std::optional<Double> SessionHours::Days(int row) const {
  const auto startTime = CellTime(sessions_.TextMatrix(row, startTime_));
  const auto endTime = CellTime(sessions_.TextMatrix(row, endTime_));
  if (!startTime || !endTime) return std::nullopt;
  const auto startDate = CellDate(sessions_.TextMatrix(row, startDate_));
  const std::string end = sessions_.TextMatrix(row, endDate_);
  const auto endDate = end.empty() ? startDate : CellDate(end);
  if (!startDate || !endDate) return std::nullopt;
  return std::round(((*endDate - *startDate) + (*endTime - *startTime)) * kMinutesADay) /
         kMinutesADay;
}

// An amount of at most four decimals is what it reads as; writing and reading it would change
// nothing.
Double AsKept(Double value) {
  constexpr Double kMost = 1e10;
  if (std::abs(value) < kMost && std::round(value * 1e4) / 1e4 == value) return value;
  return Val(PlainText(value));
}

}  // namespace lm
