// The practices of a Form B: what the Forms A that came back in its month add up to for each.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/formoverlay.h"

namespace lm {

struct PracticeLine {
  std::string practiceId;
  Currency amount, pensionable;
  std::optional<Date> firstDay, lastDay;  // worked; none without a session that has its dates
  std::optional<Date> received;           // the latest
};

// In the order in which fgPensionA names them first; practices without an amount are left out.
std::vector<PracticeLine> PracticesOfFormB(const Ledger& ledger, const SessionsOf& sessionsOf,
                                           std::string_view monthKey);

}  // namespace lm
