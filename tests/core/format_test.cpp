#include "core/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/text.h"

namespace lm {
namespace {

TEST(Format, Numbers) {
  const struct {
    Double value;
    std::string_view pattern, text;
  } cases[] = {
      {0, "0.00", "0.00"},
      {2.675, "0.00", "2.68"},
      {1.005, "0.00", "1.01"},
      {-2.675, "0.00", "-2.68"},
      {0.005, "0.00", "0.01"},
      {0.0049999, "0.00", "0.00"},
      {9.999, "0.00", "10.00"},
      {-0.001, "0.00", "0.00"},
      {-0.0, "0.00", "0.00"},
      {1234567.891, "#,##0.00", "1,234,567.89"},
      {999.995, "#,##0.00", "1,000.00"},
      {123, "#,##0.00", "123.00"},
      {0, "#,##0.00", "0.00"},
      {1234.5, "#,##0", "1,235"},
      {0.4, "#,##0", "0"},
      {1234.5, "£#,##0.00"_w, "£1,234.50"_w},
      {-5, "£#,##0.00"_w, "-£5.00"_w},
      {0.5, "£#,##.00"_w, "£.50"_w},
      {1200, "£#,##.00"_w, "£1,200.00"_w},
      {0, "#", ""},
      {0.4, "#", ""},
      {-0.4, "#", ""},
      {7, "#", "7"},
      {12, "#0.00", "12.00"},
      {42, "00000", "00042"},
      {123456, "00000", "123456"},
      {7, "00", "07"},
      {5, "00,000", "00,005"},
      {0.14375, "0%", "14%"},
      {0.145, "0%", "15%"},
      {-0.004, "0%", "0%"},
      {1.5, "0.##", "1.5"},
      {2, "0.##", "2."},
      {1.256, "0.0#", "1.26"},
      {12.5, ".00", "12.50"},
      {5, "0.00 pounds", "5.00 pounds"},
      {5, "\"0 #\" 0", "0 # 5"},
      {5, "\\#0", "#5"},
      {123456, "00-00-00", "12-34-56"},
      {1234567, "00-00-00", "123-45-67"},
      {5, "0.00;(0.00)", "5.00"},
      {-5, "0.00;(0.00)", "(5.00)"},
      {-0.001, "0.00;(0.00)", "0.00"},
      {0, "0.00;(0.00);nil", "nil"},
      {-0.001, "0;(0.00);\"none; at all\"", "none; at all"},
      {-5, "0;;nil", "-5"},
      {12, "Fee: ", "Fee: "},
      {1.5, "", "1.5"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Format(c.value, c.pattern), c.text) << c.value << " " << c.pattern;
}

TEST(Format, TheKindDecidesWhereAHalfLies) {
  const Single halfAnHour = static_cast<Single>(0.5f * 73.33f);
  EXPECT_EQ(Format(halfAnHour, "0.00"), "36.67");
  EXPECT_EQ(Format(36.665f, "0.00"), "36.67");
  EXPECT_EQ(Format(static_cast<Double>(36.665f), "0.00"), "36.67");
  EXPECT_EQ(Format(36.664996f, "0.00"), "36.67");  // seven digits: 36.66500
  EXPECT_EQ(Format(36.664996, "0.00"), "36.66");
  EXPECT_EQ(Format(34727.625f, "0.00"), "34727.63");
  EXPECT_EQ(Format(34727.125f, "#,##0.00"), "34,727.13");
  EXPECT_EQ(Format(-34727.625f, "0.00"), "-34727.63");
  EXPECT_EQ(Format(34727.62f, "0.00"), "34727.62");
  EXPECT_EQ(Format(Currency::FromTenThousandths(-26750), "0.00"), "-2.68");
  EXPECT_EQ(Format(Currency::FromTenThousandths(9223372036854775807), "#,##0.0000"),
            "922,337,203,685,477.5807");
  EXPECT_EQ(Money(0.125), "0.13");
  EXPECT_EQ(Money(-12.0f), "-12.00");
  EXPECT_EQ(Format(7, "00"), "07");
}

TEST(Format, NothingEscapesOrOverflows) {
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  for (const Double value : {kInfinity, -kInfinity, std::nan("")}) {
    EXPECT_EQ(Format(value, "0.00"), "0.00");
    EXPECT_EQ(Format(static_cast<Single>(value), "0.00"), "0.00");
    EXPECT_EQ(Format(value, ""), "0");
    EXPECT_EQ(Format(value, "dd/mm/yyyy"), "0");
  }
  EXPECT_EQ(Format(1e308, "0.00"), "1" + std::string(308, '0') + ".00");
  EXPECT_EQ(Format(1e308, "#,##0").size(), 309u + 102u);
  EXPECT_EQ(Format(1e308, "0%").size(), 311u + 1u);
  EXPECT_EQ(Format(5e-324, "0.00"), "0.00");
  EXPECT_EQ(Format(1.0, std::string(1000, '0')).size(), 1000u);
  EXPECT_EQ(Format(1e300, "dd/mm/yyyy"), PlainText(1e300));
}

TEST(Format, Dates) {
  const Date date = *CellDateTime("03/02/2026 13:05:09");
  const struct {
    std::string_view pattern, text;
  } cases[] = {
      {"dd/mm/yyyy", "03/02/2026"},
      {"d/m/yy", "3/2/26"},
      {"ddd dd/mm/yyyy", "Tue 03/02/2026"},
      {"dddd dd mmmm yyyy", "Tuesday 03 February 2026"},
      {"ddd d mmmm yyyy", "Tue 3 February 2026"},
      {"Mmm yyyy", "Feb 2026"},
      {"MMMM YYYY", "February 2026"},
      {"mmyyyy", "022026"},
      {"dd-mm-yyyy hh:nn:ss", "03-02-2026 13:05:09"},
      {"yyyymmddhhnnss+01'00'", "20260203130509+01'00'"},
      {"yyyy-mm-ddThh:nn:ss", "2026-02-03T13:05:09"},
      {"hh:mm", "13:02"},  // m is the month, behind the hour too
      {"hhnn", "1305"},
      {"h:n:s", "13:5:9"},
      {"h:nn AMPM", "1:05 PM"},
      {"hh:nnampm", "01:05PM"},
      {"h:nn am/pm", "1:05 PM"},
      {"y yyy", "y 26y"},
      {"\"day \"d\\d", "day 3d"},
      {"d \"of m", "3 of m"},
      {"d\\", "3\\"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatDate(date, c.pattern), c.text) << c.pattern;

  const struct {
    std::string_view time, twelve, twentyFour;
  } hours[] = {{"00:05", "12:05 AM", "0:05"},
               {"11:59", "11:59 AM", "11:59"},
               {"12:00", "12:00 PM", "12:00"},
               {"23:59", "11:59 PM", "23:59"}};
  for (const auto& c : hours) {
    EXPECT_EQ(Format(c.time, "h:nn AMPM"), c.twelve);
    EXPECT_EQ(Format(c.time, "h:nn"), c.twentyFour);
  }
}

TEST(Format, TextsAreTakenForWhatTheyAre) {
  const struct {
    std::string_view text, pattern, result;
  } cases[] = {
      {"1234.5", "£#,##0.00"_w, "£1,234.50"_w},
      {"1,234.5", "£#,##0.00"_w, "£1,234.50"_w},
      {"-5", "£#,##0.00"_w, "-£5.00"_w},
      {"2.675", "0.00", "2.68"},
      {"12,3x", "0.00", "12,3x"},
      {"", "0.00", ""},
      {"banana", "#,##0.00", "banana"},
      {"banana", "dd/mm/yyyy", "banana"},
      {"31/02/2018", "ddd dd/mm/yyyy", "31/02/2018"},
      {"03/02/2026", "ddd d mmmm yyyy", "Tue 3 February 2026"},
      {"03/02/2026 09:30", "dd mmm hhnn", "03 Feb 0930"},
      {"13:05", "h:nnAMPM", "1:05PM"},
      {"46056", "dd/mm/yyyy", "03/02/2026"},
      {"03/02/2026", "0", "46056"},
      {"99999999", "dd/mm/yyyy", "99999999"},
      {"1,234.50", "", "1,234.50"},
      {"12", "\"unclosed 0", "unclosed 0"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Format(c.text, c.pattern), c.result) << c.text << " " << c.pattern;
}

}  // namespace
}  // namespace lm
