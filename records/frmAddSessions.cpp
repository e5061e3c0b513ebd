#include "records/frmAddSessions.h"

#include <algorithm>
#include <unordered_map>

#include "core/dates.h"
#include "core/format.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/sessiontypes.h"
#include "core/text.h"
#include "entry/checks.h"
#include "entry/pickedboxes.h"
#include "entry/pickers.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr int kLongestSpan = 366;  // days between the first and the last
constexpr Colour kExisting = Rgb(190, 190, 190);

}  // namespace

frmAddSessions::frmAddSessions(Ledger& theLedger)
    : Screen(theLedger, "frmAddSessions", "Add Sessions") {
  constexpr std::string_view kDays[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                        "Friday", "Saturday", "Sunday"};
  for (std::size_t day = 0; day < chkDay.size(); ++day) {
    chkDay[day] = std::make_unique<CheckField>(this, "chkDay" + std::to_string(day));
    chkDay[day]->onEntered = [this] {
      ShowSpan();
      return true;
    };
  }
  cboPractice.SetItems(PracticeItems(ledger));
  if (cboPractice.Count() == 1) cboPractice.SetSelected(0);
  cboSessType.SetItems(SessionTypeItems(ledger));
  cboSessType.SetSelected(0);
  const auto calculate = [this] {
    CalculateFee();
    ShowSpan();
    return true;
  };
  for (ComboField* combo : {&cboPractice, &cboSessType}) combo->onEntered = calculate;
  const auto showSpan = [this] {
    ShowSpan();
    return true;
  };
  BindDate({txtSDate, cmdSDate, "Start Date", kInvalidStartDate}, showSpan);
  BindDate({txtEDate, cmdEDate, "End Date", kInvalidEndDate}, showSpan);
  BindTime({txtSTime, cmdSTime, "Start Time", kInvalidStartTime}, calculate);
  BindTime({txtETime, cmdETime, "End Time", kInvalidEndTime}, calculate);
  txtRate.onEntered = [this] {
    const auto rate = EnterRate(ledger, txtRate.Text());
    if (rate) txtRate.SetText(*rate);
    return rate.has_value();
  };
  cmdRate.onPressed = [this] { OpenPicker(*this, txtRate, Picker::Numbers, "Rate"); };
  for (TextField* note : {&txtPrivateNote, &txtPublicNote}) note->multiLine = true;

  cmdOk.onPressed = [this] { Ok(); };
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "these sessions";

  fgSpan.SetRows(1);
  fgSpan.SetCols(8);
  fgSpan.SetFixedRows(1);
  fgSpan.SetColWidth(0, 1000);
  for (int day = 0; day < 7; ++day) {
    fgSpan.SetTextMatrix(0, day + 1, kDays[day].substr(0, 2));
    fgSpan.SetColWidth(day + 1, 440);
    fgSpan.SetColAlignment(day + 1, Alignment::Centre);
  }
  AddGrid(fgSpan);
  ShowSpan();
}

void frmAddSessions::CalculateFee() {
  const std::string fee = FeeOfRun(ledger, Run());
  if (!fee.empty()) txtRate.SetText(fee);
}

SessionRun frmAddSessions::Run() const {
  return {cboPractice.ItemData(), ValInt(cboSessType.ItemData()),
          txtSTime.Text(),        txtETime.Text(),
          txtRate.Text(),         txtPrivateNote.Text(),
          txtPublicNote.Text(),   chkMileageCharge.Checked()};
}

std::array<bool, 7> frmAddSessions::Weekdays() const {
  std::array<bool, 7> weekdays{};
  for (std::size_t day = 0; day < weekdays.size(); ++day) weekdays[day] = chkDay[day]->Checked();
  return weekdays;
}

std::optional<frmAddSessions::Span> frmAddSessions::DaysOfSpan() const {
  const auto first = CellDate(txtSDate.Text()), last = CellDate(txtEDate.Text());
  if (!first || !last || *first > *last || *last - *first > kLongestSpan) return std::nullopt;
  return Span{*first, *last};
}

void frmAddSessions::ShowSpan() {
  const auto span = DaysOfSpan();
  if (!span) {
    const RedrawOff redrawOff(fgSpan);
    fgSpan.SetRows(1);
    return lblCount.SetText("The sessions are shown here once their dates are entered.");
  }
  const RunDays days = DaysOfRun(ledger, span->first, span->last, Weekdays(), txtSTime.Text());
  FillSpan(*span, days);
  std::string text =
      Counted(std::ssize(days.made), "session will be created.", "sessions will be created.");
  if (!days.existing.empty())
    text +=
        " " + Counted(std::ssize(days.existing), "exists already (grey).", "exist already (grey).");
  lblCount.SetText(text);
}

// A week a row, from the Monday of the first; a month's name stands beside its first row.
void frmAddSessions::FillSpan(const Span& span, const RunDays& days) {
  const SessionType* type = FindSessionType(ValInt(cboSessType.ItemData()));
  const Colour made = ValInt(GetOption(ledger, type ? type->colour : optColourSessNormal));
  std::unordered_map<int, Colour> colours;
  for (const Date day : days.made) colours[static_cast<int>(day)] = made;
  for (const Date day : days.existing) colours[static_cast<int>(day)] = kExisting;

  const RedrawOff redrawOff(fgSpan);
  fgSpan.SetRows(1);
  int row = 0, month = 0;
  for (Date day = span.first; day <= span.last; ++day) {
    const int weekday = WeekdayMondayFirst(day);
    if (weekday == 1 || row == 0) row = fgSpan.AddItem("");
    const CivilDate civil = ToCivilDate(day);
    if (civil.month != month && fgSpan.TextMatrix(row, 0).empty()) {
      fgSpan.SetTextMatrix(row, 0, FormatDate(day, "mmm yyyy"));
      month = civil.month;
    }
    fgSpan.SetTextMatrix(row, weekday, std::to_string(civil.day));
    if (const auto colour = colours.find(static_cast<int>(day)); colour != colours.end())
      fgSpan.SetCellColour(CellSetting::flexcpBackColor, {row, weekday, row, weekday},
                           colour->second);
  }
}

// All that keeps the run from being made, a line each.
std::string frmAddSessions::WhatIsMissing() const {
  std::string missing;
  const auto add = [&](bool wrong, std::string_view text) {
    if (!wrong) return;
    if (!missing.empty()) missing += "\\n";
    missing += text;
  };
  const auto first = CellDate(txtSDate.Text()), last = CellDate(txtEDate.Text());
  add(cboPractice.Selected() < 0, "No practice selected.");
  add(!first, "No start date entered.");
  add(!last, "No end date entered.");
  add(txtSTime.Text().empty(), "No start time entered.");
  add(txtETime.Text().empty(), "No end time entered.");
  add(first && last && *first > *last, "Start date must be before the end date.");
  add(first && last && *last - *first > kLongestSpan,
      "The difference between the start date and the end date cannot be more than 1 year.");
  const auto miles =
      static_cast<Single>(Val(PracticeCell(ledger, cboPractice.ItemData(), "MILEAGE")));
  add(chkMileageCharge.Checked() && cboPractice.Selected() >= 0 && !(miles > 0),
      "No mileage to the Practice has been entered for this practice. This figure is required "
      "before a mileage charge can be included.\\n\\nTo add a mileage to the Practice, edit the "
      "Practice details on the Practice grid.");
  add(std::ranges::none_of(Weekdays(), [](bool ticked) { return ticked; }),
      "No days have been selected. Use the checkboxes to select which days you want the sessions "
      "created on.");
  return missing;
}

void frmAddSessions::Ok() {
  if (const std::string missing = WhatIsMissing(); !missing.empty()) {
    ShowMessage(ledger, "Incomplete Data", missing);
    return;
  }
  const Span span = *DaysOfSpan();
  const RunDays days = DaysOfRun(ledger, span.first, span.last, Weekdays(), txtSTime.Text());
  {
    const BusyPointer busy(ledger.platform);
    if (!days.made.empty()) CreateRun(ledger, Run(), days.made);
  }
  std::string said = std::to_string(days.made.size()) + " sessions created.";
  if (const std::size_t existed = days.existing.size(); existed == 1)
    said +=
        "\\n1 session already existed for the specified date and start time so was not created.";
  else if (existed > 1)
    said += "\\n" + std::to_string(existed) +
            " sessions already existed for the specified date and start time so were not created.";
  ShowMessage(ledger, "Create Sessions", said, Buttons::Ok, Icon::Information);
  Close();
}

}  // namespace lm
