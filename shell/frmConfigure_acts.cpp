// What the buttons of the options window do before OK.
#include "core/datafile.h"
#include "core/files.h"
#include "core/keys.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/invoicepdf.h"
#include "documents/mergefields.h"
#include "records/windows.h"
#include "shell/frmConfigure.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

// The ID of the invoice that was made last; "" when there is none.
std::string LatestInvoice(const Ledger& ledger) {
  const Grid& invoices = ledger.fgInvoices;
  int latest = -1;
  for (const int row : Records(invoices))
    if (latest < 0 ||
        ValInt(invoices.TextMatrix(row, "ID")) > ValInt(invoices.TextMatrix(latest, "ID")))
      latest = row;
  return invoices.TextMatrix(latest, "ID");
}

constexpr Option kListLook[] = {optFontName, optFontSize, optFontColour, optGridLines,
                                optColourGridLines};

}  // namespace

void frmConfigure::ConnectButtons() {
  cmdChangePassword.onPressed = [this] { ChangePassword(); };
  cmdSaveBackup.onPressed = [this] {
    if (!main_.SaveBackup()) return;
    ShowLastBackup();
    ShowMessage(ledger, "Backup Saved", "", Buttons::Ok, Icon::Done);
  };
  cmdResetDefault.onPressed = [this] { ResetFormats(); };
  cmdAddEventCategory.onPressed = [this] {
    Grid& categories = fgEventColours.grid;
    RequestCellEdit(categories, fgEventColours.Add(), categories.ColIndex("NAME"));
  };
  cmdDeleteEventCategory.onPressed = [this] { fgEventColours.Delete(fgEventColours.grid.Row()); };
  cmdPreviewTemplate.onPressed = [this] { PreviewTemplate(); };
  cmdTestInvoiceEmail.onPressed = [this] {
    TestEmail(optInvoiceEmailSubject, optInvoiceEmailBody);
  };
  cmdTestReceipt.onPressed = [this] { TestEmail(optReceiptSubject, optReceiptBody); };
  imgInvoiceEmailHelp.onPressed = imgReceiptHelp.onPressed = [this] { ShowMergeHelp(); };
  imgMandatoryContributioHelp.onPressed = [this] {
    ShowMessage(ledger, "Mandatory Contribution",
                "The rate in percent that you pay yourself. It depends on your pensionable pay of "
                "the year, and is set anew each April.\\n\\nThe rates in force are published by "
                "the pension schemes:\\nEngland and Wales: www.nhsbsa.nhs.uk/nhs-pensions\\n"
                "Scotland: pensions.gov.scot\\nNorthern Ireland: hscpensions.hscni.net",
                Buttons::Ok, Icon::Information);
  };
  cmdCompareRates.onPressed = [this] { CompareRates(ledger); };
  cmdSelectCalendar.onPressed = [this] { SelectCalendar(); };
  cmdOK.SetText("&OK");
  cmdOK.onPressed = [this] { Ok(); };
  cmdCancel.SetText("Cancel");
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdOK;
  cancelButton = &cmdCancel;
  holds = "these options";
}

// At once, whatever is done with the window afterwards. Where the data cannot be written under the
// new password the old one stays in force.
void frmConfigure::ChangePassword() {
  const std::string stored = GetOption(ledger, optPasswordHash);
  if (stored != DigestOf("") && DigestOf(txtOldPassword.Text()) != stored) {
    ShowMessage(ledger, "The old password has not been entered correctly",
                "Ensure the CAPS LOCK key is not pressed - passwords are case sensitive.",
                Buttons::Ok, Icon::Exclamation, "Incorrect Password");
    return Focus(txtOldPassword);
  }
  if (txtNewPassword.Text() != txtConfirmNewPassword.Text()) {
    ShowMessage(ledger, "Password Error",
                "The new password has not been entered exactly the same in both boxes.");
    return Focus(txtNewPassword);
  }
  const std::string before = ledger.dataPassword;
  ledger.dataPassword = txtNewPassword.Text();
  SetOption(ledger, optPasswordHash, DigestOf(ledger.dataPassword));
  if (!main_.SaveAll()) {
    ledger.dataPassword = before;
    SetOption(ledger, optPasswordHash, stored);
    SaveOptions(ledger);
    return;
  }
  for (TextField* box : {&txtOldPassword, &txtNewPassword, &txtConfirmNewPassword})
    box->SetText("");
  ShowMessage(ledger, "Change Password", "Password changed.", Buttons::Ok, Icon::Done);
}

// The colours, and what else lists look by; the user's own event categories stay.
void frmConfigure::ResetFormats() {
  if (!Ask(ledger, "Do you want to reset all formats to the defaults?", "", "Reset")) return;
  for (ColourGrid* colours : ColourGrids()) colours->SetDefaults();
  fgEventColours.SetDefaultColours();
  for (const Option option : kListLook) options.SetText(option, FindOption(option)->text);
  ShowSample();
}

void frmConfigure::PreviewTemplate() {
  const std::string invoice = LatestInvoice(ledger);
  if (invoice.empty()) {
    ShowMessage(ledger, "Unable to show preview",
                "An invoice must exist before a preview of the chosen template can be shown.",
                Buttons::Ok, Icon::Exclamation, "Preview Invoice Template");
    return;
  }
  const BusyPointer busy(ledger.platform);
  const std::string chosen = options.Text(optInvoiceTemplate);
  if (CreateInvoice(ledger, invoice, chosen)) OpenLink(ledger, PathText(PreviewFile(ledger)));
}

void frmConfigure::TestEmail(int subject, int body) {
  constexpr std::string_view kTitle = "Test Email Template";
  MergeContext context;
  context.invoice = LatestInvoice(ledger);
  if (context.invoice.empty()) {
    ShowMessage(ledger, kTitle,
                "There must be at least one invoice already created to test the email message.");
    return;
  }
  ShowMessage(ledger, kTitle,
              Merge(ledger, options.Text(subject), context) +
                  "\\n_________________________________________________________\\n\\n" +
                  Merge(ledger, options.Text(body), context),
              Buttons::Ok, Icon::Information);
}

void frmConfigure::ShowMergeHelp() {
  ShowMessage(ledger, "Merge Fields",
              "What stands in curly brackets is replaced when the e-mail is made:\\n\\n"
              "{Practice Name}  {Practice Manager}  {Invoice Number}  {Invoice Date}\\n"
              "{Invoice Total|£#,##0.00}  {My Title}  {My Name}  {My Qualifications}\\n\\n"
              "A pattern behind a bar says how an amount or a date is written. The User Guide "
              "lists all fields."_w,
              Buttons::Ok, Icon::Information);
}

void frmConfigure::SelectCalendar() {
  const std::filesystem::path chosen = ledger.platform.system.AskOpenFile(
      "Select Calendar...", {"iCalendar (*.ics)", "*.ics"}, ledger.programDirectory);
  if (!chosen.empty()) options.SetText(optICalAddress, NativePathText(chosen));
}

}  // namespace lm
