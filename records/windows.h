// The record windows by name, and the ways in which other rooms open them.
#pragma once

#include <string_view>

#include "core/ledger.h"
#include "core/screen.h"

namespace lm {

// Adds frmPractice ("new", "open ID"), frmSession ("new [date] [time] [practice ID]", "open ID",
// "copy ID"), frmEvent ("new [date]", "open ID"), frmAddExpenses, frmAddSessions, frmRateCompare
// and frmWelcome.
void AddRecordWindows(WindowCatalogue& catalogue);

// Each shows its window and returns when it has closed; false when it would not open, after its
// message if it has one. Dates are dd/mm/yyyy, times hh:nn, either may be "".
bool NewPractice(Ledger& ledger);
bool OpenPractice(Ledger& ledger, std::string_view id);
bool NewSession(Ledger& ledger, std::string_view date, std::string_view time = "",
                std::string_view practiceId = "");
bool OpenSession(Ledger& ledger, std::string_view id);
bool CopySession(Ledger& ledger, std::string_view id);
bool AddSessions(Ledger& ledger);
bool NewEvent(Ledger& ledger, std::string_view date = "");  // today where there is none
bool OpenEvent(Ledger& ledger, std::string_view id);
bool NewExpense(Ledger& ledger);
bool CompareRates(Ledger& ledger);

}  // namespace lm
