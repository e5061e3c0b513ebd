// The reports, beside one plain pass that reads the cells which the report reads.
#include <benchmark/benchmark.h>

#include "bench/ledgers.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "reports/groupingreport.h"
#include "reports/standardreport.h"
#include "reports/taxreport.h"

namespace {

using lm::bench::BusyLedger;

const lm::DateRange kTenYears{lm::DateSerial(2016, 1, 1), lm::DateSerial(2016, 1, 3650)};

// Each cell as what it is: a date, a time, an amount.
void PlainPass(benchmark::State& state, std::initializer_list<std::string_view> days,
               std::initializer_list<std::string_view> times,
               std::initializer_list<std::string_view> others) {
  const lm::Grid& sessions = BusyLedger(static_cast<int>(state.range(0))).ledger.fgSessions;
  const auto columns = [&](std::initializer_list<std::string_view> keys) {
    std::vector<int> found;
    for (const std::string_view key : keys) found.push_back(sessions.ColIndex(key));
    return found;
  };
  const auto dayCols = columns(days), timeCols = columns(times), otherCols = columns(others);
  for (auto _ : state) {
    double sum = 0;
    for (const int row : lm::Records(sessions)) {
      for (const int col : dayCols) sum += lm::CellDate(sessions.TextMatrix(row, col)).value_or(0);
      for (const int col : timeCols) sum += lm::CellTime(sessions.TextMatrix(row, col)).value_or(0);
      for (const int col : otherCols) sum += lm::PoundsOf(sessions.TextMatrix(row, col));
    }
    benchmark::DoNotOptimize(sum);
  }
}

void PassOverRates(benchmark::State& state) {
  PlainPass(state, {"SDATE"}, {}, {"PRACTICE", "RATE"});
}
void PassOverValues(benchmark::State& state) {
  PlainPass(state, {"SDATE"}, {}, {"PRACTICE", "RATE", "EXTRAS", "EXPENSES"});
}
void PassOverHours(benchmark::State& state) {
  PlainPass(state, {"SDATE", "EDATE"}, {"STIME", "ETIME"}, {"PRACTICE", "RATE"});
}
void PassOverInvoices(benchmark::State& state) {
  PlainPass(state, {"SDATE"}, {}, {"INVOICE", "RATE", "EXTRAS"});
}

template <int report, bool byDay>
void Report(benchmark::State& state) {
  const lm::Ledger& ledger = BusyLedger(static_cast<int>(state.range(0))).ledger;
  lm::Grid grid("fgReports");
  for (auto _ : state) RunStandardReport(ledger, {report, kTenYears, byDay}, grid);
}

// Of the 39, the slowest against its own pass is looked for by hand: --benchmark_filter=AnyReport.
void AnyReport(benchmark::State& state) {
  const lm::Ledger& ledger = BusyLedger(50'000).ledger;
  lm::Grid grid("fgReports");
  for (auto _ : state)
    RunStandardReport(ledger, {static_cast<int>(state.range(0)), kTenYears, state.range(1) == 1},
                      grid);
}

void TaxReport(benchmark::State& state) {
  const lm::Ledger& ledger = BusyLedger(static_cast<int>(state.range(0))).ledger;
  lm::Grid grid("fgTaxReport");
  for (auto _ : state) FillTaxReport(ledger, lm::DaysOfTaxYear("2020 - 2021"), grid);
}

void GroupAYear(benchmark::State& state) {
  const lm::Ledger& ledger = BusyLedger(static_cast<int>(state.range(0))).ledger;
  lm::Grid grid("fgGroupingReport");
  for (auto _ : state) {
    FillGroupingReport(ledger, lm::GroupedRecords::Sessions,
                       {lm::DateSerial(2020, 1, 1), lm::DateSerial(2020, 12, 31)}, grid);
    Regroup(grid, {5, 3});
  }
}

#define BENCH(name) \
  BENCHMARK(name)->Arg(1'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMicrosecond)
BENCH(PassOverRates);
BENCH((Report<0, false>))->Name("RatesByMonth");
BENCH((Report<0, true>))->Name("RatesByDay");
BENCH(PassOverValues);
BENCH((Report<4, false>))->Name("ValuesByMonth");
BENCH((Report<4, true>))->Name("ValuesByDay");
BENCH(PassOverHours);
BENCH((Report<15, false>))->Name("HourlyRateByMonth");
BENCH((Report<15, true>))->Name("HourlyRateByDay");
BENCH(PassOverInvoices);
BENCH(TaxReport);
BENCH(GroupAYear);
BENCHMARK(AnyReport)
    ->ArgsProduct({benchmark::CreateDenseRange(0, 38, 1), {0, 1}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
