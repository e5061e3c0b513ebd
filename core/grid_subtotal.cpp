// Group rows: making and filling them, outline levels and collapsing. Everything here is told for
// group rows above their groups; rows below them are the same in the mirrored table.
#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/grid_storage.h"
#include "core/pounds.h"
#include "core/text.h"

namespace lm {

namespace {

constexpr int kGrandTotal = -1;

struct Amount {
  bool filled = false;
  Double number = 0;
  Currency pounds;
};

Amount ReadAmount(std::string_view text) {
  if (text.empty()) return {};
  const Double number = PoundsOf(text);
  return {true, number, Currency::From(number)};
}

// Stays at the end of the range: amounts of a damaged file may be as large as they like.
Currency AddWithinRange(Currency a, Currency b) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  const std::int64_t left = a.TenThousandths();
  const std::int64_t right = b.TenThousandths();
  if (right > 0 && left > kMax - right) return Currency::FromTenThousandths(kMax);
  if (right < 0 && left < -kMax - right) return Currency::FromTenThousandths(-kMax);
  return a + b;
}

// What the cells of one group add up to; the sum is exact in pence.
struct Figures {
  Currency sum;
  int rows = 0;
  int filled = 0;
  Double largest = 0;
  Double smallest = 0;

  void Add(const Amount& amount) {
    ++rows;
    if (!amount.filled) return;
    largest = filled == 0 ? amount.number : std::max(largest, amount.number);
    smallest = filled == 0 ? amount.number : std::min(smallest, amount.number);
    ++filled;
    sum = AddWithinRange(sum, amount.pounds);
  }
};

std::string FigureText(SubtotalFunction function, const Figures& group, const Figures& all) {
  const auto unlessEmpty = [&](Double value) { return group.filled ? PlainText(value) : ""; };
  switch (function) {
    case SubtotalFunction::Clear:
      break;
    case SubtotalFunction::Sum:
      return group.sum.ToText();
    case SubtotalFunction::Percent:
      return all.sum == Currency() ? "0"
                                   : PlainText(100 * group.sum.ToDouble() / all.sum.ToDouble());
    case SubtotalFunction::Count:
      return PlainText(group.rows);
    case SubtotalFunction::Average:
      return unlessEmpty(group.sum.ToDouble() / std::max(group.filled, 1));
    case SubtotalFunction::Maximum:
      return unlessEmpty(group.largest);
    case SubtotalFunction::Minimum:
      return unlessEmpty(group.smallest);
  }
  return "";
}

}  // namespace

// Outline

int Grid::RowOutlineLevel(int row) const { return IsRow(row) ? RowAt(row).outlineLevel : 0; }

void Grid::SetRowOutlineLevel(int row, int level) {
  if (!IsRow(row) || RowAt(row).outlineLevel == level) return;
  RowAt(row).outlineLevel = level;
  coverStale_ = true;
  TellLayout();
}

bool Grid::RowCollapsed(int row) const { return IsRow(row) && RowAt(row).collapsed; }

void Grid::SetRowCollapsed(int row, bool collapsed) {
  if (!IsRow(row) || RowAt(row).collapsed == collapsed) return;
  RowAt(row).collapsed = collapsed;
  coverStale_ = true;
  TellLayout();
}

void Grid::Outline(int level) {
  for (const auto& row : rows_) row->collapsed = level > 0 && row->outlineLevel >= level;
  coverStale_ = true;
  TellLayout();
}

void Grid::SetSubtotalPosition(SubtotalPosition position) {
  subtotalPosition_ = position;
  coverStale_ = true;
}

std::string Grid::GroupValue(int row) const {
  return IsRow(row) && RowAt(row).group ? RowAt(row).group->value : "";
}

bool Grid::RowVisible(int row) const {
  if (!IsRow(row) || RowAt(row).hidden) return false;
  if (coverStale_) FindCoveredRows();
  return !coveredRows_[static_cast<std::size_t>(row)];
}

void Grid::FindCoveredRows() const {
  coveredRows_.assign(rows_.size(), false);
  coverStale_ = false;
  const std::size_t first = FirstDataRow();
  const bool below = subtotalPosition_ == SubtotalPosition::Below;
  int collapsedLevel = 0;  // of the group that covers what follows, 0 for none
  for (std::size_t i = first; i < rows_.size(); ++i) {
    const std::size_t at = below ? rows_.size() - 1 - (i - first) : i;
    const RowData& row = *rows_[at];
    const bool inside = row.outlineLevel == 0 || row.outlineLevel > collapsedLevel;
    if (collapsedLevel > 0 && inside)
      coveredRows_[at] = true;
    else if (row.outlineLevel > 0)
      collapsedLevel = row.collapsed ? row.outlineLevel : 0;
  }
}

// Subtotals

int Grid::GroupTitleCol(int row) const {
  if (!IsRow(row) || !RowAt(row).group) return -1;
  const auto title = std::ranges::find_if(
      columns_, [&](const auto& column) { return column->slot == RowAt(row).group->captionSlot; });
  return title == columns_.end() ? -1 : static_cast<int>(title - columns_.begin());
}

void Grid::ClearSubtotals() {
  const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(FirstDataRow());
  const auto isGroup = [](const auto& row) { return row->outlineLevel != 0; };
  if (std::none_of(first, rows_.end(), isGroup)) return;
  Rearrange([&] { rows_.erase(std::remove_if(first, rows_.end(), isGroup), rows_.end()); });
}

void Grid::Subtotal(SubtotalFunction function, int groupOn, int totalOn,
                    const SubtotalStyle& style) {
  if (function == SubtotalFunction::Clear) return ClearSubtotals();
  if (groupOn >= Cols()) return;
  SubtotalStyle used = style;
  used.level = std::max(style.level, 1);
  groupOn = std::max(groupOn, kGrandTotal);
  const auto mirror = [&] {
    if (subtotalPosition_ == SubtotalPosition::Below)
      std::reverse(rows_.begin() + static_cast<std::ptrdiff_t>(FirstDataRow()), rows_.end());
  };
  Rearrange([&] {
    mirror();
    if (!HasGroupRows(used.level, groupOn == kGrandTotal ? kGrandTotal : ColAt(groupOn).slot))
      InsertGroupRows(groupOn, used);
    if (IsCol(totalOn)) FillGroupRows(function, groupOn, totalOn, used);
    mirror();
  });
}

bool Grid::HasGroupRows(int level, int groupSlot) const {
  return std::any_of(rows_.begin(), rows_.end(), [=](const auto& row) {
    return row->outlineLevel == level && row->group && row->group->groupSlot == groupSlot;
  });
}

bool Grid::SameGroup(const RowData& a, const RowData& b, int groupOn, int matchFrom) const {
  const int first = matchFrom < 0 ? groupOn : std::min(matchFrom, groupOn);
  for (int col = std::max(first, 0); col <= groupOn; ++col) {
    const Column& column = ColAt(col);
    if (a.Text(column.slot) == b.Text(column.slot)) continue;
    // Two records may bear one name.
    if (column.comboHasIds || !EqualsIgnoreCase(Shown(a, column), Shown(b, column))) return false;
  }
  return true;
}

int Grid::FirstVisibleDataCol() const {
  for (int col = fixedCols_; col < Cols(); ++col)
    if (ColVisible(col)) return col;
  return -1;
}

std::unique_ptr<Grid::RowData> Grid::MakeGroupRow(const RowData& record, int groupOn,
                                                  const SubtotalStyle& style) const {
  const int captionCol = groupOn == kGrandTotal ? FirstVisibleDataCol() : groupOn;
  auto row = std::make_unique<RowData>();
  row->outlineLevel = style.level;
  row->group = std::make_unique<GroupRow>();
  row->group->backColour = style.backColour;
  row->group->foreColour = style.foreColour;
  row->group->bold = style.bold;
  if (groupOn != kGrandTotal) {
    row->group->groupSlot = ColAt(groupOn).slot;
    row->group->value = record.Text(row->group->groupSlot);
  }
  if (captionCol < 0) return row;
  const Column& column = ColAt(captionCol);
  const std::string value = groupOn == kGrandTotal ? "Total" : Shown(record, column);
  row->group->captionSlot = column.slot;
  row->SetText(column.slot, Replace(style.caption, "%s", value));
  return row;
}

void Grid::InsertGroupRows(int groupOn, const SubtotalStyle& style) {
  const bool grand = groupOn == kGrandTotal;
  std::vector<std::unique_ptr<RowData>> result;
  result.reserve(rows_.size() * 2);
  const std::size_t first = FirstDataRow();
  const RowData* previous = nullptr;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    RowData& row = *rows_[i];
    const bool isRecord = i >= first && row.outlineLevel == 0;
    if (isRecord && row.hidden) {
      // takes no part
    } else if (isRecord) {
      if (!previous || !SameGroup(*previous, row, groupOn, style.matchFrom)) {
        // Behind the outer groups' rows that open here, before those of the inner ones.
        std::size_t at = result.size();
        while (at > first && (grand || result[at - 1]->outlineLevel > style.level)) --at;
        result.insert(result.begin() + static_cast<std::ptrdiff_t>(at),
                      MakeGroupRow(row, groupOn, style));
      }
      previous = &row;
    } else if (!grand && row.outlineLevel <= style.level) {
      previous = nullptr;
    }
    result.push_back(std::move(rows_[i]));
  }
  rows_ = std::move(result);
}

void Grid::FillGroupRows(SubtotalFunction function, int groupOn, int totalOn,
                         const SubtotalStyle& style) {
  const bool grand = groupOn == kGrandTotal;
  const int groupSlot = grand ? kGrandTotal : ColAt(groupOn).slot;
  const int totalSlot = ColAt(totalOn).slot;

  struct Group {
    RowData* row;
    Figures figures;
  };
  std::vector<Group> groups;
  Figures all;
  bool open = false;
  for (std::size_t i = FirstDataRow(); i < rows_.size(); ++i) {
    RowData& row = *rows_[i];
    if (row.outlineLevel == 0) {
      if (row.hidden) continue;
      const Amount amount = ReadAmount(row.Text(totalSlot));
      all.Add(amount);
      if (open) groups.back().figures.Add(amount);
    } else if (row.outlineLevel == style.level && row.group && row.group->groupSlot == groupSlot) {
      groups.push_back({&row, {}});
      open = true;
    } else if (!grand && row.outlineLevel <= style.level) {
      open = false;
    }
  }
  for (const Group& group : groups) {
    group.row->SetText(totalSlot, FigureText(function, group.figures, all));
    group.row->ChangeProperties(totalSlot, [&](Properties& own) { own.format = style.format; });
  }
}

}  // namespace lm
