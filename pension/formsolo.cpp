// Form SOLO: of one provider's NHS OOH sessions of a month.
#include <algorithm>
#include <utility>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/windows.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

// ---- Its figures

constexpr std::string_view kRateFormat = "0.00 %";

// The contribution's share of the pay; 0 without pay.
Double Rate(const FormRow& form) {
  const Double pay = form.Pounds("PENSIONABLE");
  return pay == 0 ? 0.0 : form.Pounds("MY_CONTRIB") / pay;
}

void ShowRateHelp(Ledger& ledger, const FormRow& form) {
  const std::string option = GetOption(ledger, optMandatoryContribution);
  std::string text =
      "The contribution rate shown here is the value used when the form was calculated. \\n\\n";
  if (Format(Rate(form), kRateFormat) != Format(Val(option) / 100, kRateFormat))
    text += "This is different from the current rate stored on the Options screen (" + option +
            "%).\\n\\nIf the form needs to be recalculated using the current rate, delete the form "
            "and recreate it. The rate can be changed on the Options screen. \\n\\n";
  ShowMessage(ledger, text, "", Buttons::Ok, Icon::Information);
}

Double Extras(const FormRow& form) { return form.Pounds("PENSIONABLE") - form.Pounds("AMOUNT"); }

Double PayWithExpenses(const FormRow& form) {
  return form.Pounds("PENSIONABLE") + form.Pounds("EXPENSES");
}

Double EmployeeContributions(const FormRow& form) {
  return form.Pounds("MY_CONTRIB") + form.Pounds("EXTRAYEARS") + form.Pounds("ADDITIONAL") +
         form.Pounds("AVC") + form.Pounds("ERRBO");
}

Double PaidOut(const FormRow& form) {
  return form.Pounds("PENSIONABLE") - EmployeeContributions(form);
}

constexpr FormFigure kFigures[] = {
    {.label = "Amount (sum of all session Rates)", .key = "AMOUNT"},
    {.label = "Extras (sum of all session Extras)", .worked = Extras},
    {.label = "Expenses (sum of all session Expenses)", .key = "EXPENSES"},
    {.label = "Pay made to the GP, excluding NHS Pension Scheme employer 14.38% contributions",
     .letter = "A",
     .worked = PayWithExpenses},
    {.label = "Professional NHS expenses", .letter = "B", .key = "EXPENSES"},
    {.label = "GP's NHS pensionable pay (A - B)",
     .letter = "C",
     .key = "PENSIONABLE",
     .item = FormItem::SoloC},
    {.label = "NHS Pension Scheme tiered employee contribution rate",
     .letter = "D",
     .worked = Rate,
     .inWindow = kRateFormat,
     .help = ShowRateHelp},
    {.label = "Employee contribution amount (C x D)",
     .letter = "E",
     .key = "MY_CONTRIB",
     .item = FormItem::SoloE},
    {.label = "Additional contributions for added years",
     .letter = "F",
     .key = "EXTRAYEARS",
     .item = FormItem::SoloAddedYears,
     .editable = true},
    {.label = "Additional contributions for additional pension",
     .key = "ADDITIONAL",
     .item = FormItem::SoloAdditional,
     .editable = true},
    {.label = "Additional contributions for NHS money purchase additional voluntary contributions "
              "(AVC) scheme",
     .key = "AVC",
     .item = FormItem::SoloAvc,
     .editable = true},
    {.label = "Additional contributions for early retirement reduction buy out (ERRBO)",
     .letter = "G",
     .key = "ERRBO",
     .item = FormItem::SoloG,
     .editable = true},
    {.label = "Total employee contributions (E + F + G)",
     .letter = "H",
     .worked = EmployeeContributions,
     .item = FormItem::SoloH},
    {.label = "Total paid to member after deducting all employee contributions (C - H)",
     .letter = "I",
     .worked = PaidOut,
     .item = FormItem::SoloI},
    {.label =
         "NHS Pension Scheme employer contributions plus administration levy (14.38% of Box C)",
     .letter = "J",
     .key = "EMP_CONTRIB",
     .item = FormItem::SoloJ},
    {.label = "Total NHS Pension Scheme contributions (H + J)",
     .letter = "K",
     .key = "TOTAL_CONTRIB",
     .item = FormItem::SoloK},
};

// ---- Making

// By the last seven characters of the cell, "mm/yyyy".
bool IsOfMonth(std::string_view monthCell, Month month) {
  return month && monthCell.ends_with(month.Text("/mm/yyyy").substr(1));
}

struct SoloSums {
  Single rates = 0, expenses = 0, pensionable = 0;
  int sessions = 0;
};

// The session is this form's alone: any other letter goes.
void PutOnSolo(Ledger& ledger, int row) {
  Grid& sessions = ledger.fgSessions;
  if (sessions.TextMatrix(row, "FORMS") == "SOLO") return;
  sessions.SetTextMatrix(row, "FORMS", "SOLO");
  MarkEdited(ledger, sessions, row);
}

SoloSums SumSessions(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  SoloSums sums;
  for (const int row : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != kTypeOohStandard) continue;
    const auto pounds = [&](std::string_view key) {
      return SingleOf(ledger.fgSessions.TextMatrix(row, key));
    };
    PutOnSolo(ledger, row);
    sums.rates += pounds("RATE");
    sums.expenses += pounds("EXPENSES");
    sums.pensionable += pounds("RATE") + pounds("EXTRAS");
    ++sums.sessions;
  }
  return sums;
}

// What the written figure reads as.
template <class Real>
Single ReadBack(Real value) {
  return static_cast<Single>(Val(Money(value)));
}

Single EmployerContribution(const Ledger& ledger, Single pensionable) {
  if (GetOption(ledger, optPensionCountry) == "Northern Ireland")
    return ReadBack(pensionable * 0.133);
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optEmployerContribRate)) / 100);
  return ReadBack(rate * pensionable);
}

Single VoluntaryContribution(const Ledger& ledger, Single pensionable) {
  const std::string option = GetOption(ledger, optDefaultAVC);
  if (!option.ends_with('%')) return static_cast<Single>(Val(option));
  return static_cast<Single>((Val(option) / 100) * pensionable);
}

int Make(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
  const SoloSums sums = SumSessions(ledger, sessions, practiceId);
  if (sums.sessions == 0) return -1;
  const Single pay = sums.pensionable;
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  const Single own = ReadBack(pay * rate);
  const Single avc = VoluntaryContribution(ledger, pay);
  const Single years = ReadBack((Val(GetOption(ledger, optExtraYearsContrib)) / 100) * pay);
  const Single employer = EmployerContribution(ledger, pay);
  return AddForm(ledger, kFormSolo,
                 {{"PRACTICE", practiceId},
                  {"MONTH", sessions.InMonth().Cell()},
                  {"SESSIONS", PlainText(sums.sessions)},
                  {"AMOUNT", Money(sums.rates)},
                  {"EXPENSES", Money(sums.expenses)},
                  {"PENSIONABLE", Money(pay)},
                  {"MY_CONTRIB", Money(own)},
                  {"AVC", Money(avc)},
                  {"EXTRAYEARS", Money(years)},
                  {"ERRBO", "0.00"},
                  {"ADDITIONAL", "0"},
                  {"EMP_CONTRIB", Money(employer)},
                  {"TOTAL_CONTRIB", Money(employer + own + avc + years)}});
}

void Recalculate(Ledger&, Grid& cells, int row, std::string_view editedKey) {
  SetBlankToZero(cells, row, editedKey);
  Double total = 0;
  for (const std::string_view key :
       {"MY_CONTRIB", "EMP_CONTRIB", "AVC", "EXTRAYEARS", "ERRBO", "ADDITIONAL"})
    total += Val(cells.TextMatrix(row, key));
  cells.SetTextMatrix(row, "TOTAL_CONTRIB", PlainText(total));
}

// ---- On paper

constexpr std::size_t kSchemeNumberBoxes = 8;

std::string SchemeNumber(const Ledger& ledger) {
  std::string number = ToUpper(Trim(MyDetail(ledger, kSchemeNumberField)));
  if (number.size() > kSchemeNumberBoxes) number.erase(0, number.size() - kSchemeNumberBoxes);
  return number;
}

// From the first to the last day; a month without such sessions keeps the two ends it starts from.
DateRun DaysWorked(const Ledger& ledger, const MonthSessions& sessions,
                   const std::string& practiceId) {
  DateRun worked{DateSerial(2099, 12, 30), DateSerial(1910, 1, 1), {}};
  for (const int row : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != kTypeOohStandard) continue;
    const std::optional<DateRun> days = DaysOfSession(ledger, row);
    if (!days) continue;
    worked.first = std::min(worked.first, days->first);
    worked.last = std::max(worked.last, days->last);
  }
  return worked;
}

void Print(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& record,
           FormFigures& figures) {
  const Month month = record.InMonth();
  figures.texts[FormItem::SchemeNumber] = {SchemeNumber(ledger)};
  const DateRun worked = DaysWorked(ledger, sessions.Of(month), record.Practice());
  figures.texts[FormItem::FirstDay] = {FormatDate(worked.first, "dd mm yyyy")};
  figures.texts[FormItem::LastDay] = {FormatDate(worked.last, "dd mm yyyy")};
  const Double expenses = record.Pounds("EXPENSES");
  figures.texts[FormItem::SoloA] = {Format(PayWithExpenses(record), kAmountFormat)};
  figures.texts[FormItem::SoloB] = {expenses == 0 ? "NIL" : Format(expenses, kAmountFormat)};
  const std::optional<Single> rate = RateOfFormB(ledger, month);
  figures.texts[FormItem::SoloD] = {
      (rate ? Format(*rate, "0.00")
            : Format(Val(GetOption(ledger, optMandatoryContribution)), "0.00")) +
      " %"};
}

}  // namespace

constinit const PensionForm kFormSolo = {
    .letter = "SOLO",
    .name = "Form Solo",
    .table = &Ledger::fgPensionSolo,
    .ofPractice = true,
    .sessionType = kTypeOohStandard,
    .sent = &kSoloSentToHA,
    .figures = kFigures,
    .onPaper = "0.00",
    .isOfMonth = IsOfMonth,
    .noSessions = "There are no sessions for the month that meet the pension criteria",
    .make = Make,
    .recalculate = Recalculate,
    .print = Print,
    .open = OpenFormSolo,
};

}  // namespace lm
