#include "documents/email.h"

#include "core/change.h"
#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/text.h"
#include "documents/emldraft.h"
#include "documents/invoicepdf.h"
#include "documents/invoices.h"
#include "documents/mergefields.h"
#include "documents/moneyowed.h"
#include "pdf/wholefile.h"
#include "records/practices.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDraftFolder = "Drafts";

// Mail programs of old took the name up to its first blank.
std::string AttachmentName(const fs::path& attachment) {
  return Replace(PathText(attachment.filename()), " ", "_");
}

std::string ClipboardText(const MailMessage& message) {
  return "To: " + message.to + "\r\nSubject: " + message.subject + "\r\n\r\n" + message.body;
}

// A name for the draft that tells one from the other: that of the document, else the recipient's.
std::string DraftName(const MailMessage& message) {
  std::string name =
      message.attachment.empty() ? NameForFile(message.to) : PathText(message.attachment.stem());
  if (name.empty()) name = "message";
  return name + ".eml";
}

// Without a mail program the message is written as a draft, which most of them open, and its text
// put on the clipboard for a mail page in the browser.
bool WriteAndOpenDraft(Ledger& ledger, const MailMessage& message) {
  const fs::path folder = ledger.File(kDraftFolder);
  const fs::path file = folder / PathFromText(DraftName(message));
  std::string error;
  std::optional<std::string> draft = EmlDraft(message, ledger.platform.clock.Now(), error);
  if (!draft || !MakeFolder(folder, error) || !ReplaceFile(file, *draft, error)) {
    ShowMessage(ledger, "The e-mail could not be prepared", error);
    return false;
  }
  ledger.platform.system.SetClipboard(ClipboardText(message));
  ledger.platform.system.Open(PathText(file));  // whether or not, the message tells where it is
  ShowMessage(ledger, "No e-mail program was found",
              "The address, the subject and the text of the e-mail have been copied to the "
              "clipboard, so that you can paste them into your e-mail.\\n\\nA draft with the "
              "attachment is in the file\\n" +
                  PathInMessage(file),
              Buttons::Ok, Icon::Information);
  return true;
}

struct MailTexts {
  std::string subject, body;  // with merge fields
};

constexpr std::string_view kReminderSubject =
    "{Reminder Heading}: invoice {Invoice Number} from {My Title} {My Name}";
constexpr std::string_view kReminderBody =
    "{Salutation}\r\n\r\n{Payment Reminder} I attach it again.\r\n\r\n{Reminder Request}\r\n\r\n"
    "If you have paid it in the meantime, please take no notice of this message.\r\n\r\n"
    "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}";

// What goes out says what the invoice says now, unless the user wants it as it was.
bool PrepareDocument(Ledger& ledger, const std::string& invoiceId, const fs::path& file) {
  const RecordIndex index(ledger);
  InvoiceRenderer renderer(ledger, index);
  const auto make = [&] { return renderer.CreateInvoice(invoiceId) && renderer.Finish(); };
  if (!IsWholePdf(file)) return make();
  if (renderer.IsCurrent(invoiceId)) return true;
  switch (ShowMessage(ledger, "The document of this invoice is out of date",
                      "The invoice or its template has changed since the document was made.\\n\\n"
                      "Click Yes to make it anew and send it.\\nClick No to send it as it is.",
                      Buttons::YesNoCancel, Icon::Question, "Send By E-mail")) {
    case Answer::Yes:
      return make();
    case Answer::No:
      return true;
    default:
      return false;
  }
}

bool SendDocument(Ledger& ledger, const std::string& invoiceId, const MailTexts& texts) {
  const int row = InvoiceRow(ledger, invoiceId);
  if (row < 0) return false;
  const fs::path file = InvoiceFile(ledger, row);
  if (!PrepareDocument(ledger, invoiceId, file)) return false;
  MergeContext context;
  context.invoice = invoiceId;
  return SendEmail(ledger,
                   PracticeCell(ledger, ledger.fgInvoices.TextMatrix(row, "PRACTICE"), "EMAIL"),
                   Merge(ledger, texts.subject, context), Merge(ledger, texts.body, context), file);
}

}  // namespace

bool SendEmail(Ledger& ledger, std::string_view to, std::string_view subject, std::string_view body,
               const fs::path& attachment) {
  MailMessage message{OneLine(to), OneLine(subject), std::string(body), "", attachment};
  if (!attachment.empty()) message.attachmentName = AttachmentName(attachment);
  MailPort& mail = ledger.platform.mail;
  if (!mail.Available()) return WriteAndOpenDraft(ledger, message);
  const MailOutcome outcome = mail.Compose(message);
  if (outcome == MailOutcome::Failed)
    ShowMessage(ledger, "The e-mail could not be sent",
                "Your e-mail program did not take the message. Nothing has been marked as sent.");
  return outcome == MailOutcome::Sent;
}

bool SendInvoiceByEmail(Ledger& ledger, const std::string& invoiceId) {
  return SendDocument(
      ledger, invoiceId,
      {GetOption(ledger, optInvoiceEmailSubject), GetOption(ledger, optInvoiceEmailBody)});
}

bool SendReceiptByEmail(Ledger& ledger, const std::string& invoiceId) {
  return SendDocument(ledger, invoiceId,
                      {GetOption(ledger, optReceiptSubject), GetOption(ledger, optReceiptBody)});
}

bool SendReminderByEmail(Ledger& ledger, const std::string& invoiceId) {
  if (!SendDocument(ledger, invoiceId, {std::string(kReminderSubject), std::string(kReminderBody)}))
    return false;
  const Change change(ledger, "Send Reminder");
  RecordReminder(ledger, InvoiceRow(ledger, invoiceId));
  return true;
}

}  // namespace lm
