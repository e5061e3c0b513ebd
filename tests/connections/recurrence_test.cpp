#include "connections/recurrence.h"

#include <gtest/gtest.h>

#include "connections/summertime.h"

namespace lm {
namespace {

const Date kToday = DateSerial(2026, 2, 3);

// The first day, how many there are and the last one, as "dd/mm/yyyy n dd/mm/yyyy"; "" for none.
std::string Days(std::string_view rule, Date first = DateSerial(2026, 2, 9), double length = 0) {
  int count = 0;
  std::string begin, end;
  ForEachOccurrence(rule, first, first + length, kToday, [&](Date day, Date last) {
    if (++count == 1) begin = CellText(day);
    end = CellText(last);
  });
  return count == 0 ? "" : begin + " " + std::to_string(count) + " " + end;
}

TEST(Recurrence, GivesTheDaysOfARule) {
  const std::vector<std::pair<std::string, std::string>> kRules = {
      {"FREQ=DAILY;COUNT=3", "09/02/2026 3 11/02/2026"},
      {"FREQ=DAILY;COUNT=200", "09/02/2026 50 30/03/2026"},
      {"FREQ=DAILY", "09/02/2026 50 30/03/2026"},
      {"FREQ=DAILY;COUNT=0", "09/02/2026 50 30/03/2026"},
      {"FREQ=DAILY;COUNT=-4;INTERVAL=-4", "09/02/2026 50 30/03/2026"},
      {"COUNT=2;FREQ=DAILY;INTERVAL=10;WKST=SU", "09/02/2026 2 19/02/2026"},
      {"FREQ=DAILY;INTERVAL=30;UNTIL=20360101T000000Z", "09/02/2026 12 05/01/2027"},
      {"FREQ=DAILY;INTERVAL=30;UNTIL=99991231", "09/02/2026 12 05/01/2027"},
      {"FREQ=DAILY;UNTIL=18000101", ""},
      {"FREQ=DAILY;UNTIL=20260211T235959Z", "09/02/2026 3 11/02/2026"},
      {"FREQ=DAILY;UNTIL=20260208", ""},
      {"FREQ=DAILY;UNTIL=20260230;COUNT=2", "09/02/2026 2 10/02/2026"},
      {"FREQ=DAILY;INTERVAL=99999999999", "09/02/2026 1 09/02/2026"},
      // 9 February is a Monday.
      {"FREQ=WEEKLY;BYDAY=MO,WE;COUNT=4", "09/02/2026 4 18/02/2026"},
      {"FREQ=WEEKLY;BYDAY=SU;COUNT=2;INTERVAL=2", "15/02/2026 2 01/03/2026"},
      {"FREQ=WEEKLY;BYDAY=2TU,-1FR;COUNT=2", "10/02/2026 2 13/02/2026"},
      {"FREQ=WEEKLY;BYDAY=TU;UNTIL=20360101", "10/02/2026 50 19/01/2027"},
      {"FREQ=WEEKLY;BYDAY=TU;INTERVAL=2;UNTIL=20360101", "10/02/2026 26 26/01/2027"},
      {"FREQ=WEEKLY", ""},
      {"FREQ=WEEKLY;BYDAY=mo;UNTIL=99991231", ""},
      {"FREQ=WEEKLY;BYDAY=TU;INTERVAL=2147483647", "10/02/2026 1 10/02/2026"},
      {"FREQ=MONTHLY;BYMONTHDAY=9;COUNT=3", "09/02/2026 3 09/04/2026"},
      {"FREQ=MONTHLY;BYMONTHDAY=31;COUNT=2;INTERVAL=2147483647", "09/02/2026 1 09/02/2026"},
      {"FREQ=MONTHLY;BYDAY=2MO", ""},
      {"FREQ=MONTHLY;BYMONTHDAY=-1", ""},
      {"FREQ=YEARLY;COUNT=3", ""},
      {"freq=daily", ""},
      {"", ""},
  };
  for (const auto& [rule, days] : kRules) EXPECT_EQ(Days(rule), days) << rule;
}

TEST(Recurrence, MovesBothEndsAndCutsAMonthForGood) {
  EXPECT_EQ(Days("FREQ=MONTHLY;BYMONTHDAY=31;COUNT=3", DateSerial(2026, 1, 31)),
            "31/01/2026 3 28/03/2026");
  EXPECT_EQ(Days("FREQ=WEEKLY;BYDAY=TU;COUNT=1", DateSerial(2026, 2, 9), 2),
            "10/02/2026 1 12/02/2026");
  EXPECT_EQ(Days("FREQ=DAILY;INTERVAL=400", DateSerial(9998, 12, 31)), "31/12/9998 1 31/12/9998");
}

TEST(SummerTime, HoldsBothItsBounds) {
  const auto shifted = [](int month, int day, int hour, int minute) {
    const Date utc = DateSerial(2026, month, day) + TimeSerial(hour, minute);
    return CellText(LocalTimeOfUtc(utc)) + " " + CellTimeText(LocalTimeOfUtc(utc));
  };
  EXPECT_EQ(shifted(3, 29, 1, 59), "29/03/2026 01:59");
  EXPECT_EQ(shifted(3, 29, 2, 0), "29/03/2026 03:00");
  EXPECT_EQ(shifted(7, 1, 23, 30), "02/07/2026 00:30");
  EXPECT_EQ(shifted(10, 25, 2, 0), "25/10/2026 03:00");
  EXPECT_EQ(shifted(10, 25, 2, 1), "25/10/2026 02:01");
  EXPECT_EQ(CellText(SummerTimeOf(2024).begin), "31/03/2024");
  EXPECT_EQ(CellText(SummerTimeOf(2027).end), "31/10/2027");
}

}  // namespace
}  // namespace lm
