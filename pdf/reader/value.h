// The values that PDF objects are made of. They point into the bytes that they were read from,
// which must outlive them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/reader/tokens.h"

namespace lm::pdf {

enum class ValueKind { Null, Boolean, Number, Name, String, Array, Dictionary, Reference };

struct Value {
  ValueKind kind = ValueKind::Null;
  int object = 0;            // of a reference
  std::string_view text;     // of Boolean to String, as it stands in the file
  std::vector<Value> items;  // of an array; of a dictionary key, value, key, value

  bool IsDictionary() const { return kind == ValueKind::Dictionary; }
  // A dictionary's value as it stands there; null when it is not there or this is no dictionary.
  const Value& At(std::string_view key) const;
  // A name without its "/", with its #xx undone; "" for anything else.
  std::string Name() const;
  bool IsName(std::string_view name) const { return kind == ValueKind::Name && Name() == name; }
  // The bytes of a string; "" for anything else.
  std::string StringBytes() const;
  std::optional<double> Number() const;
  std::optional<long long> Integer() const;  // a number with decimals is cut
};

extern const Value kNullValue;

// Reads one value. `budget` is the number of values that may still be made. Stray words in a
// dictionary are passed over, and where the object ends the containers that it left open end too.
// Throws Error for other damage, for nesting deeper than any honest file has, and when the budget
// is gone.
Value ReadValue(Tokens& tokens, std::size_t& budget);

// A whole number of at most nine digits; nothing for anything else.
std::optional<int> SmallNumber(const Token& token);

}  // namespace lm::pdf
