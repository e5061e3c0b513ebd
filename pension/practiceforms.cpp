#include "pension/practiceforms.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "core/messagebox.h"
#include "core/platform.h"
#include "core/text.h"
#include "pension/months.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

struct Practice {
  std::string id, name;
};

std::vector<Practice> PracticesWithType(const Ledger& ledger, const MonthSessions& sessions,
                                        int sessionType) {
  const Grid& practices = ledger.fgPractices;
  std::vector<Practice> found;
  for (int row = practices.FixedRows(); row < practices.Rows(); ++row) {
    if (practices.IsSubtotal(row)) continue;
    std::string id = practices.TextMatrix(row, "ID");
    if (!id.empty() && sessions.HasType(sessionType, id))
      found.push_back({std::move(id), practices.TextMatrix(row, "NAME")});
  }
  return found;
}

std::unordered_set<std::string> PracticesWithForm(const Ledger& ledger, std::string_view monthKey,
                                                  const PracticeForm& form) {
  const Grid& table = ledger.*form.table;
  const int month = table.ColIndex("MONTH");
  const int practice = table.ColIndex("PRACTICE");
  std::unordered_set<std::string> found;
  for (int row = table.FixedRows(); row < table.Rows(); ++row)
    if (!table.IsSubtotal(row) && form.isOfMonth(table.TextMatrix(row, month), monthKey))
      found.insert(table.TextMatrix(row, practice));
  return found;
}

bool MakeWay(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId,
             const PracticeForm& form) {
  const int row = PracticeFormRow(ledger, practiceId, sessions.Month(), form);
  if (row < 0) return true;
  const std::string name(form.name);
  const std::string heading = "A Locum " + name + " has already been calculated for " +
                              PracticeName(ledger, practiceId) + " for " +
                              MonthText(sessions.Month(), "mmm yyyy");
  if (!form.mayOverwrite(ledger, row, "Create " + name, heading)) return false;
  RemovePracticeForm(ledger, sessions, practiceId, form);
  return true;
}

bool MakeAndWrite(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                  const std::string& practiceId, const PracticeForm& form) {
  if (!form.make(ledger, sessions, practiceId)) return false;
  printer.Write(form.kind, sessions.Month(), practiceId);  // without a document the form stands too
  return true;
}

}  // namespace

int PracticeFormRow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey,
                    const PracticeForm& form) {
  const Grid& table = ledger.*form.table;
  const int month = table.ColIndex("MONTH");
  const int practice = table.ColIndex("PRACTICE");
  for (int row = table.FixedRows(); row < table.Rows(); ++row)
    if (table.TextMatrix(row, practice) == practiceId && !table.IsSubtotal(row) &&
        form.isOfMonth(table.TextMatrix(row, month), monthKey))
      return row;
  return -1;
}

void RemovePracticeForm(Ledger& ledger, const MonthSessions& sessions,
                        const std::string& practiceId, const PracticeForm& form) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  for (const int row : sessions.Of(practiceId)) RemoveFormLetter(ledger, row, form.letter);
  const int row = PracticeFormRow(ledger, practiceId, sessions.Month(), form);
  if (row >= 0) (ledger.*form.table).RemoveItem(row);
}

bool CreatePracticeForm(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                        const std::string& practiceId, const PracticeForm& form) {
  return MakeWay(ledger, sessions, practiceId, form) &&
         MakeAndWrite(ledger, printer, sessions, practiceId, form);
}

int CreatePracticeForms(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                        const PracticeForm& form) {
  const BusyPointer busy(ledger.platform);
  const RedrawOff sessionsOff(ledger.fgSessions);
  const RedrawOff formsOff(ledger.*form.table);
  const std::vector<Practice> practices = PracticesWithType(ledger, sessions, form.sessionType);
  std::unordered_set<std::string> withForm = PracticesWithForm(ledger, sessions.Month(), form);
  int made = 0;
  for (std::size_t i = 0; i < practices.size(); ++i) {
    const auto& [id, name] = practices[i];
    ledger.platform.progress.Show(
        static_cast<int>(100 * i / practices.size()),
        "Preparing " + std::string(form.name) + " " + PlainText(made + 1) + ": " + name);
    if (withForm.contains(id) && !MakeWay(ledger, sessions, id, form)) continue;
    if (!MakeAndWrite(ledger, printer, sessions, id, form)) continue;
    withForm.insert(id);
    ++made;
  }
  ledger.platform.progress.Hide();
  return made;
}

bool DeletePracticeForm(Ledger& ledger, const std::string& practiceId, std::string_view monthKey,
                        const PracticeForm& form) {
  if (PracticeFormRow(ledger, practiceId, monthKey, form) < 0) return false;
  if (!Ask(ledger, "Delete Pension Form",
           "Delete Pension " + std::string(form.name) + " for '" +
               PracticeName(ledger, practiceId) + "' for " + MonthText(monthKey, "mmmm yyyy") +
               "?"))
    return false;
  if (!DeleteFormDocument(ledger, form.kind, monthKey, practiceId)) return false;
  RemovePracticeForm(ledger, MonthSessions(ledger, std::string(monthKey)), practiceId, form);
  return true;
}

Single SingleOf(std::string_view cell) { return static_cast<Single>(Val(RemoveAny(cell, ","))); }

}  // namespace lm
