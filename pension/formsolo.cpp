#include <algorithm>
#include <iterator>
#include <utility>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "pension/practiceforms.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

// By the last seven characters of the cell, "mm/yyyy".
bool IsOfMonth(std::string_view monthCell, std::string_view monthKey) {
  const std::string wanted = MonthCell(monthKey);
  return !wanted.empty() && monthCell.ends_with(std::string_view(wanted).substr(3));
}

bool MayOverwrite(Ledger& ledger, int row, std::string_view title, std::string_view heading) {
  std::string question = "Do you wish to overwrite it?";
  if (!ledger.fgPensionSolo.TextMatrix(row, "SENTTOHA").empty())
    question = "This form has already been sent to the HA.\\n" + question;
  return Ask(ledger, heading, question, title);
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

bool Make(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
  const SoloSums sums = SumSessions(ledger, sessions, practiceId);
  if (sums.sessions == 0) return false;
  const Single pay = sums.pensionable;
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  const Single own = ReadBack(pay * rate);
  const Single avc = VoluntaryContribution(ledger, pay);
  const Single years = ReadBack((Val(GetOption(ledger, optExtraYearsContrib)) / 100) * pay);
  const Single employer = EmployerContribution(ledger, pay);

  Grid& forms = ledger.fgPensionSolo;
  const int row = AddRecord(ledger, forms);
  const std::pair<std::string_view, std::string> cells[] = {
      {"PRACTICE", practiceId},
      {"MONTH", MonthCell(sessions.Month())},
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
      {"TOTAL_CONTRIB", Money(employer + own + avc + years)}};
  for (const auto& [key, text] : cells) forms.SetTextMatrix(row, key, text);
  return true;
}

constexpr PracticeForm kFormSolo = {
    FormKind::Solo,         "Form Solo", "SOLO",       kTypeOohStandard,
    &Ledger::fgPensionSolo, IsOfMonth,   MayOverwrite, Make};

}  // namespace

int FormSoloRow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey) {
  return PracticeFormRow(ledger, practiceId, monthKey, kFormSolo);
}

bool CreateFormSolo(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                    const std::string& practiceId) {
  return CreatePracticeForm(ledger, printer, sessions, practiceId, kFormSolo);
}

int CreateFormsSolo(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions) {
  return CreatePracticeForms(ledger, printer, sessions, kFormSolo);
}

bool DeleteFormSolo(Ledger& ledger, const std::string& practiceId, std::string_view monthKey) {
  return DeletePracticeForm(ledger, practiceId, monthKey, kFormSolo);
}

void RecalculateFormSolo(Ledger& ledger, Grid& forms, int row, std::string_view editedKey) {
  constexpr std::string_view kFigures[] = {"AVC", "EXTRAYEARS", "ERRBO", "ADDITIONAL"};
  constexpr std::string_view kSummed[] = {"MY_CONTRIB", "EMP_CONTRIB", "AVC",
                                          "EXTRAYEARS", "ERRBO",       "ADDITIONAL"};
  const auto edited = std::ranges::find_if(
      kFigures, [&](std::string_view key) { return EqualsIgnoreCase(key, editedKey); });
  if (edited == std::end(kFigures)) return;
  if (Trim(forms.TextMatrix(row, editedKey)).empty()) forms.SetTextMatrix(row, editedKey, "0");
  Double total = 0;
  for (const std::string_view key : kSummed) total += Val(forms.TextMatrix(row, key));
  forms.SetTextMatrix(row, "TOTAL_CONTRIB", PlainText(total));
  MarkEdited(ledger, forms, row);
}

}  // namespace lm
