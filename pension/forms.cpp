#include "pension/forms.h"

#include <map>
#include <set>
#include <utility>

#include "core/change.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/locks.h"
#include "records/batchpreview.h"
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
  for (const int row : Records(practices)) {
    std::string id = practices.TextMatrix(row, "ID");
    if (!id.empty() && sessions.HasType(sessionType, id))
      found.push_back({std::move(id), practices.TextMatrix(row, "NAME")});
  }
  return found;
}

// A form that the form of a later month has taken up cannot be overwritten.
bool IsFree(Ledger& ledger, const FormRow& old, std::string_view title, std::string_view heading) {
  if (RowTakenUpBy(ledger, old) < 0) return true;
  const std::string month = Month::OfCell(old.Cell("RCVDFROMPRACTICE")).Text("mmm yyyy");
  const std::string name(old.form.name);
  const std::string other(old.form.takenUpBy->name);
  ShowMessage(ledger, heading,
              "This " + name +
                  " has already been received back from the Practice and included on " + other +
                  " for the month " + month + ".\\n\\nThis " + name +
                  " can therefore not be edited or deleted. To unlock this " + name + " the " +
                  other + " for the month of " + month + " must be deleted first.",
              Buttons::Ok, Icon::Exclamation, title);
  return false;
}

bool MayOverwrite(Ledger& ledger, const FormRow& old, Month month) {
  const std::string title = "Create " + std::string(old.form.name);
  const std::string heading =
      "A Locum " + std::string(old.form.name) + " has already been calculated for " +
      (old.form.ofPractice ? PracticeName(ledger, old.Practice()) + " for " + month.Text("mmm yyyy")
                           : month.Text("mmmm yy") + ".");
  if (!IsFree(ledger, old, title, heading)) return false;
  std::string question = "Do you wish to overwrite it?";
  for (const SentLock::Step& step : old.form.sent->steps) {
    if (old.Cell(step.date).empty()) continue;
    question = "This form has already been " + std::string(step.words) + ".\\n" + question;
    break;
  }
  return Ask(ledger, heading, question, title);
}

void Remove(Ledger& ledger, const PensionForm& form, int row, const std::vector<int>& sessions) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  for (const int session : sessions) RemoveFormLetter(ledger, session, form.letter);
  (ledger.*form.table).RemoveItem(row);
}

std::vector<int> SessionsOn(const Ledger& ledger, const FormRow& record) {
  const PensionForm* madeOf = record.form.madeOf;
  if (!madeOf) return SessionsOfForms(ledger, record.form, {record.row});
  return SessionsOfForms(ledger, *madeOf, ReturnedForms(ledger, *madeOf, record.InMonth()));
}

std::string DeletionQuestion(const Ledger& ledger, const FormRow& record) {
  std::string question = "Delete Pension " + std::string(record.form.name);
  if (record.form.ofPractice) question += " for '" + PracticeName(ledger, record.Practice()) + "'";
  if (const Month month = record.InMonth())
    return question + " for " + month.Text("mmmm yyyy") + "?";
  return question + "?\\n\\nIts month is damaged (\"" + record.Cell("MONTH") +
         "\"), so that its document stays and its sessions keep their mark. To free the sessions, "
         "prepare the form of their month again and delete that one.";
}

}  // namespace

// ---- Looking up

int RowOfForm(const Ledger& ledger, const PensionForm& form, Month month,
              const std::string& practiceId) {
  const Grid& table = ledger.*form.table;
  const int monthCol = table.ColIndex("MONTH");
  const int practiceCol = form.ofPractice ? table.ColIndex("PRACTICE") : -1;
  for (const int row : Records(table))
    if ((!form.ofPractice || table.TextMatrix(row, practiceCol) == practiceId) &&
        form.isOfMonth(table.TextMatrix(row, monthCol), month))
      return row;
  return -1;
}

std::vector<int> ReturnedForms(const Ledger& ledger, const PensionForm& form, Month month) {
  const Grid& table = ledger.*form.table;
  const int received = table.ColIndex("RCVDFROMPRACTICE");
  std::vector<int> rows;
  for (const int row : Records(table))
    if (month.Has(table.TextMatrix(row, received))) rows.push_back(row);
  return rows;
}

std::vector<int> SessionsOfForms(const Ledger& ledger, const PensionForm& form,
                                 const std::vector<int>& rows) {
  std::map<std::string, std::set<Month>, std::less<>> months;  // by the practice
  for (const int row : rows) {
    const FormRow each{form, ledger.*form.table, row};
    if (const Month month = each.InMonth()) months[each.Practice()].insert(month);
  }
  const Grid& sessions = ledger.fgSessions;
  const int practice = sessions.ColIndex("PRACTICE");
  const int startDate = sessions.ColIndex("SDATE");
  std::vector<int> found;
  for (const int row : Records(sessions)) {
    const auto ofPractice = months.find(sessions.TextMatrix(row, practice));
    if (ofPractice != months.end() &&
        ofPractice->second.contains(Month::OfCell(sessions.TextMatrix(row, startDate))))
      found.push_back(row);
  }
  return found;
}

// ---- Making

Making CreateForm(Ledger& ledger, FormPrinter& printer, const PensionForm& form,
                  const MonthSessions& sessions, const std::string& practiceId) {
  if (form.ofPractice && practiceId.empty()) return Making::NothingToMake;
  const int old = RowOfForm(ledger, form, sessions.InMonth(), practiceId);
  if (old >= 0 && !MayOverwrite(ledger, {form, ledger.*form.table, old}, sessions.InMonth()))
    return Making::Declined;
  const bool mayMake = !form.mayMake || form.mayMake(ledger, sessions, practiceId);

  if (old >= 0 && form.ofPractice) Remove(ledger, form, old, sessions.Of(practiceId));
  if (old >= 0 && !form.ofPractice) RemoveForm(ledger, form, old);
  if (!mayMake) return Making::Declined;
  const int row = form.make(ledger, sessions, practiceId);
  if (row < 0) return Making::NothingToMake;
  printer.Write(form, row);
  return Making::Made;
}

int CreateForms(Ledger& ledger, FormPrinter& printer, const PensionForm& form,
                const MonthSessions& sessions) {
  const BusyPointer busy(ledger.platform);
  const RedrawOff sessionsOff(ledger.fgSessions);
  const RedrawOff formsOff(ledger.*form.table);
  const std::vector<Practice> practices = PracticesWithType(ledger, sessions, form.sessionType);
  int made = 0;
  for (std::size_t i = 0; i < practices.size(); ++i) {
    const auto& [id, name] = practices[i];
    ledger.platform.progress.Show(
        static_cast<int>(100 * i / practices.size()),
        "Preparing " + std::string(form.name) + " " + PlainText(made + 1) + ": " + name);
    if (CreateForm(ledger, printer, form, sessions, id) == Making::Made) ++made;
  }
  ledger.platform.progress.Hide();
  return made;
}

namespace {

std::string Name(const PensionForm& form) { return "Form " + std::string(form.letter); }

std::string PreviewOfMonth(const Ledger& ledger, const PensionForm& form, Month month) {
  const auto returned = std::ssize(ReturnedForms(ledger, *form.madeOf, month));
  const std::string of = Name(*form.madeOf);
  if (returned == 0) return "";
  return "1 " + Name(form) + " of " + Counted(returned, of, of) + " that came back.";
}

std::string PreviewOfPractices(const Ledger& ledger, const PensionForm& form,
                               const MonthSessions& sessions, const std::string& practiceId) {
  BatchPreview preview(ledger);
  int forms = 0, again = 0;
  for (const auto& [id, name] : PracticesWithType(ledger, sessions, form.sessionType)) {
    if (!practiceId.empty() && practiceId != id) continue;
    ++forms;
    again += RowOfForm(ledger, form, sessions.InMonth(), id) >= 0;
    for (const int row : sessions.Of(id))
      if (SessionTypeOf(ledger, row) == form.sessionType)
        preview.Add(row, SessionPounds(ledger.fgSessions.TextMatrix(row, "RATE")) +
                             SessionPounds(ledger.fgSessions.TextMatrix(row, "EXTRAS")));
  }
  if (forms == 0) return "";
  const std::string made = Name(form);
  return Counted(forms, made, made) + " for " + preview.Sum() + "." +
         (again > 0 ? " " + Counted(again, "is", "are") + " there already." : "") +
         preview.Cautions();
}

}  // namespace

std::string PreviewForm(const Ledger& ledger, const PensionForm& form,
                        const MonthSessions& sessions, const std::string& practiceId) {
  const std::string text = form.ofPractice ? PreviewOfPractices(ledger, form, sessions, practiceId)
                                           : PreviewOfMonth(ledger, form, sessions.InMonth());
  return text.empty() ? Name(form) + ": nothing to make." : text;
}

int AddForm(Ledger& ledger, const PensionForm& form, std::initializer_list<FormCell> cells) {
  Grid& table = ledger.*form.table;
  const int row = AddRecord(ledger, table);
  for (const auto& [key, text] : cells) table.SetTextMatrix(row, key, text);
  return row;
}

FormSums AddSessionsToForm(Ledger& ledger, const PensionForm& form, const MonthSessions& sessions,
                           const std::string& practiceId) {
  const RedrawOff sessionsOff(ledger.fgSessions);
  FormSums sums;
  for (const int row : practiceId.empty() ? sessions.All() : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != form.sessionType) continue;
    const auto pounds = [&](std::string_view key) {
      return SessionPounds(ledger.fgSessions.TextMatrix(row, key));
    };
    AddFormLetter(ledger, row, form.letter);
    sums.amount += pounds("RATE");
    sums.amount += pounds("EXTRAS");
    sums.employer += pounds("EMPLOYERCONTRIB");
    ++sums.sessions;
  }
  return sums;
}

// ---- Removing

bool DeleteForm(Ledger& ledger, const PensionForm& form, int row) {
  const Grid& table = ledger.*form.table;
  if (!IsRecord(table, row)) return false;
  const FormRow record{form, table, row};
  if (!Ask(ledger, "Delete Pension Form", DeletionQuestion(ledger, record))) return false;
  if (!DeleteFormDocument(ledger, record)) return false;
  const Change change(ledger, "Delete " + std::string(form.name));
  RemoveForm(ledger, form, row);
  return true;
}

void RemoveForm(Ledger& ledger, const PensionForm& form, int row) {
  Remove(ledger, form, row, SessionsOn(ledger, {form, ledger.*form.table, row}));
}

// ---- After an edit

void Recalculate(Ledger& ledger, const PensionForm& form, Grid& cells, int row,
                 std::string_view editedKey) {
  if (!form.EditableFigure(editedKey)) return;
  form.recalculate(ledger, cells, row, editedKey);
  MarkEdited(ledger, cells, row);
}

void SetBlankToZero(Grid& cells, int row, std::string_view key) {
  if (Trim(cells.TextMatrix(row, key)).empty()) cells.SetTextMatrix(row, key, "0");
}

}  // namespace lm
