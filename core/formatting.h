// The formatting pass: after every load it gives the tables what their declaration says (hidden
// columns, data types, formats) and the lists that their look-up columns choose from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/change.h"
#include "core/ledger.h"
#include "core/screen.h"

namespace lm {

void FormatTables(Ledger& ledger);

// The practices with a name, sorted by it without regard to case, one ID left out if given.
std::vector<ComboItem> PracticeItems(Ledger& ledger, std::string_view exceptId = "");
std::string PracticeList(Ledger& ledger, std::string_view exceptId = "");  // as a column's list
// The list again in fgSessions and fgPensionPayments, after a practice was added or renamed.
void RefreshPracticeLists(Ledger& ledger);

// The session types that are offered: five with retired forms in use, four without.
std::vector<ComboItem> SessionTypeItems(const Ledger& ledger);
std::string SessionTypeList(const Ledger& ledger);

std::string InvoiceNumberList(const Ledger& ledger);
// The list again in fgSessions, after invoices were added or removed.
void RefreshInvoiceNumbers(Ledger& ledger);
// The lists that choose from tables which changed.
void RefreshLookUps(Ledger& ledger, const ChangedRecords& changed);

}  // namespace lm
