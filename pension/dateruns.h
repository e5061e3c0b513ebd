// Sessions as unbroken runs of days, as the forms list them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

class MonthSessions;

struct DateRun {
  Date first = 0, last = 0;
  std::vector<int> sessions;  // rows of fgSessions, in the order of their start
};

// Runs that touch or overlap are one, and so are a run that ends on a Friday or Saturday and one
// that starts on a Sunday or Monday, however far apart: the test looks at the days of the week
// alone. A joined run ends where the one that starts later ends, also when that is earlier.
std::vector<DateRun> MergeRuns(std::vector<DateRun> runs);

// Each session on a Form A as a run of its own: from SDATE, which must be a date, to EDATE, or to
// SDATE where that is none.
std::vector<DateRun> SessionsOfFormA(const Ledger& ledger, const MonthSessions& sessions,
                                     const std::string& practiceId);

// The runs of the sessions on a Form A.
std::vector<DateRun> RunsOfFormA(const Ledger& ledger, const MonthSessions& sessions,
                                 const std::string& practiceId);

// The days of one session; empty when its SDATE is no date.
std::optional<DateRun> DaysOfSession(const Ledger& ledger, int row);

}  // namespace lm
