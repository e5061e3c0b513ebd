// The pages of the main window, as data: what the shortcut bar shows for each, and what a page
// says whose content is not there yet.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace lm {

// A page is the column of the shortcut bar that shows it. Column 0 is a margin.
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

constexpr int kPageColumns = 11;
constexpr int ColumnOf(Page page) { return static_cast<int>(page); }

struct PageSpec {
  Page page;
  std::string_view caption;
  std::string_view icon;     // the picture's name in row 0 of the shortcut bar
  std::string_view menu;     // the View menu's command that shows the page
  std::string_view command;  // a second command that shows it, or ""
  std::string_view note;     // what a page says whose content is not there yet; "" when it is
};

// In the order of the columns.
extern const std::array<PageSpec, kPageColumns - 1> kPages;

const PageSpec& PageSpecOf(Page page);

}  // namespace lm
