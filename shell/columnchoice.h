// Which columns of a list the user sees, and how it goes back to the look in which it is shipped. A
// column that the user hides has the width 0, which the data file keeps with the other widths.
#pragma once

#include <string>
#include <vector>

#include "core/grid.h"

namespace lm {

struct ColumnChoice {
  std::string key;
  std::string caption;
  bool shown;
  bool mayChange;  // false for the last one in sight
};

// The columns that may be hidden and shown, in the order of the list: those with which it is
// shipped, without IDs and what is only there to be worked with. None for a grid that is no stored
// table.
std::vector<ColumnChoice> ColumnChoices(const Grid& table);

// Nothing for a column that is not offered or that must stay. One that comes back has its shipped
// width.
void ShowColumn(Grid& table, const std::string& key, bool shown);

// The shipped order and widths; columns of older files that are shipped no more stand behind them.
void ResetColumns(Grid& table);

}  // namespace lm
