// Exporting the calendar, both kinds, beside a plain write of the same bytes: megabytes a second.
#include <benchmark/benchmark.h>

#include "bench/ledgers.h"
#include "connections/icalexport.h"
#include "core/files.h"

namespace {

using lm::bench::BusyLedger;

lm::CalendarRequest RequestOf(benchmark::State& state) {
  lm::CalendarRequest request;
  request.category = "Work";
  request.access = "Private";
  request.rfc5545 = state.range(1) != 0;
  return request;
}

void Count(benchmark::State& state, double bytes) {
  state.counters["MB"] = bytes / 1e6;
  state.counters["rateMB"] = benchmark::Counter(
      bytes / 1e6 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void Export(benchmark::State& state) {
  auto& test = BusyLedger(static_cast<int>(state.range(0)));
  const auto path = test.ledger.File("out.ics");
  for (auto _ : state)
    if (ExportCalendar(test.ledger, RequestOf(state), path) != lm::CalendarOutcome::Written)
      state.SkipWithError("not written");
  Count(state, static_cast<double>(std::filesystem::file_size(path)));
}

void PlainFile(benchmark::State& state) {
  auto& test = BusyLedger(static_cast<int>(state.range(0)));
  lm::clsStringBuilder text;
  WriteCalendar(test.ledger, RequestOf(state), text);
  std::string error;
  for (auto _ : state) lm::ReplaceFile(test.ledger.File("plain.ics"), text.ToString(), error);
  Count(state, static_cast<double>(text.ToString().size()));
}

#define BENCH(name)                       \
  BENCHMARK(name)                         \
      ->ArgNames({"sessions", "rfc5545"}) \
      ->ArgsProduct({{50'000}, {0, 1}})   \
      ->Unit(benchmark::kMillisecond)     \
      ->UseRealTime()
BENCH(Export);
BENCH(PlainFile);

}  // namespace
