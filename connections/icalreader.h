// Reads the lines of an iCalendar text that say something of an appointment. This is a line reader
// and no full parser: a folded line keeps its first piece only, and what stands in an alarm counts
// as the appointment's own.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace lm {

// What is wrong with a calendar as a whole, in the two sentences that users are told: the told one,
// and what was found.
struct CalendarFault {
  std::string_view message;
  std::string detail;
};

// The lines of one appointment, each whole: keyword, parameters and all. "" where there was none;
// of two of a kind the later one.
struct Appointment {
  std::string_view start, end, description, location, summary, categories, rule;
};

// A calendar whose text has the right form. Keeps its text, into which the events look.
class CalendarText {
 public:
  // Takes a text in which lines end with CR LF. Line breaks within a quoted-printable description
  // become the two characters \n, so that it stays one line.
  explicit CalendarText(std::string_view text);
  CalendarText(const CalendarText&) = delete;
  CalendarText& operator=(const CalendarText&) = delete;

  // Nothing when the lines may be read.
  std::optional<CalendarFault> Fault() const;

  // Calls for each appointment in turn until one answers false. One without its end goes on to the
  // end of the text. `done` is how much of the text has been read, 0 to 1.
  void ForEachAppointment(
      const std::function<bool(const Appointment& event, double done)>& act) const;

 private:
  std::string text_;
};

// What stands behind the first ":" of a line, without blanks around it; "" without one.
std::string_view ValueOf(std::string_view line);

struct CalendarMoment {
  Date moment;  // local time
  bool allDay;
};
// "20260203T0930" with or without seconds and "Z" for UTC, or a day alone. Hours and minutes that
// are too many are added up. Empty for what is no date of the years 1900 to 2199 in these places.
std::optional<CalendarMoment> ReadMoment(std::string_view value);
// The day of the same, or of other years.
std::optional<Date> ReadDay(std::string_view value, int firstYear = 1900, int lastYear = 2199);

}  // namespace lm
