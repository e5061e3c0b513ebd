#include "records/recordindex.h"

#include <algorithm>

#include "core/rows.h"

namespace lm {
namespace {

std::unordered_map<std::string, std::vector<int>> RowsByCell(const Grid& grid,
                                                             std::string_view key) {
  std::unordered_map<std::string, std::vector<int>> rows;
  const int col = grid.ColIndex(key);
  for (const int row : Records(grid)) {
    std::string owner = grid.TextMatrix(row, col);
    if (!owner.empty()) rows[std::move(owner)].push_back(row);
  }
  return rows;
}

int RowOf(const std::unordered_map<std::string, int>& rows, const std::string& id) {
  const auto found = rows.find(id);
  return found == rows.end() ? -1 : found->second;
}

const std::vector<int>& RowsOf(const std::unordered_map<std::string, std::vector<int>>& rows,
                               const std::string& owner) {
  static const std::vector<int> kNone;
  const auto found = rows.find(owner);
  return found == rows.end() ? kNone : found->second;
}

}  // namespace

RecordIndex::RecordIndex(const Ledger& ledger)
    : ledger_(ledger),
      practices_(ledger.fgPractices.RowsBy("ID")),
      sessions_(ledger.fgSessions.RowsBy("ID")),
      invoices_(ledger.fgInvoices.RowsBy("ID")),
      extras_(ledger.fgExtras.RowsBy("ID")),
      expenses_(ledger.fgSessionExpenses.RowsBy("ID")),
      sessionsOfInvoice_(RowsByCell(ledger.fgSessions, "INVOICE")),
      sessionsOfPractice_(RowsByCell(ledger.fgSessions, "PRACTICE")),
      extrasOfSession_(RowsByCell(ledger.fgExtras, "SESSID")),
      expensesOfSession_(RowsByCell(ledger.fgSessionExpenses, "SESSID")) {}

int RecordIndex::Practice(const std::string& id) const { return RowOf(practices_, id); }
int RecordIndex::Session(const std::string& id) const { return RowOf(sessions_, id); }
int RecordIndex::Invoice(const std::string& id) const { return RowOf(invoices_, id); }
int RecordIndex::Extra(const std::string& id) const { return RowOf(extras_, id); }
int RecordIndex::Expense(const std::string& id) const { return RowOf(expenses_, id); }

const std::vector<int>& RecordIndex::SessionsOfInvoice(const std::string& invoiceId) const {
  return RowsOf(sessionsOfInvoice_, invoiceId);
}

const std::vector<int>& RecordIndex::SessionsOfPractice(const std::string& practiceId) const {
  return RowsOf(sessionsOfPractice_, practiceId);
}

const std::vector<int>& RecordIndex::ExtrasOfSession(const std::string& sessionId) const {
  return RowsOf(extrasOfSession_, sessionId);
}

const std::vector<int>& RecordIndex::ExpensesOfSession(const std::string& sessionId) const {
  return RowsOf(expensesOfSession_, sessionId);
}

void RecordIndex::PutOnInvoice(int sessionRow, const std::string& invoiceId) {
  std::vector<int>& rows = sessionsOfInvoice_[invoiceId];
  const auto place = std::lower_bound(rows.begin(), rows.end(), sessionRow);
  if (place == rows.end() || *place != sessionRow) rows.insert(place, sessionRow);
}

void RecordIndex::InvoiceAdded(int invoiceRow) {
  const bool atEnd = invoiceRow + 1 == ledger_.fgInvoices.Rows();
  if (!atEnd)
    for (auto& [id, row] : invoices_)
      if (row >= invoiceRow) ++row;
  invoices_.emplace(ledger_.fgInvoices.TextMatrix(invoiceRow, "ID"), invoiceRow);
}

}  // namespace lm
