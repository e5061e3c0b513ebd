#include "pension/frmPensionB.h"

#include <algorithm>
#include <array>

#include "core/options.h"
#include "pension/dateruns.h"
#include "pension/formlist.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"

namespace lm {
namespace {

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
    : FormWindow(theLedger, kFormB, {"Details", "Forms A", "Notes"}) {
  lblUPR.SetText(MyDetail(ledger, kSchemeNumberField));
  lblSentToHANote.SetText(kSentToHANote);
  lblPensionAHelp.SetText(
      "These are the Form A's used to complete this Form B.\n"
      "The information here can be used to populate Part 1 of the Form B.");
  MakeFormList(fgPensionA, kFormATable, ledger);
  AddGrid(fgPensionA);
}

void frmPensionB::Filled() {
  const Grid& practices = ledger.fgPractices;
  const std::unordered_map<std::string, int> practiceRows = practices.RowsBy("ID");
  const RedrawOff redrawOff(fgPensionA);
  fgPensionA.ClearData();
  std::array<Currency, std::size(kSummed)> sums;
  SessionsByMonth sessions(ledger);
  for (const int form : ReturnedForms(ledger, kFormA, Record().InMonth())) {
    const FormRow formA{kFormA, ledger.fgPensionA, form};
    const int row = fgPensionA.AddItem("");
    const auto found = practiceRows.find(formA.Practice());
    if (found != practiceRows.end())
      fgPensionA.SetTextMatrix(row, "PRACTICE", practices.TextMatrix(found->second, "NAME"));
    for (const std::string_view key : {"MONTH", "RCVDFROMPRACTICE"})
      fgPensionA.SetTextMatrix(row, key, formA.Cell(key));
    for (std::size_t i = 0; i < sums.size(); ++i) {
      fgPensionA.SetTextMatrix(row, kSummed[i].first, formA.Cell(kSummed[i].second));
      sums[i] += Currency::From(formA.Pounds(kSummed[i].second));
    }
    ShowDaysWorked(fgPensionA, row,
                   SessionsOfFormA(ledger, sessions.Of(formA.InMonth()), formA.Practice()));
  }
  const int total = fgPensionA.AddItem("");
  fgPensionA.SetTextMatrix(total, "PRACTICE", "Total");
  for (std::size_t i = 0; i < sums.size(); ++i)
    fgPensionA.SetTextMatrix(total, kSummed[i].first, sums[i].ToText());
  MakeBold(fgPensionA, total);
}

}  // namespace lm
