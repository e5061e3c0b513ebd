// Sorting: each cell is read once into a key, then the keys are compared.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/dates.h"
#include "core/grid_storage.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {

namespace {

enum class Reading { Text, Number, Moment };

// Empty cells stand first, then those that cannot be read, then the rest.
enum Rank { kEmpty, kDamaged, kReadable };

struct SortKey {
  Rank rank = kEmpty;
  double number = 0;
  std::string text;
};

int Compare(const SortKey& a, const SortKey& b) {
  if (a.rank != b.rank) return a.rank < b.rank ? -1 : 1;
  if (a.number != b.number) return a.number < b.number ? -1 : 1;
  return a.text.compare(b.text);
}

std::optional<double> ReadNumber(std::string_view text, Reading reading) {
  std::optional<double> number;
  if (reading == Reading::Moment) number = CellDateTime(text);
  if (reading == Reading::Moment && !number) number = MonthOfText(text);
  if (reading == Reading::Number && IsNumeric(text)) number = NumericValue(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

SortKey KeyOf(std::string_view text, Reading reading) {
  if (text.empty()) return {};
  if (reading == Reading::Text) return {kReadable, 0, ToUpper(text)};
  if (const auto number = ReadNumber(text, reading)) return {kReadable, *number, ""};
  return {kDamaged, 0, ToUpper(text)};
}

std::vector<SortKey> KeysOf(const std::vector<std::string_view>& texts, Reading reading) {
  std::vector<SortKey> keys;
  keys.reserve(texts.size());
  for (const std::string_view text : texts) keys.push_back(KeyOf(text, reading));
  return keys;
}

Reading ReadingFor(SortSetting setting, DataType type, const std::vector<std::string_view>& texts) {
  switch (setting) {
    case SortSetting::NumericAscending:
    case SortSetting::NumericDescending:
      return Reading::Number;
    case SortSetting::StringNoCaseAscending:
    case SortSetting::StringNoCaseDescending:
      return Reading::Text;
    case SortSetting::GenericAscending:
    case SortSetting::GenericDescending:
      break;
  }
  if (type == DataType::Money) return Reading::Number;
  if (type == DataType::Date) return Reading::Moment;
  const bool allNumbers = std::all_of(texts.begin(), texts.end(), [](std::string_view text) {
    return text.empty() || IsNumeric(text);
  });
  return allNumbers ? Reading::Number : Reading::Text;
}

bool IsDescending(SortSetting setting) {
  return setting == SortSetting::GenericDescending || setting == SortSetting::NumericDescending ||
         setting == SortSetting::StringNoCaseDescending;
}

}  // namespace

void Grid::Sort(SortSetting setting, int col1, int col2) {
  if (!IsCol(col1)) return;
  ClearSubtotals();
  const std::size_t first = FirstDataRow();
  const std::size_t count = rows_.size() - first;

  std::vector<std::vector<SortKey>> keys;
  for (int col = col1; col <= std::min(std::max(col1, col2), Cols() - 1); ++col) {
    const Column& column = ColAt(col);
    std::vector<std::string_view> texts(count);
    for (std::size_t i = 0; i < count; ++i) {
      const std::string_view cell = rows_[first + i]->Text(column.slot);
      texts[i] = column.comboList.empty() ? cell : column.ComboText(cell);
    }
    const Reading reading = ReadingFor(setting, column.type, texts);
    keys.push_back(KeysOf(texts, reading));
    if (!column.comboHasIds) continue;
    for (std::size_t i = 0; i < count; ++i) texts[i] = rows_[first + i]->Text(column.slot);
    keys.push_back(KeysOf(texts, Reading::Number));
  }

  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  const bool descending = IsDescending(setting);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    for (const auto& columnKeys : keys) {
      const int result = Compare(columnKeys[a], columnKeys[b]);
      if (result != 0) return descending ? result > 0 : result < 0;
    }
    return false;
  });

  Rearrange([&] {
    std::vector<std::unique_ptr<RowData>> sorted(count);
    for (std::size_t i = 0; i < count; ++i) sorted[i] = std::move(rows_[first + order[i]]);
    std::move(sorted.begin(), sorted.end(), rows_.begin() + static_cast<std::ptrdiff_t>(first));
  });
}

}  // namespace lm
