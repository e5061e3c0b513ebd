#include "entry/money.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text.h"

namespace lm {
namespace {

TEST(Money, CleanedAndStored) {
  const struct {
    std::string typed, cleaned, cell;
  } cases[] = {
      {"12.5", "12.50", "12.50"},
      {"12.00", "12", "12"},
      {"12.", "12", "12"},
      {" 12 ", "12", "12"},
      {"1,000", "1,000", "1000"},
      {"+7", "7", "7"},
      {"$7.25", "7.25", "7.25"},
      {"1.005", "1.01", "1.01"},
      {"-5", "-5", "-5"},
      {"-0.001", "0", "0"},
      {".5", "0.50", "0.50"},
      {"0", "0", "0"},
      {"99999.99", "99999.99", "99999.99"},
      {"99999.999", "", ""},
      {"100000", "", ""},
      {"100,000", "", ""},
      {"1E3", "1E3", "1000"},
      {"1E9", "", ""},
      {"abc", "", ""},
      {"12,3x", "", ""},
      {"1.2.3", "", ""},
      {"", "", ""},
      {"   ", "", ""},
      {"+$", "", ""},
      {std::string(1'000'000, '9'), "", ""},
      {"\xFF\x80", "", ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(CleanMoney(each.typed), each.cleaned) << each.typed.substr(0, 50);
    EXPECT_EQ(MoneyCell(each.typed), each.cell) << each.typed.substr(0, 50);
  }
}

TEST(Money, PoundSigns) {
  EXPECT_EQ(CleanMoney("£1,234.5"_w), "1234.50");
  EXPECT_EQ(CleanMoney("£ 12"_w), "12");
  EXPECT_EQ(CleanMoney("£"_w), "");
  EXPECT_EQ(MoneyCell("£2,500"_w), "2500");
}

}  // namespace
}  // namespace lm
