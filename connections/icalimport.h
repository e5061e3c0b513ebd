// Sessions from the appointments of a calendar.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "connections/appointments.h"
#include "connections/icalreader.h"

namespace lm {

// Of one import. A few bytes of a calendar can ask for fifty sessions, and no doctor works as
// often.
constexpr int kMostSessions = 200'000;

struct CalendarImport {
  int read = 0;           // appointments, and each occurrence of those that recur
  int wrongCategory = 0;  // and so on: read but not made into a session
  int allDay = 0;
  int duplicates = 0;
  int errors = 0;
  std::string errorLines;  // as far as they are shown
  std::vector<AppointmentSession> sessions;
  bool cancelled = false;
  bool tooMany = false;  // more than kMostSessions; the reading stopped there
};

// How far the reading has come: the number of the appointment, and the part of the text that is
// done, 0 to 1. False stops it.
using CalendarProgress = std::function<bool(int number, double done)>;

// Reads a calendar without Fault by the options and records of the ledger, which stays as it is.
CalendarImport ReadCalendar(const Ledger& ledger, const CalendarText& calendar, Date today,
                            const CalendarProgress& progress);

// What was read and made, as users are told, with \n for line breaks.
std::string ResultText(const CalendarImport& import);

}  // namespace lm
