// Filling the calendar's views, beside one plain pass over the dates of the sessions.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "calendar/views.h"
#include "core/rows.h"
#include "tests/support/scripted_platform.h"

namespace {

// So many sessions over 35 years, and 2,000 events; the period in sight lies in the middle.
struct Diary {
  lm::test::TestLedger test;
  lm::CalendarRecords records{test.ledger};
  lm::CalendarPeriod period;
  lm::Grid grid{"view"};

  explicit Diary(int count) {
    lm::Ledger& ledger = test.ledger;
    for (int i = 1; i <= 40; ++i)
      test.AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i)});
    lm::Grid& sessions = ledger.fgSessions;
    const lm::RedrawOff off(sessions);
    for (int i = 1; i <= count; ++i) {
      const int row = sessions.AddItem("");
      sessions.SetTextMatrix(row, "ID", std::to_string(i));
      sessions.SetTextMatrix(row, "PRACTICE", std::to_string(1 + i * 7 % 40));
      sessions.SetTextMatrix(row, "SDATE",
                             lm::CellText(lm::DateSerial(1990, 1, 1 + i * 31 % 13'000)));
      sessions.SetTextMatrix(row, "STIME", "09:00");
      sessions.SetTextMatrix(row, "ETIME", "12:30");
      sessions.SetTextMatrix(row, "SESS_TYPE", "1");
    }
    lm::Grid& events = ledger.fgEvents;
    for (int i = 1; i <= 2'000; ++i) {
      const int row = events.AddItem("");
      events.SetTextMatrix(row, "ID", std::to_string(i));
      events.SetTextMatrix(row, "TITLE", "Event");
      events.SetTextMatrix(row, "CATEGORY", "1");
      events.SetTextMatrix(row, "SDATE",
                           lm::CellText(lm::DateSerial(1990, 1, 1 + i * 41 % 13'000)));
    }
    period.GoTo(lm::DateSerial(2008, 2, 14));
  }
};

Diary& Of(int count) {
  static std::map<int, std::unique_ptr<Diary>> diaries;
  auto& diary = diaries[count];
  if (!diary) diary = std::make_unique<Diary>(count);
  return *diary;
}

void PlainPass(benchmark::State& state) {
  const lm::Grid& sessions = Of(static_cast<int>(state.range(0))).test.ledger.fgSessions;
  const int date = sessions.ColIndex("SDATE");
  for (auto _ : state) {
    double sum = 0;
    for (const int row : lm::Records(sessions))
      sum += lm::CellDate(sessions.TextMatrix(row, date)).value_or(0);
    benchmark::DoNotOptimize(sum);
  }
}

// After a change of a session: its days are read anew.
void FillWeekAfterAChange(benchmark::State& state) {
  Diary& diary = Of(static_cast<int>(state.range(0)));
  lm::Grid& sessions = diary.test.ledger.fgSessions;
  const int notes = sessions.ColIndex("NOTES");
  int i = 0;
  for (auto _ : state) {
    sessions.SetTextMatrix(sessions.FixedRows(), notes, std::to_string(++i));
    FillCalendar(lm::CalendarView::Week, diary.records, diary.period, diary.grid);
  }
}

template <lm::CalendarView view>
void Fill(benchmark::State& state) {
  Diary& diary = Of(static_cast<int>(state.range(0)));
  for (auto _ : state) FillCalendar(view, diary.records, diary.period, diary.grid);
}

using lm::CalendarView;
BENCHMARK(PlainPass)->Arg(1'000)->Arg(10'000)->Arg(50'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FillWeekAfterAChange)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Fill<CalendarView::Week>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Fill<CalendarView::Detail>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Fill<CalendarView::Month>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Fill<CalendarView::Planner>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(Fill<CalendarView::Year>)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
