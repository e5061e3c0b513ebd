// The lists of pension forms and payments: their cells, their deletions and their words.
#include "pension/lists.h"

#include "tests/pension/window_desk.h"

namespace lm {
namespace {

struct PensionLists : testing::Test {
  test::WindowDesk desk;
  Ledger& ledger = desk.ledger;
  Grid& payments = ledger.fgPensionPayments;

  EditOutcome Type(Grid& table, int row, std::string_view key, std::string_view text) {
    return EditCell(table, *PensionListRules(ledger, table), row, table.ColIndex(key), text);
  }
};

TEST_F(PensionLists, OnlyTheseCellsAreEdited) {
  struct Case {
    Grid Ledger::*table;
    std::string always, untilSent;  // keys, a blank behind each
  };
  const Case kCases[] = {
      {&Ledger::fgPensionA, "SENTTOPRACTICE RCVDFROMPRACTICE SENTTOHA NOTES ", ""},
      {&Ledger::fgPensionB, "SENTTOHA NOTES ", "AVC ERRBO ADDITIONAL EXTRA_YEARS "},
      {&Ledger::fgPensionSolo, "SENTTOHA NOTES ", "AVC EXTRAYEARS ERRBO ADDITIONAL "},
      {&Ledger::fgPensionC, "SENTTOPRACTICE RCVDFROMPRACTICE SENTTOHA NOTES ", ""},
      {&Ledger::fgPensionD, "SENTTOHA NOTES ", ""},
  };
  for (const Case& c : kCases) {
    Grid& table = ledger.*c.table;
    const int row = desk.AddRow(table, {"MONTH=01/04/2024"});
    const auto rules = PensionListRules(ledger, table);
    for (const char* sent : {"", "09/05/2024"}) {
      table.SetTextMatrix(row, "SENTTOHA", sent);
      for (int col = table.FixedCols(); col < table.Cols(); ++col) {
        const std::string key = table.ColKey(col) + " ";
        const bool figure = !*sent && c.untilSent.find(key) != std::string::npos;
        const bool other = c.always.starts_with(key) || c.always.find(" " + key) != c.always.npos;
        EXPECT_EQ(rules->MayEdit(row, col), figure || other) << table.Name() << " " << key << sent;
        EXPECT_FALSE(rules->MayEdit(row + 1, col)) << "below the data";
      }
    }
  }
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(PensionLists, EditedFiguresAreSummed) {
  const int b = desk.AddRow(ledger.fgPensionB, {"MONTH=01/04/2024", "CONTRIBUTION=1054.00"});
  EXPECT_EQ(Type(ledger.fgPensionB, b, "ERRBO", "1,000.50"), EditOutcome::Accepted);
  EXPECT_EQ(test::CellsOf(ledger.fgPensionB, b,
                          {"AVC", "ERRBO", "ADDITIONAL", "EXTRA_YEARS", "TOTAL_CONTRIB"}),
            " 1000.50 0 0 2,054.50");
  EXPECT_EQ(Type(ledger.fgPensionB, b, "AVC", "banana"), EditOutcome::Refused);
  EXPECT_EQ(desk.Messages(), "Please enter a valid amount.");
  SetOption(ledger, optPensionCountry, "scotland");
  EXPECT_EQ(Type(ledger.fgPensionB, b, "AVC", "50"), EditOutcome::Accepted);
  EXPECT_EQ(test::CellsOf(ledger.fgPensionB, b, {"AVC", "TOTAL_CONTRIB"}), "0 2,054.50");
  EXPECT_EQ(desk.Messages(), "AVCs on Scottish Pension Forms");

  const int solo = desk.AddRow(ledger.fgPensionSolo,
                               {"MONTH=01/04/2024", "MY_CONTRIB=60.00", "EMP_CONTRIB=1143.80"});
  EXPECT_EQ(Type(ledger.fgPensionSolo, solo, "ADDITIONAL", "10"), EditOutcome::Accepted);
  EXPECT_EQ(ledger.fgPensionSolo.TextMatrix(solo, "TOTAL_CONTRIB"), "1213.8");
  EXPECT_EQ(Type(ledger.fgPensionSolo, solo, "ADDITIONAL", ""), EditOutcome::Accepted);
  EXPECT_EQ(test::CellsOf(ledger.fgPensionSolo, solo, {"AVC", "ADDITIONAL", "TOTAL_CONTRIB"}),
            " 0 1203.8");
}

TEST_F(PensionLists, AFormOnAFormBKeepsItsDate) {
  desk.AddRow(ledger.fgPensionB, {"MONTH=01/04/2024"});
  const int taken = desk.AddFormA("1", "01/03/2024", "100", {"RCVDFROMPRACTICE=09/04/2024"});
  const int open = desk.AddFormA("2", "01/03/2024", "100");
  for (const char* text : {"", "09/05/2024"})
    EXPECT_EQ(Type(ledger.fgPensionA, taken, "RCVDFROMPRACTICE", text), EditOutcome::NotAllowed);
  EXPECT_EQ(desk.Messages(), "Unable to change date|Unable to change date");
  EXPECT_EQ(Type(ledger.fgPensionA, open, "RCVDFROMPRACTICE", "10/04/2024"), EditOutcome::Refused);
  EXPECT_EQ(desk.Messages(), "Unable to set the 'Rcvd From Practice' date in Apr 2024");
  EXPECT_EQ(Type(ledger.fgPensionA, open, "RCVDFROMPRACTICE", "10/05/2024"), EditOutcome::Accepted);
}

TEST_F(PensionLists, Payments) {
  const auto rules = PensionListRules(ledger, payments);
  const int first = AddPayment(ledger);
  ASSERT_GE(first, payments.FixedRows());
  EXPECT_EQ(test::CellsOf(payments, first, {"ID", "MONTH", "FORM", "AMOUNT", "PAYDATE"}),
            "1 03/02/2026 B 0 03/02/2026");
  payments.SetTextMatrix(first, "ID", "7");
  EXPECT_EQ(payments.TextMatrix(AddPayment(ledger), "ID"), "8");

  struct Case {
    const char *key, *text;
    EditOutcome outcome;
    const char* cells;  // FORM PRACTICE AMOUNT PAYDATE
  };
  const Case kCases[] = {
      {"PRACTICE", "Abbey", EditOutcome::NotAllowed, "B  0 03/02/2026"},
      {"FORM", "C", EditOutcome::Refused, "B  0 03/02/2026"},
      {"FORM", "SOLO", EditOutcome::Accepted, "SOLO  0 03/02/2026"},
      {"PRACTICE", "Abbey", EditOutcome::Accepted, "SOLO 2 0 03/02/2026"},
      {"AMOUNT", "12,3x", EditOutcome::Refused, "SOLO 2 0 03/02/2026"},
      {"AMOUNT", "1,253.80", EditOutcome::Accepted, "SOLO 2 1253.80 03/02/2026"},
      {"PAYDATE", "banana", EditOutcome::Refused, "SOLO 2 1253.80 03/02/2026"},
      {"FORM", "B", EditOutcome::Accepted, "B  1253.80 03/02/2026"},
  };
  FormatTables(ledger);
  for (const Case& c : kCases) {
    EXPECT_EQ(Type(payments, first, c.key, c.text), c.outcome) << c.key << " " << c.text;
    EXPECT_EQ(test::CellsOf(payments, first, {"FORM", "PRACTICE", "AMOUNT", "PAYDATE"}), c.cells);
  }
  desk.Messages();

  rules->DeletePressed(-1);
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Delete Pension Payment|There is no payment selected to delete.");
  rules->DeletePressed(first);
  EXPECT_EQ(desk.Questions(), "LedgerMinder|Delete Pension Payment|Delete the selected payment?\n");
  desk.shown.answers = {Answer::Yes};
  rules->DeletePressed(first);
  EXPECT_EQ(payments.Rows(), payments.FixedRows() + 1);
}

TEST_F(PensionLists, DamagedRowsStopNothing) {
  for (Grid* table : {&ledger.fgPensionA, &ledger.fgPensionB, &ledger.fgPensionSolo,
                      &ledger.fgPensionC, &ledger.fgPensionD, &payments}) {
    const int row = desk.AddRow(*table, {"MONTH=banana", "PRACTICE=99", "AMOUNT=12,3x"});
    const auto rules = PensionListRules(ledger, *table);
    for (const int any : {-1, 0, row, row + 1}) {
      desk.shown.answers = {Answer::Yes, Answer::Yes};
      rules->Opened(any);
      rules->DeletePressed(any);
      rules->ContextMenu(any);
      OpenDocumentOfRow(ledger, *table, any, true);
    }
  }
  EXPECT_FALSE(payments.HasData());
  EXPECT_EQ(ledger.fgPensionA.Rows(), ledger.fgPensionA.FixedRows() + 1);
}

}  // namespace
}  // namespace lm
