// Free text for times and amounts.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "entry/refusals.h"

namespace lm {

// The time as hh:nn, or why there is none. A bare hour below 7 is in the afternoon: surgeries do
// not start at 3 in the morning. `now` is the clock's time.
Entered ReadTime(std::string_view typed, Date now);

// The same with the reason as a text in `message`; an empty or blank text gives neither.
void ParseTime(std::string_view text, Date now, std::string& result, std::string& message);

}  // namespace lm
