// The days on which an expense that repeats falls due.
#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"

namespace lm {

struct Repeat {
  enum class Kind { Weekly, MonthlyDays, MonthlyThe };
  Kind kind;
  Date start;
  std::optional<Date> until;  // the last day that counts; without it `times` ends the repeat
  int times = 0;
  std::array<bool, 7> weekdays{};  // Weekly, Monday first
  std::bitset<32> days;            // MonthlyDays: the numbers of days, 1 to 31
  std::string which, weekday;      // MonthlyThe: "Last", "Friday", as typed dates have them
};

// In their order; a month without such a day is passed over. A repeat that would never end goes ten
// years ahead and no further.
std::vector<Date> DaysOfRepeat(const Repeat& repeat);

}  // namespace lm
