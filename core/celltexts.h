// The cells of one row, in one text: a row of a large table is one block of memory, and stands
// there as it stands in the data file, each cell ended by a character that no cell may hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

// Characters that part the stored files; no cell may hold them.
constexpr char kSectionEnd = 29;
constexpr char kRecordEnd = 30;
constexpr char kFieldEnd = 31;

class CellTexts {
 public:
  int Count() const { return static_cast<int>(Ends().size()); }
  // Cell number `index`, from 0; "" behind the last. Valid until the next change.
  std::string_view At(int index) const {
    const auto i = static_cast<std::size_t>(index);
    const auto& ends = Ends();
    if (i >= ends.size()) return {};
    const std::size_t begin = i == 0 ? 0 : ends[i - 1] + 1;
    return std::string_view(text_).substr(begin, ends[i] - begin);
  }
  void Set(int index, std::string_view text);

  // All cells, each followed by kFieldEnd.
  const std::string& Record() const { return text_; }
  // Takes them from such a record. False, and nothing taken, when it does not hold `count` of them.
  bool Assign(std::string_view record, int count);

 private:
  const std::vector<std::uint32_t>& Ends() const {
    if (ends_.empty() && !text_.empty()) FindEnds();
    return ends_;
  }
  void FindEnds() const;

  std::string text_;
  mutable std::vector<std::uint32_t> ends_;  // where each cell ends, found at the first look
};

}  // namespace lm
