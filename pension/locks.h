// What keeps pension forms from being changed, opened or deleted, one set of rules for the lists
// and the windows. Texts differ a little between the two, so each asks for its own.
#pragma once

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

}  // namespace lm
