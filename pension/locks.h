// What keeps pension forms from being changed, opened or deleted, one set of rules for the lists
// and the windows. Texts differ a little between the two, so each asks for its own.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"
#include "pension/form.h"

namespace lm {

enum class AskedFrom { List, Window };

// True when the form may be deleted; false after its message.
bool MayDelete(Ledger& ledger, const FormRow& record, AskedFrom from);

// Without its month a form can be neither opened nor printed. False after its message.
bool HasMonth(Ledger& ledger, const FormRow& record);

// RCVDFROMPRACTICE of a form that practices send back: the date in the cell stands in a month whose
// form is made already, so that it cannot be changed.
bool MayChangeReceivedDate(Ledger& ledger, const PensionForm& form, std::string_view oldDate);
// A date (dd/mm/yyyy, "" for none) that shall be set.
bool MaySetReceivedDate(Ledger& ledger, const PensionForm& form, std::string_view newDate,
                        AskedFrom from);

// Why the figures of a form or the form itself are locked: "On Form B for Feb 2026", or else the
// last step that it has gone, "Sent to the HA on 03/02/2026". "" when it is not.
std::string FormLockText(const Ledger& ledger, const FormRow& record);
// Row of the form that has taken this one up, in the table of that form; -1 when none has.
int RowTakenUpBy(const Ledger& ledger, const FormRow& record);

}  // namespace lm
