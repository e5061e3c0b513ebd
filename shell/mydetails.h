// The My Details page, as data: what each of the 21 numbered fields holds and on which tab it
// stands.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/options.h"

namespace lm {

enum class MyDetailsTab { Personal, Professional, Pension };
constexpr std::array<std::string_view, 3> kMyDetailsTabs{"Personal", "Professional", "Pension"};

struct MyDetailSpec {
  MyDetailField field;
  std::string_view caption;
  MyDetailsTab tab;
  std::string_view shape = "";  // A a letter, 9 a digit; "" has no fixed one
  std::string_view hint = "";   // what to look at when the text cannot fit
};

// In the order in which they stand on the page.
extern const std::array<MyDetailSpec, kMyDetailsFields> kMyDetailSpecs;

// What to look at when the text cannot fit the boxes of the pension forms; "" when it can, or when
// the field has no fixed shape.
std::string MyDetailHint(int field, std::string_view text);

// "" for a number outside 0 to 20.
std::string_view MyDetailCaption(int field);

}  // namespace lm
