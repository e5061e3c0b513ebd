// The window of a Form SOLO.
#include "pension/frmPensionSOLO.h"

#include "pension/formoverlay.h"
#include "tests/pension/window_desk.h"

namespace lm {
namespace {

using test::Figures;
using test::PressHelp;
using test::Type;

constexpr int kRate = 7;
constexpr int kAddedYears = 9, kAdditional = 10, kAvc = 11, kErrbo = 12;

struct WindowOfFormSolo : testing::Test {
  test::WindowDesk desk;
  Grid& forms = desk.ledger.fgPensionSolo;
  std::unique_ptr<frmPensionSOLO> window;

  WindowOfFormSolo() {
    desk.AddSession("3", "03/01/2026", "900", {"SESS_TYPE=2", "EXTRAS=100", "EXPENSES=20.5"});
    desk.AddSession("3", "09/01/2026", "500.25", {"SESS_TYPE=2"});
    desk.AddSession("3", "04/01/2026", "7", {"SESS_TYPE=1"});
    desk.MakeSolo("3", "012026");
    desk.Messages();
    ClearMarkers(forms);
    Open();
  }
  void Open() {
    window = std::make_unique<frmPensionSOLO>(desk.ledger);
    EXPECT_TRUE(window->Open(2));
  }
  std::string Stored() {
    return test::CellsOf(forms, 2, {"AVC", "EXTRAYEARS", "ADDITIONAL", "ERRBO", "TOTAL_CONTRIB"});
  }
};

TEST_F(WindowOfFormSolo, ShowsTheForm) {
  EXPECT_EQ(window->Caption(), "Pension Form SOLO - January 2026 - Night Care");
  EXPECT_EQ(Figures(*window),
            "=1,400.25 =100.00 =20.50 A=1,520.75 B=20.50 C=1,500.25 D=6.00 % E=90.02 F=0.00 =0.00 "
            "=0.00 G=0.00 H=90.02 I=1,410.23 J=215.74 K=305.76");
  ASSERT_EQ(window->fgSessions.Rows(), 4);
  EXPECT_EQ(window->fgSessions.DisplayText(3, "SDATE"), "9/1/26");

  std::string opened;
  desk.shown.modal = {[&](Screen& screen) { opened = screen.FindField("cID")->Text(); }};
  window->FindGrid("fgSessions").rules->Opened(3);
  EXPECT_EQ(opened, "2");
}

TEST_F(WindowOfFormSolo, ThePaperAgreesWithTheWindowAfterEveryEdit) {
  const auto onPaper = [&](const FormWindow&) {
    SessionsByMonth sessions(desk.ledger);
    const FormFigures figures = FiguresOf(desk.ledger, sessions, {kFormSolo, forms, 2});
    std::string text;
    for (const FormItem item :
         {FormItem::SoloA, FormItem::SoloB, FormItem::SoloC, FormItem::SoloD, FormItem::SoloE,
          FormItem::SoloAddedYears, FormItem::SoloAdditional, FormItem::SoloAvc, FormItem::SoloG,
          FormItem::SoloH, FormItem::SoloI, FormItem::SoloJ, FormItem::SoloK})
      text += figures.texts.at(item).at(0) + " ";
    std::erase(text, ',');
    return text;
  };
  const auto inWindow = [&] {
    std::string text;
    for (int row = 5; row < window->fgDetails.Rows(); ++row)
      text += window->fgDetails.DisplayText(row, "VALUE") + " ";
    std::erase(text, ',');
    return text;
  };
  EXPECT_EQ(inWindow(), onPaper(*window));
  for (const auto& [line, text] : {std::pair(kAddedYears, "1000.1"), std::pair(kAdditional, "2.22"),
                                   std::pair(kAvc, "3"), std::pair(kErrbo, "1,000")}) {
    EXPECT_EQ(Type(*window, line, text), EditOutcome::Accepted);
    const std::string shown = inWindow();
    desk.shown.answers = {Answer::No};
    window->Press(window->cmdOk);
    EXPECT_EQ(shown, onPaper(*window)) << line;
    Open();
    EXPECT_EQ(inWindow(), shown) << line;
  }
  EXPECT_EQ(Stored(), "3 1000.10 2.22 1000 2311.08");
}

TEST_F(WindowOfFormSolo, EditsFourLinesUntilTheFormIsSent) {
  std::string editable;
  for (int line = 1; line <= 16; ++line)
    if (Type(*window, line, "2") == EditOutcome::Accepted) editable += std::to_string(line) + " ";
  EXPECT_EQ(editable, "9 10 11 12 ");
  EXPECT_EQ(Type(*window, kAvc, ""), EditOutcome::Accepted);
  EXPECT_EQ(window->fgDetails.TextMatrix(kAvc + 1, "VALUE"), "0");
  EXPECT_EQ(window->fgDetails.TextMatrix(17, "VALUE"), "311.76");
  EXPECT_EQ(Type(*window, kAvc, "ten"), EditOutcome::Refused);
  EXPECT_EQ(window->fgDetails.TextMatrix(17, "VALUE"), "311.76");
  window->Enter(window->cSentToHA, "3/2/26");
  EXPECT_EQ(Type(*window, kAvc, "1"), EditOutcome::NotAllowed);
  desk.Messages();
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdOk);
  EXPECT_EQ(desk.Messages(), "Recreate Pension Form");
  EXPECT_TRUE(desk.IsWritten("FormSOLO_Night Care_Jan 26.pdf"));
  EXPECT_EQ(forms.TextMatrix(2, "SENTTOHA"), "03/02/2026");
}

TEST_F(WindowOfFormSolo, RateHelpTellsADifferentRate) {
  const std::string used =
      "The contribution rate shown here is the value used when the form was calculated. \r\n\r\n";
  PressHelp(*window, kRate);
  EXPECT_EQ(desk.Messages(), used);
  SetOption(desk.ledger, optMandatoryContribution, "8.3");
  PressHelp(*window, kRate);
  EXPECT_EQ(desk.Messages(),
            used +
                "This is different from the current rate stored on the Options screen (8.3%)."
                "\r\n\r\nIf the form needs to be recalculated using the current rate, delete the "
                "form and recreate it. The rate can be changed on the Options screen. \r\n\r\n");
}

TEST_F(WindowOfFormSolo, DeletesOnlyWhatIsNotSent) {
  window->Enter(window->cSentToHA, "today");
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.Messages(),
            "A pension form cannot be deleted once it has been sent to the Health Authority");
  window->Enter(window->cSentToHA, "");
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdDeleteForm);
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form Solo for 'Night Care' for "
            "January 2026?\n");
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(desk.Letters(), "- - -");
  EXPECT_FALSE(forms.HasData());
}

TEST_F(WindowOfFormSolo, WithoutPayTheRateIsNothing) {
  for (const char* pay : {"0", "", "banana"}) {
    forms.SetTextMatrix(2, "PENSIONABLE", pay);
    Open();
    EXPECT_EQ(window->fgDetails.DisplayText(kRate + 1, "VALUE"), "0.00 %") << pay;
  }
}

}  // namespace
}  // namespace lm
