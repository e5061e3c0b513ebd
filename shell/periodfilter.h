// Which records the pages show: the tabs of a page choose, and the rows that do not belong are
// hidden.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// True for the rows that a tab shows.
using RowTest = std::function<bool(int row)>;

enum class SessionPeriod { Current, ThisMonth, LastMonth, ThisTaxYear, Uninvoiced, All };
// The captions of tabSessions, in the order of SessionPeriod.
std::vector<std::string> SessionPeriodCaptions();

// The days of a period seen from today; none for Uninvoiced and All, which do not go by date.
std::optional<DateRange> DaysOfPeriod(const Ledger& ledger, SessionPeriod period, Date today);
// The first day of the tax year, 6 April, in which the day lies.
Date TaxYearStart(Date day);

// A session without a readable date shows on Current and All, so that nothing is out of sight
// without a reason.
RowTest SessionsOf(const Ledger& ledger, SessionPeriod period);

enum class InvoiceState { All, NotSent, NotPaid, NoReceipt, ThisTaxYear, Overdue };
// The captions of tabInvoices, in the order of InvoiceState.
std::vector<std::string> InvoiceStateCaptions();

// Not Paid is what was sent and not paid, No Receipt what was paid without one; This Tax Year goes
// by the invoice date.
RowTest InvoicesOf(const Ledger& ledger, InvoiceState state);

}  // namespace lm
