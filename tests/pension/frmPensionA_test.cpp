// The window of a Form A.
#include "pension/frmPensionA.h"

#include "core/text.h"
#include "tests/pension/window_desk.h"

namespace lm {
namespace {

using test::Figures;
using test::PressHelp;
using test::ShownRows;

struct WindowOfFormA : testing::Test {
  test::WindowDesk desk;
  Grid& forms = desk.ledger.fgPensionA;
  std::unique_ptr<frmPensionA> window;

  WindowOfFormA() {
    desk.AddSession("1", "02/01/2026", "1000", {"EMPLOYERCONTRIB=129.42"});  // a Friday
    desk.AddSession("1", "19/01/2026", "0.1", {"EXTRAS=20.5", "EMPLOYERCONTRIB=2.67"});
    desk.AddSession("1", "21/01/2026", "100", {"EDATE=22/01/2026", "EXPENSES=7"});
    desk.AddSession("2", "02/01/2026", "5");
    desk.AddSession("1", "02/02/2026", "6");
    desk.MakeA("1", "012026");
    desk.MakeA("2", "012026");
    ClearMarkers(forms);
    Open();
  }
  void Open(int row = 2) {
    window = std::make_unique<frmPensionA>(desk.ledger);
    EXPECT_TRUE(window->Open(row));
  }
  void Receive(const std::string& date, bool onFormB) {
    forms.SetTextMatrix(2, "RCVDFROMPRACTICE", date);
    if (onFormB) desk.MakeB(date.substr(3, 2) + date.substr(6));
    desk.Messages();
    Open();
  }
  std::string Dates() {
    return test::CellsOf(forms, 2, {"SENTTOPRACTICE", "RCVDFROMPRACTICE", "SENTTOHA", "NOTES"});
  }
};

TEST_F(WindowOfFormA, ShowsTheFormAndItsSessions) {
  EXPECT_EQ(window->Caption(), "Pension Form A - January 2026 - Riverside");
  EXPECT_EQ(window->lblPractice.Text() + " " + window->lblMonth.Text(), "Riverside January 2026");
  EXPECT_EQ(Figures(*window), "=1,100.10 =20.50 a=1,120.60 b=1,008.54 c=132.09");
  EXPECT_EQ(window->fgDetails.TextMatrix(4, "LABEL"),
            "GP locum’s basic fee\n(excluding employer contributions)"_w);
  EXPECT_EQ(ShownRows(window->fgGrouping, {"GROUP", "SDATE", "EDATE", "RATE", "EXTRAS", "TOTAL",
                                           "PENSIONABLE", "EMPLOYER_CONTRIB"}),
            (std::vector<std::string>{"1|2/1/26|19/1/26|1,000.10|20.50|1,020.60|918.54|132.09",
                                      "1|2/1/26||1,000.00|0.00|1,000.00|900.00|129.42",
                                      "1|19/1/26||0.10|20.50|20.60|18.54|2.67",
                                      "2|21/1/26|22/1/26|100.00|0.00|100.00|90.00|0.00",
                                      "2|21/1/26|22/1/26|100.00|0.00|100.00|90.00|0.00",
                                      "Total|||1,100.10|20.50|1,120.60|1,008.54|132.09"}))
      << "a Friday and a Monday make one block";
  EXPECT_TRUE(window->fgGrouping.IsSubtotal(2));
  EXPECT_FALSE(window->fgGrouping.IsSubtotal(3));
  EXPECT_EQ(ShownRows(window->fgSessions, {"ID", "SDATE", "TOTAL", "FORMS"}).size(), 3u);
  EXPECT_FALSE(window->cMonth.Visible() || window->cPracticeID.Visible());
  EXPECT_EQ(window->cMonth.Text() + " " + window->cPracticeID.Text(), "01/01/2026 1");

  frmPensionA none(desk.ledger);
  for (const int row : {-1, 0, 1, 4}) EXPECT_FALSE(none.Open(row)) << row;
}

TEST_F(WindowOfFormA, NothingInItIsAFigureToEdit) {
  for (int line = 1; line <= 5; ++line)
    EXPECT_EQ(test::Type(*window, line, "1"), EditOutcome::NotAllowed) << line;
}

TEST_F(WindowOfFormA, OkStoresAndCancelDoesNot) {
  const auto type = [&] {
    EXPECT_TRUE(window->Enter(window->cSentToPractice, "1/2"));
    EXPECT_TRUE(window->Enter(window->cRcvdFromPractice, "today"));
    EXPECT_TRUE(window->Enter(window->cSentToHA, "4 feb"));
    EXPECT_TRUE(window->Enter(window->cNotes, "a\r\nb"));
  };
  type();
  EXPECT_TRUE(window->tabMain.TabMarked(2));
  window->Press(window->cmdCancel);
  EXPECT_EQ(Dates(), "   ");
  EXPECT_EQ(StateOfRow(desk, forms, 2), RowState::Saved);

  Open();
  window->Press(window->cmdOk);
  EXPECT_EQ(StateOfRow(desk, forms, 2), RowState::Saved) << "nothing was changed";

  Open();
  type();
  window->Press(window->cmdOk);
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(Dates(), "01/02/2026 03/02/2026 04/02/2026 a\r\nb");
  EXPECT_EQ(StateOfRow(desk, forms, 2), RowState::Edited);
  EXPECT_EQ(test::CellsOf(forms, 2, {"PRACTICE", "MONTH", "AMOUNT"}), "1 01/01/2026 1120.60");
  EXPECT_EQ(forms.TextMatrix(3, "NOTES") + forms.TextMatrix(3, "SENTTOHA"), "");
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(WindowOfFormA, FindsItsRowAgainAndWritesNoOther) {
  window->Enter(window->cNotes, "mine");
  forms.Sort(SortSetting::StringNoCaseAscending, forms.ColIndex("PRACTICE"));
  window->Press(window->cmdOk);
  EXPECT_EQ(forms.TextMatrix(2, "NOTES") + "|" + forms.TextMatrix(3, "NOTES"), "|mine");

  Open(3);
  window->Enter(window->cNotes, "gone");
  forms.RemoveItem(3);
  window->Press(window->cmdOk);
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(forms.Rows(), 3);
  EXPECT_EQ(forms.TextMatrix(2, "NOTES"), "");
}

TEST_F(WindowOfFormA, DatesAreCheckedAndPicked) {
  for (TextField* box :
       {&window->cSentToPractice, &window->cRcvdFromPractice, &window->cSentToHA}) {
    EXPECT_FALSE(window->Enter(*box, "banana"));
    EXPECT_EQ(desk.Messages(), "Please enter a valid date.");
    EXPECT_TRUE(window->Enter(*box, ""));
  }
  const std::pair<Button*, std::string> kPopups[] = {
      {&window->cmdSentToPractice, "Sent To Practice"},
      {&window->cmdRcvdFromPractice, "Received From Practice"},
      {&window->cmdSentToHA, "Sent To HA"}};
  for (const auto& [button, caption] : kPopups) {
    std::string shown;
    desk.shown.modal.push_back([&](Screen& picker) { shown = picker.Caption(); });
    window->Press(*button);
    EXPECT_EQ(shown, caption);
  }
  desk.PickDay("2");
  window->Press(window->cmdRcvdFromPractice);
  EXPECT_EQ(window->cRcvdFromPractice.Text(), "02/02/2026");
  EXPECT_EQ(window->lblPensionBDetails.Text(), "No Form B as been created yet for February 2026");
}

TEST_F(WindowOfFormA, SaysWhereTheFormStands) {
  EXPECT_EQ(window->lblPensionBDetails.Text(),
            "This Form A has not been inlcuded on a Form B yet.\n"
            "It can be added to a Form B once the 'Received from Practice' date has been entered.");
  Receive("05/02/2026", false);
  EXPECT_EQ(window->lblPensionBDetails.Text(), "No Form B as been created yet for February 2026");
  Receive("05/02/2026", true);
  EXPECT_EQ(window->lblPensionBDetails.Text(),
            "This Form A is included on the Form B for February 2026. It therefore cannot now be "
            "deleted or edited. ");
}

TEST_F(WindowOfFormA, TheSameReceivedDayIsNoChange) {
  Receive("5/2/2026", true);
  EXPECT_TRUE(window->Enter(window->cRcvdFromPractice, "05/02/2026"));
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(WindowOfFormA, TheReceivedDateObeysTheFormB) {
  Receive("05/02/2026", true);
  for (const char* typed : {"", "1/3/2026", "6/2/2026"}) {
    EXPECT_FALSE(window->Enter(window->cRcvdFromPractice, typed)) << typed;
    EXPECT_EQ(desk.Messages(), "Unable to change date");
    EXPECT_EQ(window->cRcvdFromPractice.Text(), "05/02/2026");
  }
  desk.PickDay("2");
  window->Press(window->cmdRcvdFromPractice);
  EXPECT_EQ(desk.Messages(), "Unable to change date");
  EXPECT_EQ(window->cRcvdFromPractice.Text(), "05/02/2026");
  EXPECT_TRUE(window->Enter(window->cRcvdFromPractice, "5 feb 2026"));
  window->Press(window->cmdOk);
  EXPECT_TRUE(window->Closed());

  Open(3);
  EXPECT_FALSE(window->Enter(window->cRcvdFromPractice, "7/2/2026"));
  EXPECT_EQ(desk.shown.messages.at(0).minorPrompt.find("for a month for which a Form B") !=
                std::string::npos,
            true);
  EXPECT_EQ(desk.Messages(), "Unable to set the 'Rcvd From Practice' date in Feb 2026");
  EXPECT_EQ(window->cRcvdFromPractice.Text(), "");
  EXPECT_TRUE(window->Enter(window->cRcvdFromPractice, "7/3/2026"));
  window->Press(window->cmdOk);
  EXPECT_EQ(forms.TextMatrix(3, "RCVDFROMPRACTICE"), "07/03/2026");
}

TEST_F(WindowOfFormA, DeletesOnlyWhatWasNeverSent) {
  // Typed and not stored counts: what is to be sent is as good as sent.
  window->Enter(window->cSentToPractice, "today");
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.OneMessage(),
            "Delete Pension Form|A Pension Form cannot be deleted once it has been sent|To delete "
            "the form, you must set the 'Sent to Practice', 'Received From Practice', and 'Sent to "
            "HA' dates to blank.");
  EXPECT_FALSE(window->Closed());
  window->Press(window->cmdOk);

  Open();
  window->Enter(window->cSentToPractice, "");
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form A for 'Riverside' for January "
            "2026?\n");
  EXPECT_FALSE(window->Closed()) << "answered no";
  EXPECT_EQ(desk.Letters(), "A A A A -");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.IsWritten("FormA_Riverside_Jan 26.pdf"));
  window->Press(window->cmdDeleteForm);
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(desk.Letters(), "- - - A -");
  EXPECT_EQ(forms.Rows(), 3);
  EXPECT_FALSE(desk.IsWritten("FormA_Riverside_Jan 26.pdf"));
}

TEST_F(WindowOfFormA, AFormOnAFormBStays) {
  Receive("05/02/2026", true);
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.Messages(), "A Pension Form cannot be deleted once it has been sent");
  EXPECT_FALSE(window->Closed());
  EXPECT_TRUE(window->Enter(window->cNotes, "still a note"));
  window->Press(window->cmdOk);
  EXPECT_EQ(forms.TextMatrix(2, "NOTES"), "still a note");
}

TEST_F(WindowOfFormA, OpensItsDocument) {
  std::filesystem::remove(desk.ledger.File("Pension Forms") / "FormA_Riverside_Jan 26.pdf");
  window->Press(window->cmdViewFormPDF);
  EXPECT_TRUE(desk.IsWritten("FormA_Riverside_Jan 26.pdf"));
  ASSERT_EQ(desk.shown.opened.size(), 1u);
  EXPECT_TRUE(desk.shown.opened[0].ends_with("FormA_Riverside_Jan 26.pdf"));
}

TEST_F(WindowOfFormA, HelpMarks) {
  const auto help = [&](LabelField& mark) {
    window->Press(mark);
    return desk.Messages();
  };
  PressHelp(*window, 3);
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Basic Fee|The basic fee is the sum of all Session Rates and Extras. It "
            "does not include Expenses as these are not pensionable.");
  EXPECT_EQ(window->fgDetails.Cell(CellSetting::flexcpPicture, 4, 5), "help");
  for (const int line : {-9, 0, 1, 2, 4, 5, 6}) PressHelp(*window, line);
  EXPECT_EQ(desk.Messages(), "");
  EXPECT_EQ(help(window->imgSentToPractice_Help),
            "This is the date the paper form was sent to the practice, or the electroinic form was "
            "submitted online. ");
  const std::string received =
      "This date is significant as it determines the Form B this Form A appears on. \r\n\r\nIt "
      "should be set to the date the Pension Form A is returned to you or approved by the "
      "Practice. \r\n\r\n";
  EXPECT_EQ(help(window->imgRecvdFromPractice_Help),
            received +
                "If a Form B has already been created for a month, a Form A cannot be added to "
                "that Form B by setting the 'Received from Practice' to that month.To include the "
                "Form A on that Form B, the Form B needs to be deleted then recreated. ");
  Receive("05/02/2026", true);
  EXPECT_EQ(help(window->imgRecvdFromPractice_Help),
            received +
                "As this From A has already been included on a Form B, it cannot be deleted or "
                "edited. To change or delete the Form A, the Form B must be deleted first. ");
}

TEST_F(WindowOfFormA, ASessionOpensByADoubleClick) {
  std::vector<std::string> opened;
  const auto record = [&](Screen& screen) { opened.push_back(screen.FindField("cID")->Text()); };
  for (const auto& [grid, row] : {std::pair("fgSessions", 3), std::pair("fgGrouping", 6),
                                  std::pair("fgGrouping", 2), std::pair("fgGrouping", 7)}) {
    desk.shown.modal = {record};
    window->FindGrid(grid).rules->Opened(row);
  }
  EXPECT_EQ(opened, (std::vector<std::string>{"2", "3"})) << "blocks and totals are no sessions";
}

TEST_F(WindowOfFormA, OpensByPracticeAndMonth) {
  WindowCatalogue catalogue;
  AddPensionWindows(catalogue);
  forms.SetTextMatrix(3, "ID", "77");
  struct Case {
    std::vector<std::string> words;
    const char* caption;
  };
  const Case cases[] = {{{"open", "1 012026"}, "Pension Form A - January 2026 - Riverside"},
                        {{"open", "2", "012026"}, "Pension Form A - January 2026 - Abbey"},
                        {{"open", "77"}, "Pension Form A - January 2026 - Abbey"},
                        {{"open", "1 022026"}, ""},
                        {{"open", "012026"}, ""},
                        {{"open", "1 banana"}, ""},
                        {{"open", ""}, ""},
                        {{"open"}, ""},
                        {{"new"}, ""},
                        {{}, ""}};
  for (const Case& each : cases) {
    std::string caption;
    desk.shown.modal = {[&](Screen& screen) { caption = screen.Caption(); }};
    EXPECT_EQ(catalogue.Open(desk.ledger, "frmPensionA", each.words), *each.caption != '\0');
    EXPECT_EQ(caption, each.caption);
  }
  bool again = true;
  desk.shown.modal = {[&](Screen&) { again = OpenFormA(desk.ledger, 3); }};
  EXPECT_TRUE(OpenFormA(desk.ledger, 2));
  EXPECT_FALSE(again) << "one working copy at a time";
}

TEST_F(WindowOfFormA, DamagedCellsAreShownAndKept) {
  for (const char* key : {"AMOUNT", "PENSIONABLE", "MONTH", "RCVDFROMPRACTICE", "PRACTICE"})
    forms.SetTextMatrix(2, key, "banana");
  desk.ledger.fgSessions.SetTextMatrix(3, "RATE", "12,3x");
  Open();
  EXPECT_EQ(window->Caption(), "Pension Form A -  - ");
  EXPECT_EQ(Figures(*window), "=0.00 =0.00 a=banana b=banana c=132.09");
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.Messages(), "A Pension Form cannot be deleted once it has been sent");
  window->Enter(window->cRcvdFromPractice, "");
  window->Enter(window->cNotes, "read me");
  window->Press(window->cmdOk);
  EXPECT_EQ(Dates(), "   read me");
  EXPECT_EQ(forms.TextMatrix(2, "AMOUNT"), "banana");
}

}  // namespace
}  // namespace lm
