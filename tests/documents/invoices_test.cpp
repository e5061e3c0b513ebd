// What happens to an invoice after it was made: the status line, deletion, sessions added and
// removed, and its document opened.
#include "documents/invoices.h"

#include "core/rows.h"
#include "core/text.h"
#include "documents/invoicelist.h"
#include "records/practices.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

using test::InvoiceDesk;

// Sessions 1 and 2 on invoice 1 of Riverside, session 3 on invoice 2 of Abbey; 4 and 5, both of
// Riverside, on none.
struct Invoiced : InvoiceDesk {
  Invoiced() {
    AddSession("1", "01/02/2026", "100.1", {"EMPLOYERCONTRIB=10"});
    AddSession("1", "02/02/2026", "200.2", {"EMPLOYERCONTRIB=20.5"});
    AddSession("2", "02/02/2026", "50");
    Prepare();
    AddSession("1", "05/02/2026", "0.15", {"EMPLOYERCONTRIB=0.05"});
    AddSession("1", "06/02/2026", "");
    Messages();
    ClearMarkers(ledger.fgSessions);
    ClearMarkers(ledger.fgInvoices);
  }
  ~Invoiced() { test::ExpectSoundBooks(ledger); }
  Invoiced(const Invoiced&) = delete;

  void Sent(const std::string& id, const std::string& date) {
    ledger.fgInvoices.SetTextMatrix(InvoiceRow(ledger, id), "SDATE", date);
  }
  std::string Sums(const std::string& id) {
    return Cell(id, "AMOUNT") + " " + Cell(id, "EMPLOYERCONTRIB");
  }
  void Answer(lm::Answer answer) { shown.answers = {answer}; }
};

TEST(Invoices, StatusLine) {
  const struct {
    const char *sent, *paid;
    const char* line;
  } kCases[] = {
      {"", "", "Invoice not sent yet."},
      {"", "03/02/2026", "Invoice not sent yet."},
      {"banana", "", "Invoice not sent yet."},
      {"03/02/2026", "", "Invoice sent today."},
      {"02/02/2026", "", "Invoice sent yesterday."},
      {"01/02/2026", "", "Invoice sent 2 days ago."},
      {"03/02/2025", "", "Invoice sent 365 days ago."},
      {"05/02/2026", "", "Invoice sent -2 days ago."},
      {"01/02/2026", "banana", "Invoice sent 2 days ago."},
      {"01/01/2026", "01/01/2026", "Invoice paid same day it was sent."},
      {"01/01/2026", "02/01/2026", "Invoice paid after 1 day."},
      {"28/02/2024", "01/03/2024", "Invoice paid after 2 days."},
      {"03/01/2026", "01/01/2026", "Invoice paid after -2 days."},
  };
  InvoiceDesk desk;
  for (const auto& [sent, paid, line] : kCases)
    EXPECT_EQ(InvoiceStatusLine(desk, sent, paid), line) << sent << " " << paid;
  desk.shown.now = DateSerial(2026, 2, 4) - 1.0 / 86400;
  EXPECT_EQ(InvoiceStatusLine(desk, "03/02/2026", ""), "Invoice sent today.");
}

TEST(Invoices, DeletedOnesGiveTheirSessionsBack) {
  Invoiced desk;
  EXPECT_FALSE(DeleteInvoice(desk, "1"));
  EXPECT_EQ(desk.shown.messages[0].buttons, Buttons::YesNo);
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 2 - -") << "the answer was no";
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(DeleteInvoice(desk, "1"));
  EXPECT_EQ(desk.InvoicesOfSessions(), "- - 2 - -");
  EXPECT_EQ(InvoiceRow(desk, "1"), -1);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 2), RowState::Edited);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 4), RowState::Saved);
  EXPECT_EQ(desk.ledger.fgSessions.ColComboList(desk.ledger.fgSessions.ColIndex("INVOICE")),
            "#2;INV-00002");
  desk.Messages();
  for (const char* id : {"", "1", "99", "banana"}) {
    EXPECT_FALSE(DeleteInvoice(desk, id));
    EXPECT_EQ(desk.Messages(), "There is no invoice selected to delete.") << id;
  }
  EXPECT_EQ(desk.Prepare(), 1);
  EXPECT_EQ(desk.Cell("3", "AMOUNT"), "300.45");
}

TEST(Invoices, SentOnesStay) {
  Invoiced desk;
  desk.Sent("1", "03/02/2026");
  desk.Answer(Answer::Yes);
  EXPECT_FALSE(DeleteInvoice(desk, "1"));
  ASSERT_EQ(desk.shown.messages.size(), 1u);
  EXPECT_EQ(desk.shown.messages[0].title, "Delete Invoice");
  EXPECT_EQ(desk.shown.messages[0].mainPrompt,
            "An invoice cannot be deleted once it has been sent");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt,
            "To delete the invoice, you must set the 'Sent Date' to blank.");
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 2 - -");

  EXPECT_FALSE(RemoveSessionFromInvoice(desk, "1"));
  EXPECT_EQ(desk.shown.messages[1].title, "Remove From Invoice");
  EXPECT_EQ(desk.shown.messages[1].mainPrompt, "Unable to remove session from invoice");
  EXPECT_EQ(desk.shown.messages[1].minorPrompt,
            "Sessions cannot be removed from an invoice after the invoice has been sent.\r\nThe "
            "invoice this session is on was sent on 03/02/2026.");
  EXPECT_EQ(desk.Sums("1"), "300.3 30.5");
}

TEST(Invoices, ASessionIsAddedToTheFirstUnsentInvoice) {
  Invoiced desk;
  EXPECT_FALSE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(
      desk.Messages(),
      "An unsent invoice (INV-00001) exists for this practice.\r\n\r\nDo you want to add this "
      "session to this invoice?");
  EXPECT_EQ(desk.Sums("1"), "300.3 30.5");
  const auto before = std::filesystem::last_write_time(desk.Document("1"));
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 2 1 -");
  EXPECT_EQ(desk.Sums("1"), "300.45 30.55");
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgInvoices, 2), RowState::Edited);
  EXPECT_EQ(std::filesystem::last_write_time(desk.Document("1")), before) << "not written again";
  desk.Messages();

  // A session that is on one already, would count twice.
  desk.shown.answers = {Answer::Yes, Answer::Yes};
  EXPECT_FALSE(AddSessionToInvoice(desk, "4"));
  EXPECT_FALSE(AddSessionToInvoice(desk, "99"));
  EXPECT_EQ(desk.Sums("1"), "300.45 30.55");
}

TEST(Invoices, WithoutAnUnsentOneANewOneIsMade) {
  Invoiced desk;
  desk.Sent("1", "01/02/2026");
  SetOption(desk, optInvoiceStartNumber, "40");
  EXPECT_FALSE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "No unsent invoice exists for this practice.");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, "Create a new invoice for practice 'Riverside'?");
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 2 - -");
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 2 40 -");
  const std::pair<const char*, const char*> kCells[] = {
      {"NUMBER", "INV-00040"}, {"AMOUNT", "0.15"},           {"EMPLOYERCONTRIB", "0.05"},
      {"CDATE", "03/02/2026"}, {"IDATE", "03/02/2026"},      {"PRACTICE", "1"},
      {"SDATE", ""},           {"PUBLICNOTE", "Pay by BACS"}};
  for (const auto& [key, text] : kCells) EXPECT_EQ(desk.Cell("40", key), text) << key;
  EXPECT_EQ(desk.ledger.fgSessions.DisplayText(5, "INVOICE"), "INV-00040");
  EXPECT_EQ(test::PagedText(desk.Document("40")),
            "1:INV-00040 1:Riverside 1:05/02/2026 1:0.15 1:Total 1:0.15");
  desk.Messages();

  // The one without a total joins it; its document fails, and the books stay whole.
  desk.Sent("40", "01/02/2026");
  SetOption(desk, optInvoiceTemplate, "");
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(AddSessionToInvoice(desk, "5"));
  EXPECT_EQ(desk.Messages(), "No unsent invoice exists for this practice.; No Template");
  EXPECT_EQ(desk.Sums("41"), "0 0");
}

TEST(Invoices, ASessionWithoutAPracticeGetsNone) {
  Invoiced desk;
  desk.ledger.fgSessions.SetTextMatrix(5, "PRACTICE", "");
  EXPECT_FALSE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(desk.Messages(), "No practice has been specified for this session");
}

TEST(Invoices, RemovedSessionsTakeTheirMoneyAlong) {
  Invoiced desk;
  EXPECT_FALSE(RemoveSessionFromInvoice(desk, "1"));
  EXPECT_EQ(desk.Messages(), "Do you want to remove this session from invoice INV-00001?");
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(RemoveSessionFromInvoice(desk, "1"));
  EXPECT_EQ(desk.shown.messages.back().mainPrompt, "Session removed from invoice INV-00001.");
  EXPECT_EQ(desk.InvoicesOfSessions(), "- 1 2 - -");
  EXPECT_EQ(desk.Sums("1"), "200.2 20.5");
  desk.Answer(Answer::Yes);
  EXPECT_TRUE(RemoveSessionFromInvoice(desk, "2")) << "the last one may go here";
  EXPECT_EQ(desk.Sums("1"), "0 0");
  desk.Messages();
  for (const char* id : {"", "1", "4", "99"}) EXPECT_FALSE(RemoveSessionFromInvoice(desk, id));
  EXPECT_EQ(desk.Messages(), "");
}

TEST(Invoices, TheirDocumentIsOpenedAndMadeWhereMissing) {
  Invoiced desk;
  const auto file = desk.Document("1");
  const std::string link = PathText(file);
  std::filesystem::remove(file);
  EXPECT_TRUE(OpenInvoiceDocument(desk, "1"));
  EXPECT_TRUE(test::IsSoundPdf(file));
  const auto inode = [&] { return test::OutputOf("stat -c '%y %i' '" + file.string() + "'"); };
  const std::string first = inode();
  EXPECT_TRUE(OpenInvoiceDocument(desk, "1"));
  EXPECT_EQ(inode(), first) << "as it is";
  EXPECT_TRUE(OpenInvoiceDocument(desk, "1", true));
  EXPECT_NE(inode(), first);
  EXPECT_EQ(desk.shown.opened, (std::vector<std::string>{link, link, link}));

  EXPECT_FALSE(OpenInvoiceDocument(desk, ""));
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "View Invoice");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt,
            "Select an invoice to view by clicking on any row.");
  SetOption(desk, optInvoiceTemplate, "");
  EXPECT_FALSE(OpenInvoiceDocument(desk, "1", true));
  EXPECT_EQ(desk.shown.opened.size(), 3u);
}

// The list

TEST(InvoiceList, WhatMayBeTyped) {
  Invoiced desk;
  InvoiceListRules rules(desk);
  Grid& invoices = desk.ledger.fgInvoices;
  const struct {
    const char *key, *typed;
    EditOutcome outcome;
    const char* stored;
  } kCases[] = {
      {"SDATE", "3 feb", EditOutcome::Accepted, "03/02/2026"},
      {"SDATE", "banana", EditOutcome::Refused, "03/02/2026"},
      {"SDATE", "", EditOutcome::Accepted, ""},
      {"PAYDATE", "yesterday", EditOutcome::Accepted, "02/02/2026"},
      {"PAYREF", "BACS 12", EditOutcome::Accepted, "BACS 12"},
      {"PRIVATENOTE", "late", EditOutcome::Accepted, "late"},
      {"NUMBER", "x", EditOutcome::NotAllowed, "INV-00001"},
      {"AMOUNT", "1", EditOutcome::NotAllowed, "300.3"},
      {"EMPLOYERCONTRIB", "1", EditOutcome::NotAllowed, "30.5"},
      {"PRACTICE", "Abbey", EditOutcome::NotAllowed, "1"},
      {"CDATE", "1 jan", EditOutcome::NotAllowed, "03/02/2026"},
      {"ID", "9", EditOutcome::NotAllowed, "1"},
  };
  for (const auto& [key, typed, outcome, stored] : kCases) {
    EXPECT_EQ(EditCell(invoices, rules, 2, invoices.ColIndex(key), typed), outcome) << key << typed;
    EXPECT_EQ(desk.Cell("1", key), stored) << key << typed;
  }
  EXPECT_EQ(StateOfRow(desk, invoices, 2), RowState::Edited);
  EXPECT_EQ(EditCell(invoices, rules, 2, 0, "x"), EditOutcome::NotAllowed) << "the marker";
}

TEST(InvoiceList, ASentOneSaysSoAndTheQuestionTellsWhichOneGoes) {
  Invoiced desk;
  InvoiceListRules rules(desk);
  EXPECT_EQ(rules.LockedBy(2), "");
  rules.DeletePressed(2);  // No
  ASSERT_EQ(desk.shown.messages.size(), 1u);
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, PracticeName(desk, "1") + ", Tue 3 Feb 2026, " +
                                                    std::string("£300.30"_w) +
                                                    ".\r\nIts sessions become uninvoiced.");
  desk.Sent("1", "03/02/2026");
  EXPECT_EQ(rules.LockedBy(2), "Sent on 03/02/2026");
  EXPECT_EQ(rules.LockedBy(0), "");
  EXPECT_EQ(rules.LockedBy(99), "");
}

TEST(InvoiceList, GroupRowsAreNoInvoices) {
  Invoiced desk;
  InvoiceListRules rules(desk);
  Grid& invoices = desk.ledger.fgInvoices;
  invoices.Subtotal(SubtotalFunction::Sum, invoices.ColIndex("PRACTICE"),
                    invoices.ColIndex("AMOUNT"), {});
  ASSERT_TRUE(invoices.IsSubtotal(2));
  rules.DeletePressed(2);
  EXPECT_EQ(desk.shown.messages.back().minorPrompt, "Select an ungrouped row.");
  rules.DeletePressed(-1);
  EXPECT_EQ(desk.shown.messages.back().minorPrompt, "There is no invoice selected to delete.");
  EXPECT_FALSE(rules.MayEdit(2, invoices.ColIndex("SDATE")));
  rules.Opened(2);

  // Titles that read like IDs are not found as records.
  desk.ledger.fgPractices.SetTextMatrix(2, "NAME", "2");
  FormatTables(desk);
  invoices.ClearSubtotals();
  invoices.Subtotal(SubtotalFunction::Sum, invoices.ColIndex("PRACTICE"),
                    invoices.ColIndex("AMOUNT"), {});
  desk.ledger.fgSessions.SetTextMatrix(5, "PRACTICE", "2");
  desk.Answer(Answer::Yes);
  desk.Messages();
  EXPECT_TRUE(AddSessionToInvoice(desk, "4"));
  EXPECT_EQ(desk.shown.messages[0].mainPrompt.substr(0, 29), "An unsent invoice (INV-00002)");
  EXPECT_EQ(desk.Sums("2"), "50.15 0.05");
}

}  // namespace
}  // namespace lm
