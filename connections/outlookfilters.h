// What is asked of Outlook's calendar, as the texts that Restrict takes.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

// The Subject of appointments that stand for sessions.
constexpr std::string_view kWorkSubject = "Work";

// [Start] = "03/02/2026 09:00" AND [End] = "..." AND [Location] = "...": the texts as sessions have
// them; quotes within are doubled.
std::string AppointmentFilter(std::string_view start, std::string_view end,
                              std::string_view location);
// The days between two dates, themselves left out.
std::string BetweenFilter(Date first, Date last);
std::string WorkFilter();

}  // namespace lm
