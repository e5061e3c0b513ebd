// Detail: the days of a month against the quarter hours.
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

constexpr int kFixedRows = 1;
constexpr int kFixedCols = 2;
constexpr int kQuarters = 4;
constexpr int kDayWidth = 705, kMarginWidth = 450;  // twips
constexpr int kSaturday = 6;                        // Monday first

void WriteHeadings(const CalendarPeriod& period, const TimeSlots& slots, Grid& grid) {
  grid.SetColWidth(0, kDayWidth);
  grid.SetColWidth(1, kMarginWidth);
  grid.SetMergeRow(0, true);
  for (int slot = 0; slot < slots.Count(); ++slot)
    grid.SetTextMatrix(0, kFixedCols + slot, slots.TimeOf(slot).substr(0, 2));
  grid.SetCell(CellSetting::flexcpAlignment, {0, kFixedCols, 0, grid.Cols() - 1},
               PlainText(static_cast<int>(Alignment::Centre)));
  for (int day = 0; day < period.Days(); ++day) {
    const Date date = period.FirstOfMonth() + day;
    grid.SetTextMatrix(kFixedRows + day, 0, FormatDate(date, "d ddd"));
    grid.SetDataOfRow(kFixedRows + day, CellText(date));
  }
}

// The weekend lies over the shade of the early and the late hours, today over both.
void PaintGround(const Ledger& ledger, const CalendarPeriod& period, const TimeSlots& slots,
                 Grid& grid) {
  const int last = grid.Rows() - 1, lastCol = grid.Cols() - 1;
  const auto paint = [&](const CellRange& range, Colour colour) {
    grid.SetCellColour(CellSetting::flexcpBackColor, range, colour);
  };
  paint({kFixedRows, kFixedCols, last, lastCol}, OptionColour(ledger, optColourWorkday));
  const int begins = kFixedCols + kWorkBegins * slots.PerHour(),
            ends = kFixedCols + kWorkEnds * slots.PerHour();
  paint({kFixedRows, kFixedCols, last, begins - 1}, kOutOfHours);
  paint({kFixedRows, ends, last, lastCol}, kOutOfHours);
  const Date today = std::floor(ledger.platform.clock.Now());
  for (int day = 0; day < period.Days(); ++day) {
    const Date date = period.FirstOfMonth() + day;
    const CellRange row{kFixedRows + day, kFixedCols, kFixedRows + day, lastCol};
    if (WeekdayMondayFirst(date) >= kSaturday) paint(row, OptionColour(ledger, optColourWeekends));
    if (date == today) paint(row, OptionColour(ledger, optColourToday));
  }
}

std::string TextOf(const SessionLook& look, int sessionRow) {
  const std::string times =
      TimesText(look.Text(sessionRow, "STIME"), look.Text(sessionRow, "ETIME"));
  const std::string name = look.PracticeName(sessionRow);
  return times.empty() ? name : times + " " + name;
}

using TakenSlots = std::vector<std::vector<bool>>;  // by day

void ShowSessions(const CalendarRecords& records, const CalendarPeriod& period,
                  const TimeSlots& slots, TakenSlots& taken, Grid& grid) {
  const SessionLook look(records.ledger);
  const Date first = period.FirstOfMonth();
  for (const CalendarSession& session :
       records.SessionsBetween(first, first + period.Days() - 1, true)) {
    const int from = static_cast<int>(std::max(session.start, first) - first);
    const int to = static_cast<int>(std::min(session.end - first, period.Days() - 1.0));
    for (int day = from; day <= to; ++day) {
      auto& slotsOfDay = taken[static_cast<std::size_t>(day)];
      const auto wanted = slots.Of(session, first + day, look.Text(session.row, "STIME"),
                                   look.Text(session.row, "ETIME"));
      const auto block = wanted ? FreeRange(slotsOfDay, *wanted) : std::nullopt;
      if (!block) continue;
      for (int slot = block->first; slot <= block->last; ++slot) {
        ShowRecord(grid, {kFixedRows + day, kFixedCols + slot}, look.ColourOf(session.row),
                   SessionTag(look.Text(session.row, "ID")), TextOf(look, session.row));
        slotsOfDay[static_cast<std::size_t>(slot)] = true;
      }
      grid.SetCell(CellSetting::flexcpPicture, kFixedRows + day, kFixedCols + block->first,
                   look.IconOf(session.row));
    }
  }
}

// An event fills what the sessions of its days leave free, the earliest of several.
void ShowEvents(const Ledger& ledger, const CalendarPeriod& period, TakenSlots& taken, Grid& grid) {
  const Date first = period.FirstOfMonth();
  for (const CalendarEvent& event : EventsBetween(ledger, first, first + period.Days() - 1))
    for (Date date = event.start; date <= event.end; ++date) {
      const int day = static_cast<int>(date - first);
      auto& slotsOfDay = taken[static_cast<std::size_t>(day)];
      for (std::size_t slot = 0; slot < slotsOfDay.size(); ++slot)
        if (!slotsOfDay[slot])
          ShowRecord(grid, {kFixedRows + day, kFixedCols + static_cast<int>(slot)}, event.colour,
                     EventTag(event.id), event.title);
      slotsOfDay.assign(slotsOfDay.size(), true);
    }
}

}  // namespace

void FillDetail(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const Ledger& ledger = records.ledger;
  const TimeSlots slots(kQuarters);
  StartView(grid, kFixedRows, kFixedCols, kFixedRows + period.Days(), kFixedCols + slots.Count());
  WriteHeadings(period, slots, grid);
  PaintGround(ledger, period, slots, grid);
  TakenSlots taken(static_cast<std::size_t>(period.Days()),
                   std::vector<bool>(static_cast<std::size_t>(slots.Count()), false));
  ShowSessions(records, period, slots, taken, grid);
  ShowEvents(ledger, period, taken, grid);
  for (int row = kFixedRows; row < grid.Rows(); ++row) grid.SetMergeRow(row, true);
  KeepApartAcross(grid, kFixedRows, grid.Rows() - 1);
}

}  // namespace lm
