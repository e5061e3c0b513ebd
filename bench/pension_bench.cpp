// All forms of one month for 10, 50 and 200 practices with ten sessions each, over the blank forms,
// documents written. Times are processor time. Each size tells what a form costs and how much that
// is beside the smallest size: it must be about the same. A first run, which reads the blanks, is
// not counted for itself: the blanks are read once a run, whatever the number of forms.

#include <benchmark/benchmark.h>

#include <ctime>
#include <filesystem>
#include <string>
#include <utility>

#include "core/formatting.h"
#include "core/options.h"
#include "pension/forms.h"
#include "pension/shippedforms.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kSmallest = 10;  // practices
constexpr int kSessionsEach = 10;
constexpr std::string_view kMonth = "042025";

struct Practices {
  lm::test::TestLedger test;
  lm::Ledger& ledger = test.ledger;

  explicit Practices(int count) {
    lm::SetMyDetail(ledger, lm::kFirstNameField, "Alex");
    lm::SetMyDetail(ledger, lm::kLastNameField, "Morgan");
    lm::PlaceShippedForms(ledger);
    std::filesystem::create_directories(ledger.File("Pension Forms"));
    for (int i = 1; i <= count; ++i)
      test.AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i), "PCODE=EA1041"});
    for (int i = 0; i < count * kSessionsEach; ++i) AddSession(i, 1 + i % count);
    lm::FormatTables(ledger);
  }

  void AddSession(int i, int practice) {
    const int type = i / (kSessionsEach / 2) % 2 == 0 ? 1 : 2;
    test.AddRow(ledger.fgSessions,
                {"PRACTICE=" + std::to_string(practice),
                 "SDATE=" + lm::CellText(lm::DateSerial(2025, 4, 1 + i % 30)),
                 "SESS_TYPE=" + std::to_string(type), "RATE=320.00", "EXTRAS=0.00", "EXPENSES=0.00",
                 "EMPLOYERCONTRIB=41.41", "EMPLOYERCONTRIBRATE=14.38"});
  }

  int MakeAll(lm::FormPrinter& printer) {
    const lm::MonthSessions sessions(ledger, lm::Month::OfKey(kMonth));
    return lm::CreateForms(ledger, printer, lm::kFormA, sessions) +
           lm::CreateForms(ledger, printer, lm::kFormSolo, sessions);
  }

  void TakeBack() {
    lm::Grid& sessions = ledger.fgSessions;
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row)
      sessions.SetTextMatrix(row, "FORMS", "");
    ledger.fgPensionA.ClearData();
    ledger.fgPensionSolo.ClearData();
    test.shown.progress.clear();
  }
};

double ProcessorSeconds() {
  return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}

void AllForms(benchmark::State& state) {
  static double ofSmallest = 0;  // seconds a form in the first size
  const int count = static_cast<int>(state.range(0));
  Practices practices(count);
  lm::FormPrinter printer(practices.ledger);
  practices.MakeAll(printer);
  practices.TakeBack();
  double seconds = 0;
  int forms = 0;
  for (auto _ : state) {
    const double start = ProcessorSeconds();
    const int made = practices.MakeAll(printer);
    const double taken = ProcessorSeconds() - start;
    state.SetIterationTime(taken);
    seconds += taken;
    forms += made;
    if (made < count) state.SkipWithError("not every practice got its form");
    if (!practices.test.shown.messages.empty()) state.SkipWithError("a message was shown");
    practices.TakeBack();
  }
  const double aForm = seconds / forms;
  if (count == kSmallest) ofSmallest = aForm;
  state.counters["us_a_form"] = aForm * 1e6;
  state.counters["times_the_smallest"] = ofSmallest > 0 ? aForm / ofSmallest : 0;
}

BENCHMARK(AllForms)->Arg(kSmallest)->Arg(50)->Arg(200)->UseManualTime()->Unit(
    benchmark::kMillisecond);

}  // namespace
