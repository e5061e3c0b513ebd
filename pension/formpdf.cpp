#include "pension/formpdf.h"

#include <system_error>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/reader/parsedfile.h"
#include "pdf/wholefile.h"
#include "pension/formdrawing.h"
#include "pension/formoverlay.h"
#include "pension/locks.h"
#include "records/practices.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFormFolder = "Pension Forms";
constexpr int kMillimetres = 2;
constexpr int kOneColumn = 16384;
constexpr int kLzw = 4;

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

void SetUp(clsPDFCreator& pdf, const Ledger& ledger, const PensionForm& form) {
  const std::string letter(form.letter);
  pdf.SetDocProperty(
      "GP Locum Pension Form " + letter, "Pension Form " + letter, TitleAndName(ledger),
      "LedgerMinder " + std::string(ProgramVersion()) + "   " + std::string(kWebsite),
      "LedgerMinder PDF Library");
  pdf.SetScale(kMillimetres, 1.0);
  pdf.SetViewerPreferences(kOneColumn);
  pdf.SetCompression(kLzw, 0, 0);
}

std::string FileText(const fs::path& file) { return "File: '" + PathInMessage(file) + "'\\n"; }

}  // namespace

fs::path FormFile(const Ledger& ledger, const FormRow& record) {
  std::string name = "Form" + std::string(record.form.letter) + "_";
  if (record.form.ofPractice) name += NameForFile(PracticeName(ledger, record.Practice())) + "_";
  name += record.InMonth().Text("mmm yy") + ".pdf";
  return ledger.File(kFormFolder) / PathFromText(name);
}

FormPrinter::FormPrinter(Ledger& ledger)
    : ledger_(ledger), blanks_(std::make_shared<pdf::FileCache>()), sessions_(ledger) {}

FormPrinter::~FormPrinter() = default;

bool FormPrinter::HasFolder() {
  if (IsFolder(ledger_.File(kFormFolder))) return true;
  Tell("Pension forms directory not found",
       "Please re-install LedgerMinder to re-create this directory.", "No Pension Forms directory");
  return false;
}

bool FormPrinter::Write(const PensionForm& form, int row) {
  const FormRow record{form, ledger_.*form.table, row};
  if (!IsRecord(record.cells, row) || form.IsRetired()) {
    Tell("The pension form could not be found", "There is no such " + std::string(form.name) + ".");
    return false;
  }
  if (!HasMonth(ledger_, record) || !HasFolder()) return false;
  const fs::path file = FormFile(ledger_, record);
  if (IsOpenElsewhere(file)) {
    Tell("File already open and cannot be overwritten",
         FileText(file) + "You must close it before it can be overwritten.");
    return false;
  }
  const CivilDate month = ToCivilDate(record.InMonth().FirstDay());
  return WriteFile(record, BlankOf(form.letter, EditionOf(month.year, month.month)), file);
}

bool FormPrinter::WriteFile(const FormRow& record, const FormBlank& blank, const fs::path& file) {
  const FormFigures figures = FiguresOf(ledger_, sessions_, record);
  const fs::path blankFile = ledger_.File(kBlankFolder) / blank.file;
  clsPDFCreator pdf(ledger_.platform.clock);
  pdf.LeaveTo(documents_);
  pdf.ShareFiles(blanks_);
  SetUp(pdf, ledger_, record.form);
  pdf.BeginDoc(PathText(file));
  if (pdf.ErrNumber() != 0) {
    Tell("The pension form could not be written", FileText(file) + pdf.ErrDescription());
    return false;
  }
  for (int page = 1; page <= blank.pages; ++page) {
    pdf.BeginPage();
    if (!pdf.ImportPage(PathText(blankFile), page)) {
      const std::string reason = pdf.ErrDescription();
      pdf.Abort();
      Tell("The blank pension form could not be used", FileText(blankFile) + reason);
      return false;
    }
    DrawFigures(pdf, blank.places, page, figures);
    pdf.EndPage();
  }
  const std::string overlayError = pdf.ErrDescription();
  if (!pdf.EndDoc()) {
    Tell("The pension form could not be written", FileText(file) + pdf.ErrDescription());
    return false;
  }
  if (!overlayError.empty()) {
    if (record.form.ofPractice)
      Tell("A part of the pension form could not be printed", overlayError);
    else
      Tell("Error adding the month details to " + std::string(record.form.name) + ".\\n\\n" +
               overlayError,
           "");
  }
  ledger_.history.DocumentWritten();
  return true;
}

bool FormPrinter::Finish() {
  const std::vector<FileBatch::Failure> failures = documents_.Finish();
  for (const auto& [file, error] : failures)
    Tell("The pension form could not be written", FileText(file) + error);
  return failures.empty();
}

void FormPrinter::Tell(std::string_view heading, const std::string& text, std::string_view title) {
  if (told_.insert(std::string(heading) + text).second)
    ShowMessage(ledger_, heading, text, Buttons::Ok, Icon::Exclamation, title);
}

bool OpenFormDocument(Ledger& ledger, const PensionForm& form, int row, bool recreate) {
  const FormRow record{form, ledger.*form.table, row};
  const bool isThere = IsRecord(record.cells, row);
  if (isThere && !HasMonth(ledger, record)) return false;
  const fs::path file = isThere ? FormFile(ledger, record) : fs::path();
  // What a power cut left of a form is made anew; a retired one is opened as it is.
  const bool hasFile = isThere && (form.IsRetired() ? MayExist(file) : IsWholePdf(file));
  if (form.IsRetired() && !hasFile) {
    ShowMessage(
        ledger, "The document of this form is not there",
        "Forms C and D cannot be made any more. The file would be\\n" + PathInMessage(file));
    return false;
  }
  FormPrinter printer(ledger);
  const bool make = !hasFile || (recreate && !form.IsRetired());
  if (make && !(printer.Write(form, row) && printer.Finish())) return false;
  return OpenLink(ledger, PathText(file));
}

bool DeleteFormDocument(Ledger& ledger, const FormRow& record) {
  if (!record.InMonth()) return true;
  const fs::path file = FormFile(ledger, record);
  std::error_code error;
  fs::remove(file, error);
  if (!error) return true;
  ShowMessage(ledger, "The file of the pension form could not be deleted",
              FileText(file) + error.message(), Buttons::Ok, Icon::Exclamation,
              "Delete Pension Form");
  return false;
}

}  // namespace lm
