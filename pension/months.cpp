#include "pension/months.h"

#include "core/format.h"
#include "core/text.h"

namespace lm {

std::string MonthKey(Date date) { return FormatDate(date, "mmyyyy"); }

std::string MonthKeyOf(std::string_view dateCell) {
  const std::optional<Date> date = CellDate(dateCell);
  return date ? MonthKey(*date) : "";
}

std::optional<Date> FirstDayOf(std::string_view monthKey) {
  if (monthKey.size() != 6 || !AllDigits(monthKey)) return std::nullopt;
  return CellDate("01/" + std::string(monthKey.substr(0, 2)) + "/" +
                  std::string(monthKey.substr(2)));
}

std::string MonthCell(std::string_view monthKey) {
  const std::optional<Date> first = FirstDayOf(monthKey);
  return first ? CellText(*first) : "";
}

std::string MonthText(std::string_view monthKey, std::string_view pattern) {
  const std::optional<Date> first = FirstDayOf(monthKey);
  return first ? FormatDate(*first, pattern) : "";
}

}  // namespace lm
