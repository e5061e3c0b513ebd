#include "records/frmAddExpenses.h"

#include <algorithm>
#include <cmath>

#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "entry/checks.h"
#include "entry/pickedboxes.h"
#include "entry/pickers.h"
#include "records/expenses.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr int kDayRows = 5;
constexpr int kDayCols = 7;
constexpr int kMostTimes = 99;
constexpr std::size_t kShownDates = 3;
constexpr std::string_view kTick = "TRUE";

std::vector<ComboItem> Items(std::initializer_list<const char*> texts) {
  std::vector<ComboItem> items;
  for (const char* text : texts) items.push_back({text, ""});
  return items;
}

}  // namespace

frmAddExpenses::frmAddExpenses(Ledger& theLedger)
    : Screen(theLedger, "frmAddExpenses", "Add Expenses") {
  for (std::size_t day = 0; day < chkDayOfWeek.size(); ++day)
    chkDayOfWeek[day] = std::make_unique<CheckField>(this, "chkDayOfWeek" + std::to_string(day));
  txtNotes.multiLine = true;
  txtCategory.SetItems(ExpenseCategoryItems(ledger));
  cboRecurMontly.SetItems(Items({"First", "Second", "Third", "Fourth", "Last"}));
  cboRecurMontly.SetSelected(0);
  cboDayOfWeek.SetItems(
      Items({"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday", "Day"}));
  cboDayOfWeek.SetSelected(0);
  const std::string today = CellText(ledger.platform.clock.Now());
  txtItem.SetText("[New Expense]");
  txtExpenseDate.SetText(today);
  txtStartDate.SetText(today);
  for (CheckField* first : {&optRepetition_None, &optMontlyRepeat_Days, &optDuration_RepeatUntil})
    first->SetChecked(true);
  FillDays();
  BindFields();
  defaultButton = &cmdOK;
  cancelButton = &cmdCancel;
  holds = "this expense";
  ShowFrames();
}

void frmAddExpenses::FillDays() {
  fgRecurOnDays.SetRows(kDayRows);
  fgRecurOnDays.SetCols(kDayCols);
  for (int col = 0; col < kDayCols; ++col) {
    fgRecurOnDays.SetColWidth(col, 740);
    for (int row = 0; row < kDayRows; ++row) {
      const int day = row * kDayCols + col + 1;
      if (day > 31) continue;
      fgRecurOnDays.SetTextMatrix(row, col, std::to_string(day));
      fgRecurOnDays.SetCell(CellSetting::flexcpChecked, row, col, "FALSE");
    }
  }
  AddGrid(fgRecurOnDays);
}

void frmAddExpenses::BindFields() {
  txtAmount.onEntered = [this] {
    const std::string text = txtAmount.Text();
    if (text.empty()) return true;
    if (!IsNumeric(text)) return Refuse("The 'Amount' must be a number.");
    txtAmount.SetText(Money(NumericValue(text)));
    return true;
  };
  cmdAmount.onPressed = [this] { OpenPicker(*this, txtAmount, Picker::Numbers, "Amount"); };
  // The plain date is told with the words of an end date too.
  const auto show = [this] {
    ShowFirstDates();
    return true;
  };
  BindDate({txtExpenseDate, cmdExpenseDate, "Expense Date", kInvalidEndDate}, show);
  BindDate({txtStartDate, cmdStartDate, "Start Date", kInvalidStartDate}, show);
  BindDate({txtRepeatUntil, cmdRepeatUntil, "Repeat Until", kInvalidEndDate}, show);
  BindChoice({&optRepetition_None, &optRepetition_Weekly, &optRepetition_Monthly});
  BindChoice({&optMontlyRepeat_Days, &optMontlyRepeat_Day});
  BindChoice({&optDuration_RepeatUntil, &optDuration_StopAfter});
  txtStopAfter.onEntered = [this] { return CheckStopAfter(); };
  for (const auto& box : chkDayOfWeek) box->onEntered = show;
  for (ComboField* combo : {&cboRecurMontly, &cboDayOfWeek}) combo->onEntered = show;
  cmdOK.onPressed = [this] { Ok(); };
  cmdCancel.onPressed = [this] { Close(); };
}

void frmAddExpenses::BindChoice(std::vector<CheckField*> choices) {
  for (CheckField* chosen : choices)
    chosen->onEntered = [this, choices, chosen] {
      for (CheckField* each : choices) each->SetChecked(each == chosen);
      ShowFrames();
      return true;
    };
}

bool frmAddExpenses::CheckStopAfter() {
  const std::string text = txtStopAfter.Text();
  const Double times = IsNumeric(text) ? std::trunc(std::abs(NumericValue(text))) : kMostTimes + 1;
  if (times > kMostTimes)
    return Refuse("Invalid number", "The number of occurrences must be a number between 0 and 99.");
  txtStopAfter.SetText(PlainText(times));
  ShowFirstDates();
  return true;
}

void frmAddExpenses::CellClicked(Grid& grid, int row, int col) {
  const std::string ticked = grid.Cell(CellSetting::flexcpChecked, row, col);
  if (ticked.empty()) return;
  grid.SetCell(CellSetting::flexcpChecked, row, col, ticked == kTick ? "FALSE" : kTick);
  ShowFirstDates();
}

// Each choice brings its own fields.
void frmAddExpenses::ShowFrames() {
  const bool repeats = !optRepetition_None.Checked();
  const bool monthly = optRepetition_Monthly.Checked();
  for (const auto& box : chkDayOfWeek) box->SetVisible(optRepetition_Weekly.Checked());
  for (Field* field : std::initializer_list<Field*>{&optMontlyRepeat_Days, &optMontlyRepeat_Day,
                                                    &cboRecurMontly, &cboDayOfWeek})
    field->SetVisible(monthly);
  for (Field* field : {&cboRecurMontly, &cboDayOfWeek})
    field->SetEnabled(optMontlyRepeat_Day.Checked());
  for (Field* field : std::initializer_list<Field*>{
           &txtStartDate, &cmdStartDate, &optDuration_RepeatUntil, &optDuration_StopAfter,
           &txtRepeatUntil, &cmdRepeatUntil, &txtStopAfter})
    field->SetVisible(repeats);
  for (Field* field : std::initializer_list<Field*>{&txtRepeatUntil, &cmdRepeatUntil})
    field->SetEnabled(optDuration_RepeatUntil.Checked());
  txtStopAfter.SetEnabled(optDuration_StopAfter.Checked());
  ShowFirstDates();
}

bool frmAddExpenses::HasDays() const {
  const auto repeat = RepeatOf();
  if (!repeat || repeat->kind == Repeat::Kind::MonthlyThe) return true;
  return repeat->kind == Repeat::Kind::Weekly
             ? std::ranges::any_of(repeat->weekdays, [](bool ticked) { return ticked; })
             : repeat->days.any();
}

std::optional<Repeat> frmAddExpenses::RepeatOf() const {
  const auto start = CellDate(txtStartDate.Text());
  const auto until = CellDate(txtRepeatUntil.Text());
  if (!start || (optDuration_RepeatUntil.Checked() && !until)) return std::nullopt;
  Repeat repeat{};
  repeat.kind = optRepetition_Weekly.Checked()   ? Repeat::Kind::Weekly
                : optMontlyRepeat_Days.Checked() ? Repeat::Kind::MonthlyDays
                                                 : Repeat::Kind::MonthlyThe;
  repeat.start = *start;
  if (optDuration_RepeatUntil.Checked()) repeat.until = until;
  repeat.times = ValInt(txtStopAfter.Text());
  for (std::size_t day = 0; day < chkDayOfWeek.size(); ++day)
    repeat.weekdays[day] = chkDayOfWeek[day]->Checked();
  for (int row = 0; row < kDayRows; ++row)
    for (int col = 0; col < kDayCols; ++col)
      if (fgRecurOnDays.Cell(CellSetting::flexcpChecked, row, col) == kTick)
        repeat.days.set(static_cast<std::size_t>(row * kDayCols + col + 1));
  repeat.which = cboRecurMontly.Text();
  repeat.weekday = cboDayOfWeek.Text();
  return repeat;
}

void frmAddExpenses::ShowFirstDates() {
  if (optRepetition_None.Checked()) return lblFirstDates.SetText("");
  const auto repeat = RepeatOf();
  if (!repeat) return lblFirstDates.SetText("The dates of the expense are shown here.");
  const std::vector<Date> days = DaysOfRepeat(*repeat);
  std::string text = std::to_string(days.size()) +
                     (days.size() == 1 ? " expense will be created" : " expenses will be created");
  for (std::size_t i = 0; i < std::min(days.size(), kShownDates); ++i)
    text += (i == 0 ? ": " : ", ") + CellText(days[i]);
  if (days.size() > kShownDates) text += " ... " + CellText(days.back());
  lblFirstDates.SetText(text + ".");
}

bool frmAddExpenses::Refuse(std::string_view mainPrompt, std::string_view minorPrompt) {
  ShowMessage(ledger, mainPrompt, minorPrompt);
  return false;
}

bool frmAddExpenses::Checked() {
  if (txtItem.Text().empty()) return Refuse("No expense 'Item' details have been entered.");
  if (txtExpenseDate.Text().empty()) return Refuse("No expense date has been entered.");
  if (optRepetition_None.Checked()) return true;
  const auto start = CellDate(txtStartDate.Text());
  if (optDuration_RepeatUntil.Checked()) {
    if (txtRepeatUntil.Text().empty()) return Refuse("No Repeat Until date has been entered.");
    const auto until = CellDate(txtRepeatUntil.Text());
    if (!until)
      return Refuse("No 'Repeat Until' date has been entered", "Please enter a valid date.");
    if (start && *until < *start)
      return Refuse("The 'Repeat Until' date is earlier than the 'Start' date.");
  } else if (ValInt(txtStopAfter.Text()) == 0) {
    return Refuse("Number of Occurrences has not been set",
                  "Please enter a number between 1 and 99.");
  }
  if (!start) return Refuse(kInvalidStartDate);
  if (HasDays()) return true;
  return Refuse("No days selected",
                "Please select the day(s) you would like the expense to be created on.");
}

void frmAddExpenses::Ok() {
  if (!Checked()) return;
  const bool once = optRepetition_None.Checked();
  const auto day = CellDate(txtExpenseDate.Text());
  const std::vector<Date> days =
      once ? std::vector<Date>(day ? 1 : 0, day.value_or(0)) : DaysOfRepeat(*RepeatOf());
  if (!days.empty())
    AddExpenses(ledger, {txtItem.Text(), txtAmount.Text(), txtCategory.ItemData(), txtNotes.Text()},
                days, !once);
  if (days.size() == 1)
    ShowMessage(ledger, "Expense Created", "One new expense created.", Buttons::Ok, Icon::Done);
  else
    ShowMessage(ledger, "Expenses Created", std::to_string(days.size()) + " new expenses created.",
                Buttons::Ok, Icon::Done);
  Close();
}

}  // namespace lm
