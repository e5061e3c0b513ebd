// Which recorded session stands in the way of one that is to come.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// When a session is worked. Without an end, and with one that is not behind the start, it has its
// start alone.
struct Stretch {
  Date start = 0;
  std::optional<Date> end;
};

// Of the texts of four cells; an empty end date is the start's. Nothing without a start that can be
// read.
std::optional<Stretch> StretchOf(std::string_view startDate, std::string_view startTime,
                                 std::string_view endDate, std::string_view endTime);

// The sessions of a ledger by day, as they are when it is made.
class Clashes {
 public:
  explicit Clashes(const Ledger& ledger);
  // The ID of the first session that begins when this one begins, or is worked while it is; nothing
  // for none. Of two sessions the one in the higher row is first.
  std::optional<std::string> With(const Stretch& stretch) const;

 private:
  struct Session {
    Stretch stretch;
    std::string id;
  };
  std::vector<Session> sessions_;                             // in the order of their rows
  std::unordered_map<int, std::vector<std::size_t>> perDay_;  // of sessions_, by day touched
  std::vector<std::size_t> long_;                             // that touch more days than a few
};

}  // namespace lm
