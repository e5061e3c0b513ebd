#include "pension/frmPensionForms.h"

#include <filesystem>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "pension/formpdf.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "pension/monthsessions.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr std::string_view kNoFormA = "No Form A created";
constexpr std::string_view kNoFormSolo = "No Form Solo created";

void TellMade(Ledger& ledger, const std::string& text, std::string_view details = "") {
  ShowMessage(ledger, text, details, Buttons::Ok, Icon::Done);
}

bool HasReceivedFormA(const Ledger& ledger, std::string_view monthKey) {
  const Grid& forms = ledger.fgPensionA;
  const int received = forms.ColIndex("RCVDFROMPRACTICE");
  for (int row = forms.FixedRows(); row < forms.Rows() && !monthKey.empty(); ++row)
    if (!forms.IsSubtotal(row) && MonthKeyOf(forms.TextMatrix(row, received)) == monthKey)
      return true;
  return false;
}

}  // namespace

frmPensionForms::frmPensionForms(Ledger& theLedger)
    : Screen(theLedger, "frmPensionForms", "Prepare Pension Forms") {
  std::vector<ComboItem> practices = PracticeItems(ledger);
  practices.insert(practices.begin(), {"<ALL PRACTICES>", ""});
  cboPractice.SetItems(std::move(practices));
  cboPractice.SetListIndex(0);

  for (CheckField* option : {&optForm0, &optForm1, &optForm2, &optForm3})
    option->onEntered = [this, option] {
      Choose(*option);
      return true;
    };
  Choose(optForm0);
  BindMonth();
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
    constexpr std::string_view kInvalid = "Please enter a valid date.";
    const auto date = EnterDate(ledger, txtMonth.Text(), kInvalid);
    if (date && date->empty()) ShowMessage(ledger, kInvalid);
    if (!date || date->empty()) return false;
    txtMonth.SetText(MonthCell(MonthKeyOf(*date)));
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
}

void frmPensionForms::MoveMonth(int months) {
  const Date month = CellDate(txtMonth.Text()).value_or(ledger.platform.clock.Now());
  txtMonth.SetText(CellText(FirstOfMonth(AddMonths(month, months))));
  ShowMonth();
}

void frmPensionForms::ShowMonth() { lblMonth.SetText(MonthText(MonthKey(), "mmm yyyy")); }

std::string frmPensionForms::MonthKey() const { return MonthKeyOf(txtMonth.Text()); }

void frmPensionForms::PrepareForms() {
  const BusyPointer busy(ledger.platform);
  FormPrinter printer(ledger);
  const MonthSessions sessions(ledger, MonthKey());
  if (optForm0.Checked()) PrepareAll(printer, sessions);
  if (optForm1.Checked()) PrepareFormsA(printer, sessions);
  if (optForm2.Checked()) PrepareFormB(printer);
  if (optForm3.Checked()) PrepareFormsSolo(printer, sessions);
}

int frmPensionForms::MakeFormsA(FormPrinter& printer, const MonthSessions& sessions) {
  const std::string practice = cboPractice.ItemData();
  return practice.empty() ? CreateFormsA(ledger, printer, sessions)
                          : CreateFormA(ledger, printer, sessions, practice);
}

int frmPensionForms::MakeFormsSolo(FormPrinter& printer, const MonthSessions& sessions) {
  const std::string practice = cboPractice.ItemData();
  return practice.empty() ? CreateFormsSolo(ledger, printer, sessions)
                          : CreateFormSolo(ledger, printer, sessions, practice);
}

void frmPensionForms::PrepareFormsA(FormPrinter& printer, const MonthSessions& sessions) {
  const bool forAll = cboPractice.ItemData().empty();
  if (forAll && !sessions.HasType(kTypeNormal)) {
    ShowMessage(ledger, "No Form A's calculated",
                "There are no NHS Normal sessions in the specified month.");
    return;
  }
  const int made = MakeFormsA(printer, sessions);
  if (made == 0)
    ShowMessage(ledger, kNoFormA,
                forAll ? "There were no sessions for the month for the Form A or you chose not to "
                         "overwrite existing forms."
                       : "There are no NHS Normal sessions for this Practice and month or you "
                         "chose not to overwrite existing forms.");
  else if (forAll)
    TellMade(ledger, PlainText(made) + " Form A calculated.");
  else
    TellMade(ledger, "One Form A calculated for " + MonthText(MonthKey(), "mmm yyyy") + ".");
}

void frmPensionForms::PrepareFormB(FormPrinter& printer) {
  const std::string month = MonthText(MonthKey(), "mmmm yyyy");
  if (!MayOverwriteFormB(ledger, MonthKey())) return;
  if (CreateFormB(ledger, printer, MonthKey()))
    TellMade(ledger, "Form B calculated for " + month + ".");
  else
    ShowMessage(ledger, "No Form B created",
                "For a Form B to be created, there must be at least one Form A which has a "
                "'Received From Practice' date which is in the selected month (" +
                    month + ").");
}

void frmPensionForms::PrepareFormsSolo(FormPrinter& printer, const MonthSessions& sessions) {
  const bool forAll = cboPractice.ItemData().empty();
  const int made = MakeFormsSolo(printer, sessions);
  if (made == 0)
    ShowMessage(ledger, kNoFormSolo,
                forAll ? "There were no sessions for the month for the Form Solo or you chose not "
                         "to overwrite existing forms."
                       : "There are no sessions for the month that meet the pension criteria or "
                         "you chose not to overwrite existing forms.");
  else if (forAll)
    TellMade(ledger, PlainText(made) + " Form Solo calculated.");
  else
    TellMade(ledger, "One Form Solo calculated for " + MonthText(MonthKey(), "mmm yyyy") + ".");
}

void frmPensionForms::PrepareAll(FormPrinter& printer, const MonthSessions& sessions) {
  std::error_code ignored;
  if (!std::filesystem::is_directory(ledger.File("Pension Forms"), ignored)) {
    ShowMessage(ledger, "Pension forms directory not found",
                "Please re-install LedgerMinder to re-create this directory.", Buttons::Ok,
                Icon::Exclamation, "No Pension Forms directory");
    return;
  }
  const std::string month = MonthKey();
  const int formsA = MakeFormsA(printer, sessions);
  const bool formB = HasReceivedFormA(ledger, month) && MayOverwriteFormB(ledger, month) &&
                     CreateFormB(ledger, printer, month);
  const int formsSolo = MakeFormsSolo(printer, sessions);
  TellMade(ledger, "Pension Forms Calculated for " + MonthText(month, "mmmm yyyy"),
           "Form A: " + PlainText(formsA) + "\\nForm B: " + (formB ? "1" : "0") +
               "\\nForm Solo: " + PlainText(formsSolo) + "\\n");
}

}  // namespace lm
