// What a Grid holds, for the files that implement it. A row keeps its cells by slot and a column
// knows its slot, so moving a column touches no row.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/celltexts.h"
#include "core/grid.h"

namespace lm {

struct Grid::Properties {
  Colour backColour = kNoColour;
  Colour foreColour = kNoColour;
  std::optional<bool> bold;
  std::optional<bool> checked;
  Alignment alignment = Alignment::General;
  std::string picture;
  std::string data;
  std::string format;  // of a subtotal's figure, instead of the column's

  bool operator==(const Properties&) const = default;
};

// What Subtotal knows about a row that it made.
struct Grid::GroupRow {
  int groupSlot = -1;  // -1 for the grand total
  int captionSlot = -1;
  std::string value;  // what its first record holds in the group column
  Colour backColour = kNoColour;
  Colour foreColour = kNoColour;
  bool bold = true;
};

struct Grid::RowData {
  CellTexts cells;                                     // by slot
  std::vector<std::pair<int, Properties>> properties;  // by slot, of the cells that have any
  std::unique_ptr<GroupRow> group;
  std::string data;
  int outlineLevel = 0;
  int height = -1;
  bool hidden = false;
  bool collapsed = false;
  bool merge = false;

  std::string_view Text(int slot) const { return cells.At(slot); }
  void SetText(int slot, std::string_view text) { cells.Set(slot, text); }
  const Properties* Find(int slot) const {
    for (const auto& [owner, found] : properties)
      if (owner == slot) return &found;
    return nullptr;
  }
  Colour BackColour(int slot) const {
    const Properties* found = Find(slot);
    return found ? found->backColour : kNoColour;
  }
  template <typename Change>
  void ChangeProperties(int slot, Change change) {
    auto at = std::find_if(properties.begin(), properties.end(),
                           [slot](const auto& entry) { return entry.first == slot; });
    if (at == properties.end()) at = properties.insert(at, {slot, Properties{}});
    change(at->second);
    if (at->second == Properties{}) properties.erase(at);
  }
  void Erase(int slot) {
    if (slot < cells.Count()) cells.Set(slot, "");
    std::erase_if(properties, [slot](const auto& entry) { return entry.first == slot; });
  }
};

// Looked up by a view, without making a string of it.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const {
    return std::hash<std::string_view>()(text);
  }
};
using TextMap = std::unordered_map<std::string, std::string, TextHash, std::equal_to<>>;

struct Grid::Column {
  int slot = 0;
  std::string key;
  int width = -1;
  bool hidden = false;
  bool merge = false;
  bool derived = false;
  std::string format;
  DataType type = DataType::Text;
  Alignment alignment = Alignment::General;
  std::string comboList;
  TextMap comboTexts;  // by id
  bool comboHasIds = false;

  // The list's text for a cell. A list of plain texts offers, and does not limit what is there.
  std::string_view ComboText(std::string_view cell) const {
    const auto found = comboTexts.find(cell);
    if (found != comboTexts.end()) return found->second;
    return comboHasIds ? std::string_view() : cell;
  }
};

inline std::size_t Grid::FirstDataRow() const {
  return std::min(static_cast<std::size_t>(fixedRows_), rows_.size());
}

template <typename Notice>
void Grid::Tell(Notice notice) {
  if (!Redraw()) {
    changedWhileOff_ = true;
    return;
  }
  const std::vector<GridObserver*> told = observers_;
  for (GridObserver* observer : told)
    if (std::ranges::find(observers_, observer) != observers_.end()) notice(*observer);
}

}  // namespace lm
