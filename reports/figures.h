// What all reports make of sessions and figures.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/grid.h"
#include "core/numbers.h"

namespace lm {

// The columns of fgSessions that tell how long a session lasted, looked up once for many rows.
class SessionHours {
 public:
  explicit SessionHours(const Grid& sessions);
  // Whole minutes, in days: below zero for a session that ends before it starts. Without an end
  // date it ends on the day on which it starts. Nothing where a date or time is missing or damaged.
  std::optional<Double> Days(int row) const;

 private:
  const Grid& sessions_;
  int startDate_, endDate_, startTime_, endTime_;
};

// The number as a cell keeps it, to 15 significant digits.
Double AsKept(Double value);

}  // namespace lm
