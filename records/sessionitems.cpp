#include "records/sessionitems.h"

#include <algorithm>
#include <array>

#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/money.h"

namespace lm {
namespace {

constexpr std::string_view kMoneyFormat = "#,##0.00";
constexpr Colour kGrey = Rgb(100, 100, 100);

constexpr std::array<ColumnSpec, 5> kExtraColumns{{
    {.key = "ID", .caption = "ID", .hidden = true},
    {.key = "SESSID", .caption = "SESSID", .hidden = true},
    {.key = "ITEM", .caption = "Item", .width = 4400},
    {.key = "NOTES", .caption = "Private Note", .width = 3200},
    {.key = "RATE",
     .caption = "Rate",
     .type = DataType::Money,
     .format = kMoneyFormat,
     .width = 800},
}};

constexpr std::array<ColumnSpec, 6> kExpenseColumns{{
    {.key = "ID", .caption = "ID", .hidden = true},
    {.key = "SESSID", .caption = "SESSID", .hidden = true},
    {.key = "ITEM", .caption = "Item", .width = 4200},
    {.key = "CATEGORY", .caption = "Category", .width = 1100, .lookup = Lookup::ExpenseCategories},
    {.key = "NOTES", .caption = "Private Note", .width = 2450},
    {.key = "RATE",
     .caption = "Rate",
     .type = DataType::Money,
     .format = kMoneyFormat,
     .width = 800},
}};

// The state of a working row, kept in the data of its marker cell: the colours alone would not
// tell, since the user may choose one colour for both.
constexpr std::string_view kUnchanged = "";
constexpr std::string_view kNew = "new";
constexpr std::string_view kChanged = "changed";
constexpr std::string_view kDeleted = "deleted";

std::string StateOf(const Grid& grid, int row) {
  return grid.Cell(CellSetting::flexcpData, row, 0);
}

void SetState(Grid& grid, int row, std::string_view state) {
  grid.SetCell(CellSetting::flexcpData, row, 0, state);
}

}  // namespace

std::string MileageItem(Single miles, Single poundsAMile) {
  return "Mileage charge to and from Practice (" + PlainText(miles) + std::string(" * £"_w) +
         Money(poundsAMile) + ")";
}

const TableSpec kWorkingExtras{"fgExtras", kExtraColumns};
const TableSpec kWorkingExpenses{"fgExpenses", kExpenseColumns};

SessionItems::SessionItems(Ledger& ledger, Grid& grid, const TableSpec& columns, Grid& table)
    : ledger_(ledger), grid_(grid), columns_(columns), table_(table) {
  MakeBlank(grid_, columns_);
  for (const ColumnSpec& column : columns_.columns) {
    const int col = grid_.ColIndex(column.key);
    grid_.SetColWidth(col, column.width);
    grid_.SetColHidden(col, column.hidden);
    grid_.SetColDataType(col, column.type);
    grid_.SetColFormat(col, column.format);
    if (column.lookup == Lookup::ExpenseCategories)
      grid_.SetColComboList(col, GetOption(ledger_, optExpenseCategories));
  }
}

std::vector<int> SessionItems::TableRowsOf(std::string_view sessionId) const {
  std::vector<int> rows;
  if (sessionId.empty()) return rows;
  const int col = table_.ColIndex("SESSID");
  for (int row = table_.FixedRows(); row < table_.Rows(); ++row)
    if (table_.TextMatrix(row, col) == sessionId) rows.push_back(row);
  return rows;
}

void SessionItems::CopyItem(const Grid& from, int fromRow, Grid& to, int toRow) const {
  for (const ColumnSpec& column : columns_.columns)
    if (!column.hidden) to.SetTextMatrix(toRow, column.key, from.TextMatrix(fromRow, column.key));
}

int SessionItems::AppendCopyOf(int tableRow) {
  const int row = grid_.AddItem("");
  CopyItem(table_, tableRow, grid_, row);
  return row;
}

void SessionItems::MakeNew(int row) {
  SetState(grid_, row, kNew);
  MarkNew(ledger_, grid_, row);
}

int SessionItems::NextItemId() const { return std::max(NextId(table_), NextId(grid_)); }

void SessionItems::Load(std::string_view sessionId) {
  RedrawOff redrawOff(grid_);
  grid_.ClearData();
  for (const int tableRow : TableRowsOf(sessionId)) {
    const int row = AppendCopyOf(tableRow);
    grid_.SetTextMatrix(row, "ID", table_.TextMatrix(tableRow, "ID"));
    grid_.SetTextMatrix(row, "SESSID", sessionId);
    SetState(grid_, row, kUnchanged);
  }
}

void SessionItems::LoadCopy(std::string_view sessionId) {
  RedrawOff redrawOff(grid_);
  grid_.ClearData();
  int id = NextItemId();
  for (const int tableRow : TableRowsOf(sessionId)) {
    const int row = AppendCopyOf(tableRow);
    grid_.SetTextMatrix(row, "ID", std::to_string(id++));
    MakeNew(row);
  }
}

int SessionItems::Add(std::string_view sessionId, std::string_view item) {
  const int id = NextItemId();
  const int row = grid_.AddItem("");
  grid_.SetTextMatrix(row, "ID", std::to_string(id));
  grid_.SetTextMatrix(row, "SESSID", sessionId);
  grid_.SetTextMatrix(row, "RATE", "0");
  grid_.SetTextMatrix(row, "ITEM", item);
  MakeNew(row);
  grid_.Select(row, grid_.ColIndex("ITEM"));
  return row;
}

void SessionItems::Delete(int row) {
  if (StateOf(grid_, row) == kNew) {
    grid_.RemoveItem(row);
  } else {
    SetState(grid_, row, kDeleted);
    grid_.SetRowHidden(row, true);
  }
  SelectNear(row);
}

void SessionItems::SelectNear(int row) {
  const int col = grid_.ColIndex("ITEM");
  for (int below = row; below < grid_.Rows(); ++below)
    if (!grid_.RowHidden(below)) return grid_.Select(below, col);
  for (int above = row - 1; above >= grid_.FixedRows(); --above)
    if (!grid_.RowHidden(above)) return grid_.Select(above, col);
  grid_.Select(-1, -1);
}

bool SessionItems::HasRows() const {
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row)
    if (!grid_.RowHidden(row)) return true;
  return false;
}

bool SessionItems::HasSelected() const {
  const int row = grid_.Row();
  return row >= grid_.FixedRows() && row < grid_.Rows() && !grid_.RowHidden(row);
}

void SessionItems::SetLocked(bool locked) {
  locked_ = locked;
  if (!grid_.HasData()) return;
  for (const ColumnSpec& column : columns_.columns) {
    if (column.hidden || column.key == "NOTES") continue;
    const int col = grid_.ColIndex(column.key);
    grid_.SetCellColour(CellSetting::flexcpForeColor,
                        {grid_.FixedRows(), col, grid_.Rows() - 1, col},
                        locked ? kGrey : kNoColour);
  }
}

// The table's row of a working row. The session is compared too: in a damaged file two sessions
// may have items of one ID.
int SessionItems::TableRow(int row, std::string_view sessionId) const {
  const std::string& id = grid_.TextMatrix(row, "ID");
  const int idCol = table_.ColIndex("ID");
  int found = table_.FindRow(id, -1, idCol);
  while (found >= 0 && table_.TextMatrix(found, "SESSID") != sessionId)
    found = table_.FindRow(id, found + 1, idCol);
  return found;
}

void SessionItems::WriteBack(std::string_view sessionId) {
  RedrawOff redrawOff(table_);
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
    const std::string state = StateOf(grid_, row);
    if (state == kUnchanged) continue;
    if (state == kNew) {
      const int added = AddRecord(ledger_, table_);
      table_.SetTextMatrix(added, "ID", grid_.TextMatrix(row, "ID"));
      table_.SetTextMatrix(added, "SESSID", sessionId);
      CopyItem(grid_, row, table_, added);
      continue;
    }
    const int stored = TableRow(row, sessionId);
    if (stored < 0) continue;
    if (state == kDeleted) {
      table_.RemoveItem(stored);
    } else {
      CopyItem(grid_, row, table_, stored);
      MarkEdited(ledger_, table_, stored);
    }
  }
}

bool SessionItems::IsRate(int col) const { return EqualsIgnoreCase(grid_.ColKey(col), "RATE"); }

bool SessionItems::MayEdit(int row, int col) {
  if (row < grid_.FixedRows() || col < grid_.FixedCols() || grid_.RowHidden(row) ||
      grid_.ColHidden(col))
    return false;
  return !locked_ || EqualsIgnoreCase(grid_.ColKey(col), "NOTES");
}

Picker SessionItems::PickerOf(int /*row*/, int col) {
  return IsRate(col) ? Picker::Numbers : Picker::None;
}

std::optional<std::string> SessionItems::Accept(int /*row*/, int col, std::string_view text) {
  if (!IsRate(col)) return std::string(text);
  std::string amount = MoneyCell(text);
  if (amount.empty()) return std::nullopt;
  return amount;
}

void SessionItems::Edited(int row, int col) {
  if (StateOf(grid_, row) == kUnchanged) {
    SetState(grid_, row, kChanged);
    MarkEdited(ledger_, grid_, row);
  }
  if (IsRate(col) && onRateEdited) onRateEdited();
}

void SessionItems::AddPressed() {
  if (onAddPressed) onAddPressed();
}

void SessionItems::DeletePressed(int row) {
  grid_.Select(row, grid_.Col());
  if (onDeletePressed) onDeletePressed();
}

}  // namespace lm
