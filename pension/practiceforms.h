// What Forms A and SOLO have in common: both are made of one practice's sessions of a month, stand
// as a row in a table of their own, and put their letter on the sessions while they stand. What
// they differ in is told by a PracticeForm.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/formpdf.h"
#include "pension/monthsessions.h"

namespace lm {

struct PracticeForm {
  FormKind kind;
  std::string_view name;    // as messages have it
  std::string_view letter;  // on the sessions
  int sessionType;
  Grid Ledger::*table;
  // False for what is no month's key.
  bool (*isOfMonth)(std::string_view monthCell, std::string_view monthKey);
  // Asks, or refuses with its message. `heading` says that the form is there already.
  bool (*mayOverwrite)(Ledger& ledger, int row, std::string_view title, std::string_view heading);
  // The letters and the row; false, with nothing changed, when there are no sessions for it.
  bool (*make)(Ledger& ledger, const MonthSessions& sessions, const std::string& practiceId);
};

// A form that is there already goes once its overwriting is agreed to, whatever comes of the new
// one.
bool CreatePracticeForm(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                        const std::string& practiceId, const PracticeForm& form);
int CreatePracticeForms(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                        const PracticeForm& form);
int PracticeFormRow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey,
                    const PracticeForm& form);
void RemovePracticeForm(Ledger& ledger, const MonthSessions& sessions,
                        const std::string& practiceId, const PracticeForm& form);
bool DeletePracticeForm(Ledger& ledger, const std::string& practiceId, std::string_view monthKey,
                        const PracticeForm& form);

// A money cell as forms read it: commas removed, then what Val makes of it.
Single SingleOf(std::string_view cell);

}  // namespace lm
