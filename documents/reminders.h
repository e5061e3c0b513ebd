// Reminders that go to practices: a letter about one invoice, and statements of account to all who
// are late.
#pragma once

#include <string>
#include <vector>

#include "core/ledger.h"
#include "documents/statements.h"

namespace lm {

// A letter about an overdue invoice, as a PDF that is opened; on the record once it was written.
// False after its message.
bool WriteReminderLetter(Ledger& ledger, const std::string& invoiceId);

enum class RemindBy { Email, Letter };

// A statement of account to each of these practices, by e-mail or as a letter to print; progress is
// shown and the result told. What went out is on the records of its overdue invoices. Returns the
// number of practices that were reminded.
int SendStatements(Ledger& ledger, const std::vector<Statement>& statements, RemindBy by);

}  // namespace lm
