// The Sessions page at 50,000 rows: what the list does between a click and its redraw.

#include <benchmark/benchmark.h>

#include <memory>

#include "core/change.h"
#include "core/formatting.h"
#include "core/rows.h"
#include "shell/frmMain.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kSessions = 50'000;

struct SessionsPage {
  lm::test::TestLedger test;
  lm::WindowCatalogue windows;
  std::unique_ptr<lm::frmMain> window;

  SessionsPage() {
    lm::Ledger& ledger = test.ledger;
    lm::AddWindows(windows);
    for (int i = 1; i <= 40; ++i)
      test.AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i)});
    lm::Grid& sessions = ledger.fgSessions;
    for (int i = 1; i <= kSessions; ++i) {
      const int row = sessions.AddItem("");
      sessions.SetTextMatrix(row, "ID", std::to_string(i));
      sessions.SetTextMatrix(row, "PRACTICE", std::to_string(1 + i * 7 % 40));
      sessions.SetTextMatrix(row, "SDATE",
                             lm::CellText(lm::DateSerial(1990, 1, 1 + i * 31 % 13'000)));
      sessions.SetTextMatrix(row, "SESS_TYPE", "1");
      for (const char* key : {"RATE", "EXTRAS", "EXPENSES", "EMPLOYERCONTRIB", "TOTAL"})
        sessions.SetTextMatrix(row, key, std::to_string(i % 500) + ".25");
    }
    lm::FormatTables(ledger);
    window = std::make_unique<lm::frmMain>(ledger, windows);
    window->ShowPage(lm::Page::Sessions);
    window->Enter(Shown().tabSessions, "All");
  }
  lm::SessionsPage& Shown() { return window->PageOf<lm::SessionsPage>(); }
};

SessionsPage& Page() {
  static SessionsPage page;
  return page;
}

void SortByHeader(benchmark::State& state) {
  lm::Grid& sessions = Page().test.ledger.fgSessions;
  for (auto _ : state) Page().window->HeaderClicked(sessions, sessions.ColIndex("SDATE"));
}

void Regroup(benchmark::State& state, const char* by) {
  lm::frmMain& window = *Page().window;
  for (auto _ : state) {
    window.Enter(Page().Shown().cboGroupSessions, by);
    window.Enter(Page().Shown().cboGroupSessions, "No Grouping");
  }
}

void Filter(benchmark::State& state) {
  lm::frmMain& window = *Page().window;
  for (auto _ : state) {
    window.Enter(Page().Shown().tabSessions, "Current");
    window.Enter(Page().Shown().tabSessions, "All");
  }
}

void EditOneCell(benchmark::State& state) {
  lm::frmMain& window = *Page().window;
  lm::Grid& sessions = Page().test.ledger.fgSessions;
  const int row = sessions.FixedRows() + kSessions / 2;
  static int pounds = 100;  // another rate each time, also when the run is repeated
  for (auto _ : state) {
    const std::string rate = std::to_string(++pounds % 1000 + 100);
    if (window.Edit(sessions, row, sessions.ColIndex("RATE"), rate) != lm::EditOutcome::Accepted)
      state.SkipWithError("not accepted");
  }
}

// One plain pass over the dates: what the rest is held against.
void ReadDates(benchmark::State& state) {
  const lm::Grid& sessions = Page().test.ledger.fgSessions;
  const int date = sessions.ColIndex("SDATE");
  for (auto _ : state)
    for (const int row : lm::Records(sessions))
      benchmark::DoNotOptimize(sessions.TextMatrix(row, date));
}

void UndoAndRedoOneCell(benchmark::State& state) {
  lm::History& history = Page().test.ledger.history;
  const lm::Grid& sessions = Page().test.ledger.fgSessions;
  const int row = sessions.FixedRows() + kSessions / 2;
  Page().window->Edit(Page().test.ledger.fgSessions, row, sessions.ColIndex("NOTES"), "a note");
  for (auto _ : state)
    if (!history.Undo() || !history.Redo()) state.SkipWithError("nothing to undo");
}

void UndoAndRedoAThousandPractices(benchmark::State& state) {
  lm::Ledger& ledger = Page().test.ledger;
  for (int i = 0; i < 1000; ++i)
    Page().test.AddRow(ledger.fgPractices, {"NAME=To go " + std::to_string(i)});
  {
    const lm::Change change(ledger, "Delete Practices");
    for (int i = 0; i < 1000; ++i) ledger.fgPractices.RemoveItem(ledger.fgPractices.Rows() - 1);
  }
  for (auto _ : state)
    if (!ledger.history.Undo() || !ledger.history.Redo()) state.SkipWithError("nothing to undo");
}

BENCHMARK(ReadDates)->Unit(benchmark::kMillisecond);
BENCHMARK(SortByHeader)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Regroup, practice, "Practice")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Regroup, month, "Month")->Unit(benchmark::kMillisecond);
BENCHMARK(Filter)->Unit(benchmark::kMillisecond);
BENCHMARK(EditOneCell)->Unit(benchmark::kMicrosecond);
BENCHMARK(UndoAndRedoOneCell)->Unit(benchmark::kMicrosecond);
BENCHMARK(UndoAndRedoAThousandPractices)->Unit(benchmark::kMillisecond);

}  // namespace
