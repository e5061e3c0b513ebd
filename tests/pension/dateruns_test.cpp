#include "pension/dateruns.h"

#include <gtest/gtest.h>

#include "pension/monthsessions.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

// Days of April 2024, of which the 1st is a Monday; beyond 30 they run on into May.
std::string Merged(const std::vector<std::pair<int, int>>& days) {
  const Date before = DateSerial(2024, 3, 31);
  std::vector<DateRun> runs;
  for (const auto& [first, last] : days) runs.push_back({before + first, before + last, {first}});
  std::string text;
  for (const DateRun& run : MergeRuns(runs)) {
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(run.first - before)) + "-" +
            std::to_string(static_cast<int>(run.last - before));
    for (const int session : run.sessions) text += "," + std::to_string(session);
  }
  return text;
}

TEST(DateRuns, TouchOrSpanAWeekend) {
  struct Case {
    std::vector<std::pair<int, int>> days;
    const char* merged;
  };
  const Case kCases[] = {
      {{}, ""},
      {{{2, 2}}, "2-2,2"},
      {{{3, 3}, {2, 2}}, "2-3,2,3"},                 // the day after, in any order
      {{{2, 2}, {4, 4}}, "2-2,2 4-4,4"},             // a day between
      {{{2, 4}, {4, 9}}, "2-9,2,4"},                 // overlapping
      {{{2, 9}, {3, 4}}, "2-4,2,3"},                 // the later start's end counts
      {{{5, 5}, {8, 8}}, "5-8,5,8"},                 // Friday and Monday
      {{{6, 6}, {8, 8}}, "6-8,6,8"},                 // Saturday and Monday
      {{{5, 5}, {7, 7}}, "5-7,5,7"},                 // Friday and Sunday
      {{{5, 5}, {22, 22}}, "5-22,5,22"},             // however far apart
      {{{5, 5}, {9, 9}}, "5-5,5 9-9,9"},             // Friday and Tuesday
      {{{4, 4}, {8, 8}}, "4-4,4 8-8,8"},             // Thursday and Monday
      {{{5, 5}, {8, 12}, {15, 15}}, "5-15,5,8,15"},  // one weekend after the other
      {{{9, 2}, {3, 3}}, "3-3,3 9-2,9"},             // an end before its start
  };
  for (const Case& one : kCases) EXPECT_EQ(Merged(one.days), one.merged);
}

TEST(DateRuns, AreOfTheSessionsOnTheForm) {
  TestLedger desk;
  const auto add = [&](const std::string& practice, const std::string& forms,
                       const std::string& start, const std::string& end) {
    return desk.AddRow(desk.ledger.fgSessions, {"PRACTICE=" + practice, "FORMS=" + forms,
                                                "SDATE=" + start, "EDATE=" + end});
  };
  const int late = add("1", "A,B", "30/04/2024", "01/05/2024");
  const int early = add("1", "A", "02/04/2024", "banana");
  add("1", "SOLO", "09/04/2024", "");
  add("1", "", "10/04/2024", "");
  add("1", "A", "banana", "11/04/2024");
  add("1", "A", "31/03/2024", "01/04/2024");
  add("2", "A", "12/04/2024", "");
  const std::vector<DateRun> runs =
      RunsOfFormA(desk.ledger, MonthSessions(desk.ledger, Month::OfKey("042024")), "1");
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(CellText(runs[0].first) + " " + CellText(runs[0].last), "02/04/2024 02/04/2024");
  EXPECT_EQ(CellText(runs[1].first) + " " + CellText(runs[1].last), "30/04/2024 01/05/2024");
  EXPECT_EQ(runs[0].sessions, std::vector<int>{early});
  EXPECT_EQ(runs[1].sessions, std::vector<int>{late});
  EXPECT_TRUE(RunsOfFormA(desk.ledger, MonthSessions(desk.ledger, Month()), "1").empty());
}

}  // namespace
}  // namespace lm::test
