#include "core/celltexts.h"

#include <algorithm>

namespace lm {

void CellTexts::Set(int index, std::string_view text) {
  const auto i = static_cast<std::size_t>(index);
  Ends();
  while (ends_.size() <= i) {
    ends_.push_back(static_cast<std::uint32_t>(text_.size()));
    text_ += kFieldEnd;
  }
  const std::size_t begin = i == 0 ? 0 : ends_[i - 1] + 1;
  const auto grown = static_cast<std::uint32_t>(text.size() - (ends_[i] - begin));  // may wrap
  text_.replace(begin, ends_[i] - begin, text);
  for (std::size_t k = i; k < ends_.size(); ++k) ends_[k] += grown;
}

bool CellTexts::Assign(std::string_view record, int count) {
  if (std::count(record.begin(), record.end(), kFieldEnd) != count) return false;
  if (!record.empty() && record.back() != kFieldEnd) return false;
  text_ = record;
  ends_.clear();
  return true;
}

void CellTexts::FindEnds() const {
  for (std::size_t at = text_.find(kFieldEnd); at != std::string::npos;
       at = text_.find(kFieldEnd, at + 1))
    ends_.push_back(static_cast<std::uint32_t>(at));
}

}  // namespace lm
