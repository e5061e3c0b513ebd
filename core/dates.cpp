#include "core/dates.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

#include "core/text.h"

namespace lm {

namespace {

namespace chr = std::chrono;

constexpr chr::sys_days kDayZero = chr::year{1899} / 12 / 30;
constexpr int kSecondsADay = 24 * 60 * 60;

constexpr int DaysSinceZero(chr::sys_days day) {
  return static_cast<int>((day - kDayZero).count());
}

constexpr int kFirstDay = DaysSinceZero(chr::year{1} / 1 / 1);
constexpr int kLastDay = DaysSinceZero(chr::year{9999} / 12 / 31);

struct Moment {
  int day = 0;     // since 30/12/1899
  int second = 0;  // of the day
};

// The nearest whole second. A fraction of a day is seldom exact, and 23:59:59.9999 is midnight of
// the day after. What no calendar holds is kept at its ends.
Moment ToMoment(Date date) {
  if (std::isnan(date)) date = 0;
  const Date held = std::clamp(date, Date{kFirstDay}, kLastDay + 1 - 1.0 / kSecondsADay);
  const std::int64_t seconds = std::llround((held - kFirstDay) * kSecondsADay);
  return {static_cast<int>(seconds / kSecondsADay) + kFirstDay,
          static_cast<int>(seconds % kSecondsADay)};
}

chr::sys_days ToSysDays(Date date) { return kDayZero + chr::days{ToMoment(date).day}; }

// Takes a number of `least` to `most` digits off the front of the text; -1 when there is none.
int TakeNumber(std::string_view& text, std::size_t least, std::size_t most) {
  int number = 0;
  std::size_t taken = 0;
  for (; taken < most && taken < text.size() && text[taken] >= '0' && text[taken] <= '9'; ++taken)
    number = number * 10 + (text[taken] - '0');
  if (taken < least) return -1;
  text.remove_prefix(taken);
  return number;
}

bool TakeChar(std::string_view& text, char c) {
  if (text.empty() || text[0] != c) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<Date> TakeDate(std::string_view& text) {
  const int day = TakeNumber(text, 1, 2);
  if (day < 1 || !TakeChar(text, '/')) return std::nullopt;
  const int month = TakeNumber(text, 1, 2);
  if (month < 1 || !TakeChar(text, '/')) return std::nullopt;
  const int year = TakeNumber(text, 4, 4);
  if (year < 1899) return std::nullopt;
  const chr::year_month_day date{chr::year{year}, chr::month{static_cast<unsigned>(month)},
                                 chr::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return std::nullopt;
  return DaysSinceZero(date);
}

std::optional<Date> TakeTime(std::string_view& text) {
  const int hour = TakeNumber(text, 1, 2);
  if (hour < 0 || hour > 23 || !TakeChar(text, ':')) return std::nullopt;
  const int minute = TakeNumber(text, 2, 2);
  if (minute < 0 || minute > 59) return std::nullopt;
  const int second = TakeChar(text, ':') ? TakeNumber(text, 2, 2) : 0;
  if (second < 0 || second > 59) return std::nullopt;
  return TimeSerial(hour, minute, second);
}

// The first day of a month, counted in months since the year 0.
Date MonthStart(std::int64_t months) {
  const int held = static_cast<int>(std::clamp<std::int64_t>(months, 12, 10000 * 12));
  return DaysSinceZero(chr::year{held / 12} / chr::month{static_cast<unsigned>(held % 12 + 1)} / 1);
}

std::int64_t MonthNumber(int year, int month) { return std::int64_t{year} * 12 + month - 1; }

struct DateAndTime {
  Date date = 0, time = 0;
};

std::optional<DateAndTime> ReadDate(std::string_view text) {
  const std::optional<Date> date = TakeDate(text);
  if (!date) return std::nullopt;
  if (text.empty()) return DateAndTime{*date, 0};
  if (!TakeChar(text, ' ')) return std::nullopt;
  const std::optional<Date> time = CellTime(text);
  if (!time) return std::nullopt;
  return DateAndTime{*date, *time};
}

std::string TwoDigits(int number) { return PadLeft(std::to_string(number), 2, '0'); }

}  // namespace

bool InCalendar(Date date) { return date >= kFirstDay && date < kLastDay + 1; }

Date DateSerial(int year, int month, int day) {
  return MonthStart(MonthNumber(year, month)) + day - 1;
}

Date TimeSerial(int hour, int minute, int second) {
  return (hour * 3600.0 + minute * 60.0 + second) / kSecondsADay;
}

CivilDate ToCivilDate(Date date) {
  const chr::year_month_day civil{ToSysDays(date)};
  return {static_cast<int>(civil.year()), static_cast<int>(static_cast<unsigned>(civil.month())),
          static_cast<int>(static_cast<unsigned>(civil.day()))};
}

CivilTime ToCivilTime(Date date) {
  const int second = ToMoment(date).second;
  return {second / 3600, second / 60 % 60, second % 60};
}

int DaysInMonth(int year, int month) {
  const std::int64_t months = MonthNumber(year, month);
  return static_cast<int>(MonthStart(months + 1) - MonthStart(months));
}

int WeekdayMondayFirst(Date date) {
  return static_cast<int>(chr::weekday{ToSysDays(date)}.iso_encoding());
}

Date AddMonths(Date date, int months) {
  const CivilDate from = ToCivilDate(date);
  const CivilTime time = ToCivilTime(date);
  const Date first = MonthStart(MonthNumber(from.year, from.month) + months);
  const CivilDate to = ToCivilDate(first);
  return first + std::min(from.day, DaysInMonth(to.year, to.month)) - 1 +
         TimeSerial(time.hour, time.minute, time.second);
}

Date FirstOfMonth(Date date) {
  const CivilDate civil = ToCivilDate(date);
  return DateSerial(civil.year, civil.month, 1);
}

Date LastOfMonth(Date date) {
  const CivilDate civil = ToCivilDate(date);
  return DateSerial(civil.year, civil.month + 1, 0);
}

std::optional<Date> CellDate(std::string_view text) {
  const auto read = ReadDate(text);
  if (!read) return std::nullopt;
  return read->date;
}

std::optional<Date> CellTime(std::string_view text) {
  const std::optional<Date> time = TakeTime(text);
  return text.empty() ? time : std::nullopt;
}

std::optional<Date> CellDateTime(std::string_view text) {
  const auto read = ReadDate(text);
  if (!read) return CellTime(text);
  return read->date + read->time;
}

std::optional<Date> MonthOfText(std::string_view text) {
  constexpr std::string_view kNames = "JanFebMarAprMayJunJulAugSepOctNovDec";
  constexpr int kFirstYear = 70;
  if (text.size() != 6 || text[3] != ' ' || !AllDigits(text.substr(4))) return std::nullopt;
  const std::size_t at = kNames.find(text.substr(0, 3));
  if (at == std::string_view::npos || at % 3 != 0) return std::nullopt;
  const int year = (text[4] - '0') * 10 + (text[5] - '0');
  return DateSerial(year < kFirstYear ? 2000 + year : 1900 + year, static_cast<int>(at / 3) + 1, 1);
}

std::string CellText(Date date) {
  const CivilDate civil = ToCivilDate(date);
  return TwoDigits(civil.day) + '/' + TwoDigits(civil.month) + '/' +
         PadLeft(std::to_string(civil.year), 4, '0');
}

std::string CellTimeText(Date date) {
  const CivilTime time = ToCivilTime(date);
  return TwoDigits(time.hour) + ':' + TwoDigits(time.minute);
}

}  // namespace lm
