#include "documents/invoicepdf.h"

#include <fstream>
#include <system_error>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
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

// On Windows a document that a viewer holds cannot be opened for writing.
bool IsOpenElsewhere(const fs::path& path) {
  return Exists(path) && !std::fstream(path, std::ios::in | std::ios::out | std::ios::binary);
}

void Describe(clsPDFCreator& pdf, const Ledger& ledger, const std::string& practice) {
  const std::string name =
      MyDetail(ledger, kFirstNameField) + " " + MyDetail(ledger, kLastNameField);
  pdf.SetDocProperty(
      "Invoice for practice " + practice, "Invoice from " + name, name,
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

}  // namespace

fs::path InvoiceFile(const Ledger& ledger, int invoiceRow) {
  const Grid& invoices = ledger.fgInvoices;
  const std::string name = invoices.TextMatrix(invoiceRow, "NUMBER") + " " +
                           PracticeName(ledger, invoices.TextMatrix(invoiceRow, "PRACTICE")) +
                           ".pdf";
  return ledger.File(kInvoiceFolder) / PathFromText(NameForFile(name));
}

fs::path PreviewFile(const Ledger& ledger) {
  return ledger.File(kInvoiceFolder) / "_PreviewTemplate.pdf";
}

bool InvoiceRenderer::CreateInvoice(const std::string& invoiceId, const std::string& templateName) {
  failedForAll_ = true;
  if (!IsFolder(ledger_.File(kInvoiceFolder))) {
    ShowMessage(ledger_, "The Invoices directory does not exist",
                "Please re-install LedgerMinder.");
    return false;
  }
  failedForAll_ = false;
  const std::string id(Trim(invoiceId));
  const int row = index_.Invoice(id);
  if (row < 0) return false;
  const fs::path file = templateName.empty() ? InvoiceFile(ledger_, row) : PreviewFile(ledger_);
  if (IsOpenElsewhere(file)) {
    ShowMessage(ledger_, "File already open",
                "File '" + PathText(file) +
                    "' is currently open.\\n\\nYou must close it before it can be overwritten.");
    return false;
  }
  const DocumentTemplate* layout =
      Template(templateName.empty() ? GetOption(ledger_, optInvoiceTemplate) : templateName);
  failedForAll_ = !layout;
  if (!layout) return false;
  if (Write(id, row, *layout, file)) return true;
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
                    PathText(ledger_.File(kTemplateFolder)) +
                    "\\n\\nOr select a different invoice template from the Options screen.");
    return nullptr;
  }
  std::optional<DocumentTemplate> loaded = LoadTemplate(ledger_, file);
  return loaded ? &templates_.emplace(name, std::move(*loaded)).first->second : nullptr;
}

bool InvoiceRenderer::Write(const std::string& id, int row, const DocumentTemplate& layout,
                            const fs::path& file) {
  clsPDFCreator pdf(ledger_.platform.clock);
  Describe(pdf, ledger_, PracticeName(ledger_, ledger_.fgInvoices.TextMatrix(row, "PRACTICE")));
  SetUpPage(pdf, layout);
  pdf.BeginDoc(PathText(file));
  if (pdf.ErrNumber() == 0) {
    InvoicePages(ledger_, index_, layout, pdf, toldFaults_).Draw(id);
    pdf.EndDoc();
    if (!pdf.ErrSource().ends_with(".EndDoc")) {  // an item's fault was told already
      ledger_.history.DocumentWritten();
      return true;
    }
  }
  ShowMessage(ledger_, "The invoice could not be written",
              "File '" + PathText(file) + "'\\n\\n" + pdf.ErrDescription());
  return false;
}

bool CreateInvoice(Ledger& ledger, const std::string& invoiceId, const std::string& templateName) {
  const RecordIndex index(ledger);
  return InvoiceRenderer(ledger, index).CreateInvoice(invoiceId, templateName);
}

}  // namespace lm
