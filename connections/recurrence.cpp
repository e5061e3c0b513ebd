#include "connections/recurrence.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "connections/icalreader.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::array<std::string_view, 7> kWeekdays{"MO", "TU", "WE", "TH", "FR", "SA", "SU"};
// Months, weeks or days that lead out of the calendar from wherever a rule begins.
constexpr int kEndlessInterval = 4000000;

struct Rule {
  std::string_view frequency;
  std::array<bool, 7> days{};  // Monday first
  bool hasDays = false;
  std::optional<Date> until;
  int interval = 1;
  int count = kMostOccurrences;
  bool hasMonthDay = false;
};

int AtMost(std::string_view number, int most) {
  return static_cast<int>(std::clamp(std::trunc(Val(number)), 0.0, static_cast<double>(most)));
}

// Codes of weekdays anywhere in the text: "1MO,-1FR" names Monday and Friday.
void ReadDays(std::string_view text, Rule& rule) {
  for (std::size_t i = 0; i < kWeekdays.size(); ++i)
    rule.days[i] = text.find(kWeekdays[i]) != std::string_view::npos;
  rule.hasDays = std::ranges::find(rule.days, true) != rule.days.end();
}

void ReadPart(std::string_view part, Date today, Rule& rule) {
  const auto value = [&](std::string_view prefix) -> std::optional<std::string_view> {
    return part.starts_with(prefix) ? std::optional(part.substr(prefix.size())) : std::nullopt;
  };
  if (const auto text = value("FREQ=")) rule.frequency = *text;
  if (const auto text = value("BYDAY=")) ReadDays(*text, rule);
  if (const auto text = value("INTERVAL="))
    rule.interval = std::max(AtMost(*text, kEndlessInterval), 1);
  if (const auto text = value("COUNT="))
    if (const int count = AtMost(*text, kMostOccurrences); count > 0) rule.count = count;
  if (const auto text = value("BYMONTHDAY=")) rule.hasMonthDay = Val(*text) > 0;
  if (const auto text = value("UNTIL="))
    if (const auto day = ReadDay(*text, 1, 9999)) rule.until = std::min(*day, today + kDaysAhead);
}

Rule ReadRule(std::string_view text, Date today) {
  Rule rule;
  for (const std::string_view part : Split(text, ';')) ReadPart(part, today, rule);
  return rule;
}

// Counts the occurrences; false when there are to be no more.
class Occurrences {
 public:
  Occurrences(const Rule& rule, const std::function<void(Date, Date)>& act)
      : rule_(rule), act_(act) {}
  bool Next(Date first, Date last) {
    if (!InCalendar(first) || !InCalendar(last)) return false;
    if (rule_.until && first > *rule_.until) return false;
    act_(first, last);
    return ++count_ < rule_.count;
  }

 private:
  const Rule& rule_;
  const std::function<void(Date, Date)>& act_;
  int count_ = 0;
};

void Daily(const Rule& rule, Date first, Date last, Occurrences occurrences) {
  while (occurrences.Next(first, last)) {
    first += rule.interval;
    last += rule.interval;
  }
}

// A week begins on Monday: with an interval the weeks between are passed over there.
void Weekly(const Rule& rule, Date first, Date last, Occurrences occurrences) {
  if (!rule.hasDays) return;  // no day would ever match
  const double length = last - first;
  for (Date day = first;; ++day) {
    if (day > first && WeekdayMondayFirst(day) == 1) day += (rule.interval - 1) * 7.0;
    const bool matches = rule.days[static_cast<std::size_t>(WeekdayMondayFirst(day) - 1)];
    if (!InCalendar(day) || (matches && !occurrences.Next(day, day + length))) return;
  }
}

// From each date to the next: the 31st that became the 28th stays the 28th.
void Monthly(const Rule& rule, Date first, Date last, Occurrences occurrences) {
  if (!rule.hasMonthDay) return;
  while (occurrences.Next(first, last)) {
    first = AddMonths(first, rule.interval);
    last = AddMonths(last, rule.interval);
  }
}

}  // namespace

void ForEachOccurrence(std::string_view text, Date first, Date last, Date today,
                       const std::function<void(Date, Date)>& act) {
  const Rule rule = ReadRule(text, today);
  const Occurrences occurrences(rule, act);
  if (rule.frequency == "DAILY") Daily(rule, first, last, occurrences);
  if (rule.frequency == "WEEKLY") Weekly(rule, first, last, occurrences);
  if (rule.frequency == "MONTHLY") Monthly(rule, first, last, occurrences);
}

}  // namespace lm
