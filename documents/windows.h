// The windows of documents, by name.
#pragma once

#include <string_view>

#include "core/screen.h"

namespace lm {

// Adds frmPrepareInvoices ("new"), frmInvoice ("open ID"), frmPaymentReminders ("new") and
// frmBookingConfirmation ("new [practice ID]").
void AddDocumentWindows(WindowCatalogue& catalogue);

// Each shows its window and returns when it has closed; false when it would not open, after its
// message if it has one.
bool OpenPrepareInvoices(Ledger& ledger);
bool OpenInvoice(Ledger& ledger, std::string_view id);

}  // namespace lm
