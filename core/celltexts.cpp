#include "core/celltexts.h"

#include <algorithm>

namespace lm {

std::string_view CellTexts::At(int index) const {
  if (index >= count_) return {};
  const char* at = text_.data();
  for (; index > 0; --index) {
    while (*at != kFieldEnd) ++at;
    ++at;
  }
  const char* const begin = at;
  while (*at != kFieldEnd) ++at;
  return {begin, at};
}

void CellTexts::Set(int index, std::string_view text) {
  for (; count_ <= index; ++count_) text_ += kFieldEnd;
  const std::string_view cell = At(index);
  text_.replace(static_cast<std::size_t>(cell.data() - text_.data()), cell.size(), text);
}

bool CellTexts::Assign(std::string_view record, int count) {
  if (std::count(record.begin(), record.end(), kFieldEnd) != count) return false;
  if (!record.empty() && record.back() != kFieldEnd) return false;
  text_ = record;
  count_ = count;
  return true;
}

}  // namespace lm
