#include "entry/parsetime.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/dates.h"

namespace lm {
namespace {

const std::string kInvalid = "Please enter a valid time.";
const std::string kHalfMessage = "If AM or PM is specified the hour cannot be greater than 12.";

struct Case {
  std::string typed;
  std::string expected;  // the time, or else the message
};

void Check(const std::vector<Case>& cases) {
  const Date now = DateSerial(2026, 2, 3) + TimeSerial(8, 5);
  for (const Case& each : cases) {
    std::string result = "left over", message = "left over";
    ParseTime(each.typed, now, result, message);
    EXPECT_TRUE(result.empty() || message.empty()) << each.typed;
    EXPECT_EQ(result + message, each.expected) << '"' << each.typed << '"';
  }
}

TEST(ParseTime, Words) {
  Check({{"now", "08:05"},
         {" N ", "08:05"},
         {"noon", "12:00"},
         {"mid-day", "12:00"},
         {"MIDAY", "12:00"},
         {"midnight", "00:00"},
         {"nine", "09:00"},
         {"five", "17:00"},
         {"ninethirty", "09:30"},
         {"nine thirty", "09:30"},
         {"nine thirty five", "09:35"},
         {"ten twenty-five", "10:25"},
         {"tenthirty", "10:30"},
         {"two fifteen", "14:15"},
         {"two fifteen am", "02:15"},
         {"nine forty five pm", "21:45"},
         {"eleven fifty five", "11:55"},
         {"twelve pm", "12:00"},
         {"8 thirty", "08:30"},
         {"ten five", "The minutes figure must have two digits."},
         {"nineteen", kInvalid},
         {"half past", kInvalid},
         {"quarter to nine", kInvalid}});
}

TEST(ParseTime, HoursAndHalves) {
  Check({{"3", "15:00"},
         {"6", "18:00"},
         {"7", "07:00"},
         {"9", "09:00"},
         {"09", "09:00"},
         {"06", "18:00"},
         {"12", "12:00"},
         {"23", "23:00"},
         {"24", "The hour must be between 00 and 23."},
         {"3am", "03:00"},
         {"3 pm", "15:00"},
         {"3 p.m.", "15:00"},
         {"9.30 a.m.", "09:30"},
         {"12am", "00:00"},
         {"12pm", "12:00"},
         {"12 midnight", kInvalid},
         {"11pm", "23:00"},
         {"13pm", kHalfMessage},
         {"13:30 am", kHalfMessage},
         {"24pm", "The hour must be between 00 and 23."},
         {"0", "00:00"},
         {"00", "00:00"},
         {"000", "00:00"},
         {"0:00", "00:00"},
         {"00:00", "00:00"},
         {"0:00 am", "00:00"},
         {"0am", "00:00"},
         {"0:30", "12:30"},
         {"0:30am", "00:30"},
         {"12:30am", "00:30"},
         {"am", kInvalid},
         {"m", kInvalid},
         {"3m", kInvalid}});
}

TEST(ParseTime, DigitsWithoutColon) {
  Check({{"930", "09:30"},
         {"630", "18:30"},
         {"930pm", "21:30"},
         {"0630", "06:30"},
         {"0030", "00:30"},
         {"0000", "00:00"},
         {"1730", "17:30"},
         {"0630pm", "18:30"},
         {"1230pm", "12:30"},
         {"1230am", "12:30"},
         {"2400", "The hour must be 00 to 23."},
         {"2360", "The minutes must be 00 to 59."},
         {"9999", "The hour must be 00 to 23."},
         {"960", "The minutes must be between 00 and 59."},
         {"173000", "17:30"},
         {"063059", "06:30"},
         {"030", "The hour must be between 00 and 23."},
         {"12345", kInvalid},
         {"1234567", kInvalid},
         {"abc", kInvalid},
         {"12x4", kInvalid},
         {"9a", kInvalid}});
}

TEST(ParseTime, WithSeparators) {
  Check({{"6:30", "18:30"},
         {"06:30", "18:30"},
         {"7:00", "07:00"},
         {" 9.30 ", "09:30"},
         {"9 30", "09:30"},
         {"9-30", "09:30"},
         {"9;30", "09:30"},
         {"9/30", "09:30"},
         {"9\\30", "09:30"},
         {"9,30", "09:30"},
         {"9:30am", "09:30"},
         {"2:30 PM", "14:30"},
         {"2:30:pm", "14:30"},
         {"23:59", "23:59"},
         {"24:00", "The hour must be between 00 and 23."},
         {"24:60", "The minutes must be between 00 and 59."},
         {"9:5", "The minutes figure must have two digits."},
         {"9:005", "The minutes figure must have two digits."},
         {"99999999999:30", "The hour must be between 00 and 23."},
         {"9:", kInvalid},
         {":30", kInvalid},
         {"9::30", kInvalid},
         {"17:30:00", kInvalid},
         {"a:30", kInvalid},
         {"9:3x", kInvalid}});
}

TEST(ParseTime, EmptyAndHostile) {
  Check({{"", ""},
         {"    ", ""},
         {":", kInvalid},
         {"\xFF\xE9", kInvalid},
         {std::string(1, '\0'), kInvalid},
         {std::string(101, '1'), kInvalid},
         {std::string(10'000'000, ':'), kInvalid},
         {std::string(200, ' ') + "9", "09:00"}});

  const std::vector<std::string> words = {"0", "9", "12",   "30",     "99",   ":",    " ",  "am",
                                          "p", "m", "five", "twenty", "noon", "\xE9", "-1", "."};
  std::mt19937 random(20260203);
  for (int i = 0; i < 20000; ++i) {
    std::string typed;
    for (auto count = random() % 6 + 1; count > 0; --count) typed += words[random() % words.size()];
    std::string result, message;
    ParseTime(typed, 46056.5, result, message);
    const bool blank = typed.find_first_not_of(' ') == std::string::npos;
    ASSERT_EQ(result.empty() && message.empty(), blank) << typed;
    if (!result.empty()) {
      const auto time = CellTime(result);
      ASSERT_TRUE(time && CellTimeText(*time) == result) << typed << " gave " << result;
    }
  }
}

}  // namespace
}  // namespace lm
