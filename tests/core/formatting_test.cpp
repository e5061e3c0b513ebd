#include "core/formatting.h"

#include <gtest/gtest.h>

#include "core/options.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

void AddPractice(Ledger& ledger, std::string_view id, std::string_view name) {
  const int row = ledger.fgPractices.AddItem("");
  ledger.fgPractices.SetTextMatrix(row, "ID", id);
  ledger.fgPractices.SetTextMatrix(row, "NAME", name);
}

void AddInvoice(Ledger& ledger, std::string_view id, std::string_view number) {
  const int row = ledger.fgInvoices.AddItem("");
  ledger.fgInvoices.SetTextMatrix(row, "ID", id);
  ledger.fgInvoices.SetTextMatrix(row, "NUMBER", number);
}

TEST(Formatting, WhatTheCellsShow) {
  test::TestLedger t;
  Ledger& ledger = t;
  AddPractice(ledger, "7", "Riverside");
  AddInvoice(ledger, "3", "INV-00003");
  SetOption(ledger, optDateFormat, "ddd dd mmm yyyy");
  SetOption(ledger, optTimeFormat, "h:nn AMPM");
  FormatTables(ledger);
  const struct {
    std::string table, key, cell, shown;
  } cases[] = {
      {"fgSessions", "SDATE", "03/02/2026", "Tue 03 Feb 2026"},
      {"fgSessions", "SDATE", "banana", "banana"},
      {"fgSessions", "STIME", "13:05", "1:05 PM"},
      {"fgSessions", "PRACTICE", "7", "Riverside"},
      {"fgSessions", "PRACTICE", "8", ""},
      {"fgSessions", "INVOICE", "3", "INV-00003"},
      {"fgSessions", "SESS_TYPE", "2", "NHS OOH"},
      {"fgSessions", "SESS_TYPE", "0", "Private"},
      {"fgSessions", "RATE", "1234.5", "1,234.50"},
      {"fgSessions", "RATE", "12,3x", "12,3x"},
      {"fgPractices", "BRANCHOF", "7", "Riverside"},
      {"fgPractices", "BRANCHOF", "99", ""},
      {"fgPensionA", "PRACTICE", "7", "Riverside"},
      {"fgPensionA", "MONTH", "01/02/2026", "Feb 2026"},
      {"fgPensionPayments", "MONTH", "01/02/2026", "Sun 01 Feb 2026"},
      {"fgPensionSolo", "MONTH", "01/02/2026", "Feb 2026"},
      {"fgPensionC", "SESSIONS", "1234", "1,234"},
      {"fgPensionD", "AVC", "1234.5", "1,234.50"},
      {"fgExpenses", "CATEGORY", "0", "Mileage"},
      {"fgSessionExpenses", "CATEGORY", "3", "Other"},
      {"fgEvents", "CATEGORY", "-2", "Vacation"},
      {"fgPensionPayments", "FORM", "SOLO", "SOLO"},
      {"fgPensionPayments", "METHOD", "Shells", "Shells"},
  };
  for (const auto& c : cases) {
    Grid& grid = *ledger.Table(c.table);
    const int row = grid.AddItem("");
    grid.SetTextMatrix(row, c.key, c.cell);
    EXPECT_EQ(grid.DisplayText(row, c.key), c.shown) << c.table << " " << c.key;
  }
}

TEST(Formatting, HiddenColumnsAndTypes) {
  test::TestLedger t;
  Ledger& ledger = t;
  const struct {
    std::string country;
    bool hidden;
  } countries[] = {{"England", false}, {"ENGLAND", false}, {"Scotland", true}, {"", true}};
  for (const auto& c : countries) {
    SetOption(ledger, optPensionCountry, c.country);
    FormatTables(ledger);
    for (const Grid* grid : {&ledger.fgSessions, &ledger.fgPensionA, &ledger.fgInvoices})
      EXPECT_EQ(grid->ColHidden(grid->ColIndex("EMPLOYERCONTRIB")), c.hidden) << c.country;
    EXPECT_FALSE(ledger.fgPensionB.ColHidden(ledger.fgPensionB.ColIndex("EMPLOYERCONTRIB")));
  }
  for (const Grid* grid : ledger.dataTables) {
    const int id = grid->FindCol("ID");
    EXPECT_TRUE(id < 0 || grid->ColHidden(id)) << grid->Name();
  }
  EXPECT_TRUE(ledger.fgExtras.ColHidden(ledger.fgExtras.ColIndex("SESSID")));
  const Grid& sessions = ledger.fgSessions;
  EXPECT_EQ(sessions.ColDataType(sessions.ColIndex("RATE")), DataType::Money);
  EXPECT_EQ(sessions.ColDataType(sessions.ColIndex("ETIME")), DataType::Date);
  EXPECT_EQ(sessions.ColDataType(sessions.ColIndex("NOTES")), DataType::Text);
}

TEST(Formatting, TablesWithoutSomeColumnsAreFormattedToo) {
  test::TestLedger t;
  for (Grid* grid : t.ledger.dataTables) grid->SetCols(2);
  t.ledger.fgPensionC.SetColKey(1, "CONTRIBUTION");
  t.ledger.fgEvents.SetCols(0);
  t.ledger.fgEvents.SetRows(0);
  FormatTables(t);
  EXPECT_EQ(t.ledger.fgPensionC.ColFormat(1), "#,##0.00");
}

TEST(Formatting, PracticesByName) {
  test::TestLedger t;
  Ledger& ledger = t;
  EXPECT_EQ(PracticeList(ledger), "");
  AddPractice(ledger, "1", "north");
  AddPractice(ledger, "2", "");
  AddPractice(ledger, "3", "Abbey");
  AddPractice(ledger, "4", "North");
  AddPractice(ledger, "5", "A|B;C");
  EXPECT_EQ(PracticeList(ledger), "#3;Abbey|#5;A/B;C|#1;north|#4;North");
  EXPECT_EQ(PracticeList(ledger, "1"), "#3;Abbey|#5;A/B;C|#4;North");
  EXPECT_EQ(PracticeItems(ledger)[1].text, "A|B;C");
  EXPECT_EQ(PracticeItems(ledger)[1].data, "5");
}

TEST(Formatting, OnlyTwoTablesTakeANewPracticeAtOnce) {
  test::TestLedger t;
  Ledger& ledger = t;
  FormatTables(ledger);
  AddPractice(ledger, "1", "Abbey");
  RefreshPracticeLists(ledger);
  const auto list = [](const Grid& grid) { return grid.ColComboList(grid.ColIndex("PRACTICE")); };
  EXPECT_EQ(list(ledger.fgSessions), "#1;Abbey");
  EXPECT_EQ(list(ledger.fgPensionPayments), "#1;Abbey");
  EXPECT_EQ(list(ledger.fgInvoices), "");
}

TEST(Formatting, SessionTypesFollowTheRetiredForms) {
  test::TestLedger t;
  SetOption(t, optHasRetiredForms, "TRUE");
  EXPECT_EQ(
      SessionTypeList(t),
      "#1;NHS Normal|#2;NHS OOH Standard|#3;NHS OOH Deputising|#4;NHS Unpensioned|#0;Private");
  SetOption(t, optHasRetiredForms, "FALSE");
  EXPECT_EQ(SessionTypeList(t), "#1;NHS Normal|#2;NHS OOH|#4;NHS Unpensioned|#0;Private");
}

TEST(Formatting, DamagedRecordsAndOptionsMakeNoWrongEntry) {
  test::TestLedger t;
  Ledger& ledger = t;
  AddInvoice(ledger, "1", "INV|1");
  AddInvoice(ledger, "", "INV-2");
  EXPECT_EQ(InvoiceNumberList(ledger), "#1;INV/1");
  SetOption(ledger, optEventCategories, "1;Study;5||;Nameless;3|2|3;Leave");
  FormatTables(ledger);
  EXPECT_EQ(ledger.fgEvents.ColComboList(ledger.fgEvents.ColIndex("CATEGORY")),
            "#1;Study|#3;Leave");
}

}  // namespace
}  // namespace lm
