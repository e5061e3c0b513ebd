// What the five calendar views share: the period in sight, the tags of their cells, the colours and
// the status of sessions, and the records of a period. The views hold no data of their own: each is
// filled anew from the tables.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

enum class CalendarView { Week, Detail, Month, Planner, Year };  // in the order of the tabs

struct CalendarPeriod {
  int month = 1;       // 1 to 12, with the year: of all views but Week
  int year = 1900;     // 1900 to 9999
  Date weekStart = 0;  // a Monday, of Week
  bool showWeekends = true;
  bool showEmptyRows = true;  // of Planner

  Date FirstOfMonth() const { return DateSerial(year, month, 1); }
  int Days() const { return DaysInMonth(year, month); }
  // The first cell of Month: the Monday on or before the first.
  Date FirstCell() const;
  void GoTo(Date day);
  // On to the next week, month or year of the view, +1, or the one before, -1.
  void Move(CalendarView view, int direction);
};

Date MondayOf(Date day);
int RowsPerHour(const Ledger& ledger);  // of Week: 2, 3, 4 or 6
int RowsPerDay(const Ledger& ledger);   // of Month, the line with the day's number included

// ---- Tags. A cell that shows a record bears "S" or "E" and its ID in its data; "S4|S5|" stands
// for several, and "Z|S4|S5|" for those of a day that has no room for them.

std::string SessionTag(std::string_view id);
std::string EventTag(std::string_view id);
// 'S', 'E' or 'Z'; 0 for a cell without a record.
char KindOf(std::string_view tag);
struct TaggedRecord {
  char kind = 0;
  std::string id;
};
// In the order of the tag, without the "Z".
std::vector<TaggedRecord> RecordsOf(std::string_view tag);

// ---- The records of a period, both days included.

struct CalendarSession {
  int row = -1;  // of fgSessions
  Date start = 0;
  Date end = 0;  // the day of EDATE; that of the start where there is none, or it comes before
};
// The records that the calendars show, with the sessions' days kept in order, so that a view costs
// what its period holds and not what the file does. Ledger and records go together.
class CalendarRecords : private GridObserver {
 public:
  explicit CalendarRecords(Ledger& ledger);
  ~CalendarRecords() override;
  CalendarRecords(const CalendarRecords&) = delete;
  CalendarRecords& operator=(const CalendarRecords&) = delete;

  const Ledger& ledger;

  // The sessions that begin in the period, in the order of the table; with `overnight` also those
  // that began before and last into it.
  std::vector<CalendarSession> SessionsBetween(Date first, Date last, bool overnight = false) const;

 private:
  void ReadDays() const;
  void CellsChanged(Grid&, const CellRange&) override { stale_ = true; }
  void RowsInserted(Grid&, int, int) override { stale_ = true; }
  void RowsRemoved(Grid&, int, int) override { stale_ = true; }
  void LayoutChanged(Grid&) override {}
  void CursorMoved(Grid&) override {}
  void GridReset(Grid&) override { stale_ = true; }

  Grid& sessions_;
  mutable std::vector<CalendarSession> byStart_;
  mutable Date longest_ = 0;  // days from a session's start to its end
  mutable bool stale_ = true;
};

struct CalendarEvent {
  std::string id, title;
  Date start = 0, end = 0;
  Colour colour = 0;
};
// Whether events that reach out of a period are told with its days alone or with all of theirs.
enum class EventDays { WithinPeriod, All };
// Those that touch the period, by the day on which they start, ties in the order of the table.
std::vector<CalendarEvent> EventsBetween(const Ledger& ledger, Date first, Date last,
                                         EventDays days = EventDays::WithinPeriod);

struct PlacedEvent {
  CalendarEvent event;
  int line = 0;  // from 0
};
// Packs events into lines, the earliest first, each line taking what fits behind it.
std::vector<PlacedEvent> PackEvents(std::vector<CalendarEvent> events);
int LinesOf(const std::vector<PlacedEvent>& events);

// ---- What sessions look like, looked up once for a fill.

class SessionLook {
 public:
  explicit SessionLook(const Ledger& ledger);
  // By the type or by the state of the invoice, as the options say.
  Colour ColourOf(int sessionRow) const;
  // "1" invoiced, "2" on a pension form, "3" both; "" for neither, or where icons are off.
  std::string IconOf(int sessionRow) const;
  std::string PracticeName(int sessionRow) const;  // "" for a practice that is gone
  std::string Text(int sessionRow, std::string_view key) const;

 private:
  Colour StatusColour(int sessionRow) const;

  const Ledger& ledger_;
  bool byType_, icons_;
  std::unordered_map<std::string, int> practices_;
  mutable std::optional<std::unordered_map<std::string, int>> invoices_;  // when first asked for
};

// ---- Cells.

constexpr Colour kHeadingGround = 0xAAAAAA;
constexpr Colour kOutOfHours = 0xD6FFFF;
constexpr Colour kOtherMonth = 0xFFC8C8;

struct CellPlace {
  int row = -1;
  int col = -1;
  bool operator==(const CellPlace&) const = default;
};

Colour OptionColour(const Ledger& ledger, int option);
// Black or white, whichever is read better; kNoColour for black, the views' own.
Colour TextColourOn(Colour ground);
void ShowRecord(Grid& grid, CellPlace cell, Colour ground, std::string_view tag,
                std::string_view text);
std::string TagAt(const Grid& grid, int row, int col);
// The grid with so many rows and columns, its headings grey and its cells empty.
void StartView(Grid& grid, int fixedRows, int fixedCols, int rows, int cols);
// Neighbours of one text that are different records get a leading blank, so that they are not drawn
// as one: side by side, where events are centred too, or one below the other.
void KeepApartAcross(Grid& grid, int firstRow, int lastRow);
void KeepApartDown(Grid& grid, int firstRow, int lastRow);

}  // namespace lm
