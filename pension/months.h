// The month by which pension forms go, as the text "mmyyyy" ("042024"): the month key of every
// operation on forms. A form's MONTH cell holds "01/mm/yyyy".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

std::string MonthKey(Date date);
// Of a date cell (d/m/yyyy); "" for a cell that is no date, which is no month's key.
std::string MonthKeyOf(std::string_view dateCell);
// "01/04/2024"; "" for what is no key.
std::string MonthCell(std::string_view monthKey);
std::optional<Date> FirstDayOf(std::string_view monthKey);
// "Apr 2024" by "mmm yyyy"; "" for what is no key.
std::string MonthText(std::string_view monthKey, std::string_view pattern);

}  // namespace lm
