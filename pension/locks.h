// What keeps pension forms from being changed or deleted, one set of rules for the lists and the
// windows. Texts differ a little between the two, so each asks for its own.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

enum class AskedFrom { List, Window };

// True when the form may be deleted; false after its message. `row` is of `forms`: the form's table
// or a working copy with its columns.
bool MayDeleteFormA(Ledger& ledger, const Grid& forms, int row, AskedFrom from);
bool MayDeleteFormB(Ledger& ledger, const Grid& forms, int row, AskedFrom from);
bool MayDeleteFormSolo(Ledger& ledger, const Grid& forms, int row, AskedFrom from);

// The same for a row of the table itself.
inline bool MayDeleteFormA(Ledger& ledger, int row, AskedFrom from) {
  return MayDeleteFormA(ledger, ledger.fgPensionA, row, from);
}
inline bool MayDeleteFormB(Ledger& ledger, int row, AskedFrom from) {
  return MayDeleteFormB(ledger, ledger.fgPensionB, row, from);
}
inline bool MayDeleteFormSolo(Ledger& ledger, int row, AskedFrom from) {
  return MayDeleteFormSolo(ledger, ledger.fgPensionSolo, row, from);
}

// RCVDFROMPRACTICE of fgPensionA (Form B) or fgPensionC (Form D), by the table's name: the date in
// the cell stands in a month whose form is made already, so that it cannot be changed.
bool MayChangeReceivedDate(Ledger& ledger, const Grid& table, std::string_view oldDate);
// A date (dd/mm/yyyy, "" for none) that shall be set.
bool MaySetReceivedDate(Ledger& ledger, const Grid& table, std::string_view newDate,
                        AskedFrom from);

}  // namespace lm
