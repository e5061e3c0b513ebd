// Finding and filtering as words are typed, over 50,000 sessions: what one key stroke costs.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/ledgers.h"
#include "core/rows.h"
#include "shell/find.h"
#include "shell/frmMain.h"
#include "shell/listfilter.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"

namespace {

constexpr int kSessions = 50'000;
constexpr std::size_t kMostOfKind = 200;

// Notes of their own make a table that nothing can be shared in.
lm::Ledger& Ledger() {
  static lm::Ledger& made = [&]() -> lm::Ledger& {
    lm::Ledger& ledger = lm::bench::BusyLedger(kSessions).ledger;
    for (const int row : lm::Records(ledger.fgSessions))
      ledger.fgSessions.SetTextMatrix(
          row, "NOTES",
          "Visit " + std::to_string(row * 7919) + ": covered for Dr Smith, keys left at reception");
    return ledger;
  }();
  return made;
}

// The words, under the name of what they ask.
struct Typed {
  const char* name;
  std::string text;
};

const std::vector<Typed>& Queries() {
  static const std::vector<Typed> kQueries = [] {
    std::string many;
    for (int i = 0; many.size() < 10'000; ++i) many += std::to_string(i) + ' ';
    return std::vector<Typed>{
        {"first letter", "r"},
        {"practice and month", "practice 12 feb"},
        {"amount", "361.10"},
        {"state", "unpaid"},
        {"word of a note", "reception"},
        {"six words", "practice 2019 wednesday reception covered paid"},
        {"nothing", "zzzzzz"},
        {"all letters", "a b c d e f g h i j k l m n o p q r s t u v w x y z"},
        {"10,000 characters of words", many},
        {"10,000 characters in one word", std::string(10'000, 'e')},
    };
  }();
  return kQueries;
}

void OpenFind(benchmark::State& state) {
  lm::Ledger& ledger = Ledger();
  for (auto _ : state) benchmark::DoNotOptimize(lm::RecordSearch(ledger));
}

void Find(benchmark::State& state, const Typed& typed) {
  static const lm::RecordSearch search(Ledger());
  for (auto _ : state)
    benchmark::DoNotOptimize(search.Find(lm::SearchWords(typed.text), kMostOfKind));
}

struct Page {
  lm::WindowCatalogue windows;
  std::unique_ptr<lm::frmMain> window;

  Page() {
    lm::AddWindows(windows);
    window = std::make_unique<lm::frmMain>(Ledger(), windows);
    window->ShowPage(lm::Page::Sessions);
    window->Enter(Sessions().tabSessions, "All");
  }
  lm::SessionsPage& Sessions() { return window->PageOf<lm::SessionsPage>(); }
};

// What the list reads when the box above it gets the focus, or at the first key stroke.
void PrepareFilter(benchmark::State& state) {
  lm::Grid& sessions = Ledger().fgSessions;
  for (auto _ : state) {
    lm::ListFilter filter(sessions);
    filter.Prepare();
  }
}

// The words typed at once above the list, which showed everything before.
void Filter(benchmark::State& state, const Typed& typed) {
  static Page page;
  const auto& type = page.Sessions().txtFilterSessions.onTyping;
  for (auto _ : state) {
    type(typed.text);
    state.PauseTiming();
    type("");
    state.ResumeTiming();
  }
}

// The same in a list that is grouped, whose groups are made anew.
void FilterGroups(benchmark::State& state) {
  static Page page;
  page.window->Enter(page.Sessions().cboGroupSessions, "Practice");
  const auto& type = page.Sessions().txtFilterSessions.onTyping;
  for (auto _ : state) {
    type("practice 12 feb");
    state.PauseTiming();
    type("");
    state.ResumeTiming();
  }
  page.window->Enter(page.Sessions().cboGroupSessions, "No Grouping");
}

// One plain pass over all that the sessions hold: what the rest is held against.
void ReadCells(benchmark::State& state) {
  const lm::Grid& sessions = Ledger().fgSessions;
  for (auto _ : state) {
    std::string record;
    for (const int row : lm::Records(sessions)) {
      record.clear();
      sessions.WriteRecord(row, record);
      benchmark::DoNotOptimize(record);
    }
  }
}

BENCHMARK(ReadCells)->Unit(benchmark::kMillisecond);
BENCHMARK(PrepareFilter)->Unit(benchmark::kMillisecond);
BENCHMARK(FilterGroups)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenFind)->Unit(benchmark::kMillisecond);

const bool kRegistered = [] {
  for (const Typed& typed : Queries()) {
    for (const auto& [name, run] : {std::pair{"Find/", &Find}, std::pair{"Filter/", &Filter}})
      benchmark::RegisterBenchmark((std::string(name) + typed.name).c_str(), run, typed)
          ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
