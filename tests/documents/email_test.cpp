// Invoices and receipts by e-mail: what the mail program is given, when something counts as sent,
// and the draft where there is no mail program.
#include "documents/email.h"

#include <fstream>

#include "core/text.h"
#include "documents/emldraft.h"
#include "documents/frmInvoice.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::InvoiceDesk;

struct Mail : testing::Test {
  InvoiceDesk desk;
  std::string error_;

  Mail() {
    SetMyDetail(desk, kFirstNameField, "Ann");
    SetMyDetail(desk, kLastNameField, "Morgan");
    SetMyDetail(desk, kMyTitleField, "Dr");
    desk.ledger.fgPractices.SetTextMatrix(2, "PMANAGER", "Mr Hill");
    desk.AddSession("1", "01/02/2026", "1234.5");
    desk.AddSession("2", "01/02/2026", "10");
    desk.Prepare();
    desk.Messages();
  }
};

TEST_F(Mail, TheInvoiceGoesToItsPractice) {
  EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
  ASSERT_EQ(desk.shown.mails.size(), 1u);
  const MailMessage& mail = desk.shown.mails[0];
  EXPECT_EQ(mail.to, "pm@riverside.example");
  EXPECT_EQ(mail.subject, "Invoice from Dr Ann Morgan");
  EXPECT_EQ(mail.body,
            "Dear Mr Hill,\r\n\r\nPlease find attached my latest invoice for \xA3"
            "1,234.50.\r\n\r\nRegards\r\nDr Ann Morgan\r\n");
  EXPECT_EQ(mail.attachmentName, "INV-00001_Riverside.pdf");
  EXPECT_EQ(mail.attachment, desk.Document("1"));
  EXPECT_TRUE(fs::exists(desk.Document("1"))) << "is not renamed";

  EXPECT_TRUE(SendReceiptByEmail(desk, "1"));
  EXPECT_EQ(desk.shown.mails[1].subject, "Receipt for payment of invoice INV-00001");
  EXPECT_EQ(desk.shown.mails[1].attachmentName, "INV-00001_Riverside.pdf");
  EXPECT_TRUE(SendInvoiceByEmail(desk, "2")) << "with no address the user types it";
  EXPECT_EQ(desk.shown.mails[2].to, "");
  EXPECT_FALSE(SendInvoiceByEmail(desk, "99"));
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(Mail, TheDocumentIsMadeWhereMissing) {
  fs::remove(desk.Document("1"));
  EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
  EXPECT_TRUE(test::IsSoundPdf(desk.Document("1")));
  fs::remove(desk.Document("1"));
  SetOption(desk, optInvoiceTemplate, "");
  EXPECT_FALSE(SendInvoiceByEmail(desk, "1"));
  EXPECT_EQ(desk.Messages(), "No Template");
  EXPECT_EQ(desk.shown.mails.size(), 1u);
}

TEST_F(Mail, ADocumentThatWasCutOffCountsAsMissing) {
  for (const char* left : {"", "%PDF-1.4\n1 0 obj"}) {
    std::ofstream(desk.Document("1"), std::ios::trunc) << left;
    EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
    EXPECT_TRUE(test::IsSoundPdf(desk.Document("1")));
  }
  EXPECT_EQ(desk.Messages(), "");
}

TEST_F(Mail, AnOutdatedDocumentIsNotSentWithoutAWord) {
  const auto paper = [&] {
    std::string error;
    return *ReadFile(desk.Document("1"), error);
  };
  desk.shown.now += 40.25;
  EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
  EXPECT_EQ(desk.Messages(), "") << "what would be drawn now is what stands there";

  const std::pair<const char*, std::function<void()>> changes[] = {
      {"amount", [&] { desk.ledger.fgSessions.SetTextMatrix(2, "TOTAL", "7"); }},
      {"template", [&] {
         desk.UseTemplate(test::Template(
             test::Section("invheader", test::Item("T", {{"caption", "{Invoice Number}"}}), "30")));
       }}};
  for (const auto& [what, change] : changes) {
    SCOPED_TRACE(what);
    const std::string old = paper();
    change();
    const std::size_t sent = desk.shown.mails.size();
    EXPECT_FALSE(SendInvoiceByEmail(desk, "1")) << "Cancel";
    EXPECT_EQ(desk.Messages(), "The document of this invoice is out of date");
    EXPECT_EQ(desk.shown.mails.size(), sent);
    desk.shown.answers = {Answer::No};
    EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
    EXPECT_EQ(paper(), old);
    desk.shown.answers = {Answer::Yes};
    EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
    EXPECT_NE(paper(), old);
    desk.Messages();
    EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
    EXPECT_EQ(desk.Messages(), "");
  }
  EXPECT_FALSE(fs::exists(desk.ledger.File("Invoices/_Compare.pdf")));
}

TEST_F(Mail, LineBreaksMakeNoHeaders) {
  SetMyDetail(desk, kLastNameField, "Morgan\r\nBcc: spy@spy.example");
  desk.ledger.fgPractices.SetTextMatrix(2, "EMAIL", "a@a.example\nBcc: b@b.example");
  fs::remove(desk.Document("1"));  // it bears the name as it was
  for (const bool available : {true, false}) {
    desk.shown.mailAvailable = available;
    EXPECT_TRUE(SendInvoiceByEmail(desk, "1"));
  }
  EXPECT_EQ(desk.shown.mails[0].subject, "Invoice from Dr Ann Morgan  Bcc: spy@spy.example");
  EXPECT_EQ(desk.shown.mails[0].to, "a@a.example Bcc: b@b.example");
  std::string error;
  const auto draft = ReadFile(desk.ledger.File("Drafts/INV-00001 Riverside.eml"), error);
  ASSERT_TRUE(draft) << error;
  EXPECT_EQ(draft->find("\nBcc"), std::string::npos);
}

struct Outcome {
  const char* name;
  bool available;
  MailOutcome outcome;
  const char* option;
  bool marked;
  const char* message;
};

TEST_F(Mail, WhatCountsAsSent) {
  const Outcome kCases[] = {
      {"sent", true, MailOutcome::Sent, "TRUE", true, ""},
      {"sent, not to be marked", true, MailOutcome::Sent, "FALSE", false, ""},
      {"cancelled", true, MailOutcome::Cancelled, "TRUE", false, ""},
      {"failed", true, MailOutcome::Failed, "TRUE", false, "The e-mail could not be sent"},
      {"draft", false, MailOutcome::Failed, "TRUE", true, "No e-mail program was found"},
      {"draft, not to be marked", false, MailOutcome::Sent, "FALSE", false,
       "No e-mail program was found"},
  };
  for (const auto& [name, available, outcome, option, marked, message] : kCases) {
    SCOPED_TRACE(name);
    desk.shown.mailAvailable = available;
    desk.shown.mailOutcome = outcome;
    SetOption(desk, optAutoSetInvoiceDate, option);
    SetOption(desk, optAutoSetReceiptDate, option);
    for (const char* key : {"SDATE", "SENTBY", "RECEIPTDATE", "RECEIPTMETHOD"})
      desk.ledger.fgInvoices.SetTextMatrix(InvoiceRow(desk, "1"), key, "");
    frmInvoice window(desk);
    ASSERT_TRUE(window.Open("1"));
    window.Press(window.cmdSendByEmail);
    EXPECT_EQ(desk.Messages(), message);
    EXPECT_EQ(window.cSDate.Text(), marked ? "03/02/2026" : "");
    EXPECT_EQ(window.cSentBy.Text(), marked ? "email" : "");
    EXPECT_EQ(window.cmdRemove.Enabled(), !marked);
    EXPECT_EQ(window.lblStatus.Text(), marked ? "Invoice sent today." : "Invoice not sent yet.");
    EXPECT_EQ(desk.Cell("1", "SDATE"), marked ? "03/02/2026" : "");
    window.Press(window.cmdSendReceiptByEmail);
    EXPECT_EQ(desk.Messages(), message);
    EXPECT_EQ(window.cReceiptDate.Text(), marked ? "03/02/2026" : "");
  }
}

// Drafts

// What Python's e-mail parser finds in a draft: headers, parts, faults.
std::string Parsed(const fs::path& file) {
  return test::OutputOf(
      "python3 -c '\n"
      "import email, email.policy, sys\n"
      "m = email.message_from_binary_file(open(sys.argv[1], \"rb\"), policy=email.policy.default)\n"
      "out = [\"|\".join(m.keys()), str(m[\"To\"]), m[\"Subject\"]]\n"
      "for p in m.walk():\n"
      "  assert not p.defects, p.defects\n"
      "  if p.get_content_type() == \"text/plain\": out.append(p.get_content())\n"
      "  if p.get_filename(): out += [p.get_content_type(), p.get_filename(), "
      "str(len(p.get_content()))]\n"
      "sys.stdout.buffer.write(\"\\n\".join(out).encode())\n' '" +
      file.string() + "'");
}

TEST_F(Mail, ADraftStandsInForAMissingProgram) {
  desk.shown.mailAvailable = false;
  desk.ledger.fgPractices.SetTextMatrix(2, "NAME", "Caf\xE9 \"Mill\" \x80");
  SetOption(desk, optInvoiceEmailSubject, "F\xFCr {Practice} \x96 {Invoice Number} and more of it");
  SetOption(desk, optInvoiceEmailBody, "Dear \xE9,\r\n\nA line\n");
  ASSERT_TRUE(SendInvoiceByEmail(desk, "1"));
  EXPECT_TRUE(desk.shown.mails.empty());
  const fs::path file = desk.ledger.File("Drafts") / desk.Document("1").stem().concat(".eml");
  ASSERT_TRUE(fs::exists(file)) << file;
  EXPECT_EQ(desk.shown.opened, std::vector<std::string>{PathText(file)});
  EXPECT_EQ(desk.shown.clipboard,
            "To: pm@riverside.example\r\nSubject: F\xFCr Caf\xE9 \"Mill\" \x80 \x96 INV-00001 and "
            "more of it\r\n\r\nDear \xE9,\r\n\nA line\n");
  EXPECT_EQ(Parsed(file),
            "X-Unsent|Date|To|Subject|MIME-Version|Content-Type\npm@riverside.example\n"
            "Für Café \"Mill\" € – INV-00001 and more of it\nDear é,\r\n\r\nA line\r\n\n"
            "application/pdf\nINV-00001_Café_Mill_€.pdf\n" +
                std::to_string(fs::file_size(desk.Document("1"))));
}

TEST_F(Mail, DraftsOfAnyTexts) {
  const struct {
    MailMessage message;
    const char* parsed;
  } kCases[] = {
      {{"", "", "", "", {}},
       "X-Unsent|Date|To|Subject|MIME-Version|Content-Type|"
       "Content-Transfer-Encoding\n\n\n"},
      {{"a@a.example", "=?UTF-8?B?x?=", "x", "", {}},
       "X-Unsent|Date|To|Subject|MIME-Version|Content-Type|Content-Transfer-Encoding\na@a.example\n"
       "=?UTF-8?B?x?=\nx"},
      {{"a@a.example", "tab\tbell\a", std::string(200, 'y'), "", {}},
       "X-Unsent|Date|To|Subject|MIME-Version|Content-Type|Content-Transfer-Encoding\na@a.example\n"
       "tab bell \nyyyyyyyyyy"},
  };
  for (const auto& [message, parsed] : kCases) {
    std::string error;
    const auto draft = EmlDraft(message, desk.shown.now, error);
    ASSERT_TRUE(draft);
    ASSERT_TRUE(ReplaceFile(desk.ledger.File("x.eml"), *draft, error));
    EXPECT_EQ(Parsed(desk.ledger.File("x.eml")).substr(0, std::string(parsed).size()), parsed);
    for (const std::string_view line : Split(*draft, '\n')) EXPECT_LE(line.size(), 998u);
  }
  const auto draft = EmlDraft({"", std::string(3000, 's'), "", "", {}}, desk.shown.now, error_);
  for (const std::string_view line : Split(*draft, '\n')) EXPECT_LE(line.size(), 998u);
  EXPECT_NE(draft->find("Date: Tue, 3 Feb 2026 10:30:00 -0000\r\n"), std::string::npos);
}

TEST_F(Mail, ADraftThatCannotBeWrittenIsToldAndNothingMarked) {
  desk.shown.mailAvailable = false;
  SetOption(desk, optAutoSetInvoiceDate, "TRUE");
  ASSERT_TRUE(ReplaceFile(desk.ledger.File("Drafts"), "a file", error_));
  frmInvoice window(desk);
  window.Open("1");
  window.Press(window.cmdSendByEmail);
  EXPECT_EQ(desk.Messages(), "The e-mail could not be prepared");
  EXPECT_EQ(window.cSDate.Text(), "");
  EXPECT_EQ(desk.shown.clipboard, "");
}

TEST_F(Mail, WhatWasSentStaysSentAfterCancel) {
  SetOption(desk, optAutoSetInvoiceDate, "TRUE");
  SetOption(desk, optAutoSetReceiptDate, "TRUE");
  frmInvoice window(desk);
  window.Open("1");
  window.Press(window.cmdSendByEmail);
  window.Press(window.cmdSendReceiptByEmail);
  window.Enter(window.cPayMethod, "BACS");
  window.Press(window.cmdCancel);
  const Grid& invoices = desk.ledger.fgInvoices;
  const int row = invoices.FindRow("1", "ID");
  EXPECT_EQ(invoices.TextMatrix(row, "SDATE"), "03/02/2026");
  EXPECT_EQ(invoices.TextMatrix(row, "SENTBY"), "email");
  EXPECT_EQ(invoices.TextMatrix(row, "RECEIPTDATE"), "03/02/2026");
  EXPECT_EQ(invoices.TextMatrix(row, "PAYMETHOD"), "");
}

}  // namespace
}  // namespace lm
