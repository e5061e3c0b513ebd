// Puts a value back at the end of the block.
#pragma once

#include <utility>

namespace lm::pdf {

template <typename Value>
class Restored {
 public:
  explicit Restored(Value& value) : value_(value), before_(value) {}
  ~Restored() { value_ = std::move(before_); }
  Restored(const Restored&) = delete;
  Restored& operator=(const Restored&) = delete;

 private:
  Value& value_;
  Value before_;
};

}  // namespace lm::pdf
