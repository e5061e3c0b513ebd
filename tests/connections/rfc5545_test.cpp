// The stricter calendar files, read by another library's parser.
#include "connections/rfc5545.h"

#include <gtest/gtest.h>

#include <libical/ical.h>

#include <memory>

#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

struct FreeComponent {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};

// What a calendar program sees of a calendar of one session.
class Read {
 public:
  explicit Read(const std::vector<std::string>& session, const CalendarRequest& asked = {},
                const std::string& name = Nasty()) {
    test.AddRow(test.ledger.fgPractices, {"ID=1"});
    test.ledger.fgPractices.SetTextMatrix(2, "NAME", name);
    std::vector<std::string> cells{"PRACTICE=1",  "SDATE=03/02/2026", "STIME=09:00",
                                   "ETIME=12:30", "SESS_TYPE=1",      "RATE=1234.5"};
    cells.insert(cells.end(), session.begin(), session.end());
    test.AddRow(test.ledger.fgSessions, cells);
    CalendarRequest request = asked;
    request.rfc5545 = true;
    clsStringBuilder file;
    WriteCalendar(test.ledger, request, file);
    text = file.ToString();
    calendar.reset(icalparser_parse_string(text.c_str()));
    if (!calendar) return;
    event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
    icalrestriction_check(calendar.get());
    faults = icalcomponent_count_errors(calendar.get());
  }

  // A name of 60 characters with all that calendars are particular about.
  static std::string Nasty() {
    return FromUtf8("Müller, Smith; \"Partners\" \\ Café €€€ – O’Brien\r\nunit 7: a=b") +
           "\x01\t!!!";
  }

  std::string Value(icalproperty_kind kind) const {
    std::string all;
    for (icalproperty* each = icalcomponent_get_first_property(event, kind); each;
         each = icalcomponent_get_next_property(event, kind)) {
      const icalvalue* value = icalproperty_get_value(each);
      const char* plain = icalvalue_isa(value) == ICAL_TEXT_VALUE
                              ? icalvalue_get_text(value)
                              : icalproperty_get_value_as_string(each);
      all += (all.empty() ? "" : "|") + std::string(plain ? plain : "");
    }
    return all;
  }
  // By the rules of the zone that stand in the file.
  long Utc(icaltimetype time) const {
    return static_cast<long>(icaltime_as_timet_with_zone(time, time.zone));
  }
  long Minutes() const {
    return (Utc(icalcomponent_get_dtend(event)) - Utc(icalcomponent_get_dtstart(event))) / 60;
  }

  TestLedger test;
  std::string text;
  std::unique_ptr<icalcomponent, FreeComponent> calendar;
  icalcomponent* event = nullptr;
  int faults = -1;
};

TEST(Rfc5545, IsTakenWholeByAParser) {
  CalendarRequest request;
  request.category = FromUtf8(" Work ,GP; locum,, Café \\ €uro");
  request.access = "Private";
  for (const std::vector<std::string>& session : std::vector<std::vector<std::string>>{
           {},
           {"SDATE=28/03/2026", "STIME=22:00", "EDATE=29/03/2026", "ETIME=06:00"},
           {"PRACTICE=404"},
           {"RATE=ask, Ann; or \\n\r\nBob", "SESS_TYPE=x"},
           {"RATE="},
           {"ETIME=08:00"}}) {
    const Read read(session, request);
    ASSERT_TRUE(read.event) << read.text;
    EXPECT_EQ(read.faults, 0) << icalcomponent_as_ical_string(read.calendar.get());
    EXPECT_EQ(read.Value(ICAL_CATEGORIES_PROPERTY), "Work|GP; locum|Café \\ €uro");
    EXPECT_EQ(read.Value(ICAL_CLASS_PROPERTY), "PRIVATE");
    std::size_t longest = 0;
    for (const std::string_view line : Split(read.text, '\n')) {
      longest = std::max(longest, line.size());
      EXPECT_EQ(ToUtf8(FromUtf8(line)), line) << "a character was cut";
      EXPECT_TRUE(line.empty() || line.back() == '\r') << line;
    }
    EXPECT_LE(longest, 76u);
  }
}

TEST(Rfc5545, TextsComeOutAsTheyWentIn) {
  const Read read({});
  const std::string name = "Müller, Smith; \"Partners\" \\ Café €€€ – O’Brien\nunit 7: a=b\t!!!";
  EXPECT_EQ(read.Value(ICAL_SUMMARY_PROPERTY), name);
  EXPECT_EQ(read.Value(ICAL_LOCATION_PROPERTY), name);
  EXPECT_EQ(read.Value(ICAL_DESCRIPTION_PROPERTY), "NHS Normal Session\nRate: £1,234.50");
  EXPECT_EQ(read.Value(ICAL_UID_PROPERTY), "6D0BA78F490A4107@LedgerMinder");
  const Read lost({"PRACTICE=404"});
  EXPECT_EQ(lost.Value(ICAL_SUMMARY_PROPERTY), "Session");
  EXPECT_EQ(lost.Value(ICAL_LOCATION_PROPERTY), "");
}

// Every length of name, so that each kind of character comes to stand where a line ends.
TEST(Rfc5545, FoldsBetweenCharacters) {
  for (const std::string sign : {"é", "€", ";", "x"}) {
    for (int before = 55; before < 75; ++before) {
      std::string name(static_cast<std::size_t>(before), 'a');
      for (int i = 0; i < 60; ++i) name += sign;
      const Read read({}, {}, FromUtf8(name));
      EXPECT_EQ(read.Value(ICAL_SUMMARY_PROPERTY), name) << before;
    }
  }
}

TEST(Rfc5545, TellsTheTimesByTheZone) {
  const struct {
    std::vector<std::string> session;
    const char* start;
    long minutes;
  } kCases[] = {
      {{}, "2026-02-03 09:00", 210},
      {{"SDATE=03/08/2026"}, "2026-08-03 08:00", 210},
      {{"SDATE=28/03/2026", "STIME=22:00", "EDATE=29/03/2026", "ETIME=06:00"},
       "2026-03-28 22:00",
       7 * 60},
      {{"SDATE=24/10/2026", "STIME=22:00", "EDATE=25/10/2026", "ETIME=06:00"},
       "2026-10-24 21:00",
       9 * 60},
      {{"STIME=18:00", "ETIME=00:00"}, "2026-02-03 18:00", 6 * 60},
      // Ends before it starts: no end is told, which is that of the start.
      {{"STIME=22:00", "ETIME=06:00"}, "2026-02-03 22:00", 0},
      {{"ETIME=09:00"}, "2026-02-03 09:00", 0},
  };
  for (const auto& each : kCases) {
    const Read read(each.session);
    const std::time_t start = read.Utc(icalcomponent_get_dtstart(read.event));
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", std::gmtime(&start));
    EXPECT_STREQ(text, each.start);
    EXPECT_EQ(read.Minutes(), each.minutes) << each.start;
  }
}

TEST(Rfc5545, IsStampedInUniversalTime) {
  const struct {
    Date now;
    const char* stamp;
  } kCases[] = {
      {DateSerial(2026, 2, 3) + TimeSerial(10, 30), "20260203T103000Z"},
      {DateSerial(2026, 7, 1) + TimeSerial(0, 30), "20260630T233000Z"},
      {DateSerial(2026, 3, 29) + TimeSerial(0, 59), "20260329T005900Z"},
      {DateSerial(2026, 3, 29) + TimeSerial(2, 0), "20260329T010000Z"},
      {DateSerial(2026, 10, 25) + TimeSerial(0, 59), "20261024T235900Z"},
      {DateSerial(2026, 10, 25) + TimeSerial(2, 0), "20261025T020000Z"},
      {DateSerial(2027, 3, 28) + TimeSerial(12, 0), "20270328T110000Z"},
      {DateSerial(2027, 10, 31) + TimeSerial(1, 30), "20271031T003000Z"},
  };
  for (const auto& each : kCases) {
    clsStringBuilder file;
    Rfc5545Writer({}, each.now).WriteEvent({}, file);
    EXPECT_NE(file.ToString().find("DTSTAMP:" + std::string(each.stamp) + "\r\n"),
              std::string::npos)
        << file.ToString();
  }
}

}  // namespace
}  // namespace lm::test
