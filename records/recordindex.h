// Rows of the tables that documents draw on, by their IDs, found once for many documents. Rows that
// were sorted, added or removed make it stale; only sessions put on an invoice and invoices added
// are told to it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/ledger.h"

namespace lm {

class RecordIndex {
 public:
  explicit RecordIndex(const Ledger& ledger);

  // Row of the record with this ID, -1 when there is none. Group rows are never found.
  int Practice(const std::string& id) const;
  int Session(const std::string& id) const;
  int Invoice(const std::string& id) const;
  int Extra(const std::string& id) const;
  int Expense(const std::string& id) const;

  // Rows in the order of the table.
  const std::vector<int>& SessionsOfInvoice(const std::string& invoiceId) const;
  const std::vector<int>& SessionsOfPractice(const std::string& practiceId) const;
  const std::vector<int>& ExtrasOfSession(const std::string& sessionId) const;
  const std::vector<int>& ExpensesOfSession(const std::string& sessionId) const;

  // The session was on no invoice before.
  void PutOnInvoice(int sessionRow, const std::string& invoiceId);
  void InvoiceAdded(int invoiceRow);  // to fgInvoices, its ID written already

 private:
  using RowById = std::unordered_map<std::string, int>;
  using RowsByOwner = std::unordered_map<std::string, std::vector<int>>;

  const Ledger& ledger_;
  RowById practices_, sessions_, invoices_, extras_, expenses_;
  RowsByOwner sessionsOfInvoice_, sessionsOfPractice_, extrasOfSession_, expensesOfSession_;
};

}  // namespace lm
