// Dates and times as days since 30/12/1899: the whole part is the day, the fraction the time of
// day. In cells they stand as dd/mm/yyyy and hh:nn.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lm {

using Date = double;  // days since 30/12/1899

struct CivilDate {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
};

struct CivilTime {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

struct DateRange {
  Date first;
  Date last;  // inclusive

  bool Has(const std::optional<Date>& day) const { return day && first <= *day && *day <= last; }
};

// True for what the functions below take for a date, the years 1 to 9999. They treat anything
// before or behind as the first or the last moment of those years, and what is no number as day 0.
bool InCalendar(Date date);

// The day of a calendar date. A month or day outside its range runs over into the next or the
// one before, as in DateSerial(2026, 13, 1) = 1 January 2027.
Date DateSerial(int year, int month, int day);
Date TimeSerial(int hour, int minute, int second = 0);  // fraction of a day

// Both to the nearest second, so that 23:59:59.9 is 00:00:00 of the day after.
CivilDate ToCivilDate(Date date);
CivilTime ToCivilTime(Date date);

int DaysInMonth(int year, int month);
int WeekdayMondayFirst(Date date);      // 1 Monday to 7 Sunday
Date AddMonths(Date date, int months);  // the day is cut to the length of the month it lands in
Date FirstOfMonth(Date date);
Date LastOfMonth(Date date);

// A cell's date: d/m/yyyy with one or two digits for day and month, four for the year (1899 to
// 9999), optionally followed by a blank and a time, of which the day is taken. Empty for anything
// else: a damaged cell never stops a list.
std::optional<Date> CellDate(std::string_view text);
// A cell's time: h:nn or hh:nn, optionally :ss; a fraction of a day.
std::optional<Date> CellTime(std::string_view text);
// Either, or both joined by a blank.
std::optional<Date> CellDateTime(std::string_view text);

// The first day of a month as reports name it, "Feb 26": of the years 1970 to 2069. Empty for
// anything else.
std::optional<Date> MonthOfText(std::string_view text);

std::string CellText(Date date);      // dd/mm/yyyy
std::string CellTimeText(Date date);  // hh:nn

}  // namespace lm
