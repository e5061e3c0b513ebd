#include "entry/checks.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

TEST(Checks, WhatIsStored) {
  test::TestLedger t;  // Tuesday 3 February 2026
  EXPECT_EQ(EnterDate(t, "tom"), "04/02/2026");
  EXPECT_EQ(EnterDate(t, ""), "");
  EXPECT_EQ(EnterTime(t, "3", "?"), "15:00");
  EXPECT_EQ(EnterRate(t, " "), "");
  EXPECT_EQ(EnterRate(t, "1,000"), "1000.00");
  EXPECT_EQ(EnterRate(t, "£1,234.5"_w), "1234.50");
  EXPECT_EQ(EnterRate(t, "100000"), "100000.00");
  EXPECT_EQ(EnterAmount(t, "£1,234.5"_w), "1234.50");
  EXPECT_EQ(EnterAmount(t, "  "), "");
  EXPECT_TRUE(t.shown.messages.empty());
}

TEST(Checks, RefusalsSayWhatTheParserKnowsBetter) {
  test::TestLedger t;
  const struct {
    std::optional<std::string> entered;
    std::string told;
  } cases[] = {
      {EnterDate(t, "banana"), "Please enter a valid date.|"},
      {EnterDate(t, "2x", "No end."), "No end.|"},
      {EnterDate(t, "31/2", "No end."), "No end.|There aren't this many days in the month."},
      {EnterTime(t, "half past", "No end."), "No end.|"},
      {EnterTime(t, "2515", "No end."), "No end.|The hour must be 00 to 23."},
      {EnterRate(t, "12,3x"), "The rate must be blank or a number.|"},
      {EnterAmount(t, "100000"), "Please enter a valid amount.|"},
  };
  ASSERT_EQ(t.shown.messages.size(), std::size(cases));
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(cases[i].entered, std::nullopt) << i;
    EXPECT_EQ(t.shown.messages[i].mainPrompt + "|" + t.shown.messages[i].minorPrompt,
              cases[i].told);
  }
  EXPECT_EQ(EnterAmount(t, "banana", ""), std::nullopt);
  EXPECT_EQ(t.shown.messages.size(), std::size(cases));  // not a word
}

}  // namespace
}  // namespace lm
