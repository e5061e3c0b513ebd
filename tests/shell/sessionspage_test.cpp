// The Sessions page: its periods, its groups, and that neither leaves a trace in the data.
#include <gtest/gtest.h>

#include <set>

#include "core/change.h"
#include "core/datafile.h"
#include "core/formatting.h"
#include "core/options.h"
#include "records/frmSession.h"
#include "shell/frmMain.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Ids = std::vector<std::string>;

struct SessionsDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& sessions = ledger.fgSessions;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  SessionsPage* page = nullptr;

  SessionsDesk() {
    AddWindows(windows);
    test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
    test.AddRow(ledger.fgPractices, {"NAME=abbey"});
  }

  void Session(const std::string& date, const std::string& practice, const std::string& rate,
               const std::vector<std::string>& more = {}) {
    std::vector<std::string> cells{"SDATE=" + date, "PRACTICE=" + practice, "RATE=" + rate,
                                   "TOTAL=" + rate, "SESS_TYPE=1"};
    cells.insert(cells.end(), more.begin(), more.end());
    test.AddRow(sessions, cells);
  }

  void Open(std::string_view period = "All") {
    FormatTables(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    page = &window->PageOf<SessionsPage>();
    window->ShowPage(Page::Sessions);
    window->Enter(page->tabSessions, period);
  }

  // Ids of the sessions in sight; a group row stands as its title and its sum.
  Ids Shown() {
    Ids shown;
    const int title = page->cboGroupSessions.Text() == "Month" ? sessions.ColIndex(kGroupMonthKey)
                                                               : sessions.ColIndex("PRACTICE");
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
      if (!sessions.RowVisible(row)) continue;
      shown.push_back(sessions.IsSubtotal(row) ? sessions.TextMatrix(row, title) + "=" +
                                                     sessions.DisplayText(row, "TOTAL")
                                               : sessions.TextMatrix(row, "ID"));
    }
    return shown;
  }
};

TEST_F(SessionsDesk, PeriodsAtTheirEdges) {
  // Today is 3 February 2026; ids follow the order.
  const char* dates[] = {"05/04/2025", "06/04/2025", "31/12/2025", "01/01/2026",
                         "23/01/2026", "24/01/2026", "31/01/2026", "01/02/2026",
                         "23/02/2026", "24/02/2026", "28/02/2026", "01/03/2026",
                         "05/04/2026", "06/04/2026", "banana",     ""};
  for (const char* date : dates) Session(date, "1", "10");
  sessions.SetTextMatrix(2, "INVOICE", "7");
  Open();
  const struct {
    std::string_view period;
    Ids shown;
  } kCases[] = {
      {"Current", {"6", "7", "8", "9", "15", "16"}},
      {"This Month", {"8", "9", "10", "11"}},
      {"Last Month", {"4", "5", "6", "7"}},
      {"This Tax Year", {"2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13"}},
      {"Uninvoiced",
       {"2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}},
      {"All",
       {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}},
  };
  for (const auto& [period, shown] : kCases) {
    EXPECT_TRUE(window->Enter(page->tabSessions, period));
    EXPECT_EQ(Shown(), shown) << period;
  }
  SetOption(ledger, optCurrentSessionsPast, "lots");
  SetOption(ledger, optCurrentSessionsFuture, "99999999999");
  window->Enter(page->tabSessions, "Current");
  EXPECT_EQ(Shown(), (Ids{"9", "10", "11", "12", "13", "14", "15", "16"}));
}

TEST(TaxYear, StartsOnTheSixthOfApril) {
  const struct {
    Date day;
    int year;
  } kCases[] = {{DateSerial(2026, 4, 5), 2025},
                {DateSerial(2026, 4, 5) + TimeSerial(23, 59), 2025},
                {DateSerial(2026, 4, 6), 2026},
                {DateSerial(2026, 12, 31), 2026},
                {DateSerial(2027, 1, 1), 2026}};
  for (const auto& [day, year] : kCases) EXPECT_EQ(TaxYearStart(day), DateSerial(year, 4, 6));
}

TEST_F(SessionsDesk, GroupsByEachColumn) {
  Session("01/02/2026", "1", "100.10");
  Session("15/01/2027", "2", "20");
  Session("28/02/2026", "2", "3.15");
  Session("banana", "", "1,000");
  Open();
  window->Enter(page->cboGroupSessions, "Practice");
  EXPECT_EQ(Shown(),
            (Ids{"<none>=1,000.00", "4", "abbey=23.15", "2", "3", "Riverside=100.10", "1"}));

  window->Enter(page->cboGroupSessions, "Month");
  EXPECT_EQ(Shown(),
            (Ids{"<none>=1,000.00", "4", "Feb 2026=103.25", "3", "1", "Jan 2027=20.00", "2"}));
  EXPECT_EQ(sessions.ColIndex(kGroupMonthKey), 1);

  window->Enter(page->cboGroupSessions, "Session Type");
  EXPECT_EQ(sessions.ColIndex(kGroupMonthKey), -1);
  EXPECT_EQ(sessions.TextMatrix(2, "SESS_TYPE"), "NHS Normal");
  EXPECT_EQ(sessions.DisplayText(2, "TOTAL"), "1,123.25");

  const int columns = sessions.Cols();
  window->Enter(page->cboGroupSessions, "No Grouping");
  EXPECT_EQ(sessions.Cols(), columns);
  EXPECT_EQ(sessions.Rows(), 6);
}

TEST_F(SessionsDesk, TwoPracticesOfOneNameAreTwoGroups) {
  const int riverside = ledger.fgPractices.FindRow("1", "ID");
  const int abbey = ledger.fgPractices.FindRow("2", "ID");
  ledger.fgPractices.SetTextMatrix(abbey, "NAME", ledger.fgPractices.TextMatrix(riverside, "NAME"));
  RefreshPracticeLists(ledger);
  Session("01/02/2026", "2", "20");
  Session("02/02/2026", "1", "100");
  Session("03/02/2026", "2", "3");
  Open();
  window->Enter(page->cboGroupSessions, "Practice");
  EXPECT_EQ(Shown(), (Ids{"Riverside=100.00", "2", "Riverside=23.00", "1", "3"}));
  sessions.SetRowCollapsed(4, true);
  window->ShowPage(Page::Sessions);
  EXPECT_EQ(Shown(), (Ids{"Riverside=100.00", "2", "Riverside=23.00"})) << "the other stays open";
}

TEST_F(SessionsDesk, SumsTakeOnlyTheSessionsInSight) {
  Session("01/02/2026", "1", "100");
  Session("01/02/2020", "1", "7");
  Session("01/02/2020", "2", "8");
  Open("Current");
  window->Enter(page->cboGroupSessions, "Practice");
  EXPECT_EQ(Shown(), (Ids{"Riverside=100.00", "1"}));
  window->Enter(page->tabSessions, "All");
  EXPECT_EQ(Shown(), (Ids{"abbey=8.00", "3", "Riverside=107.00", "1", "2"}));
}

TEST_F(SessionsDesk, SavingAGroupedListStoresTheUngroupedData) {
  Session("01/02/2026", "1", "100");
  Session("01/03/2026", "2", "20");
  Open();
  const int columns = sessions.Cols();
  SaveOptions(ledger);
  for (const std::string& group : GroupCaptions(kGroupedSessions)) {
    ASSERT_TRUE(window->Enter(page->cboGroupSessions, group));
    const Ids before = Shown();
    ASSERT_TRUE(window->SaveAll());
    EXPECT_EQ(Shown(), before) << group;
    EXPECT_EQ(page->cboGroupSessions.Text(), group);

    test::ScriptedPlatform other;
    Ledger reloaded(other.platform);
    reloaded.programDirectory = ledger.programDirectory;
    ASSERT_TRUE(LoadData(reloaded));
    EXPECT_EQ(reloaded.fgSessions.Rows(), 4) << group;
    EXPECT_EQ(reloaded.fgSessions.Cols(), columns) << group;
    EXPECT_EQ(reloaded.fgSessions.FindCol(kGroupMonthKey), -1);
  }
}

TEST_F(SessionsDesk, SortingKeepsTheGroupsAndASecondClickReverses) {
  Session("01/02/2026", "1", "9");
  Session("02/02/2026", "1", "100");
  Session("03/02/2026", "2", "50");
  Open();
  const auto click = [&](std::string_view key) {
    window->HeaderClicked(sessions, sessions.ColIndex(key));
  };
  click("RATE");
  EXPECT_EQ(Shown(), (Ids{"1", "3", "2"}));
  click("RATE");
  EXPECT_EQ(Shown(), (Ids{"2", "3", "1"}));
  EXPECT_TRUE(window->SortOf(sessions).descending);
  click("SDATE");
  EXPECT_EQ(Shown(), (Ids{"1", "2", "3"}));

  window->Enter(page->cboGroupSessions, "Month");
  click("RATE");
  EXPECT_EQ(Shown(), (Ids{"Feb 2026=159.00", "1", "3", "2"}));
  window->HeaderClicked(sessions, 0);  // the marker
  window->HeaderClicked(sessions, sessions.ColIndex(kGroupMonthKey));
  window->HeaderClicked(sessions, -1);
  EXPECT_EQ(window->SortOf(sessions).key, "RATE");
  window->ColumnMoved(sessions, sessions.ColIndex("RATE"), 1);  // the groups' column stays in front
  EXPECT_EQ(sessions.ColIndex(kGroupMonthKey), 1);
  window->ColumnMoved(sessions, sessions.ColIndex("RATE"), 2);
  EXPECT_EQ(sessions.ColIndex("RATE"), 2);
  window->Enter(page->cboGroupSessions, "No Grouping");
  EXPECT_EQ(sessions.ColIndex("RATE"), 1);
}

TEST_F(SessionsDesk, CollapsedGroupsStayCollapsedThroughASave) {
  Session("01/02/2026", "1", "9");
  Session("01/02/2026", "2", "5");
  Open();
  EXPECT_FALSE(page->lblCollapseSessions.Visible());
  window->Enter(page->cboGroupSessions, "Practice");
  window->Press(page->lblCollapseSessions);
  EXPECT_EQ(Shown(), (Ids{"abbey=5.00", "Riverside=9.00"}));
  sessions.SetRowCollapsed(2, false);
  SaveOptions(ledger);
  ASSERT_TRUE(window->SaveAll());
  EXPECT_EQ(Shown(), (Ids{"abbey=5.00", "2", "Riverside=9.00"}));
  window->Press(page->lblGrpBySession);
  EXPECT_EQ(Shown(), (Ids{"abbey=5.00", "2", "Riverside=9.00", "1"}));
}

TEST_F(SessionsDesk, ASessionJustSavedStaysInSightUntilTheTabChanges) {
  Session("01/02/2026", "1", "9");
  Open("Current");
  window->Enter(page->cboGroupSessions, "Practice");
  test.shown.modal.push_back([](Screen& screen) {
    auto& session = dynamic_cast<frmSession&>(screen);
    session.Enter(session.cPractice, "abbey");
    session.Enter(session.cSess_Type, "Private");
    session.Enter(session.cSDate, "01/06/2030");
    session.Enter(session.cRate, "55");
    session.Press(session.cmdOk);
  });
  window->Press(page->cmdAddSession);
  EXPECT_EQ(Shown(), (Ids{"abbey=55.00", "2", "Riverside=9.00", "1"}));
  EXPECT_EQ(sessions.TextMatrix(sessions.Row(), "ID"), "2");

  const int row = sessions.FindRow("1", "ID");
  sessions.Select(row, 1);
  window->Edit(sessions, row, sessions.ColIndex("SDATE"), "01/01/2020");
  EXPECT_EQ(Shown(), (Ids{"abbey=55.00", "2", "Riverside=9.00", "1"}));
  window->Edit(sessions, sessions.FindRow("1", "ID"), sessions.ColIndex("RATE"), "10");
  EXPECT_EQ(Shown(), (Ids{"abbey=55.00", "2", "Riverside=10.00", "1"}));

  window->Enter(page->tabSessions, "Current");  // chosen afresh
  window->Enter(page->tabSessions, "This Month");
  EXPECT_EQ(Shown(), Ids{});
}

// What a view of the list is told.
struct ListWatcher : GridObserver {
  int cells = 0, layouts = 0;
  std::set<int> rows;
  void CellsChanged(Grid&, const CellRange& range) override {
    ++cells;
    for (int row = range.row1; row <= range.row2; ++row) rows.insert(row);
  }
  void RowsInserted(Grid&, int, int) override { ++layouts; }
  void RowsRemoved(Grid&, int, int) override { ++layouts; }
  void LayoutChanged(Grid&) override { ++layouts; }
  void CursorMoved(Grid&) override {}
  void GridReset(Grid&) override { ++layouts; }
};

TEST_F(SessionsDesk, AnEditInAListWithoutGroupsTouchesItsRowAlone) {
  for (int i = 0; i < 20; ++i) Session("01/02/2026", "1", "9");
  Open("Current");
  ListWatcher watcher;
  sessions.AddObserver(watcher);
  window->Edit(sessions, 7, sessions.ColIndex("RATE"), "10");
  window->Edit(sessions, 7, sessions.ColIndex("SDATE"), "01/01/2020");
  EXPECT_EQ(watcher.rows, std::set<int>{7});
  EXPECT_EQ(watcher.layouts, 0);
  EXPECT_TRUE(sessions.RowVisible(7));
  sessions.RemoveObserver(watcher);
}

TEST_F(SessionsDesk, OnlyWhatIsWorkedOnStaysAgainstItsTab) {
  for (int i = 0; i < 3; ++i) Session("01/02/2026", "1", "9");
  Open("Uninvoiced");
  {
    const Change change(ledger, "Prepare Invoices");
    for (const int row : {2, 3}) sessions.SetTextMatrix(row, "INVOICE", "1");
  }
  EXPECT_EQ(Shown(), Ids{"3"}) << "many at once: none of them was worked on by itself";
  window->ShowPage(Page::Practices);
  {
    const Change change(ledger, "Add To Invoice");
    sessions.SetTextMatrix(4, "INVOICE", "1");
  }
  window->ShowPage(Page::Sessions);
  EXPECT_EQ(Shown(), Ids{"3"}) << "remembered while the page was out of sight";
  window->Enter(page->tabSessions, "All");
  window->Enter(page->tabSessions, "Uninvoiced");
  EXPECT_EQ(Shown(), Ids{});
}

TEST_F(SessionsDesk, TheOrderIsTheOneThatTheHeaderShows) {
  Session("01/02/2026", "1", "9");
  Session("02/01/2026", "2", "100");
  Session("03/02/2026", "1", "50");
  Open();
  window->HeaderClicked(sessions, sessions.ColIndex("RATE"));
  window->HeaderClicked(sessions, sessions.ColIndex("RATE"));
  for (const char* group : {"Practice", "Month", "No Grouping"})
    window->Enter(page->cboGroupSessions, group);
  EXPECT_EQ(Shown(), (Ids{"2", "3", "1"}));
  EXPECT_EQ(window->SortOf(sessions).key, "RATE");
}

TEST_F(SessionsDesk, ButtonsActOnTheSelectedSession) {
  Session("01/02/2026", "1", "9");
  Session("02/02/2026", "1", "8");
  Open();
  sessions.Select(-1, -1);
  for (Button* button : {&page->cmdEditSession, &page->cmdCopySession, &page->cmdDeleteSession}) {
    window->Press(*button);
    EXPECT_TRUE(test.shown.messages.back().minorPrompt.starts_with("There is no session selected"));
  }
  window->Enter(page->cboGroupSessions, "Practice");
  test.shown.messages.clear();
  sessions.Select(2, 1);  // a group row
  window->Press(page->cmdCopySession);
  EXPECT_EQ(test.shown.TakeMessage(), "Copy Session");

  std::string caption;
  sessions.Select(sessions.FindRow("2", "ID"), 1);
  test.shown.modal.push_back([&](Screen& screen) {
    caption = screen.Caption();
    auto& session = dynamic_cast<frmSession&>(screen);
    session.Enter(session.cSDate, "04/02/2026");
    session.Press(session.cmdOk);
  });
  window->Press(page->cmdCopySession);
  EXPECT_EQ(caption, "Copy Session");
  EXPECT_EQ(Shown(), (Ids{"Riverside=25.00", "1", "2", "3"}));

  sessions.Select(sessions.FindRow("3", "ID"), 1);
  test.shown.answers = {Answer::Yes};
  window->Press(page->cmdDeleteSession);
  EXPECT_EQ(Shown(), (Ids{"Riverside=17.00", "1", "2"}));
}

}  // namespace
}  // namespace lm
