// What the session window's links and icons do: the pension form, the invoice, the contribution
// rate and the help messages.

#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "records/frmSession.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

void ShowHelp(Ledger& ledger, std::string_view title, std::string_view text,
              std::string_view window = "") {
  ShowMessage(ledger, title, text, Buttons::Ok, Icon::Information, window);
}

bool IsSameMonth(const std::optional<Date>& a, const std::optional<Date>& b) {
  return a && b && FirstOfMonth(*a) == FirstOfMonth(*b);
}

}  // namespace

void frmSession::BindLinks() {
  lblHelpPublicNote.SetText(
      "The Public Note may be displayed on the invoice depending on the template being used.");
  lblHelpPrivateNote.SetText(
      "The Private Note is never displayed on the invoice or any correspondence.");
  for (LabelField* link : {&cForms, &lblFormDetails})
    link->onPressed = [this] { FormLinkPressed(); };
  lblInvoiceDetails.onPressed = [this] { InvoiceLinkPressed(); };
  imgRefreshPensionContribution.onPressed = [this] { RefreshPensionContribution(); };
  imgNameHelp.onPressed = [this] { ShowSessionTypeHelp(); };
  imgPensionable_Help.onPressed = [this] {
    ShowHelp(ledger, "Rate + Extras",
             "Pensionable pay is calculated based on the session type.\\n\\n"
             "For NHS Normal sessions it is 90% of (Rate + Extras).\\n"
             "For NHS OOH sessions it is 100% of (Rate + Extras).\\n\\n"
             "Expeneses are not pensionable so are not included in the pension calculation.");
  };
  imgEmployerContrib_Help.onPressed = [this] { ShowEmployerContribHelp(); };
}

void frmSession::FormLinkPressed() {
  constexpr std::string_view kTitle = "Pension Form Information";
  const SessionType* type = FindSessionType(TypeCode());
  if (type && type->forms.empty())
    return ShowHelp(
        ledger, "This session is not pensionable",
        "The selected session type means this session will not appear on any pension forms. ",
        kTitle);
  if (!OnForm())
    return ShowHelp(
        ledger, "This session not pensioned yet",
        "This session has not been included on any pension form yet. \\n\\n"
        "To pension a session close this window, go to the Pensions tab, and click the green "
        "'plus' icon at the top of the page. The new form then takes up every session of its month "
        "that is on no form yet.",
        kTitle);
  if (cForms.Text().front() == 'A') OpenForm(ledger.fgPensionA, "frmPensionA");
  if (cForms.Text().front() == 'S') OpenForm(ledger.fgPensionSolo, "frmPensionSOLO");
}

// Row of the form of the session's practice and month; -1 when there is none.
int frmSession::FormRow(const Grid& forms) const {
  const std::string practice = ChosenOr(cPractice, storedPractice_);
  const auto date = CellDate(cSDate.Text());
  for (int row = FindRecord(forms, "PRACTICE", practice); row >= 0;
       row = FindRecord(forms, "PRACTICE", practice, row + 1))
    if (IsSameMonth(CellDate(forms.TextMatrix(row, "MONTH")), date)) return row;
  return -1;
}

void frmSession::OpenForm(const Grid& forms, std::string_view window) {
  const int row = FormRow(forms);
  if (row >= 0) {
    // Forms carry no ID; their windows know them by practice and month.
    const std::string month =
        FormatDate(CellDate(forms.TextMatrix(row, "MONTH")).value_or(0), "mmyyyy");
    if (ledger.platform.windows.OpenRecord(window, forms.TextMatrix(row, "PRACTICE") + " " + month))
      ReadLinksAgain();
    return;
  }
  // The form is gone: the link repairs itself.
  cForms.SetText("");
  lblFormDetails.SetText("Not pensioned yet");
  lblFormDetails.SetEnabled(true);
  ApplyLock();
}

void frmSession::InvoiceLinkPressed() {
  if (!Invoiced()) return;
  if (OpenScreen(ledger, "frmInvoice")) {
    ShowMessage(ledger, "The invoice window is already open.");
    return;
  }
  const int row = FindRecord(ledger.fgInvoices, "NUMBER", lblInvoiceDetails.Text());
  if (row < 0) return;
  if (ledger.platform.windows.OpenRecord("frmInvoice", ledger.fgInvoices.TextMatrix(row, "ID")))
    ReadLinksAgain();
}

// The form or invoice may have been deleted in its window; the session is then on it no longer.
void frmSession::ReadLinksAgain() {
  const int row = SessionRow(ledger, cID.Text());
  if (row < 0) return;
  cForms.SetText(ledger.fgSessions.TextMatrix(row, "FORMS"));
  cInvoice.SetText(ledger.fgSessions.TextMatrix(row, "INVOICE"));
  lblInvoiceDetails.SetText(InvoiceStatusText(ledger, row));
  ShowStatus();
  ApplyLock();
}

bool frmSession::HasOtherContribRate() const {
  return Val(cEmployerContribRate.Text()) != Val(GetOption(ledger, optEmployerContribRate));
}

void frmSession::RefreshPensionContribution() {
  constexpr std::string_view kTitle = "Recalculate Pension Contribution";
  if (Locked()) {
    ShowMessage(
        ledger, kTitle,
        "The pension contribution cannot be recalculated once the sessions has been included on an "
        "invoice or pension form.");
    return;
  }
  const std::string& newRate = GetOption(ledger, optEmployerContribRate);
  const std::string question =
      "The employer pension contribution is automatically calculated."
      "\\n\\nThe pension contribution rate on this session was originally calculated using the "
      "contribution rate " +
      cEmployerContribRate.Text() + "%. \\n\\nThe pension contribution rate is now set at " +
      newRate +
      "%. \\n\\nDo you want to recalculate the contribution amount using this newer rate? ";
  if (!Ask(ledger, "Recalulate Pension Contribution", question, kTitle)) return;
  cEmployerContribRate.SetText(newRate);
  Recalculate();
  imgRefreshPensionContribution.SetVisible(false);
}

void frmSession::ShowSessionTypeHelp() {
  const bool withRetired = OffersRetiredTypes(ledger);
  std::string text = "This is used to decide which pension forms the session appears on.\\n\\n";
  for (const SessionType& type : kSessionTypes)
    if (const std::string_view caption = CaptionOf(type, withRetired); !caption.empty())
      text += std::string(caption) + " - " + std::string(type.formsHelp) + "\\n";
  text += withRetired ? "\\nThis cannot" : "\\nThe session type cannot";
  ShowHelp(ledger, "Session Type",
           text + " be changed after the session has been pensioned or invoiced.");
}

void frmSession::ShowEmployerContribHelp() {
  std::string text = EmployerContribHelp(ledger);
  if (HasOtherContribRate())
    text += "\\n\\nA different rate of " + cEmployerContribRate.Text() +
            "% was used when calculating this session. ";
  ShowHelp(ledger, "Employer Pension Contributions", text);
}

}  // namespace lm
