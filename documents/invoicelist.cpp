#include "documents/invoicelist.h"

#include <algorithm>
#include <array>

#include "core/messagebox.h"
#include "core/platform.h"
#include "core/rows.h"
#include "documents/invoices.h"
#include "documents/moneyowed.h"
#include "documents/windows.h"
#include "entry/checks.h"

namespace lm {
namespace {

// Given when the invoice was made, or worked out from its sessions.
constexpr std::array<std::string_view, 8> kNeverEdited{
    "ID", "NUMBER", "PRACTICE", "CDATE", "AMOUNT", "EMPLOYERCONTRIB", "REMINDERS", "REMINDDATE"};
constexpr std::array<std::string_view, 5> kDates{"IDATE", "SDATE", "DUEDATE", "PAYDATE",
                                                 "RECEIPTDATE"};

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

bool InvoiceListRules::IsInvoice(int row) const { return IsRecord(ledger_.fgInvoices, row); }

bool InvoiceListRules::MayEdit(int row, int col) {
  const std::string& key = ledger_.fgInvoices.ColKey(col);
  return IsInvoice(row) && !key.empty() && !Contains(kNeverEdited, key);
}

Picker InvoiceListRules::PickerOf(int /*row*/, int col) {
  return Contains(kDates, ledger_.fgInvoices.ColKey(col)) ? Picker::Calendar : Picker::None;
}

std::optional<std::string> InvoiceListRules::Accept(int /*row*/, int col, std::string_view text) {
  if (!Contains(kDates, ledger_.fgInvoices.ColKey(col))) return std::string(text);
  return EnterDate(ledger_, text);
}

void InvoiceListRules::Edited(int row, int col) {
  if (ledger_.fgInvoices.ColKey(col) == "IDATE") MoveDueDate(ledger_, row);
  MarkEdited(ledger_, ledger_.fgInvoices, row);
}

// It keeps its sessions and cannot be deleted; its cells stay open.
std::string InvoiceListRules::LockedBy(int row) {
  if (!IsInvoice(row) || ledger_.fgInvoices.TextMatrix(row, "SDATE").empty()) return "";
  const std::string overdue =
      OverdueText(PaymentStateOf(ledger_.fgInvoices, row), ledger_.platform.clock.Now());
  return "Sent on " + ledger_.fgInvoices.DisplayText(row, "SDATE") +
         (overdue.empty() ? "" : ". " + overdue);
}

void InvoiceListRules::Opened(int row) {
  if (IsInvoice(row)) OpenInvoice(ledger_, ledger_.fgInvoices.TextMatrix(row, "ID"));
}

void InvoiceListRules::AddPressed() { OpenPrepareInvoices(ledger_); }

void InvoiceListRules::DeletePressed(int row) {
  if (row >= 0 && ledger_.fgInvoices.IsSubtotal(row))
    ShowMessage(ledger_, "Delete Invoice", "Select an ungrouped row.");
  else if (!IsInvoice(row))
    ShowMessage(ledger_, "Delete Invoice", "There is no invoice selected to delete.");
  else
    DeleteInvoice(ledger_, ledger_.fgInvoices.TextMatrix(row, "ID"));
}

}  // namespace lm
