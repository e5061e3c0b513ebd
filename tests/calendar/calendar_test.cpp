// What the views share: the period, tags, colours, packing, tooltips, and moving a session.
#include "calendar/calendar.h"

#include "calendar/move.h"
#include "calendar/timeslots.h"
#include "calendar/tooltip.h"
#include "core/change.h"
#include "core/rows.h"
#include "tests/calendar/diary.h"

namespace lm::test {
namespace {

TEST(CalendarPeriods, MoveWithTheirView) {
  CalendarPeriod period;
  period.GoTo(DateSerial(2026, 12, 31));
  EXPECT_EQ(CellText(period.weekStart), "28/12/2026");
  period.Move(CalendarView::Week, +1);
  EXPECT_EQ(CellText(period.weekStart), "04/01/2027");
  EXPECT_EQ(period.month, 1);
  EXPECT_EQ(period.year, 2027);
  period.Move(CalendarView::Month, -1);
  EXPECT_EQ(PeriodLabel(CalendarView::Month, period), "December 2026");
  EXPECT_EQ(PeriodLabel(CalendarView::Week, period), "January 2027");
  period.Move(CalendarView::Planner, +2);
  period.Move(CalendarView::Year, +1);
  EXPECT_EQ(PeriodLabel(CalendarView::Year, period), "2028");
  EXPECT_EQ(period.Days(), 29);
  EXPECT_EQ(CellText(period.FirstCell()), "31/01/2028");
  // Neither end of time is passed.
  for (const auto& [year, direction] : {std::pair{1900, -1}, {9998, +1}}) {
    period.year = year;
    period.Move(CalendarView::Year, direction);
    EXPECT_EQ(period.year, year);
  }
}

TEST(CalendarTags, TellTheirRecords) {
  EXPECT_EQ(KindOf(""), 0);
  EXPECT_EQ(RecordsOf("").size(), 0u);
  const struct {
    const char *tag, *records;
  } kCases[] = {{"S5", "S5"},          {"S5|", "S5"}, {"S4|E5|S6|", "S4 E5 S6"},
                {"Z|E7|S5|", "E7 S5"}, {"Z", ""},     {"S|", "S"}};
  for (const auto& each : kCases) {
    std::string records;
    for (const TaggedRecord& record : RecordsOf(each.tag))
      records += (records.empty() ? "" : " ") + std::string(1, record.kind) + record.id;
    EXPECT_EQ(records, each.records) << each.tag;
  }
}

TEST_F(Diary, SessionsTakeTheirColour) {
  const struct {
    const char* type;
    Option option;
  } kTypes[] = {{"1", optColourSessNormal},  {"2", optColourSessOOH},
                {"3", optColourSessOOH},     {"4", optColourSessUnpensioned},
                {"0", optColourSessPrivate}, {"", optColourSessPrivate},
                {"9", optColourSessPrivate}};
  for (const auto& each : kTypes) {
    const int row = Session("", "03/02/2026", "", "", {std::string("SESS_TYPE=") + each.type});
    EXPECT_EQ(SessionLook(ledger).ColourOf(row), Of(each.option)) << each.type;
  }
  SetOption(ledger, optCalendarColouredBy, "INV_STATUS");
  test.AddRow(ledger.fgInvoices, {"ID=1"});
  test.AddRow(ledger.fgInvoices, {"ID=2", "PAYDATE=01/02/2026"});
  const std::pair<const char*, Option> kStates[] = {{"", optColourUninvoiced},
                                                    {"1", optColourInvoicedUnpaid},
                                                    {"2", optColourInvoicedPaid},
                                                    {"77", optColourInvoicedUnpaid}};
  for (const auto& [invoice, option] : kStates) {
    const int row = Session("", "03/02/2026", "", "", {std::string("INVOICE=") + invoice});
    EXPECT_EQ(SessionLook(ledger).ColourOf(row), Of(option)) << invoice;
  }
}

TEST_F(Diary, StatusIconsFollowInvoiceAndForms) {
  const std::pair<std::vector<std::string>, const char*> kCases[] = {
      {{}, ""}, {{"INVOICE=1"}, "1"}, {{"FORMS=A"}, "2"}, {{"INVOICE=1", "FORMS=A"}, "3"}};
  for (const char* shown : {"TRUE", "FALSE"}) {
    SetOption(ledger, optShowSessionStatusIcons, shown);
    for (const auto& [cells, icon] : kCases)
      EXPECT_EQ(SessionLook(ledger).IconOf(Session("", "03/02/2026", "", "", cells)),
                std::string_view(shown) == "TRUE" ? icon : "");
  }
}

// What is kept of the sessions' days follows every change of the table.
TEST_F(Diary, SessionsOfAPeriodAreThoseOfNow) {
  const auto found = [&] {
    std::string ids;
    for (const CalendarSession& session :
         records.SessionsBetween(DateSerial(2026, 2, 2), DateSerial(2026, 2, 8), true))
      ids += ledger.fgSessions.TextMatrix(session.row, "ID") + " ";
    return ids;
  };
  Session("1", "08/02/2026");
  Session("2", "02/02/2026");
  Session("3", "01/01/2026", "", "", {"EDATE=02/02/2026"});
  Session("4", "09/02/2026");
  EXPECT_EQ(found(), "1 2 3 ") << "in the order of the table";
  ledger.fgSessions.Sort(SortSetting::GenericAscending, ledger.fgSessions.ColIndex("SDATE"));
  EXPECT_EQ(found(), "3 2 1 ");
  ledger.fgSessions.SetTextMatrix(RecordRow(ledger.fgSessions, "4"), "SDATE", "03/02/2026");
  EXPECT_EQ(found(), "3 2 1 4 ");
  ledger.fgSessions.RemoveItem(RecordRow(ledger.fgSessions, "2"));
  EXPECT_EQ(found(), "3 1 4 ");
  const RedrawOff off(ledger.fgSessions);
  Session("5", "05/02/2026");
  EXPECT_EQ(found(), "3 1 4 5 ");
  ledger.fgSessions.ClearData();
  EXPECT_EQ(found(), "");
}

TEST_F(Diary, EventsOfAPeriodAreClippedAndColoured) {
  Event("1", "Before", "20/01/2026", "01/02/2026");
  Event("2", "Across", "28/01/2026", "20/02/2026", "1");
  Event("3", "No end", "04/02/2026", "", "99");
  Event("4", "Damaged", "soon", "05/02/2026");
  Event("5", "Ends early", "05/02/2026", "01/02/2026");
  Event("6", "After", "09/02/2026");
  const Date first = DateSerial(2026, 2, 2);
  std::string found;
  for (const CalendarEvent& event : EventsBetween(ledger, first, first + 6))
    found += event.id + ":" + CellText(event.start).substr(0, 2) + "-" +
             CellText(event.end).substr(0, 2) + ":" + std::to_string(event.colour) + " ";
  EXPECT_EQ(found, "2:02-08:4849812 3:04-04:0 5:05-05:35468 ");
}

TEST(CalendarEvents, ArePackedGreedily) {
  const auto event = [](const char* id, int start, int end) {
    return CalendarEvent{id, "", static_cast<Date>(start), static_cast<Date>(end), 0};
  };
  std::string lines;
  for (const PlacedEvent& placed : PackEvents({event("a", 0, 2), event("b", 1, 1), event("c", 2, 6),
                                               event("d", 3, 4), event("e", 5, 6)}))
    lines += placed.event.id + std::to_string(placed.line) + " ";
  EXPECT_EQ(lines, "a0 d0 e0 b1 c1 ");
  EXPECT_EQ(LinesOf({}), 0);
}

TEST(TimeSlotsOfADay, StartAndEndRows) {
  const TimeSlots half(2), sixth(6);
  EXPECT_EQ(half.StartOf(""), 18);
  EXPECT_EQ(half.StartOf("nonsense"), 18);
  EXPECT_EQ(half.StartOf("09:29"), 18);
  EXPECT_EQ(half.StartOf("09:30"), 19);
  EXPECT_EQ(half.EndOf("12:00"), 23);
  EXPECT_EQ(half.EndOf("12:01"), 24);
  EXPECT_EQ(half.EndOf("12:30"), 24);
  EXPECT_EQ(half.EndOf("00:00"), 47);
  EXPECT_EQ(half.EndOf("23:59"), 47);
  EXPECT_EQ(sixth.StartOf("23:50"), 143);
  EXPECT_EQ(sixth.EndOf("09:10"), 54);
  EXPECT_EQ(sixth.EndOf("09:11"), 55);
  EXPECT_EQ(sixth.Count(), 144);
  EXPECT_EQ(sixth.TimeOf(55), "09:10");
  EXPECT_EQ(TimeSlots(3).TimeOf(5), "01:40");
  EXPECT_EQ(TimesText("", "12:00"), " - 12:00");
  EXPECT_EQ(TimesText("09:00", ""), "09:00 - ");
  EXPECT_EQ(TimesText("", " "), "");
}

TEST_F(Diary, TooltipsTellTheRecordsOfACell) {
  test.AddRow(ledger.fgInvoices, {"ID=1", "NUMBER=INV-1", "PAYDATE=05/03/2026"});
  test.AddRow(ledger.fgInvoices, {"ID=2", "NUMBER=INV-2", "SDATE=04/03/2026"});
  test.AddRow(ledger.fgInvoices, {"ID=3", "NUMBER=INV-3"});
  Session("1", "03/02/2026", "09:00", "12:00", {"INVOICE=1", "FORMS=A,B"});
  Session("2", "03/02/2026", "", "12:00", {"INVOICE=2"});
  Session("3", "03/02/2026", "09:00", "", {"INVOICE=3"});
  Session("4", "03/02/2026", "", "", {"INVOICE=77", "PRACTICE=9"});
  Event("1", "Alps", "02/02/2026", "12/02/2026");
  Event("2", "Course", "03/02/2026");
  Event("3", "Talk", "03/02/2026", "03/02/2026");
  const Date day = DateSerial(2026, 2, 3);
  const auto tip = [&](std::string_view tag) {
    return Replace(TipOf(ledger, day, tag).details, "\r\n", "/");
  };
  EXPECT_EQ(TipOf(ledger, day, "S1").title, "Tuesday 3 Feb 2026");
  EXPECT_EQ(tip("S1"), "Abbey  09:00-12:00/    Invoice: INV-1, paid: 05/03/26/    Forms: A,B/");
  EXPECT_EQ(tip("S2"), "Abbey  {none}-12:00/    Invoice: INV-2, sent: 04/03/26/    Forms: {none}/");
  EXPECT_EQ(tip("S3"), "Abbey  09:00-{none}/    Invoice: INV-3, unsent/    Forms: {none}/");
  EXPECT_EQ(tip("S4"), "  {none}-{none}/    Invoice: {none}/    Forms: {none}/");
  EXPECT_EQ(tip("E1"), "Alps (2 Feb - 12 Feb)/");
  EXPECT_EQ(tip("E2|E3|"), "Course/Talk/");
  EXPECT_EQ(tip("Z|E3|"),
            "More sessions and events exist for/this day than there is space/available to show "
            "them./Talk/");
}

TEST_F(Diary, AMovedSessionKeepsItsLength) {
  const struct {
    std::vector<std::string> before;  // SDATE STIME EDATE ETIME
    const char *day, *time, *after;
  } kCases[] = {
      {{"03/02/2026", "09:00", "", "12:30"}, "05/02/2026", "14:00", "05/02/2026 14:00  17:30"},
      {{"03/02/2026", "09:00", "", "12:30"}, "05/02/2026", "", "05/02/2026 09:00  12:30"},
      {{"03/02/2026", "09:00", "", "12:30"},
       "05/02/2026",
       "22:00",
       "05/02/2026 22:00 06/02/2026 01:30"},
      {{"03/02/2026", "09:00", "", "12:00"},
       "05/02/2026",
       "21:00",
       "05/02/2026 21:00 06/02/2026 00:00"},
      {{"03/02/2026", "20:00", "", "00:00"}, "05/02/2026", "10:00", "05/02/2026 10:00  14:00"},
      {{"03/02/2026", "22:00", "04/02/2026", "06:00"},
       "28/02/2026",
       "20:00",
       "28/02/2026 20:00 01/03/2026 04:00"},
      {{"03/02/2026", "22:00", "04/02/2026", "02:00"},
       "05/02/2026",
       "10:00",
       "05/02/2026 10:00 05/02/2026 14:00"},
      {{"03/02/2026", "22:00", "05/02/2026", "06:00"},
       "28/02/2026",
       "",
       "28/02/2026 22:00 02/03/2026 06:00"},
      {{"03/02/2026", "09:00", "", ""}, "05/02/2026", "10:15", "05/02/2026 10:15  "},
      {{"03/02/2026", "", "04/02/2026", "06:00"},
       "05/02/2026",
       "10:15",
       "05/02/2026 10:15 06/02/2026 06:00"},
      {{"03/02/2026", "22:00", "", "06:00"}, "05/02/2026", "20:00", "05/02/2026 20:00  06:00"},
  };
  for (const auto& each : kCases) {
    ledger.fgSessions.ClearData();
    const int row =
        Session("1", each.before[0], each.before[1], each.before[3], {"EDATE=" + each.before[2]});
    test.shown.answers = {Answer::Yes};
    EXPECT_TRUE(MoveSession(ledger, "1", *CellDate(each.day), each.time));
    std::string after;
    for (const char* key : {"SDATE", "STIME", "EDATE", "ETIME"})
      after += (after.empty() ? "" : " ") + ledger.fgSessions.TextMatrix(row, key);
    EXPECT_EQ(after, each.after);
  }
}

TEST_F(Diary, ASessionIsMovedAfterAQuestionUnlessItIsLocked) {
  const int row = Session("1", "03/02/2026", "09:00", "12:00");
  Session("2", "03/02/2026", "", "", {"INVOICE=1"});
  Session("3", "03/02/2026", "", "", {"FORMS=A"});
  ClearMarkers(ledger.fgSessions);
  EXPECT_FALSE(MoveSession(ledger, "1", DateSerial(2026, 2, 14), "10:30"));
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "Confirm Movement of Session");
  EXPECT_EQ(test.shown.messages[0].minorPrompt,
            "Do you want to move the session for Abbey from\r\nTuesday 3 Feb 2026 09:00 to "
            "Saturday 14 Feb 2026 10:30?");
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row, "SDATE"), "03/02/2026");
  test.shown.messages.clear();
  for (const char* id : {"2", "3", "77"}) {
    test.shown.answers = {Answer::Yes};
    EXPECT_FALSE(MoveSession(ledger, id, DateSerial(2026, 2, 14), "")) << id;
  }
  EXPECT_EQ(test.shown.messages.size(), 0u);
  EXPECT_TRUE(MoveSession(ledger, "1", DateSerial(2026, 2, 14), "10:30"));
  EXPECT_EQ(StateOfRow(ledger, ledger.fgSessions, row), RowState::Edited);
  EXPECT_EQ(ledger.history.UndoCaption(), "Move Session");
  ledger.history.Undo();
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row, "SDATE"), "03/02/2026");
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row, "STIME"), "09:00");
}

}  // namespace
}  // namespace lm::test
