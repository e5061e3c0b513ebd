#include "pension/formpdf.h"

#include <fstream>
#include <system_error>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/reader/parsedfile.h"
#include "pension/formdrawing.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/months.h"
#include "records/practices.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFormFolder = "Pension Forms";
constexpr int kMillimetres = 2;
constexpr int kOneColumn = 16384;
constexpr int kLzw = 4;

// On Windows a document that a viewer holds cannot be opened for writing.
bool IsOpenElsewhere(const fs::path& path) {
  return MayExist(path) && !std::fstream(path, std::ios::in | std::ios::out | std::ios::binary);
}

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

int FormRow(const Ledger& ledger, FormKind kind, std::string_view monthKey,
            const std::string& practiceId) {
  if (kind == FormKind::B) return FormBRow(ledger, monthKey);
  return kind == FormKind::A ? FormARow(ledger, practiceId, monthKey)
                             : FormSoloRow(ledger, practiceId, monthKey);
}

void SetUp(clsPDFCreator& pdf, const Ledger& ledger, FormKind kind) {
  const std::string letter(FormLetter(kind));
  pdf.SetDocProperty(
      "GP Locum Pension Form " + letter, "Pension Form " + letter, TitleAndName(ledger),
      "LedgerMinder " + std::string(ProgramVersion()) + "   " + std::string(kWebsite),
      "LedgerMinder PDF Library");
  pdf.SetScale(kMillimetres, 1.0);
  pdf.SetViewerPreferences(kOneColumn);
  pdf.SetCompression(kLzw, 0, 0);
}

bool FailedIn(const clsPDFCreator& pdf, std::string_view operation) {
  return pdf.ErrSource().ends_with(operation);
}

std::string FileText(const fs::path& file) { return "File: '" + PathText(file) + "'\\n"; }

}  // namespace

fs::path FormFile(const Ledger& ledger, FormKind kind, std::string_view monthKey,
                  const std::string& practiceId) {
  std::string name = "Form" + std::string(FormLetter(kind)) + "_";
  if (kind != FormKind::B) name += NameForFile(PracticeName(ledger, practiceId)) + "_";
  name += MonthText(monthKey, "mmm yy") + ".pdf";
  return ledger.File(kFormFolder) / PathFromText(name);
}

FormPrinter::FormPrinter(Ledger& ledger)
    : ledger_(ledger), blanks_(std::make_shared<pdf::FileCache>()) {}

FormPrinter::~FormPrinter() = default;

bool FormPrinter::Write(FormKind kind, std::string_view monthKey, const std::string& practiceId) {
  const std::optional<Date> month = FirstDayOf(monthKey);
  const int row = month ? FormRow(ledger_, kind, monthKey, practiceId) : -1;
  if (row < 0) {
    Tell("The pension form could not be found",
         "There is no Form " + std::string(FormLetter(kind)) + " for that month.");
    return false;
  }
  if (!IsFolder(ledger_.File(kFormFolder))) {
    Tell("Pension forms directory not found",
         "Please re-install LedgerMinder to re-create this directory.",
         "No Pension Forms directory");
    return false;
  }
  const fs::path file = FormFile(ledger_, kind, monthKey, practiceId);
  if (IsOpenElsewhere(file)) {
    Tell("File already open and cannot be overwritten",
         FileText(file) + "You must close it before it can be overwritten.");
    return false;
  }
  const CivilDate day = ToCivilDate(*month);
  return WriteFile(BlankOf(kind, EditionOf(day.year, day.month)),
                   FiguresOf(kind, row, std::string(monthKey), practiceId), file);
}

bool FormPrinter::WriteFile(const FormBlank& blank, const FormFigures& figures,
                            const fs::path& file) {
  const fs::path blankFile = ledger_.File(kBlankFolder) / blank.file;
  clsPDFCreator pdf(ledger_.platform.clock);
  pdf.ShareFiles(blanks_);
  SetUp(pdf, ledger_, blank.kind);
  pdf.BeginDoc(PathText(file));
  if (pdf.ErrNumber() != 0) {
    Tell("The pension form could not be written", FileText(file) + pdf.ErrDescription());
    return false;
  }
  for (int page = 1; page <= blank.pages; ++page) {
    pdf.BeginPage();
    pdf.ImportPage(PathText(blankFile), page, 0, 0, 0, 0);
    if (FailedIn(pdf, ".ImportPage")) {
      const std::string reason = pdf.ErrDescription();
      pdf.Abort();
      Tell("The blank pension form could not be used", FileText(blankFile) + reason);
      return false;
    }
    DrawFigures(pdf, blank.places, page, figures);
    pdf.EndPage();
  }
  const std::string overlayError = pdf.ErrDescription();
  pdf.EndDoc();
  if (FailedIn(pdf, ".EndDoc")) {
    Tell("The pension form could not be written", FileText(file) + pdf.ErrDescription());
    return false;
  }
  if (!overlayError.empty()) {
    if (blank.kind == FormKind::B)
      Tell("Error adding the month details to Form B.\\n\\n" + overlayError, "");
    else
      Tell("A part of the pension form could not be printed", overlayError);
  }
  return true;
}

const MonthSessions& FormPrinter::SessionsOfMonth(const std::string& monthKey) {
  return months_.try_emplace(monthKey, ledger_, monthKey).first->second;
}

FormFigures FormPrinter::FiguresOf(FormKind kind, int row, const std::string& monthKey,
                                   const std::string& practiceId) {
  const SessionsOf sessionsOf = [this](const std::string& key) -> const MonthSessions& {
    return SessionsOfMonth(key);
  };
  if (kind == FormKind::B) return FiguresOfFormB(ledger_, sessionsOf, row, monthKey);
  const auto figures = kind == FormKind::A ? FiguresOfFormA : FiguresOfFormSolo;
  return figures(ledger_, sessionsOf, row, monthKey, practiceId);
}

void FormPrinter::Tell(std::string_view heading, const std::string& text, std::string_view title) {
  if (told_.insert(std::string(heading) + text).second)
    ShowMessage(ledger_, heading, text, Buttons::Ok, Icon::Exclamation, title);
}

bool OpenFormDocument(Ledger& ledger, FormKind kind, std::string_view monthKey,
                      const std::string& practiceId, bool recreate) {
  const fs::path file = FormFile(ledger, kind, monthKey, practiceId);
  if ((recreate || !MayExist(file)) && !FormPrinter(ledger).Write(kind, monthKey, practiceId))
    return false;
  return ledger.platform.system.Open(PathText(file));
}

bool DeleteFormDocument(Ledger& ledger, FormKind kind, std::string_view monthKey,
                        const std::string& practiceId) {
  const fs::path file = FormFile(ledger, kind, monthKey, practiceId);
  std::error_code error;
  fs::remove(file, error);
  if (!error) return true;
  ShowMessage(ledger, "The file of the pension form could not be deleted",
              FileText(file) + error.message(), Buttons::Ok, Icon::Exclamation,
              "Delete Pension Form");
  return false;
}

}  // namespace lm
