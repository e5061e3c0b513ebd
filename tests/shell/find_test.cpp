// The Find window: what finds which records, in which order they stand, and what opens.
#include <gtest/gtest.h>

#include "core/formatting.h"
#include "shell/frmFind.h"
#include "shell/frmMain.h"
#include "shell/pages/expensespage.h"
#include "shell/pages/pensionpage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Texts = std::vector<std::string>;

struct FindDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  FindDesk() {
    AddWindows(windows);
    test.AddRow(ledger.fgPractices, {"NAME=Riverside", "NOTES=Ring twice"});
    test.AddRow(ledger.fgPractices, {"NAME=Abbey", "POSTCODE=AB1 2CD"});
    test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-0012", "PRACTICE=1", "IDATE=28/02/2026",
                                    "SDATE=01/03/2026", "AMOUNT=384.00"});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-0013", "PRACTICE=2", "IDATE=28/02/2026",
                                    "SDATE=01/03/2026", "PAYDATE=09/03/2026", "AMOUNT=90"});
    test.AddRow(ledger.fgInvoices, {"NUMBER=INV-0014", "PRACTICE=77", "IDATE=banana"});
    const auto session = [&](const char* practice, const char* date, const char* invoice) {
      test.AddRow(ledger.fgSessions,
                  {std::string("PRACTICE=") + practice, std::string("SDATE=") + date,
                   std::string("INVOICE=") + invoice, "TOTAL=192.00", "SESS_TYPE=1"});
    };
    session("1", "03/02/2026", "1");
    session("3", "14/02/2026", "");
    session("1", "11/03/2026", "");
    session("2", "10/02/2026", "2");
    session("99", "", "99");
    test.AddRow(ledger.fgExtras, {"SESSID=3", "ITEM=Cremation form"});
    test.AddRow(ledger.fgPensionA,
                {"PRACTICE=2", "MONTH=01/11/2025", "AMOUNT=90", "SENTTOPRACTICE=01/12/2025"});
    test.AddRow(ledger.fgPensionB, {"MONTH=01/11/2025", "AMOUNT=90"});
    test.AddRow(ledger.fgPensionC, {"PRACTICE=2", "MONTH=01/11/2012"});
    test.AddRow(ledger.fgExpenses, {"DATE=05/01/2019", "ITEM=Stethoscope", "AMOUNT=84"});
    test.AddRow(ledger.fgEvents, {"TITLE=Skiing", "SDATE=21/02/2026", "EDATE=28/02/2026"});
    FormatTables(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
  }

  // "Kind ID" of each record, and the lines between them as they stand.
  Texts Found(std::string_view typed) {
    frmFind find(*window);
    find.txtFind.onTyping(typed);
    return Lines(find.fgResults);
  }
  static Texts Lines(const Grid& results) {
    Texts lines;
    for (int row = results.FixedRows(); row < results.Rows(); ++row) {
      const std::string kind = results.TextMatrix(row, "KIND");
      lines.push_back(kind.empty()
                          ? results.TextMatrix(row, "DATE") + results.TextMatrix(row, "WHAT")
                          : kind + " " + results.TextMatrix(row, "ID"));
    }
    return lines;
  }
};

TEST_F(FindDesk, FindsTheRecordsThatHoldAllWords) {
  const struct {
    std::string_view typed;
    Texts found;
  } kCases[] = {
      {"", {}},
      {"   ", {}},
      {"riverside feb", {"Invoices", "Invoices 1", "Sessions", "Sessions 2", "Sessions 1"}},
      {"riverside",
       {"Practices", "Practices 1", "Practices 3", "Invoices", "Invoices 1", "Sessions",
        "Sessions 3", "Sessions 2", "Sessions 1"}},
      {"384", {"Invoices", "Invoices 1"}},
      {"inv-0012", {"Invoices", "Invoices 1", "Sessions", "Sessions 1"}},
      {"unpaid", {"Invoices", "Invoices 1", "Invoices 3", "Sessions", "Sessions 1"}},
      {"not paid 2026", {"Invoices", "Invoices 1", "Sessions", "Sessions 1"}},
      {"paid", {"Invoices", "Invoices 2", "Sessions", "Sessions 4"}},
      {"unsent", {"Invoices", "Invoices 3", "Forms B", "Forms B 1", "Forms C", "Forms C "}},
      {"form a nov", {"Forms A", "Forms A 1"}},
      {"pension nov 2025", {"Forms A", "Forms A 1", "Forms B", "Forms B 1"}},
      {"form locked", {"Forms A", "Forms A 1"}},
      {"14/02/2026", {"Sessions", "Sessions 2"}},
      {"cremation", {"Sessions", "Sessions 3"}},
      {"session not invoiced", {"Sessions", "Sessions 3", "Sessions 2"}},
      {"ring", {"Practices", "Practices 1"}},
      {"ab1 2cd", {"Practices", "Practices 2"}},
      {"skiing", {"Events", "Events 1"}},
      {"stetho 84", {"Expenses", "Expenses "}},
      {"77", {}},
      {"no such thing", {}},
  };
  for (const auto& [typed, found] : kCases) EXPECT_EQ(Found(typed), found) << typed;
}

TEST_F(FindDesk, AKindShowsTwoHundredAndSaysHowManyMore) {
  for (int i = 0; i < 312; ++i) test.AddRow(ledger.fgEvents, {"TITLE=Course " + std::to_string(i)});
  const Texts lines = Found("course");
  ASSERT_EQ(lines.size(), 202u);
  EXPECT_EQ(lines.back(), "and 112 more");
}

TEST_F(FindDesk, SaysWhatThereIs) {
  frmFind find(*window);
  const struct {
    std::string_view typed, said;
    bool opens;
  } kCases[] = {{"riverside feb", "3 records", true},
                {"skiing", "1 record", true},
                {"  zzz\" ", "Nothing matches \"zzz\"\".", false},
                {" ", "", false}};
  for (const auto& [typed, said, opens] : kCases) {
    find.Enter(find.txtFind, typed);
    EXPECT_EQ(find.lblFound.Text(), said);
    EXPECT_EQ(find.cmdOpen.Enabled(), opens);
  }
}

TEST_F(FindDesk, OpensTheSelectedRecordWhenItHasClosed) {
  const struct {
    std::string_view typed, opened;
  } kCases[] = {{"14/02/2026", "frmSession"},
                {"384", "frmInvoice"},
                {"ring", "frmPractice"},
                {"skiing", "frmEvent"},
                {"form a nov", "frmPensionA"}};
  for (const auto& each : kCases) {
    std::string shown;
    test.shown.modal.push_back([&](Screen& screen) {
      auto& find = dynamic_cast<frmFind&>(screen);
      find.Enter(find.txtFind, each.typed);
      find.Press(find.cmdOpen);
      EXPECT_TRUE(find.Closed());
    });
    test.shown.modal.push_back([&](Screen& screen) { shown = screen.Name(); });
    window->Press(*window->FindField("mnuFind"));
    EXPECT_EQ(shown, each.opened) << each.typed;
    EXPECT_EQ(window->lastSearch, each.typed);
  }
}

TEST_F(FindDesk, ShowsOnItsPageWhatHasNoWindow) {
  const auto open = [&](std::string_view typed) {
    test.shown.modal.push_back([&](Screen& screen) {
      auto& find = dynamic_cast<frmFind&>(screen);
      find.Enter(find.txtFind, typed);
      find.DoubleClick(find.fgResults, find.fgResults.Row(), 1);
    });
    window->Press(*window->FindField("mnuFind"));
  };
  ledger.starting = false;
  window->ShowPage(Page::Expenses);
  window->Enter(window->PageOf<ExpensesPage>().txtFilterExpenses, "nothing of the kind");
  window->ShowPage(Page::Sessions);
  open("stethoscope");
  EXPECT_EQ(window->CurrentPage(), Page::Expenses);
  EXPECT_TRUE(ledger.fgExpenses.RowVisible(ledger.fgExpenses.Row()));
  EXPECT_EQ(ledger.fgExpenses.TextMatrix(ledger.fgExpenses.Row(), "ITEM"), "Stethoscope");
  open("nov 2012");
  EXPECT_EQ(window->CurrentPage(), Page::Pension);
  EXPECT_EQ(window->PageOf<PensionPage>().GridInFront(), &ledger.fgPensionC);
}

TEST_F(FindDesk, HeadingsOpenNothing) {
  frmFind find(*window);
  find.Enter(find.txtFind, "skiing");
  find.DoubleClick(find.fgResults, find.fgResults.FixedRows(), 1);
  EXPECT_FALSE(find.Closed());
  find.OpenChosen();
  EXPECT_TRUE(test.shown.opened.empty());
}

}  // namespace
}  // namespace lm
