// Building LM Today, beside one plain pass over the same cells of the sessions: the date, the
// invoice and the forms of each.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "core/rows.h"
#include "reports/today.h"
#include "tests/support/scripted_platform.h"

namespace {

// So many sessions at 60 practices over the ten years up to a week from today. What is older than
// two months is invoiced, paid and on its form; in the worst case nothing ever was.
struct Surgery {
  lm::test::TestLedger test;
  lm::Grid schedule{"fgUpcoming"}, status{"fgLMTodayStatus"}, finance{"fgFinance"};

  Surgery(int count, bool worst) {
    constexpr int kDays = 3'650, kPractices = 60, kOpenDays = 60;
    lm::Ledger& ledger = test.ledger;
    for (int i = 1; i <= kPractices; ++i)
      test.AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i)});
    const lm::Date last = lm::DateSerial(2026, 2, 10);
    lm::Grid& sessions = ledger.fgSessions;
    const lm::RedrawOff off(sessions);
    for (int i = 1; i <= count; ++i) {
      const int before = i * 31 % kDays;
      const int row = sessions.AddItem("");
      const bool done = !worst && before > kOpenDays;
      sessions.SetTextMatrix(row, "ID", std::to_string(i));
      sessions.SetTextMatrix(row, "PRACTICE", std::to_string(1 + i * 7 % kPractices));
      sessions.SetTextMatrix(row, "SDATE", lm::CellText(last - before));
      sessions.SetTextMatrix(row, "STIME", "09:00");
      sessions.SetTextMatrix(row, "ETIME", "12:30");
      sessions.SetTextMatrix(row, "SESS_TYPE", "1");
      sessions.SetTextMatrix(row, "TOTAL", "320.00");
      sessions.SetTextMatrix(row, "EXPENSES", i % 3 ? "0.00" : "5.40");
      sessions.SetTextMatrix(row, "INVOICE", done ? std::to_string(1 + i / 4) : "");
      sessions.SetTextMatrix(row, "FORMS", done ? "A" : "");
    }
    StartToday(lm::kTodaySchedule, schedule);
    StartToday(lm::kTodayStatus, status);
    StartToday(lm::kTodayFinance, finance);
  }
  void Build() {
    const lm::TodayRecords records(test.ledger);
    FillToday(test.ledger, records, lm::kTodaySchedule, {}, schedule);
    FillToday(test.ledger, records, lm::kTodayStatus, {}, status);
    FillToday(test.ledger, records, lm::kTodayFinance, {}, finance);
  }
};

Surgery& Of(int count, bool worst = false) {
  static std::map<std::pair<int, bool>, std::unique_ptr<Surgery>> surgeries;
  auto& surgery = surgeries[{count, worst}];
  if (!surgery) surgery = std::make_unique<Surgery>(count, worst);
  return *surgery;
}

void PlainPass(benchmark::State& state) {
  const lm::Grid& sessions = Of(static_cast<int>(state.range(0))).test.ledger.fgSessions;
  const int date = sessions.ColIndex("SDATE"), invoice = sessions.ColIndex("INVOICE"),
            forms = sessions.ColIndex("FORMS");
  for (auto _ : state) {
    double sum = 0;
    for (const int row : lm::Records(sessions)) {
      sum += lm::CellDate(sessions.TextMatrix(row, date)).value_or(0);
      sum += static_cast<double>(sessions.TextMatrix(row, invoice).size());
      sum += static_cast<double>(sessions.TextMatrix(row, forms).size());
    }
    benchmark::DoNotOptimize(sum);
  }
}

void Today(benchmark::State& state) {
  Surgery& surgery = Of(static_cast<int>(state.range(0)));
  for (auto _ : state) surgery.Build();
  state.counters["rows"] = surgery.schedule.Rows() + surgery.status.Rows() + surgery.finance.Rows();
}

void TodayWhereNothingWasEverInvoiced(benchmark::State& state) {
  Surgery& surgery = Of(static_cast<int>(state.range(0)), true);
  for (auto _ : state) surgery.Build();
  state.counters["rows"] = surgery.schedule.Rows() + surgery.status.Rows() + surgery.finance.Rows();
}

BENCHMARK(PlainPass)->Arg(1'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Today)->Arg(1'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(TodayWhereNothingWasEverInvoiced)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
