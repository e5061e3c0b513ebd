// Pension forms on paper: figures laid over the blank forms that the pension scheme issues, which
// lie in "Form Templates" in the program directory. The edition goes by the form's month.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "core/ledger.h"
#include "pension/formcoordinates.h"
#include "pension/monthsessions.h"

namespace lm {

namespace pdf {
class FileCache;
}

struct FormFigures;

// "Pension Forms/FormA_Riverside Surgery_Apr 24.pdf" in the program directory; practiceId is not
// looked at for a Form B.
std::filesystem::path FormFile(const Ledger& ledger, FormKind kind, std::string_view monthKey,
                               const std::string& practiceId = "");

// Writes many forms in one run; each blank form is read once, and so are a month's sessions, whose
// rows, start dates and practices must stay as they are. A trouble that is not the form's own, such
// as a missing blank, is told once.
class FormPrinter {
 public:
  explicit FormPrinter(Ledger& ledger);
  ~FormPrinter();

  // From the form's row. False after its message; an older document then stays as it was. A part
  // of the form that could not be drawn, such as a damaged signature, is told and left out.
  bool Write(FormKind kind, std::string_view monthKey, const std::string& practiceId = "");

 private:
  bool WriteFile(const FormBlank& blank, const FormFigures& figures,
                 const std::filesystem::path& file);
  const MonthSessions& SessionsOfMonth(const std::string& monthKey);
  FormFigures FiguresOf(FormKind kind, int row, const std::string& monthKey,
                        const std::string& practiceId);
  void Tell(std::string_view heading, const std::string& text,
            std::string_view title = "Output Pension Form");

  Ledger& ledger_;
  std::shared_ptr<pdf::FileCache> blanks_;
  std::map<std::string, MonthSessions> months_;
  std::set<std::string> told_;
};

// Opens the form's document, written first where it does not exist or `recreate` asks for it.
bool OpenFormDocument(Ledger& ledger, FormKind kind, std::string_view monthKey,
                      const std::string& practiceId, bool recreate = false);
// False, after its message, when the file is there and cannot be removed.
bool DeleteFormDocument(Ledger& ledger, FormKind kind, std::string_view monthKey,
                        const std::string& practiceId = "");

}  // namespace lm
