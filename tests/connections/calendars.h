// Calendars for tests, and a ledger to read them into.
#pragma once

#include <string>
#include <vector>

#include "connections/icalimport.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {

// A calendar of appointments, each told by its lines.
inline std::string CalendarOf(const std::vector<std::vector<std::string>>& events) {
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
  for (const auto& lines : events) {
    text += "BEGIN:VEVENT\r\n";
    for (const std::string& line : lines) text += line + "\r\n";
    text += "END:VEVENT\r\n";
  }
  return text + "END:VCALENDAR\r\n";
}

// Riverside of 1 The Quay is practice 1, Hilltop practice 2; it is 3 February 2026.
struct CalendarDesk : TestLedger {
  CalendarDesk() {
    AddRow(ledger.fgPractices, {"NAME=Riverside", "ADDR1=1 The Quay"});
    AddRow(ledger.fgPractices, {"NAME=Hilltop", "ADDR1=Riverside"});
    SetOption(ledger, optICalDaysBack, "30");
    SetOption(ledger, optEmployerContribRate, "14.38");
  }
  CalendarImport Read(const std::string& text) {
    return ReadCalendar(ledger, CalendarText(text), shown.now, [](int, double) { return true; });
  }
  CalendarImport ReadEvent(const std::vector<std::string>& lines) {
    return Read(CalendarOf({lines}));
  }
  // The texts of a session's cells, by blanks; the first session is 1.
  std::string Cells(int row, const std::vector<std::string>& keys) const {
    std::string texts;
    for (const std::string& key : keys)
      texts += (texts.empty() ? "" : " ") +
               ledger.fgSessions.TextMatrix(ledger.fgSessions.FixedRows() - 1 + row, key);
    return texts;
  }
};

// "09/02/2026 09:00" of each session, by commas.
inline std::string Starts(const CalendarImport& import) {
  std::string starts;
  for (const AppointmentSession& each : import.sessions)
    starts += (starts.empty() ? "" : ", ") + CellText(each.start) + " " + CellTimeText(each.start);
  return starts;
}

}  // namespace lm::test
