// Reminders: what the record keeps, whom a statement of account goes to and what stands on it.
#include "documents/reminders.h"

#include "core/change.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/email.h"
#include "documents/frmInvoice.h"
#include "documents/frmPaymentReminders.h"
#include "documents/shippedtemplates.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

// The clock stands at 3 February 2026; practices 1 Riverside, 2 Abbey.
struct Reminders : testing::Test {
  test::InvoiceDesk desk;
  Ledger& ledger = desk.ledger;
  Grid& invoices = ledger.fgInvoices;

  Reminders() { PlaceShippedTemplates(ledger); }

  // Of 1 January, to be paid on that day; sent.
  std::string Add(const std::string& practice, const std::string& due, const std::string& amount,
                  const std::vector<std::string>& more = {}) {
    std::vector<std::string> cells{"PRACTICE=" + practice, "DUEDATE=" + due, "AMOUNT=" + amount,
                                   "IDATE=01/01/2026", "SDATE=01/01/2026"};
    cells.insert(cells.end(), more.begin(), more.end());
    const int row = desk.AddRow(invoices, cells);
    const std::string id = invoices.TextMatrix(row, "ID");
    invoices.SetTextMatrix(row, "NUMBER", "INV-" + id);
    return id;
  }
  // "Riverside: 1 2, overdue 1, 30/10, 33 days;"
  std::string Told() {
    std::string text;
    for (const Statement& each : OverdueStatements(ledger)) {
      text += ledger.fgPractices.TextMatrix(RecordRow(ledger.fgPractices, each.practice), "NAME");
      for (const std::string& id : each.invoices) text += " " + id;
      text += ", overdue";
      for (const std::string& id : each.overdueInvoices) text += " " + id;
      text += ", " + each.total.ToText() + "/" + each.overdue.ToText() + ", " +
              PlainText(each.oldestDays) + " days " + each.lastReminder + ";";
    }
    return text;
  }
  std::string Kept(const std::string& id) {
    return desk.Cell(id, "REMINDERS") + " " + desk.Cell(id, "REMINDDATE");
  }
};

TEST_F(Reminders, AStatementHoldsAllThatAPracticeOwes) {
  EXPECT_EQ(Told(), "");
  Add("1", "01/03/2026", "20");                           // not yet overdue
  Add("1", "", "1");                                      // without a day
  Add("1", "02/02/2026", "10.1", {"REMINDDATE=banana"});  // since yesterday
  Add("1", "01/01/2026", "0.2", {"PAYDATE=02/02/2026"});
  Add("1", "01/01/2026", "0.2", {"SDATE="});
  Add("2", "01/03/2026", "5");  // nothing overdue
  Add("99", "03/01/2026", "7", {"REMINDDATE=01/02/2026"});
  Add("99", "13/01/2026", "7", {"REMINDDATE=20/01/2026"});
  EXPECT_EQ(Told(),
            " 7 8, overdue 7 8, 14/14, 31 days 01/02/2026;"
            "Riverside 3 1 2, overdue 3, 31.1/10.1, 1 days ;");
}

TEST_F(Reminders, TheRecordCountsThem) {
  const std::string id = Add("1", "01/02/2026", "10");
  const auto row = [&] { return InvoiceRow(ledger, id); };
  const struct {
    std::string reminders, day, text, heading;
  } cases[] = {{"", "", "", "Reminder"},
               {"banana", "", "", "Reminder"},
               {"-3", "", "", "Reminder"},
               {"1", "03/02/2026", "Reminded on 3 February 2026.", "Second reminder"},
               {"1", "banana", "Reminded once.", "Second reminder"},
               {"2", "03/02/2026", "Reminded twice, last on 3 February 2026.", "Third reminder"},
               {"6", "", "Reminded 6 times.", "Reminder 7"}};
  for (const auto& c : cases) {
    invoices.SetTextMatrix(row(), "REMINDERS", c.reminders);
    invoices.SetTextMatrix(row(), "REMINDDATE", c.day);
    EXPECT_EQ(RemindersText(invoices, row()), c.text);
    EXPECT_EQ(ReminderHeading(ledger, row()), c.heading);
  }
  EXPECT_EQ(RemindersText(invoices, -1) + PaymentReminder(ledger, -1) +
                ReminderRequest(ledger, -1) + ReminderHeading(ledger, -1),
            "");
}

TEST_F(Reminders, WhatDidNotGoOutIsNotRecorded) {
  const std::string id = Add("1", "01/02/2026", "10");
  desk.shown.mailOutcome = MailOutcome::Cancelled;
  EXPECT_FALSE(SendReminderByEmail(ledger, id));
  EXPECT_EQ(SendStatements(ledger, OverdueStatements(ledger), RemindBy::Email), 0);
  EXPECT_EQ(Kept(id), " ");
  desk.Messages();
  fs::remove(ledger.File("Invoice Templates") / kReminderTemplate);
  fs::remove(ledger.File("Invoice Templates") / kStatementTemplate);
  EXPECT_FALSE(WriteReminderLetter(ledger, id));
  EXPECT_EQ(SendStatements(ledger, OverdueStatements(ledger), RemindBy::Letter), 0);
  EXPECT_EQ(Kept(id), " ");
  EXPECT_EQ(desk.Messages(), "No Template; No Template");
  EXPECT_FALSE(WriteReminderLetter(ledger, "99"));
  EXPECT_FALSE(SendReminderByEmail(ledger, "99"));
  EXPECT_TRUE(desk.shown.opened.empty());
}

TEST_F(Reminders, TheWindowSendsToThoseTicked) {
  const std::string patient =
      Add("1", "01/01/2026", "10", {"REMINDERS=1", "REMINDDATE=28/01/2026"});
  const std::string due = Add("2", "01/01/2026", "20", {"REMINDERS=1", "REMINDDATE=27/01/2026"});
  const std::string more = Add("2", "02/01/2026", "5");
  frmPaymentReminders window(ledger);
  EXPECT_EQ(window.lblSummary.Text(),
            "3 invoices of 2 practices are overdue, \xA3"
            "35.00.");
  Grid& lines = window.fgReminders;
  lines.Sort(SortSetting::GenericAscending, lines.ColIndex("AMOUNT"));
  const int row = lines.FixedRows(), tick = lines.ColIndex("SEND");
  EXPECT_EQ(lines.TextMatrix(row, "PRACTICE"), "Riverside");
  EXPECT_EQ(lines.TextMatrix(row, tick), "FALSE") << "reminded six days ago";
  window.Press(window.cmdSend);
  ASSERT_EQ(desk.shown.mails.size(), 1u);
  EXPECT_EQ(desk.shown.mails[0].subject,
            "Payment reminder from   : \xA3"
            "25.00 is overdue");
  EXPECT_EQ(Kept(patient), "1 28/01/2026");
  EXPECT_EQ(Kept(due), "2 03/02/2026");
  EXPECT_EQ(Kept(more), "1 03/02/2026");
  EXPECT_EQ(window.defaultButton, &window.cmdClose);
  desk.Messages();
  window.Press(window.cmdSend);
  EXPECT_EQ(desk.Messages(), "No practice is ticked");
  ASSERT_TRUE(ledger.history.Undo());
  EXPECT_EQ(Kept(more), " ") << "one step takes all of it back";
}

// Two practices of one name do not overwrite each other's letter, and nobody's long name is cut.
TEST_F(Reminders, LettersAreWholeOverManyPages) {
  const std::string name = "Saint Bartholomew Cathedral Close Surgery and Health Centre";
  for (const std::string practice : {"1", "2"})
    ledger.fgPractices.SetTextMatrix(RecordRow(ledger.fgPractices, practice), "NAME", name);
  for (int i = 0; i < 100; ++i) Add("1", "01/01/2026", "9999.99");
  Add("2", "01/01/2026", "1");
  ASSERT_EQ(SendStatements(ledger, OverdueStatements(ledger), RemindBy::Letter), 2);
  std::size_t documents = 0;
  for ([[maybe_unused]] const auto& each : fs::directory_iterator(ledger.File("Invoices")))
    ++documents;
  EXPECT_EQ(documents, 2u);
  const fs::path file = StatementFile(ledger, OverdueStatements(ledger)[0]);
  EXPECT_TRUE(test::IsSoundPdf(file));
  const auto words = test::WordsOf(file);
  EXPECT_EQ(test::FindWord(words, "INV-1").page, 1);
  EXPECT_EQ(test::FindWord(words, "INV-100").page, 4);
  EXPECT_EQ(test::FindWord(words,
                           "\xC2\xA3"
                           "999,999.00")
                .page,
            4);
  for (const auto each : Split(name, ' '))
    EXPECT_EQ(test::FindWord(words, std::string(each)).page, 1) << each;
}

}  // namespace
}  // namespace lm
