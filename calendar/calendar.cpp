#include "calendar/calendar.h"

#include <algorithm>
#include <cmath>

#include "core/eventcategories.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr int kFirstYear = 1900, kLastYear = 9998;  // whose last week ends within the calendar
constexpr int kFewestRowsPerDay = 2, kMostRowsPerDay = 40;
constexpr Colour kWhite = Rgb(255, 255, 255);

}  // namespace

// The period

Date MondayOf(Date day) { return std::floor(day) - WeekdayMondayFirst(day) + 1; }

Date CalendarPeriod::FirstCell() const { return MondayOf(FirstOfMonth()); }

void CalendarPeriod::GoTo(Date day) {
  const CivilDate civil =
      ToCivilDate(std::clamp(day, DateSerial(kFirstYear, 1, 1), DateSerial(kLastYear, 12, 31)));
  month = civil.month;
  year = civil.year;
  weekStart = MondayOf(day);
}

void CalendarPeriod::Move(CalendarView view, int direction) {
  const CalendarPeriod before = *this;
  if (view == CalendarView::Week) {
    GoTo(weekStart + 7 * direction);
  } else if (view == CalendarView::Year) {
    year += direction;
  } else {
    const CivilDate civil = ToCivilDate(AddMonths(FirstOfMonth(), direction));
    month = civil.month;
    year = civil.year;
  }
  if (year < kFirstYear || year > kLastYear) *this = before;
}

int RowsPerHour(const Ledger& ledger) {
  const int rows = ValInt(GetOption(ledger, optRowsPerHour));
  return rows == 3 || rows == 4 || rows == 6 ? rows : 2;
}

int RowsPerDay(const Ledger& ledger) {
  return std::clamp(ValInt(GetOption(ledger, optRowsPerDay)), kFewestRowsPerDay, kMostRowsPerDay);
}

// Tags

std::string SessionTag(std::string_view id) { return "S" + std::string(id); }
std::string EventTag(std::string_view id) { return "E" + std::string(id); }

char KindOf(std::string_view tag) { return tag.empty() ? '\0' : tag.front(); }

std::vector<TaggedRecord> RecordsOf(std::string_view tag) {
  std::vector<TaggedRecord> records;
  for (const std::string_view part : Split(tag, '|'))
    if (!part.empty() && part != "Z")
      records.push_back({part.front(), std::string(part.substr(1))});
  return records;
}

// Records

CalendarRecords::CalendarRecords(Ledger& theLedger)
    : ledger(theLedger), sessions_(theLedger.fgSessions) {
  sessions_.AddObserver(*this);
}

CalendarRecords::~CalendarRecords() { sessions_.RemoveObserver(*this); }

void CalendarRecords::ReadDays() const {
  byStart_.clear();
  longest_ = 0;
  const int startCol = sessions_.ColIndex("SDATE"), endCol = sessions_.ColIndex("EDATE");
  for (const int row : Records(sessions_)) {
    const auto start = CellDate(sessions_.TextMatrix(row, startCol));
    if (!start) continue;
    const auto end = CellDate(sessions_.TextMatrix(row, endCol));
    byStart_.push_back({row, *start, end && *end > *start ? *end : *start});
    longest_ = std::max(longest_, byStart_.back().end - *start);
  }
  std::ranges::stable_sort(byStart_, {}, &CalendarSession::start);
  stale_ = false;
}

std::vector<CalendarSession> CalendarRecords::SessionsBetween(Date first, Date last,
                                                              bool overnight) const {
  // While the table tells nothing it may hold anything.
  if (stale_ || !sessions_.Redraw()) ReadDays();
  auto session = std::ranges::lower_bound(byStart_, overnight ? first - longest_ : first, {},
                                          &CalendarSession::start);
  std::vector<CalendarSession> found;
  for (; session != byStart_.end() && session->start <= last; ++session)
    if (session->end >= first) found.push_back(*session);
  std::ranges::sort(found, {}, &CalendarSession::row);
  return found;
}

std::vector<CalendarEvent> EventsBetween(const Ledger& ledger, Date first, Date last,
                                         EventDays days) {
  const bool clipped = days == EventDays::WithinPeriod;
  const Grid& events = ledger.fgEvents;
  const int startCol = events.ColIndex("SDATE"), endCol = events.ColIndex("EDATE");
  const auto categories = EventCategories(ledger);
  std::vector<CalendarEvent> found;
  for (const int row : Records(events)) {
    const auto start = CellDate(events.TextMatrix(row, startCol));
    if (!start || *start > last) continue;
    const auto stored = CellDate(events.TextMatrix(row, endCol));
    const Date end = stored && *stored > *start ? *stored : *start;
    if (end < first) continue;
    const std::string code = events.TextMatrix(row, "CATEGORY");
    const auto category = std::ranges::find_if(
        categories, [&](const EventCategory& each) { return each.code == ValInt(code); });
    found.push_back({events.TextMatrix(row, "ID"), events.TextMatrix(row, "TITLE"),
                     clipped ? std::max(*start, first) : *start,
                     clipped ? std::min(end, last) : end,
                     category == categories.end() || Trim(code).empty() ? 0 : category->colour});
  }
  std::ranges::stable_sort(found, {}, &CalendarEvent::start);
  return found;
}

std::vector<PlacedEvent> PackEvents(std::vector<CalendarEvent> events) {
  std::vector<PlacedEvent> placed;
  for (int line = 0; !events.empty(); ++line) {
    Date free = events.front().start;
    std::vector<CalendarEvent> left;
    for (CalendarEvent& event : events) {
      if (event.start < free) {
        left.push_back(std::move(event));
        continue;
      }
      free = event.end + 1;
      placed.push_back({std::move(event), line});
    }
    events = std::move(left);
  }
  return placed;
}

int LinesOf(const std::vector<PlacedEvent>& events) {
  return events.empty() ? 0 : events.back().line + 1;
}

// The look of sessions

SessionLook::SessionLook(const Ledger& ledger)
    : ledger_(ledger),
      byType_(GetOption(ledger, optCalendarColouredBy) == "SESS_TYPE"),
      icons_(OptionIsTrue(ledger, optShowSessionStatusIcons)),
      practices_(ledger.fgPractices.RowsBy("ID")) {}

std::string SessionLook::Text(int sessionRow, std::string_view key) const {
  return ledger_.fgSessions.TextMatrix(sessionRow, key);
}

Colour SessionLook::ColourOf(int sessionRow) const {
  if (!byType_) return StatusColour(sessionRow);
  const SessionType* type = FindSessionType(ValInt(Text(sessionRow, "SESS_TYPE")));
  return OptionColour(ledger_, type ? type->colour : optColourSessPrivate);
}

// A session whose invoice is lost was invoiced, and not paid as far as anybody knows.
Colour SessionLook::StatusColour(int sessionRow) const {
  const std::string invoice = Text(sessionRow, "INVOICE");
  if (invoice.empty()) return OptionColour(ledger_, optColourUninvoiced);
  if (!invoices_) invoices_ = ledger_.fgInvoices.RowsBy("ID");
  const auto row = invoices_->find(invoice);
  const bool paid =
      row != invoices_->end() && !ledger_.fgInvoices.TextMatrix(row->second, "PAYDATE").empty();
  return OptionColour(ledger_, paid ? optColourInvoicedPaid : optColourInvoicedUnpaid);
}

std::string SessionLook::IconOf(int sessionRow) const {
  if (!icons_) return "";
  const bool invoiced = !Text(sessionRow, "INVOICE").empty();
  const bool pensioned = !Text(sessionRow, "FORMS").empty();
  return invoiced ? (pensioned ? "3" : "1") : (pensioned ? "2" : "");
}

std::string SessionLook::PracticeName(int sessionRow) const {
  const auto row = practices_.find(Text(sessionRow, "PRACTICE"));
  return row == practices_.end() ? "" : ledger_.fgPractices.TextMatrix(row->second, "NAME");
}

// Cells

Colour OptionColour(const Ledger& ledger, int option) { return ValInt(GetOption(ledger, option)); }

Colour TextColourOn(Colour ground) {
  const double light =
      0.299 * (ground & 0xFF) + 0.587 * (ground >> 8 & 0xFF) + 0.114 * (ground >> 16 & 0xFF);
  return light < 0.55 * 255 ? kWhite : kNoColour;
}

void ShowRecord(Grid& grid, CellPlace cell, Colour ground, std::string_view tag,
                std::string_view text) {
  const CellRange place{cell.row, cell.col, cell.row, cell.col};
  grid.SetTextMatrix(cell.row, cell.col, text);
  grid.SetCellColour(CellSetting::flexcpBackColor, place, ground);
  grid.SetCellColour(CellSetting::flexcpForeColor, place, TextColourOn(ground));
  grid.SetCell(CellSetting::flexcpData, cell.row, cell.col, tag);
}

std::string TagAt(const Grid& grid, int row, int col) {
  const std::string data = grid.Cell(CellSetting::flexcpData, row, col);
  const char kind = KindOf(data);
  return kind == 'S' || kind == 'E' || kind == 'Z' ? data : "";
}

void StartView(Grid& grid, int fixedRows, int fixedCols, int rows, int cols) {
  grid.SetRows(0);
  grid.SetCols(0);
  grid.SetCols(cols);
  grid.SetRows(rows);
  grid.SetFixedRows(fixedRows);
  grid.SetFixedCols(fixedCols);
  grid.SetMergeCells(MergeSetting::Free);
  grid.SetCellColour(CellSetting::flexcpBackColor, {0, 0, fixedRows - 1, cols - 1}, kHeadingGround);
  grid.SetCellColour(CellSetting::flexcpBackColor, {0, 0, rows - 1, fixedCols - 1}, kHeadingGround);
}

namespace {

// A record's cells, from this one on in one direction, get a blank in front.
void PutBlankInFront(Grid& grid, CellPlace cell, bool down) {
  const std::string tag = TagAt(grid, cell.row, cell.col);
  const std::string text = " " + grid.TextMatrix(cell.row, cell.col);
  while (cell.row < grid.Rows() && cell.col < grid.Cols() &&
         TagAt(grid, cell.row, cell.col) == tag) {
    grid.SetTextMatrix(cell.row, cell.col, text);
    ++(down ? cell.row : cell.col);
  }
}

bool LookLikeOne(const Grid& grid, CellPlace one, CellPlace other) {
  const std::string text = grid.TextMatrix(one.row, one.col);
  return !text.empty() && text == grid.TextMatrix(other.row, other.col) &&
         TagAt(grid, one.row, one.col) != TagAt(grid, other.row, other.col);
}

}  // namespace

void KeepApartAcross(Grid& grid, int firstRow, int lastRow) {
  for (int row = firstRow; row <= lastRow; ++row)
    for (int col = grid.FixedCols(); col < grid.Cols(); ++col) {
      if (col > grid.FixedCols() && LookLikeOne(grid, {row, col - 1}, {row, col}))
        PutBlankInFront(grid, {row, col}, false);
      if (KindOf(TagAt(grid, row, col)) == 'E')
        grid.SetCell(CellSetting::flexcpAlignment, row, col,
                     PlainText(static_cast<int>(Alignment::Centre)));
    }
}

void KeepApartDown(Grid& grid, int firstRow, int lastRow) {
  for (int col = grid.FixedCols(); col < grid.Cols(); ++col)
    for (int row = firstRow + 1; row <= lastRow; ++row)
      if (LookLikeOne(grid, {row - 1, col}, {row, col})) PutBlankInFront(grid, {row, col}, true);
}

}  // namespace lm
