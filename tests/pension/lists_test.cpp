// The lists of pension forms and payments: their cells, their deletions and their words.
#include "pension/lists.h"

#include <fstream>

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

TEST_F(PensionLists, ALockedFormSaysWhy) {
  desk.AddRow(ledger.fgPensionB, {"MONTH=01/04/2024"});
  const int row = desk.AddFormA("1", "01/03/2024", "100");
  const auto rules = PensionListRules(ledger, ledger.fgPensionA);
  const struct {
    const char *key, *date, *text;
  } kSteps[] = {
      {"NOTES", "none", ""},
      {"SENTTOPRACTICE", "02/05/2024", "Sent to the Practice on 2/5/24"},
      {"RCVDFROMPRACTICE", "09/05/2024", "Received back from the Practice on 9/5/24"},
      {"SENTTOHA", "10/05/2024", "Sent to the HA on 10/5/24"},
      {"RCVDFROMPRACTICE", "09/04/2024", "On Form B for Apr 2024"},
  };
  for (const auto& [key, date, text] : kSteps) {
    ledger.fgPensionA.SetTextMatrix(row, key, date);
    EXPECT_EQ(rules->LockedBy(row), text);
  }
  EXPECT_EQ(rules->LockedBy(0), "");
  EXPECT_EQ(rules->LockedBy(row + 1), "");
  std::string window;
  desk.shown.modal.push_back([&](Screen& screen) {
    window = screen.Name();
    screen.Close();
  });
  rules->LockPressed(row);
  EXPECT_EQ(window, "frmPensionB");
  ledger.fgPensionA.SetTextMatrix(row, "RCVDFROMPRACTICE", "");
  desk.shown.modal.push_back([&](Screen& screen) {
    window = screen.Name();
    screen.Close();
  });
  rules->LockPressed(row);
  EXPECT_EQ(window, "frmPensionA");
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
      OpenDocumentOfRow(ledger, *table, any, true);
    }
  }
  for (const Grid* table : {&ledger.fgPensionA, &ledger.fgPensionB, &ledger.fgPensionSolo,
                            &ledger.fgPensionC, &ledger.fgPensionD, &payments})
    EXPECT_FALSE(table->HasData()) << table->Name();
}

TEST_F(PensionLists, ADamagedMonthIsToldAndTheFormCanBeDeleted) {
  desk.AddSession("1", "05/04/2024", "10", {"FORMS=A"});
  struct Case {
    Grid Ledger::*table;
    const char* question;
  };
  const Case kCases[] = {
      {&Ledger::fgPensionA, "Delete Pension Form A for 'Riverside'?"},
      {&Ledger::fgPensionB, "Delete Pension Form B?"},
      {&Ledger::fgPensionSolo, "Delete Pension Form Solo for 'Riverside'?"},
      {&Ledger::fgPensionC, "Delete Pension Form C for 'Riverside'?"},
      {&Ledger::fgPensionD, "Delete Pension Form D?"},
  };
  for (const Case& c : kCases) {
    Grid& table = ledger.*c.table;
    const bool retired = &table == &ledger.fgPensionC || &table == &ledger.fgPensionD;
    desk.AddRow(table, {"MONTH=01/04/2024", "PRACTICE=1"});
    const int row = desk.AddRow(table, {"MONTH=31/02/2024", "PRACTICE=1"});
    const auto rules = PensionListRules(ledger, table);
    desk.shown.modal = {[](Screen& screen) { FAIL() << screen.Name() << " opened"; }};
    rules->Opened(row);
    if (!retired) {
      EXPECT_EQ(desk.OneMessage(),
                "LedgerMinder|The month of this pension form is damaged|It reads \"31/02/2024\". "
                "Without its month the form can be neither opened nor printed, but it can be "
                "deleted.");
    }
    desk.Messages();
    for (const bool recreate : {false, true}) {
      EXPECT_FALSE(OpenDocumentOfRow(ledger, table, row, recreate));
      EXPECT_EQ(desk.Messages(), "The month of this pension form is damaged");
    }
    desk.shown.answers = {Answer::No, Answer::Yes};
    rules->DeletePressed(row);
    EXPECT_EQ(table.Rows(), table.FixedRows() + 2);
    rules->DeletePressed(row);
    EXPECT_EQ(table.Rows(), table.FixedRows() + 1);
    EXPECT_EQ(table.TextMatrix(table.FixedRows(), "MONTH"), "01/04/2024");
    const std::string asked = desk.Questions();
    EXPECT_NE(asked.find(std::string(c.question) + "\r\n\r\nIts month is damaged"), asked.npos)
        << asked;
  }
  EXPECT_EQ(desk.Letters(), "A");
}

// The lock of a Form C sends the user to delete the Form D.
TEST_F(PensionLists, RetiredFormsAreDeletedLikeTheOthers) {
  desk.AddSession("1", "05/04/2011", "10", {"SESS_TYPE=3", "FORMS=C,D"});
  desk.AddSession("1", "05/05/2011", "10", {"SESS_TYPE=3", "FORMS=C,D"});
  Grid& formsC = ledger.fgPensionC;
  Grid& formsD = ledger.fgPensionD;
  const int c =
      desk.AddRow(formsC, {"PRACTICE=1", "MONTH=01/04/2011", "RCVDFROMPRACTICE=09/06/2011"});
  const int d = desk.AddRow(formsD, {"MONTH=01/06/2011", "SENTTOHA=01/07/2011"});
  const auto rulesC = PensionListRules(ledger, formsC);
  const auto rulesD = PensionListRules(ledger, formsD);

  EXPECT_EQ(Type(formsC, c, "RCVDFROMPRACTICE", ""), EditOutcome::NotAllowed);
  rulesC->DeletePressed(c);
  rulesD->DeletePressed(d);
  EXPECT_EQ(
      desk.Messages(),
      "Unable to change date|A Pension Form cannot be deleted once it has been sent|A Pension "
      "Form cannot be deleted once it has been sent to the Health Authority");

  EXPECT_EQ(Type(formsD, d, "SENTTOHA", ""), EditOutcome::Accepted);
  std::ofstream(ledger.File("Pension Forms") / "FormD_Jun 11.pdf") << "a form";
  desk.shown.answers = {Answer::Yes, Answer::Yes};
  rulesD->DeletePressed(d);
  EXPECT_FALSE(formsD.HasData());
  EXPECT_FALSE(desk.IsWritten("FormD_Jun 11.pdf"));
  EXPECT_EQ(desk.Letters(), "C C,D");

  EXPECT_EQ(Type(formsC, c, "RCVDFROMPRACTICE", ""), EditOutcome::Accepted);
  rulesC->DeletePressed(c);
  EXPECT_FALSE(formsC.HasData());
  EXPECT_EQ(desk.Letters(), "- C,D");
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form D for June 2011?\n"
            "LedgerMinder|Delete Pension Form|Delete Pension Form C for 'Riverside' for April "
            "2011?\n");
}

}  // namespace
}  // namespace lm
