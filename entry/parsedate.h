// What a busy doctor types as a date, a time or an amount.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

// The date as dd/mm/yyyy in `result`, or the reason in `message`. `now` is the clock's time; an
// empty or blank text gives neither.
void ParseDate(std::string_view text, Date now, std::string& result, std::string& message);

}  // namespace lm
