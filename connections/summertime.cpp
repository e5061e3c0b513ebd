#include "connections/summertime.h"

#include <cmath>

namespace lm {
namespace {

constexpr double kMinutesADay = 1440;

Date LastSunday(int year, int month) {
  const Date last = DateSerial(year, month, DaysInMonth(year, month));
  return last - WeekdayMondayFirst(last) % 7;
}

double Minutes(Date date) { return std::round(date * kMinutesADay); }

}  // namespace

SummerTime SummerTimeOf(int year) {
  const Date change = TimeSerial(2, 0);
  return {LastSunday(year, 3) + change, LastSunday(year, 10) + change};
}

Date LocalTimeOfUtc(Date utc) {
  const SummerTime summer = SummerTimeOf(ToCivilDate(utc).year);
  const double minutes = Minutes(utc);
  const bool inSummer = Minutes(summer.begin) <= minutes && minutes <= Minutes(summer.end);
  return inSummer ? utc + 1.0 / 24 : utc;
}

}  // namespace lm
