#include "records/recordindex.h"

#include <gtest/gtest.h>

#include "core/rows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Rows = std::vector<int>;

TEST(RecordIndex, FindsRowsByTheirIdsAndTheirOwners) {
  test::TestLedger all;
  Ledger& ledger = all.ledger;
  const int practice = all.AddRow(ledger.fgPractices, {"ID=4"});
  const int invoice = all.AddRow(ledger.fgInvoices, {"ID=7", "PRACTICE=4"});
  const int first = all.AddRow(ledger.fgSessions, {"ID=20", "PRACTICE=4", "INVOICE=7"});
  const int second = all.AddRow(ledger.fgSessions, {"ID=3", "PRACTICE=4"});
  const int third = all.AddRow(ledger.fgSessions, {"ID=5", "PRACTICE=4", "INVOICE=7"});
  const int stray = all.AddRow(ledger.fgSessions, {"ID=5"});
  const int extra = all.AddRow(ledger.fgExtras, {"ID=1", "SESSID=5"});
  const int expense = all.AddRow(ledger.fgSessionExpenses, {"ID=2", "SESSID=20"});

  const RecordIndex index(ledger);
  EXPECT_EQ(index.Practice("4"), practice);
  EXPECT_EQ(index.Invoice("7"), invoice);
  EXPECT_EQ(index.Session("3"), second);
  EXPECT_EQ(index.Session("5"), third) << "of two rows with one ID the first, not " << stray;
  EXPECT_EQ(index.Extra("1"), extra);
  EXPECT_EQ(index.Expense("2"), expense);
  EXPECT_EQ(index.Practice("7"), -1);
  EXPECT_EQ(index.Session(""), -1);

  EXPECT_EQ(index.SessionsOfInvoice("7"), (Rows{first, third}));
  EXPECT_EQ(index.SessionsOfPractice("4"), (Rows{first, second, third}));
  EXPECT_EQ(index.ExtrasOfSession("5"), Rows{extra});
  EXPECT_EQ(index.ExpensesOfSession("20"), Rows{expense});
  EXPECT_TRUE(index.SessionsOfInvoice("").empty()) << "what is on no invoice belongs to none";
  EXPECT_TRUE(index.ExtrasOfSession("99").empty());
}

TEST(RecordIndex, IsToldOfSessionsPutOnInvoicesAndOfNewInvoices) {
  test::TestLedger all;
  Ledger& ledger = all.ledger;
  all.AddRow(ledger.fgInvoices, {"ID=1"});
  const int a = all.AddRow(ledger.fgSessions, {"PRACTICE=1"});
  const int b = all.AddRow(ledger.fgSessions, {"PRACTICE=2", "INVOICE=2"});
  const int c = all.AddRow(ledger.fgSessions, {"PRACTICE=1"});
  RecordIndex index(ledger);

  for (const int row : {c, a, c}) index.PutOnInvoice(row, "2");
  EXPECT_EQ(index.SessionsOfInvoice("2"), (Rows{a, b, c}));

  // Added above, a new invoice moves the others down.
  ledger.fgInvoices.AddItem("", ledger.fgInvoices.FixedRows());
  ledger.fgInvoices.SetTextMatrix(ledger.fgInvoices.FixedRows(), "ID", "2");
  index.InvoiceAdded(ledger.fgInvoices.FixedRows());
  EXPECT_EQ(index.Invoice("2"), ledger.fgInvoices.FixedRows());
  EXPECT_EQ(index.Invoice("1"), ledger.fgInvoices.FixedRows() + 1);
}

TEST(RecordIndex, PassesOverGroupRows) {
  test::TestLedger all;
  Grid& sessions = all.ledger.fgSessions;
  for (const char* id : {"1", "2", "3"})
    all.AddRow(sessions, {"ID=" + std::string(id), "PRACTICE=8", "INVOICE=8"});
  SubtotalStyle style;
  style.caption = "8";
  for (const char* key : {"ID", "INVOICE", "PRACTICE"})
    sessions.Subtotal(SubtotalFunction::Count, sessions.ColIndex(key), -1, style);

  const RecordIndex index(all.ledger);
  Rows records;
  for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row)
    if (!sessions.IsSubtotal(row)) records.push_back(row);
  ASSERT_LT(records.size() + 2, static_cast<std::size_t>(sessions.Rows())) << "no group rows";
  EXPECT_EQ(index.SessionsOfInvoice("8"), records);
  EXPECT_EQ(index.SessionsOfPractice("8"), records);
  EXPECT_EQ(index.Session("8"), -1);
}

}  // namespace
}  // namespace lm
