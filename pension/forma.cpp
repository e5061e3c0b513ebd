// Form A: of one practice's NHS Normal sessions of a month.
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/windows.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

void ShowBasicFeeHelp(Ledger& ledger, const FormRow&) {
  ShowMessage(ledger, "Basic Fee",
              "The basic fee is the sum of all Session Rates and Extras. It does not include "
              "Expenses as these are not pensionable.",
              Buttons::Ok, Icon::Information);
}

// The window fills the first two, which are sums over the sessions.
constexpr FormFigure kFigures[] = {
    {.label = "Rate"},
    {.label = "Extras"},
    {.label = "GP locum’s basic fee\n(excluding employer contributions)"_w,
     .letter = "a",
     .key = "AMOUNT",
     .item = FormItem::Amount,
     .help = ShowBasicFeeHelp},
    {.label = "Pensionable pay\n(90% of the fee)",
     .letter = "b",
     .key = "PENSIONABLE",
     .item = FormItem::Pensionable},
    {.label = "Employer contribution\n(14.38% of pensionable)",
     .letter = "c",
     .key = "EMPLOYERCONTRIB",
     .item = FormItem::Employer},
};

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
                     " for month " + sessions.InMonth().Text("mmm yyyy");
  text += found.state;
  text += found.advice;
  text += "\\n\\nDo you still want to create this pension form A?";
  return Ask(ledger, found.heading, text, found.title);
}

bool MayMake(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
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

int Make(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId) {
  const FormSums sums = AddSessionsToForm(ledger, kFormA, sessions, practiceId);
  if (sums.sessions == 0) return -1;
  const Double amount = sums.amount.ToDouble();
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  return AddForm(ledger, kFormA,
                 {{"PRACTICE", practiceId},
                  {"MONTH", sessions.InMonth().Cell()},
                  {"SESSIONS", PlainText(sums.sessions)},
                  {"AMOUNT", Format(sums.amount, "#0.00")},
                  {"PENSIONABLE", Format(amount * kFormPensionableShare, "#0.00")},
                  {"CONTRIBUTION", Format(amount * kFormPensionableShare * rate, "#0.00")},
                  {"EMPLOYERCONTRIB", Format(sums.employer, "#0.00")}});
}

void Print(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& record,
           FormFigures& figures) {
  figures.texts[FormItem::SchemeNumber] = {" " +
                                           std::string(Trim(MyDetail(ledger, kSchemeNumberField)))};
  figures.texts[FormItem::OdsCode] = {PracticeCell(ledger, record.Practice(), "ODS_CODE")};
  for (const DateRun& run : RunsOfFormA(ledger, sessions.Of(record.InMonth()), record.Practice())) {
    figures.texts[FormItem::RunFirstDay].push_back(FormatDate(run.first, "dd mm yyyy"));
    figures.texts[FormItem::RunLastDay].push_back(FormatDate(run.last, "dd mm yyyy"));
  }
}

}  // namespace

constinit const PensionForm kFormA = {
    .letter = "A",
    .name = "Form A",
    .table = &Ledger::fgPensionA,
    .ofPractice = true,
    .sessionType = kTypeNormal,
    .sent = &kSentByPractice,
    .figures = kFigures,
    .takenUpBy = &kFormB,
    .refusedInList = "for a month in which a Form B has already been created",
    .refusedInWindow = "for a month for which a Form B has already been created",
    .noSessions = "There are no NHS Normal sessions for this Practice and month",
    .mayMake = MayMake,
    .make = Make,
    .print = Print,
    .open = OpenFormA,
};

}  // namespace lm
