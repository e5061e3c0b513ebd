// Month: six weeks of seven days, each day a band of lines: its number, events, then sessions. The
// last line stands for the records that had no room.
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
constexpr int kDays = 7;
constexpr int kWeeks = 6;

struct Band {
  int rowsPerDay;
  int FirstRow(int week) const { return kFixedRows + rowsPerDay * week; }
  int LastRow(int week) const { return FirstRow(week + 1) - 1; }
};

void WriteDays(const Ledger& ledger, const CalendarPeriod& period, const Band& band, Grid& grid) {
  const Date firstCell = period.FirstCell();
  const Date today = std::floor(ledger.platform.clock.Now());
  for (int cell = 0; cell < kWeeks * kDays; ++cell) {
    const Date date = firstCell + cell;
    const int week = cell / kDays, col = cell % kDays;
    const bool ofMonth = FirstOfMonth(date) == period.FirstOfMonth();
    const Colour ground =
        !ofMonth ? kOtherMonth
                 : OptionColour(ledger, col >= kDays - 2 ? optColourWeekends : optColourWorkday);
    grid.SetCellColour(CellSetting::flexcpBackColor,
                       {band.FirstRow(week), col, band.LastRow(week), col}, ground);
    const bool named = cell == 0 || ToCivilDate(date).day == 1;
    grid.SetTextMatrix(band.FirstRow(week), col, FormatDate(date, named ? "d mmm" : "d") + "  ");
    grid.SetCell(CellSetting::flexcpAlignment, band.FirstRow(week), col,
                 PlainText(static_cast<int>(Alignment::Right)));
    if (date == today && ofMonth)
      grid.SetCellColour(CellSetting::flexcpBackColor,
                         {band.FirstRow(week), col, band.FirstRow(week), col},
                         OptionColour(ledger, optColourToday));
  }
}

void WriteHeadings(const CalendarPeriod& period, Grid& grid) {
  for (int col = 0; col < kDays; ++col) {
    grid.SetTextMatrix(0, col, FormatDate(period.FirstCell() + col, "dddd"));
    grid.SetCell(CellSetting::flexcpAlignment, 0, col,
                 PlainText(static_cast<int>(Alignment::Centre)));
    grid.SetColHidden(col, col >= kDays - 2 && !period.showWeekends);
  }
}

// Lines that the band has no room for spill into the week below; its numbers stay readable.
void ShowEvents(const Ledger& ledger, const CalendarPeriod& period, const Band& band, Grid& grid) {
  for (int week = 0; week < kWeeks; ++week) {
    const Date monday = period.FirstCell() + week * kDays;
    for (const PlacedEvent& placed :
         PackEvents(EventsBetween(ledger, monday, monday + kDays - 1))) {
      const int row = band.FirstRow(week) + 1 + placed.line;
      if (row >= grid.Rows()) continue;
      const bool onNumbers = (row - kFixedRows) % band.rowsPerDay == 0;
      for (Date day = placed.event.start; day <= placed.event.end; ++day) {
        const int col = static_cast<int>(day - monday);
        ShowRecord(grid, {row, col}, placed.event.colour, EventTag(placed.event.id),
                   onNumbers ? grid.TextMatrix(row, col) : placed.event.title);
      }
    }
  }
}

std::string TextOf(const SessionLook& look, int sessionRow) {
  const std::string start = look.Text(sessionRow, "STIME"), end = look.Text(sessionRow, "ETIME");
  const std::string name = look.PracticeName(sessionRow);
  return start.empty() && end.empty() ? name : start + "-" + end + " " + name;
}

// The count of those that had no room; an event that stands there keeps its title and colour.
void ShowOverflow(Grid& grid, CellPlace cell, const std::string& sessionTag) {
  std::string tag = TagAt(grid, cell.row, cell.col);
  if (KindOf(tag) != 'Z') tag = "Z|" + (tag.empty() ? "" : tag + "|");
  tag += sessionTag + "|";
  grid.SetCell(CellSetting::flexcpData, cell.row, cell.col, tag);
  const auto records = RecordsOf(tag);
  if (records.front().kind == 'S')
    grid.SetTextMatrix(cell.row, cell.col, "+" + std::to_string(records.size()));
}

void ShowSessions(const CalendarRecords& records, const CalendarPeriod& period, const Band& band,
                  Grid& grid) {
  const SessionLook look(records.ledger);
  const Date firstCell = period.FirstCell();
  for (const CalendarSession& session :
       records.SessionsBetween(firstCell, firstCell + kWeeks * kDays - 1)) {
    const int day = static_cast<int>(session.start - firstCell);
    const int week = day / kDays, col = day % kDays;
    const std::string tag = SessionTag(look.Text(session.row, "ID"));
    int row = band.FirstRow(week) + 1;
    while (row < band.LastRow(week) && !TagAt(grid, row, col).empty()) ++row;
    if (row >= band.LastRow(week)) {
      ShowOverflow(grid, {band.LastRow(week), col}, tag);
      continue;
    }
    ShowRecord(grid, {row, col}, look.ColourOf(session.row), tag + "|", TextOf(look, session.row));
    grid.SetCell(CellSetting::flexcpPicture, row, col, look.IconOf(session.row));
  }
}

}  // namespace

void FillMonth(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const Ledger& ledger = records.ledger;
  const Band band{RowsPerDay(ledger)};
  StartView(grid, kFixedRows, 0, kFixedRows + band.rowsPerDay * kWeeks, kDays);
  WriteHeadings(period, grid);
  WriteDays(ledger, period, band, grid);
  ShowEvents(ledger, period, band, grid);
  ShowSessions(records, period, band, grid);
  for (int row = kFixedRows; row < grid.Rows(); ++row) grid.SetMergeRow(row, true);
  KeepApartAcross(grid, kFixedRows, grid.Rows() - 1);
}

}  // namespace lm
