// Sessions out to a calendar: which go, their lines byte for byte, and files that stay as they
// were.
#include "connections/icalexport.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

using Cells = std::vector<std::string>;

struct Diary : TestLedger {
  Diary() { AddRow(ledger.fgPractices, {"NAME=Mill; Lane, \"North\"", "ID=1"}); }
  void Session(const Cells& more = {}) {
    Cells cells{"PRACTICE=1",  "SDATE=03/02/2026", "STIME=09:00",
                "ETIME=12:30", "SESS_TYPE=1",      "RATE=95"};
    cells.insert(cells.end(), more.begin(), more.end());
    AddRow(ledger.fgSessions, cells);
  }
  std::string Written(const CalendarRequest& request = {}) {
    clsStringBuilder text;
    written = WriteCalendar(ledger, request, text);
    return text.ToString();
  }
  int written = 0;
};

TEST(IcalExport, WritesThePlainLines) {
  Diary diary;
  diary.Session({"NOTES=not for others"});
  const std::string head =
      "BEGIN:VCALENDAR\r\nPRODID:-//LedgerMinder/NONSGML //EN\r\nVERSION:2.0\r\n";
  // The digest as md5sum has it of "1103/02/202609:00".
  const std::string event =
      "BEGIN:VEVENT\r\n"
      "UID:6D0BA78F490A4107@LedgerMinder\r\n"
      "DTSTART:20260203T090000\r\n"
      "DTEND:20260203T123000\r\n"
      "LOCATION:Mill; Lane, \"North\"\r\n"
      "SUMMARY:Mill; Lane, \"North\"\r\n";
  const std::string rest = "DESCRIPTION:NHS Normal Session\\n Rate:£95.00\r\nEND:VEVENT\r\n";
  EXPECT_EQ(ToUtf8(diary.Written()), head + event + rest + "END:VCALENDAR\r\n");
  CalendarRequest request;
  request.category = "Work, GP";
  request.access = "Private";
  EXPECT_EQ(ToUtf8(diary.Written(request)),
            head + event + "CATEGORIES:Work, GP\r\nCLASS:Private\r\n" + rest + "END:VCALENDAR\r\n");
}

TEST(IcalExport, TellsTypeAndRate) {
  const std::pair<Cells, std::string> kCases[] = {
      {{"SESS_TYPE=0"}, "Private Session\\n Rate:£95.00"},
      {{"SESS_TYPE=2"}, "NHS OOH Sessions\\n Rate:£95.00"},
      {{"SESS_TYPE=3"}, "NHS Deputising Session\\n Rate:£95.00"},
      {{"SESS_TYPE=4"}, "NHS Unpensioned Session\\n Rate:£95.00"},
      {{"SESS_TYPE=7"}, "\\n Rate:£95.00"},
      {{"RATE="}, "NHS Normal Session\\n Rate:£.00"},
      {{"RATE=1234.5"}, "NHS Normal Session\\n Rate:£1,234.50"},
      {{"RATE=-5"}, "NHS Normal Session\\n Rate:-£5.00"},
      {{"RATE=ask Ann"}, "NHS Normal Session\\n Rate:ask Ann"},
      {{"RATE=03/02/2026"}, "NHS Normal Session\\n Rate:03/02/2026"},
  };
  for (const auto& [cells, description] : kCases) {
    Diary diary;
    diary.Session(cells);
    const std::string text = ToUtf8(diary.Written());
    EXPECT_NE(text.find("\r\nDESCRIPTION:" + description + "\r\n"), std::string::npos) << text;
  }
}

TEST(IcalExport, ChoosesTheSessions) {
  CalendarRequest february, mill;
  february.days = {DateSerial(2026, 2, 1), DateSerial(2026, 2, 28)};
  mill.practice = "1";
  const CalendarRequest all;
  const struct {
    Cells cells;
    const CalendarRequest& request;
    int written;
  } kCases[] = {
      {{}, all, 1},
      {{"SDATE="}, all, 0},
      {{"SDATE=31/02/2026"}, all, 0},
      {{"SDATE=01/01/1900"}, all, 1},
      {{"SDATE=31/12/1899"}, all, 0},
      {{"SDATE=31/12/2199"}, all, 1},
      {{"SDATE=01/01/2200"}, all, 0},
      {{"STIME="}, all, 0},
      {{"ETIME="}, all, 0},
      {{"ETIME=late"}, all, 0},
      {{"EDATE=30/02/2026"}, all, 0},
      {{"PRACTICE=-1"}, all, 0},
      {{"PRACTICE=404"}, all, 1},
      {{"PRACTICE="}, all, 1},
      {{}, mill, 1},
      {{"PRACTICE=404"}, mill, 0},
      {{"SDATE=01/02/2026"}, february, 1},
      {{"SDATE=28/02/2026", "EDATE=01/03/2026"}, february, 1},
      {{"SDATE=31/01/2026", "EDATE=01/02/2026"}, february, 0},
      {{"SDATE=01/03/2026"}, february, 0},
  };
  for (const auto& each : kCases) {
    Diary diary;
    diary.Session(each.cells);
    diary.Written(each.request);
    EXPECT_EQ(diary.written, each.written) << ::testing::PrintToString(each.cells);
  }
}

TEST(IcalExport, PassesGroupsAndLostPractices) {
  Diary diary;
  diary.Session({"PRACTICE=404", "EDATE=04/02/2026", "STIME=22:00", "ETIME=06:00"});
  diary.Session();
  diary.ledger.fgSessions.SetRowOutlineLevel(3, 1);
  const std::string text = diary.Written();
  EXPECT_EQ(diary.written, 1);
  EXPECT_NE(
      text.find("DTSTART:20260203T220000\r\nDTEND:20260204T060000\r\nLOCATION:\r\nSUMMARY:\r\n"),
      std::string::npos)
      << text;
}

struct Exported : Diary {
  std::filesystem::path path = directory.Path() / "out.ics";
  std::string error;
  Exported() { ReplaceFile(path, "old", error); }
  CalendarOutcome Export() { return ExportCalendar(ledger, {}, path); }
  std::string File() { return ReadFile(path, error).value_or("(none)"); }
};

TEST(IcalExport, ReplacesTheFileWhole) {
  Exported diary;
  for (int i = 0; i < 600; ++i) diary.Session();
  EXPECT_EQ(diary.Export(), CalendarOutcome::Written);
  EXPECT_EQ(diary.File(), diary.Written());
  EXPECT_EQ(diary.shown.progress, (std::vector<std::string>{"83 Exporting sessions...", "hide"}));
  EXPECT_EQ(diary.Export(), CalendarOutcome::Written);
  EXPECT_EQ(diary.File(), diary.Written()) << "the same sessions bear the same UIDs";
}

TEST(IcalExport, LeavesTheOldFile) {
  Exported none;
  none.Session({"STIME="});
  EXPECT_EQ(none.Export(), CalendarOutcome::NoSessions);
  EXPECT_EQ(none.File(), "old");
  std::filesystem::remove(none.path);
  EXPECT_EQ(none.Export(), CalendarOutcome::NoSessions);
  EXPECT_FALSE(std::filesystem::exists(none.path));

  Exported cancelled;
  for (int i = 0; i < 600; ++i) cancelled.Session();
  cancelled.shown.cancelAfter = 0;
  EXPECT_EQ(cancelled.Export(), CalendarOutcome::Cancelled);
  EXPECT_EQ(cancelled.File(), "old");
  EXPECT_EQ(cancelled.shown.TakeMessage(), "");

  Exported own;
  own.Session();
  own.path = own.ledger.DataFile();
  EXPECT_EQ(own.Export(), CalendarOutcome::Failed);
  EXPECT_EQ(own.File(), "(none)");
  EXPECT_EQ(own.shown.TakeMessage(), "The program itself uses this file.");

  Exported nowhere;
  nowhere.Session();
  nowhere.path = nowhere.directory.Path() / "missing" / "out.ics";
  EXPECT_EQ(nowhere.Export(), CalendarOutcome::Failed);
  EXPECT_NE(nowhere.shown.TakeMessage(), "");
}

}  // namespace
}  // namespace lm::test
