// The import wizard, from page to page.
#include "connections/frmImportWizard.h"

#include <gtest/gtest.h>

#include "connections/windows.h"
#include "core/change.h"
#include "core/formatting.h"
#include "core/hosts.h"
#include "core/options.h"
#include "core/text.h"
#include "tests/connections/feeds.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

const std::string kId = "abcdefghijklmnopqrstuvwxyz012345";
const std::string kAddress = std::string(kGPnetworks) + "/lm/?uid=" + kId;

class ImportWizard : public testing::Test {
 protected:
  TestLedger test;
  Ledger& ledger = test.ledger;
  std::unique_ptr<frmImportWizard> window;

  ImportWizard() {
    SetOption(test, optNewRowPosition, "BOTTOM");
    test.AddRow(ledger.fgPractices, {"NAME=Mill Lane Surgery", "ID=4"});
    RefreshPracticeLists(ledger);
    Open();
  }

  void Open(std::string_view feed = "GPnetworks") {
    window = std::make_unique<frmImportWizard>(test, *FindBookingFeed(feed));
    window->Enter(window->txtUniqueID, kId);
    window->Tick(window->chkAccepted, true);
  }
  void Serve(const std::vector<SentSession>& sent) {
    std::vector<std::string> sessions;
    for (const SentSession& each : sent) sessions.push_back(each.Xml());
    test.shown.web[kAddress] = FeedXml(sessions);
  }
  // What was told since the last call: main and minor prompt.
  std::string Next() {
    const std::size_t before = test.shown.messages.size();
    window->Press(window->cmdNext);
    if (test.shown.messages.size() == before) return "";
    const MessageBoxText& box = test.shown.messages.back();
    return box.mainPrompt + "|" + box.minorPrompt;
  }
  std::string Page() const { return window->frmTab.Text(); }
  EditOutcome Edit(Grid& grid, int record, std::string_view key, std::string_view word) {
    return window->Edit(grid, grid.FixedRows() + record, grid.ColIndex(key), word);
  }
  std::string Line(int record, std::string_view key) const {
    const Grid& lines = window->fgSessions;
    return lines.TextMatrix(lines.FixedRows() + record, key);
  }
  int Sessions() const { return ledger.fgSessions.Rows() - ledger.fgSessions.FixedRows(); }
};

TEST_F(ImportWizard, AsksForTheAccount) {
  Serve({});
  struct Case {
    std::string id;
    bool ticked;
    std::string told;
  };
  const std::vector<Case> kCases = {
      {"  ", true, "Please enter your unique GPnetwork ID"},
      {kId, false, "No statuses selected to import"},
      {kId + "6", true, "Please check your unique ID is correct"},
      {"abcd-efgh ijkl.mnop/qrst:uvwx;yz01,2345?", true, "No sessions to import"},
  };
  for (const Case& each : kCases) {
    window->Enter(window->txtUniqueID, each.id);
    window->Tick(window->chkAccepted, each.ticked);
    EXPECT_TRUE(Next().starts_with(each.told)) << each.told;
    EXPECT_EQ(Page(), "Account");
  }
  EXPECT_EQ(test.shown.fetched, std::vector<std::string>{kAddress});
}

TEST_F(ImportWizard, TellsWhatTheServiceAnswered) {
  const std::vector<std::pair<std::string, std::string>> kAnswers = {
      {"",
       "Unable to import data|Please ensure you are connected to the internet and any security "
       "software or firewall you use is not blocking LedgerMinder or the GPnetworks website."},
      {"<html>Sorry",
       "Invalid data feed|LedgerMinder was able to read the data, but the "
       "information read does not match the required format.\r\n\r\nAn extract of "
       "the feed is as follows;\r\n<html>Sorry"},
      {"<error><message>Unknown user</message></error>",
       "The following error was returned from the source|Unknown user"},
      {FeedXml({}), "No sessions to import|There are no sessions to import."},
  };
  for (const auto& [body, told] : kAnswers) {
    test.shown.web[kAddress] = body;
    EXPECT_TRUE(WithCrLf(Next()).starts_with(told)) << told;
    EXPECT_EQ(Page(), "Account");
    EXPECT_EQ(window->lblStatus.Text(), "");
  }
  const std::size_t told = test.shown.messages.size();
  test.shown.cancelAfter = 0;
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(test.shown.messages.size(), told);
}

TEST_F(ImportWizard, AsksTheServiceThatItWasOpenedFor) {
  EXPECT_EQ(window->lblIntroduction.Text(),
            "This wizard will import upcoming sessions from your GPnetworks account.");
  Open("NetworkLocum");
  EXPECT_EQ(window->lblIDFormat.Text(),
            "This information is provided by Network Locum and look similar to this;");
  Next();
  EXPECT_EQ(test.shown.fetched.back(),
            std::string(kNetworkLocum) +
                "/0.1/lm/import-sessions/?apikey=6f1d2c3e-8a4b-4c7d-9e21-5b0a7c9d3e14&uid=" + kId);
  window->Press(window->lblWebPage);
  EXPECT_EQ(test.shown.opened.back(), std::string(kWebsite) + "/NetworkLocum");
  EXPECT_EQ(FindBookingFeed("OtherService"), nullptr);
}

TEST_F(ImportWizard, GoesThroughItsFourPages) {
  Serve({{.rate = "100"}, {.practice = "The Elms", .date = "2026-02-11", .notes = "Key"}});
  window->Enter(window->txtDefaultNote, "Online");
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(Page(), "Practices");
  EXPECT_FALSE(window->Choose(window->frmTab, 0));  // the tabs only tell
  EXPECT_EQ(Edit(window->fgPractices, 0, "ACTION", "Mill Lane Surgery"), EditOutcome::Accepted);
  EXPECT_EQ(Edit(window->fgPractices, 0, "MATCH", "x"), EditOutcome::NotAllowed);
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(Page(), "Sessions");
  EXPECT_EQ(window->cmdNext.Text(), "Import");
  EXPECT_EQ(Line(1, "PRACTICE"), "Mill Lane Surgery");
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(Page(), "Complete");
  EXPECT_EQ(window->lblCompleteText.Text(), "All selected sessions have been imported correctly.");
  EXPECT_EQ(Sessions(), 2);
  EXPECT_EQ(GetOption(test, optImportChoice2), "Online");
  EXPECT_EQ(GetOption(test, optImportChoice3), "TRUE|FALSE|03/02/2026 10:30");
  window->CloseRequested();  // Escape
  EXPECT_TRUE(window->Closed());

  Open();
  EXPECT_EQ(window->lblLastSuccesfulImport.Text(), "Tuesday 03 Feb 2026 10:30");
  EXPECT_EQ(Next(), "No sessions to import|There are no new sessions to import.");
  EXPECT_EQ(Page(), "Account");
  ledger.history.Undo();
  EXPECT_EQ(Sessions(), 0);
}

TEST_F(ImportWizard, RemembersTheIdWhenAsked) {
  Serve({{}});
  window->Tick(window->chkRememberLocation, true);
  Next();
  EXPECT_EQ(GetOption(test, optImportChoice1), kId);
  Open();
  EXPECT_TRUE(window->chkRememberLocation.Checked());
  window->Tick(window->chkRememberLocation, false);
  Next();
  EXPECT_EQ(GetOption(test, optImportChoice1), "");
}

TEST_F(ImportWizard, IgnoredPracticesTakeTheirSessionsAlong) {
  Serve({{.practice = "The Elms"}, {.practice = "Far Away"}});
  Next();
  Edit(window->fgPractices, 0, "ACTION", "<Ignore this practice>");
  Next();
  EXPECT_EQ(Page(), "Sessions");
  EXPECT_EQ(window->fgSessions.Rows() - window->fgSessions.FixedRows(), 1);
  window->Press(window->cmdBack);
  EXPECT_EQ(Page(), "Account");
  Next();
  ASSERT_EQ(Page(), "Practices");  // asked again, but only of what was left out
  Edit(window->fgPractices, 0, "ACTION", "#-2");
  Serve({{.practice = "The Elms"}});
  window->Press(window->cmdBack);
  Next();
  Edit(window->fgPractices, 0, "ACTION", "#-2");
  EXPECT_EQ(Next(), "No sessions to import|There are no sessions to import.");
}

TEST_F(ImportWizard, ImportsWhatIsTicked) {
  Serve({{}, {.date = "2026-02-11"}, {.date = "some day"}});
  Next();
  Grid& lines = window->fgSessions;
  window->Click(lines, lines.FixedRows(), lines.ColIndex("IMPORT"));
  EXPECT_EQ(Edit(lines, 1, "IMPORT", "false"), EditOutcome::Accepted);
  EXPECT_EQ(Edit(lines, 2, "IMPORT", "maybe"), EditOutcome::Refused);
  Edit(lines, 2, "IMPORT", "FALSE");
  EXPECT_EQ(lines.Cell(CellSetting::flexcpChecked, lines.FixedRows() + 1, lines.ColIndex("IMPORT")),
            "FALSE");
  EXPECT_EQ(lines.DisplayText(lines.FixedRows(), "IMPORT"), "");
  EXPECT_TRUE(Next().starts_with("There are no sessions selected to import"));
  Edit(lines, 1, "IMPORT", "TRUE");
  Edit(lines, 2, "IMPORT", "TRUE");
  EXPECT_TRUE(Next().starts_with("Error Importing Sessions"));
  EXPECT_EQ(Sessions(), 1);
  EXPECT_EQ(Page(), "Complete");
  EXPECT_NE(window->lblCompleteText.Text(), "All selected sessions have been imported correctly.");
}

TEST_F(ImportWizard, IsNoImportWhenNothingCouldBeMade) {
  Serve({{.date = "some day"}});
  Next();
  EXPECT_TRUE(Next().starts_with("Error Importing Sessions"));
  EXPECT_EQ(GetOption(test, optImportChoice3), "TRUE|FALSE|");
  EXPECT_EQ(ledger.history.UndoCaption(), "");
}

TEST_F(ImportWizard, ChecksAgainWhatIsEdited) {
  test.AddRow(ledger.fgSessions,
              {"ID=12", "PRACTICE=4", "SDATE=10/02/2026", "STIME=08:30", "ETIME=12:30"});
  Serve({{.end = "12:00"}});
  Next();
  Grid& lines = window->fgSessions;
  const int row = lines.FixedRows();
  const auto bold = [&](std::string_view key) {
    return lines.Cell(CellSetting::flexcpFontBold, row, lines.ColIndex(key));
  };
  EXPECT_EQ(Line(0, "COLLISION"), "12");
  EXPECT_EQ(lines.DisplayText(row, "COLLISION"), "Mill Lane Surgery, 08:30 - 12:30");
  EXPECT_NE(lines.CellColour(CellSetting::flexcpBackColor, row, 1), kNoColour);
  EXPECT_EQ(bold("STIME"), "TRUE");
  EXPECT_EQ(bold("ETIME"), "");
  window->DoubleClick(lines, row, 1);
  EXPECT_EQ(test.shown.messages.back().title, "Session Clash");
  EXPECT_EQ(WithCrLf(test.shown.messages.back().minorPrompt),
            "Practice: Mill Lane Surgery\r\nTime: 10/02/2026 08:30 - 12:30");

  EXPECT_EQ(Edit(lines, 0, "ETIME", "6pm"), EditOutcome::Accepted);
  EXPECT_EQ(Edit(lines, 0, "STIME", "2"), EditOutcome::Accepted);
  EXPECT_EQ(Line(0, "STIME") + Line(0, "ETIME"), "14:0018:00");
  EXPECT_EQ(Line(0, "COLLISION"), "");
  EXPECT_EQ(lines.CellColour(CellSetting::flexcpBackColor, row, 1), kNoColour);
  EXPECT_EQ(bold("STIME"), "");
  EXPECT_EQ(Edit(lines, 0, "STIME", "soon"), EditOutcome::Refused);
  EXPECT_EQ(Edit(lines, 0, "RATE", ""), EditOutcome::Accepted);
  EXPECT_EQ(Line(0, "RATE"), "0");
  for (const std::string_view key : {"PRACTICE", "DATE", "PERIOD", "STATUS"})
    EXPECT_EQ(Edit(lines, 0, key, "x"), EditOutcome::NotAllowed) << key;
}

TEST_F(ImportWizard, CancelLeavesEverythingAsItWas) {
  Serve({{.practice = "The Elms"}});
  Next();
  window->CloseRequested();
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(ledger.history.UndoCaption(), "");
  EXPECT_EQ(Sessions(), 0);
}

// Nothing here may grow with the square of the sessions; a slow way shows as a test that hangs.
TEST_F(ImportWizard, TakesManySessions) {
  std::vector<SentSession> sent;
  for (int i = 0; i < 2000; ++i) {
    SentSession session;
    session.practice = "Practice " + std::to_string(i);
    session.date = std::to_string(2026 + i / 336) + "-" + std::to_string(10 + i % 3) + "-" +
                   std::to_string(10 + i % 19);
    sent.push_back(session);
  }
  Serve(sent);
  Next();
  Next();
  ASSERT_EQ(Page(), "Sessions");
  Next();
  EXPECT_EQ(Sessions(), 2000);
}

}  // namespace
}  // namespace lm::test
