// Several rows of a list at once.
#include "shell/severalrows.h"

#include <gtest/gtest.h>

#include "core/change.h"
#include "core/formatting.h"
#include "core/rows.h"
#include "shell/frmMain.h"
#include "shell/pages/expensespage.h"
#include "shell/pages/invoicespage.h"
#include "shell/pages/practicespage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Ids = std::vector<std::string>;

struct RowsDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& sessions = ledger.fgSessions;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  RowsDesk() {
    AddWindows(windows);
    for (const char* name : {"Riverside", "Abbey"})
      test.AddRow(ledger.fgPractices, {std::string("NAME=") + name});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-1", "PRACTICE=1", "SDATE=01/02/2026"});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-2", "PRACTICE=1", "AMOUNT=10"});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-3", "PRACTICE=2", "AMOUNT=20"});
    AddSession("1", "02/02/2026", "1000.5", "");
    AddSession("1", "03/02/2026", "200", "1");
    AddSession("2", "04/02/2026", "30.25", "");
    AddSession("2", "05/02/2026", "4", "");
    test.AddRow(ledger.fgExtras, {"SESSID=1", "ITEM=Visit", "RATE=5"});
    FormatTables(ledger);
    ledger.starting = false;
    window = std::make_unique<frmMain>(ledger, windows);
    window->ShowPage(Page::Sessions);
    window->Enter(window->PageOf<SessionsPage>().tabSessions, "All");
  }

  void AddSession(const std::string& practice, const std::string& date, const std::string& total,
                  const std::string& invoice) {
    test.AddRow(sessions, {"PRACTICE=" + practice, "SDATE=" + date, "TOTAL=" + total,
                           "INVOICE=" + invoice, "SESS_TYPE=1", "NOTES=one\ttwo\r\nthree"});
  }
  RecordList& ListOf(const Grid& table) { return *window->FrontPage().ListOf(table); }
  // By ID; the last one has the cursor.
  RecordList& Select(Grid& table, const Ids& ids) {
    std::vector<int> rows;
    for (const std::string& id : ids) rows.push_back(RecordRow(table, id));
    table.Select(rows.back(), 2);
    RecordList& list = ListOf(table);
    list.SelectRows(rows);
    return list;
  }
  Ids IdsOf(const Grid& table) {
    Ids ids;
    for (const int row : Records(table)) ids.push_back(table.TextMatrix(row, "ID"));
    return ids;
  }
};

TEST_F(RowsDesk, SaysWhatIsSelected) {
  EXPECT_EQ(SelectionText(Select(sessions, {"1"})), "");
  EXPECT_EQ(SelectionText(Select(sessions, {"1", "3"})),
            "2 sessions selected, \xA3"
            "1,030.75");
  // The cursor has moved on since: what it stands on is what is selected.
  sessions.Select(RecordRow(sessions, "4"), 2);
  EXPECT_EQ(SelectionText(ListOf(sessions)), "");
  EXPECT_EQ(ListOf(sessions).SelectedRows(), std::vector<int>{RecordRow(sessions, "4")});
}

TEST_F(RowsDesk, ASelectionIsGoneWhenTheListIsAnother) {
  const auto several = [&] { return ListOf(sessions).SelectedRows().size() > 1; };
  Select(sessions, {"1", "3"});
  ASSERT_TRUE(several());
  window->HeaderClicked(sessions, sessions.ColIndex("SDATE"));
  EXPECT_FALSE(several());
  Select(sessions, {"1", "3"});
  window->Choose(window->PageOf<SessionsPage>().cboGroupSessions, 1);
  EXPECT_FALSE(several());
  Select(sessions, {"1", "3"});
  EXPECT_TRUE(several());
  window->Enter(window->PageOf<SessionsPage>().txtFilterSessions, "riverside");
  EXPECT_FALSE(several());
}

TEST_F(RowsDesk, DeletesWithOneQuestionAndOneUndo) {
  for (const int group : {0, 1}) {
    window->Choose(window->PageOf<SessionsPage>().cboGroupSessions, group);
    Select(sessions, {"1", "2", "3"});
    test.shown.answers = {Answer::Yes};
    window->Press(window->PageOf<SessionsPage>().cmdDeleteSession);
    EXPECT_EQ(IdsOf(sessions).size(), 2u) << group;
    EXPECT_GE(RecordRow(sessions, "2"), 0) << "it is on an invoice";
    EXPECT_FALSE(ledger.fgExtras.HasData());
    ASSERT_TRUE(ledger.history.Undo());
    EXPECT_EQ(IdsOf(sessions).size(), 4u) << group;
    EXPECT_TRUE(ledger.fgExtras.HasData());
  }
  Select(sessions, {"1", "3"});
  test.shown.answers = {Answer::No};
  window->Press(window->PageOf<SessionsPage>().cmdDeleteSession);
  EXPECT_EQ(IdsOf(sessions).size(), 4u);
}

TEST_F(RowsDesk, AnotherListKeepsItsOwnRules) {
  window->ShowPage(Page::Practices);
  Select(ledger.fgPractices, {"1", "2"});
  test.shown.answers = {Answer::Yes};
  window->Press(window->PageOf<PracticesPage>().cmdDeletePractice);
  EXPECT_EQ(IdsOf(ledger.fgPractices), (Ids{"1", "2"})) << "both have sessions";
}

TEST_F(RowsDesk, PutsSessionsOnTheInvoicesOfTheirPractices) {
  Select(sessions, {"1", "2", "3", "4"});
  test.shown.answers = {Answer::Yes};
  PutOnInvoices(ledger, ListOf(sessions));
  const auto invoiceOf = [&](const char* id) {
    return sessions.TextMatrix(RecordRow(sessions, id), "INVOICE");
  };
  EXPECT_EQ(invoiceOf("1"), "2");
  EXPECT_EQ(invoiceOf("2"), "1");
  EXPECT_EQ(invoiceOf("3"), "3");
  EXPECT_EQ(invoiceOf("4"), "3");
  EXPECT_EQ(ledger.fgInvoices.TextMatrix(RecordRow(ledger.fgInvoices, "3"), "AMOUNT"), "54.25");
  ASSERT_TRUE(ledger.history.Undo());
  EXPECT_EQ(invoiceOf("1") + invoiceOf("3"), "");
}

TEST_F(RowsDesk, MarksInvoicesOnADay) {
  window->ShowPage(Page::Invoices);
  MarkInvoices(ledger, Select(ledger.fgInvoices, {"1", "2", "3"}), "SDATE", "05/02/2026");
  const auto sent = [&](const char* id) {
    return ledger.fgInvoices.TextMatrix(RecordRow(ledger.fgInvoices, id), "SDATE");
  };
  EXPECT_EQ(sent("1"), "01/02/2026") << "it had its day";
  EXPECT_EQ(sent("2") + sent("3"), "05/02/202605/02/2026");
  ASSERT_TRUE(ledger.history.Undo());
  EXPECT_EQ(sent("2") + sent("3"), "");
}

TEST_F(RowsDesk, CopiesWhatASpreadsheetTakes) {
  const std::string text = CopiedRows(Select(sessions, {"1", "3"}));
  EXPECT_EQ(std::ranges::count(text, '\n'), 3);
  EXPECT_TRUE(text.starts_with("Practice\tInvoice\tStart Date\t")) << text;
  EXPECT_NE(text.find("\r\nRiverside\t\t02/02/2026\t"), std::string::npos) << text;
  EXPECT_NE(text.find("\t1000.50\t"), std::string::npos) << text;
  EXPECT_NE(text.find("\tone two  three\t"), std::string::npos) << text;
  EXPECT_EQ(text.find("1,000"), std::string::npos);
}

TEST_F(RowsDesk, AThousandAreDeletedInOneGo) {
  for (int i = 0; i < 1000; ++i) AddSession("1", "06/02/2026", "1", "");
  window->ShowPage(Page::Sessions);
  Ids ids = IdsOf(sessions);
  std::erase(ids, "2");
  Select(sessions, ids);
  test.shown.answers = {Answer::Yes};
  window->Press(window->PageOf<SessionsPage>().cmdDeleteSession);
  EXPECT_EQ(IdsOf(sessions), Ids{"2"});
  ASSERT_TRUE(ledger.history.Undo());
  EXPECT_EQ(IdsOf(sessions).size(), 1004u);
}

}  // namespace
}  // namespace lm
