// Merging: which block of equal neighbours, or of empty ones, a cell is drawn with.
#include <algorithm>

#include "core/grid_storage.h"

namespace lm {

void Grid::SetMergeCells(MergeSetting setting) {
  if (mergeCells_ == setting) return;
  mergeCells_ = setting;
  TellLayout();
}

bool Grid::MergeRow(int row) const { return IsRow(row) && RowAt(row).merge; }

void Grid::SetMergeRow(int row, bool merge) {
  if (!IsRow(row) || RowAt(row).merge == merge) return;
  RowAt(row).merge = merge;
  TellLayout();
}

bool Grid::MergeCol(int col) const { return IsCol(col) && ColAt(col).merge; }

void Grid::SetMergeCol(int col, bool merge) {
  if (!IsCol(col) || ColAt(col).merge == merge) return;
  ColAt(col).merge = merge;
  TellLayout();
}

// The header cells or the data cells, between which nothing merges.
CellRange Grid::RegionOf(int row, int col) const {
  const bool header = row < fixedRows_;
  const bool fixed = col < fixedCols_;
  return {header ? 0 : fixedRows_, fixed ? 0 : fixedCols_,
          header ? std::min(fixedRows_, Rows()) - 1 : Rows() - 1,
          fixed ? std::min(fixedCols_, Cols()) - 1 : Cols() - 1};
}

// The equal texts around the cell in its row, hidden columns passed over.
CellRange Grid::EqualAcross(const CellRange& within, int row, int col) const {
  CellRange block{row, col, row, col};
  const std::string text = DisplayText(row, col);
  if (text.empty() || !MergeRow(row)) return block;
  for (int next = col - 1; next >= within.col1; --next) {
    if (!ColVisible(next)) continue;
    if (DisplayText(row, next) != text) break;
    block.col1 = next;
  }
  for (int next = col + 1; next <= within.col2; ++next) {
    if (!ColVisible(next)) continue;
    if (DisplayText(row, next) != text) break;
    block.col2 = next;
  }
  return block;
}

// The equal texts around the cell in its column, hidden rows passed over.
CellRange Grid::EqualDown(const CellRange& within, int row, int col) const {
  CellRange block{row, col, row, col};
  const std::string& cell = TextMatrix(row, col);
  const std::string text = DisplayText(row, col);
  if (text.empty() || !MergeCol(col) || IsSubtotal(row)) return block;
  const auto isEqual = [&](int next) {
    const bool sameText = TextMatrix(next, col) == cell || DisplayText(next, col) == text;
    return sameText && !IsSubtotal(next) && !IsMergedAcross(next, col);
  };
  for (int next = row - 1; next >= within.row1; --next) {
    if (!RowVisible(next)) continue;
    if (!isEqual(next)) break;
    block.row1 = next;
  }
  for (int next = row + 1; next <= within.row2; ++next) {
    if (!RowVisible(next)) continue;
    if (!isEqual(next)) break;
    block.row2 = next;
  }
  return block;
}

CellRange Grid::MergedAcross(const CellRange& region, int row, int col) const {
  if (!MergeRow(row)) return {row, col, row, col};
  CellRange within = region;
  if (mergeCells_ == MergeSetting::RestrictRows || mergeCells_ == MergeSetting::RestrictAll)
    for (int above = region.row1; above < row && within.col1 < within.col2; ++above)
      if (RowVisible(above)) within = EqualAcross(within, above, col);
  return EqualAcross(within, row, col);
}

// Such a cell belongs to a block of its row already.
bool Grid::IsMergedAcross(int row, int col) const {
  if (!MergeRow(row)) return false;
  const CellRange across = MergedAcross(RegionOf(row, col), row, col);
  return across.col1 != across.col2;
}

CellRange Grid::MergedDown(const CellRange& region, int row, int col) const {
  if (!MergeCol(col)) return {row, col, row, col};
  CellRange within = region;
  if (mergeCells_ == MergeSetting::RestrictColumns || mergeCells_ == MergeSetting::RestrictAll)
    for (int left = region.col1; left < col && within.row1 < within.row2; ++left)
      if (ColVisible(left)) within = EqualDown(within, row, left);
  return EqualDown(within, row, col);
}

// From the nearest text at or before the cell up to the next one.
CellRange Grid::Spilled(const CellRange& region, int row, int col) const {
  const auto isEmpty = [&](int at) { return DisplayText(row, at).empty(); };
  int first = col, last = col;
  while (first > region.col1 && isEmpty(first)) --first;
  if (isEmpty(first)) return {row, col, row, col};
  while (last < region.col2 && isEmpty(last + 1)) ++last;
  return {row, first, row, last};
}

CellRange Grid::MergedRange(int row, int col) const {
  const CellRange alone{row, col, row, col};
  if (mergeCells_ == MergeSetting::Never || !IsRow(row) || !IsCol(col)) return alone;
  const CellRange region = RegionOf(row, col);
  if (mergeCells_ == MergeSetting::Spill) return Spilled(region, row, col);
  const CellRange across = MergedAcross(region, row, col);
  return across == alone ? MergedDown(region, row, col) : across;
}

}  // namespace lm
