// Invoices on paper: a template drawn over an invoice's records into a PDF under "Invoices".
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"
#include "core/ledger.h"
#include "core/platform.h"
#include "documents/statements.h"
#include "documents/template.h"
#include "records/recordindex.h"

namespace lm {

// "Invoices/INV-00001 Riverside Surgery.pdf" in the program directory.
std::filesystem::path InvoiceFile(const Ledger& ledger, int invoiceRow);
// Where the preview of a template is written.
std::filesystem::path PreviewFile(const Ledger& ledger);
// "Invoices/Reminder 2 INV-00001 Riverside Surgery.pdf", by how often it was reminded of before.
std::filesystem::path ReminderFile(const Ledger& ledger, int invoiceRow);
// "Invoices/Statement 2026-02-03 INV-00001 Riverside Surgery.pdf": of today, by its first invoice.
std::filesystem::path StatementFile(const Ledger& ledger, const Statement& statement);

// Their templates stand among those of invoices.
inline constexpr std::string_view kReminderTemplate = "Reminder.tmpl";
inline constexpr std::string_view kStatementTemplate = "Statement.tmpl";

// Draws many invoices over one index; a template is read once.
class InvoiceRenderer {
 public:
  InvoiceRenderer(Ledger& ledger, const RecordIndex& index) : ledger_(ledger), index_(index) {}

  // Makes the invoice's document with the template of the options; with a template's file name a
  // preview. False after its message; an older document of that name then stays as it was.
  // Documents stand under their names once Finish has put them there.
  bool CreateInvoice(const std::string& invoiceId, const std::string& templateName = "");
  // The same for a letter that reminds of the invoice, and for a statement of account.
  bool CreateReminder(const std::string& invoiceId);
  bool CreateStatement(const Statement& statement);
  // All documents together onto the disk, before the records that speak of them are saved. False
  // after a message for each that would not go.
  bool Finish();
  // False after its message when there is no folder for documents.
  bool HasFolder();
  // False when the invoice's document would come out otherwise if it were made now, by its figures,
  // its texts or its template. True also, after its message, where it cannot be made now.
  bool IsCurrent(const std::string& invoiceId);
  // What the document written last does not show: texts without room, and words that were too long.
  const std::vector<std::string>& CutTexts() const { return cutTexts_; }
  // The last failure would meet every other invoice too (no folder, one that takes no file, no
  // template): a batch need not go on writing documents.
  bool FailedForAll() const { return failedForAll_; }

 private:
  // A document about an invoice, or about the statement where there is one.
  struct Subject {
    std::string invoice;  // ID
    const Statement* statement = nullptr;
    std::string_view what = "Invoice";
  };

  const DocumentTemplate* Template(const std::string& name);  // null after its message
  bool Create(const Subject& subject, const std::filesystem::path& file,
              const std::string& templateName);
  // The clock tells the moment of creation.
  bool Write(const Subject& subject, const DocumentTemplate& layout,
             const std::filesystem::path& file, ClockPort& clock, FileBatch* batch);

  Ledger& ledger_;
  const RecordIndex& index_;
  std::map<std::string, DocumentTemplate, std::less<>> templates_;
  std::set<std::string> toldFaults_;
  FileBatch documents_;
  std::vector<std::string> cutTexts_;
  bool failedForAll_ = false;
};

// A single invoice; builds its own index.
bool CreateInvoice(Ledger& ledger, const std::string& invoiceId,
                   const std::string& templateName = "");

}  // namespace lm
