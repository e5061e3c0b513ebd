// Months as forms compare them, and the sessions that begin in one.
#include "pension/month.h"

#include "pension/monthsessions.h"
#include "records/sessionrules.h"
#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

using test::RulesDesk;

TEST(Month, OfADateCell) {
  const std::pair<const char*, const char*> kCases[] = {
      {"01/04/2024", "042024"}, {"30/4/2024", "042024"}, {"31/12/1999", "121999"},
      {"29/02/2023", ""},       {"banana", ""},          {"", ""},
      {"04/2024", ""}};
  for (const auto& [cell, key] : kCases) {
    EXPECT_EQ(Month::OfCell(cell), Month::OfKey(key)) << cell;
    EXPECT_EQ(Month::OfKey(key).Has(cell), *key != '\0') << "nothing is in a damaged month";
  }
  EXPECT_LT(Month::OfKey("122023"), Month::OfKey("012024"));
}

TEST(Month, WhatItReadsAs) {
  EXPECT_EQ(Month::OfKey("042024").Cell(), "01/04/2024");
  EXPECT_EQ(Month::OfKey("042024").Text("mmm yyyy"), "Apr 2024");
  EXPECT_EQ(Month::OfKey("122025").Text("mmmm yy"), "December 25");
  EXPECT_EQ(Month::OfKey("022024").FirstDay(), DateSerial(2024, 2, 1));
  for (const char* damaged : {"", "132024", "002024", "42024", "04-024", "0420245", "040000"}) {
    EXPECT_FALSE(Month::OfKey(damaged)) << damaged;
    EXPECT_EQ(Month::OfKey(damaged).Cell(), "") << damaged;
  }
}

TEST(MonthSessions, ThoseThatBeginInTheMonth) {
  RulesDesk desk;
  const int first = desk.AddSession("2", "01/04/2024", "1");
  desk.AddSession("1", "31/03/2024", "1", {"EDATE=01/04/2024"});
  const int overnight = desk.AddSession("1", "30/04/2024", "1", {"EDATE=01/05/2024"});
  desk.AddSession("", "05/04/2024", "1", {"SESS_TYPE=3"});
  desk.AddSession("1", "banana", "1");
  desk.AddSession("1", "", "1");
  const int late = desk.AddSession("2", "9/4/2024", "1", {"SESS_TYPE=2"});

  const MonthSessions april(desk, Month::OfKey("042024"));
  EXPECT_EQ(april.All(), (std::vector<int>{first, overnight, late}));
  EXPECT_EQ(april.Of("2"), (std::vector<int>{first, late}));
  EXPECT_TRUE(april.Of("3").empty());
  EXPECT_TRUE(april.HasType(kTypeOohStandard));
  EXPECT_TRUE(april.HasType(kTypeOohStandard, "2"));
  EXPECT_FALSE(april.HasType(kTypeOohStandard, "1"));
  EXPECT_FALSE(april.HasType(kTypePrivate));
  EXPECT_TRUE(april.HasType(kTypeOohDeputising)) << "though it has no practice";
  EXPECT_TRUE(MonthSessions(desk, Month()).All().empty());
}

TEST(MonthSessions, GroupRowsAreNoSessions) {
  RulesDesk desk;
  desk.AddSession("1", "01/04/2024", "1");
  desk.AddSession("2", "02/04/2024", "1");
  Grid& sessions = desk.ledger.fgSessions;
  // They then hold what looks like a date and a practice.
  sessions.Subtotal(SubtotalFunction::Count, sessions.ColIndex("SDATE"),
                    sessions.ColIndex("PRACTICE"), {});
  ASSERT_GT(sessions.Rows(), sessions.FixedRows() + 2);
  EXPECT_EQ(MonthSessions(desk, Month::OfKey("042024")).All().size(), 2U);
}

}  // namespace
}  // namespace lm
