// Forms A, B and SOLO: made from the sessions of a month, identified by practice and month, and
// removed again. The figures are in the number kinds and the order of operations that the rules
// name; they are not to be tidied. Each operation that asks or refuses shows its own messages.
// Before a form is deleted its locks are asked (locks.h); the deletion itself asks the user,
// removes the document and then the row, and changes nothing when the document cannot be removed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ledger.h"
#include "core/numbers.h"
#include "pension/formpdf.h"
#include "pension/monthsessions.h"

namespace lm {

// The single nearest to 0.9, widened: the pensionable share on Form A and in Form B's contribution.
// Form B's AVC and added years use the plain 0.9 beside it.
constexpr Double kFormPensionableShare = 0.8999999761581421;

// ---- Form A: of one practice's NHS Normal sessions of a month.

int FormARow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey);
// Asks before it overwrites; false when nothing was made. The printer writes the document.
bool CreateFormA(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                 const std::string& practiceId);
// For every practice with such a session, with progress; the number made.
int CreateFormsA(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions);
bool DeleteFormA(Ledger& ledger, const std::string& practiceId, std::string_view monthKey);
// Without a question: the letter off the sessions, the row away.
void RemoveFormA(Ledger& ledger, std::string_view monthKey, const std::string& practiceId);

struct FormSums {
  Currency amount, employer;
  int sessions = 0;
};
// Puts the letter ("A", "B" or "SOLO") on the sessions of the letter's type and sums them;
// practiceId "" for all practices.
FormSums AddSessionsToForm(Ledger& ledger, const MonthSessions& sessions,
                           const std::string& practiceId, std::string_view letter);

// ---- Form B: of the Forms A that came back in a month.

int FormBRow(const Ledger& ledger, std::string_view monthKey);
// "B" looks in fgPensionB, any other letter in fgPensionD.
bool FormBExists(const Ledger& ledger, std::string_view monthKey, std::string_view letter = "B");
// Asks before it overwrites a form of that month.
bool MayOverwriteFormB(Ledger& ledger, std::string_view monthKey);
bool CreateFormB(Ledger& ledger, FormPrinter& printer, std::string_view monthKey);
bool DeleteFormB(Ledger& ledger, std::string_view monthKey);
void RemoveFormB(Ledger& ledger, std::string_view monthKey);
// The contribution rate of the month's Form B in percent; empty without a form, or when its
// pensionable pay is nothing.
std::optional<Single> RateOfFormB(const Ledger& ledger, std::string_view monthKey);

// ---- Form SOLO: of one provider's NHS OOH sessions of a month.

int FormSoloRow(const Ledger& ledger, const std::string& practiceId, std::string_view monthKey);
bool CreateFormSolo(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions,
                    const std::string& practiceId);
int CreateFormsSolo(Ledger& ledger, FormPrinter& printer, const MonthSessions& sessions);
bool DeleteFormSolo(Ledger& ledger, const std::string& practiceId, std::string_view monthKey);

// ---- After an edit of figures, in lists and windows alike.

// A blank in the columns that count as numbers becomes "0", and TOTAL_CONTRIB is worked out anew.
// `editedKey` is the column that was changed. In Scotland an AVC is set back, after its message.
// `forms` is the form's table or a working copy with its columns.
void RecalculateFormB(Ledger& ledger, Grid& forms, int row, std::string_view editedKey);
void RecalculateFormSolo(Ledger& ledger, Grid& forms, int row, std::string_view editedKey);

inline void RecalculateFormB(Ledger& ledger, int row, std::string_view editedKey) {
  RecalculateFormB(ledger, ledger.fgPensionB, row, editedKey);
}
inline void RecalculateFormSolo(Ledger& ledger, int row, std::string_view editedKey) {
  RecalculateFormSolo(ledger, ledger.fgPensionSolo, row, editedKey);
}

}  // namespace lm
