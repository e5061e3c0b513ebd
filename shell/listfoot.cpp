#include "shell/listfoot.h"

#include "core/format.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "shell/recordlist.h"

namespace lm {
namespace {

std::string OutsideText(const RecordList& list, int outside) {
  if (outside == 0) return "";
  std::vector<std::string> reasons;
  const std::string tab = list.TabText();
  if (!tab.empty() && tab != kTabOfAll)
    reasons.push_back((outside == 1 ? "is outside " : "are outside ") + tab);
  if (!list.Words().empty())
    reasons.push_back((outside == 1 ? "does not match " : "do not match ") + Quoted(list.Words()));
  return Format(outside, "#,##0") + " " + Join(reasons, " or ");
}

// Rates per hour mean nothing when they are added up.
bool IsSummed(const Grid& table, int col) {
  const TableSpec* spec = FindTable(table.Name());
  if (!spec || !table.ColVisible(col)) return false;
  const std::string key = table.ColKey(col);
  for (const ColumnSpec& column : spec->columns)
    if (EqualsIgnoreCase(column.key, key))
      return column.format == kAmountFormat && !column.key.starts_with("RATE_");
  return false;
}

}  // namespace

std::string ListFoot::Sentence() const { return outside.empty() ? count : count + "; " + outside; }

ListFoot FootOf(const RecordList& list) {
  const Grid& table = list.Table();
  struct Column {
    int col;
    Currency sum;
  };
  std::vector<Column> columns;
  for (int col = 0; col < table.Cols(); ++col)
    if (IsSummed(table, col)) columns.push_back({col, {}});

  int shown = 0, all = 0;
  for (const int row : Records(table)) {
    ++all;
    if (table.RowHidden(row)) continue;
    ++shown;
    for (Column& column : columns) column.sum += CurrencyOf(table.TextMatrix(row, column.col));
  }

  ListFoot foot;
  if (all == 0) return foot;
  const std::string total = Counted(all, list.OneRecord(), list.ManyRecords());
  foot.count = shown == all ? total : Format(shown, "#,##0") + " of " + total;
  foot.outside = OutsideText(list, all - shown);
  for (const Column& column : columns)
    foot.sums.push_back({table.ColKey(column.col),
                         Replace(table.TextMatrix(CaptionRow(table), column.col), "\n", " "),
                         Format(column.sum, kAmountFormat)});
  return foot;
}

}  // namespace lm
