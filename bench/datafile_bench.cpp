// Saving and loading a large data file beside what its digest, cipher and Base64 alone take for
// the same bytes: 50,000 sessions, 50,000 extras, 25,000 expenses.

#include <benchmark/benchmark.h>

#include "core/clsRC4.h"
#include "core/datafile.h"
#include "core/files.h"
#include "core/keys.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kSessions = 50'000;

void FillRow(lm::Grid& grid,
             std::initializer_list<std::pair<std::string_view, std::string>> cells) {
  const int row = grid.AddItem("");
  for (const auto& [key, text] : cells) grid.SetTextMatrix(row, key, text);
}

void Fill(lm::Ledger& ledger) {
  for (int i = 1; i <= kSessions; ++i) {
    const std::string id = std::to_string(i);
    FillRow(ledger.fgSessions, {{"ID", id},
                                {"PRACTICE", std::to_string(1 + i % 40)},
                                {"INVOICE", std::to_string(1 + i / 5)},
                                {"SDATE", lm::CellText(lm::DateSerial(1990, 1, 1 + i % 12'000))},
                                {"STIME", "08:30"},
                                {"ETIME", "12:30"},
                                {"SESS_TYPE", "1"},
                                {"RATE", "320.00"},
                                {"EXTRAS", "25.50"},
                                {"EMPLOYERCONTRIB", "46.02"},
                                {"EXPENSES", "12.80"},
                                {"TOTAL", "404.32"},
                                {"NOTES", "Door code at the side entrance, visits after lunch"},
                                {"PUBLICNOTE", "Morning surgery"},
                                {"FORMS", "A,B"},
                                {"EMPLOYERCONTRIBRATE", "14.38"},
                                {"INCLUDEEMPLOYERCONTRIB", "TRUE"}});
    FillRow(ledger.fgExtras,
            {{"ID", id}, {"SESSID", id}, {"ITEM", "Home visit"}, {"RATE", "25.50"}});
    if (i % 2 == 0)
      FillRow(ledger.fgSessionExpenses, {{"ID", id},
                                         {"SESSID", id},
                                         {"ITEM",
                                          "Mileage charge to and from Practice (32 * \xA3"
                                          "0.40)"},
                                         {"CATEGORY", "0"},
                                         {"RATE", "12.80"}});
  }
}

// The saved file, with nothing else in memory: as the start of the program meets it.
struct File {
  lm::test::TempDirectory directory;
  lm::test::ScriptedPlatform platform;
  std::vector<std::string> sections;
  std::int64_t bytes = 0;

  File() {
    const auto ledger = std::make_unique<lm::Ledger>(platform.platform);
    ledger->programDirectory = directory.Path();
    Fill(*ledger);
    Save(*ledger);
    std::string error;
    const std::string text = *lm::ReadFile(ledger->File("LedgerMinder.dat"), error);
    bytes = static_cast<std::int64_t>(text.size());
    const auto parts = lm::Split(text, lm::kSectionEnd);
    sections.assign(parts.begin() + 1, parts.end());
  }
};

File& Stored() {
  static File file;
  return file;
}

// The tables loaded from it, as a day's work finds them, and their plain texts.
struct Loaded {
  lm::Ledger ledger{Stored().platform.platform};
  std::vector<std::string> plain;

  Loaded() {
    ledger.programDirectory = Stored().directory.Path();
    LoadData(ledger);
    for (const std::string& section : Stored().sections)
      plain.push_back(lm::clsRC4().DecryptString(section, Key(ledger), true));
  }
  static std::string Key(const lm::Ledger& ledger) {
    return lm::TableKey("fgSessions", ledger.dataPassword);
  }
};

Loaded& Data() {
  static Loaded loaded;
  return loaded;
}

void LoadCiphersAlone(benchmark::State& state) {
  const lm::Ledger ledger(Stored().platform.platform);
  const std::string key = Loaded::Key(ledger);
  for (auto _ : state)
    for (const std::string& section : Stored().sections)
      benchmark::DoNotOptimize(lm::DigestOf(lm::clsRC4().DecryptString(section, key, true)));
  state.SetBytesProcessed(state.iterations() * Stored().bytes);
}

void Load(benchmark::State& state) {
  for (auto _ : state) {
    auto ledger = std::make_unique<lm::Ledger>(Stored().platform.platform);
    ledger->programDirectory = Stored().directory.Path();
    if (!LoadData(*ledger)) state.SkipWithError("not loaded");
    state.PauseTiming();  // taking the tables down is no part of loading
    ledger.reset();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * Stored().bytes);
}

void SaveCiphersAlone(benchmark::State& state) {
  const std::string key = Loaded::Key(Data().ledger);
  for (auto _ : state)
    for (const std::string& plain : Data().plain) {
      benchmark::DoNotOptimize(lm::DigestOf(plain));
      benchmark::DoNotOptimize(lm::clsRC4().EncryptString(plain, key, true));
    }
  state.SetBytesProcessed(state.iterations() * Stored().bytes);
}

void Save(benchmark::State& state) {
  for (auto _ : state)
    if (!Save(Data().ledger)) state.SkipWithError("not saved");
  state.SetBytesProcessed(state.iterations() * Stored().bytes);
}

BENCHMARK(LoadCiphersAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveCiphersAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Unit(benchmark::kMillisecond);

}  // namespace
