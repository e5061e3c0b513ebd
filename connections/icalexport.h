// Sessions out to a calendar file, of a plain kind and of one by RFC 5545 (connections/rfc5545.h).
// Sessions without both times are left out, and so are those of which a date or time cannot be
// read: an appointment at a guessed time would send a doctor to work on the wrong day.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/clsStringBuilder.h"
#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

struct CalendarRequest {
  DateRange days = {2, 109574};         // of SDATE; all of 1900 to 2199
  std::optional<std::string> practice;  // the ID of one; none: all
  std::string category, access;         // "" leaves the line out
  bool rfc5545 = false;
};

// A session as calendars have it.
struct ExportedSession {
  std::string uid;
  Date start, end;            // as recorded: the end may be first
  std::string_view practice;  // its name, "" when it is gone
  std::string_view type;      // the name of the session type, "" for a code that is none
  std::string rate;           // "£95.00"; what is no number stands as it is
};

// "20260203T090000"
std::string CalendarTime(Date time);

// Returns how many sessions were written. `goOn` is asked now and then, with how far it has come in
// percent, and ends the writing by false.
int WriteCalendar(const Ledger& ledger, const CalendarRequest& request, clsStringBuilder& file,
                  const std::function<bool(int percent)>& goOn = {});

enum class CalendarOutcome { Written, NoSessions, Cancelled, Failed };

// Replaces the file whole, showing progress; it stays as it was unless the outcome is Written. A
// failure shows its message, also that of a file that the program itself lives on.
CalendarOutcome ExportCalendar(Ledger& ledger, const CalendarRequest& request,
                               const std::filesystem::path& path);

}  // namespace lm
