// The numbers of the main window's pages. A page is the column of the shortcut bar that shows it;
// column 0 is a margin.
#pragma once

namespace lm {

enum class Page {
  Calendar = 1,
  Sessions,
  Events,
  Invoices,
  Reports,
  Practices,
  Pension,
  Expenses,
  MyDetails,
  LMToday
};

constexpr int ColumnOf(Page page) { return static_cast<int>(page); }

}  // namespace lm
