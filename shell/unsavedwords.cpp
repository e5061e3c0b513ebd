#include "shell/unsavedwords.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/format.h"
#include "core/ledger.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

struct Named {
  Grid Ledger::*table;
  std::string_view one;
  std::string_view many;
};

constexpr Named kNamed[] = {
    {&Ledger::fgSessions, "a session", "sessions"},
    {&Ledger::fgInvoices, "an invoice", "invoices"},
    {&Ledger::fgExpenses, "an expense", "expenses"},
    {&Ledger::fgPractices, "a practice", "practices"},
    {&Ledger::fgEvents, "an event", "events"},
    {&Ledger::fgPensionA, "a Form A", "Forms A"},
    {&Ledger::fgPensionB, "a Form B", "Forms B"},
    {&Ledger::fgPensionSolo, "a Form SOLO", "Forms SOLO"},
    {&Ledger::fgPensionC, "a Form C", "Forms C"},
    {&Ledger::fgPensionD, "a Form D", "Forms D"},
    {&Ledger::fgPensionPayments, "a pension payment", "pension payments"},
};

std::unordered_set<std::string> SessionsWithUnsavedItems(const Ledger& ledger) {
  std::unordered_set<std::string> sessions;
  for (const Grid* items : {&ledger.fgExtras, &ledger.fgSessionExpenses})
    for (const int row : Records(*items))
      if (StateOfRow(ledger, *items, row) != RowState::Saved)
        sessions.insert(items->TextMatrix(row, "SESSID"));
  return sessions;
}

void Name(const Named& named, int count, std::vector<std::string>& parts) {
  if (count == 1) parts.emplace_back(named.one);
  if (count > 1) parts.push_back(Format(PlainText(count), "#,##0") + " " + std::string(named.many));
}

}  // namespace

UnsavedWords DescribeUnsaved(const Ledger& ledger) {
  const std::unordered_set<std::string> withItems = SessionsWithUnsavedItems(ledger);
  std::vector<std::string> added, edited;
  for (const Named& named : kNamed) {
    const Grid& table = ledger.*named.table;
    const bool holdsItems = &table == &ledger.fgSessions && !withItems.empty();
    int newRows = 0, editedRows = 0;
    for (const int row : Records(table)) {
      const RowState state = StateOfRow(ledger, table, row);
      newRows += state == RowState::New;
      editedRows += state == RowState::Edited || (state == RowState::Saved && holdsItems &&
                                                  withItems.contains(table.TextMatrix(row, "ID")));
    }
    Name(named, newRows, added);
    Name(named, editedRows, edited);
  }
  return {Enumerated(added), Enumerated(edited)};
}

}  // namespace lm
