// The foot of a list: what is in sight, why the rest is not, and the sums.
#include "shell/listfoot.h"

#include <gtest/gtest.h>

#include "core/formatting.h"
#include "shell/frmMain.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/practicespage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct FootDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  SessionsPage* page = nullptr;

  FootDesk() {
    AddWindows(windows);
    test.AddRow(ledger.fgPractices, {"NAME=Riverside", "RATE_NORMAL=80"});
    const auto add = [&](const char* date, const char* rate, const char* total, const char* note) {
      test.AddRow(ledger.fgSessions,
                  {"PRACTICE=1", std::string("SDATE=") + date, std::string("RATE=") + rate,
                   std::string("TOTAL=") + total, std::string("NOTES=") + note, "SESS_TYPE=1"});
    };
    add("02/02/2026", "100.10", "114.48", "keys");
    add("03/02/2026", "1384.20", "1583.5", "");
    add("04/02/2026", "rubbish", "", "keys");
    add("01/05/2015", "0.1", "0.2", "");
    FormatTables(ledger);
    ledger.starting = false;
    window = std::make_unique<frmMain>(ledger, windows);
    page = &window->PageOf<SessionsPage>();
    window->ShowPage(Page::Sessions);
    window->Enter(page->tabSessions, "All");
  }

  ListFoot Foot() { return FootOf(*page->ListOf(ledger.fgSessions)); }
  static std::string SumOf(const ListFoot& foot, std::string_view key) {
    for (const FootSum& sum : foot.sums)
      if (sum.key == key) return sum.text;
    return "none";
  }
};

TEST_F(FootDesk, CountsAndSumsWhatIsInSight) {
  EXPECT_EQ(Foot().Sentence(), "4 sessions");
  EXPECT_EQ(SumOf(Foot(), "RATE"), "1,484.40");
  EXPECT_EQ(SumOf(Foot(), "TOTAL"), "1,698.18");

  window->Enter(page->tabSessions, "This Tax Year");
  EXPECT_EQ(Foot().Sentence(), "3 of 4 sessions; 1 is outside This Tax Year");
  window->Enter(page->txtFilterSessions, "keys");
  window->Enter(page->tabSessions, "All");
  EXPECT_EQ(Foot().Sentence(), "2 of 4 sessions; 2 do not match \"keys\"");
  EXPECT_EQ(SumOf(Foot(), "RATE"), "100.10");
}

TEST_F(FootDesk, NamesWhatHidesAndShowsAll) {
  test.AddRow(ledger.fgInvoices, {"NUMBER=7", "PRACTICE=1"});
  ledger.fgSessions.SetTextMatrix(ledger.fgSessions.FixedRows(), "INVOICE", "1");
  window->Enter(page->tabSessions, "Uninvoiced");
  EXPECT_EQ(Foot().Sentence(), "3 of 4 sessions; 1 is outside Uninvoiced");
  window->Enter(page->txtFilterSessions, "keys");
  EXPECT_EQ(Foot().Sentence(),
            "1 of 4 sessions; 3 are outside Uninvoiced or do not match \"keys\"");
  page->ShowAll();
  EXPECT_EQ(Foot().Sentence(), "4 sessions");
  EXPECT_EQ(page->tabSessions.Text(), "All");
  EXPECT_EQ(page->txtFilterSessions.Text(), "");
}

TEST_F(FootDesk, GroupsAndHiddenColumnsAddNothing) {
  for (int group = 1; group < page->cboGroupSessions.Count(); ++group) {
    window->Choose(page->cboGroupSessions, group);
    page->ListOf(ledger.fgSessions)->Grouping()->CollapseAll();
    EXPECT_EQ(Foot().Sentence(), "4 sessions") << group;
    EXPECT_EQ(SumOf(Foot(), "TOTAL"), "1,698.18") << group;
  }
  ledger.fgSessions.SetColHidden(ledger.fgSessions.ColIndex("RATE"), true);
  EXPECT_EQ(SumOf(Foot(), "RATE"), "none");
}

TEST_F(FootDesk, RatesPerHourAreNotAddedUp) {
  EXPECT_TRUE(FootOf(*window->PageOf<PracticesPage>().ListOf(ledger.fgPractices)).sums.empty());
}

TEST_F(FootDesk, AnEmptyListSaysNothing) {
  const ListFoot foot = FootOf(*window->PageOf<PensionPage>().ListOf(ledger.fgPensionA));
  EXPECT_EQ(foot.Sentence(), "");
  EXPECT_TRUE(foot.sums.empty());
}

}  // namespace
}  // namespace lm
