#include "pension/frmPensionB.h"

#include <algorithm>
#include <array>
#include <map>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/formlist.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "pension/months.h"
#include "pension/monthsessions.h"

namespace lm {
namespace {

constexpr int kSchemeNumberField = 18;

void ShowEmployeeHelp(FormWindow& form) {
  const std::string option = GetOption(form.ledger, optMandatoryContribution);
  const auto rate = RateOfFormB(form.ledger, form.MonthKey());
  ShowMessage(form.ledger, "Employee Contribution Rate",
              "The rate used to calculate this form was " +
                  (rate ? Format(*rate, "0.0") : Format(option, "0.0")) +
                  "%.\\n\\nThe employee contribution rate is currently set at " + option +
                  "%. \\n\\nThis rate can be changed on the Options screen.",
              Buttons::Ok, Icon::Information);
}

void ShowAddedYearsHelp(FormWindow& form) {
  ShowMessage(form.ledger, "Added Years",
              "The Added Years contribution rate is set at " +
                  GetOption(form.ledger, optExtraYearsContrib) +
                  "%. \\n\\nThis rate can be changed on the Options screen.",
              Buttons::Ok, Icon::Information);
}

Double AllContributions(const FormWindow& form) {
  return form.Pounds("TOTAL_CONTRIB") + form.Pounds("EMPLOYERCONTRIB");
}

constexpr FormLine kLines[] = {
    {.label = "Total pensionable pay that is, the total of the amounts entered in box 2 of form A",
     .letter = "a",
     .key = "PENSIONABLE"},
    {.label = "Employee contributions (a x 5.2%, 6.5%, 8.3%, 9.8%, 10.7%, 12.5%)",
     .letter = "b",
     .key = "CONTRIBUTION",
     .help = ShowEmployeeHelp},
    {.label = "Total of any NHS Pension Scheme added years contributions (a x %)",
     .letter = "c",
     .key = "EXTRA_YEARS",
     .editable = true,
     .help = ShowAddedYearsHelp},
    {.label = "Total of any NHS Pension Scheme extra money purchase additional voluntary "
              "contributions (MPAVCs). A % or agreed sum",
     .letter = "d",
     .key = "AVC",
     .editable = true},
    {.label = "Total of any NHS Pension Scheme additional pension contributions",
     .letter = "e",
     .key = "ADDITIONAL",
     .editable = true},
    {.label = "Total of any NHS Pension Scheme early retirement reduction buy out (ERRBO) "
              "contributions. A fixed ERRBO %",
     .letter = "f",
     .key = "ERRBO",
     .editable = true},
    {.label = "Grand total of NHS Pension Scheme employee contributions (b+c+d+e+f)",
     .letter = "g",
     .key = "TOTAL_CONTRIB"},
    {.label = "Grand total of NHS Pension Scheme employer (14.38%) contributions, that is amounts "
              "shown in box 3 of Form A",
     .letter = "h",
     .key = "EMPLOYERCONTRIB"},
    {.label = "Grand total of employee and employer contributions (g+h)",
     .letter = "i",
     .figure = AllContributions},
    {.label = "Cumulative (month by month) freelance GP locum pensionable income", .letter = "j"},
};
constexpr FormWindowSpec kWindow{"frmPensionB", "Pension Form B", FormKind::B, &Ledger::fgPensionB,
                                 kLines};

constexpr ColumnSpec kFormAColumns[] = {
    {"PRACTICE", "Practice", DataType::Text, "", 2200},
    {"MONTH", "Month", DataType::Date, "Mmm yyyy", 1000},
    {"FIRSTDAY", "First Day\nWorked", DataType::Date, "", 1100},
    {"LASTDAY", "Last Day\nWorked", DataType::Date, "", 1100},
    {"AMOUNT", "Amount\n(Rate + Extras)", DataType::Money, kAmountFormat, 1300},
    {"PENSIONABE", "Pensionable\n(90% of Amount)", DataType::Money, kAmountFormat, 1400},
    {"EMPLOYERCONTRIB", "Employer Contrib\n(14.38% of Pension)", DataType::Money, kAmountFormat,
     1600},
    {"SESSIONS", "Sessions", DataType::Money, "", 800},
    {"RCVDFROMPRACTICE", "Rcvd\nFrom Practice", DataType::Date, "", 1200},
};
constexpr TableSpec kFormATable{"fgPensionA", kFormAColumns};

// Column of the list, column of the table: what the line "Total" sums up.
constexpr std::pair<std::string_view, std::string_view> kSummed[] = {
    {"AMOUNT", "AMOUNT"},
    {"PENSIONABE", "PENSIONABLE"},
    {"EMPLOYERCONTRIB", "EMPLOYERCONTRIB"},
    {"SESSIONS", "SESSIONS"}};

void ShowDaysWorked(Grid& list, int row, const std::vector<DateRun>& sessions) {
  if (sessions.empty()) return;
  const auto first = std::ranges::min_element(sessions, {}, &DateRun::first);
  const auto last = std::ranges::max_element(sessions, {}, &DateRun::last);
  list.SetTextMatrix(row, "FIRSTDAY", CellText(first->first));
  list.SetTextMatrix(row, "LASTDAY", CellText(last->last));
}

}  // namespace

frmPensionB::frmPensionB(Ledger& theLedger)
    : FormWindow(theLedger, kWindow, {"Details", "Forms A", "Notes"}) {
  lblUPR.SetText(MyDetail(ledger, kSchemeNumberField));
  lblSentToHANote.SetText(kSentToHANote);
  lblPensionAHelp.SetText(
      "These are the Form A's used to complete this Form B.\n"
      "The information here can be used to populate Part 1 of the Form B.");
  MakeFormList(fgPensionA, kFormATable, ledger);
  AddGrid(fgPensionA);
}

void frmPensionB::Filled() { ShowFormsA(); }

void frmPensionB::ShowFormsA() {
  const Grid& forms = ledger.fgPensionA;
  const Grid& practices = ledger.fgPractices;
  const auto practiceRows = practices.RowsBy("ID");
  const std::string month = MonthKey();
  const RedrawOff redrawOff(fgPensionA);
  fgPensionA.ClearData();
  std::array<Currency, std::size(kSummed)> sums;
  std::map<std::string, MonthSessions> months;  // in which the forms' work was done
  for (int form = forms.FixedRows(); form < forms.Rows(); ++form) {
    const std::string received = forms.TextMatrix(form, "RCVDFROMPRACTICE");
    if (forms.IsSubtotal(form) || month.empty() || MonthKeyOf(received) != month) continue;
    const std::string practice = forms.TextMatrix(form, "PRACTICE");
    const std::string worked = forms.TextMatrix(form, "MONTH");
    const int row = fgPensionA.AddItem("");
    const auto found = practiceRows.find(practice);
    if (found != practiceRows.end())
      fgPensionA.SetTextMatrix(row, "PRACTICE", practices.TextMatrix(found->second, "NAME"));
    fgPensionA.SetTextMatrix(row, "MONTH", worked);
    fgPensionA.SetTextMatrix(row, "RCVDFROMPRACTICE", received);
    for (std::size_t i = 0; i < sums.size(); ++i) {
      const std::string figure = forms.TextMatrix(form, kSummed[i].second);
      fgPensionA.SetTextMatrix(row, kSummed[i].first, figure);
      sums[i] += Currency::From(PoundsOf(figure));
    }
    const std::string workedIn = MonthKeyOf(worked);
    const MonthSessions& sessions = months.try_emplace(workedIn, ledger, workedIn).first->second;
    ShowDaysWorked(fgPensionA, row, SessionsOfFormA(ledger, sessions, practice));
  }
  const int total = fgPensionA.AddItem("");
  fgPensionA.SetTextMatrix(total, "PRACTICE", "Total");
  for (std::size_t i = 0; i < sums.size(); ++i)
    fgPensionA.SetTextMatrix(total, kSummed[i].first, sums[i].ToText());
  MakeBold(fgPensionA, total);
}

void frmPensionB::Recalculate(std::string_view editedKey) {
  RecalculateFormB(ledger, Working(), kWorkingRow, editedKey);
}

bool frmPensionB::MayDelete() {
  return MayDeleteFormB(ledger, Working(), kWorkingRow, AskedFrom::Window);
}

bool frmPensionB::DeleteForm() { return DeleteFormB(ledger, MonthKey()); }

}  // namespace lm
