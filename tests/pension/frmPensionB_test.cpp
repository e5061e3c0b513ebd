// The window of a Form B.
#include "pension/frmPensionB.h"

#include "core/text.h"
#include "pension/formoverlay.h"
#include "tests/pension/window_desk.h"

namespace lm {
namespace {

using test::Figures;
using test::PressHelp;
using test::ShownRows;
using test::Type;

constexpr int kAddedYears = 3, kAvc = 4, kAdditional = 5, kErrbo = 6;

struct WindowOfFormB : testing::Test {
  test::WindowDesk desk;
  Grid& forms = desk.ledger.fgPensionB;
  std::unique_ptr<frmPensionB> window;

  WindowOfFormB() {
    SetOption(desk.ledger, optDefaultAVC, "50.00");
    SetMyDetail(desk.ledger, 18, "SD123");
    desk.AddSession("1", "30/12/2025", "1000", {"EMPLOYERCONTRIB=129.42"});
    desk.AddSession("1", "05/12/2025", "500", {"EDATE=06/12/2025", "EMPLOYERCONTRIB=64.71"});
    desk.AddSession("2", "10/01/2026", "250.55", {"EXTRAS=1"});
    desk.AddSession("1", "11/01/2026", "9");
    desk.MakeA("1", "122025");
    desk.MakeA("2", "012026");
    desk.MakeA("1", "012026");
    desk.ledger.fgPensionA.SetTextMatrix(2, "RCVDFROMPRACTICE", "02/02/2026");
    desk.ledger.fgPensionA.SetTextMatrix(3, "RCVDFROMPRACTICE", "20/02/2026");
    desk.MakeB("022026");
    ClearMarkers(forms);
    desk.Messages();
    Open();
  }
  void Open() {
    window = std::make_unique<frmPensionB>(desk.ledger);
    EXPECT_TRUE(window->Open(2));
  }
  std::string Stored() {
    return test::CellsOf(forms, 2, {"AVC", "EXTRA_YEARS", "ADDITIONAL", "ERRBO", "TOTAL_CONTRIB"});
  }
  // What the paper says in boxes a to i, by the letters of the window.
  std::string OnPaper() {
    SessionsByMonth sessions(desk.ledger);
    const FormFigures figures = FiguresOf(desk.ledger, sessions, {kFormB, forms, 2});
    std::string text;
    for (int box = 0; box < 9; ++box)
      text +=
          std::string(1, static_cast<char>('a' + box)) + "=" +
          figures.texts.at(static_cast<FormItem>(static_cast<int>(FormItem::BoxA) + box)).at(0) +
          " ";
    return text + "j=";
  }
};

TEST_F(WindowOfFormB, ShowsTheFormAndItsFormsA) {
  EXPECT_EQ(window->Caption(), "Pension Form B - February 2026");
  EXPECT_EQ(window->lblUPR.Text() + " " + window->lblMonth.Text(), "SD123 February 2026");
  EXPECT_EQ(window->lblSentToHANote.Text(),
            "Values cannot be changed and the Form cannot be deleted if the \"Sent to HA\" date "
            "has been set.");
  EXPECT_EQ(Figures(*window),
            "a=1,576.39 b=94.58 c=0.00 d=50.00 e=0.00 f=0.00 g=144.58 h=194.13 i=338.71 j=");
  EXPECT_EQ(Figures(*window), OnPaper());
  EXPECT_EQ(ShownRows(window->fgPensionA,
                      {"PRACTICE", "MONTH", "FIRSTDAY", "LASTDAY", "AMOUNT", "PENSIONABE",
                       "EMPLOYERCONTRIB", "SESSIONS", "RCVDFROMPRACTICE"}),
            (std::vector<std::string>{
                "Riverside|Dec 2025|5/12/25|30/12/25|1,500.00|1,350.00|194.13|2|2/2/26",
                "Abbey|Jan 2026|10/1/26|10/1/26|251.55|226.39|0.00|1|20/2/26",
                "Total||||1,751.55|1,576.39|194.13|3|"}));
}

TEST_F(WindowOfFormB, EditedFiguresReachTheTableOnlyByOk) {
  const std::string before = Stored();
  EXPECT_EQ(Type(*window, kAvc, std::string("£1,200.5"_w)), EditOutcome::Accepted);
  EXPECT_EQ(Type(*window, kAdditional, "10"), EditOutcome::Accepted);
  EXPECT_EQ(Type(*window, kErrbo, "0.05"), EditOutcome::Accepted);
  EXPECT_EQ(Type(*window, kAddedYears, "  "), EditOutcome::Accepted) << "a blank is 0";
  EXPECT_EQ(Figures(*window),
            "a=1,576.39 b=94.58 c=0.00 d=1,200.50 e=10.00 f=0.05 g=1,305.13 h=194.13 i=1,499.26 "
            "j=");
  EXPECT_EQ(Stored(), before);
  window->Press(window->cmdCancel);
  EXPECT_EQ(Stored(), before);
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(WindowOfFormB, OkAsksWhetherToPrintAnew) {
  struct Case {
    Answer answer;
    bool closed, written;
  };
  const Case cases[] = {
      {Answer::Cancel, false, false}, {Answer::No, true, false}, {Answer::Yes, true, true}};
  const std::string document = "FormB_Feb 26.pdf";
  for (const Case& each : cases) {
    Open();
    std::filesystem::remove(desk.ledger.File("Pension Forms") / document);
    const std::string before = Stored();
    Type(*window, kErrbo, PlainText(static_cast<int>(each.answer)));
    desk.shown.answers = {each.answer};
    window->Press(window->cmdOk);
    ASSERT_EQ(desk.shown.messages.size(), 1u);
    EXPECT_EQ(desk.shown.messages[0].buttons, Buttons::YesNoCancel);
    EXPECT_EQ(desk.OneMessage(),
              "LedgerMinder|Recreate Pension Form|The figures have been changed but a PDF form "
              "with the new figures has not been created yet.\r\n\r\nDo you want to recreate the "
              "pension form now?");
    EXPECT_EQ(window->Closed(), each.closed);
    EXPECT_EQ(Stored() != before, each.closed);
    EXPECT_EQ(desk.IsWritten(document), each.written);
  }
  EXPECT_EQ(Stored(), "50.00 0.00 0 6 150.58");
  EXPECT_EQ(StateOfRow(desk, forms, 2), RowState::Edited);
  Open();
  EXPECT_EQ(Figures(*window), OnPaper());
}

TEST_F(WindowOfFormB, OnlyFourLinesAreEditedAndOnlyUntilTheFormIsSent) {
  std::string editable;
  for (int line = 1; line <= 10; ++line)
    if (Type(*window, line, "77") == EditOutcome::Accepted)
      editable += window->fgDetails.TextMatrix(line + 1, "LETTER");
  EXPECT_EQ(editable, "cdef");
  EXPECT_EQ(window->Edit(window->fgDetails, 4, 2, "label"), EditOutcome::NotAllowed);

  for (const char* bad : {"banana", "12,3x", "£"_w.data(), "100000"}) {
    EXPECT_EQ(Type(*window, kAvc, bad), EditOutcome::Refused) << bad;
    EXPECT_EQ(desk.Messages(), "Please enter a valid amount.");
  }
  EXPECT_EQ(window->fgDetails.TextMatrix(kAvc + 1, "VALUE"), "77");
  EXPECT_EQ(Type(*window, kAvc, "77.00"), EditOutcome::Unchanged) << "as it shows";

  GridRules& rules = *window->FindGrid("fgDetails").rules;
  const int value = window->fgDetails.ColIndex("VALUE");
  EXPECT_TRUE(rules.InvitesTyping(kAvc + 1, value));
  EXPECT_FALSE(rules.InvitesTyping(kAvc + 1, value + 1));
  EXPECT_FALSE(rules.InvitesTyping(2, value)) << "worked out";
  EXPECT_EQ(rules.LockedBy(kAvc + 1), "");
  EXPECT_EQ(window->lblTypedOver.Text(), "Figures with a pencil may be typed over.");

  window->Enter(window->cSentToHA, "9/5/2024");
  EXPECT_EQ(Type(*window, kAvc, "1"), EditOutcome::NotAllowed) << "typed and not stored counts";
  EXPECT_EQ(rules.LockedBy(kAvc + 1), "Sent to the HA on 09/05/2024");
  EXPECT_EQ(rules.LockedBy(2), "") << "never typed over";
  EXPECT_EQ(window->lblTypedOver.Text(),
            "The figures are locked, since the form was sent to the HA on 09/05/2024.");
  EXPECT_TRUE(window->Enter(window->cNotes, "a note still"));
  window->Enter(window->cSentToHA, "");
  EXPECT_EQ(Type(*window, kAvc, "1"), EditOutcome::Accepted);
}

TEST_F(WindowOfFormB, ScotlandHasNoAvc) {
  SetOption(desk.ledger, optPensionCountry, "scotland");
  EXPECT_EQ(Type(*window, kAvc, "60"), EditOutcome::Accepted);
  EXPECT_EQ(desk.Messages(), "AVCs on Scottish Pension Forms");
  EXPECT_EQ(Figures(*window),
            "a=1,576.39 b=94.58 c=0.00 d=0.00 e=0.00 f=0.00 g=94.58 h=194.13 i=288.71 j=");
  EXPECT_EQ(forms.TextMatrix(2, "AVC"), "50.00") << "until Ok";
  EXPECT_EQ(Type(*window, kErrbo, "1"), EditOutcome::Accepted);
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(WindowOfFormB, HelpMarksAndDoubleClick) {
  SetOption(desk.ledger, optMandatoryContribution, "8.3");
  PressHelp(*window, 2);
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Employee Contribution Rate|The rate used to calculate this form was "
            "6.0%.\r\n\r\nThe employee contribution rate is currently set at 8.3%. \r\n\r\nThis "
            "rate can be changed on the Options screen.");
  PressHelp(*window, kAddedYears);
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Added Years|The Added Years contribution rate is set at 0%. \r\n\r\nThis "
            "rate can be changed on the Options screen.");

  struct Watcher : ScreenObserver {
    std::string opened;
    void CellEditRequested(Grid&, int row, int col) override {
      opened += std::to_string(row) + ":" + std::to_string(col) + " ";
    }
    void FieldChanged(Field&) override {}
    void CaptionChanged() override {}
    void FocusRequested(Field&) override {}
    void ScreenClosed() override {}
  } watcher;
  window->SetObserver(&watcher);
  for (int row = 0; row < window->fgDetails.Rows(); ++row)
    window->FindGrid("fgDetails").rules->Opened(row);
  EXPECT_EQ(watcher.opened, "4:3 5:3 6:3 7:3 ");
  window->SetObserver(nullptr);
}

TEST_F(WindowOfFormB, DeletesOnlyWhatIsNotSent) {
  window->Enter(window->cSentToHA, "today");
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.OneMessage(),
            "Delete Pension Form|A pension form cannot be deleted once it has been sent to the "
            "Health Authority|To delete the form you must set the 'Sent to HA' field to empty. ");
  window->Press(window->cmdOk);
  Open();
  window->Enter(window->cSentToHA, "");
  desk.shown.answers = {Answer::Yes};
  EXPECT_EQ(desk.Letters(), "A,B A,B A,B A");
  window->Press(window->cmdDeleteForm);
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form B for February 2026?\n");
  EXPECT_EQ(desk.Letters(), "A A A A");
  EXPECT_FALSE(forms.HasData());
}

TEST_F(WindowOfFormB, OpensByItsMonth) {
  WindowCatalogue catalogue;
  AddPensionWindows(catalogue);
  forms.SetTextMatrix(2, "ID", "5");
  const auto open = [&](const std::string& word) {
    return catalogue.Open(desk.ledger, "frmPensionB", {"open", word});
  };
  EXPECT_TRUE(open("022026") && open("5"));
  for (const char* word : {"", "032026", "1 022026", "banana"}) EXPECT_FALSE(open(word)) << word;
}

TEST_F(WindowOfFormB, ADamagedMonthHasNoFormsA) {
  forms.SetTextMatrix(2, "MONTH", "banana");
  desk.ledger.fgPensionA.SetTextMatrix(3, "RCVDFROMPRACTICE", "soon");
  Open();
  EXPECT_EQ(ShownRows(window->fgPensionA, {"PRACTICE"}), (std::vector<std::string>{"Total"}));
}

TEST_F(WindowOfFormB, DamagedCellsStopNothing) {
  forms.SetTextMatrix(2, "AVC", "12,3x");
  forms.SetTextMatrix(2, "TOTAL_CONTRIB", "1,144.58");
  forms.SetTextMatrix(2, "EXTRA_YEARS", "");
  desk.ledger.fgSessions.SetTextMatrix(2, "SDATE", "banana");
  desk.ledger.fgPensionA.SetTextMatrix(3, "MONTH", "banana");
  desk.ledger.fgPensionA.SetTextMatrix(3, "PRACTICE", "99");
  Open();
  EXPECT_EQ(Figures(*window),
            "a=1,576.39 b=94.58 c=0.00 d=12,3x e=0.00 f=0.00 g=1,144.58 h=194.13 i=1,338.71 j=");
  EXPECT_EQ(
      ShownRows(window->fgPensionA, {"PRACTICE", "MONTH", "FIRSTDAY", "LASTDAY"}),
      (std::vector<std::string>{"Riverside|Dec 2025|5/12/25|6/12/25", "|banana||", "Total|||"}));
}

}  // namespace
}  // namespace lm
