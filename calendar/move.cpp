#include "calendar/move.h"

#include <cmath>

#include "core/change.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/rows.h"

namespace lm {
namespace {

struct Span {
  std::string startDate, startTime, endDate, endTime;
};

Span SpanOf(const Grid& sessions, int row) {
  return {sessions.TextMatrix(row, "SDATE"), sessions.TextMatrix(row, "STIME"),
          sessions.TextMatrix(row, "EDATE"), sessions.TextMatrix(row, "ETIME")};
}

// Of a session with both times, in days; midnight without an end date is that at the end of the
// day. Nothing without both times, and for an end before the start.
std::optional<Date> LengthOf(const Span& span) {
  const auto start = CellDate(span.startDate), startTime = CellTime(span.startTime);
  const auto endTime = CellTime(span.endTime);
  if (!start || !startTime || !endTime) return std::nullopt;
  const auto endDate = CellDate(span.endDate);
  const Date midnight = !endDate && *endTime == 0 ? 1 : 0;
  const Date length = endDate.value_or(*start) + *endTime + midnight - (*start + *startTime);
  return length < 0 ? std::nullopt : std::optional(length);
}

Span Moved(const Span& span, Date day, std::string_view time) {
  Span moved = span;
  moved.startDate = CellText(day);
  const auto oldStart = CellDate(span.startDate), oldEnd = CellDate(span.endDate);
  if (oldEnd && oldStart) moved.endDate = CellText(*oldEnd + (day - *oldStart));
  if (time.empty()) return moved;
  moved.startTime = std::string(time);
  const auto length = LengthOf(span);
  const auto startTime = CellTime(time);
  if (!length || !startTime) return moved;
  // To the minute: sums of fractions of a day fall short of midnight by a hair.
  constexpr double kMinutes = 24 * 60;
  const Date end = std::round((day + *startTime + *length) * kMinutes) / kMinutes;
  moved.endTime = CellTimeText(end);
  if (!span.endDate.empty() || std::floor(end) > day) moved.endDate = CellText(std::floor(end));
  return moved;
}

void Write(Grid& sessions, int row, const Span& span) {
  sessions.SetTextMatrix(row, "SDATE", span.startDate);
  sessions.SetTextMatrix(row, "STIME", span.startTime);
  sessions.SetTextMatrix(row, "EDATE", span.endDate);
  sessions.SetTextMatrix(row, "ETIME", span.endTime);
}

std::string DayAndTime(const Span& span) {
  const auto date = CellDate(span.startDate);
  return (date ? FormatDate(*date, "dddd d mmm yyyy") : span.startDate) + " " + span.startTime;
}

}  // namespace

std::string WhyNotMoved(const Ledger& ledger, std::string_view sessionId) {
  const Grid& sessions = ledger.fgSessions;
  const int row = RecordRow(sessions, sessionId);
  if (!sessions.TextMatrix(row, "INVOICE").empty())
    return "A session on an invoice cannot be moved.";
  if (!sessions.TextMatrix(row, "FORMS").empty())
    return "A session on a pension form cannot be moved.";
  return "";
}

bool MoveSession(Ledger& ledger, std::string_view sessionId, Date day, std::string_view time) {
  Grid& sessions = ledger.fgSessions;
  const int row = RecordRow(sessions, sessionId);
  if (row < 0 || !WhyNotMoved(ledger, sessionId).empty()) return false;
  const Span before = SpanOf(sessions, row);
  const Span after = Moved(before, day, time);
  const int practice = RecordRow(ledger.fgPractices, sessions.TextMatrix(row, "PRACTICE"));
  if (!Ask(ledger, "Confirm Movement of Session",
           "Do you want to move the session for " +
               ledger.fgPractices.TextMatrix(practice, "NAME") + " from\\n" + DayAndTime(before) +
               " to " + DayAndTime(after) + "?"))
    return false;
  const Change change(ledger, "Move Session");
  Write(sessions, row, after);
  MarkEdited(ledger, sessions, row);
  return true;
}

}  // namespace lm
