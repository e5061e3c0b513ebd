// General expenses: costs that no practice is billed for.
#pragma once

#include <string>
#include <vector>

#include "core/dates.h"
#include "core/ledger.h"
#include "core/screen.h"

namespace lm {

struct Expense {
  std::string item, amount, category, notes;  // amount in pounds, category by its code
};

// The categories of the options, with their codes.
std::vector<ComboItem> ExpenseCategoryItems(const Ledger& ledger);

// Adds the expense on each of the days, as one change. Those of a series bear one number, by which
// they are known as such.
void AddExpenses(Ledger& ledger, const Expense& expense, const std::vector<Date>& days,
                 bool isSeries);

// Asks and removes that one row; false after its message when it is none.
bool DeleteExpenseOfRow(Ledger& ledger, int row);

}  // namespace lm
