// When an invoice is to be paid, by the terms of payment of My Details, and which ones are overdue.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// The days to pay of My Details, 0 to 999; none when that is empty or no number.
std::optional<int> DaysToPay(const Ledger& ledger);
// The cell of an invoice of this date, dd/mm/yyyy; "" without a date, and without terms.
std::string DueCell(const Ledger& ledger, std::string_view invoiceDate);
// The invoice's date has been changed: its day of payment goes with it, where it had one.
void MoveDueDate(Ledger& ledger, int row);
// The terms have been entered: invoices that are not paid and have no day of payment get theirs.
void FillDueDates(Ledger& ledger);

// How an invoice stands: dates as its cells have them, "" for what has not happened.
struct PaymentState {
  std::string sent, paid, due;
};
PaymentState PaymentStateOf(const Grid& invoices, int row);

// Sent, not paid, and its day of payment over: by how many days; 0 otherwise, and for a day that is
// none. `today` may have a time.
int DaysOverdue(const PaymentState& state, Date today);
// "Overdue by 12 days."; "" for one that is not overdue.
std::string OverdueText(const PaymentState& state, Date today);

// What a practice is to do: "Please pay £921.58 by 31 March 2026 to Dr J Smith, sort code 12-34-56,
// account number 12345678, quoting INV-00012." What is not known is left out; "" without an
// invoice.
std::string PaymentRequest(const Ledger& ledger, int row);
// " to Dr J Smith, sort code 12-34-56, account number 12345678" as far as it is known.
std::string PayeeWords(const Ledger& ledger);

// The practice has been reminded of the invoice today; its record counts it.
void RecordReminder(Ledger& ledger, int row);
// "Reminded twice, last on 3 February 2026."; "" for one that was never reminded of.
std::string RemindersText(const Grid& invoices, int row);
// "INV-00012 of 3 January 2026, £921.58" and, with the words before it, the day it is to be paid.
// What is not known is left out.
std::string InvoiceDue(const Grid& invoices, int row, std::string_view wordsBeforeDay);
// What a reminder says: "I have not yet received payment of invoice INV-00012 of 3 January 2026,
// £921.58, which was due on 2 February 2026."; "" without an invoice.
std::string PaymentReminder(const Ledger& ledger, int row);
// "Please pay it to Dr J Smith, sort code 12-34-56, account number 12345678, quoting INV-00012."
std::string ReminderRequest(const Ledger& ledger, int row);
// Of the reminder that comes next: "Reminder", "Second reminder", "Reminder 7".
std::string ReminderHeading(const Ledger& ledger, int row);

}  // namespace lm
