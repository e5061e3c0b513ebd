#include "records/frmWelcome.h"

#include "core/options.h"
#include "core/text.h"

namespace lm {

frmWelcome::frmWelcome(Ledger& theLedger)
    : Screen(theLedger, "frmWelcome", "Welcome to LedgerMinder") {
  lblWelcome.SetText(
      "Please enter your name as it is to appear on your invoices, pension forms and e-mails.");
  txtTitle.SetText(MyDetail(ledger, kMyTitleField));
  txtFirstName.SetText(MyDetail(ledger, kFirstNameField));
  txtLastName.SetText(MyDetail(ledger, kLastNameField));

  cmdOk.SetText("&OK");
  cmdOk.onPressed = [this] { Save(); };
  cmdCancel.SetText("&Later");
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
}

void frmWelcome::Save() {
  SetMyDetail(ledger, kMyTitleField, Trim(txtTitle.Text()));
  SetMyDetail(ledger, kFirstNameField, Trim(txtFirstName.Text()));
  SetMyDetail(ledger, kLastNameField, Trim(txtLastName.Text()));
  if (SaveOptions(ledger)) Close();
}

}  // namespace lm
