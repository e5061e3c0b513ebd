#include "shell/frmGettingStarted.h"

#include "records/windows.h"
#include "shell/firststeps.h"
#include "shell/frmMain.h"

namespace lm {

frmGettingStarted::frmGettingStarted(frmMain& main)
    : Screen(main.ledger, "frmGettingStarted", "Getting Started"), main_(main) {
  lblIntroduction.SetText(
      "Three steps, in this order, and LedgerMinder can write your first invoice.");
  cmdPractices.onPressed = [this] {
    NewPractice(ledger);
    ShowSteps();
  };
  cmdMyDetails.onPressed = [this] {
    Close();
    main_.ShowPage(Page::MyDetails);
  };
  cmdSessions.onPressed = [this] {
    NewSession(ledger, "");
    ShowSteps();
  };
  cmdClose.onPressed = [this] { Close(); };
  cancelButton = &cmdClose;
  ShowSteps();
}

void frmGettingStarted::ShowSteps() {
  const FirstStep practices = PracticesStep(ledger), details = MyDetailsStep(ledger);
  lblPractices.SetText(practices.text);
  lblMyDetails.SetText(details.text);
  lblSessions.SetText(SessionsStep(ledger).text);
  cmdSessions.SetEnabled(practices.done);
  defaultButton = !practices.done ? &cmdPractices : !details.done ? &cmdMyDetails : &cmdSessions;
}

}  // namespace lm
