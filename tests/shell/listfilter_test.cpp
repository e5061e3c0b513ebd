// The words above a list: with its tabs, groups, edits and Undo.
#include <gtest/gtest.h>

#include "core/change.h"
#include "core/formatting.h"
#include "core/rows.h"
#include "shell/frmMain.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/practicespage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Ids = std::vector<std::string>;

struct FilterDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& sessions = ledger.fgSessions;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  SessionsPage* page = nullptr;

  FilterDesk() {
    AddWindows(windows);
    for (const char* name : {"Riverside", "Abbey", "Riverside"})
      test.AddRow(ledger.fgPractices, {std::string("NAME=") + name});
    const auto add = [&](const char* practice, const char* date, const char* rate,
                         const char* note) {
      test.AddRow(sessions, {std::string("PRACTICE=") + practice, std::string("SDATE=") + date,
                             std::string("RATE=") + rate, std::string("TOTAL=") + rate,
                             std::string("NOTES=") + note, "SESS_TYPE=1"});
    };
    add("1", "02/02/2026", "100", "");
    add("2", "03/02/2026", "1384", "keys");
    add("3", "04/02/2026", "100", "");
    add("1", "01/05/2025", "100", "");
    add("99", "banana", "", "");
    FormatTables(ledger);
    ledger.starting = false;
    window = std::make_unique<frmMain>(ledger, windows);
    page = &window->PageOf<SessionsPage>();
    window->ShowPage(Page::Sessions);
    window->Enter(page->tabSessions, "All");
  }

  void Type(std::string_view typed) { page->txtFilterSessions.onTyping(typed); }
  std::string EmptyText() { return page->ListOf(sessions)->EmptyText(); }

  Ids Shown() {
    Ids shown;
    for (const int row : Records(sessions))
      if (sessions.RowVisible(row)) shown.push_back(sessions.TextMatrix(row, "ID"));
    return shown;
  }
};

TEST_F(FilterDesk, NarrowsAsItIsTypedWhatTheTabShows) {
  const struct {
    std::string_view typed, tab;
    Ids shown;
  } kCases[] = {
      {"riverside", "All", {"1", "3", "4"}},
      {"riverside", "This Month", {"1", "3"}},
      {"Riverside may", "All", {"4"}},
      {"1,384", "All", {"2"}},
      {"KEYS abbey",
       "Current",
       {
           "2",
       }},
      {"xyz", "All", {}},
      {" ", "All", {"1", "2", "3", "4", "5"}},
      {"99", "All", {}},
      {"banana", "This Month", {}},
      {"", "This Month", {"1", "2", "3"}},
  };
  for (const auto& [typed, tab, shown] : kCases) {
    window->Enter(page->tabSessions, tab);
    Type(typed);
    EXPECT_EQ(Shown(), shown) << typed << " on " << tab;
  }
}

TEST_F(FilterDesk, SaysWhyTheListIsEmpty) {
  const std::string usual = EmptyText();
  Type("xyz");
  EXPECT_EQ(EmptyText(), "No session matches \"xyz\". Escape clears the filter.");
  Type(std::string(10'000, 'x'));
  EXPECT_EQ(EmptyText(),
            "No session matches \"" + std::string(40, 'x') + "...\". Escape clears the filter.");
  EXPECT_TRUE(Shown().empty());
  Type("");
  EXPECT_EQ(EmptyText(), usual);
  auto& pension = window->PageOf<PensionPage>();
  window->ShowPage(Page::Pension);
  window->Enter(pension.txtFilterPension, "xyz");
  EXPECT_EQ(pension.ListOf(ledger.fgPensionA)->EmptyText(),
            "No Form A matches \"xyz\". Escape clears the filter.");
  EXPECT_EQ(pension.ListOf(ledger.fgPensionPayments)->EmptyText(),
            "No pension payment matches \"xyz\". Escape clears the filter.");
}

TEST_F(FilterDesk, WhatWasAddedOrEditedStaysUntilOtherWordsAreTyped) {
  window->Enter(page->txtFilterSessions, "abbey");
  const int second = RecordRow(sessions, "2");
  window->Edit(sessions, second, sessions.ColIndex("PRACTICE"), "#1");
  EXPECT_EQ(Shown(), (Ids{"2"}));
  {
    const Change change(ledger, "Add Session");
    const int row = AddRecord(ledger, sessions);
    sessions.SetTextMatrix(row, "ID", "6");
  }
  EXPECT_EQ(Shown().size(), 2u);
  window->Enter(page->txtFilterSessions, "abbey ");  // the same words
  EXPECT_EQ(Shown().size(), 2u);
  Type("abbey k");
  EXPECT_EQ(Shown(), Ids{});
  Type("riverside keys");
  EXPECT_EQ(Shown(), (Ids{"2"}));
}

TEST_F(FilterDesk, UndoBringsBackIntoSight) {
  {
    const Change change(ledger, "Delete Session");
    sessions.RemoveItem(RecordRow(sessions, "2"));
  }
  Type("riverside");
  window->Press(*window->FindField("mnuUndo"));
  EXPECT_EQ(Shown(), (Ids{"1", "2", "3", "4"}));
  Type("riversid");
  EXPECT_EQ(Shown(), (Ids{"1", "3", "4"}));
}

TEST_F(FilterDesk, GroupsHoldWhatIsInSight) {
  window->Enter(page->cboGroupSessions, "Practice");
  Type("riverside 2026");
  EXPECT_EQ(Shown().size(), 2u);
  std::vector<std::string> sums;
  for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row)
    if (sessions.IsSubtotal(row)) sums.push_back(sessions.DisplayText(row, "TOTAL"));
  EXPECT_EQ(sums, (std::vector<std::string>{"100.00", "100.00"}));  // of two practices of one name
  window->HeaderClicked(sessions, sessions.ColIndex("SDATE"));
  EXPECT_EQ(Shown().size(), 2u);
  window->Enter(page->cboGroupSessions, "No Grouping");
  EXPECT_EQ(Shown(), (Ids{"1", "3"}));
  Type("");
  EXPECT_EQ(Shown().size(), 5u);
}

TEST_F(FilterDesk, GoesByTheColumnsThatAreShownAndTheNotes) {
  sessions.SetColHidden(sessions.ColIndex("PRACTICE"), true);
  sessions.SetColHidden(sessions.ColIndex("NOTES"), true);
  Type("abbey");
  EXPECT_EQ(Shown(), Ids{});
  Type("keys");
  EXPECT_EQ(Shown(), (Ids{"2"}));
}

TEST_F(FilterDesk, APageWithoutTabsIsNarrowedToo) {
  auto& practices = window->PageOf<PracticesPage>();
  const Grid& grid = ledger.fgPractices;
  window->ShowPage(Page::Practices);
  window->Enter(practices.txtFilterPractices, "abb");
  const auto shown = [&] {
    int count = 0;
    for (const int row : Records(grid)) count += grid.RowVisible(row);
    return count;
  };
  EXPECT_EQ(shown(), 1);
  EXPECT_EQ(practices.PrintedPeriod(), "\"abb\"");
  window->ShowPage(Page::Sessions);
  window->ShowPage(Page::Practices);
  EXPECT_EQ(shown(), 1);
  window->DataLoaded();
  window->ShowPage(Page::Practices);
  EXPECT_EQ(shown(), 3);
  EXPECT_EQ(practices.txtFilterPractices.Text(), "");
}

}  // namespace
}  // namespace lm
