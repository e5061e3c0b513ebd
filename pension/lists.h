// The lists of pension forms and payments: which of their cells may be typed into, and what their
// rows do.
#pragma once

#include <memory>

#include "core/screen.h"

namespace lm {

// Rules for one of fgPensionA, fgPensionB, fgPensionSolo, fgPensionC, fgPensionD and
// fgPensionPayments.
std::unique_ptr<GridRules> PensionListRules(Ledger& ledger, Grid& table);

// A new payment of today; its row, or -1 after a message.
int AddPayment(Ledger& ledger);

// The document of a form in one of the lists; false after its message when there is none.
bool OpenDocumentOfRow(Ledger& ledger, const Grid& table, int row, bool recreate);

}  // namespace lm
