// The sessions that begin in one month, found once for all the forms of that month. Rows added,
// removed or sorted, and start dates or practices changed, make it stale.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/ledger.h"
#include "pension/month.h"

namespace lm {

class MonthSessions {
 public:
  MonthSessions(const Ledger& ledger, Month month);

  Month InMonth() const { return month_; }
  // Rows of fgSessions in the order of the table, group rows and rows without a practice left out.
  const std::vector<int>& Of(const std::string& practiceId) const;
  const std::vector<int>& All() const { return all_; }
  // True when a session of this type is among those of the practice, or for "" among all that
  // begin in the month, also those without a practice.
  bool HasType(int sessionType, const std::string& practiceId = "") const;

 private:
  const Ledger& ledger_;
  Month month_;
  std::vector<int> all_;
  std::vector<int> withoutPractice_;
  std::unordered_map<std::string, std::vector<int>> byPractice_;
};

// Those of several months, each found when it is first asked for.
class SessionsByMonth {
 public:
  explicit SessionsByMonth(const Ledger& ledger) : ledger_(ledger) {}

  const MonthSessions& Of(Month month) {
    return months_.try_emplace(month, ledger_, month).first->second;
  }

 private:
  const Ledger& ledger_;
  std::map<Month, MonthSessions> months_;
};

}  // namespace lm
