// Reading a calendar into sessions, beside libical's parse alone of the same text.
#include <benchmark/benchmark.h>
#include <libical/ical.h>
#include <malloc.h>

#include <chrono>

#include "core/format.h"
#include "tests/connections/calendars.h"

namespace {

using Clock = std::chrono::steady_clock;

// Appointments of four hours at sixty practices, each at a time of its own.
std::string Calendar(int count) {
  std::vector<std::vector<std::string>> events;
  for (int i = 0; i < count; ++i) {
    const std::string day = lm::FormatDate(lm::DateSerial(2026, 2, 9) + i / 6, "yyyymmdd");
    const std::string hour = std::to_string(10 + i % 6);
    const std::string place = "Practice " + std::to_string(i % 60);
    events.push_back({"UID:" + std::to_string(i) + "@example", "DTSTAMP:20260201T080000Z",
                      "DTSTART:" + day + "T" + hour + "0000", "DTEND:" + day + "T" + hour + "5900",
                      "LOCATION:" + place, "SUMMARY:Session at " + place, "CATEGORIES:Work",
                      "DESCRIPTION:NHS Normal Session\\n Rate:95.00"});
  }
  return lm::test::CalendarOf(events);
}

double ParseWithLibical(const std::string& text) {
  const auto begun = Clock::now();
  icalcomponent* calendar = icalparser_parse_string(text.c_str());
  const std::chrono::duration<double> taken = Clock::now() - begun;
  icalcomponent_free(calendar);
  malloc_trim(0);  // its small pieces would make our large ones wait
  return taken.count();
}

void Import(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::string text = Calendar(count);
  double own = 0, peer = 0;
  for (auto _ : state) {
    state.PauseTiming();
    lm::test::CalendarDesk desk;
    lm::SetOption(desk, lm::optNewRowPosition, state.range(1) ? "TOP" : "BOTTOM");
    for (int i = 0; i < 60; ++i)
      desk.AddRow(desk.ledger.fgPractices, {"NAME=Practice " + std::to_string(i)});
    peer += ParseWithLibical(text);
    state.ResumeTiming();
    const auto begun = Clock::now();
    const lm::CalendarImport import = desk.Read(text);
    lm::CreateSessions(desk, import.sessions, lm::optICalPrivateNote);
    own += std::chrono::duration<double>(Clock::now() - begun).count();
    if (static_cast<int>(import.sessions.size()) != count) state.SkipWithError("not all were read");
    state.PauseTiming();
    desk.ledger.fgSessions.SetRows(desk.ledger.fgSessions.FixedRows());
    state.ResumeTiming();
  }
  state.counters["to libical's parse"] = own / peer;
  state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
}
BENCHMARK(Import)->ArgsProduct({{20'000, 100'000}, {0, 1}})->Unit(benchmark::kMillisecond);

}  // namespace
