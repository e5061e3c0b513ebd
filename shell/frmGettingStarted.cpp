#include "shell/frmGettingStarted.h"

#include <iterator>

#include "core/options.h"
#include "core/rows.h"
#include "records/windows.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

std::string Entered(const Grid& table, std::string_view one, std::string_view more) {
  const Records records(table);
  const auto count = std::distance(records.begin(), records.end());
  return std::to_string(count) + std::string(count == 1 ? one : more);
}

}  // namespace

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
  const bool hasPractice = ledger.fgPractices.HasData();
  const bool hasDetails = !MyDetail(ledger, kAddress1Field).empty();
  const bool hasSession = ledger.fgSessions.HasData();
  const auto state = [](bool done, const std::string& what) {
    return done ? " Done: " + what + "." : " Not done yet.";
  };
  lblPractices.SetText(
      "Enter the practices you work at, with what they pay an hour." +
      state(hasPractice, Entered(ledger.fgPractices, " practice entered", " practices entered")));
  lblMyDetails.SetText("Enter your address and numbers, which stand on invoices and forms." +
                       state(hasDetails, "your address is there"));
  lblSessions.SetText(
      "Enter the sessions you work; invoices and pension forms are made from them." +
      state(hasSession, Entered(ledger.fgSessions, " session entered", " sessions entered")));
  cmdSessions.SetEnabled(hasPractice);
  defaultButton = !hasPractice ? &cmdPractices : !hasDetails ? &cmdMyDetails : &cmdSessions;
}

}  // namespace lm
