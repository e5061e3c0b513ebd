#include "core/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace lm {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNotANumber = std::numeric_limits<Double>::quiet_NaN();

TEST(Numbers, ValReadsTheNumberAtTheFront) {
  const struct {
    std::string_view text;
    Double value;
  } cases[] = {
      {"", 0},
      {"abc", 0},
      {"banana 5", 0},
      {"12,3x", 12},
      {"1,234", 1},
      {"  12.5kg", 12.5},
      {"-3.25", -3.25},
      {"+7", 7},
      {"--7", 0},
      {"- 7", 0},
      {".5", 0.5},
      {"5.", 5},
      {".", 0},
      {"-.", 0},
      {"1.2.3", 1.2},
      {"1E3", 1},
      {"inf", 0},
      {"nan", 0},
      {"0x10", 0},
      {"\t5", 0},
      {"73.33", 73.33},
      {"-inf", 0},
      {"\xA3"
       "5",
       0},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
  EXPECT_EQ(Val(std::string(5000, '9')), 0);
  EXPECT_EQ(Val("0." + std::string(5000, '0') + "1"), 0);
  EXPECT_EQ(Val("1." + std::string(5000, '0')), 1);
}

TEST(Numbers, ValIntCutsTowardsZero) {
  EXPECT_EQ(ValInt("12.9"), 12);
  EXPECT_EQ(ValInt("-12.9"), -12);
  EXPECT_EQ(ValInt("2147483647.9"), 2147483647);
  EXPECT_EQ(ValInt("-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(ValInt("2147483648"), 0);
  EXPECT_EQ(ValInt("99999999999999999999"), 0);
}

TEST(Numbers, IsNumericTakesWholeTexts) {
  const struct {
    std::string_view text;
    Double value;
  } numbers[] = {
      {"0", 0},
      {" 12.50 ", 12.5},
      {"1,000", 1000},
      {"1,234,567.89", 1234567.89},
      {"-1,234.5", -1234.5},
      {"+5", 5},
      {".5", 0.5},
      {"5.", 5},
      {"1E3", 1000},
      {"1e-2", 0.01},
      {"1.5E+2", 150},
      {"0012", 12},
  };
  for (const auto& c : numbers) {
    EXPECT_TRUE(IsNumeric(c.text)) << c.text;
    EXPECT_EQ(NumericValue(c.text), c.value) << c.text;
  }
  for (const std::string_view text : {"",
                                      " ",
                                      ".",
                                      "-",
                                      ",",
                                      ",5",
                                      "5,",
                                      "1,,000",
                                      "12,34",
                                      "1234,567",
                                      "1,0000",
                                      "1.000,5",
                                      "1 000",
                                      "- 5",
                                      "--5",
                                      "5-",
                                      "1E",
                                      "1E+",
                                      "E3",
                                      "1E3.5",
                                      "1.2.3",
                                      "1e999",
                                      "0x1F",
                                      "inf",
                                      "nan",
                                      "5%",
                                      "abc",
                                      "12,3x",
                                      "01/02/2026",
                                      "\xA3"
                                      "5"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_EQ(NumericValue(text), 0) << text;
  }
  EXPECT_FALSE(IsNumeric(std::string(100000, '1')));
  EXPECT_FALSE(IsNumeric("1" + std::string(100000, ',')));
}

TEST(Numbers, PlainTextShowsSignificantDigits) {
  const struct {
    Double value;
    std::string_view text;
  } doubles[] = {
      {0, "0"},
      {-0.0, "0"},
      {0.5, "0.5"},
      {-0.5, "-0.5"},
      {150.5, "150.5"},
      {0.1 + 0.2, "0.3"},
      {100, "100"},
      {1e15, "1000000000000000"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {1e20, "100000000000000000000"},
      {1e-7, "0.0000001"},
      {123456789012345678.0, "123456789012346000"},
      {kInfinity, "0"},
      {-kInfinity, "0"},
      {kNotANumber, "0"},
  };
  for (const auto& c : doubles) EXPECT_EQ(PlainText(c.value), c.text);
  EXPECT_EQ(PlainText(std::numeric_limits<Double>::max()).size(), 309u);
  EXPECT_EQ(PlainText(std::numeric_limits<Double>::denorm_min()).substr(0, 4), "0.00");

  EXPECT_EQ(PlainText(0.1f), "0.1");
  EXPECT_EQ(PlainText(36.665f), "36.665");
  EXPECT_EQ(PlainText(16777217.0f), "16777220");
  EXPECT_EQ(PlainText(99999.995f), "99999.99");  // the single lies below the half
  EXPECT_EQ(PlainText(34727.625f), "34727.63");
  EXPECT_EQ(PlainText(-34727.625f), "-34727.63");
  EXPECT_EQ(PlainText(1000000.5f), "1000001");
  EXPECT_EQ(PlainText(std::numeric_limits<Single>::max()).substr(0, 8), "34028230");
  EXPECT_EQ(PlainText(-1), "-1");
}

TEST(Numbers, ValReadsPlainTextBack) {
  std::mt19937_64 random(20260203);
  for (int i = 0; i < 20000; ++i) {
    const auto pence = static_cast<Double>(static_cast<std::int64_t>(random() % 200'000'000'000) -
                                           100'000'000'000);
    EXPECT_EQ(Val(PlainText(pence / 100)), pence / 100);
    const Double wild =
        std::ldexp(static_cast<Double>(random()), static_cast<int>(random() % 1800) - 960);
    EXPECT_EQ(PlainText(Val(PlainText(wild))), PlainText(wild));
  }
}

TEST(Numbers, RoundMoneyIsHalfToEvenOnDecimalDigits) {
  const struct {
    Double value, rounded;
  } cases[] = {
      {2.675, 2.68},    {2.665, 2.66},    {0.125, 0.12},    {0.135, 0.14}, {-0.125, -0.12},
      {0.005, 0},       {0.015, 0.02},    {0.0051, 0.01},   {9.995, 10},   {1e300, 1e300},
      {0.1 + 0.2, 0.3}, {kNotANumber, 0}, {112.94, 112.94},
  };
  for (const auto& c : cases) EXPECT_EQ(RoundMoney(c.value), c.rounded) << c.value;
  EXPECT_EQ(RoundMoney(36.665f), 36.66f);
  EXPECT_EQ(RoundMoney(36.675f), 36.68f);
  EXPECT_EQ(RoundMoney(34727.625f), 34727.62f);
  EXPECT_EQ(RoundMoney(34727.875f), 34727.88f);
}

TEST(Numbers, CurrencyRoundsAtTheFourthDecimal) {
  const struct {
    Double value;
    std::int64_t count;
  } cases[] = {
      {0, 0},
      {1.5, 15000},
      {0.00005, 1},  // of the decimal halves, those that binary can only come near
      {0.00015, 1},  // go where they lie
      {-0.00015, -1},
      {2.67545, 26755},
      {2.67555, 26755},
      {0.03125, 312},  // an exact half
      {0.09375, 938},
      {-0.03125, -312},
      {112.94, 1129400},
      {99999.99994999999, 999999999},
      {999999999999.0001, 9999999999990001},
      {922337203685477.0, 9223372036854770000},
      {922337203685478.0, 0},
      {1e300, 0},
      {-1e300, 0},
      {kInfinity, 0},
      {kNotANumber, 0},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Currency::From(c.value).TenThousandths(), c.count) << c.value;
  EXPECT_EQ(Currency::From(73.33f).TenThousandths(), 733300);      // 73.33000183
  EXPECT_EQ(Currency::From(8863.65f).TenThousandths(), 88636504);  // 8863.650390625
  EXPECT_EQ(Currency::From(-8863.65f).TenThousandths(), -88636504);
  EXPECT_EQ(Currency::FromText("1,234.50").TenThousandths(), 10000);
  EXPECT_EQ(Currency::FromText("banana").TenThousandths(), 0);
}

TEST(Numbers, CurrencyTextsAndSums) {
  const struct {
    std::int64_t count;
    std::string_view text;
  } cases[] = {{0, "0"},
               {15000, "1.5"},
               {-1, "-0.0001"},
               {10000, "1"},
               {120000000, "12000"},
               {-1234567, "-123.4567"},
               {500, "0.05"},
               {std::numeric_limits<std::int64_t>::max(), "922337203685477.5807"},
               {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5807"}};
  for (const auto& c : cases) EXPECT_EQ(Currency::FromTenThousandths(c.count).ToText(), c.text);

  const Currency most = Currency::FromTenThousandths(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(most + most, most);
  EXPECT_EQ(-most - most, -most);
  Currency sum;
  for (int i = 0; i < 1000; ++i) sum += Currency::FromText("0.10");
  EXPECT_EQ(sum.ToText(), "100");
  EXPECT_EQ((sum - Currency::FromText("100.0001")).ToText(), "-0.0001");
}

}  // namespace
}  // namespace lm
