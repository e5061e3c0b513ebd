// The days on which an appointment that recurs takes place. Daily rules, weekly rules with days and
// monthly rules with a day of the month are understood; every other gives nothing.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

constexpr int kMostOccurrences = 50;
constexpr int kDaysAhead = 365;  // after today; a rule says until when it lasts, but not for ever

// `rule` is an RRULE's value, "FREQ=DAILY;COUNT=3", `first` and `last` the days of the
// appointment's start and end. Calls with the two days of each occurrence, at most kMostOccurrences
// times, none later than its UNTIL or the year 9999.
void ForEachOccurrence(std::string_view rule, Date first, Date last, Date today,
                       const std::function<void(Date first, Date last)>& act);

}  // namespace lm
