#include "core/grid.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "core/change.h"
#include "core/format.h"
#include "core/grid_storage.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {

namespace {

// The files part tables, records and fields with these, so no cell may hold them.
constexpr std::string_view kSeparators = "\x1d\x1e\x1f";

const std::string kNothing;

bool IsStrict() {
  static const bool strict = std::getenv("LEDGERMINDER_STRICT") != nullptr;
  return strict;
}

std::string CellSafe(std::string_view text) {
  return text.find_first_of(kSeparators) == std::string_view::npos ? std::string(text)
                                                                   : RemoveAny(text, kSeparators);
}

std::string TextOf(std::optional<bool> value) { return !value ? "" : *value ? "TRUE" : "FALSE"; }

std::optional<bool> ReadBool(std::string_view text) {
  if (text.empty()) return std::nullopt;
  return EqualsIgnoreCase(text, "TRUE");
}

std::string ColourText(Colour colour) { return colour == kNoColour ? "" : PlainText(colour); }

Colour ReadColour(std::string_view text) { return text.empty() ? kNoColour : ValInt(text); }

Alignment ReadAlignment(std::string_view text) {
  const int number = ValInt(text);
  return number >= 0 && number <= 3 ? static_cast<Alignment>(number) : Alignment::General;
}

}  // namespace

Grid::Grid(std::string name) : name_(std::move(name)) {}
Grid::~Grid() = default;

// Size

int Grid::Rows() const { return static_cast<int>(rows_.size()); }

void Grid::SetRows(int rows) {
  const int before = Rows();
  const int after = std::max(rows, 0);
  if (after == before) return;
  for (int row = before - 1; history_ && row >= std::max(after, fixedRows_); --row) {
    if (!IsRecord(row)) continue;
    const RowData* behind = RecordBefore(row);
    history_->RowRemoved(*this, std::move(rows_[static_cast<std::size_t>(row)]), behind);
  }
  rows_.resize(static_cast<std::size_t>(after));
  for (int row = before; row < after; ++row) {
    rows_[static_cast<std::size_t>(row)] = std::make_unique<RowData>();
    if (history_ && IsRecord(row)) history_->RowAdded(*this, RowAt(row), RecordBefore(row));
  }
  coverStale_ = true;
  if (row_ >= after) row_ = after > fixedRows_ ? after - 1 : -1;
  if (topRow_ >= after) topRow_ = row_;
  Tell([&](GridObserver& observer) {
    if (after > before)
      observer.RowsInserted(*this, before, after - before);
    else
      observer.RowsRemoved(*this, after, before - after);
  });
}

int Grid::Cols() const { return static_cast<int>(columns_.size()); }

void Grid::SetCols(int cols) {
  const int after = std::max(cols, 0);
  if (after == Cols()) return;
  RemoveColumns(after);
  if (rows_.empty()) NumberSlotsAnew();
  while (Cols() < after) {
    auto column = std::make_unique<Column>();
    if (freeSlots_.empty()) {
      column->slot = slots_++;
    } else {
      column->slot = freeSlots_.back();
      freeSlots_.pop_back();
    }
    columns_.push_back(std::move(column));
  }
  SeeSlotOrder();
  TellLayout();
}

// With no row to keep, the slots go by the columns' order, as the records of a file do.
void Grid::NumberSlotsAnew() {
  freeSlots_.clear();
  slots_ = 0;
  for (const auto& column : columns_) column->slot = slots_++;
}

void Grid::SeeSlotOrder() {
  slotsInOrder_ = true;
  for (int col = 0; col < Cols(); ++col) slotsInOrder_ &= ColAt(col).slot == col;
}

void Grid::RemoveColumns(int from) {
  while (Cols() > from) {
    const int slot = columns_.back()->slot;
    for (const auto& row : rows_) row->Erase(slot);
    freeSlots_.push_back(slot);
    columns_.pop_back();
  }
  if (col_ >= Cols()) col_ = Cols() - 1;
}

void Grid::SetFixedRows(int rows) {
  if (fixedRows_ == std::max(rows, 0)) return;
  fixedRows_ = std::max(rows, 0);
  coverStale_ = true;
  TellLayout();
}

void Grid::SetFixedCols(int cols) {
  if (fixedCols_ == std::max(cols, 0)) return;
  fixedCols_ = std::max(cols, 0);
  TellLayout();
}

void Grid::ClearData() { SetRows(std::min(Rows(), fixedRows_)); }

// Cell text

std::string Grid::TextMatrix(int row, int col) const {
  return std::string(IsRow(row) && IsCol(col) ? RowAt(row).Text(ColAt(col).slot) : "");
}

std::string Grid::TextMatrix(int row, std::string_view key) const {
  return TextMatrix(row, ColIndex(key));
}

bool Grid::PutText(int row, int col, std::string_view text) {
  if (!IsRow(row) || !IsCol(col)) return false;
  const int slot = ColAt(col).slot;
  RowData& data = RowAt(row);
  const std::string cell = CellSafe(text);
  if (data.Text(slot) == cell) return false;
  if (history_ && IsRecord(row) && !ColAt(col).derived) history_->RowWillChange(*this, data);
  data.SetText(slot, cell);
  return true;
}

void Grid::SetTextMatrix(int row, int col, std::string_view text) {
  if (!PutText(row, col, text)) return;
  Tell([&](GridObserver& observer) { observer.CellsChanged(*this, {row, col, row, col}); });
}

void Grid::SetTextMatrix(int row, std::string_view key, std::string_view text) {
  SetTextMatrix(row, ColIndex(key), text);
}

// Columns

const std::string& Grid::ColKey(int col) const { return IsCol(col) ? ColAt(col).key : kNothing; }

void Grid::SetColKey(int col, std::string_view key) {
  if (!IsCol(col)) return;
  ColAt(col).key = key;
  DeclareKey(key);
}

void Grid::DeclareKey(std::string_view key) {
  if (!key.empty() && !IsDeclared(key)) declaredKeys_.emplace_back(key);
}

bool Grid::IsDeclared(std::string_view key) const {
  return std::ranges::any_of(
      declaredKeys_, [key](const std::string& each) { return EqualsIgnoreCase(each, key); });
}

int Grid::ColIndex(std::string_view key) const {
  const int col = FindCol(key);
  if (col < 0 && !key.empty() && IsStrict() && !declaredKeys_.empty() && !IsDeclared(key)) {
    std::fprintf(stderr, "%s has no column %s\n", name_.c_str(), std::string(key).c_str());
    std::abort();
  }
  return col;
}

int Grid::FindCol(std::string_view key) const {
  if (key.empty()) return -1;
  for (int col = 0; col < Cols(); ++col) {
    const std::string& candidate = ColAt(col).key;
    if (candidate.size() == key.size() && EqualsIgnoreCase(candidate, key)) return col;
  }
  return -1;
}

int Grid::ColWidth(int col) const { return IsCol(col) ? ColAt(col).width : -1; }

void Grid::SetColWidth(int col, int twips) {
  if (!IsCol(col) || ColAt(col).width == twips) return;
  ColAt(col).width = twips;
  TellLayout();
}

bool Grid::ColHidden(int col) const { return IsCol(col) && ColAt(col).hidden; }

void Grid::SetColHidden(int col, bool hidden) {
  if (!IsCol(col) || ColAt(col).hidden == hidden) return;
  ColAt(col).hidden = hidden;
  TellLayout();
}

void Grid::SetColPosition(int col, int position) {
  if (!IsCol(col) || !IsCol(position) || col == position) return;
  const auto from = columns_.begin() + col;
  const auto to = columns_.begin() + position;
  if (col < position)
    std::rotate(from, from + 1, to + 1);
  else
    std::rotate(to, from, from + 1);
  SeeSlotOrder();
  TellLayout();
}

const std::string& Grid::ColFormat(int col) const {
  return IsCol(col) ? ColAt(col).format : kNothing;
}

void Grid::SetColFormat(int col, std::string_view pattern) {
  if (!IsCol(col) || ColAt(col).format == pattern) return;
  ColAt(col).format = pattern;
  TellLayout();
}

DataType Grid::ColDataType(int col) const { return IsCol(col) ? ColAt(col).type : DataType::Text; }

void Grid::SetColDataType(int col, DataType type) {
  if (!IsCol(col) || ColAt(col).type == type) return;
  ColAt(col).type = type;
  TellLayout();
}

const std::string& Grid::ColComboList(int col) const {
  return IsCol(col) ? ColAt(col).comboList : kNothing;
}

void Grid::SetColComboList(int col, std::string_view list) {
  if (!IsCol(col) || ColAt(col).comboList == list) return;
  Column& column = ColAt(col);
  column.comboList = list;
  column.comboTexts.clear();
  column.comboHasIds = list.find('#') != std::string_view::npos;
  for (auto& [id, text] : ComboEntries(list)) column.comboTexts.try_emplace(id, text);
  TellLayout();
}

Alignment Grid::ColAlignment(int col) const {
  return IsCol(col) ? ColAt(col).alignment : Alignment::General;
}

void Grid::SetColAlignment(int col, Alignment alignment) {
  if (!IsCol(col) || ColAt(col).alignment == alignment) return;
  ColAt(col).alignment = alignment;
  TellLayout();
}

void Grid::SetColDerived(int col, bool derived) {
  if (IsCol(col)) ColAt(col).derived = derived;
}

// Rows

bool Grid::RowHidden(int row) const { return IsRow(row) && RowAt(row).hidden; }

void Grid::SetRowHidden(int row, bool hidden) {
  if (!IsRow(row) || RowAt(row).hidden == hidden) return;
  RowAt(row).hidden = hidden;
  TellLayout();
}

const std::string& Grid::DataOfRow(int row) const {
  static const std::string kNone;
  return IsRow(row) ? RowAt(row).data : kNone;
}

void Grid::SetDataOfRow(int row, std::string_view data) {
  if (IsRow(row)) RowAt(row).data = data;
}

int Grid::RowHeight(int row) const { return IsRow(row) ? RowAt(row).height : -1; }

void Grid::SetRowHeight(int row, int twips) {
  if (!IsRow(row) || RowAt(row).height == twips) return;
  RowAt(row).height = twips;
  TellLayout();
}

int Grid::AddItem(std::string_view text, int at) {
  auto data = std::make_unique<RowData>();
  const bool inside = at >= 0 && at < Rows();
  const int row = inside ? at : Rows();
  rows_.insert(rows_.begin() + row, std::move(data));
  if (history_ && IsRecord(row)) history_->RowAdded(*this, RowAt(row), RecordBefore(row));
  int col = 0;
  if (!text.empty())
    for (const std::string_view piece : Split(text, '\t')) PutText(row, col++, piece);
  coverStale_ = true;
  if (row_ >= row) ++row_;
  Tell([&](GridObserver& observer) { observer.RowsInserted(*this, row, 1); });
  return row;
}

bool Grid::AppendRecord(std::string_view record) {
  auto data = RowOfRecord(record);
  if (!data) return false;
  rows_.push_back(std::move(data));
  RowsAdded(Rows() - 1, 1);
  return true;
}

bool Grid::InsertRecords(int at, std::span<const std::string> records) {
  std::vector<std::unique_ptr<RowData>> made;
  for (const std::string& record : records) {
    made.push_back(RowOfRecord(record));
    if (!made.back()) return false;
  }
  const int row = at >= 0 && at < Rows() ? at : Rows();
  rows_.insert(rows_.begin() + row, std::make_move_iterator(made.begin()),
               std::make_move_iterator(made.end()));
  const int count = static_cast<int>(records.size());
  if (row_ >= row) row_ += count;
  RowsAdded(row, count);
  return true;
}

// Nothing when the record does not hold a cell for each column.
std::unique_ptr<Grid::RowData> Grid::RowOfRecord(std::string_view record) const {
  CellTexts cells;
  if (!cells.Assign(record, Cols())) return nullptr;
  auto data = std::make_unique<RowData>();
  if (slotsInOrder_)
    data->cells = std::move(cells);
  else
    for (int col = 0; col < Cols(); ++col) data->SetText(ColAt(col).slot, cells.At(col));
  return data;
}

void Grid::RowsAdded(int row, int count) {
  for (int each = row; history_ && each < row + count; ++each)
    if (IsRecord(each)) history_->RowAdded(*this, RowAt(each), RecordBefore(each));
  coverStale_ = true;
  Tell([&](GridObserver& observer) { observer.RowsInserted(*this, row, count); });
}

void Grid::WriteRecord(int row, std::string& text) const {
  if (!IsRow(row)) return;
  const CellTexts& cells = RowAt(row).cells;
  if (slotsInOrder_ && cells.Count() == Cols()) {
    text += cells.Record();
    return;
  }
  for (int col = 0; col < Cols(); ++col) {
    text += cells.At(ColAt(col).slot);
    text += kFieldEnd;
  }
}

void Grid::ViewCells(int row, std::vector<std::string_view>& cells) const {
  cells.assign(columns_.size(), {});
  if (!IsRow(row)) return;
  const std::vector<std::string_view> slots = Split(RowAt(row).cells.Record(), kFieldEnd);
  for (std::size_t col = 0; col < columns_.size(); ++col)
    if (const auto slot = static_cast<std::size_t>(columns_[col]->slot); slot < slots.size())
      cells[col] = slots[slot];
}

void Grid::RemoveItem(int row) {
  if (!IsRow(row)) return;
  const RowData* behind = history_ ? RecordBefore(row) : nullptr;
  std::unique_ptr<RowData> taken = TakeRow(row);
  if (history_ && row >= fixedRows_ && taken->outlineLevel == 0)
    history_->RowRemoved(*this, std::move(taken), behind);
}

const Grid::RowData* Grid::RecordBefore(int row) const {
  while (--row >= fixedRows_)
    if (IsRecord(row)) return &RowAt(row);
  return nullptr;
}

void Grid::PutRow(int at, std::unique_ptr<RowData> data) {
  for (const int slot : freeSlots_) data->Erase(slot);  // of columns that have gone since
  rows_.insert(rows_.begin() + at, std::move(data));
  coverStale_ = true;
  if (row_ >= at) ++row_;
  Tell([&](GridObserver& observer) { observer.RowsInserted(*this, at, 1); });
}

std::unique_ptr<Grid::RowData> Grid::TakeRow(int row) {
  std::unique_ptr<RowData> taken = std::move(rows_[static_cast<std::size_t>(row)]);
  rows_.erase(rows_.begin() + row);
  coverStale_ = true;
  if (row_ > row || row_ >= Rows()) --row_;
  if (row_ < fixedRows_) row_ = -1;
  if (topRow_ >= Rows()) topRow_ = row_;
  Tell([&](GridObserver& observer) { observer.RowsRemoved(*this, row, 1); });
  return taken;
}

void Grid::PutCells(int row, const CellTexts& cells) {
  RowAt(row).cells = cells;
  for (const int slot : freeSlots_) RowAt(row).Erase(slot);
  Tell([&](GridObserver& observer) { observer.CellsChanged(*this, {row, 0, row, Cols() - 1}); });
}

int Grid::FindRow(std::string_view value, int startRow, int col) const {
  if (!IsCol(col)) return -1;
  const int slot = ColAt(col).slot;
  for (int row = startRow < 0 ? fixedRows_ : startRow; row < Rows(); ++row)
    if (RowAt(row).Text(slot) == value) return row;
  return -1;
}

std::unordered_map<std::string, int> Grid::RowsBy(std::string_view key) const {
  std::unordered_map<std::string, int> found;
  const int col = ColIndex(key);
  if (col < 0) return found;
  found.reserve(rows_.size());
  const int slot = ColAt(col).slot;
  for (int row = fixedRows_; row < Rows(); ++row) {
    const std::string_view value = RowAt(row).Text(slot);
    if (!value.empty() && !IsSubtotal(row)) found.emplace(value, row);
  }
  return found;
}

void Grid::Rearrange(const std::function<void()>& change) {
  const RowData* cursor = IsRow(row_) ? &RowAt(row_) : nullptr;
  change();
  coverStale_ = true;
  if (cursor) {
    const auto at = std::find_if(rows_.begin(), rows_.end(),
                                 [cursor](const auto& row) { return row.get() == cursor; });
    row_ = at == rows_.end() ? -1 : static_cast<int>(at - rows_.begin());
  }
  if (topRow_ >= Rows()) topRow_ = Rows() - 1;
  Tell([&](GridObserver& observer) { observer.GridReset(*this); });
}

// What a cell shows

std::string Grid::Shown(const RowData& row, const Column& column) const {
  const std::string_view text = row.Text(column.slot);
  if (row.outlineLevel == 0 && !column.comboList.empty())
    return std::string(column.ComboText(text));
  const bool isCaption = row.group && row.group->captionSlot == column.slot;
  if (text.empty() || isCaption) return std::string(text);
  const Properties* properties = row.Find(column.slot);
  const std::string& pattern =
      properties && !properties->format.empty() ? properties->format : column.format;
  return pattern.empty() ? std::string(text) : Format(text, pattern);
}

std::string Grid::DisplayText(int row, int col) const {
  if (!IsRow(row) || !IsCol(col)) return "";
  return row < fixedRows_ ? TextMatrix(row, col) : Shown(RowAt(row), ColAt(col));
}

// Properties

CellRange Grid::Clamped(CellRange range) const {
  const auto [row1, row2] = std::minmax(range.row1, range.row2);
  const auto [col1, col2] = std::minmax(range.col1, range.col2);
  return {std::max(row1, 0), std::max(col1, 0), std::min(row2, Rows() - 1),
          std::min(col2, Cols() - 1)};
}

std::string Grid::Cell(CellSetting setting, int row, int col) const {
  if (!IsRow(row) || !IsCol(col)) return "";
  static const Properties kUnset;
  const RowData& data = RowAt(row);
  const Properties* own = data.Find(ColAt(col).slot);
  const Properties& properties = own ? *own : kUnset;
  switch (setting) {
    case CellSetting::flexcpText:
      return TextMatrix(row, col);
    case CellSetting::flexcpBackColor:
    case CellSetting::flexcpForeColor:
      return ColourText(CellColour(setting, row, col));
    case CellSetting::flexcpFontBold:
      return !properties.bold && data.group ? TextOf(data.group->bold) : TextOf(properties.bold);
    case CellSetting::flexcpChecked:
      return TextOf(properties.checked);
    case CellSetting::flexcpPicture:
      return properties.picture;
    case CellSetting::flexcpAlignment:
      return PlainText(static_cast<int>(properties.alignment));
    case CellSetting::flexcpData:
      return properties.data;
    case CellSetting::flexcpFormat:
      return properties.format;
  }
  return "";
}

void Grid::SetCell(CellSetting setting, const CellRange& range, std::string_view value) {
  if (setting == CellSetting::flexcpText) {
    const CellRange inside = Clamped(range);
    const std::string text(value);
    bool changed = false;
    for (int row = inside.row1; row <= inside.row2; ++row)
      for (int col = inside.col1; col <= inside.col2; ++col) changed |= PutText(row, col, text);
    if (changed) Tell([&](GridObserver& observer) { observer.CellsChanged(*this, inside); });
    return;
  }
  ChangeProperties(range, [setting, value](Properties& properties) {
    switch (setting) {
      case CellSetting::flexcpText:
        break;
      case CellSetting::flexcpBackColor:
        properties.backColour = ReadColour(value);
        break;
      case CellSetting::flexcpForeColor:
        properties.foreColour = ReadColour(value);
        break;
      case CellSetting::flexcpFontBold:
        properties.bold = ReadBool(value);
        break;
      case CellSetting::flexcpChecked:
        properties.checked = ReadBool(value);
        break;
      case CellSetting::flexcpPicture:
        properties.picture = value;
        break;
      case CellSetting::flexcpAlignment:
        properties.alignment = ReadAlignment(value);
        break;
      case CellSetting::flexcpData:
        properties.data = value;
        break;
      case CellSetting::flexcpFormat:
        properties.format = value;
        break;
    }
  });
}

Colour Grid::CellColour(CellSetting setting, int row, int col) const {
  if (!IsRow(row) || !IsCol(col)) return kNoColour;
  const bool fore = setting == CellSetting::flexcpForeColor;
  const RowData& data = RowAt(row);
  Colour colour = kNoColour;
  if (const Properties* own = data.Find(ColAt(col).slot))
    colour = fore ? own->foreColour : own->backColour;
  if (colour == kNoColour && data.group)
    colour = fore ? data.group->foreColour : data.group->backColour;
  return colour;
}

void Grid::SetCellColour(CellSetting setting, const CellRange& range, Colour colour) {
  const bool fore = setting == CellSetting::flexcpForeColor;
  ChangeProperties(range, [fore, colour](Properties& properties) {
    (fore ? properties.foreColour : properties.backColour) = colour;
  });
}

void Grid::ChangeProperties(const CellRange& range,
                            const std::function<void(Properties&)>& change) {
  const CellRange inside = Clamped(range);
  if (inside.row1 > inside.row2 || inside.col1 > inside.col2) return;
  Properties unset;
  change(unset);
  const bool unsets = unset == Properties{};
  for (int row = inside.row1; row <= inside.row2; ++row) {
    if (unsets && RowAt(row).properties.empty()) continue;
    if (history_ && inside.col1 == 0 && IsRecord(row))
      history_->MarkerWillChange(*this, RowAt(row));
    for (int col = inside.col1; col <= inside.col2; ++col)
      RowAt(row).ChangeProperties(ColAt(col).slot, change);
  }
  Tell([&](GridObserver& observer) { observer.CellsChanged(*this, inside); });
}

// Cursor and screen updating

void Grid::Select(int row, int col) {
  const std::pair before{row_, col_};
  row_ = IsRow(row) ? row : -1;
  col_ = IsCol(col) ? col : -1;
  if (before == std::pair{row_, col_}) return;
  Tell([&](GridObserver& observer) { observer.CursorMoved(*this); });
}

void Grid::SetTopRow(int row) {
  const int before = topRow_;
  topRow_ = IsRow(row) ? row : -1;
  if (before == topRow_) return;
  Tell([&](GridObserver& observer) { observer.CursorMoved(*this); });
}

void Grid::SetRedraw(bool on) {
  if (!on) {
    ++redrawOff_;
    return;
  }
  if (redrawOff_ == 0 || --redrawOff_ > 0 || !changedWhileOff_) return;
  changedWhileOff_ = false;
  Tell([&](GridObserver& observer) { observer.GridReset(*this); });
}

void Grid::AddObserver(GridObserver& observer) { observers_.push_back(&observer); }

void Grid::RemoveObserver(GridObserver& observer) { std::erase(observers_, &observer); }

void Grid::TellLayout() {
  Tell([&](GridObserver& observer) { observer.LayoutChanged(*this); });
}

std::vector<std::pair<std::string, std::string>> ComboEntries(std::string_view list) {
  std::vector<std::pair<std::string, std::string>> entries;
  if (list.empty()) return entries;
  for (const std::string_view piece : Split(list, '|')) {
    const std::string_view entry = Trim(piece);
    const std::size_t semicolon = entry.find(';');
    if (entry.starts_with('#') && semicolon != std::string_view::npos)
      entries.emplace_back(entry.substr(1, semicolon - 1), entry.substr(semicolon + 1));
    else
      entries.emplace_back(piece, piece);
  }
  return entries;
}

}  // namespace lm
