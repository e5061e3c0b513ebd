// Statements of account: what a practice owes, of which something is overdue.
#pragma once

#include <string>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"

namespace lm {

struct Statement {
  std::string practice;               // its ID
  std::vector<std::string> invoices;  // IDs of those sent and not paid, the earliest due first
  std::vector<std::string> overdueInvoices;
  Currency total, overdue;
  int oldestDays = 0;  // that the invoice longest overdue is so
  std::string
      lastReminder;  // the latest day on which one of them was reminded of, dd/mm/yyyy or ""
};

// One for each practice with an overdue invoice, in the order of the practices' names.
std::vector<Statement> OverdueStatements(const Ledger& ledger);

// "Please pay £921.58, which is overdue, to Dr J Smith, sort code 12-34-56, account number
// 12345678, quoting the numbers of the invoices."
std::string StatementRequest(const Ledger& ledger, const Statement& statement);
// A line for each overdue invoice: "INV-00012 of 3 January 2026, £921.58, due on 2 February 2026".
std::string StatementLines(const Ledger& ledger, const Statement& statement);

}  // namespace lm
