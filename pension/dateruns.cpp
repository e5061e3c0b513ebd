#include "pension/dateruns.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/text.h"
#include "pension/monthsessions.h"

namespace lm {
namespace {

enum Weekday { kMonday = 1, kFriday = 5, kSaturday = 6, kSunday = 7 };

bool SpansWeekend(const DateRun& run, const DateRun& next) {
  const int ends = WeekdayMondayFirst(run.last);
  const int starts = WeekdayMondayFirst(next.first);
  return (ends == kFriday || ends == kSaturday) && (starts == kSunday || starts == kMonday);
}

bool HasLetter(std::string_view forms, std::string_view letter) {
  const std::vector<std::string_view> letters = Split(forms, ',');
  return std::any_of(letters.begin(), letters.end(),
                     [&](std::string_view one) { return Trim(one) == letter; });
}

}  // namespace

std::vector<DateRun> MergeRuns(std::vector<DateRun> runs) {
  std::stable_sort(runs.begin(), runs.end(),
                   [](const DateRun& a, const DateRun& b) { return a.first < b.first; });
  std::vector<DateRun> merged;
  for (DateRun& next : runs) {
    if (merged.empty() ||
        (next.first > merged.back().last + 1 && !SpansWeekend(merged.back(), next))) {
      merged.push_back(std::move(next));
      continue;
    }
    DateRun& run = merged.back();
    run.last = next.last;
    run.sessions.insert(run.sessions.end(), next.sessions.begin(), next.sessions.end());
  }
  return merged;
}

std::optional<DateRun> DaysOfSession(const Ledger& ledger, int row) {
  const std::optional<Date> first = CellDate(ledger.fgSessions.TextMatrix(row, "SDATE"));
  if (!first) return std::nullopt;
  const std::optional<Date> last = CellDate(ledger.fgSessions.TextMatrix(row, "EDATE"));
  return DateRun{*first, last.value_or(*first), {row}};
}

std::vector<DateRun> SessionsOfFormA(const Ledger& ledger, const MonthSessions& sessions,
                                     const std::string& practiceId) {
  std::vector<DateRun> runs;
  for (const int row : sessions.Of(practiceId)) {
    if (!HasLetter(ledger.fgSessions.TextMatrix(row, "FORMS"), "A")) continue;
    if (std::optional<DateRun> days = DaysOfSession(ledger, row)) runs.push_back(std::move(*days));
  }
  return runs;
}

std::vector<DateRun> RunsOfFormA(const Ledger& ledger, const MonthSessions& sessions,
                                 const std::string& practiceId) {
  return MergeRuns(SessionsOfFormA(ledger, sessions, practiceId));
}

}  // namespace lm
