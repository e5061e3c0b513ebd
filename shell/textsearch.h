// Searching records by words: all of them must stand somewhere in a record's texts, each anywhere
// in a word and in any case.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/grid.h"

namespace lm {

// One of the words that were typed, in lower case. "form a" and "not sent" are one word.
struct SearchWord {
  std::string text;
  bool state = false;  // "sent", which is looked for neither in "unsent" nor in "not sent"

  bool operator==(const SearchWord&) const = default;
};

// The longest first, each once; none for blanks alone.
std::vector<SearchWord> SearchWords(std::string_view typed);
// The text in lower case.
bool HasWord(std::string_view text, const SearchWord& word);

// What was typed, as a message tells it: in quotes, and a long one cut.
std::string Quoted(std::string_view typed);

// A cell as people may type it. A date: 03/02/2026, 3/2/2026, 2026-02-03, 3 february 2026, tuesday;
// an amount with and without its commas; for what is neither, what the cell shows.
std::string SearchedSpelling(const Grid& grid, int row, int col);

// The searched texts of the records of a table, read once and then searched at each key stroke. It
// does not follow the table.
class TextIndex {
 public:
  using Spelling = std::function<std::string(int row)>;

  // The table outlives the index.
  explicit TextIndex(const Grid& table) : table_(table) {}

  // A column, as its cells are spelt above; nothing for -1.
  void AddCell(int col);
  // What follows from the cell of a column: asked once for all cells that hold the same.
  void AddByCell(int col, Spelling spelling);
  // What is not told by a single cell; asked for each record. What is searched is the expansion of
  // it, if one is given, made once for all that say the same.
  void AddText(Spelling spelling, std::string (*expand)(const std::string& text) = nullptr);

  // The records as they are now.
  void Read();
  // Their rows, in the order of the table. Without any words all of them.
  std::vector<int> Matching(const std::vector<SearchWord>& words) const;
  // The same by their places among the records, from 0: those stay while groups come and go.
  std::vector<std::size_t> PlacesMatching(const std::vector<SearchWord>& words) const;

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  using Numbers = std::unordered_map<std::string, int, TextHash, std::equal_to<>>;
  struct Column {
    int col;
    Spelling spelling;            // null: the cell is searched as it stands
    Numbers known{};              // texts by the cell that they spell
    std::string_view lastCell{};  // of the record before, with its text
    int lastText = 0;
  };
  struct Text {
    Spelling spelling;
    std::string (*expand)(const std::string& text);
    Numbers known{};
  };

  int AddLower(std::string_view text);
  int TextOfCell(Column& column, int row, std::string_view cell);
  int TextOfRecord(Text& text, int row);
  std::string_view TextAt(int number) const;
  std::size_t Width() const { return columns_.size() + extras_.size(); }

  const Grid& table_;
  std::vector<Column> columns_;
  std::vector<Text> extras_;
  std::string text_;                 // all texts, one behind the other
  std::vector<std::size_t> starts_;  // of each text, and the end of the last; 0 is the empty text
  std::vector<int> rows_;
  std::vector<int> numbers_;  // of the texts of each record, Width() of them
};

}  // namespace lm
