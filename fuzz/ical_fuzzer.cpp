// A calendar from anywhere: any bytes are refused or read into sessions that are whole.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "connections/icalimport.h"
#include "core/rows.h"
#include "tests/support/scripted_platform.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// With practices at hand, and room for appointments of every age.
lm::test::TestLedger& Desk() {
  static lm::test::TestLedger test;
  static const bool made = [] {
    test.AddRow(test.ledger.fgPractices, {"NAME=Riverside", "ADDR1=1 The Quay"});
    lm::SetOption(test, lm::optICalDaysBack, "99999");
    lm::SetOption(test, lm::optICalCategory, "work");
    return true;
  }();
  Require(made);
  return test;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const lm::CalendarText calendar({reinterpret_cast<const char*>(data), size});
  const bool refused = calendar.Fault().has_value();
  lm::Ledger& ledger = Desk();
  const lm::CalendarImport import = lm::ReadCalendar(ledger, calendar, lm::DateSerial(2026, 2, 3),
                                                     [](int, double) { return true; });
  Require(import.read >= 0 && import.errorLines.size() <= 8000);
  if (refused) return 0;
  lm::CreateSessions(ledger, import.sessions, lm::optICalPrivateNote);
  lm::Grid& sessions = ledger.fgSessions;
  for (const int row : lm::Records(sessions))
    for (const std::string_view key : {"SDATE", "EDATE"})
      Require(lm::CellDate(sessions.TextMatrix(row, key)).has_value());
  sessions.SetRows(sessions.FixedRows());
  ledger.history.Clear();
  return 0;
}
