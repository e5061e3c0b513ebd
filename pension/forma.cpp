#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "pension/practiceforms.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

bool IsOfMonth(std::string_view monthCell, std::string_view monthKey) {
  return !monthKey.empty() && MonthKeyOf(monthCell) == monthKey;
}

bool MayOverwrite(Ledger& ledger, int row, std::string_view title, std::string_view heading) {
  const Grid& forms = ledger.fgPensionA;
  const std::string received = forms.TextMatrix(row, "RCVDFROMPRACTICE");
  const std::string receivedMonth = MonthKeyOf(received);
  if (FormBExists(ledger, receivedMonth)) {
    const std::string month = MonthText(receivedMonth, "mmm yyyy");
    ShowMessage(ledger, heading,
                "This Form A has already been received back from the Practice and included on Form "
                "B for the month " +
                    month +
                    ".\\n\\nThis Form A can therefore not be edited or deleted. To unlock this "
                    "Form A the Form B for the month of " +
                    month + " must be deleted first.",
                Buttons::Ok, Icon::Exclamation, title);
    return false;
  }
  std::string question = "Do you wish to overwrite it?";
  if (!received.empty())
    question = "This form has already been received back from the Practice.\\n" + question;
  else if (!forms.TextMatrix(row, "SENTTOPRACTICE").empty())
    question = "This form has already been sent to the Practice.\\n" + question;
  return Ask(ledger, heading, question, title);
}

// What may be wrong with the employer's contributions on the sessions of one form. The form can
// be made all the same.
struct Inconsistency {
  std::string_view title;
  std::string_view heading;
  std::string_view state;  // what the sessions are
  std::string_view advice;
};

constexpr Inconsistency kRatesDiffer = {
    "Inconsistent Employer Pension Contribution Rates",
    "The sessions to be added to a pension Form A must all have the same employer pension "
    "contribution rate.",
    " do not all have the same rate.",
    "\\n\\nIt is strongly recommended you return to the sessions and ensure the employer "
    "contribution rate is consistent. Editing the session forces the contribution to be "
    "recalculated using the rate currently set on the Options screen. "};

constexpr Inconsistency kContributionsMixed = {
    "Inconsistent Employer Pension Contributions",
    "The sessions to be added to a pension Form A must all include employer pension "
    "contributions, or they must all have no employer pension contributions.",
    " are mixed - some have an employer contribution and some do not.",
    "This makes the data on the pension forms appear inconsistent.\\n\\nIt is strongly "
    "recommended you return to the sessions and ensure the employer contribution is consistent."};

// Sessions with and without a contribution on one form are common, and nobody is asked about them.
constexpr bool kAskAboutMixedContributions = false;

bool CreateAllTheSame(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId,
                      const Inconsistency& found) {
  std::string text = "\\n\\nThe sessions for pratice " + PracticeName(ledger, practiceId) +
                     " for month " + MonthText(sessions.Month(), "mmm yyyy");
  text += found.state;
  text += found.advice;
  text += "\\n\\nDo you still want to create this pension form A?";
  return Ask(ledger, found.heading, text, found.title);
}

bool ContributionsAreFine(Ledger& ledger, const MonthSessions& sessions,
                          const std::string& practiceId) {
  std::vector<Double> rates;
  std::vector<bool> contributes;
  for (const int row : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != kTypeNormal) continue;
    rates.push_back(Val(ledger.fgSessions.TextMatrix(row, "EMPLOYERCONTRIBRATE")));
    contributes.push_back(Val(ledger.fgSessions.TextMatrix(row, "EMPLOYERCONTRIB")) != 0);
  }
  const auto differ = [](const auto& values) {
    return std::ranges::adjacent_find(values, std::ranges::not_equal_to{}) != values.end();
  };
  if (differ(rates) && !CreateAllTheSame(ledger, sessions, practiceId, kRatesDiffer)) return false;
  return !kAskAboutMixedContributions || !differ(contributes) ||
         CreateAllTheSame(ledger, sessions, practiceId, kContributionsMixed);
}

bool Make(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
  if (practiceId.empty()) return false;  // would be a form of all practices
  if (!ContributionsAreFine(ledger, sessions, practiceId)) return false;
  const FormSums sums = AddSessionsToForm(ledger, sessions, practiceId, "A");
  if (sums.sessions == 0) return false;
  const Double amount = sums.amount.ToDouble();
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  Grid& forms = ledger.fgPensionA;
  const int row = AddRecord(ledger, forms);
  const std::pair<std::string_view, std::string> cells[] = {
      {"PRACTICE", practiceId},
      {"MONTH", MonthCell(sessions.Month())},
      {"SESSIONS", PlainText(sums.sessions)},
      {"AMOUNT", Format(sums.amount, "#0.00")},
      {"PENSIONABLE", Format(amount * kFormPensionableShare, "#0.00")},
      {"CONTRIBUTION", Format(amount * kFormPensionableShare * rate, "#0.00")},
      {"EMPLOYERCONTRIB", Format(sums.employer, "#0.00")}};
  for (const auto& [key, text] : cells) forms.SetTextMatrix(row, key, text);
  return true;
}

constexpr PracticeForm kFormA = {FormKind::A,         "Form A",  "A",          kTypeNormal,
                                 &Ledger::fgPensionA, IsOfMonth, MayOverwrite, Make};

}  // namespace

FormSums AddSessionsToForm(Ledger& ledger, const MonthSessions& sessions,
                           const std::string& practiceId, std::string_view letter) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  const int type = letter == "SOLO" ? kTypeOohStandard : kTypeNormal;
  FormSums sums;
  for (const int row : practiceId.empty() ? sessions.All() : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != type) continue;
    const auto pounds = [&](std::string_view key) {
      return Currency::From(SingleOf(ledger.fgSessions.TextMatrix(row, key)));
    };
    AddFormLetter(ledger, row, letter);
    sums.amount += pounds("RATE");
    sums.amount += pounds("EXTRAS");
    sums.employer += pounds("EMPLOYERCONTRIB");
    ++sums.sessions;
  }
  return sums;
}

int FormARow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey) {
  return PracticeFormRow(ledger, practiceId, monthKey, kFormA);
}

bool CreateFormA(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                 const std::string& practiceId) {
  return CreatePracticeForm(ledger, printer, sessions, practiceId, kFormA);
}

int CreateFormsA(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions) {
  return CreatePracticeForms(ledger, printer, sessions, kFormA);
}

bool DeleteFormA(Ledger& ledger, const std::string& practiceId, std::string_view monthKey) {
  return DeletePracticeForm(ledger, practiceId, monthKey, kFormA);
}

void RemoveFormA(Ledger& ledger, std::string_view monthKey, const std::string& practiceId) {
  RemovePracticeForm(ledger, MonthSessions(ledger, std::string(monthKey)), practiceId, kFormA);
}

}  // namespace lm
