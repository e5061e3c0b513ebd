// The dialog "Prepare Pension Forms".
#include "pension/frmPensionForms.h"

#include "core/text.h"
#include "tests/pension/window_desk.h"

namespace lm {
namespace {

struct PrepareForms : testing::Test {
  test::WindowDesk desk;
  std::unique_ptr<frmPensionForms> window = std::make_unique<frmPensionForms>(desk.ledger);

  // Prompts of the messages, each "main: minor".
  std::string Make(CheckField& kind, const char* practice = "<ALL PRACTICES>") {
    desk.shown.messages.clear();
    EXPECT_TRUE(window->Enter(window->cboPractice, practice));
    window->Enter(kind, "TRUE");
    window->Press(window->cmdPrepareForms);
    std::string all;
    for (const MessageBoxText& box : desk.shown.messages)
      all += (all.empty() ? "" : "|") + box.mainPrompt + ": " + box.minorPrompt;
    return all;
  }
  std::string Rows() {
    return std::to_string(desk.ledger.fgPensionA.Rows() - 2) + " " +
           std::to_string(desk.ledger.fgPensionB.Rows() - 2) + " " +
           std::to_string(desk.ledger.fgPensionSolo.Rows() - 2);
  }
};

TEST_F(PrepareForms, OpensOnThisMonthAndAllForms) {
  EXPECT_EQ(window->Caption(), "Prepare Pension Forms");
  EXPECT_EQ(window->cboPractice.Text(), "<ALL PRACTICES>");
  EXPECT_EQ(window->cboPractice.Items().size(), 4u);
  EXPECT_EQ(window->txtMonth.Text() + " " + window->lblMonth.Text(), "01/02/2026 Feb 2026");
  const auto ticked = [&] {
    return window->optForm0.Text() + window->optForm1.Text() + window->optForm2.Text() +
           window->optForm3.Text();
  };
  EXPECT_EQ(ticked(), "TRUEFALSEFALSEFALSE");
  window->Enter(window->optForm2, "TRUE");
  EXPECT_EQ(ticked(), "FALSEFALSETRUEFALSE");
  window->Enter(window->optForm2, "FALSE");
  EXPECT_EQ(ticked(), "FALSEFALSETRUEFALSE") << "one is always ticked";
  window->Press(window->imgPensionHelp1);
  EXPECT_EQ(desk.Messages(), "How the NHS Pension Forms are created");
  window->CloseRequested();
  EXPECT_TRUE(window->Closed());
}

TEST_F(PrepareForms, SaysBeforehandWhatItWouldDoAndStaysClearOfASecondEnter) {
  const auto shown = [&] { return ToUtf8(window->lblPreview.Text()); };
  EXPECT_EQ(shown(),
            "Form A: nothing to make.\r\nForm B: nothing to make.\r\nForm SOLO: nothing "
            "to make.");
  desk.AddSession("1", "02/02/2026", "1000", {"EXTRAS=34.50"});
  desk.AddSession("2", "03/02/2026", "0");
  desk.AddSession("2", "28/02/2026", "100");
  desk.AddSession("3", "03/02/2026", "70", {"SESS_TYPE=2"});
  window->Enter(window->optForm1, "TRUE");
  EXPECT_EQ(shown(),
            "2 Form A for 3 sessions, £1,134.50. 1 session has no fee. 1 session lies in the "
            "future.");
  window->Enter(window->cboPractice, "Riverside");
  EXPECT_EQ(shown(), "1 Form A for 1 session, £1,034.50.");
  window->Press(window->cmdPrepareForms);
  EXPECT_EQ(shown(), "1 Form A for 1 session, £1,034.50. 1 is there already.");
  EXPECT_EQ(window->defaultButton, &window->cmdClose);
  EXPECT_EQ(window->Focused(), &window->cmdClose);
  window->Enter(window->optForm3, "TRUE");
  EXPECT_EQ(window->defaultButton, &window->cmdPrepareForms);
  EXPECT_EQ(shown(), "Form SOLO: nothing to make.");
  Grid& forms = desk.ledger.fgPensionA;
  forms.SetTextMatrix(forms.FixedRows(), "RCVDFROMPRACTICE", "20/02/2026");
  window->Enter(window->optForm2, "TRUE");
  EXPECT_EQ(shown(), "1 Form B of 1 Form A that came back.");
}

TEST_F(PrepareForms, MovesByMonths) {
  for (int i = 0; i < 2; ++i) window->Press(window->cmdMonthDown);
  EXPECT_EQ(window->txtMonth.Text() + " " + window->lblMonth.Text(), "01/12/2025 Dec 2025");
  for (int i = 0; i < 3; ++i) window->Press(window->cmdMonthUp);
  EXPECT_EQ(window->txtMonth.Text(), "01/03/2026");
  EXPECT_TRUE(window->Enter(window->txtMonth, "17 apr 2025"));
  EXPECT_EQ(window->txtMonth.Text() + " " + window->lblMonth.Text(), "01/04/2025 Apr 2025");
  for (const char* bad : {"banana", ""}) {
    EXPECT_FALSE(window->Enter(window->txtMonth, bad)) << bad;
    EXPECT_EQ(Make(window->optForm0), "Please enter a valid date.: ") << "nothing is made";
    desk.Messages();
  }
}

TEST_F(PrepareForms, FormsA) {
  EXPECT_EQ(Make(window->optForm1),
            "No Form A's calculated: There are no NHS Normal sessions in the specified month.");
  EXPECT_EQ(Make(window->optForm1, "Riverside"),
            "No Form A created: There are no NHS Normal sessions for this Practice and month or "
            "you chose not to overwrite existing forms.");
  const int ofNobody = desk.AddSession("", "02/02/2026", "100");
  EXPECT_EQ(Make(window->optForm1),
            "No Form A created: There were no sessions for the month for the Form A or you chose "
            "not to overwrite existing forms.")
      << "a session without a practice is work of the month";
  desk.ledger.fgSessions.RemoveItem(ofNobody);
  desk.AddSession("1", "02/02/2026", "100");
  desk.AddSession("2", "03/02/2026", "100");
  desk.AddSession("3", "03/02/2026", "100", {"SESS_TYPE=2"});
  EXPECT_EQ(Make(window->optForm1, "Riverside"), "One Form A calculated for Feb 2026.: ");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(Make(window->optForm1).ends_with("2 Form A calculated.: "));
  EXPECT_TRUE(Make(window->optForm1)
                  .ends_with("No Form A created: There were no sessions for the month for the Form "
                             "A or you chose not to "
                             "overwrite existing forms."));
  EXPECT_EQ(Rows() + " " + desk.Letters(), "2 0 0 A A -");
  EXPECT_TRUE(desk.IsWritten("FormA_Abbey_Feb 26.pdf"));
  EXPECT_FALSE(desk.IsWritten("FormA_Night Care_Feb 26.pdf"));
}

TEST_F(PrepareForms, FormB) {
  const std::string none =
      "No Form B created: For a Form B to be created, there must be at least one Form A which has "
      "a 'Received From Practice' date which is in the selected month (February 2026).";
  desk.AddSession("1", "02/01/2026", "100");
  desk.MakeA("1", "012026");
  EXPECT_EQ(Make(window->optForm2), none);
  desk.ledger.fgPensionA.SetTextMatrix(2, "RCVDFROMPRACTICE", "09/02/2026");
  EXPECT_EQ(Make(window->optForm2), "Form B calculated for February 2026.: ");
  EXPECT_EQ(Make(window->optForm2),
            "A Locum Form B has already been calculated for February 26.: Do you wish to overwrite "
            "it?");
  EXPECT_EQ(Rows() + " " + desk.Letters(), "1 1 0 A,B");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(Make(window->optForm2).ends_with("|Form B calculated for February 2026.: "));
  EXPECT_EQ(Rows(), "1 1 0");
}

TEST_F(PrepareForms, FormsSolo) {
  EXPECT_EQ(Make(window->optForm3),
            "No Form Solo created: There were no sessions for the month for the Form Solo or you "
            "chose not to overwrite existing forms.");
  EXPECT_EQ(Make(window->optForm3, "Abbey"),
            "No Form Solo created: There are no sessions for the month that meet the pension "
            "criteria or you chose not to overwrite existing forms.");
  desk.AddSession("3", "03/02/2026", "100", {"SESS_TYPE=2"});
  EXPECT_EQ(Make(window->optForm3), "1 Form Solo calculated.: ");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(
      Make(window->optForm3, "Night Care").ends_with("|One Form Solo calculated for Feb 2026.: "));
  EXPECT_EQ(Rows() + " " + desk.Letters(), "0 0 1 SOLO");
}

TEST_F(PrepareForms, AllForms) {
  EXPECT_EQ(Make(window->optForm0),
            "Pension Forms Calculated for February 2026: Form A: 0\r\nForm B: 0\r\nForm Solo: 0"
            "\r\n");
  desk.AddSession("1", "02/01/2026", "100");
  desk.MakeA("1", "012026");
  desk.ledger.fgPensionA.SetTextMatrix(2, "RCVDFROMPRACTICE", "09/02/2026");
  desk.AddSession("1", "02/02/2026", "100");
  desk.AddSession("2", "03/02/2026", "100");
  desk.AddSession("3", "03/02/2026", "100", {"SESS_TYPE=2"});
  EXPECT_EQ(Make(window->optForm0),
            "Pension Forms Calculated for February 2026: Form A: 2\r\nForm B: 1\r\nForm Solo: 1"
            "\r\n");
  EXPECT_EQ(Rows() + " " + desk.Letters(), "3 1 1 A,B A A SOLO");
  EXPECT_EQ(desk.shown.busy, 0);
  for (const char* file : {"FormA_Riverside_Feb 26.pdf", "FormA_Abbey_Feb 26.pdf",
                           "FormB_Feb 26.pdf", "FormSOLO_Night Care_Feb 26.pdf"})
    EXPECT_TRUE(desk.IsWritten(file)) << file;

  desk.AddSession("2", "05/03/2026", "100");
  desk.AddSession("1", "05/03/2026", "100");
  window->Press(window->cmdMonthUp);
  EXPECT_EQ(Make(window->optForm0, "Abbey"),
            "Pension Forms Calculated for March 2026: Form A: 1\r\nForm B: 0\r\nForm Solo: 0\r\n");
}

TEST_F(PrepareForms, WithoutTheFolderNothingIsMade) {
  desk.AddSession("1", "02/02/2026", "100");
  desk.AddFormA("1", "01/01/2026", "100", {"RCVDFROMPRACTICE=09/02/2026"});
  std::filesystem::remove_all(desk.ledger.File("Pension Forms"));
  for (CheckField* forms :
       {&window->optForm0, &window->optForm1, &window->optForm2, &window->optForm3})
    for (const char* practice : {"<ALL PRACTICES>", "Riverside"}) {
      EXPECT_EQ(Make(*forms, practice),
                "Pension forms directory not found: Please re-install LedgerMinder to re-create "
                "this directory.");
      EXPECT_EQ(desk.shown.messages[0].title, "No Pension Forms directory");
      EXPECT_EQ(Rows() + " " + desk.Letters(), "1 0 0 -");
    }
}

TEST_F(PrepareForms, NeedsSessionsToOpen) {
  EXPECT_FALSE(OpenPensionForms(desk.ledger));
  EXPECT_EQ(desk.Messages(), "Pension forms cannot be created if there are no Sessions.");
  desk.AddSession("1", "02/02/2026", "100");
  WindowCatalogue catalogue;
  AddPensionWindows(catalogue);
  std::string opened;
  desk.shown.modal = {[&](Screen& screen) { opened = screen.Name(); }};
  EXPECT_TRUE(catalogue.Open(desk.ledger, "frmPensionForms", {"new"}));
  EXPECT_EQ(opened, "frmPensionForms");
}

}  // namespace
}  // namespace lm
