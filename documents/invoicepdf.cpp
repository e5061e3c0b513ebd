#include "documents/invoicepdf.h"

#include <system_error>

#include "core/datafilecodec.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/invoicepages.h"
#include "pdf/clsPDFCreator.h"
#include "records/practices.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInvoiceFolder = "Invoices";
constexpr std::string_view kTemplateFolder = "Invoice Templates";

constexpr int kMillimetres = 2;
constexpr int kOwnPaper = 255;
constexpr int kOneColumn = 16384;
constexpr int kLzw = 4;

bool Exists(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

class StandingClock : public ClockPort {
 public:
  explicit StandingClock(Date moment) : moment_(moment) {}
  Date Now() override { return moment_; }

 private:
  Date moment_;
};

std::optional<std::string> Bytes(const fs::path& file) {
  std::string error;
  return ReadFile(file, error);
}

// Of a document written here; none for another's.
std::optional<Date> MomentOfCreation(std::string_view pdf) {
  constexpr std::string_view kEntry = "/CreationDate (D:";
  constexpr std::size_t kDigits = 14;  // yyyymmddhhnnss
  const std::size_t at = pdf.rfind(kEntry);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view digits = pdf.substr(at + kEntry.size(), kDigits);
  if (digits.size() != kDigits || !AllDigits(digits)) return std::nullopt;
  const auto number = [&](std::size_t first, std::size_t count) {
    return ValInt(digits.substr(first, count));
  };
  return DateSerial(number(0, 4), number(4, 2), number(6, 2)) +
         TimeSerial(number(8, 2), number(10, 2), number(12, 2));
}

// By invoice and moment, so that the document comes out again as it was.
std::uint32_t NamesNumber(const std::string& id, Date moment) {
  const std::string digest = DigestOf(id + FormatDate(moment, " yyyymmddhhnnss"));
  return static_cast<std::uint32_t>(std::stoul(digest.substr(0, 6), nullptr, 16));
}

void TellUnwritten(Ledger& ledger, const fs::path& file, const std::string& reason) {
  ShowMessage(ledger, "The invoice could not be written",
              "File '" + PathInMessage(file) + "'\\n\\n" + reason);
}

void Describe(clsPDFCreator& pdf, const Ledger& ledger, std::string_view what,
              const std::string& practice) {
  const std::string name =
      MyDetail(ledger, kFirstNameField) + " " + MyDetail(ledger, kLastNameField);
  pdf.SetDocProperty(
      std::string(what) + " for practice " + practice, std::string(what) + " from " + name, name,
      "LedgerMinder " + std::string(ProgramVersion()) + "   " + std::string(kWebsite),
      "LedgerMinder PDF Library", "");
}

void SetUpPage(clsPDFCreator& pdf, const DocumentTemplate& layout) {
  pdf.SetScale(kMillimetres, 1.0);
  pdf.SetPaperSize(kOwnPaper, layout.width, layout.height);
  pdf.SetMargins(0, 0, 0, 0, true);
  pdf.SetViewerPreferences(kOneColumn);
  pdf.SetCompression(kLzw, 0, 0);
}

fs::path FileNamed(const Ledger& ledger, const std::string& before, int invoiceRow) {
  const Grid& invoices = ledger.fgInvoices;
  const std::string name = before + invoices.TextMatrix(invoiceRow, "NUMBER") + " " +
                           PracticeName(ledger, invoices.TextMatrix(invoiceRow, "PRACTICE")) +
                           ".pdf";
  return ledger.File(kInvoiceFolder) / PathFromText(NameForFile(name));
}

}  // namespace

fs::path InvoiceFile(const Ledger& ledger, int invoiceRow) {
  return FileNamed(ledger, "", invoiceRow);
}

fs::path ReminderFile(const Ledger& ledger, int invoiceRow) {
  const int number = ValInt(ledger.fgInvoices.TextMatrix(invoiceRow, "REMINDERS")) + 1;
  return FileNamed(ledger, "Reminder " + PlainText(number) + " ", invoiceRow);
}

fs::path StatementFile(const Ledger& ledger, const Statement& statement) {
  const std::string today = FormatDate(ledger.platform.clock.Now(), "yyyy-mm-dd");
  return FileNamed(ledger, "Statement " + today + " ",
                   RecordRow(ledger.fgInvoices, statement.invoices.front()));
}

fs::path PreviewFile(const Ledger& ledger) {
  return ledger.File(kInvoiceFolder) / "_PreviewTemplate.pdf";
}

bool InvoiceRenderer::HasFolder() {
  if (IsFolder(ledger_.File(kInvoiceFolder))) return true;
  ShowMessage(ledger_, "The Invoices directory does not exist", "Please re-install LedgerMinder.");
  return false;
}

bool InvoiceRenderer::CreateInvoice(const std::string& invoiceId, const std::string& templateName) {
  const std::string id(Trim(invoiceId));
  const int row = index_.Invoice(id);
  const bool preview = !templateName.empty();
  return Create({id}, preview || row < 0 ? PreviewFile(ledger_) : InvoiceFile(ledger_, row),
                preview ? templateName : GetOption(ledger_, optInvoiceTemplate));
}

bool InvoiceRenderer::CreateReminder(const std::string& invoiceId) {
  const int row = index_.Invoice(invoiceId);
  return row >= 0 && Create({invoiceId, nullptr, "Reminder"}, ReminderFile(ledger_, row),
                            std::string(kReminderTemplate));
}

bool InvoiceRenderer::CreateStatement(const Statement& statement) {
  return Create({statement.invoices.front(), &statement, "Statement of account"},
                StatementFile(ledger_, statement), std::string(kStatementTemplate));
}

bool InvoiceRenderer::Create(const Subject& subject, const fs::path& file,
                             const std::string& templateName) {
  failedForAll_ = !HasFolder();
  if (failedForAll_ || index_.Invoice(subject.invoice) < 0) return false;
  if (IsOpenElsewhere(file)) {
    ShowMessage(ledger_, "File already open",
                "File '" + PathInMessage(file) +
                    "' is currently open.\\n\\nYou must close it before it can be overwritten.");
    return false;
  }
  const DocumentTemplate* layout = Template(templateName);
  failedForAll_ = !layout;
  if (!layout) return false;
  if (Write(subject, *layout, file, ledger_.platform.clock, &documents_)) {
    ledger_.history.DocumentWritten();
    return true;
  }
  failedForAll_ = !IsWritableFolder(ledger_.File(kInvoiceFolder));
  return false;
}

const DocumentTemplate* InvoiceRenderer::Template(const std::string& name) {
  if (name.empty()) {
    ShowMessage(ledger_, "No Template",
                "No template has been chosen for creating invoices."
                "\\nSelect a template from the Options screen.");
    return nullptr;
  }
  if (const auto known = templates_.find(name); known != templates_.end()) return &known->second;
  const fs::path file = ledger_.File(kTemplateFolder) / PathFromText(name);
  if (!Exists(file)) {
    ShowMessage(ledger_, "No Template",
                "Unable to find the invoice template '" + name +
                    "'.\\nPlease check this template exists in the templates directory;\\n" +
                    PathInMessage(ledger_.File(kTemplateFolder)) +
                    "\\n\\nOr select a different invoice template from the Options screen.");
    return nullptr;
  }
  std::optional<DocumentTemplate> loaded = LoadTemplate(ledger_, file);
  return loaded ? &templates_.emplace(name, std::move(*loaded)).first->second : nullptr;
}

bool InvoiceRenderer::IsCurrent(const std::string& invoiceId) {
  const int row = index_.Invoice(invoiceId);
  const fs::path file = InvoiceFile(ledger_, row);
  const DocumentTemplate* layout = Template(GetOption(ledger_, optInvoiceTemplate));
  const std::optional<std::string> stored = Bytes(file);
  const std::optional<Date> made = stored ? MomentOfCreation(*stored) : std::nullopt;
  if (row < 0 || !layout || !stored) return true;
  if (!made) return false;  // it is not ours
  // Drawn at the moment at which the stored one was, it must come out the same to the last byte.
  StandingClock clock(*made);
  const fs::path again = ledger_.File(kInvoiceFolder) / "_Compare.pdf";
  if (!Write({invoiceId}, *layout, again, clock, nullptr)) return true;
  const bool same = Bytes(again) == stored;
  std::error_code ignored;
  fs::remove(again, ignored);
  return same;
}

bool InvoiceRenderer::Write(const Subject& subject, const DocumentTemplate& layout,
                            const fs::path& file, ClockPort& clock, FileBatch* batch) {
  const int row = index_.Invoice(subject.invoice);
  clsPDFCreator pdf(clock);
  if (batch) pdf.LeaveTo(*batch);
  Describe(pdf, ledger_, subject.what,
           PracticeName(ledger_, ledger_.fgInvoices.TextMatrix(row, "PRACTICE")));
  SetUpPage(pdf, layout);
  pdf.SetNamesNumber(NamesNumber(subject.invoice, clock.Now()));
  pdf.BeginDoc(PathText(file));
  if (pdf.ErrNumber() == 0) {
    InvoicePages pages(ledger_, index_, layout, pdf, toldFaults_);
    subject.statement ? pages.Draw(*subject.statement) : pages.Draw(subject.invoice);
    cutTexts_ = pdf.CutTexts();
    if (pdf.EndDoc()) return true;  // an item's fault was told already
  }
  TellUnwritten(ledger_, file, pdf.ErrDescription());
  return false;
}

bool InvoiceRenderer::Finish() {
  const std::vector<FileBatch::Failure> failures = documents_.Finish();
  for (const auto& [file, error] : failures) TellUnwritten(ledger_, file, error);
  return failures.empty();
}

bool CreateInvoice(Ledger& ledger, const std::string& invoiceId, const std::string& templateName) {
  const RecordIndex index(ledger);
  InvoiceRenderer renderer(ledger, index);
  return renderer.CreateInvoice(invoiceId, templateName) && renderer.Finish();
}

}  // namespace lm
