// Which sessions the Sessions page shows: tabSessions chooses a period, and the rows outside it
// are hidden.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

enum class SessionPeriod { Current, ThisMonth, LastMonth, ThisTaxYear, Uninvoiced, All };

// The captions of tabSessions, in the order of SessionPeriod.
std::vector<std::string> SessionPeriodCaptions();

struct DateRange {
  Date first;
  Date last;  // inclusive
};

// The days of a period seen from today; none for Uninvoiced and All, which do not go by date.
std::optional<DateRange> DaysOfPeriod(const Ledger& ledger, SessionPeriod period, Date today);

// The first day of the tax year, 6 April, in which the day lies.
Date TaxYearStart(Date day);

class SessionPeriodFilter {
 public:
  explicit SessionPeriodFilter(Ledger& ledger) : ledger_(ledger) {}

  // Hides the rows outside the period and shows the others; the list must not be grouped. A session
  // without a readable date shows on Current and All, so that nothing is out of sight without a
  // reason.
  void Apply(SessionPeriod period);
  // A session that stays shown, whatever its date, until the tab changes: one just saved must not
  // vanish.
  void Keep(std::string_view id) {
    if (!id.empty()) kept_.emplace(id);
  }
  void ForgetKept() { kept_.clear(); }

 private:
  Ledger& ledger_;
  std::unordered_set<std::string> kept_;
};

}  // namespace lm
