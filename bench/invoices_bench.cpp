// A batch of invoices over the uninvoiced sessions of 60 practices, with the template that comes
// first and its documents written. Times are processor time. Each size tells what a session costs
// and how much that is beside the smallest size: it must be about the same.

#include <benchmark/benchmark.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "core/formatting.h"
#include "core/options.h"
#include "documents/prepareinvoices.h"
#include "documents/shippedtemplates.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kPractices = 60;
constexpr int kSmallest = 1'000;  // sessions

struct Month {
  lm::test::TestLedger test;
  lm::Ledger& ledger = test.ledger;

  // With `branches` all practices but the first are branches of it, and share its invoice.
  Month(int sessions, bool branches) {
    lm::SetOption(ledger, lm::optInvoiceTemplate, "Light Blue.tmpl");
    lm::SetMyDetail(ledger, lm::kFirstNameField, "Alex");
    lm::SetMyDetail(ledger, lm::kLastNameField, "Morgan");
    lm::PlaceShippedTemplates(ledger);
    std::filesystem::create_directories(ledger.File("Invoices"));
    lm::SetOption(ledger, lm::optAllBranchesOnOneInvoice, branches ? "TRUE" : "FALSE");
    for (int i = 1; i <= kPractices; ++i)
      test.AddRow(ledger.fgPractices,
                  {"NAME=Practice " + std::to_string(i), "ADDR1=1 High Street", "POSTCODE=AB1 2CD",
                   "PMANAGER=Mrs Hill", branches && i > 1 ? "BRANCHOF=1" : "BRANCHOF="});
    for (int i = 0; i < sessions; ++i) AddSession(i);
    lm::FormatTables(ledger);
  }

  void AddSession(int i) {
    lm::Grid& sessions = ledger.fgSessions;
    const int row = sessions.AddItem("");
    const std::pair<const char*, std::string> kCells[] = {
        {"ID", std::to_string(i + 1)},
        {"PRACTICE", std::to_string(1 + i * 7 % kPractices)},
        {"SDATE", lm::CellText(lm::DateSerial(2020, 1, 1 + i % 2000))},
        {"STIME", "08:30"},
        {"ETIME", "12:30"},
        {"SESS_TYPE", "1"},
        {"RATE", std::to_string(200 + i % 300) + ".00"},
        {"EXTRAS", "10.00"},
        {"EXPENSES", "0.00"},
        {"EMPLOYERCONTRIB", "25.88"},
        {"TOTAL", std::to_string(235 + i % 300) + ".88"}};
    for (const auto& [key, text] : kCells) sessions.SetTextMatrix(row, key, text);
  }

  int Prepare() { return lm::PrepareInvoices(ledger, {0, 109574, "", "03/02/2026"}); }
  void TakeBack() {
    lm::Grid& sessions = ledger.fgSessions;
    const int invoice = sessions.ColIndex("INVOICE");
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row)
      sessions.SetTextMatrix(row, invoice, "");
    ledger.fgInvoices.ClearData();
    // The next ones go into a new folder: file systems are slower where files just went.
    static int folders = 0;
    std::filesystem::rename(ledger.File("Invoices"),
                            ledger.File("Invoices " + std::to_string(++folders)));
    std::filesystem::create_directories(ledger.File("Invoices"));
    test.shown.messages.clear();
    test.shown.progress.clear();
  }
};

// Of all invoices that the batch wrote.
int PagesIn(const std::filesystem::path& folder) {
  constexpr std::string_view kPage = "/Type /Page ";
  int pages = 0;
  for (const auto& document : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(document.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    for (std::size_t at = 0; (at = bytes.find(kPage, at)) != std::string::npos; ++at) ++pages;
  }
  return pages;
}

double ProcessorSeconds() {
  return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}

void PrepareBatch(benchmark::State& state, bool branches) {
  static std::map<bool, double> ofSmallest;  // seconds a session in the first size
  const int sessions = static_cast<int>(state.range(0));
  Month month(sessions, branches);
  double seconds = 0;
  int pages = 0;
  for (auto _ : state) {
    const double start = ProcessorSeconds();
    const int made = month.Prepare();
    const double taken = ProcessorSeconds() - start;
    state.SetIterationTime(taken);
    seconds += taken;
    if (made != (branches ? 1 : kPractices))
      state.SkipWithError("not every practice got its invoice");
    if (month.test.shown.messages.size() != 1) state.SkipWithError("a message was shown");
    pages += PagesIn(month.ledger.File("Invoices"));
    month.TakeBack();
  }
  const double aSession = seconds / static_cast<double>(state.iterations()) / sessions;
  if (sessions == kSmallest) ofSmallest[branches] = aSession;
  state.counters["pages_a_second"] = pages / seconds;
  state.counters["us_a_session"] = aSession * 1e6;
  state.counters["times_the_smallest"] = aSession / ofSmallest[branches];
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  for (const int sessions : {kSmallest, 5'000, 25'000}) benchmark->Arg(sessions);
  benchmark->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(PrepareBatch, of_each_practice, false)->Apply(Sizes);
BENCHMARK_CAPTURE(PrepareBatch, of_one_with_branches, true)->Apply(Sizes);

}  // namespace
