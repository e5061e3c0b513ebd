// Free text for times and amounts.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

// The time as hh:nn in `result`, or the reason in `message`. A bare hour below 7 is in the
// afternoon: surgeries do not start at 3 in the morning. An empty or blank text gives neither.
void ParseTime(std::string_view text, Date now, std::string& result, std::string& message);

}  // namespace lm
