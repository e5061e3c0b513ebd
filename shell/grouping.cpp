#include "shell/grouping.h"

#include <algorithm>
#include <array>

#include "core/dates.h"
#include "core/format.h"

namespace lm {
namespace {

constexpr GroupChoice kSessionChoices[] = {{"No Grouping"},
                                           {"Practice", "PRACTICE"},
                                           {"Invoice", "INVOICE"},
                                           {"Month", kGroupMonthKey, "SDATE"},
                                           {"Session Type", "SESS_TYPE"}};
constexpr GroupChoice kInvoiceChoices[] = {{"No Grouping"},
                                           {"Practice", "PRACTICE"},
                                           {"Month Created", kGroupMonthKey, "CDATE"},
                                           {"Month Sent", kGroupMonthKey, "SDATE"}};
constexpr GroupChoice kExpenseChoices[] = {{"No Grouping"}, {"Category", "CATEGORY"}};

constexpr std::string_view kSessionSums[] = {"RATE", "EXTRAS", "EXPENSES", "EMPLOYERCONTRIB",
                                             "TOTAL"};
constexpr std::string_view kInvoiceSums[] = {"AMOUNT", "EMPLOYERCONTRIB"};
constexpr std::string_view kExpenseSums[] = {"AMOUNT"};

constexpr int kGroupLevel = 1;
constexpr int kFirstColumnAfterMarker = 1;
constexpr std::string_view kNoTitle = "<none>";  // of records without an invoice, a date ...
constexpr int kMonthWidth = 1100;                // twips

void AddMonthColumn(Grid& grid) {
  const int col = grid.Cols();
  grid.SetCols(col + 1);
  grid.SetColKey(col, kGroupMonthKey);
  grid.SetColDerived(col, true);
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

// Of a row that was made a group by hand it is the first text.
int TitleHolder(const Grid& grid, int groupRow, int first) {
  int col = grid.GroupTitleCol(groupRow);
  if (col >= 0) return col;
  for (col = first; col < grid.Cols(); ++col)
    if (grid.ColVisible(col) && !grid.TextMatrix(groupRow, col).empty()) return col;
  return first;
}

}  // namespace

int TitlePlace(const Grid& grid, int groupRow, int first) {
  const int holder = TitleHolder(grid, groupRow, first);
  for (int col = first; col < grid.Cols(); ++col)
    if (grid.ColVisible(col) && (col == holder || grid.TextMatrix(groupRow, col).empty()))
      return col;
  return holder;
}

std::string ShownInGroup(const Grid& grid, int groupRow, int col, int first) {
  const int holder = TitleHolder(grid, groupRow, first);
  if (col == TitlePlace(grid, groupRow, first)) return grid.DisplayText(groupRow, holder);
  return col == holder ? "" : grid.DisplayText(groupRow, col);
}

bool HasRows(const Grid& grid, int groupRow) {
  const int next = groupRow + (grid.PositionOfSubtotals() == SubtotalPosition::Below ? -1 : 1);
  return next >= grid.FixedRows() && next < grid.Rows() &&
         (!grid.IsSubtotal(next) || grid.RowOutlineLevel(next) > grid.RowOutlineLevel(groupRow));
}

const GroupedList kGroupedSessions{&Ledger::fgSessions, kSessionChoices, kSessionSums};
const GroupedList kGroupedInvoices{&Ledger::fgInvoices, kInvoiceChoices, kInvoiceSums};
const GroupedList kGroupedExpenses{&Ledger::fgExpenses, kExpenseChoices, kExpenseSums};

std::vector<std::string> GroupCaptions(const GroupedList& list) {
  std::vector<std::string> captions;
  for (const GroupChoice& choice : list.choices) captions.emplace_back(choice.caption);
  return captions;
}

void ListGrouping::FillMonths(std::string_view pattern) {
  const int month = grid_.ColIndex(kGroupMonthKey);
  const int day = grid_.ColIndex(Choice().monthOf);
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    const std::optional<Date> date = CellDate(grid_.TextMatrix(row, day));
    grid_.SetTextMatrix(row, month, date ? FormatDate(*date, pattern) : "");
  }
}

// By time, though the column shows names: "Feb 2026" stands before "Jan 2027".
void ListGrouping::SortByMonth() {
  FillMonths("yyyymm");
  grid_.Sort(SortSetting::StringNoCaseAscending, grid_.ColIndex(kGroupMonthKey));
  FillMonths("mmm yyyy");
}

void ListGrouping::Apply(int choice) {
  Remove();
  collapsed_.clear();
  choice_ = choice;
  Restore();
}

void ListGrouping::Remove() {
  const RedrawOff redrawOff(grid_);
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    if (!grid_.IsSubtotal(row)) continue;
    if (grid_.RowCollapsed(row))
      collapsed_.insert(grid_.GroupValue(row));
    else
      collapsed_.erase(grid_.GroupValue(row));
  }
  grid_.ClearSubtotals();
  RemoveMonthColumn(grid_);
}

void ListGrouping::Restore() {
  if (!IsOn() || !grid_.HasData()) return;
  const RedrawOff redrawOff(grid_);
  const bool byMonth = !Choice().monthOf.empty();
  if (byMonth) {
    AddMonthColumn(grid_);
    SortByMonth();
  }
  const int column = grid_.ColIndex(Choice().key);
  if (column < 0) return;  // a damaged file may lack it
  if (!byMonth) grid_.Sort(SortSetting::GenericAscending, column);

  grid_.SetSubtotalPosition(SubtotalPosition::Above);
  SubtotalStyle style;
  style.level = kGroupLevel;
  for (const std::string_view key : list_.summed)
    grid_.Subtotal(SubtotalFunction::Sum, column, grid_.ColIndex(key), style);
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    if (!grid_.IsSubtotal(row)) continue;
    if (grid_.TextMatrix(row, column).empty()) grid_.SetTextMatrix(row, column, kNoTitle);
    grid_.SetRowCollapsed(row, collapsed_.contains(grid_.GroupValue(row)));
  }
}

void ListGrouping::ExpandAll() { grid_.Outline(0); }

void ListGrouping::CollapseAll() { grid_.Outline(kGroupLevel); }

}  // namespace lm
