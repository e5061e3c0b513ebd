// Calendar events: a holiday, a course, an appraisal. They earn nothing and stand on no paper.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

constexpr std::string_view kEventNeedsTitle = "A title must be entered.";
constexpr std::string_view kEventNeedsStart = "A start date must be entered.";
constexpr std::string_view kEventEndsEarly = "The end date cannot be earlier than the start date.";

// Whether an end comes before a start, by the texts of both; a missing or damaged one does not.
bool EndsBeforeItStarts(std::string_view startDate, std::string_view endDate);

// Whether the user means it; the texts of its days, "" for none, tell it from others of its title.
bool AskDeleteEvent(Ledger& ledger, const std::string& title, std::string_view startDate,
                    std::string_view endDate);
// Asks and removes the event; false after its message when no event is selected, or when the user
// thought better of it.
bool DeleteEventOfRow(Ledger& ledger, int row);

}  // namespace lm
