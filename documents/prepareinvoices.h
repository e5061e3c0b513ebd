// From sessions to invoice records: which sessions belong, the numbers, the sums, the batch.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"
#include "core/numbers.h"

namespace lm {

// One more than the largest ID of the invoices, or the start number of the options when that is
// greater.
int NextInvoiceId(const Ledger& ledger);

// How an invoice number reads: "INV-00012" of 12, "INV-", the pattern "00000" and "".
struct NumberStyle {
  std::string prefix, pattern, suffix;
};
std::string InvoiceNumber(int id, const NumberStyle& style);

struct InvoiceSums {
  Currency amount, employerContrib;
};

// A new row of fgInvoices; returns its number. invoiceDate is dd/mm/yyyy.
int AddInvoice(Ledger& ledger, int id, const std::string& practiceId, const InvoiceSums& sums,
               std::string_view invoiceDate);

// What a batch takes in: uninvoiced sessions from `first` to `last`, both included. practiceId ""
// stands for all practices.
struct InvoiceBatch {
  Date first = 0;
  Date last = 0;
  std::string practiceId;
  std::string invoiceDate;  // dd/mm/yyyy
};

// An invoice for each practice with such sessions, each document written at once, progress shown,
// and the result told. Returns the number of invoices.
int PrepareInvoices(Ledger& ledger, const InvoiceBatch& batch);
// What that would do: "3 invoices for 12 sessions, £3,456.00. 1 session lies in the future."
std::string PreviewInvoices(const Ledger& ledger, const InvoiceBatch& batch);

}  // namespace lm
