// Form B: of the Forms A that came back in a month.
#include <utility>
#include <vector>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/practicetable.h"
#include "pension/windows.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

// ---- Its figures

void ShowEmployeeHelp(Ledger& ledger, const FormRow& form) {
  const std::string option = GetOption(ledger, optMandatoryContribution);
  const auto rate = RateOfFormB(ledger, form.InMonth());
  ShowMessage(ledger, "Employee Contribution Rate",
              "The rate used to calculate this form was " +
                  (rate ? Format(*rate, "0.0") : Format(option, "0.0")) +
                  "%.\\n\\nThe employee contribution rate is currently set at " + option +
                  "%. \\n\\nThis rate can be changed on the Options screen.",
              Buttons::Ok, Icon::Information);
}

void ShowAddedYearsHelp(Ledger& ledger, const FormRow&) {
  ShowMessage(ledger, "Added Years",
              "The Added Years contribution rate is set at " +
                  GetOption(ledger, optExtraYearsContrib) +
                  "%. \\n\\nThis rate can be changed on the Options screen.",
              Buttons::Ok, Icon::Information);
}

Double AllContributions(const FormRow& form) {
  return form.Pounds("TOTAL_CONTRIB") + form.Pounds("EMPLOYERCONTRIB");
}

constexpr FormFigure kFigures[] = {
    {.label = "Total pensionable pay that is, the total of the amounts entered in box 2 of form A",
     .letter = "a",
     .key = "PENSIONABLE",
     .item = FormItem::BoxA,
     .blankPrints = false},
    {.label = "Employee contributions (a x 5.2%, 6.5%, 8.3%, 9.8%, 10.7%, 12.5%)",
     .letter = "b",
     .key = "CONTRIBUTION",
     .item = FormItem::BoxB,
     .blankPrints = false,
     .help = ShowEmployeeHelp},
    {.label = "Total of any NHS Pension Scheme added years contributions (a x %)",
     .letter = "c",
     .key = "EXTRA_YEARS",
     .item = FormItem::BoxC,
     .editable = true,
     .help = ShowAddedYearsHelp},
    {.label = "Total of any NHS Pension Scheme extra money purchase additional voluntary "
              "contributions (MPAVCs). A % or agreed sum",
     .letter = "d",
     .key = "AVC",
     .item = FormItem::BoxD,
     .editable = true},
    {.label = "Total of any NHS Pension Scheme additional pension contributions",
     .letter = "e",
     .key = "ADDITIONAL",
     .item = FormItem::BoxE,
     .editable = true},
    {.label = "Total of any NHS Pension Scheme early retirement reduction buy out (ERRBO) "
              "contributions. A fixed ERRBO %",
     .letter = "f",
     .key = "ERRBO",
     .item = FormItem::BoxF,
     .editable = true},
    {.label = "Grand total of NHS Pension Scheme employee contributions (b+c+d+e+f)",
     .letter = "g",
     .key = "TOTAL_CONTRIB",
     .item = FormItem::BoxG,
     .blankPrints = false},
    {.label = "Grand total of NHS Pension Scheme employer (14.38%) contributions, that is amounts "
              "shown in box 3 of Form A",
     .letter = "h",
     .key = "EMPLOYERCONTRIB",
     .item = FormItem::BoxH,
     .blankPrints = false},
    {.label = "Grand total of employee and employer contributions (g+h)",
     .letter = "i",
     .worked = AllContributions,
     .item = FormItem::BoxI},
    {.label = "Cumulative (month by month) freelance GP locum pensionable income", .letter = "j"},
};

// ---- Making

struct ReturnedSums {
  Currency amount, pensionable, employer;
};

ReturnedSums SumForms(const Grid& forms, const std::vector<int>& rows) {
  ReturnedSums sums;
  for (const int row : rows) {
    sums.amount += Currency::FromText(forms.TextMatrix(row, "AMOUNT"));
    sums.pensionable += Currency::FromText(forms.TextMatrix(row, "PENSIONABLE"));
    sums.employer += Currency::FromText(forms.TextMatrix(row, "EMPLOYERCONTRIB"));
  }
  return sums;
}

void PutOnFormB(Ledger& ledger, const std::vector<int>& formsA) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  for (const int row : SessionsOfForms(ledger, kFormA, formsA))
    if (SessionTypeOf(ledger, row) == kTypeNormal &&
        ledger.fgSessions.TextMatrix(row, "FORMS") == "A")
      AddFormLetter(ledger, row, "B");
}

Single VoluntaryContribution(const Ledger& ledger, Double amount) {
  const std::string option = GetOption(ledger, optDefaultAVC);
  if (!option.ends_with('%')) return static_cast<Single>(Val(option));
  return static_cast<Single>(amount * 0.9 * (Val(option) / 100));
}

int Make(Ledger& ledger, const MonthSessions& sessions, const std::string&) {
  const std::vector<int> formsA = ReturnedForms(ledger, kFormA, sessions.InMonth());
  if (formsA.empty()) return -1;
  PutOnFormB(ledger, formsA);
  const ReturnedSums sums = SumForms(ledger.fgPensionA, formsA);
  const Double amount = sums.amount.ToDouble();
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMandatoryContribution)) / 100);
  const auto own = static_cast<Single>(Val(Money(amount * kFormPensionableShare * rate)));
  const Single avc = VoluntaryContribution(ledger, amount);
  const auto yearsRate = static_cast<Single>(Val(GetOption(ledger, optExtraYearsContrib)) / 100);
  const auto years = static_cast<Single>(amount * 0.9 * yearsRate);
  return AddForm(ledger, kFormB,
                 {{"MONTH", sessions.InMonth().Cell()},
                  {"AMOUNT", Format(sums.amount, "0.00")},
                  {"PENSIONABLE", Format(sums.pensionable, "0.00")},
                  {"EMPLOYERCONTRIB", sums.employer.ToText()},
                  {"CONTRIBUTION", Format(own, "#0.00")},
                  {"AVC", Format(avc, "#0.00")},
                  {"EXTRA_YEARS", Money(years)},
                  {"ERRBO", "0"},
                  {"ADDITIONAL", "0"},
                  {"TOTAL_CONTRIB", Money(avc + own + years)}});
}

void RefuseScottishAvc(Ledger& ledger, Grid& forms, int row) {
  forms.SetTextMatrix(row, "AVC", "0");
  ShowMessage(
      ledger, "AVCs on Scottish Pension Forms",
      "You currently have your pension options set to use the Scottish pension "
      "forms.\\n\\nScottish pension Form B has no provision for AVCs. These must be entered "
      "on a seperate form. This has not been implemented in LedgerMinder yet.\\n\\nYou can "
      "change the country for your pension calculations on the Options screen.");
}

void Recalculate(Ledger& ledger, Grid& cells, int row, std::string_view editedKey) {
  if (EqualsIgnoreCase(editedKey, "AVC")) {
    SetBlankToZero(cells, row, "AVC");
    if (ToUpper(GetOption(ledger, optPensionCountry)) == "SCOTLAND")
      RefuseScottishAvc(ledger, cells, row);
  } else {
    for (const std::string_view key : {"ERRBO", "ADDITIONAL", "EXTRA_YEARS"})
      SetBlankToZero(cells, row, key);
  }
  Double total = 0;
  for (const std::string_view key : {"AVC", "CONTRIBUTION", "EXTRA_YEARS", "ERRBO", "ADDITIONAL"})
    total += Val(cells.TextMatrix(row, key));
  cells.SetTextMatrix(row, "TOTAL_CONTRIB", Format(total, "#,##0.00"));
}

// ---- On paper

// Details of the user on the first page.
struct Detail {
  FormItem item;
  int field;
};

constexpr Detail kDetails[] = {
    {FormItem::LastName, kLastNameField},
    {FormItem::FirstName, kFirstNameField},
    {FormItem::SchemeNumber, kSchemeNumberField},
    {FormItem::Telephone, kTelephoneField},
    {FormItem::Mobile, kMobileField},
    {FormItem::Email, kEmailField},
};
constexpr int kAddressFields[] = {kAddress1Field, kAddress2Field, kAddress3Field, kAddress4Field,
                                  kPostcodeField};

std::string Address(const Ledger& ledger) {
  std::vector<std::string> lines;
  for (const int field : kAddressFields)
    if (std::string line(Trim(MyDetail(ledger, field))); !line.empty()) lines.push_back(line);
  return Join(lines, ", ");
}

void AddDetails(const Ledger& ledger, Month month, FormFigures& figures) {
  for (const Detail& detail : kDetails)
    figures.texts[detail.item] = {std::string(Trim(MyDetail(ledger, detail.field)))};
  figures.texts[FormItem::Address] = {Address(ledger)};
  const std::optional<Date> date = CellDate(MyDetail(ledger, kGmcNumberField));
  figures.texts[FormItem::DateOfField5] = {date ? FormatDate(*date, "dd mm yyyy") : ""};
  figures.texts[FormItem::MonthShort] = {month.Text("mmm")};
  figures.texts[FormItem::MonthLong] = {month.Text("mmmm")};
  figures.texts[FormItem::YearShort] = {month.Text("yy")};
  figures.texts[FormItem::YearLong] = {month.Text("yyyy")};
}

void Print(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& record,
           FormFigures& figures) {
  const Month month = record.InMonth();
  AddDetails(ledger, month, figures);
  // The rate's digits, not its bits: the single nearest to 9.8 is no double's 9.8.
  if (const std::optional<Single> rate = RateOfFormB(ledger, month))
    figures.rate = Val(PlainText(*rate));
  AddPractices(ledger, sessions, month, figures);
}

}  // namespace

std::optional<Single> RateOfFormB(const Ledger& ledger, Month month) {
  const int row = RowOfForm(ledger, kFormB, month);
  const Double pensionable = Val(ledger.fgPensionB.TextMatrix(row, "PENSIONABLE"));
  if (row < 0 || pensionable == 0) return std::nullopt;
  const Double contribution = Val(ledger.fgPensionB.TextMatrix(row, "CONTRIBUTION"));
  return static_cast<Single>(RoundMoney(100 * (contribution / pensionable)));
}

constinit const PensionForm kFormB = {
    .letter = "B",
    .name = "Form B",
    .table = &Ledger::fgPensionB,
    .ofPractice = false,
    .sessionType = kTypeNormal,
    .sent = &kSentToHA,
    .figures = kFigures,
    .madeOf = &kFormA,
    .make = Make,
    .recalculate = Recalculate,
    .print = Print,
    .open = OpenFormB,
};

}  // namespace lm
