// The windows of pension forms, by name.
#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"

namespace lm {

// Adds frmPensionForms ("new") and, opened by practice ID and month key, frmPensionA ("open 1
// 042024"), frmPensionSOLO, and frmPensionB ("open 042024"). Forms of earlier years may have an ID,
// which is understood too ("open 7").
void AddPensionWindows(WindowCatalogue& catalogue);

// Each shows its window and returns when it has closed; false when it would not open, after its
// message if it has one.
bool OpenPensionForms(Ledger& ledger);
bool OpenFormA(Ledger& ledger, int row);
bool OpenFormB(Ledger& ledger, int row);
bool OpenFormSolo(Ledger& ledger, int row);

}  // namespace lm
