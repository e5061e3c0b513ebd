// The five views: where records stand, what they show, and what a cell stands for.
#include "calendar/views.h"

#include "tests/calendar/diary.h"

namespace lm::test {
namespace {

using View = CalendarView;

TEST_F(Diary, WeekHasItsHeadingsHoursAndShades) {
  Fill(View::Week);
  EXPECT_EQ(grid.FixedRows(), 2);
  EXPECT_EQ(grid.Rows(), 2 + 48);
  EXPECT_EQ(grid.Cols(), 8);
  EXPECT_EQ(Text(0, 1), "2 Feb\r\nMonday");
  EXPECT_EQ(Text(0, 7), "8 Feb\r\nSunday");
  EXPECT_EQ(Text(1, 1), "");
  EXPECT_EQ(Text(2, 0) + Text(3, 0) + Text(49, 0), "000023");
  EXPECT_EQ(grid.MergedRange(20, 0), (CellRange{20, 0, 21, 0}));
  EXPECT_EQ(Back(0, 3), kHeadingGround);
  EXPECT_EQ(Back(20, 0), kHeadingGround);
  EXPECT_EQ(Back(2 + 17, 1), kOutOfHours);
  EXPECT_EQ(Back(2 + 18, 1), Of(optColourWorkday));
  EXPECT_EQ(Back(2 + 33, 1), Of(optColourWorkday));
  EXPECT_EQ(Back(2 + 34, 1), kOutOfHours);
  EXPECT_EQ(Back(2 + 20, 6), Of(optColourWeekends));
  EXPECT_EQ(Back(2 + 10, 6), kOutOfHours);
  EXPECT_EQ(Back(2 + 10, 2), Of(optColourToday));
  EXPECT_EQ(Back(2 + 20, 2), Of(optColourToday));
  EXPECT_FALSE(grid.ColHidden(6));
  period.showWeekends = false;
  SetOption(ledger, optRowsPerHour, "6");
  period.Move(View::Week, 1);
  Fill(View::Week);
  EXPECT_TRUE(grid.ColHidden(6) && grid.ColHidden(7) && !grid.ColHidden(5));
  EXPECT_EQ(grid.Rows(), 2 + 144);
  EXPECT_EQ(Back(2 + 53, 2), kOutOfHours);
  EXPECT_EQ(Back(2 + 54, 2), Of(optColourWorkday)) << "another week: no today";
  EXPECT_EQ(Back(2 + 101, 2), Of(optColourWorkday));
  EXPECT_EQ(Back(2 + 102, 2), kOutOfHours);
}

TEST_F(Diary, WeekShowsSessionsAsBlocks) {
  Session("1", "02/02/2026", "09:00", "12:00");
  Session("2", "02/02/2026", "09:00", "10:00");  // pushed below its own end
  Session("3", "02/02/2026", "23:00", "00:00");
  Session("4", "03/02/2026", "", "12:00");
  Session("5", "03/02/2026", "14:00", "");
  Session("6", "03/02/2026", "16:00", "15:00");
  Session("7", "03/02/2026", "15:30", "18:00");  // stops before the one at 16:00
  Session("8", "07/02/2026", "08:00", "08:30", {"PRACTICE=99"});
  Session("9", "10/02/2026", "09:00", "12:00");
  Session("10", "damaged", "09:00", "12:00");
  Fill(View::Week);
  EXPECT_EQ(RowsWith(1, "S1"), "20-25");
  EXPECT_EQ(RowsWith(1, "S2"), "26");
  EXPECT_EQ(RowsWith(1, "S3"), "48-49");
  EXPECT_EQ(RowsWith(2, "S4"), "20-25");
  EXPECT_EQ(RowsWith(2, "S5"), "30");
  EXPECT_EQ(RowsWith(2, "S6"), "34");
  EXPECT_EQ(RowsWith(2, "S7"), "33");
  EXPECT_EQ(RowsWith(6, "S8"), "18");
  for (int row = 20; row <= 25; ++row) EXPECT_EQ(Text(row, 1), "Abbey\r\n    09:00 - 12:00");
  EXPECT_EQ(Text(20, 2), "Abbey\r\n     - 12:00");
  EXPECT_EQ(Text(30, 2), "Abbey");
  EXPECT_EQ(Text(18, 6), "");
  EXPECT_EQ(Back(22, 1), Of(optColourSessNormal));
  EXPECT_EQ(grid.MergedRange(22, 1), (CellRange{20, 1, 25, 1}));
  // The two one-row sessions of Tuesday stand below one another and are two.
  EXPECT_EQ(Text(33, 2), "Abbey");
  EXPECT_EQ(Text(34, 2), " Abbey");
}

TEST_F(Diary, WeekDropsWhatTheDayHasNoRoomFor) {
  for (int i = 0; i < 40; ++i) Session(std::to_string(i), "02/02/2026", "12:00", "12:30");
  Fill(View::Week);
  EXPECT_EQ(Tag(49, 1), "S23");
  EXPECT_EQ(Tag(25, 1), "");
}

TEST_F(Diary, OvernightSessionsStandOnEachOfTheirDays) {
  Session("1", "01/02/2026", "22:00", "06:00", {"EDATE=02/02/2026"});  // began before the week
  Session("2", "03/02/2026", "20:00", "08:00", {"EDATE=05/02/2026"});
  Session("3", "06/02/2026", "20:00", "00:00", {"EDATE=07/02/2026"});
  Session("4", "08/02/2026", "20:00", "20:30", {"EDATE=01/02/2026"});  // ends before it starts
  Fill(View::Week);
  EXPECT_EQ(RowsWith(1, "S1"), "2-13");
  EXPECT_EQ(RowsWith(2, "S2"), "42-49");
  EXPECT_EQ(RowsWith(3, "S2"), "2-49");
  EXPECT_EQ(RowsWith(4, "S2"), "2-17");
  EXPECT_EQ(Text(5, 3), "Abbey\r\n    20:00 - 08:00");
  EXPECT_EQ(RowsWith(5, "S3"), "42-49");
  EXPECT_EQ(RowsWith(6, "S3"), "");
  EXPECT_EQ(RowsWith(7, "S4"), "42");
  Fill(View::Detail);
  EXPECT_EQ(ColsWith(1, "S1"), "90-97");
  EXPECT_EQ(ColsWith(2, "S1"), "2-25");
  EXPECT_EQ(ColsWith(3, "S2"), "82-97");
  EXPECT_EQ(ColsWith(4, "S2"), "2-97");
  EXPECT_EQ(ColsWith(5, "S2"), "2-33");
  EXPECT_EQ(Text(5, 2), "20:00 - 08:00 Abbey");
  EXPECT_EQ(ColsWith(7, "S3"), "");
}

TEST_F(Diary, WeekPutsEventsIntoTheHeadings) {
  Event("1", "Alps", "30/01/2026", "04/02/2026");
  Event("2", "Course", "03/02/2026", "03/02/2026", "1");
  Event("3", "Talk", "05/02/2026");
  Event("4", "Talk", "06/02/2026");
  Fill(View::Week);
  EXPECT_EQ(grid.FixedRows(), 3);
  EXPECT_EQ(grid.Rows(), 3 + 48);
  EXPECT_EQ(ColsWith(1, "E1"), "1-3");
  EXPECT_EQ(ColsWith(1, "E3"), "4");
  EXPECT_EQ(ColsWith(1, "E4"), "5");
  EXPECT_EQ(ColsWith(2, "E2"), "2");
  EXPECT_EQ(grid.MergedRange(1, 2), (CellRange{1, 1, 1, 3}));
  EXPECT_EQ(Text(1, 4) + "|" + Text(1, 5), "Talk| Talk");
  EXPECT_EQ(Back(1, 1), 35468);
  EXPECT_EQ(Back(2, 5), kHeadingGround);
  EXPECT_EQ(grid.Cell(CellSetting::flexcpAlignment, 1, 1), "2");
}

TEST_F(Diary, DarkGroundsBearWhiteText) {
  Event("1", "Black", "03/02/2026", "", "77");
  Event("2", "Yellow", "04/02/2026", "", "-1");
  Fill(View::Week);
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpForeColor, 1, 2), Rgb(255, 255, 255));
  EXPECT_EQ(grid.CellColour(CellSetting::flexcpForeColor, 1, 3), kNoColour);
}

TEST_F(Diary, DetailShowsDaysAgainstQuarterHours) {
  Session("1", "02/02/2026", "09:10", "12:01");
  Session("2", "02/02/2026", "09:15", "12:00");  // pushed behind its own end
  Session("3", "14/02/2026", "18:00", "00:00");
  Session("4", "14/02/2026", "", "");
  Event("1", "Alps", "13/02/2026", "15/02/2026");
  Event("2", "Later", "14/02/2026");
  Fill(View::Detail);
  EXPECT_EQ(grid.Rows(), 29);
  EXPECT_EQ(grid.Cols(), 98);
  EXPECT_EQ(Text(0, 2) + Text(0, 5) + Text(0, 97), "000023");
  EXPECT_EQ(grid.MergedRange(0, 7), (CellRange{0, 6, 0, 9}));
  EXPECT_EQ(Text(14, 0), "14 Sat");
  EXPECT_EQ(grid.DataOfRow(14), "14/02/2026");
  EXPECT_EQ(ColsWith(2, "S1"), "38-50");
  EXPECT_EQ(ColsWith(2, "S2"), "51");
  EXPECT_EQ(Text(2, 40), "09:10 - 12:01 Abbey");
  EXPECT_EQ(ColsWith(14, "S3"), "74-97");
  EXPECT_EQ(ColsWith(14, "S4"), "38");
  EXPECT_EQ(Text(14, 38), "Abbey");
  EXPECT_EQ(ColsWith(13, "E1"), "2-97");
  EXPECT_EQ(ColsWith(14, "E1"), "2-37 39-73");
  EXPECT_EQ(ColsWith(14, "E2"), "");
  EXPECT_EQ(Back(4, 37), kOutOfHours);
  EXPECT_EQ(Back(4, 38), Of(optColourWorkday));
  EXPECT_EQ(Back(4, 70), kOutOfHours);
  EXPECT_EQ(Back(7, 2), Of(optColourWeekends));
  EXPECT_EQ(Back(3, 2), Of(optColourToday));
  EXPECT_EQ(Back(3, 0), kHeadingGround);
}

TEST_F(Diary, MonthHasSixWeeks) {
  period.GoTo(DateSerial(2026, 3, 1));  // 31 days from a Sunday
  Fill(View::Month);
  EXPECT_EQ(grid.Rows(), 31);
  EXPECT_EQ(grid.Cols(), 7);
  EXPECT_EQ(Text(0, 0) + Text(0, 6), "MondaySunday");
  EXPECT_EQ(Text(1, 0), "23 Feb  ");
  EXPECT_EQ(Text(1, 5), "28  ");
  EXPECT_EQ(Text(1, 6), "1 Mar  ");
  EXPECT_EQ(Text(26, 1), "31  ");
  EXPECT_EQ(Text(26, 2), "1 Apr  ");
  EXPECT_EQ(Back(3, 5), kOtherMonth);
  EXPECT_EQ(Back(3, 6), Of(optColourWeekends));
  EXPECT_EQ(Back(6, 0), Of(optColourWorkday));
  EXPECT_EQ(Back(30, 2), kOtherMonth);
  period.GoTo(test.shown.now);
  period.showWeekends = false;
  Fill(View::Month);
  EXPECT_EQ(Text(6, 1), "3  ");
  EXPECT_EQ(Back(6, 1), Of(optColourToday));
  EXPECT_EQ(Back(7, 1), Of(optColourWorkday));
  EXPECT_TRUE(grid.ColHidden(5) && grid.ColHidden(6));
}

TEST_F(Diary, MonthShowsWhatFitsAndCountsTheRest) {
  for (int i = 1; i <= 5; ++i) Session(std::to_string(i), "03/02/2026", "09:00", "12:00");
  Session("6", "26/01/2026", "09:00", "12:00");  // the first cell
  Session("7", "08/03/2026", "", "");            // the last one
  Session("8", "25/01/2026", "09:00", "12:00");
  Session("9", "04/02/2026", "09:00", "12:00");
  Fill(View::Month);
  EXPECT_EQ(Tag(2, 0), "S6|");
  EXPECT_EQ(Tag(27, 6), "S7|");
  EXPECT_EQ(Text(27, 6), "Abbey");
  EXPECT_EQ(Tag(7, 1) + Tag(8, 1) + Tag(9, 1), "S1|S2|S3|");
  EXPECT_EQ(Tag(10, 1), "Z|S4|S5|");
  EXPECT_EQ(Text(10, 1), "+2");
  EXPECT_EQ(Back(10, 1), Of(optColourWorkday));
  EXPECT_EQ(Text(7, 1), "09:00-12:00 Abbey");
  EXPECT_EQ(Text(7, 2), " 09:00-12:00 Abbey") << "another session than the one beside it";
  EXPECT_EQ(grid.MergedRange(7, 1), (CellRange{7, 1, 7, 1}));
}

TEST_F(Diary, MonthPacksEventsAboveTheSessions) {
  SetOption(ledger, optRowsPerDay, "3");
  Event("1", "Alps", "07/02/2026", "09/02/2026");
  for (int i = 2; i <= 5; ++i) Event(std::to_string(i), "Event", "03/02/2026");
  Session("1", "03/02/2026", "09:00", "12:00");
  Session("2", "09/02/2026", "09:00", "12:00");
  Session("3", "09/02/2026", "13:00", "14:00");
  Fill(View::Month);
  // The week of the 2nd has the rows 4 to 6; its days' numbers stand in row 4.
  EXPECT_EQ(Tag(5, 5) + Tag(5, 6), "E1E1");
  EXPECT_EQ(Tag(8, 0), "E1");
  EXPECT_EQ(Tag(5, 1), "E2");
  EXPECT_EQ(Tag(6, 1), "Z|E3|S1|");
  EXPECT_EQ(Text(6, 1), "Event");
  EXPECT_EQ(Tag(7, 1), "E4") << "spilled onto the numbers of the next week";
  EXPECT_EQ(Text(7, 1), "10  ");
  EXPECT_EQ(Tag(8, 1), "E5");
  EXPECT_EQ(Tag(9, 0), "Z|S2|S3|");
}

TEST_F(Diary, PlannerHasARowForEachPractice) {
  Session("1", "03/02/2026");
  Session("2", "03/02/2026", "", "", {"SESS_TYPE=0"});
  Session("3", "03/02/2026", "", "", {"PRACTICE=77"});
  Session("4", "01/03/2026");
  Event("1", "Alps", "28/01/2026", "02/02/2026");
  Event("2", "Course", "02/02/2026");
  Fill(View::Planner);
  EXPECT_EQ(grid.FixedRows(), 3);
  EXPECT_EQ(grid.Rows(), 5);
  EXPECT_EQ(grid.Cols(), 29);
  EXPECT_EQ(Text(0, 3), "Tu\r\n3");
  EXPECT_EQ(grid.Cell(CellSetting::flexcpData, 0, 3), "03/02/2026");
  EXPECT_EQ(Back(0, 3), Of(optColourToday));
  EXPECT_EQ(Back(4, 1), Of(optColourWeekends));
  EXPECT_EQ(Text(3, 0) + Text(4, 0), "AbbeyMoor");
  EXPECT_EQ(grid.DataOfRow(4), "2");
  EXPECT_EQ(Tag(3, 3), "S1|S2|");
  EXPECT_EQ(Back(3, 3), Of(optColourSessPrivate));
  EXPECT_EQ(ColsWith(1, "E1"), "1-2");
  EXPECT_EQ(ColsWith(2, "E2"), "2");
  EXPECT_FALSE(grid.RowHidden(4));
  period.showEmptyRows = false;
  Fill(View::Planner);
  EXPECT_TRUE(grid.RowHidden(4));
  EXPECT_FALSE(grid.RowHidden(3));
  period.GoTo(DateSerial(2028, 2, 5));
  Fill(View::Planner);
  EXPECT_EQ(grid.Cols(), 30) << "a leap year";
}

TEST_F(Diary, YearHasMorningsAndAfternoons) {
  Session("1", "03/02/2026", "11:59");
  Session("2", "03/02/2026", "12:00");
  Session("3", "03/02/2026", "");
  Session("4", "31/12/2025");
  Event("1", "Alps", "28/12/2025", "02/01/2026");
  Event("2", "Ball", "02/01/2026", "", "1");
  Fill(View::Year);
  EXPECT_EQ(grid.Rows(), 37);
  EXPECT_EQ(grid.Cols(), 38);
  EXPECT_EQ(Text(0, 1) + Text(0, 6) + Text(0, 7) + Text(0, 8), "MSSM");
  EXPECT_EQ(Text(1, 0) + Text(34, 0), "JanDec");
  EXPECT_EQ(grid.Cell(CellSetting::flexcpData, 1, 0), "3") << "1 January 2026 is a Thursday";
  EXPECT_EQ(Text(1, 4), "1");
  EXPECT_EQ(Text(1, 34), "31");
  EXPECT_EQ(Text(4, 7), "1") << "1 February is a Sunday";
  EXPECT_EQ(Back(4, 7), Of(optColourWeekends));
  EXPECT_EQ(Back(1, 3), 0xFFFFFF);
  EXPECT_EQ(Back(2, 3), 0xFFFFFF);
  EXPECT_EQ(Tag(5, 9), "S1|S3|");
  EXPECT_EQ(Tag(6, 9), "S2|");
  EXPECT_EQ(Back(4, 9), Of(optColourToday));
  EXPECT_EQ(Tag(1, 4) + " " + Tag(1, 5), "E1| E1|E2|");
  EXPECT_EQ(Back(1, 5), 4849812);
  EXPECT_EQ(Tag(34, 32), "");
}

TEST_F(Diary, CellsStandForDaysAndTimes) {
  const struct {
    View view;
    int row, col;
    const char *day, *time;
  } kCases[] = {
      {View::Week, 2 + 19, 3, "04/02/2026", "09:30"},
      {View::Week, 1, 1, "02/02/2026", ""},
      {View::Week, 0, 1, "", ""},
      {View::Week, 5, 0, "", ""},
      {View::Week, 99, 1, "", ""},
      {View::Detail, 14, 39, "14/02/2026", "09:15"},
      {View::Detail, 14, 1, "", ""},
      {View::Detail, 0, 39, "", ""},
      {View::Month, 5, 6, "01/02/2026", ""},
      {View::Month, 6, 0, "02/02/2026", ""},
      {View::Month, 30, 6, "08/03/2026", ""},
      {View::Month, 0, 0, "", ""},
      {View::Planner, 2, 28, "28/02/2026", ""},
      {View::Planner, 2, 0, "", ""},
      {View::Year, 6, 9, "03/02/2026", ""},
      {View::Year, 4, 6, "", ""},
      {View::Year, 4, 37, "", ""},
      {View::Year, 36, 32, "31/12/2026", ""},
  };
  for (const auto& each : kCases) {
    Fill(each.view);
    const auto day = DayOfCell(each.view, period, grid, {each.row, each.col});
    EXPECT_EQ(day ? CellText(*day) : "", each.day) << each.row << " " << each.col;
    EXPECT_EQ(TimeOfCell(each.view, grid, {each.row, each.col}), each.time);
  }
}

TEST_F(Diary, WorkOnADayBeginsInItsCell) {
  const std::pair<View, CellPlace> kCells[] = {{View::Week, {20, 2}},
                                               {View::Detail, {3, 38}},
                                               {View::Month, {6, 1}},
                                               {View::Planner, {2, 3}},
                                               {View::Year, {4, 9}}};
  for (const auto& [view, cell] : kCells) {
    Fill(view);
    EXPECT_EQ(CellOfDay(view, period, grid, DateSerial(2026, 2, 3)), cell);
    EXPECT_EQ(CellOfDay(view, period, grid, DateSerial(2030, 2, 3)), CellPlace{});
  }
}

TEST_F(Diary, GroupRowsTakeNoPart) {
  Session("1", "03/02/2026", "09:00", "12:00");
  ledger.fgSessions.Subtotal(SubtotalFunction::Sum, ledger.fgSessions.ColIndex("SDATE"),
                             ledger.fgSessions.ColIndex("RATE"), {});
  for (const View view : {View::Week, View::Detail, View::Month, View::Planner, View::Year}) {
    Fill(view);
    std::set<std::string> tags;
    for (int row = 0; row < grid.Rows(); ++row)
      for (int col = 0; col < grid.Cols(); ++col) tags.insert(Tag(row, col));
    EXPECT_EQ(tags.size(), 2u);
  }
}

}  // namespace
}  // namespace lm::test
