#include "records/repeats.h"

#include <algorithm>

#include "core/format.h"
#include "entry/parsedate.h"

namespace lm {
namespace {

constexpr int kMostMonths = 120;

bool FallsOn(const Repeat& repeat, Date day) {
  if (repeat.kind == Repeat::Kind::Weekly)
    return repeat.weekdays[static_cast<std::size_t>(WeekdayMondayFirst(day) - 1)];
  return repeat.days.test(static_cast<std::size_t>(ToCivilDate(day).day));
}

// By the grammar of typed dates: "Last Day in 02 2018".
std::optional<Date> DayOfMonth(const Repeat& repeat, Date month) {
  std::string date, ignored;
  ParseDate(repeat.which + " " + repeat.weekday + " in " + FormatDate(month, "mm yyyy"), month,
            date, ignored);
  return CellDate(date);
}

}  // namespace

std::vector<Date> DaysOfRepeat(const Repeat& repeat) {
  std::vector<Date> days;
  const Date last = std::min(repeat.until.value_or(AddMonths(repeat.start, kMostMonths)),
                             AddMonths(repeat.start, kMostMonths));
  const auto enough = [&] {
    return !repeat.until && days.size() >= static_cast<std::size_t>(std::max(repeat.times, 0));
  };
  if (repeat.kind == Repeat::Kind::MonthlyThe) {
    for (Date month = FirstOfMonth(repeat.start); month <= last && !enough();
         month = AddMonths(month, 1)) {
      const auto day = DayOfMonth(repeat, month);
      if (day && *day >= repeat.start && *day <= last) days.push_back(*day);
    }
    return days;
  }
  for (Date day = repeat.start; day <= last && !enough(); ++day)
    if (FallsOn(repeat, day)) days.push_back(day);
  return days;
}

}  // namespace lm
