// What is told of the records of a calendar's cell while the pointer rests on it.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

struct CalendarTip {
  std::string title;    // the day
  std::string details;  // lines parted by CR LF; "" for a cell without records
};

CalendarTip TipOf(const Ledger& ledger, Date day, std::string_view tag);

}  // namespace lm
