// The cells of one row, in one text: a row of a large table is one block of memory, and stands
// there as it stands in the data file, each cell ended by a character that no cell may hold. A cell
// is found by its ends, which for the few dozen columns of a table is quicker than a block each.
#pragma once

#include <string>
#include <string_view>

namespace lm {

// Characters that part the stored files; no cell may hold them.
constexpr char kSectionEnd = 29;
constexpr char kRecordEnd = 30;
constexpr char kFieldEnd = 31;

class CellTexts {
 public:
  int Count() const { return count_; }
  // Cell number `index`, from 0; "" behind the last. Valid until the next change.
  std::string_view At(int index) const;
  void Set(int index, std::string_view text);

  // All cells, each followed by kFieldEnd.
  const std::string& Record() const { return text_; }
  // Takes them from such a record. False, and nothing taken, when it does not hold `count` of them.
  bool Assign(std::string_view record, int count);

 private:
  std::string text_;
  int count_ = 0;
};

}  // namespace lm
