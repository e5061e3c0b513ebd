#include "connections/appointments.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/connections/calendars.h"

namespace lm::test {
namespace {

TEST(PracticesByPlace, TheHigherRowAnswersByNameOrAddress) {
  CalendarDesk desk;
  desk.AddRow(desk.ledger.fgPractices, {"NAME=HILLTOP", "ADDR1="});
  desk.AddRow(desk.ledger.fgPractices, {"NAME=Caf\xE9 Surgery"});
  const PracticesByPlace places(desk);
  const std::vector<std::pair<std::string, std::string>> kPlaces = {
      {"riverside", "1"}, {"1 THE QUAY", "1"}, {"Hilltop", "2"},    {"CAF\xC9 SURGERY", "4"},
      {"", "-1"},         {"River", "-1"},     {" Riverside", "-1"}};
  for (const auto& [place, id] : kPlaces) EXPECT_EQ(places.IdOf(place), id) << place;
}

TEST(CreateSessions, ReadsTheSettingsOfADescription) {
  struct Case {
    std::string description, cells;
  };
  const std::vector<Case> kCases = {
      // SESS_TYPE RATE EMPLOYERCONTRIB EMPLOYERCONTRIBRATE TOTAL
      {"", "1 0 0  0"},
      {"Bring the keys", "1 0 0.00 14.38 0.00"},
      {"Rate: 100", "1 100.00 14.38 14.38 114.38"},
      {"NHS Normal Session\\n Rate:\xA3"
       "90.00",
       "1 90.00 12.94 14.38 102.94"},
      {"NHS OOH Sessions\\n Rate:\xA3"
       "100.00",
       "2 100.00 14.38 14.38 114.38"},
      {"Private Session\\n Rate:\xA3"
       "1,200.50",
       "0 1200.50 0  1200.50"},
      {"NHS Unpensioned Session\\n Rate:\xA3.00", "4 0.00 0  0.00"},
      {"NHS Deputising Session", "1 0 0.00 14.38 0.00"},
      {"\xC2\xA3"
       "95 an hour",
       "1 95.00 13.66 14.38 108.66"},
      {"rate - 1\\,200", "1 1200.00 172.56 14.38 1372.56"},
      {"ooh: n", "2 0 0.00 14.38 0.00"},
      {"Rate: 100\\NPrivate", "1 100.00 14.38 14.38 114.38"},
      {"Rate: 100\\nRate: 50\\nprivate", "0 50.00 0  50.00"},
      {"<html-blob>Private<br>$$ Rate 80</html-blob>", "0 80.00 0  80.00"},
      {"Rate: 99999999999999999999", "1 0.00 0.00 14.38 0.00"},
      {"My rate: 100", "1 0 0.00 14.38 0.00"},
  };
  for (const Case& each : kCases) {
    CalendarDesk desk;
    const Date start = DateSerial(2026, 2, 9) + TimeSerial(22, 0);
    CreateSessions(desk, {{start, start + 0.5, "2", SettingsOf(each.description)}},
                   optICalPrivateNote);
    EXPECT_EQ(
        desk.Cells(1, {"SESS_TYPE", "RATE", "EMPLOYERCONTRIB", "EMPLOYERCONTRIBRATE", "TOTAL"}),
        each.cells)
        << each.description;
    EXPECT_EQ(
        desk.Cells(1, {"ID", "PRACTICE", "SDATE", "STIME", "EDATE", "ETIME", "EXTRAS", "EXPENSES"}),
        "1 2 09/02/2026 22:00 10/02/2026 10:00 0 0");
  }
}

TEST(CreateSessions, IsOneStepAtTheEndThatIsChosen) {
  for (const std::string end : {"TOP", "BOTTOM"}) {
    CalendarDesk desk;
    desk.AddRow(desk.ledger.fgSessions, {"ID=41", "PRACTICE=1"});
    SetOption(desk, optNewRowPosition, end);
    SetOption(desk, optOutlookPrivateNote, "from Outlook");
    const Date start = DateSerial(2026, 2, 9);
    CreateSessions(desk, {{start, start, "1", {}}, {start + 1, start + 1, "1", {}}},
                   optOutlookPrivateNote);
    const Grid& sessions = desk.ledger.fgSessions;
    EXPECT_EQ(desk.Cells(2, {"ID", "NOTES"}), "42 from Outlook");
    EXPECT_EQ(desk.Cells(end == "TOP" ? 1 : 3, {"ID"}), "43");
    EXPECT_TRUE(desk.ledger.history.Undo());
    EXPECT_EQ(sessions.Rows() - sessions.FixedRows(), 1);
    EXPECT_EQ(desk.ledger.history.UndoCaption(), "");
  }
}

}  // namespace
}  // namespace lm::test
