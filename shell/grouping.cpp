#include "shell/grouping.h"

#include <algorithm>
#include <array>

#include "core/dates.h"
#include "core/format.h"

namespace lm {
namespace {

struct GroupSpec {
  std::string_view caption;
  std::string_view key;  // of the column that makes the groups
};

// In the order of SessionGroup.
constexpr std::array<GroupSpec, 5> kGroups{{{"No Grouping", ""},
                                            {"Practice", "PRACTICE"},
                                            {"Invoice", "INVOICE"},
                                            {"Month", kGroupMonthKey},
                                            {"Session Type", "SESS_TYPE"}}};

constexpr std::array<std::string_view, 5> kSummed{"RATE", "EXTRAS", "EXPENSES", "EMPLOYERCONTRIB",
                                                  "TOTAL"};

constexpr int kGroupLevel = 1;
constexpr int kFirstColumnAfterMarker = 1;
constexpr std::string_view kNoTitle = "<none>";  // of sessions without an invoice, a date ...
constexpr int kMonthWidth = 1100;                // twips

void AddMonthColumn(Grid& grid) {
  const int col = grid.Cols();
  grid.SetCols(col + 1);
  grid.SetColKey(col, kGroupMonthKey);
  grid.SetTextMatrix(0, col, "Month");
  grid.SetTextMatrix(1, col, kGroupMonthKey);
  grid.SetColWidth(col, kMonthWidth);
  grid.SetColPosition(col, kFirstColumnAfterMarker);
}

void RemoveMonthColumn(Grid& grid) {
  const int col = grid.ColIndex(kGroupMonthKey);
  if (col < 0) return;
  grid.SetColPosition(col, grid.Cols() - 1);
  grid.SetCols(grid.Cols() - 1);
}

void FillMonths(Grid& grid, std::string_view pattern) {
  const int month = grid.ColIndex(kGroupMonthKey);
  const int start = grid.ColIndex("SDATE");
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    const std::optional<Date> date = CellDate(grid.TextMatrix(row, start));
    grid.SetTextMatrix(row, month, date ? FormatDate(*date, pattern) : "");
  }
}

// By time, though the column shows names: "Feb 2026" stands before "Jan 2027".
void SortByMonth(Grid& grid) {
  FillMonths(grid, "yyyymm");
  grid.Sort(SortSetting::StringNoCaseAscending, grid.ColIndex(kGroupMonthKey));
  FillMonths(grid, "mmm yyyy");
}

const GroupSpec& SpecOf(SessionGroup group) { return kGroups[static_cast<std::size_t>(group)]; }

}  // namespace

std::vector<std::string> SessionGroupCaptions() {
  std::vector<std::string> captions;
  for (const GroupSpec& group : kGroups) captions.emplace_back(group.caption);
  return captions;
}

void SessionGrouping::Apply(SessionGroup group) {
  Remove();
  collapsed_.clear();
  current_ = group;
  Restore();
}

void SessionGrouping::Remove() {
  Grid& grid = ledger_.fgSessions;
  const RedrawOff redrawOff(grid);
  const int title = grid.ColIndex(SpecOf(current_).key);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (!grid.IsSubtotal(row)) continue;
    if (grid.RowCollapsed(row))
      collapsed_.insert(grid.TextMatrix(row, title));
    else
      collapsed_.erase(grid.TextMatrix(row, title));
  }
  grid.ClearSubtotals();
  RemoveMonthColumn(grid);
}

void SessionGrouping::Restore() {
  Grid& grid = ledger_.fgSessions;
  if (current_ == SessionGroup::None || !grid.HasData()) return;
  const RedrawOff redrawOff(grid);
  if (current_ == SessionGroup::Month) {
    AddMonthColumn(grid);
    SortByMonth(grid);
  }
  const int column = grid.ColIndex(SpecOf(current_).key);
  if (column < 0) return;  // a damaged file may lack it
  if (current_ != SessionGroup::Month) grid.Sort(SortSetting::GenericAscending, column);

  grid.SetSubtotalPosition(SubtotalPosition::Above);
  SubtotalStyle style;
  style.level = kGroupLevel;
  for (const std::string_view key : kSummed)
    grid.Subtotal(SubtotalFunction::Sum, column, grid.ColIndex(key), style);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (!grid.IsSubtotal(row)) continue;
    if (grid.TextMatrix(row, column).empty()) grid.SetTextMatrix(row, column, kNoTitle);
    grid.SetRowCollapsed(row, collapsed_.contains(grid.TextMatrix(row, column)));
  }
}

void SessionGrouping::ExpandAll() { ledger_.fgSessions.Outline(0); }

void SessionGrouping::CollapseAll() { ledger_.fgSessions.Outline(kGroupLevel); }

}  // namespace lm
