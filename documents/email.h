// Messages to practices, handed to the desktop's mail program, where the user sees them before they
// go.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// Hands a message over; an empty attachment path is none. With no mail program there the message
// is written as a draft and its text put on the clipboard. True when the user has it in front;
// false when it failed (after a message) or the user cancelled it (without one).
bool SendEmail(Ledger& ledger, std::string_view to, std::string_view subject, std::string_view body,
               const std::filesystem::path& attachment = {});

// The invoice, or the receipt for it, to its practice, by the texts of the options; the document
// is made first where it does not exist. True when it was handed over.
bool SendInvoiceByEmail(Ledger& ledger, const std::string& invoiceId);
bool SendReceiptByEmail(Ledger& ledger, const std::string& invoiceId);
// A reminder that it is to be paid, with the invoice; on the record once it was handed over.
bool SendReminderByEmail(Ledger& ledger, const std::string& invoiceId);

}  // namespace lm
