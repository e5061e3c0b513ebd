// British Summer Time by the fixed rule that calendars are read with.
#pragma once

#include "core/dates.h"

namespace lm {

// The last Sundays of March and October at 02:00, whatever the law and the clocks of the year say.
struct SummerTime {
  Date begin, end;
};
SummerTime SummerTimeOf(int year);

// Local time of a time in UTC: an hour more from the beginning of summer time to its end, both
// included; all other times as they are.
Date LocalTimeOfUtc(Date utc);

}  // namespace lm
