#include "documents/reminders.h"

#include "core/change.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/text.h"
#include "documents/email.h"
#include "documents/invoicepdf.h"
#include "documents/mergefields.h"
#include "documents/moneyowed.h"
#include "records/practices.h"
#include "records/recordindex.h"

namespace lm {
namespace {

constexpr std::string_view kTitle = "Payment Reminders";

constexpr std::string_view kSubject =
    "Payment reminder from {My Title} {My Name}: {Statement Overdue|£#,##0.00} is overdue"_w;
constexpr std::string_view kBody =
    "{Salutation}\r\n\r\nI have not yet received payment of these invoices:\r\n\r\n"
    "{Statement Invoices}\r\n\r\n{Statement Request}\r\n\r\n"
    "A statement of account is attached. If you have paid in the meantime, please take no notice "
    "of this message.\r\n\r\n"
    "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}";

class Statements {
 public:
  Statements(Ledger& ledger, const std::vector<Statement>& statements, RemindBy by)
      : ledger_(ledger),
        statements_(statements),
        by_(by),
        index_(ledger),
        fields_(ledger, index_),
        renderer_(ledger, index_) {}

  int Send();

 private:
  bool SendOne(const Statement& statement);
  bool Email(const Statement& statement);
  void Record(const Statement& statement);
  void TellResult();

  Ledger& ledger_;
  const std::vector<Statement>& statements_;
  const RemindBy by_;
  RecordIndex index_;
  MergeFields fields_;
  InvoiceRenderer renderer_;
  std::vector<const Statement*> sent_;
};

int Statements::Send() {
  const Change change(ledger_, "Send Reminders");
  const RedrawOff redrawOff(ledger_.fgInvoices);
  for (std::size_t i = 0; i < statements_.size() && !renderer_.FailedForAll(); ++i) {
    const std::string name = PracticeName(ledger_, statements_[i].practice);
    ledger_.platform.progress.Show(static_cast<int>(100 * i / statements_.size()),
                                   "Preparing reminder: " + name);
    if (SendOne(statements_[i])) sent_.push_back(&statements_[i]);
  }
  ledger_.platform.progress.Hide();
  for (const Statement* each : sent_) Record(*each);
  TellResult();
  return static_cast<int>(sent_.size());
}

// Each document is on the disk before its message goes: the mail program reads it there.
bool Statements::SendOne(const Statement& statement) {
  if (!renderer_.CreateStatement(statement) || !renderer_.Finish()) return false;
  return by_ == RemindBy::Letter || Email(statement);
}

bool Statements::Email(const Statement& statement) {
  MergeContext context;
  context.invoice = statement.invoices.front();
  context.statement = &statement;
  return SendEmail(ledger_, PracticeCell(ledger_, statement.practice, "EMAIL"),
                   fields_.Merge(kSubject, context), fields_.Merge(kBody, context),
                   StatementFile(ledger_, statement));
}

void Statements::Record(const Statement& statement) {
  for (const std::string& invoice : statement.overdueInvoices)
    RecordReminder(ledger_, index_.Invoice(invoice));
}

void Statements::TellResult() {
  if (sent_.empty()) return;
  std::string lines;
  for (const Statement* each : sent_)
    lines += "\\n" + PracticeName(ledger_, each->practice) + " - " +
             Format(each->overdue, "£#,##0.00"_w);
  if (by_ == RemindBy::Letter)
    lines += "\\n\\nThe letters are in the folder\\n" +
             PathInMessage(StatementFile(ledger_, *sent_.front()).parent_path());
  const auto count = static_cast<std::ptrdiff_t>(sent_.size());
  ShowMessage(ledger_,
              by_ == RemindBy::Email ? Counted(count, "reminder sent", "reminders sent")
                                     : Counted(count, "letter written", "letters written"),
              lines, Buttons::Ok, Icon::Done, kTitle);
}

}  // namespace

bool WriteReminderLetter(Ledger& ledger, const std::string& invoiceId) {
  const RecordIndex index(ledger);
  const int row = index.Invoice(invoiceId);
  if (row < 0) return false;
  const std::filesystem::path file = ReminderFile(ledger, row);
  InvoiceRenderer renderer(ledger, index);
  if (!renderer.CreateReminder(invoiceId) || !renderer.Finish()) return false;
  {
    const Change change(ledger, "Write Reminder");
    RecordReminder(ledger, row);
  }
  OpenLink(ledger, PathText(file));
  return true;
}

int SendStatements(Ledger& ledger, const std::vector<Statement>& statements, RemindBy by) {
  return Statements(ledger, statements, by).Send();
}

}  // namespace lm
