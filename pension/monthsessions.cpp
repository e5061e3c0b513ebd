#include "pension/monthsessions.h"

#include <algorithm>
#include <utility>

#include "core/rows.h"
#include "records/sessionrules.h"

namespace lm {

MonthSessions::MonthSessions(const Ledger& ledger, Month month) : ledger_(ledger), month_(month) {
  const Grid& sessions = ledger.fgSessions;
  const int startDate = sessions.ColIndex("SDATE");
  const int practice = sessions.ColIndex("PRACTICE");
  for (const int row : Records(sessions)) {
    if (!month.Has(sessions.TextMatrix(row, startDate))) continue;
    std::string practiceId = sessions.TextMatrix(row, practice);
    if (practiceId.empty()) {
      withoutPractice_.push_back(row);
      continue;
    }
    all_.push_back(row);
    byPractice_[std::move(practiceId)].push_back(row);
  }
}

const std::vector<int>& MonthSessions::Of(const std::string& practiceId) const {
  static const std::vector<int> kNone;
  const auto found = byPractice_.find(practiceId);
  return found == byPractice_.end() ? kNone : found->second;
}

bool MonthSessions::HasType(int sessionType, const std::string& practiceId) const {
  const auto isOfType = [&](int row) { return SessionTypeOf(ledger_, row) == sessionType; };
  if (!practiceId.empty()) return std::ranges::any_of(Of(practiceId), isOfType);
  return std::ranges::any_of(all_, isOfType) || std::ranges::any_of(withoutPractice_, isOfType);
}

}  // namespace lm
