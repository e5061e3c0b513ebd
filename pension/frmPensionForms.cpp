#include "pension/frmPensionForms.h"

#include "core/change.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "entry/checks.h"
#include "pension/forms.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

void TellMade(Ledger& ledger, const std::string& text, std::string_view details = "") {
  ShowMessage(ledger, text, details, Buttons::Ok, Icon::Done);
}

}  // namespace

frmPensionForms::frmPensionForms(Ledger& theLedger)
    : Screen(theLedger, "frmPensionForms", "Prepare Pension Forms") {
  std::vector<ComboItem> practices = PracticeItems(ledger);
  practices.insert(practices.begin(), {"<ALL PRACTICES>", ""});
  cboPractice.SetItems(std::move(practices));
  cboPractice.SetSelected(0);
  cboPractice.onEntered = [this] {
    ShowPreview();
    return true;
  };

  for (CheckField* option : {&optForm0, &optForm1, &optForm2, &optForm3})
    option->onEntered = [this, option] {
      Choose(*option);
      return true;
    };
  BindMonth();
  Choose(optForm0);
  imgPensionHelp1.onPressed = [this] {
    ShowMessage(ledger, "How the NHS Pension Forms are created",
                "Pension Forms are completed every month as follows;\\n\\n"
                "1. Forms A and SOLO are completed for work done that month.\\n"
                "    There is one Form A and one Form SOLO per practice per month.\\n"
                "2. Form B is completed for the A Forms returned to you that month.\\n"
                "    There is one Form B per month.\\n\\n"
                "The forms are only created if there are sessions matching this criteria.\\n\\n",
                Buttons::Ok, Icon::Information);
  };

  cmdPrepareForms.SetText("P&repare Forms");
  cmdPrepareForms.onPressed = [this] { PrepareForms(); };
  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdPrepareForms;
  cancelButton = &cmdClose;
}

void frmPensionForms::BindMonth() {
  txtMonth.SetText(CellText(FirstOfMonth(ledger.platform.clock.Now())));
  txtMonth.onEntered = [this] {
    const auto date = EnterDate(ledger, txtMonth.Text());
    if (date && date->empty()) ShowMessage(ledger, kInvalidDate);
    if (!date || date->empty()) return false;
    txtMonth.SetText(Month::OfCell(*date).Cell());
    ShowMonth();
    return true;
  };
  cmdMonthDown.onPressed = [this] { MoveMonth(-1); };
  cmdMonthUp.onPressed = [this] { MoveMonth(1); };
  ShowMonth();
}

void frmPensionForms::Choose(CheckField& option) {
  for (CheckField* each : {&optForm0, &optForm1, &optForm2, &optForm3})
    each->SetChecked(each == &option);
  ShowPreview();
}

void frmPensionForms::MoveMonth(int months) {
  const Date month = CellDate(txtMonth.Text()).value_or(ledger.platform.clock.Now());
  txtMonth.SetText(CellText(FirstOfMonth(AddMonths(month, months))));
  ShowMonth();
}

void frmPensionForms::ShowMonth() {
  lblMonth.SetText(ChosenMonth().Text("mmm yyyy"));
  ShowPreview();
}

// What was chosen anew is for Prepare Forms; what was just done is not done again by a second
// Enter.
void frmPensionForms::ShowPreview() {
  const MonthSessions sessions(ledger, ChosenMonth());
  std::string text;
  for (const auto& [option, form] : {std::pair{&optForm1, &kFormA}, std::pair{&optForm2, &kFormB},
                                     std::pair{&optForm3, &kFormSolo}})
    if (optForm0.Checked() || option->Checked())
      text += (text.empty() ? "" : "\r\n") +
              PreviewForm(ledger, *form, sessions, cboPractice.ItemData());
  lblPreview.SetText(text);
  SetDefaultButton(cmdPrepareForms);
}

void frmPensionForms::PrepareForms() {
  const BusyPointer busy(ledger.platform);
  FormPrinter printer(ledger);
  if (!printer.HasFolder()) return;
  const MonthSessions sessions(ledger, ChosenMonth());
  // One step for the user, whatever is asked about single forms on the way.
  const Change change(ledger, "Prepare Pension Forms");
  int made = 0;
  if (optForm0.Checked()) made += PrepareAll(printer, sessions);
  if (optForm1.Checked()) made += PrepareOfPractices(printer, kFormA, sessions);
  if (optForm2.Checked()) made += PrepareFormB(printer, sessions);
  if (optForm3.Checked()) made += PrepareOfPractices(printer, kFormSolo, sessions);
  ShowPreview();
  if (made == 0) return;
  SetDefaultButton(cmdClose);
  Focus(cmdClose);
}

int frmPensionForms::PrepareAll(FormPrinter& printer, const MonthSessions& sessions) {
  const Month month = sessions.InMonth();
  const int formsA = MakeForms(printer, kFormA, sessions);
  const bool formB = !ReturnedForms(ledger, kFormA, month).empty() &&
                     CreateForm(ledger, printer, kFormB, sessions) == Making::Made;
  const int formsSolo = MakeForms(printer, kFormSolo, sessions);
  TellMade(ledger, "Pension Forms Calculated for " + month.Text("mmmm yyyy"),
           "Form A: " + PlainText(formsA) + "\\nForm B: " + (formB ? "1" : "0") +
               "\\nForm Solo: " + PlainText(formsSolo) + "\\n");
  return formsA + formB + formsSolo;
}

int frmPensionForms::MakeForms(FormPrinter& printer, const PensionForm& form,
                               const MonthSessions& sessions) {
  const std::string practice = cboPractice.ItemData();
  const int made = practice.empty()
                       ? CreateForms(ledger, printer, form, sessions)
                       : CreateForm(ledger, printer, form, sessions, practice) == Making::Made;
  printer.Finish();
  return made;
}

int frmPensionForms::PrepareOfPractices(FormPrinter& printer, const PensionForm& form,
                                        const MonthSessions& sessions) {
  const bool forAll = cboPractice.ItemData().empty();
  if (forAll && &form == &kFormA && !sessions.HasType(kTypeNormal)) {
    ShowMessage(ledger, "No Form A's calculated",
                "There are no NHS Normal sessions in the specified month.");
    return 0;
  }
  const std::string name(form.name);
  const int made = MakeForms(printer, form, sessions);
  if (made == 0)
    ShowMessage(ledger, "No " + name + " created",
                (forAll ? "There were no sessions for the month for the " + name
                        : std::string(form.noSessions)) +
                    " or you chose not to overwrite existing forms.");
  else if (forAll)
    TellMade(ledger, PlainText(made) + " " + name + " calculated.");
  else
    TellMade(ledger, "One " + name + " calculated for " + ChosenMonth().Text("mmm yyyy") + ".");
  return made;
}

int frmPensionForms::PrepareFormB(FormPrinter& printer, const MonthSessions& sessions) {
  const std::string month = ChosenMonth().Text("mmmm yyyy");
  const Making making = CreateForm(ledger, printer, kFormB, sessions);
  printer.Finish();
  if (making == Making::Made)
    TellMade(ledger, "Form B calculated for " + month + ".");
  else if (making == Making::NothingToMake)
    ShowMessage(ledger, "No Form B created",
                "For a Form B to be created, there must be at least one Form A which has a "
                "'Received From Practice' date which is in the selected month (" +
                    month + ").");
  return making == Making::Made;
}

}  // namespace lm
