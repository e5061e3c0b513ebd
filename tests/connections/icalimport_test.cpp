#include "connections/icalimport.h"

#include <gtest/gtest.h>

#include "connections/icalexport.h"
#include "tests/connections/calendars.h"

namespace lm::test {
namespace {

using Lines = std::vector<std::string>;

TEST(CalendarFault, SaysWhatIsWrong) {
  const std::vector<std::pair<std::string, std::string>> kTexts = {
      {CalendarOf({}), ""},
      {"BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n", ""},
      {"", "It is a single line."},
      {"BEGIN:VCALENDAR\nEND:VCALENDAR\n", "Its lines end with line feeds alone"},
      {"BEGIN:VCALENDAR\r\nEND:VCALENDAR", "It has fewer than three lines."},
      {"BEGIN:VCALENDAR\r\nVERSION:2.0\r\nEND:VCALENDAR", "The line end behind"},
      {"\r\n\r\n", "Its first line is not"},
      {"begin:vcalendar\r\nEND:VCALENDAR\r\n", "\"begin:vcalendar\""},
      {"BEGIN:VCALENDAR\r\nEND:VEVENT\r\n", "Its last line is not"},
      {CalendarOf({}) + "\r\n", "but \"\"."},
      {"<html>" + std::string(5000, 'x') + "\r\n\r\n\r\n", "xxx...\"."},
  };
  for (const auto& [text, detail] : kTexts) {
    const auto fault = CalendarText(text).Fault();
    EXPECT_EQ(fault.has_value(), !detail.empty()) << text.substr(0, 40);
    EXPECT_NE((fault ? fault->detail : "").find(detail), std::string::npos) << text.substr(0, 40);
  }
}

TEST(CalendarReader, ReadsMoments) {
  const std::vector<std::pair<std::string, std::string>> kValues = {
      {"20260209T093059", "09/02/2026 09:30"},
      {"20260209T09", "09/02/2026 09:00"},
      {"20260209T", "09/02/2026 00:00"},
      {"20260209T2400", "10/02/2026 00:00"},
      {"20260209T0960", "09/02/2026 10:00"},
      {"20260709T230000Z", "10/07/2026 00:00"},
      {"20260209", "09/02/2026 all day"},
      {"20260209t0900", "09/02/2026 all day"},
      {"20260229", ""},
      {"20261301T0900", ""},
      {"2026029T0900", ""},
      {"20260209 T0900", ""},
      {"18991231T0900", ""},
      {"22000101T0900", ""},
      {"09022026T0900", ""},
      {"", ""},
  };
  for (const auto& [value, expected] : kValues) {
    const auto moment = ReadMoment(value);
    const std::string text = !moment
                                 ? ""
                                 : CellText(moment->moment) + " " +
                                       (moment->allDay ? "all day" : CellTimeText(moment->moment));
    EXPECT_EQ(text, expected) << value;
  }
}

const Lines kMorning{"DTSTART:20260209T090000", "DTEND:20260209T120000", "LOCATION:Riverside"};

Lines With(Lines lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

// "read sessions duplicates allDay wrongCategory errors"
std::string Counts(const CalendarImport& import) {
  std::string text = std::to_string(import.read);
  for (const int count : {static_cast<int>(import.sessions.size()), import.duplicates,
                          import.allDay, import.wrongCategory, import.errors})
    text += " " + std::to_string(count);
  return text;
}

TEST(CalendarImport, CountsWhatBecameOfEachAppointment) {
  struct Case {
    Lines lines;
    std::string counts;
  };
  const std::vector<Case> kCases = {
      {kMorning, "1 1 0 0 0 0"},
      {With(kMorning, {"LOCATION:  hilltop ", "SUMMARY:Riverside"}), "1 1 0 0 0 0"},
      {With(kMorning, {"LOCATION:", "SUMMARY:1 the quay"}), "1 1 0 0 0 0"},
      {With(kMorning, {"LOCATION;LANGUAGE=en:Nowhere", "SUMMARY;X=1:Hilltop"}), "1 1 0 0 0 0"},
      {With(kMorning, {"LOCATION", "SUMMARY"}), "1 0 0 0 0 1"},
      {With(kMorning, {"LOCATION:Nowhere"}), "1 0 0 0 0 1"},
      // A folded line goes on in one that no keyword begins.
      {With(kMorning, {"LOCATION:", " Riverside"}), "1 0 0 0 0 1"},
      {With(kMorning, {"BEGIN:VALARM", "DESCRIPTION:x", "END:VALARM"}), "1 1 0 0 0 0"},
      {With(kMorning, {"DTSTART;VALUE=DATE:20260209"}), "1 0 0 1 0 0"},
      {With(kMorning, {"DTSTART:2026"}), "1 0 0 0 0 1"},
      {With(kMorning, {"DTEND:later"}), "1 0 0 0 0 1"},
      {With(kMorning, {"DTEND;VALUE=DATE:20260210"}), "1 1 0 0 0 0"},
      // Thirty days are taken, to the day, and older ones are nothing at all.
      {With(kMorning, {"DTSTART:20260104T000000"}), "1 1 0 0 0 0"},
      {With(kMorning, {"DTSTART:20260103T235900"}), "1 0 0 0 0 0"},
      {With(kMorning, {"CATEGORIES:Home, work"}), "1 1 0 0 0 0"},
      {With(kMorning, {"CATEGORIES:not categorized"}), "1 1 0 0 0 0"},
      {With(kMorning, {"CATEGORIES:"}), "1 1 0 0 0 0"},
      {With(kMorning, {"CATEGORIES:Homework", "DTSTART:nonsense"}), "1 0 0 0 1 0"},
      {With(kMorning, {"RRULE:FREQ=DAILY;COUNT=3"}), "4 3 0 0 0 0"},
      {With(kMorning, {"RRULE;X=1:FREQ=WEEKLY;BYDAY=MO,TU;COUNT=200"}), "51 50 0 0 0 0"},
      {With(kMorning, {"RRULE:FREQ=DAILY;COUNT=3", "DTEND:none"}), "4 0 0 0 0 3"},
      {With(kMorning, {"RRULE:FREQ=DAILY;COUNT=3", "DTSTART:none"}), "1 0 0 0 0 0"},
      {With(kMorning, {"RRULE:FREQ=DAILY;COUNT=3", "DTSTART:19000101T09"}), "1 0 0 0 0 0"},
      {With(kMorning, {"RRULE:FREQ=DAILY;COUNT=40", "DTSTART:20251225T09"}), "41 30 0 0 0 0"},
      {With(kMorning, {"RRULE:FREQ=YEARLY"}), "1 0 0 0 0 0"},
  };
  for (const Case& each : kCases) {
    CalendarDesk desk;
    SetOption(desk, optICalCategory, " Locum,WORK, ,");
    EXPECT_EQ(Counts(desk.ReadEvent(each.lines)), each.counts) << each.lines.back();
  }
}

TEST(CalendarImport, AnEmptyAgeTakesTodayAndLater) {
  CalendarDesk desk;
  for (const std::string days : {"", "-5", "soon"}) {
    SetOption(desk, optICalDaysBack, days);
    EXPECT_EQ(Counts(desk.ReadEvent(With(kMorning, {"DTSTART:20260203T000000"}))), "1 1 0 0 0 0");
    EXPECT_EQ(Counts(desk.ReadEvent(With(kMorning, {"DTSTART:20260202T235900"}))), "1 0 0 0 0 0");
  }
}

TEST(CalendarImport, KnowsItsOwnSessionsAgain) {
  CalendarDesk desk;
  const std::string text = CalendarOf(
      {With(kMorning, {"UID:1"}), With(kMorning, {"UID:1"}), With(kMorning, {"LOCATION:Hilltop"})});
  const CalendarImport first = desk.Read(text);
  EXPECT_EQ(Counts(first), "3 2 1 0 0 0");
  CreateSessions(desk, first.sessions, optICalPrivateNote);
  EXPECT_EQ(Counts(desk.Read(text)), "3 0 3 0 0 0");
}

TEST(CalendarImport, OccurrencesKeepTheirTimes) {
  CalendarDesk desk;
  const CalendarImport night =
      desk.ReadEvent({"DTSTART;TZID=Europe/London:20260327T220000Z", "DTEND:20260328T080000Z",
                      "LOCATION:Riverside", "RRULE:FREQ=DAILY;COUNT=4"});
  EXPECT_EQ(Starts(night),
            "27/03/2026 22:00, 28/03/2026 22:00, 29/03/2026 23:00, 30/03/2026 23:00");
  EXPECT_EQ(CellText(night.sessions[2].end) + " " + CellTimeText(night.sessions[2].end),
            "30/03/2026 09:00");
}

TEST(CalendarImport, TellsItsErrorsInOrder) {
  CalendarDesk desk;
  const CalendarImport import = desk.Read(
      CalendarOf({With(kMorning, {"DTSTART:x"}), With(kMorning, {"DTEND:x"}),
                  With(kMorning, {"LOCATION:Caf\xE9 \\, N1"}), With(kMorning, {"LOCATION:"})}));
  EXPECT_EQ(
      import.errorLines,
      "1. There is a session with either no start date or an invalid start date specified.\r\n"
      "2. There is a session with either no end date or an invalid end date specified.\r\n"
      "3. On date '09/02/2026 09:00' the location of the appointment is 'Caf\xE9 \\, N1'. There "
      "is no Practice with that name in LedgerMinder.\r\n"
      "4. On date '09/02/2026 09:00' no Practice (location) has been entered.\r\n");
  const std::vector<Lines> many(1000, With(kMorning, {"LOCATION:" + std::string(20000, 'x')}));
  const CalendarImport hostile = desk.Read(CalendarOf(many));
  EXPECT_EQ(hostile.errors, 1000);
  EXPECT_EQ(hostile.errorLines.size(), 8000u);
}

TEST(CalendarImport, GoesOnToTheEndWithoutAnEnd) {
  CalendarDesk desk;
  std::string text = CalendarOf({kMorning});
  text.erase(text.find("END:VEVENT\r\n"), 12);
  text.insert(text.find("DTEND"), "BEGIN:VEVENT\r\n");
  EXPECT_EQ(Counts(desk.Read(text)), "1 1 0 0 0 0");
}

TEST(CalendarImport, QuotedPrintableBreaksStayWithinTheDescription) {
  CalendarDesk desk;
  const CalendarImport import =
      desk.ReadEvent(With(kMorning, {"DESCRIPTION:Private=0D=0A=Rate: 80"}));
  ASSERT_TRUE(import.sessions[0].settings);
  EXPECT_EQ(import.sessions[0].settings->type, kTypePrivate);
  EXPECT_EQ(import.sessions[0].settings->rate, "80.00");
}

TEST(CalendarImport, ReadsBackWhatWasExported) {
  CalendarDesk from, to;
  Grid& sessions = from.ledger.fgSessions;
  for (const std::string type : {"0", "1", "2", "4"})
    from.AddRow(sessions, {"PRACTICE=2", "SDATE=0" + type + "/03/2026", "STIME=09:05",
                           "ETIME=12:35", "SESS_TYPE=" + type, "RATE=1095.50"});
  from.AddRow(sessions, {"PRACTICE=1", "SDATE=28/02/2026", "STIME=22:00", "EDATE=01/03/2026",
                         "ETIME=08:00", "SESS_TYPE=2", "RATE=95.00"});
  sessions.SetTextMatrix(sessions.FixedRows(), "SDATE", "27/02/2026");
  clsStringBuilder file;
  EXPECT_EQ(WriteCalendar(from.ledger, {}, file), 5);
  CreateSessions(to, to.Read(file.ToString()).sessions, optICalPrivateNote);
  for (int row = 1; row <= 5; ++row) {
    for (const std::string key : {"PRACTICE", "SDATE", "STIME", "ETIME", "SESS_TYPE", "RATE"})
      EXPECT_EQ(to.Cells(row, {key}), from.Cells(row, {key})) << key;
    EXPECT_EQ(to.Cells(row, {"EDATE"}), from.Cells(row, {row == 5 ? "EDATE" : "SDATE"}));
  }
}

TEST(CalendarImport, StopsWhenTheUserWantsItTo) {
  CalendarDesk desk;
  const std::string text = CalendarOf(std::vector<Lines>(250, kMorning));
  int asked = 0;
  const CalendarImport import = ReadCalendar(desk.ledger, CalendarText(text), desk.shown.now,
                                             [&](int, double) { return ++asked < 2; });
  EXPECT_TRUE(import.cancelled);
  EXPECT_LT(import.read, 250);
}

}  // namespace
}  // namespace lm::test
