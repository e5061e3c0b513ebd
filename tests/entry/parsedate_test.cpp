#include "entry/parsedate.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/dates.h"

namespace lm {
namespace {

struct Case {
  std::string typed;
  std::string expected;  // the date, or else the message
};

// A date and a message never come together; for the tables they are one text.
std::string Parsed(std::string_view typed, Date now) {
  std::string result = "left over", message = "left over";
  ParseDate(typed, now, result, message);
  EXPECT_TRUE(result.empty() || message.empty()) << typed;
  return result + message;
}

void Check(Date now, const std::vector<Case>& cases) {
  for (const Case& each : cases) {
    EXPECT_EQ(Parsed(each.typed, now), each.expected) << '"' << each.typed << '"';
  }
}

Date At(int day, int month, int year, int hour = 10, int minute = 30) {
  return DateSerial(year, month, day) + TimeSerial(hour, minute);
}

const Date kTuesday = At(3, 2, 2026);
const std::string kTooFewDays = "There aren't this many days in the month.";

TEST(ParseDate, DaysAndFullDates) {
  Check(kTuesday, {
                      {"25", "25/02/2026"},
                      {"5", "05/02/2026"},
                      {" 05 ", "05/02/2026"},
                      {"28", "28/02/2026"},
                      {"29", kTooFewDays},
                      {"99", kTooFewDays},
                      {"5x", "Invalid Date"},
                      {"x5", "Invalid date"},
                      {"0", "Invalid date"},
                      {"00", "Invalid date"},
                      {"123", "Invalid date"},
                      {"1/2", "01/02/2026"},
                      {"2/1", "02/01/2026"},
                      {"10-11-12", "10/11/2012"},
                      {"5/6/7", "05/06/2007"},
                      {"5.6.18", "05/06/2018"},
                      {"5,6;2018", "05/06/2018"},
                      {"5\\6:2018", "05/06/2018"},
                      {"5 / 6 / 2018", "05/06/2018"},
                      {"5   -   6  2018", "05/06/2018"},
                      {"/5/6/", "05/06/2026"},
                      {"1/1/0", "01/01/2000"},
                      {"1/1/00", "01/01/2000"},
                      {"1/1/000", "01/01/2000"},
                      {"1/1/99", "01/01/2099"},
                      {"31/12/1900", "31/12/1900"},
                      {"31/12/2199", "31/12/2199"},
                      {"31/12/1899", "The year must be greater than 1899"},
                      {"1/1/018", "The year must be greater than 1899"},
                      {"1/1/2200", "The year must be less than 2200"},
                      {"1/1/999999", "The year must be less than 2200"},
                      {"1/1/9999999", "Invalid date"},
                      {"0/1", "The day must be between 1 and 31"},
                      {"32/1", "The day must be between 1 and 31"},
                      {"1/0", "The month must be between 1 and 12"},
                      {"1/13/2018", "The month must be between 1 and 12"},
                      {"32/13/1800", "The day must be between 1 and 31"},
                      {"31/02/2018", kTooFewDays},
                      {"29/2/2018", kTooFewDays},
                      {"29/2/2016", "29/02/2016"},
                      {"29/2/2100", kTooFewDays},
                      {"29/2/2000", "29/02/2000"},
                      {"1/2/3/4", "Invalid date"},
                      {"001/2/2018", "Invalid date"},
                      {"1/002/2018", "Invalid date"},
                      {"2018/2/1", "Invalid date"},
                      {"a/b/2018", "Invalid date"},
                      {"1/2/20x8", "Invalid date"},
                  });
}

TEST(ParseDate, MonthNames) {
  Check(kTuesday, {
                      {"25 dec", "25/12/2026"},
                      {"25 December 2017", "25/12/2017"},
                      {"1 febuary", "01/02/2026"},
                      {"1 jume", "01/06/2026"},
                      {"1 jne", "01/06/2026"},
                      {"1 jly 17", "01/07/2017"},
                      {"1 sept", "01/09/2026"},
                      {"1 spt", "01/09/2026"},
                      {"1 august", "01/08/2026"},
                      {"1 of the august", "01/08/2026"},
                      {"1 off august", "01/08/2026"},
                      {"august", "08/02/2026"},
                      {"1jan", "01/01/2026"},
                      {"5march", "05/03/2026"},
                      {"25DEC2017", "25/12/2017"},
                      {"11jan", "11/01/2026"},
                      {"1nov", "01/11/2026"},
                      {"5/march2018", "05/03/2018"},
                      {"march5", "05/03/2026"},
                      {"march26th", "26/03/2026"},
                      {"jan1 2018", "01/01/2018"},
                      {"march2018", "Invalid date"},
                      {"31feb", kTooFewDays},
                      {"mon 5 march", "05/03/2026"},
                      {"thursday 6th march", "06/03/2026"},
                      {"fr 25", "25/02/2026"},
                      {"1 banana", "Invalid date"},
                      {"decide", "Invalid date"},
                  });
}

TEST(ParseDate, Ordinals) {
  Check(kTuesday,
        {
            {"26th", "26/02/2026"},
            {"11th", "11/02/2026"},
            {"30th", kTooFewDays},
            {"26th march", "26/03/2026"},
            {"100th", "Invalid date"},
            {"1st", "01/02/2026"},
            {"first", "01/02/2026"},
            {"5th", "05/02/2026"},
            {"first march", "01/03/2026"},
            {"3rd of march 2017", "03/03/2017"},
            {"2ndmarch", "02/03/2026"},
            {"scnd march", "02/03/2026"},
            {"frth march", "04/03/2026"},
            {"first day of march", "01/03/2026"},
            {"4th day of march", "04/03/2026"},
            {"third day", "03/02/2026"},
            // "FIFTH/DAY" is no day of its own: the day is then 1, and alone it is nothing.
            {"fifth day of march", "01/03/2026"},
            {"fifth day", "Invalid Date"},
            // The rewriting of ordinals knows no word's beginning: "2FIRST".
            {"21st", "Invalid date"},
            {"22nd", "Invalid date"},
            {"23rd", "Invalid date"},
            {"24th", "Invalid date"},
            {"25th", "Invalid date"},
            {"31st", "Invalid date"},
            {"25th december", "Invalid date"},
        });
}

TEST(ParseDate, OrdinalWeekdays) {
  Check(kTuesday, {
                      {"third thursday of june 2017", "15/06/2017"},
                      {"3rd tuesday in june 2018", "19/06/2018"},
                      {"1st thur june 2017", "01/06/2017"},
                      {"second thursday june 17", "08/06/2017"},
                      {"last fri of march", "27/03/2026"},
                      {"l tues of march", "31/03/2026"},
                      {"last sun of february 2016", "28/02/2016"},
                      {"last monday in february 2016", "29/02/2016"},
                      {"fifth monday in february", kTooFewDays},
                      {"fifth monday in february 2016", "29/02/2016"},
                      {"fifth sunday in march 2026", "29/03/2026"},
                      {"fifth monday in march 2026", "30/03/2026"},
                      {"fifth wednesday in march 2026", kTooFewDays},
                      {"first monday", "02/02/2026"},
                      {"fourth sat", "28/02/2026"},
                      {"fifth sat", kTooFewDays},
                      {"first monday next month", "02/03/2026"},
                      {"first su in march", "Invalid date"},
                      {"first monday in march 1850", "The year must be greater than 1899"},
                      {"lastmonday", "Invalid date"},
                  });
}

TEST(ParseDate, LastDays) {
  Check(kTuesday, {
                      {"l", "28/02/2026"},
                      {"Last", "28/02/2026"},
                      {"last day", "28/02/2026"},
                      {"the last day", "28/02/2026"},
                      {"last day of march", "31/03/2026"},
                      {"lastday/4/17", "30/04/2017"},
                      {"last day of february 2016", "29/02/2016"},
                      {"last day of december", "31/12/2026"},
                      {"last march", "31/03/2026"},
                      {"last/2/2100", "28/02/2100"},
                      {"l/2/2018", "28/02/2018"},
                      {"l/12/2018", "31/12/2018"},
                      {"l feb 16", "29/02/2016"},
                      {"last day of last month", "31/01/2026"},
                      {"last day of banana", "Invalid date"},
                      {"last day of 2018", "Invalid date"},
                      {"l/13/2018", "The month must be between 1 and 12"},
                      {"l/2/2200", "The year must be less than 2200"},
                  });
}

TEST(ParseDate, DayWords) {
  for (const char* word : {"t", "today", "tod", "TDY", "tday", "Now"}) {
    EXPECT_EQ(Parsed(word, kTuesday), "03/02/2026") << word;
  }
  for (const char* word : {"y", "yes", "yest", "yesterday", "yestrday"}) {
    EXPECT_EQ(Parsed(word, At(1, 1, 2026)), "31/12/2025") << word;
  }
  for (const char* word :
       {"tom", "tomm", "tomo", "tomoro", "tomorrow", "tommorrow", "tomorow", "tommorow"}) {
    EXPECT_EQ(Parsed(word, At(28, 2, 2024)), "29/02/2024") << word;
    EXPECT_EQ(Parsed(word, At(31, 12, 2025)), "01/01/2026") << word;
  }
}

TEST(ParseDate, WeekdaysOfThisWeekAndTheNext) {
  Check(kTuesday, {{"mon", "09/02/2026"},
                   {"tu", "10/02/2026"},
                   {"wed", "04/02/2026"},
                   {"wens", "04/02/2026"},
                   {"next wed", "04/02/2026"},
                   {"next fri", "06/02/2026"},
                   {"nex fri", "06/02/2026"},
                   {"FRIDAY", "06/02/2026"},
                   {"sun", "08/02/2026"},
                   {"su", "Invalid date"},
                   {"this fri", "Invalid date"},
                   {"last tues", "03/02/2026"},
                   {"last wed", "28/01/2026"},
                   {"last fri", "30/01/2026"},
                   {"last sun", "01/02/2026"}});
  const Date monday = At(2, 2, 2026), sunday = At(1, 2, 2026);
  Check(monday, {{"mon", "09/02/2026"}, {"last monday", "02/02/2026"}, {"sun", "08/02/2026"}});
  Check(sunday, {{"sun", "08/02/2026"}, {"sat", "07/02/2026"}, {"last sun", "01/02/2026"}});
  // At midnight today's own name has not begun before now.
  Check(At(2, 2, 2026, 0, 0), {{"mon", "02/02/2026"}});
  Check(At(31, 12, 2025), {{"fri", "02/01/2026"}, {"mon", "05/01/2026"}});
  Check(At(1, 1, 2026), {{"last wed", "31/12/2025"}});
}

TEST(ParseDate, RelativeMonthsAndYears) {
  const Date endOfJanuary = At(31, 1, 2026), leapDay = At(29, 2, 2024), december = At(5, 12, 2026);
  Check(endOfJanuary, {{"25 next month", "25/02/2026"},
                       {"31 next month", kTooFewDays},
                       {"last day of next month", "28/02/2026"},
                       {"25 this month", "25/01/2026"},
                       {"25 of last month", "25/12/2026"},
                       {"next month", "02/01/2026"},
                       {"5 march next year", "05/03/2027"},
                       {"5 march last year", "05/03/2025"},
                       {"5/3/this year", "05/03/2026"},
                       {"next year", "Invalid date"}});
  Check(leapDay,
        {{"29", "29/02/2024"}, {"29/2/next year", kTooFewDays}, {"28/2/last year", "28/02/2023"}});
  Check(december, {{"5 next month", "05/01/2026"}, {"31", "31/12/2026"}});
  Check(At(30, 4, 2026), {{"31", kTooFewDays}, {"30", "30/04/2026"}});
}

TEST(ParseDate, EmptyAndHostile) {
  Check(kTuesday, {{"", ""},
                   {"     ", ""},
                   {"-", "Invalid date"},
                   {"////////", "Invalid date"},
                   {"the", "Invalid date"},
                   {"/the/", "Invalid date"},
                   {"banana", "Invalid date"},
                   {"\xFF\xE9\x80", "Invalid date"},
                   {"5\xA0march", "Invalid date"},
                   {std::string(1, '\0'), "Invalid date"},
                   {"1\t2", "Invalid date"},
                   {std::string(101, '1'), "Invalid date"},
                   {std::string(10'000'000, '/'), "Invalid date"},
                   {std::string(200, ' ') + "tom" + std::string(200, ' '), "04/02/2026"}});
}

// Whatever words meet: a date that exists, or a message.
TEST(ParseDate, AnyMixtureOfWordsGivesADateOrAMessage) {
  const std::vector<std::string> words = {
      "next", "last",  "l",   "first", "5th", "day",  "month", "year", "mon", "tuesday", "th",
      "jan",  "march", "may", "1",     "25",  "2018", "0",     "-",    " ",   "/",       "of",
      "st",   "rd",    "the", "in",    "of",  "\xE9", "+",     "e9",   "999", "this"};
  std::mt19937 random(20260203);
  for (int i = 0; i < 20000; ++i) {
    std::string typed;
    for (auto count = random() % 7 + 1; count > 0; --count) {
      typed += words[random() % words.size()] + (random() % 2 ? " " : "");
    }
    std::string result, message;
    ParseDate(typed, kTuesday, result, message);
    const bool blank = typed.find_first_not_of(' ') == std::string::npos;
    ASSERT_EQ(result.empty() && message.empty(), blank) << typed;
    if (!result.empty()) {
      const auto date = CellDate(result);
      ASSERT_TRUE(date && CellText(*date) == result) << typed << " gave " << result;
    }
  }
}

}  // namespace
}  // namespace lm
