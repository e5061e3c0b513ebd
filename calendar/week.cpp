// Week: seven days against the hours. The headings hold the days and, below them, a line for each
// layer of events.
#include <algorithm>
#include <cmath>

#include "calendar/timeslots.h"
#include "calendar/views.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr int kDays = 7;
constexpr int kFixedCols = 1;
constexpr int kFewestFixedRows = 2;
constexpr int kHourWidth = 600;  // twips

void WriteHeadings(const CalendarPeriod& period, const TimeSlots& slots, Grid& grid) {
  for (int day = 0; day < kDays; ++day) {
    const Date date = period.weekStart + day;
    grid.SetTextMatrix(0, kFixedCols + day,
                       FormatDate(date, "d mmm") + "\r\n" + FormatDate(date, "dddd"));
    grid.SetCell(CellSetting::flexcpAlignment, 0, kFixedCols + day,
                 PlainText(static_cast<int>(Alignment::Centre)));
    grid.SetColHidden(kFixedCols + day, day >= kDays - 2 && !period.showWeekends);
  }
  grid.SetColWidth(0, kHourWidth);
  const int last = grid.Rows() - 1;
  for (int slot = 0; slot < slots.Count(); ++slot)
    grid.SetTextMatrix(grid.FixedRows() + slot, 0, slots.TimeOf(slot).substr(0, 2));
  grid.SetCell(CellSetting::flexcpFontBold, {grid.FixedRows(), 0, last, 0}, "TRUE");
  grid.SetCell(CellSetting::flexcpAlignment, {grid.FixedRows(), 0, last, 0},
               PlainText(static_cast<int>(Alignment::Centre)));
}

// The shade of the early and the late hours lies over the weekend, today over both.
void PaintGround(const Ledger& ledger, const CalendarPeriod& period, const TimeSlots& slots,
                 Grid& grid) {
  const int first = grid.FixedRows(), last = grid.Rows() - 1, lastCol = kFixedCols + kDays - 1;
  const auto paint = [&](const CellRange& range, Colour colour) {
    grid.SetCellColour(CellSetting::flexcpBackColor, range, colour);
  };
  paint({first, kFixedCols, last, lastCol}, OptionColour(ledger, optColourWorkday));
  paint({first, lastCol - 1, last, lastCol}, OptionColour(ledger, optColourWeekends));
  for (int slot = 0; slot < slots.Count(); ++slot)
    if (!slots.InWorkingHours(slot))
      paint({first + slot, kFixedCols, first + slot, lastCol}, kOutOfHours);
  const int today = static_cast<int>(std::floor(ledger.platform.clock.Now()) - period.weekStart);
  if (today >= 0 && today < kDays)
    paint({first, kFixedCols + today, last, kFixedCols + today},
          OptionColour(ledger, optColourToday));
}

void ShowEvents(const std::vector<PlacedEvent>& events, const CalendarPeriod& period, Grid& grid) {
  for (const PlacedEvent& placed : events)
    for (Date day = placed.event.start; day <= placed.event.end; ++day)
      ShowRecord(grid, {1 + placed.line, kFixedCols + static_cast<int>(day - period.weekStart)},
                 placed.event.colour, EventTag(placed.event.id), placed.event.title);
}

void ShowSessions(const CalendarRecords& records, const CalendarPeriod& period,
                  const TimeSlots& slots, Grid& grid) {
  const SessionLook look(records.ledger);
  std::vector<std::vector<bool>> taken(
      kDays, std::vector<bool>(static_cast<std::size_t>(slots.Count()), false));
  for (const CalendarSession& session :
       records.SessionsBetween(period.weekStart, period.weekStart + kDays - 1, true)) {
    const std::string start = look.Text(session.row, "STIME"),
                      end = look.Text(session.row, "ETIME");
    for (int day = 0; day < kDays; ++day) {
      auto& slotsOfDay = taken[static_cast<std::size_t>(day)];
      const auto wanted = slots.Of(session, period.weekStart + day, start, end);
      const auto block = wanted ? FreeRange(slotsOfDay, *wanted) : std::nullopt;
      if (!block) continue;
      std::string text = look.PracticeName(session.row);
      const std::string times = TimesText(start, end);
      if (block->last > block->first && !times.empty()) text += "\r\n    " + times;
      for (int slot = block->first; slot <= block->last; ++slot) {
        ShowRecord(grid, {grid.FixedRows() + slot, kFixedCols + day}, look.ColourOf(session.row),
                   SessionTag(look.Text(session.row, "ID")), text);
        slotsOfDay[static_cast<std::size_t>(slot)] = true;
      }
      grid.SetCell(CellSetting::flexcpPicture, grid.FixedRows() + block->first, kFixedCols + day,
                   look.IconOf(session.row));
    }
  }
}

}  // namespace

void FillWeek(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const Ledger& ledger = records.ledger;
  const TimeSlots slots(RowsPerHour(ledger));
  const auto events =
      PackEvents(EventsBetween(ledger, period.weekStart, period.weekStart + kDays - 1));
  const int fixedRows = std::max(kFewestFixedRows, 1 + LinesOf(events));
  StartView(grid, fixedRows, kFixedCols, fixedRows + slots.Count(), kFixedCols + kDays);
  WriteHeadings(period, slots, grid);
  PaintGround(ledger, period, slots, grid);
  ShowEvents(events, period, grid);
  ShowSessions(records, period, slots, grid);
  for (int row = 1; row < fixedRows; ++row) grid.SetMergeRow(row, true);
  for (int col = 0; col < grid.Cols(); ++col) grid.SetMergeCol(col, true);
  KeepApartAcross(grid, 1, fixedRows - 1);
  KeepApartDown(grid, 1, fixedRows - 1);
  KeepApartDown(grid, fixedRows, grid.Rows() - 1);
}

}  // namespace lm
