// A session moved to another day, and in Week and Detail to another time, by dragging it.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// Why a session stays where it is: it is on an invoice or a pension form; "" when it may be moved.
std::string WhyNotMoved(const Ledger& ledger, std::string_view sessionId);

// Asks, and moves; with a `time` (hh:nn) the session starts then and keeps its length, without one
// its times stay. False when it may not be moved or the user thought better of it.
bool MoveSession(Ledger& ledger, std::string_view sessionId, Date day, std::string_view time);

}  // namespace lm
