#include "core/dates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace lm {
namespace {

TEST(Dates, EveryDayOfThreeCenturiesSurvivesItsCell) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  Date expected = -363;  // 01/01/1899
  int weekday = 7;       // a Sunday
  for (int year = 1899; year < 2200; ++year) {
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    for (int month = 1; month <= 12; ++month) {
      const int days = kDays[month - 1] + (month == 2 && leap);
      ASSERT_EQ(DaysInMonth(year, month), days);
      for (int day = 1; day <= days; ++day, ++expected, weekday = weekday % 7 + 1) {
        ASSERT_EQ(DateSerial(year, month, day), expected);
        ASSERT_EQ(CellDate(CellText(expected)), expected);
        ASSERT_EQ(WeekdayMondayFirst(expected + 0.9), weekday);
      }
    }
  }
}

TEST(Dates, KnownDays) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(2000, 1, 1), 36526);
  EXPECT_EQ(WeekdayMondayFirst(36526), 6);
  EXPECT_EQ(CellText(36526.75), "01/01/2000");
}

TEST(Dates, DateSerialRunsOver) {
  const struct {
    int year, month, day;
    std::string_view text;
  } cases[] = {
      {2026, 13, 1, "01/01/2027"}, {2026, 0, 1, "01/12/2025"},  {2026, -11, 1, "01/01/2025"},
      {2026, 3, 0, "28/02/2026"},  {2024, 2, 30, "01/03/2024"}, {2026, 1, -30, "01/12/2025"},
  };
  for (const auto& c : cases) EXPECT_EQ(CellText(DateSerial(c.year, c.month, c.day)), c.text);
  EXPECT_EQ(DaysInMonth(2026, 14), 28);
}

TEST(Dates, AddMonthsCutsTheDay) {
  const struct {
    std::string_view from;
    int months;
    std::string_view to;
  } cases[] = {
      {"31/01/2026", 1, "28/02/2026"},   {"31/01/2024", 1, "29/02/2024"},
      {"29/02/2024", 12, "28/02/2025"},  {"31/03/2026", -1, "28/02/2026"},
      {"15/01/2026", -13, "15/12/2024"}, {"31/12/2026", 0, "31/12/2026"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(CellText(AddMonths(*CellDate(c.from), c.months)), c.to) << c.from;
  EXPECT_EQ(CellTimeText(AddMonths(*CellDateTime("31/01/2026 09:30"), 1)), "09:30");
  EXPECT_EQ(CellText(FirstOfMonth(*CellDate("29/02/2024"))), "01/02/2024");
  EXPECT_EQ(CellText(LastOfMonth(*CellDate("01/12/2024"))), "31/12/2024");
}

TEST(Dates, CellsThatAreNoDates) {
  for (const std::string_view text : {"",
                                      " ",
                                      "banana",
                                      "1/2",
                                      "1/2/26",
                                      "01/02/20266",
                                      "31/02/2018",
                                      "29/02/2023",
                                      "00/01/2026",
                                      "01/00/2026",
                                      "01/13/2026",
                                      "32/01/2026",
                                      "1/1/1898",
                                      "001/1/2026",
                                      "-1/1/2026",
                                      "01-02-2026",
                                      "01/02/2026 ",
                                      " 01/02/2026",
                                      "01/02/2026x",
                                      "01/02/2026 25:00",
                                      "01/02/2026  9:00",
                                      "//2026",
                                      "99999999999/1/2026",
                                      "1/2/\xB2\xB2\xB2\xB2"}) {
    EXPECT_EQ(CellDate(text), std::nullopt) << text;
    EXPECT_EQ(CellDateTime(text), std::nullopt) << text;
  }
  EXPECT_EQ(CellDate("1/2/2026"), CellDate("01/02/2026"));
  EXPECT_EQ(CellDate("01/02/2026 23:59"), DateSerial(2026, 2, 1));
  EXPECT_EQ(CellDate("31/12/9999"), DateSerial(9999, 12, 31));
  EXPECT_EQ(CellDate("09:30"), std::nullopt);
}

TEST(Dates, CellTimes) {
  for (const std::string_view text : {"", "9", "930", "24:00", "09:60", "9:3", "009:30", "9:30:60",
                                      "9:30:", "9:30 ", "9.30", "-1:00", "9:30pm", "01/02/2026"})
    EXPECT_EQ(CellTime(text), std::nullopt) << text;
  EXPECT_EQ(CellTime("12:00"), 0.5);
  EXPECT_EQ(CellTime("6:00"), CellTime("06:00:00"));
  EXPECT_EQ(CellDateTime("01/01/2000 18:00"), 36526.75);
  EXPECT_EQ(CellDateTime("18:00"), 0.75);
  for (int minute = 0; minute < 24 * 60; ++minute) {
    const Date time = TimeSerial(minute / 60, minute % 60);
    ASSERT_EQ(CellTime(CellTimeText(time)), time);
    ASSERT_EQ(CellTimeText(46056 + time), CellTimeText(time));
  }
}

TEST(Dates, TheNearestSecondMayBeTomorrow) {
  const Date nearly = DateSerial(2026, 2, 3) + 0.9999999;
  EXPECT_EQ(CellText(nearly), "04/02/2026");
  EXPECT_EQ(CellTimeText(nearly), "00:00");
  EXPECT_EQ(WeekdayMondayFirst(nearly), 3);
  EXPECT_EQ(CellText(-0.25), "29/12/1899");
  EXPECT_EQ(CellTimeText(-0.25), "18:00");
}

TEST(Dates, NumbersThatAreNoDatesStayInTheCalendar) {
  constexpr Date kInfinity = std::numeric_limits<Date>::infinity();
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(CellText(kInfinity), "31/12/9999");
  EXPECT_EQ(CellText(-1e300), "01/01/0001");
  EXPECT_EQ(CellText(std::nan("")), "30/12/1899");
  EXPECT_EQ(CellText(DateSerial(kMost, kMost, 1)), "31/12/9999");
  EXPECT_EQ(CellText(DateSerial(-kMost, -kMost, 1)), "01/01/0001");
  EXPECT_EQ(CellText(AddMonths(kInfinity, kMost)), "31/12/9999");
  EXPECT_EQ(CellText(AddMonths(0, -kMost)), "30/01/0001");
  EXPECT_TRUE(InCalendar(DateSerial(9999, 12, 31) + 0.5));
  EXPECT_FALSE(InCalendar(DateSerial(9999, 12, 31) + 1));
  EXPECT_FALSE(InCalendar(std::nan("")));
}

}  // namespace
}  // namespace lm
