// The window that confirms booked sessions to a practice.
#include "core/datafile.h"
#include "documents/frmBookingConfirmation.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

using test::InvoiceDesk;

struct Booking : testing::Test {
  InvoiceDesk desk;
  std::unique_ptr<frmBookingConfirmation> window;

  Booking() {
    SetMyDetail(desk, kMyTitleField, "Dr");
    SetMyDetail(desk, kFirstNameField, "Ann");
    SetMyDetail(desk, kLastNameField, "Morgan");
    desk.AddSession("1", "10/02/2026", "300");
    desk.AddSession("1", "02/02/2026", "1");
    desk.AddSession("1", "03/02/2026", "100.5", {"STIME=14:00", "ETIME=18:30"});
    desk.AddSession("1", "03/02/2026", "90", {"STIME=08:00", "ETIME=12:00", "SESS_TYPE=0"});
    desk.AddSession("2", "04/02/2026", "5");
    desk.AddSession("1", "banana", "7");
    desk.AddSession("", "05/02/2026", "8");
    Open("1");
  }

  void Open(std::string_view practice) {
    window = std::make_unique<frmBookingConfirmation>(desk);
    window->ChoosePractice(practice);
  }
  std::string Listed() {
    const Grid& grid = window->fgUpcomingSessions;
    std::string text;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      text += (text.empty() ? "" : " ") + grid.TextMatrix(row, "ID");
    return text;
  }
  void Tick(std::initializer_list<int> rows) {
    for (const int row : rows) window->Click(window->fgUpcomingSessions, row, 0);
  }
};

TEST_F(Booking, ListsThePracticesSessionsFromTodayOn) {
  EXPECT_EQ(Listed(), "4 3 1");
  const Grid& grid = window->fgUpcomingSessions;
  std::string shown;
  for (int col = 1; col < grid.Cols(); ++col)
    shown += grid.TextMatrix(0, col) + "=" + grid.DisplayText(3, col) + ";";
  EXPECT_EQ(shown,
            "ID=3;Start Date=03/02/2026;Start Time=14:00;End Date=;End Time=18:30;Rate=\xA3"
            "100.50;Session Type=NHS Normal;");
  EXPECT_FALSE(window->lblNoSessions.Visible());
  window->Enter(window->cboPractice, "Abbey");
  EXPECT_EQ(Listed(), "5");
  window->Enter(window->cboPractice, "Mill");
  EXPECT_EQ(Listed(), "");
  EXPECT_TRUE(window->lblNoSessions.Visible());
  window->ChoosePractice("99");
  EXPECT_EQ(window->cboPractice.Text(), "Mill") << "an unknown one changes nothing";

  desk.ledger.fgPractices.ClearData();
  Open("");
  EXPECT_EQ(Listed(), "") << "without a practice there is nobody to confirm to";
}

TEST_F(Booking, NothingTicked) {
  for (Button* button : {&window->cmdCreateConfirmation, &window->cmdSendByEmail}) {
    Tick({2, 2});
    window->Press(*button);
    ASSERT_EQ(desk.shown.messages.size(), 1u);
    EXPECT_EQ(desk.shown.messages[0].title, "Booking Confirmation");
    EXPECT_EQ(desk.shown.messages[0].mainPrompt, "No sessions have been selected");
    EXPECT_EQ(desk.shown.messages[0].minorPrompt,
              "Use the check boxes at the left side of the Upcoming Sessions grid to select which "
              "sessions will be included in the booking confirmation.");
    desk.Messages();
  }
  EXPECT_EQ(desk.shown.clipboard, "");
  EXPECT_TRUE(desk.shown.mails.empty());
  Tick({0, 1, 99});
  window->Click(window->fgUpcomingSessions, 2, 3);
  window->Press(window->cmdCreateConfirmation);
  EXPECT_EQ(desk.Messages(), "No sessions have been selected");
}

TEST_F(Booking, TheTextIsCopiedOrSent) {
  const std::string text =
      "This is to confirm the booking of the following sessions.\r\n"
      "Tue 03/02/2026  08:00 - 12:00    \xA3"
      "90.00\r\n"
      "Tue 10/02/2026  09:00 - 12:00    \xA3"
      "300.00\r\n"
      "Yours Sincerely\r\nDr Ann Morgan\r\n";
  Tick({2, 4});
  window->Press(window->cmdCreateConfirmation);
  EXPECT_EQ(desk.shown.clipboard, text);
  EXPECT_EQ(desk.shown.messages[0].mainPrompt,
            "The following confirmation has been copied to the clipboard");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, text);
  window->Press(window->cmdSendByEmail);
  ASSERT_EQ(desk.shown.mails.size(), 1u);
  EXPECT_EQ(desk.shown.mails[0].to, "pm@riverside.example");
  EXPECT_EQ(desk.shown.mails[0].subject, "Booking confirmation from Dr Ann Morgan");
  EXPECT_EQ(desk.shown.mails[0].body, text);
  EXPECT_TRUE(desk.shown.mails[0].attachment.empty());
  EXPECT_EQ(desk.shown.mails[0].attachmentName, "");

  desk.shown.mailAvailable = false;
  desk.Messages();
  window->Press(window->cmdSendByEmail);
  EXPECT_EQ(desk.Messages(), "No e-mail program was found");
  EXPECT_TRUE(std::filesystem::exists(desk.ledger.File("Drafts/pm@riverside.example.eml")));
}

TEST_F(Booking, TheTextsAreKeptAsATemplate) {
  const std::pair<TextField*, int> kBoxes[] = {{&window->txtMsgSubject, optBookingSubject},
                                               {&window->txtMsgIntro, optBookingHeader},
                                               {&window->txtMsgSessions, optBookingLine},
                                               {&window->txtMsgEnding, optBookingFooter}};
  for (const auto& [box, option] : kBoxes) {
    EXPECT_EQ(box->Text(), GetOption(desk, option));
    window->Enter(*box, "new " + box->Name() + "\r\n{Session Rate}");
    EXPECT_NE(box->Text(), GetOption(desk, option)) << "until it is saved";
  }
  window->Press(window->cmdSaveTemplate);
  EXPECT_EQ(desk.Messages(), "Template saved");
  test::ScriptedPlatform other;
  Ledger reloaded(other.platform);
  ASSERT_TRUE(LoadGridFile(reloaded, desk.ledger.File("Options.dat"), reloaded.fgOptions));
  for (const auto& [box, option] : kBoxes) EXPECT_EQ(GetOption(reloaded, option), box->Text());
}

}  // namespace
}  // namespace lm
