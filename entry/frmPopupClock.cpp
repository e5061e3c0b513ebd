#include "entry/frmPopupClock.h"

#include "core/dates.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr int kHours = 12;
constexpr int kMinutes = 60;
constexpr int kMinuteStep = 5;
constexpr int kColumns = 6;
constexpr int kHourRows = kHours / kColumns;
constexpr int kRows = 2 * kHourRows;
constexpr Colour kChosenColour = Rgb(255, 224, 130);

// Virtual key codes.
constexpr int kLeft = 37, kUp = 38, kRight = 39, kDown = 40;

std::string HourText(int hour) { return PlainText(hour == 0 ? kHours : hour); }
std::string MinuteText(int minute) { return PadLeft(PlainText(minute), 2, '0'); }
std::string HalfText(std::string_view half, bool chosen) {
  return std::string(chosen ? "• "_w : "") + std::string(half);
}

}  // namespace

frmPopupClock::frmPopupClock(Ledger& theLedger, std::string_view caption)
    : PopupPicker(theLedger, "frmPopupClock", caption) {
  lblColon.SetText(":");
  cmdOK.SetText("OK");
  cmdCancel.SetText("Cancel");
  defaultButton = &cmdOK;
  cancelButton = &cmdCancel;
  AddGrid(fg);

  fg.SetRows(kRows);
  fg.SetCols(kColumns);
  for (int i = 0; i < kHours; ++i) {
    fg.SetTextMatrix(i / kColumns, i % kColumns, HourText(i));
    fg.SetTextMatrix(kHourRows + i / kColumns, i % kColumns, MinuteText(i * kMinuteStep));
  }
  for (int col = 0; col < kColumns; ++col) fg.SetColAlignment(col, Alignment::Centre);

  lblMins.onPressed = [this] { MoveMinutes(1); };
  lblAM.onPressed = [this] { SetHalf(false); };
  lblPM.onPressed = [this] { SetHalf(true); };
  cmdOK.onPressed = [this] {
    CloseWith(CellTimeText(TimeSerial(hour_ + (pm_ ? 12 : 0), minute_)));
  };
  cmdCancel.onPressed = [this] { Close(); };
}

void frmPopupClock::StartFrom(std::string_view text) {
  const CivilTime time = ToCivilTime(CellTime(text).value_or(TimeSerial(9, 0)));
  hour_ = time.hour % kHours;
  minute_ = time.minute;
  SetHalf(time.hour >= kHours);
}

void frmPopupClock::MoveHour(int hours) {
  hour_ = ((hour_ + hours) % kHours + kHours) % kHours;
  ShowTime();
}

void frmPopupClock::MoveMinutes(int minutes) {
  minute_ = ((minute_ + minutes) % kMinutes + kMinutes) % kMinutes;
  ShowTime();
}

void frmPopupClock::SetHalf(bool pm) {
  pm_ = pm;
  ShowTime();
}

void frmPopupClock::ShowTime() {
  lblHour.SetText(HourText(hour_));
  lblMins.SetText(MinuteText(minute_));
  lblAM.SetText(HalfText("AM", !pm_));
  lblPM.SetText(HalfText("PM", pm_));

  const RedrawOff redraw(fg);
  const auto mark = [&](int firstRow, int index) {
    const int row = firstRow + index / kColumns;
    const int col = index % kColumns;
    fg.SetCellColour(CellSetting::flexcpBackColor, {row, col, row, col}, kChosenColour);
  };
  fg.SetCellColour(CellSetting::flexcpBackColor, {0, 0, kRows - 1, kColumns - 1}, kNoColour);
  mark(0, hour_);
  if (minute_ % kMinuteStep == 0) mark(kHourRows, minute_ / kMinuteStep);
}

void frmPopupClock::CellClicked(Grid& /*grid*/, int row, int col) {
  if (row < 0 || row >= kRows || col < 0 || col >= kColumns) return;
  if (row < kHourRows)
    hour_ = row * kColumns + col;
  else
    minute_ = ((row - kHourRows) * kColumns + col) * kMinuteStep;
  ShowTime();
}

bool frmPopupClock::KeyPressed(int key, char character) {
  switch (key) {
    case kLeft:
      MoveHour(-1);
      return true;
    case kRight:
      MoveHour(+1);
      return true;
    case kUp:
      MoveMinutes(+1);
      return true;
    case kDown:
      MoveMinutes(-1);
      return true;
    default:
      break;
  }
  const char half = ToUpper(character);
  if (half == 'A' || half == 'P') SetHalf(half == 'P');
  return half == 'A' || half == 'P';
}

}  // namespace lm
