#include "pension/frmPensionSOLO.h"

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "pension/monthsessions.h"
#include "records/practices.h"

namespace lm {
namespace {

constexpr std::string_view kRateFormat = "0.00 %";

// The contribution's share of the pay; 0 without pay.
std::string RateText(const FormWindow& form) {
  const Double pay = form.Pounds("PENSIONABLE");
  return Format(pay == 0 ? 0.0 : form.Pounds("MY_CONTRIB") / pay, kRateFormat);
}

void ShowRateHelp(FormWindow& form) {
  const std::string option = GetOption(form.ledger, optMandatoryContribution);
  std::string text =
      "The contribution rate shown here is the value used when the form was calculated. \\n\\n";
  if (RateText(form) != Format(Val(option) / 100, kRateFormat))
    text += "This is different from the current rate stored on the Options screen (" + option +
            "%).\\n\\nIf the form needs to be recalculated using the current rate, delete the form "
            "and recreate it. The rate can be changed on the Options screen. \\n\\n";
  ShowMessage(form.ledger, text, "", Buttons::Ok, Icon::Information);
}

Double Extras(const FormWindow& form) { return form.Pounds("PENSIONABLE") - form.Pounds("AMOUNT"); }

Double PayWithExpenses(const FormWindow& form) {
  return form.Pounds("PENSIONABLE") + form.Pounds("EXPENSES");
}

Double EmployeeContributions(const FormWindow& form) {
  return form.Pounds("MY_CONTRIB") + form.Pounds("EXTRAYEARS") + form.Pounds("ADDITIONAL") +
         form.Pounds("AVC") + form.Pounds("ERRBO");
}

Double PaidOut(const FormWindow& form) {
  return form.Pounds("PENSIONABLE") - EmployeeContributions(form);
}

constexpr std::size_t kRateLine = 6;
constexpr FormLine kLines[] = {
    {.label = "Amount (sum of all session Rates)", .key = "AMOUNT"},
    {.label = "Extras (sum of all session Extras)", .figure = Extras},
    {.label = "Expenses (sum of all session Expenses)", .key = "EXPENSES"},
    {.label = "Pay made to the GP, excluding NHS Pension Scheme employer 14.38% contributions",
     .letter = "A",
     .figure = PayWithExpenses},
    {.label = "Professional NHS expenses", .letter = "B", .key = "EXPENSES"},
    {.label = "GP's NHS pensionable pay (A - B)", .letter = "C", .key = "PENSIONABLE"},
    {.label = "NHS Pension Scheme tiered employee contribution rate",
     .letter = "D",
     .help = ShowRateHelp},
    {.label = "Employee contribution amount (C x D)", .letter = "E", .key = "MY_CONTRIB"},
    {.label = "Additional contributions for added years",
     .letter = "F",
     .key = "EXTRAYEARS",
     .editable = true},
    {.label = "Additional contributions for additional pension",
     .key = "ADDITIONAL",
     .editable = true},
    {.label = "Additional contributions for NHS money purchase additional voluntary contributions "
              "(AVC) scheme",
     .key = "AVC",
     .editable = true},
    {.label = "Additional contributions for early retirement reduction buy out (ERRBO)",
     .letter = "G",
     .key = "ERRBO",
     .editable = true},
    {.label = "Total employee contributions (E + F + G)",
     .letter = "H",
     .figure = EmployeeContributions},
    {.label = "Total paid to member after deducting all employee contributions (C - H)",
     .letter = "I",
     .figure = PaidOut},
    {.label =
         "NHS Pension Scheme employer contributions plus administration levy (14.38% of Box C)",
     .letter = "J",
     .key = "EMP_CONTRIB"},
    {.label = "Total NHS Pension Scheme contributions (H + J)",
     .letter = "K",
     .key = "TOTAL_CONTRIB"},
};
constexpr FormWindowSpec kWindow{"frmPensionSOLO", "Pension Form SOLO", FormKind::Solo,
                                 &Ledger::fgPensionSolo, kLines};

}  // namespace

frmPensionSOLO::frmPensionSOLO(Ledger& theLedger)
    : FormWindow(theLedger, kWindow, {"Details", "Sessions", "Notes"}),
      sessionRules_(theLedger, fgSessions, [this] { ShowSessions(); }) {
  lblSentToHANote.SetText(kSentToHANote);
  lblSessionsHelp.SetText("Double click a row to open the Session details window.");
  MakeSessionList(fgSessions, ledger);
  AddGrid(fgSessions, &sessionRules_);
}

void frmPensionSOLO::Filled() {
  lblPractice.SetText(PracticeName(ledger, PracticeId()));
  SetLine(kRateLine, RateText(*this));
  ShowSessions();
}

void frmPensionSOLO::ShowSessions() {
  const RedrawOff redrawOff(fgSessions);
  fgSessions.ClearData();
  const MonthSessions sessions(ledger, MonthKey());
  for (const int row : sessions.Of(PracticeId()))
    if (ledger.fgSessions.TextMatrix(row, "FORMS") == "SOLO") AddSession(fgSessions, ledger, row);
}

void frmPensionSOLO::Recalculate(std::string_view editedKey) {
  RecalculateFormSolo(ledger, Working(), kWorkingRow, editedKey);
}

bool frmPensionSOLO::MayDelete() {
  return MayDeleteFormSolo(ledger, Working(), kWorkingRow, AskedFrom::Window);
}

bool frmPensionSOLO::DeleteForm() { return DeleteFormSolo(ledger, PracticeId(), MonthKey()); }

}  // namespace lm
