// What a busy doctor types as a date, a time or an amount.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "entry/refusals.h"

namespace lm {

// The date as dd/mm/yyyy, or why there is none. `now` is the clock's time.
Entered ReadDate(std::string_view typed, Date now);

// The same with the reason as a text in `message`; an empty or blank text gives neither.
void ParseDate(std::string_view text, Date now, std::string& result, std::string& message);

}  // namespace lm
