// What happens to an invoice after it was made, the same for its window, the list and the menus.
// Each act shows its own messages and returns whether it was done.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

int InvoiceRow(const Ledger& ledger, std::string_view id);  // -1 when there is none

// "Invoice sent 3 days ago." from the dates sent and paid, both dd/mm/yyyy or "".
std::string InvoiceStatusLine(const Ledger& ledger, std::string_view sent, std::string_view paid);

// Asks; its sessions become uninvoiced. An invoice that was sent, by the date given, stays.
bool DeleteInvoice(Ledger& ledger, const std::string& id, std::string_view sent);
bool DeleteInvoice(Ledger& ledger, const std::string& id);  // by its own date

// A session onto the practice's unsent invoice, or onto a new one; off its invoice.
bool AddSessionToInvoice(Ledger& ledger, const std::string& sessionId);
bool RemoveSessionFromInvoice(Ledger& ledger, const std::string& sessionId);
// Without a question: the session uninvoiced, its money off the invoice.
void TakeOffInvoice(Ledger& ledger, int sessionRow, int invoiceRow);

// Opens the document, made first where it does not exist or `recreate` asks for it.
bool OpenInvoiceDocument(Ledger& ledger, const std::string& id, bool recreate = false);

}  // namespace lm
