// Year: twelve months of three rows: the days with their events, the mornings and the afternoons.
#include <cmath>

#include "calendar/views.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr int kFixedRows = 1, kFixedCols = 1;
constexpr int kMonths = 12;
constexpr int kRowsOfMonth = 3;
constexpr int kCols = 38;         // a month of 31 days that begins on a Sunday
constexpr int kMonthWidth = 400;  // twips
constexpr std::string_view kLetters = "SMTWTFS";
constexpr std::string_view kNoon = "12:00";
constexpr Colour kNoDay = 0xFFFFFF;

char LetterOf(int col) { return kLetters[static_cast<std::size_t>(col) % kLetters.size()]; }

int RowOf(int month) { return kFixedRows + (month - 1) * kRowsOfMonth; }

CellPlace CellOf(Date date) {
  const CivilDate civil = ToCivilDate(date);
  const int offset = WeekdayMondayFirst(FirstOfMonth(date)) - 1;
  return {RowOf(civil.month), kFixedCols + offset + civil.day - 1};
}

void WriteMonth(const Ledger& ledger, Date first, Grid& grid) {
  const int row = CellOf(first).row;
  grid.SetCellColour(CellSetting::flexcpBackColor,
                     {row, kFixedCols, row + kRowsOfMonth - 1, kCols - 1}, kNoDay);
  for (int line = 0; line < kRowsOfMonth; ++line)
    grid.SetTextMatrix(row + line, 0, FormatDate(first, "mmm"));
  grid.SetCell(CellSetting::flexcpData, row, 0, std::to_string(WeekdayMondayFirst(first) - 1));
  for (Date date = first; date <= LastOfMonth(first); ++date) {
    const int col = CellOf(date).col;
    grid.SetTextMatrix(row, col, FormatDate(date, "d"));
    grid.SetCellColour(
        CellSetting::flexcpBackColor, {row, col, row + kRowsOfMonth - 1, col},
        OptionColour(ledger, LetterOf(col) == 'S' ? optColourWeekends : optColourWorkday));
  }
}

void Add(Grid& grid, CellPlace cell, Colour colour, const std::string& tag) {
  ShowRecord(grid, cell, colour, TagAt(grid, cell.row, cell.col) + tag + "|",
             grid.TextMatrix(cell.row, cell.col));
}

}  // namespace

void FillYear(const CalendarRecords& records, const CalendarPeriod& period, Grid& grid) {
  const Ledger& ledger = records.ledger;
  StartView(grid, kFixedRows, kFixedCols, kFixedRows + kMonths * kRowsOfMonth, kCols);
  grid.SetColWidth(0, kMonthWidth);
  grid.SetMergeCol(0, true);
  for (int col = kFixedCols; col < kCols; ++col)
    grid.SetTextMatrix(0, col, std::string(1, LetterOf(col)));
  grid.SetCell(CellSetting::flexcpAlignment, {0, 0, grid.Rows() - 1, kCols - 1},
               PlainText(static_cast<int>(Alignment::Right)));
  for (int month = 1; month <= kMonths; ++month)
    WriteMonth(ledger, DateSerial(period.year, month, 1), grid);

  const Date first = DateSerial(period.year, 1, 1), last = DateSerial(period.year, 12, 31);
  const SessionLook look(ledger);
  for (const CalendarSession& session : records.SessionsBetween(first, last)) {
    CellPlace cell = CellOf(session.start);
    cell.row += look.Text(session.row, "STIME") >= kNoon ? 2 : 1;
    Add(grid, cell, look.ColourOf(session.row), SessionTag(look.Text(session.row, "ID")));
  }
  for (const CalendarEvent& event : EventsBetween(ledger, first, last))
    for (Date day = event.start; day <= event.end; ++day)
      Add(grid, CellOf(day), event.colour, EventTag(event.id));
  const Date today = std::floor(ledger.platform.clock.Now());
  if (ToCivilDate(today).year != period.year) return;
  const CellPlace cell = CellOf(today);
  const CellRange place{cell.row, cell.col, cell.row, cell.col};
  const Colour colour = OptionColour(ledger, optColourToday);
  grid.SetCellColour(CellSetting::flexcpBackColor, place, colour);
  grid.SetCellColour(CellSetting::flexcpForeColor, place, TextColourOn(colour));
}

}  // namespace lm
