#include "core/rows.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "core/numbers.h"
#include "core/options.h"
#include "core/text.h"

namespace lm {

namespace {

constexpr int kMarkerCol = 0;
constexpr Colour kSavedMarker = 0;
constexpr Colour kUsualNewMarker = 16711680;
constexpr Colour kUsualEditedMarker = 16776960;

// An option that holds no colour, or the one of a saved row, would lose the row's state.
Colour MarkerColour(const Ledger& ledger, int option, Colour usual) {
  const Colour colour = ValInt(GetOption(ledger, option));
  return colour > kSavedMarker ? colour : usual;
}

Colour NewMarker(const Ledger& ledger) {
  return MarkerColour(ledger, optNewRowColour, kUsualNewMarker);
}

Colour EditedMarker(const Ledger& ledger) {
  return MarkerColour(ledger, optEditedRowColour, kUsualEditedMarker);
}

Colour Marker(const Grid& grid, int row) {
  return grid.CellColour(CellSetting::flexcpBackColor, row, kMarkerCol);
}

bool IsSavedMarker(Colour colour) { return colour == kSavedMarker || colour == kNoColour; }

bool GoesToTheEnd(const Ledger& ledger) {
  return ToUpper(GetOption(ledger, optNewRowPosition)) == "BOTTOM";
}

void SetMarker(Grid& grid, int row, Colour colour) {
  grid.SetCellColour(CellSetting::flexcpBackColor, {row, kMarkerCol, row, kMarkerCol}, colour);
}

}  // namespace

bool IsRecord(const Grid& grid, int row) {
  return row >= grid.FixedRows() && row < grid.Rows() && !grid.IsSubtotal(row);
}

int FindRecord(const Grid& grid, std::string_view key, std::string_view text, int startRow) {
  if (text.empty()) return -1;
  const int col = grid.ColIndex(key);
  int row = grid.FindRow(text, startRow, col);
  while (row >= 0 && grid.IsSubtotal(row)) row = grid.FindRow(text, row + 1, col);
  return row;
}

int RecordRow(const Grid& grid, std::string_view id) { return FindRecord(grid, "ID", id); }

RowState StateOfRow(const Ledger& ledger, const Grid& grid, int row) {
  const Colour colour = Marker(grid, row);
  if (IsSavedMarker(colour)) return RowState::Saved;
  return colour == NewMarker(ledger) ? RowState::New : RowState::Edited;
}

void MarkNew(Ledger& ledger, Grid& grid, int row) { SetMarker(grid, row, NewMarker(ledger)); }

void MarkEdited(Ledger& ledger, Grid& grid, int row) {
  if (StateOfRow(ledger, grid, row) == RowState::New) return;
  SetMarker(grid, row, EditedMarker(ledger));
}

void ClearMarkers(Grid& grid) {
  grid.SetCellColour(CellSetting::flexcpBackColor,
                     {grid.FixedRows(), kMarkerCol, grid.Rows() - 1, kMarkerCol}, kNoColour);
}

void KeepMarkers(Ledger& ledger, const std::function<void()>& change) {
  struct Marked {
    Grid* grid;
    int row;
    RowState state;
  };
  std::vector<Marked> marked;
  for (Grid* grid : ledger.dataTables)
    for (const int row : Records(*grid))
      if (const RowState state = StateOfRow(ledger, *grid, row); state != RowState::Saved)
        marked.push_back({grid, row, state});
  change();
  for (const Marked& each : marked)
    SetMarker(*each.grid, each.row,
              each.state == RowState::New ? NewMarker(ledger) : EditedMarker(ledger));
}

bool HasUnsavedRows(const Ledger& ledger) {
  return std::any_of(ledger.dataTables.begin(), ledger.dataTables.end(), [](const Grid* grid) {
    for (const int row : Records(*grid))
      if (!IsSavedMarker(Marker(*grid, row))) return true;
    return false;
  });
}

bool HasUnsaved(const Ledger& ledger) {
  return HasUnsavedRows(ledger) || !ledger.typedDetails.empty();
}

int AddRecord(Ledger& ledger, Grid& grid) {
  const int row = grid.AddItem("", GoesToTheEnd(ledger) ? -1 : grid.FixedRows());
  MarkNew(ledger, grid, row);
  return row;
}

void AddRecords(Ledger& ledger, Grid& grid, std::vector<std::string> records) {
  const bool atEnd = GoesToTheEnd(ledger);
  if (!atEnd) std::ranges::reverse(records);
  const int first = atEnd ? grid.Rows() : grid.FixedRows();
  if (records.empty() || !grid.InsertRecords(first, records)) return;
  const int last = first + static_cast<int>(records.size()) - 1;
  grid.SetCellColour(CellSetting::flexcpBackColor, {first, kMarkerCol, last, kMarkerCol},
                     NewMarker(ledger));
}

int NextId(const Grid& grid) {
  const int col = grid.ColIndex("ID");
  int largest = 0;
  for (const int row : Records(grid)) {
    const int id = ValInt(grid.TextMatrix(row, col));
    if (id < std::numeric_limits<int>::max()) largest = std::max(largest, id);
  }
  return largest + 1;
}

}  // namespace lm
