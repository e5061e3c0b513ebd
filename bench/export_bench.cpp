// Exports of all records, beside writing the same bytes to a file without making them.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "bench/ledgers.h"
#include "core/files.h"
#include "reports/exports.h"

namespace {

std::size_t held = 0, most = 0;  // bytes of the heap, now and at most

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  void* const made = std::malloc(size);
  if (!made) throw std::bad_alloc();
  held += malloc_usable_size(made);
  most = std::max(most, held);
  return made;
}
[[gnu::noinline]] void operator delete(void* made) noexcept {
  held -= malloc_usable_size(made);
  std::free(made);
}
void operator delete(void* made, std::size_t) noexcept { operator delete(made); }

namespace {

using lm::bench::BusyLedger;

using Write = void (*)(const lm::Ledger& ledger, lm::clsStringBuilder& file);

void Workbook(const lm::Ledger& ledger, lm::clsStringBuilder& file) { WriteWorkbook(ledger, file); }

void Sessions(const lm::Ledger& ledger, lm::clsStringBuilder& file) {
  WriteGrid(ledger, {&ledger.fgSessions}, lm::GridFormat::Csv, file);
}

template <Write write>
void Export(benchmark::State& state) {
  lm::Ledger& ledger = BusyLedger(static_cast<int>(state.range(0))).ledger;
  std::size_t bytes = 0;
  const std::size_t before = most = held;
  for (auto _ : state) {
    bytes = 0;
    lm::clsStringBuilder file([&](std::string_view block) { bytes += block.size(); });
    write(ledger, file);
    file.Flush();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
  state.counters["MB"] = static_cast<double>(bytes) / 1e6;
  state.counters["heapKB"] = static_cast<double>(most - before) / 1e3;
}

template <Write write>
void ExportToFile(benchmark::State& state) {
  auto& test = BusyLedger(static_cast<int>(state.range(0)));
  const auto path = test.ledger.File("out.xml");
  for (auto _ : state)
    WriteExportFile(test.ledger, path,
                    [&](lm::clsStringBuilder& file) { write(test.ledger, file); });
  state.SetBytesProcessed(static_cast<std::int64_t>(std::filesystem::file_size(path)) *
                          state.iterations());
}

void PlainFile(benchmark::State& state) {
  auto& test = BusyLedger(static_cast<int>(state.range(0)));
  lm::clsStringBuilder text;
  WriteAllData(test.ledger, text);
  std::string error;
  for (auto _ : state) lm::ReplaceFile(test.ledger.File("plain.xml"), text.ToString(), error);
  state.SetBytesProcessed(static_cast<std::int64_t>(text.ToString().size()) * state.iterations());
}

#define BENCH(name) \
  BENCHMARK(name)->Arg(1'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMillisecond)
BENCH(Export<lm::WriteAllData>)->Name("AllData");
BENCH(Export<Workbook>)->Name("Workbook");
BENCH(Export<Sessions>)->Name("SessionsAsCsv");
BENCH(ExportToFile<lm::WriteAllData>)->Name("AllDataToFile");
BENCH(PlainFile);

}  // namespace
