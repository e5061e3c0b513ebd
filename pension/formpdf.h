// Pension forms on paper: figures laid over the blank forms that the pension scheme issues, which
// lie in "Form Templates" in the program directory. The edition goes by the form's month.
#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/ledger.h"
#include "pension/form.h"
#include "pension/monthsessions.h"

namespace lm {

namespace pdf {
class FileCache;
}

// "Pension Forms/FormA_Riverside Surgery_Apr 24.pdf" in the program directory.
std::filesystem::path FormFile(const Ledger& ledger, const FormRow& record);

// Writes many forms in one run; each blank form is read once, and so are a month's sessions, whose
// rows, start dates and practices must stay as they are. A trouble that is not the form's own, such
// as a missing blank, is told once.
class FormPrinter {
 public:
  explicit FormPrinter(Ledger& ledger);
  ~FormPrinter();

  // False after its message, so that nothing is made whose document has no folder to go to.
  bool HasFolder();
  // From the form's row in its table. False after its message; an older document then stays as it
  // was. Documents stand under their names once Finish has put them there. A part of the form that
  // could not be drawn, such as a damaged signature, is told and left out.
  bool Write(const PensionForm& form, int row);
  // All documents together onto the disk, before the records that speak of them are saved. False
  // after a message for each that would not go.
  bool Finish();

 private:
  bool WriteFile(const FormRow& record, const FormBlank& blank, const std::filesystem::path& file);
  void Tell(std::string_view heading, const std::string& text,
            std::string_view title = "Output Pension Form");

  Ledger& ledger_;
  std::shared_ptr<pdf::FileCache> blanks_;
  SessionsByMonth sessions_;
  std::set<std::string> told_;
  FileBatch documents_;
};

// Opens the document of a row of the form's table, written first where it does not exist or
// `recreate` asks for it. False after its message.
bool OpenFormDocument(Ledger& ledger, const PensionForm& form, int row, bool recreate = false);
// True for a damaged month, which has no document. False, after its message, when the file is there
// and cannot be removed.
bool DeleteFormDocument(Ledger& ledger, const FormRow& record);

}  // namespace lm
