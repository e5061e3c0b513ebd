// Forms are made from the sessions of a month, identified by practice and month, and removed
// again. The figures are in the number kinds and the order of operations that the rules name; they
// are not to be tidied. What asks or refuses shows its own messages, and does so before it changes
// anything; documents are written last. A form without a document stands too.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/form.h"
#include "pension/formpdf.h"
#include "pension/monthsessions.h"

namespace lm {

// The single nearest to 0.9, widened: the pensionable share on Form A and in Form B's contribution.
// Form B's AVC and added years use the plain 0.9 beside it.
constexpr Double kFormPensionableShare = 0.8999999761581421;

// ---- Looking up. Damaged months and dates are found by no look-up.

// The practice is not looked at for a form of a month alone. -1 for none.
int RowOfForm(const Ledger& ledger, const PensionForm& form, Month month,
              const std::string& practiceId = "");
// Rows of the form's table that came back from the practice in this month.
std::vector<int> ReturnedForms(const Ledger& ledger, const PensionForm& form, Month month);
// Sessions of all types that begin in the months of these rows at their practices.
std::vector<int> SessionsOfForms(const Ledger& ledger, const PensionForm& form,
                                 const std::vector<int>& rows);
// The contribution rate of the month's Form B in percent; empty without a form, or when its
// pensionable pay is nothing.
std::optional<Single> RateOfFormB(const Ledger& ledger, Month month);

// ---- Making.

enum class Making { Declined, NothingToMake, Made };

// A form that is there already goes once its overwriting is agreed to, whatever comes of the new
// one. The practice is not looked at for a form of a month alone.
Making CreateForm(Ledger& ledger, FormPrinter& printer, const PensionForm& form,
                  const MonthSessions& sessions, const std::string& practiceId = "");
// For every practice with sessions for it, with progress; the number made.
int CreateForms(Ledger& ledger, FormPrinter& printer, const PensionForm& form,
                const MonthSessions& sessions);

// What that would do, for one practice or for "" all of them: "2 Form A for 8 sessions,
// £2,720.00."; "Form A: nothing to make.".
std::string PreviewForm(const Ledger& ledger, const PensionForm& form,
                        const MonthSessions& sessions, const std::string& practiceId);

// For the descriptions: a new row with these cells, and its number.
struct FormCell {
  std::string_view key;
  std::string text;
};
int AddForm(Ledger& ledger, const PensionForm& form, std::initializer_list<FormCell> cells);

struct FormSums {
  Currency amount, employer;
  int sessions = 0;
};
// Puts the form's letter on the sessions of its type and sums them; practiceId "" for all.
FormSums AddSessionsToForm(Ledger& ledger, const PensionForm& form, const MonthSessions& sessions,
                           const std::string& practiceId);

// ---- Removing. Locks are asked before (locks.h).

// Asks, then removes the document and the row. Nothing changes when the document cannot be removed.
// The sessions of a form whose month is damaged are not known and keep its letter.
bool DeleteForm(Ledger& ledger, const PensionForm& form, int row);
// Without a question: the letter off the sessions, the row away.
void RemoveForm(Ledger& ledger, const PensionForm& form, int row);

// ---- After an edit of a figure, in lists and windows alike.

// Blanks among the figures become "0" as the form's rules say, and TOTAL_CONTRIB is worked out
// anew. In Scotland an AVC of Form B is set back, after its message. `cells` is the form's table or
// a working copy with its columns; what is no editable figure changes nothing.
void Recalculate(Ledger& ledger, const PensionForm& form, Grid& cells, int row,
                 std::string_view editedKey);
void SetBlankToZero(Grid& cells, int row, std::string_view key);

}  // namespace lm
