// What is made of a feed: rates, times, practices, clashes, records.
#include "connections/feedimport.h"

#include <gtest/gtest.h>

#include "connections/clashes.h"
#include "core/change.h"
#include "core/options.h"
#include "core/text.h"
#include "tests/connections/feeds.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

constexpr WantedStatuses kBoth{true, true};

FeedOffer Offered(Ledger& ledger, const std::vector<SentSession>& sent,
                  WantedStatuses wanted = kBoth) {
  std::vector<std::string> sessions;
  for (const SentSession& each : sent) sessions.push_back(each.Xml());
  return OfferOf(ledger, ReadFeed(FeedXml(sessions))->sessions, wanted);
}

std::string Cell(const Grid& grid, int record, std::string_view key) {
  return grid.TextMatrix(grid.FixedRows() + record, key);
}

TEST(FeedImport, KeepsTheStatusesThatAreWanted) {
  struct Case {
    std::string status;
    WantedStatuses wanted;
    bool kept;
  };
  const std::vector<Case> kCases = {
      {"accepted by practice", {true, false}, true},
      {"Accepted", {false, true}, false},
      {"CONFIRMED", {false, true}, true},
      {"Confirmed (paid)", {true, false}, false},
      {"Confirm", kBoth, false},
      {"Cancelled", kBoth, false},
      {"", {true, false}, true},
  };
  for (const Case& each : kCases) {
    TestLedger test;
    const auto offer = Offered(test, {{.status = each.status}}, each.wanted);
    EXPECT_EQ(offer.sessions.size(), each.kept ? 1U : 0U) << each.status;
  }
}

TEST(FeedImport, ReadsRates) {
  struct Case {
    std::string_view text, pounds;
    bool hourly;
  };
  constexpr Case kCases[] = {
      {"", "0", false},
      {"£250"_w, "250", false},
      {"£ 85.50 per hour"_w, "85.50", true},
      {"$85.5 PH", "85.50", true},
      {"90/an-hour", "90", true},
      {"90 each hour", "90", true},
      {"£1,200.00"_w, "1200", false},
      {"Ph", "0", true},
      {"by agreement", "0", false},
      {"100000", "0", false},
  };
  for (const Case& each : kCases) {
    const FeedRate rate = ReadFeedRate(each.text);
    EXPECT_EQ(rate.pounds, each.pounds) << each.text;
    EXPECT_EQ(rate.hourly, each.hourly) << each.text;
  }
}

TEST(FeedImport, TakesHourlyRatesByTheHoursOfTheFeed) {
  struct Case {
    SentSession sent;
    std::string rate;
  };
  const std::vector<Case> kCases = {
      {{.start = "09:00", .end = "12:00", .rate = "£85.50 per hour"}, "256.50"},
      {{.period = "Overnight", .start = "22:00", .end = "08:00", .rate = "100ph"}, "1000.00"},
      {{.period = "OVERN", .start = "23:30", .end = "01:00", .rate = "100ph"}, "150.00"},
      {{.start = "12:00", .end = "09:00", .rate = "100ph"}, "0.00"},
      {{.start = "09:00", .end = "", .rate = "100ph"}, "100"},
      {{.period = "OVERNIGHT", .rate = "100ph"}, "100"},  // suggested times earn nothing
      {{.date = "soon", .start = "09:00", .end = "12:00", .rate = "100ph"}, "100"},
      {{.start = "09:00", .end = "10:30", .rate = "33.33ph"}, "50.00"},
  };
  for (const Case& each : kCases) {
    TestLedger test;
    EXPECT_EQ(Offered(test, {each.sent}).sessions.front().rate, each.rate) << each.rate;
  }
}

TEST(FeedImport, SuggestsTimesByThePeriod) {
  struct Case {
    SentSession sent;
    std::string shown;  // period, times, "*" behind a suggestion
  };
  const std::vector<Case> kCases = {
      {{.period = "morn"}, "Morning 09:00* "},
      {{.period = "Afternoon"}, "Afternoon 14:00* "},
      {{.period = "EVE"}, "Evening 17:00* "},
      {{.period = "overnight"}, "Overnight 22:00* 08:00*"},
      {{.period = "All day"}, "None 09:00* 15:00*"},
      {{.period = ""}, "None 09:00* 15:00*"},
      {{.period = "MO", .start = "06:30:00"}, "None 06:30 15:00*"},
      {{.start = "06:30", .end = "6:30"}, "Morning 06:30 18:30"},
      {{.start = "8am", .end = "noon"}, "Morning 08:00 12:00"},
      {{.start = "dawn", .end = "25:00"}, "Morning 09:00* "},
  };
  for (const Case& each : kCases) {
    TestLedger test;
    const OfferedSession session = Offered(test, {each.sent}).sessions.front();
    EXPECT_EQ(session.period + " " + session.startTime + (session.startSuggested ? "* " : " ") +
                  session.endTime + (session.endSuggested ? "*" : ""),
              each.shown);
  }
}

TEST(FeedImport, ReadsDates) {
  const std::vector<std::pair<std::string, std::string>> kDates = {
      {"2026-02-10", "10/02/2026"},
      {"2026-02-10T09:00", "10/02/2026"},
      {"2026-02-30", ""},
      {"10/02/2026", ""},
      {"2026-2-1", ""},
      {"", ""}};
  for (const auto& [sent, date] : kDates) {
    TestLedger test;
    EXPECT_EQ(Offered(test, {{.date = sent}}).sessions.front().date, date) << sent;
  }
}

TEST(FeedImport, FindsPracticesByWhatWasRememberedThenByName) {
  TestLedger test;
  test.AddRow(test.ledger.fgPractices, {"NAME=Mill Lane Surgery", "ID=4"});
  test.AddRow(test.ledger.fgPractices,
              {"NAME=Elm", "ID=7", "GPNET_MATCH=Mill Lane Surgery, 1 Mill Lane"});
  const auto offer = Offered(test, {{},
                                    {.address = "Elsewhere"},
                                    {.practice = "mill lane surgery"},
                                    {.practice = "mill lane surgery", .date = "2026-03-01"}});
  EXPECT_EQ(offer.sessions[0].practice, "7");
  EXPECT_EQ(offer.sessions[1].practice, "4");
  EXPECT_EQ(offer.sessions[2].practice, "");
  ASSERT_EQ(offer.practices.size(), 1U);
  EXPECT_EQ(offer.practices[0].key, "mill lane surgery, 1 Mill Lane");
}

TEST(FeedImport, DoesWithPracticesWhatTheUserChose) {
  TestLedger test;
  SetOption(test, optNewRowPosition, "BOTTOM");
  test.AddRow(test.ledger.fgPractices, {"NAME=Elm", "ID=7"});
  auto offer = Offered(test, {{}, {.practice = "The Elms"}, {.practice = "Far Away"}});
  EXPECT_EQ(ApplyPractices(test, offer, {"-1", "7", "-2"}), PracticesApplied::All);
  const Grid& practices = test.ledger.fgPractices;
  ASSERT_EQ(offer.sessions.size(), 2U);
  EXPECT_EQ(offer.sessions[0].practice, "8");
  EXPECT_EQ(offer.sessions[1].practice, "7");
  EXPECT_EQ(Cell(practices, 0, "GPNET_MATCH"), "The Elms, 1 Mill Lane");
  const std::vector<std::pair<std::string_view, std::string>> kCells = {
      {"ID", "8"},
      {"NAME", "Mill Lane Surgery"},
      {"ADDR1", "1 Mill Lane"},
      {"ADDR2", "Northtown"},
      {"ADDR3", "Leeds"},
      {"ADDR4", ""},
      {"POSTCODE", "LS1 1AA"},
      {"PHONE", "0113 496 0000"},
      {"EMAIL", "desk@mill.example"},
      {"GPNET_MATCH", "Mill Lane Surgery, 1 Mill Lane"}};
  for (const auto& [key, text] : kCells) EXPECT_EQ(Cell(practices, 1, key), text) << key;

  EXPECT_TRUE(Offered(test, {{}, {.practice = "The Elms"}}).practices.empty());
  EXPECT_TRUE(test.ledger.history.Undo());
  EXPECT_EQ(practices.Rows(), practices.FixedRows() + 1);
  EXPECT_EQ(Cell(practices, 0, "GPNET_MATCH"), "");
}

TEST(FeedImport, CreatesNoPracticeWithoutAName) {
  TestLedger test;
  auto offer = Offered(test, {{}, {.practice = ""}});
  EXPECT_EQ(ApplyPractices(test, offer, {"-1", "-1"}), PracticesApplied::Nameless);
  EXPECT_FALSE(test.ledger.fgPractices.HasData());
  EXPECT_EQ(ApplyPractices(test, offer, {"-1", "99"}), PracticesApplied::Some);
  EXPECT_EQ(offer.sessions.size(), 1U);
}

TEST(FeedImport, DropsSessionsThatAreKnown) {
  TestLedger test;
  test.AddRow(test.ledger.fgPractices, {"NAME=Mill Lane Surgery", "ID=4"});
  auto offer = Offered(test, {{}, {.period = "EVENING"}});
  CreateSessions(test, {offer.sessions[0]}, "");
  DropKnownSessions(test, offer.sessions);
  ASSERT_EQ(offer.sessions.size(), 1U);
  EXPECT_EQ(offer.sessions[0].period, "Evening");
}

TEST(FeedImport, CreatesSessionsAsOneChange) {
  TestLedger test;
  SetOption(test, optNewRowPosition, "BOTTOM");
  SetOption(test, optPensionCountry, "England");
  SetOption(test, optEmployerContribRate, "14.38");
  test.AddRow(test.ledger.fgPractices, {"NAME=Mill Lane Surgery", "ID=4"});
  test.AddRow(test.ledger.fgSessions, {"ID=30", "PRACTICE=4"});
  const auto offer = Offered(test, {{.end = "12:00", .rate = "100", .notes = "Bring a key"},
                                    {.period = "OVERNIGHT", .date = "2026-02-28"},
                                    {.date = "never"}});
  EXPECT_EQ(CreateSessions(test, offer.sessions, "Booked online"), 1U);
  const Grid& sessions = test.ledger.fgSessions;
  ASSERT_EQ(sessions.Rows(), sessions.FixedRows() + 3);
  const std::vector<std::pair<std::string_view, std::string>> kCells = {
      {"ID", "31"},
      {"PRACTICE", "4"},
      {"SDATE", "10/02/2026"},
      {"EDATE", ""},
      {"STIME", "09:00"},
      {"ETIME", "12:00"},
      {"SESS_TYPE", "1"},
      {"RATE", "100"},
      {"EXTRAS", "0"},
      {"EXPENSES", "0"},
      {"NOTES", "Booked online\r\nBring a key"},
      {"EMPLOYERCONTRIBRATE", "14.38"},
      {"INCLUDEEMPLOYERCONTRIB", "1"},
      {"EMPLOYERCONTRIB", "12.94"},
      {"TOTAL", "112.94"}};
  for (const auto& [key, text] : kCells) EXPECT_EQ(Cell(sessions, 1, key), text) << key;
  EXPECT_EQ(Cell(sessions, 2, "EDATE"), "01/03/2026");
  EXPECT_EQ(Cell(sessions, 2, "NOTES"), "Booked online");
  EXPECT_TRUE(test.ledger.history.Undo());
  EXPECT_EQ(sessions.Rows(), sessions.FixedRows() + 1);
}

TEST(FeedImport, GivesNoContributionOutsideEngland) {
  TestLedger test;
  SetOption(test, optPensionCountry, "Scotland");
  CreateSessions(test, Offered(test, {{.rate = "100"}}).sessions, "");
  EXPECT_EQ(Cell(test.ledger.fgSessions, 0, "INCLUDEEMPLOYERCONTRIB"), "");
  EXPECT_EQ(Cell(test.ledger.fgSessions, 0, "TOTAL"), "100.00");
}

struct ClashCase {
  std::vector<std::string> there;  // SDATE, STIME, EDATE, ETIME
  std::vector<std::string> coming;
  bool clash;
};

TEST(Clashes, AreFoundByMoments) {
  const std::vector<ClashCase> kCases = {
      {{"10/02/2026", "09:00", "", "12:00"}, {"10/02/2026", "11:00", "", "13:00"}, true},
      {{"10/02/2026", "09:00", "", "12:00"}, {"10/02/2026", "12:00", "", "13:00"}, false},
      {{"10/02/2026", "09:00", "", "12:00"}, {"11/02/2026", "09:00", "", "12:00"}, false},
      {{"10/02/2026", "09:00", "", ""}, {"10/02/2026", "09:00", "", "10:00"}, true},
      {{"10/02/2026", "09:00", "", "12:00"}, {"10/02/2026", "09:00", "", ""}, true},
      {{"10/02/2026", "09:00", "", "12:00"}, {"10/02/2026", "10:00", "", ""}, false},
      {{"10/02/2026", "09:00", "", "12:00"}, {"10/02/2026", "10:00", "", "08:00"}, false},
      {{"10/02/2026", "22:00", "11/02/2026", "08:00"}, {"11/02/2026", "07:00", "", "9:00"}, true},
      {{"11/02/2026", "07:00", "", "09:00"}, {"10/02/2026", "22:00", "11/02/2026", "08:00"}, true},
      {{"01/01/2020", "22:00", "11/02/2030", "08:00"}, {"11/02/2026", "07:00", "", "9:00"}, true},
      {{"soon", "09:00", "", "12:00"}, {"10/02/2026", "09:00", "", "12:00"}, false},
  };
  for (const ClashCase& each : kCases) {
    TestLedger test;
    test.AddRow(test.ledger.fgSessions, {"ID=5", "SDATE=" + each.there[0], "STIME=" + each.there[1],
                                         "EDATE=" + each.there[2], "ETIME=" + each.there[3]});
    const auto stretch = StretchOf(each.coming[0], each.coming[1], each.coming[2], each.coming[3]);
    ASSERT_TRUE(stretch);
    EXPECT_EQ(Clashes(test).With(*stretch),
              each.clash ? std::optional<std::string>("5") : std::nullopt)
        << each.there[0] << " " << each.there[1] << " " << each.coming[1];
  }
  EXPECT_FALSE(StretchOf("10/02/2026", "", "", "12:00"));
}

TEST(Clashes, TheHigherRowIsTheOneToldOf) {
  TestLedger test;
  test.AddRow(test.ledger.fgSessions, {"ID=1", "SDATE=10/02/2026", "STIME=11:00", "ETIME=12:00"});
  test.AddRow(test.ledger.fgSessions, {"ID=2", "SDATE=10/02/2026", "STIME=09:00", "ETIME=12:00"});
  const std::string first = Cell(test.ledger.fgSessions, 0, "ID");
  EXPECT_EQ(Clashes(test).With(*StretchOf("10/02/2026", "10:00", "", "13:00")), first);
}

}  // namespace
}  // namespace lm::test
