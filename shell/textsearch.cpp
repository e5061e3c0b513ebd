#include "shell/textsearch.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "core/dates.h"
#include "core/format.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::array kStates = {"paid", "sent", "invoiced", "locked"};
constexpr std::array kFormLetters = {"a", "b", "c", "d", "solo"};

template <typename List>
bool IsOneOf(std::string_view word, const List& list) {
  return std::ranges::find(list, word) != list.end();
}

// What parts words: blanks of any kind, and control characters.
bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\xA0'; }

std::vector<std::string> TypedWords(std::string_view typed) {
  std::vector<std::string> words(1);
  for (const char c : typed) {
    if (!IsBlank(c))
      words.back() += ToLower(c);
    else if (!words.back().empty())
      words.emplace_back();
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

// A letter alone stands in every record, and "sent" in what is not: with the word before it either
// means something else.
bool BelongTogether(std::string_view first, std::string_view second) {
  return (first == "form" && IsOneOf(second, kFormLetters)) ||
         (first == "not" && IsOneOf(second, kStates));
}

bool IsNegated(std::string_view before) {
  return before.ends_with("un") || before.ends_with("not ");
}

std::string SpellDate(Date day) {
  static constexpr std::array kPatterns = {"dd/mm/yyyy", "d/m/yyyy",    "dd/mm/yy",
                                           "yyyy-mm-dd", "d mmmm yyyy", "dddd"};
  const std::string cell = CellText(day);
  std::string text;
  for (const char* pattern : kPatterns) text.append(Format(cell, pattern)) += ' ';
  return text;
}

}  // namespace

std::vector<SearchWord> SearchWords(std::string_view typed) {
  std::vector<SearchWord> words;
  for (const std::string& word : TypedWords(typed)) {
    if (!words.empty() && BelongTogether(words.back().text, word))
      words.back() = {words.back().text + ' ' + word};
    else
      words.push_back({word, IsOneOf(word, kStates)});
  }
  std::ranges::sort(words, [](const SearchWord& a, const SearchWord& b) {
    return a.text.size() != b.text.size() ? a.text.size() > b.text.size() : a.text < b.text;
  });
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

bool HasWord(std::string_view text, const SearchWord& word) {
  for (std::size_t at = text.find(word.text); at != std::string_view::npos;
       at = text.find(word.text, at + 1))
    if (!word.state || !IsNegated(text.substr(0, at))) return true;
  return false;
}

std::string Quoted(std::string_view typed) {
  constexpr std::size_t kMostTold = 40;
  const std::string_view text = Trim(typed);
  const bool all = text.size() <= kMostTold;
  return '"' + std::string(text.substr(0, kMostTold)) + (all ? "" : "...") + '"';
}

std::string SearchedSpelling(const Grid& grid, int row, int col) {
  const std::string cell = grid.TextMatrix(row, col);
  const std::string shown = grid.DisplayText(row, col);
  if (grid.ColDataType(col) == DataType::Date) {
    const auto day = CellDate(cell);
    return day ? SpellDate(*day) + shown : cell + ' ' + shown;
  }
  return grid.ColFormat(col) == kAmountFormat ? shown + ' ' + RemoveAny(shown, ",") : shown;
}

// Texts that show as they stand are often of one record alone: nothing is gained by looking them
// up.
void TextIndex::AddCell(int col) {
  if (col < 0) return;
  const bool plain = table_.ColFormat(col).empty() && table_.ColComboList(col).empty() &&
                     table_.ColDataType(col) == DataType::Text;
  if (plain)
    columns_.push_back({col, nullptr});
  else
    AddByCell(col, [&table = table_, col](int row) { return SearchedSpelling(table, row, col); });
}

void TextIndex::AddByCell(int col, Spelling spelling) {
  if (col >= 0 && col < table_.Cols()) columns_.push_back({col, std::move(spelling)});
}

void TextIndex::AddText(Spelling spelling, std::string (*expand)(const std::string& text)) {
  extras_.push_back({std::move(spelling), expand});
}

int TextIndex::AddLower(std::string_view text) {
  static const std::array<char, 256> kLower = [] {
    std::array<char, 256> lower{};
    for (int c = 0; c < 256; ++c)
      lower[static_cast<std::size_t>(c)] = ToLower(static_cast<char>(c));
    return lower;
  }();
  for (const char c : text) text_ += kLower[static_cast<unsigned char>(c)];
  starts_.push_back(text_.size());
  return static_cast<int>(starts_.size()) - 2;
}

std::string_view TextIndex::TextAt(int number) const {
  const auto at = static_cast<std::size_t>(number);
  return std::string_view(text_).substr(starts_[at], starts_[at + 1] - starts_[at]);
}

int TextIndex::TextOfCell(Column& column, int row, std::string_view cell) {
  if (cell.empty()) return 0;
  if (!column.spelling) return AddLower(cell);
  if (cell == column.lastCell) return column.lastText;
  column.lastCell = cell;
  const auto known = column.known.find(cell);
  if (known != column.known.end()) return column.lastText = known->second;
  column.lastText = AddLower(column.spelling(row));
  column.known.emplace(cell, column.lastText);
  return column.lastText;
}

int TextIndex::TextOfRecord(Text& text, int row) {
  std::string said = text.spelling(row);
  const auto [at, isNew] = text.known.try_emplace(std::move(said), 0);
  if (isNew) at->second = AddLower(text.expand ? text.expand(at->first) : at->first);
  return at->second;
}

void TextIndex::Read() {
  text_.clear();
  starts_ = {0, 0};
  rows_.clear();
  numbers_.clear();
  const auto records = static_cast<std::size_t>(std::max(table_.Rows() - table_.FixedRows(), 0));
  rows_.reserve(records);
  numbers_.reserve(records * Width());
  std::vector<std::string_view> cells;
  for (const int row : Records(table_)) {
    table_.ViewCells(row, cells);
    rows_.push_back(row);
    for (Column& column : columns_)
      numbers_.push_back(TextOfCell(column, row, cells[static_cast<std::size_t>(column.col)]));
    for (Text& text : extras_) numbers_.push_back(TextOfRecord(text, row));
  }
  for (Column& column : columns_) column = {column.col, std::move(column.spelling)};
  for (Text& text : extras_) text.known.clear();
}

// Word by word, each among the records that have those before it: with every word there are fewer.
// A text that many records share is looked at once for a word.
std::vector<std::size_t> TextIndex::PlacesMatching(const std::vector<SearchWord>& words) const {
  std::vector<std::size_t> found(rows_.size());
  std::iota(found.begin(), found.end(), std::size_t{0});
  enum class Has : char { Unknown, No, Yes };
  std::vector<Has> texts;
  for (const SearchWord& word : words) {
    if (found.empty()) break;
    texts.assign(starts_.size(), Has::Unknown);
    texts[0] = Has::No;
    std::erase_if(found, [&](std::size_t record) {
      const auto first = numbers_.begin() + static_cast<std::ptrdiff_t>(record * Width());
      return std::none_of(first, first + static_cast<std::ptrdiff_t>(Width()), [&](int number) {
        Has& has = texts[static_cast<std::size_t>(number)];
        if (has == Has::Unknown) has = HasWord(TextAt(number), word) ? Has::Yes : Has::No;
        return has == Has::Yes;
      });
    });
  }
  return found;
}

std::vector<int> TextIndex::Matching(const std::vector<SearchWord>& words) const {
  std::vector<int> rows;
  for (const std::size_t record : PlacesMatching(words)) rows.push_back(rows_[record]);
  return rows;
}

}  // namespace lm
