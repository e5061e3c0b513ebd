// Synchronising with the stand-in for Outlook's calendar, and the window that does it.
#include <gtest/gtest.h>

#include "connections/frmSynchroniseOutlook.h"
#include "connections/outlookfilters.h"
#include "connections/outlookstandin.h"
#include "core/text.h"
#include "tests/connections/calendars.h"

namespace lm::test {
namespace {

const Date kMonday = DateSerial(2026, 2, 9);

OutlookProperties Work(Date start, double hours, const std::string& location,
                       const std::string& subject = "Work") {
  return {subject, start, start + hours / 24, location, false, 0, 1};
}

std::string TextOf(const std::vector<OutlookProperties>& appointments) {
  std::string text;
  for (const auto& each : appointments)
    text += (text.empty() ? "" : ", ") + each.subject + " " + CellText(each.start) + " " +
            CellTimeText(each.start) + "-" + CellTimeText(each.end) + " " + each.location;
  return text;
}

struct OutlookDesk : CalendarDesk {
  OutlookStandIn outlook;

  OutlookDesk() { shown.platform.outlook = &outlook; }
  int AddSession(const std::vector<std::string>& cells) { return AddRow(ledger.fgSessions, cells); }
  // "created sessions deleted" of a run.
  std::string Run() {
    const OutlookRun run =
        Synchronise(ledger, outlook, [](int, const std::string&) { return true; });
    errors = run.errors;
    fault = run.fault;
    return std::to_string(run.appointmentsCreated) + " " + std::to_string(run.sessionsCreated) +
           " " + std::to_string(run.appointmentsDeleted);
  }
  int Sessions() const { return ledger.fgSessions.Rows() - ledger.fgSessions.FixedRows(); }

  std::string errors, fault;
};

TEST(OutlookFilters, AreTextsThatTheStandInUnderstands) {
  EXPECT_EQ(
      AppointmentFilter("03/02/2026 09:00", "03/02/2026 12:00", "The \"Old\" Mill"),
      "[Start] = \"03/02/2026 09:00\" AND [End] = \"03/02/2026 12:00\" AND [Location] = \"The "
      "\"\"Old\"\" Mill\"");
  EXPECT_EQ(BetweenFilter(DateSerial(2025, 8, 7), DateSerial(2026, 8, 1)),
            "[Start] >= \"07 Aug 2025 11:59 PM\" AND [Start] <= \"01 Aug 2026 12:00 AM\"");
  EXPECT_EQ(WorkFilter(), "[Subject] = \"Work\"");

  OutlookStandIn outlook;
  outlook.Add(Work(kMonday, 3, "the \"old\" mill", "WORK"));
  const auto hits = [&](const std::string& filter) {
    return outlook.Items(OutlookFolder::Calendar)->Restrict(filter)->Count();
  };
  EXPECT_EQ(hits(AppointmentFilter("09/02/2026 00:00", "09/02/2026 03:00", "The \"Old\" Mill")), 1);
  EXPECT_EQ(hits(AppointmentFilter("09/02/2026 00:00", "09/02/2026 03:01", "The \"Old\" Mill")), 0);
  EXPECT_EQ(hits(BetweenFilter(kMonday - 1, kMonday)), 1);
  EXPECT_EQ(hits(BetweenFilter(kMonday, kMonday + 1)), 0);
  for (const std::string filter :
       {"", "[Start] = \"soon\"", "[Start] < \"09/02/2026\"", "[Body] = \"x\"", "[Subject] = \"Wo",
        "[Subject] = \"Work\" OR [Subject] = \"x\"", "[Subject"})
    EXPECT_THROW(hits(filter), OutlookFault) << filter;
}

TEST(OutlookSync, MakesAppointmentsOfSessionsOnce) {
  OutlookDesk desk;
  SetOption(desk, optOutlookSensitivity, "Private");
  SetOption(desk, optOutlookImportance, "High");
  desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=09:00", "ETIME=12:00"});
  desk.AddSession(
      {"PRACTICE=2", "SDATE=09/02/2026", "STIME=22:00", "EDATE=10/02/2026", "ETIME=08:00"});
  // Never sent: no end time, no practice, a practice that is gone, a damaged date.
  desk.AddSession({"PRACTICE=1", "SDATE=10/02/2026", "STIME=09:00"});
  desk.AddSession({"SDATE=10/02/2026", "STIME=09:00", "ETIME=12:00"});
  desk.AddSession({"PRACTICE=77", "SDATE=10/02/2026", "STIME=09:00", "ETIME=12:00"});
  desk.AddSession({"PRACTICE=1", "SDATE=30/02/2026", "STIME=09:00", "ETIME=12:00"});
  EXPECT_EQ(desk.Run(), "2 0 0");
  EXPECT_EQ(TextOf(desk.outlook.Appointments()),
            "Work 09/02/2026 09:00-12:00 Riverside, Work 09/02/2026 22:00-08:00 Hilltop");
  const OutlookProperties made = desk.outlook.Appointments().front();
  EXPECT_EQ(made.sensitivity, 2);
  EXPECT_EQ(made.importance, 2);
  EXPECT_EQ(desk.errors, "");
  EXPECT_EQ(desk.Run(), "0 0 0");
  desk.ledger.fgSessions.SetTextMatrix(desk.ledger.fgSessions.FixedRows(), "STIME", "09:30");
  EXPECT_EQ(desk.Run(), "1 0 0") << "a session that moved is a new one";
}

TEST(OutlookSync, TellsSessionsThatEndFirst) {
  OutlookDesk desk;
  desk.AddSession(
      {"PRACTICE=1", "SDATE=09/02/2026", "STIME=09:00", "EDATE=08/02/2026", "ETIME=12:00"});
  desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=22:00", "ETIME=08:00"});
  EXPECT_EQ(desk.Run(), "0 0 0");
  EXPECT_EQ(
      desk.errors,
      "There is a session for Riverside on 09/02/2026 which has its End Date before its Start "
      "Date.\r\nThere is a session for Riverside on 09/02/2026 which has its End Time earlier "
      "than its Start Time.\r\n");
}

TEST(OutlookSync, DoesWithStrayAppointmentsWhatTheOptionSays) {
  const std::vector<std::pair<std::string, std::string>> kChoices = {
      {"", "0 0 0"}, {"0", "0 0 0"}, {"1", "0 0 2"}, {"2", "0 2 0"}, {"9", "0 0 0"}};
  for (const auto& [choice, counts] : kChoices) {
    OutlookDesk desk;
    SetOption(desk, optOutlookMissing, choice);
    SetOption(desk, optOutlookPrivateNote, "from Outlook");
    desk.outlook.Add(Work(kMonday + 0.5, 3, "RIVERSIDE", "work"));
    desk.outlook.Add(Work(kMonday + 0.375, 3, "1 the quay"));
    desk.outlook.Add(Work(kMonday, 3, "", "Work"));
    desk.outlook.Add(Work(kMonday, 3, "Riverside", "Worktop"));
    desk.outlook.Add(Work(kMonday, 3, "Dentist"));
    desk.outlook.Add(Work(kMonday + 1100, 3, "Riverside"));
    EXPECT_EQ(desk.Run(), counts) << choice;
    EXPECT_EQ(
        desk.errors,
        "Outlook appointment for 09/02/2026 00:00 has Location 'Dentist'. No Practice with that "
        "name has been entered in LedgerMinder.\r\n\r\n");
    EXPECT_EQ(desk.outlook.Deleted().size(), choice == "1" ? 2u : 0u);
    if (choice != "2") continue;
    EXPECT_EQ(desk.Cells(1, {"SDATE", "STIME", "ETIME", "RATE", "NOTES"}),
              "09/02/2026 09:00 12:00 0 from Outlook");
    // That one's appointment tells the address, and is none by the practice's name.
    EXPECT_EQ(desk.Run(), "1 0 0");
    EXPECT_TRUE(desk.ledger.history.Undo());
    EXPECT_EQ(desk.Sessions(), 0);
  }
}

TEST(OutlookSync, LooksHalfAYearBeyondTheSessions) {
  OutlookDesk desk;
  SetOption(desk, optOutlookMissing, "2");
  desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=09:00", "ETIME=12:00"});
  desk.AddSession({"PRACTICE=1", "SDATE=nonsense"});
  desk.outlook.Add(Work(kMonday - 179, 3, "Riverside"));
  desk.outlook.Add(Work(kMonday - 180, 3, "Riverside"));
  desk.outlook.Add(Work(kMonday + 180, 0, "Riverside"));
  desk.outlook.Add(Work(kMonday + 180.5, 3, "Riverside"));
  EXPECT_EQ(desk.Run(), "1 2 0");
}

TEST(OutlookSync, TwoPracticesOfANameShareNoSessions) {
  for (const std::string choice : {"1", "2"}) {
    OutlookDesk desk;
    SetOption(desk, optOutlookMissing, choice);
    desk.AddRow(desk.ledger.fgPractices, {"NAME=Riverside"});
    desk.AddSession({"PRACTICE=3", "SDATE=09/02/2026", "STIME=09:00", "ETIME=12:00"});
    EXPECT_EQ(desk.Run(), "1 0 0");
    EXPECT_EQ(desk.Run(), "0 0 0");
  }
}

TEST(OutlookSync, EmptiesTheWastebasketOnlyWhenAsked) {
  for (const std::string forGood : {"TRUE", "FALSE"}) {
    OutlookDesk desk;
    SetOption(desk, optOutlookMissing, "1");
    SetOption(desk, optOutlookPermanentDelete, forGood);
    desk.outlook.Add(Work(kMonday, 3, "", "Holiday"));
    desk.outlook.Items(OutlookFolder::Calendar)->Item(1)->Delete();
    desk.outlook.Add(Work(kMonday, 3, "Riverside"));
    EXPECT_EQ(desk.Run(), "0 0 1");
    EXPECT_EQ(desk.outlook.Deleted().size(), forGood == "TRUE" ? 1u : 2u);
  }
}

TEST(OutlookSync, KeepsWhatWasDoneBeforeAFault) {
  for (int operations = 0; operations < 12; ++operations) {
    OutlookDesk desk;
    SetOption(desk, optOutlookMissing, "2");
    desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=09:00", "ETIME=12:00"});
    desk.outlook.Add(Work(kMonday + 1, 3, "Riverside"));
    desk.outlook.Add(Work(kMonday + 2, 3, "Riverside"));
    desk.outlook.operationsUntilFault = operations;
    const std::string counts = desk.Run();
    const auto appointments = desk.outlook.Appointments().size();
    EXPECT_EQ(counts,
              std::to_string(appointments - 2) + " " + std::to_string(desk.Sessions() - 1) + " 0");
    EXPECT_EQ(desk.fault.empty(), counts == "1 2 0") << operations;
  }
}

struct WindowDesk : OutlookDesk {
  MessageBoxText Box(std::size_t fromEnd = 1) const {
    return shown.messages[shown.messages.size() - fromEnd];
  }
};

TEST(OutlookWindow, SaysWhenThereIsNoOutlook) {
  WindowDesk desk;
  desk.outlook.reachable = false;
  for (OutlookPort* port :
       {static_cast<OutlookPort*>(&desk.outlook), static_cast<OutlookPort*>(nullptr)}) {
    desk.shown.platform.outlook = port;
    frmSynchroniseOutlook window(desk);
    EXPECT_TRUE(window.lblOutlookNotInstalled.Visible());
    EXPECT_EQ(window.lblOutlookNotInstalled.Text(),
              " Outlook is not installed or cannot be accessed by LedgerMinder.");
    EXPECT_FALSE(window.cmdUpdateOutlook.Enabled() || window.cmdPurge.Enabled());
  }
}

TEST(OutlookWindow, TellsWhatWasDone) {
  WindowDesk desk;
  desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=09:00", "ETIME=12:00"});
  desk.AddSession({"PRACTICE=1", "SDATE=09/02/2026", "STIME=22:00", "ETIME=08:00"});
  frmSynchroniseOutlook window(desk);
  EXPECT_FALSE(window.lblOutlookNotInstalled.Visible());
  window.Press(window.cmdUpdateOutlook);
  EXPECT_EQ(desk.Box(2).title, "Synchronisation Results");
  EXPECT_EQ(desk.Box(2).mainPrompt, "Synchronisation of Outlook complete.");
  EXPECT_EQ(WithCrLf(desk.Box(2).minorPrompt),
            "New appointments created in Outlook: 1\r\nNew sessions created in LedgerMinder:0\r\n"
            "Appointments deleted from Outlook: 0");
  EXPECT_EQ(desk.Box().title, "Synchronisation Errors");
  EXPECT_EQ(desk.Box().mainPrompt,
            "The following errors where encountered during synchronisation;");
  EXPECT_EQ(window.lblLastSync.Text(), "Tuesday 03 Feb 2026 10:30");
  EXPECT_EQ(GetOption(desk, optOutlookSyncState), "03/02/2026 10:30");
  EXPECT_EQ(desk.shown.busy, 0);
  EXPECT_EQ(desk.shown.progress.back(), "hide");
}

TEST(OutlookWindow, PurgesAfterAQuestion) {
  WindowDesk desk;
  SetOption(desk, optOutlookPermanentDelete, "TRUE");
  for (const std::string subject : {"Work", "WORK", "Work out"})
    desk.outlook.Add(Work(kMonday, 3, "", subject));
  frmSynchroniseOutlook window(desk);
  window.Press(window.cmdPurge);
  EXPECT_EQ(desk.Box().minorPrompt, "Delete all your LedgerMinder appointments from Outlook?");
  EXPECT_EQ(desk.outlook.Appointments().size(), 3u);
  desk.shown.answers = {Answer::Yes};
  window.Press(window.cmdPurge);
  EXPECT_EQ(desk.Box().title + ": " + desk.Box().mainPrompt + ": " + desk.Box().minorPrompt,
            "Purge: Purge Complete: 2 sessions removed from Outlook.");
  EXPECT_EQ(TextOf(desk.outlook.Appointments()), "Work out 09/02/2026 00:00-03:00 ");
  EXPECT_TRUE(desk.outlook.Deleted().empty());
  desk.outlook.Add(Work(kMonday, 3, ""));
  desk.shown.answers = {Answer::Yes};
  window.Press(window.cmdPurge);
  EXPECT_EQ(desk.Box().minorPrompt, "One session removed from Outlook.");
}

TEST(OutlookWindow, TellsAFaultAndACancel) {
  WindowDesk desk;
  for (int i = 0; i < 5; ++i)
    desk.AddSession(
        {"PRACTICE=1", "SDATE=1" + std::to_string(i) + "/02/2026", "STIME=09:00", "ETIME=12:00"});
  frmSynchroniseOutlook window(desk);
  desk.shown.cancelAfter = 2;
  window.Press(window.cmdUpdateOutlook);
  EXPECT_EQ(desk.outlook.Appointments().size(), 2u);
  EXPECT_EQ(desk.Box().mainPrompt, "Synchronisation of Outlook ended early.");
  EXPECT_EQ(window.lblProgress.Text(), "Cancelled. What had been done until then is kept.");
  desk.outlook.operationsUntilFault = 3;
  window.Press(window.cmdUpdateOutlook);
  EXPECT_EQ(desk.Box(2).minorPrompt, "Outlook has stopped answering.");
  EXPECT_EQ(desk.Box(2).icon, Icon::Critical);
  EXPECT_EQ(desk.shown.busy, 0);
}

}  // namespace
}  // namespace lm::test
