#include "entry/frmPopupCalendar.h"

#include <cmath>

#include "core/format.h"
#include "core/numbers.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr int kWeeks = 6;
constexpr int kDays = 7;
constexpr const char* kHeadings[kDays] = {"Mo", "Tu", "We", "Th", "Fr", "Sa", "Su"};
constexpr int kMonthRows = 3;
constexpr int kMonthCols = 4;
constexpr Colour kTodayColour = Rgb(255, 224, 130);

// The years that a typed date may have.
Date FirstDay() { return DateSerial(1900, 1, 1); }
Date LastDay() { return DateSerial(2199, 12, 31); }

// Virtual key codes.
struct KeyStep {
  int key;
  int days;
};
constexpr KeyStep kArrows[] = {{37, -1}, {38, -kDays}, {39, 1}, {40, kDays}};
constexpr int kPageUp = 33, kPageDown = 34, kEnter = 13;

}  // namespace

frmPopupCalendar::frmPopupCalendar(Ledger& theLedger, std::string_view caption)
    : PopupPicker(theLedger, "frmPopupCalendar", caption) {
  cmdMonthDown.SetText("<");
  cmdMonthUp.SetText(">");
  cmdToday.SetText("Today");
  cmdClear.SetText("Clear");
  AddGrid(fg);
  AddGrid(fgMonths);

  fg.SetRows(1 + kWeeks);
  fg.SetFixedRows(1);
  fg.SetCols(kDays);
  for (int col = 0; col < kDays; ++col) {
    fg.SetColKey(col, kHeadings[col]);
    fg.SetTextMatrix(0, col, kHeadings[col]);
    fg.SetColAlignment(col, Alignment::Centre);
  }
  fgMonths.SetCols(kMonthCols);
  for (int col = 0; col < kMonthCols; ++col) fgMonths.SetColAlignment(col, Alignment::Centre);

  lblMonth.onPressed = [this] { OpenMonths(!MonthsOpen()); };
  cmdMonthDown.onPressed = [this] { StepMonth(-1); };
  cmdMonthUp.onPressed = [this] { StepMonth(+1); };
  cmdToday.onPressed = [this] { CloseWith(CellText(std::floor(ledger.platform.clock.Now()))); };
  cmdClear.onPressed = [this] { CloseWith(""); };
}

void frmPopupCalendar::ChooseDate(std::string_view dateText, std::string& result) {
  result = PickFrom(dateText).value_or("");
}

void frmPopupCalendar::StartFrom(std::string_view text) {
  const std::optional<Date> date = CellDate(text);
  const bool shown = date && *date >= FirstDay() && *date < LastDay() + 1;
  OpenMonths(false);
  ShowDay(std::floor(shown ? *date : ledger.platform.clock.Now()));
}

void frmPopupCalendar::ShowDay(Date day) {
  day_ = std::clamp(day, FirstDay(), LastDay());
  FillMonth();
}

void frmPopupCalendar::MoveDay(int days) { ShowDay(day_ + days); }

void frmPopupCalendar::StepMonth(int direction) {
  ShowDay(AddMonths(day_, MonthsOpen() ? 12 * direction : direction));
}

void frmPopupCalendar::TakeDay() { CloseWith(CellText(day_)); }

void frmPopupCalendar::OpenMonths(bool open) {
  const RedrawOff redraw(fgMonths);
  fgMonths.SetRows(open ? kMonthRows : 0);
  for (int month = 0; open && month < kMonthRows * kMonthCols; ++month) {
    fgMonths.SetTextMatrix(month / kMonthCols, month % kMonthCols,
                           FormatDate(DateSerial(2000, month + 1, 1), "mmm"));
  }
}

void frmPopupCalendar::MonthClicked(int row, int col) {
  const int month = row * kMonthCols + col + 1;
  OpenMonths(false);
  ShowDay(DateSerial(ToCivilDate(day_).year, month, 1));
}

void frmPopupCalendar::FillMonth() {
  lblMonth.SetText(FormatDate(day_, "mmmm yyyy"));
  const Date today = std::floor(ledger.platform.clock.Now());
  const Date first = FirstOfMonth(day_);
  const Date last = LastOfMonth(day_);
  const Date topLeft = first - (WeekdayMondayFirst(first) - 1);

  const RedrawOff redraw(fg);
  for (int i = 0; i < kWeeks * kDays; ++i) {
    const Date date = topLeft + i;
    const bool inMonth = date >= first && date <= last;
    const int row = 1 + i / kDays;
    const int col = i % kDays;
    fg.SetTextMatrix(row, col, inMonth ? PlainText(ToCivilDate(date).day) : "");
    fg.SetCell(CellSetting::flexcpData, row, col, inMonth ? CellText(date) : "");
    fg.SetCellColour(CellSetting::flexcpBackColor, {row, col, row, col},
                     inMonth && date == today ? kTodayColour : kNoColour);
    if (date == day_) fg.Select(row, col);
  }
}

void frmPopupCalendar::CellClicked(Grid& grid, int row, int col) {
  if (row < grid.FixedRows() || row >= grid.Rows() || col < 0 || col >= grid.Cols()) return;
  if (&grid == &fgMonths) return MonthClicked(row, col);
  const std::string date = fg.Cell(CellSetting::flexcpData, row, col);
  if (!date.empty()) CloseWith(date);
}

bool frmPopupCalendar::KeyPressed(int key, char /*character*/) {
  for (const KeyStep& each : kArrows) {
    if (key != each.key) continue;
    MoveDay(each.days);
    return true;
  }
  switch (key) {
    case kPageUp:
      StepMonth(-1);
      return true;
    case kPageDown:
      StepMonth(+1);
      return true;
    case kEnter:
      TakeDay();
      return true;
    default:
      return false;
  }
}

}  // namespace lm
