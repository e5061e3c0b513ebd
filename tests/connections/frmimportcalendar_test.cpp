#include "connections/frmImportCalendar.h"

#include <gtest/gtest.h>

#include <fstream>

#include "core/files.h"
#include "core/format.h"
#include "core/text.h"
#include "tests/connections/calendars.h"

namespace lm::test {
namespace {

const std::string kAppointment = CalendarOf({{"DTSTART:20260209T090000", "DTEND:20260209T120000",
                                              "LOCATION:Riverside", "DESCRIPTION:Rate: 95"}});

struct ImportDesk : CalendarDesk {
  frmImportCalendar window{ledger};

  std::string File(const std::string& text) {
    const auto path = directory.Path() / "work.ics";
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
  }
  void Import(const std::string& address) {
    window.Enter(window.txtICalAddress, address);
    window.Press(window.cmdImportFromICal);
  }
  int Sessions() const { return ledger.fgSessions.Rows() - ledger.fgSessions.FixedRows(); }
  const MessageBoxText& Box() const { return shown.messages.back(); }
};

TEST(ImportCalendar, RefusesWhatItCannotRead) {
  ImportDesk desk;
  desk.shown.web["https://a.example/empty"] = "";
  desk.shown.web["https://a.example/page"] = "<html>\r\n404\r\n</html>";
  const std::vector<std::pair<std::string, std::string>> kAddresses = {
      {"   ", "No calendar has been specified"},
      {"https://a.example/none", "Unable to connect to the calendar"},
      {"WWW.a.example/none", "Unable to connect to the calendar"},
      {"webcal://a.example/empty", "Unable to connect to the calendar"},
      {"https://a.example/page", "Inavlid Calendar Format"},
      {"/no/such/file.ics", "Missing Calendar File"},
      {desk.directory.Path().string(), "Unable to open the calendar"},
      {desk.File(""), "Unable to open the calendar"},
  };
  for (const auto& [address, message] : kAddresses) {
    desk.Import(address);
    EXPECT_EQ(desk.shown.TakeMessage(), message) << address;
    EXPECT_EQ(desk.window.lblStatus.Text(), "") << address;
  }
  EXPECT_EQ(GetOption(desk, optICalAddress) + GetOption(desk, optICalLastFile), "");
  EXPECT_EQ(desk.shown.busy, 0);
  EXPECT_EQ(desk.shown.progress.back(), "hide");
}

TEST(ImportCalendar, TellsBelowTheMessageWhatIsWrong) {
  ImportDesk desk;
  desk.Import(desk.File(Replace(kAppointment, "\r\n", "\n")));
  EXPECT_EQ(desk.Box().title, "Incorrect file format");
  const std::string text = WithCrLf(desk.Box().minorPrompt);
  EXPECT_TRUE(
      text.starts_with("The calendar data being loaded is not 'iCalendar' format. Please "
                       "ensure you have entered the correct calendar details.\r\n\r\nIts lines"))
      << text;
}

TEST(ImportCalendar, MakesSessionsThatUndoTakesBack) {
  ImportDesk desk;
  desk.shown.web["https://a.example/c.ics"] = kAppointment;
  desk.Import(" webcal://a.example/c.ics ");
  EXPECT_EQ(desk.Sessions(), 1);
  EXPECT_EQ(desk.Box().mainPrompt, "Calendar Synchronised");
  EXPECT_EQ(
      WithCrLf(desk.Box().minorPrompt),
      "Number of calendar appointments read: 1\r\n\r\nAppoinments read but not processed;\r\nall "
      "day events (0), wrong category (0)\r\n\r\nDuplicate sessions not overwritten: 0\r\nNew "
      "sessions created: 1\r\nSynchronisation errors: 0");
  EXPECT_EQ(desk.window.lblStatus.Text(), "Calendar importing complete.");
  EXPECT_EQ(desk.window.lblLastSync_ICal.Text(), "Tuesday 03 Feb 2026 10:30");
  EXPECT_EQ(GetOption(desk, optICalLastFile), "03/02/2026 10:30");
  EXPECT_EQ(GetOption(desk, optICalAddress), "webcal://a.example/c.ics");
  EXPECT_TRUE(MayExist(desk.ledger.OptionsFile()));
  desk.Import("webcal://a.example/c.ics");
  EXPECT_EQ(desk.Sessions(), 1);
  EXPECT_TRUE(desk.ledger.history.Undo());
  EXPECT_EQ(desk.Sessions(), 0);
  EXPECT_FALSE(desk.ledger.history.Undo());
}

TEST(ImportCalendar, OffersItsErrorsForReview) {
  ImportDesk desk;
  desk.shown.answers = {Answer::Yes};
  desk.Import(desk.File(Replace(kAppointment, "Riverside", "Moorside")));
  ASSERT_EQ(desk.shown.messages.size(), 2u);
  EXPECT_TRUE(desk.shown.messages[0].minorPrompt.ends_with("review the synchronisation errors?"));
  EXPECT_EQ(desk.Box().title, "Synchronisation Errors");
  EXPECT_EQ(desk.Box().mainPrompt, "All errors refer to the remote calendar");
  EXPECT_TRUE(desk.Box().minorPrompt.starts_with("1. On date '09/02/2026 09:00' the location"));
}

TEST(ImportCalendar, LeavesEverythingAsItWasOnCancel) {
  for (const std::string address : {"https://a.example/c.ics", "work.ics"}) {
    ImportDesk desk;
    desk.shown.web["https://a.example/c.ics"] = kAppointment;
    desk.shown.cancelAfter = 0;
    desk.Import(address == "work.ics" ? desk.File(kAppointment) : address);
    EXPECT_EQ(desk.Sessions(), 0) << address;
    EXPECT_TRUE(desk.shown.messages.empty()) << address;
    EXPECT_EQ(desk.window.lblStatus.Text(),
              "The import was cancelled. No session has been created.");
    EXPECT_EQ(GetOption(desk, optICalLastFile), "");
  }
}

// Rules are short, and each may ask for fifty sessions.
TEST(ImportCalendar, RefusesWhatAsksForTooMany) {
  std::vector<std::vector<std::string>> rules;
  for (int i = 0; i <= kMostSessions / 50; ++i)
    rules.push_back({"DTSTART:" + FormatDate(DateSerial(2026, 2, 9) + i / 1440 * 50, "yyyymmdd") +
                         "T" + FormatDate(TimeSerial(0, i % 1440), "hhnn"),
                     "DTEND:20260209", "LOCATION:Riverside", "RRULE:FREQ=DAILY"});
  ImportDesk desk;
  desk.Import(desk.File(CalendarOf(rules)));
  EXPECT_EQ(desk.shown.TakeMessage(), "Too many appointments");
  EXPECT_EQ(desk.Sessions(), 0);
  EXPECT_EQ(desk.window.lblStatus.Text() + GetOption(desk, optICalLastFile), "");
}

TEST(ImportCalendar, ShowsTheAddressThatTheOptionsHold) {
  ImportDesk desk;
  EXPECT_EQ(desk.window.lblLastSync_ICal.Text(), "");
  desk.window.Enter(desk.window.txtICalAddress, "typed.ics");
  desk.window.Press(desk.window.cmdOptions);
  EXPECT_EQ(desk.shown.opened.back(), "frmConfigure ICALENDAR");
  EXPECT_EQ(desk.window.txtICalAddress.Text(), "typed.ics");
  desk.shown.openFile = "/tmp/chosen.ics";
  desk.window.Press(desk.window.cmdSelectCalendar);
  EXPECT_EQ(desk.window.txtICalAddress.Text(), "/tmp/chosen.ics");
  SetOption(desk, optICalAddress, "stored.ics");
  EXPECT_EQ(frmImportCalendar(desk.ledger).txtICalAddress.Text(), "stored.ics");
}

}  // namespace
}  // namespace lm::test
