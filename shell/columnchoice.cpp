#include "shell/columnchoice.h"

#include <algorithm>

#include "core/tables.h"
#include "core/text.h"
#include "shell/grouping.h"

namespace lm {
namespace {

const ColumnSpec* SpecOf(const TableSpec& table, std::string_view key) {
  const auto found = std::ranges::find_if(
      table.columns, [&](const ColumnSpec& each) { return EqualsIgnoreCase(each.key, key); });
  return found == table.columns.end() ? nullptr : &*found;
}

bool IsOffered(const Grid& table, int col, const ColumnSpec* spec) {
  return spec && !spec->hidden && spec->width != 0 && !table.ColHidden(col);
}

int FirstPlace(const Grid& table) { return table.ColKey(1) == kGroupMonthKey ? 2 : 1; }

}  // namespace

std::vector<ColumnChoice> ColumnChoices(const Grid& table) {
  const TableSpec* spec = FindTable(table.Name());
  std::vector<ColumnChoice> choices;
  if (!spec) return choices;
  for (int col = 1; col < table.Cols(); ++col)
    if (const std::string& key = table.ColKey(col); IsOffered(table, col, SpecOf(*spec, key)))
      choices.push_back({key, table.TextMatrix(0, col), table.ColVisible(col), true});
  if (std::ranges::count(choices, true, &ColumnChoice::shown) == 1)
    for (ColumnChoice& choice : choices) choice.mayChange = !choice.shown;
  return choices;
}

void ShowColumn(Grid& table, const std::string& key, bool shown) {
  const auto choices = ColumnChoices(table);
  const auto choice = std::ranges::find(choices, key, &ColumnChoice::key);
  if (choice == choices.end() || !choice->mayChange || choice->shown == shown) return;
  table.SetColWidth(table.FindCol(key), shown ? SpecOf(*FindTable(table.Name()), key)->width : 0);
}

void ResetColumns(Grid& table) {
  const TableSpec* spec = FindTable(table.Name());
  if (!spec) return;
  const RedrawOff redrawOff(table);
  int place = FirstPlace(table);
  for (const ColumnSpec& column : spec->columns) {
    const int col = table.FindCol(column.key);
    if (col < 0) continue;
    table.SetColWidth(col, column.width);
    table.SetColPosition(col, place++);
  }
}

}  // namespace lm
