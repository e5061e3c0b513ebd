// The My Details page, as data: what each of the numbered fields holds and on which tab it stands.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/options.h"

namespace lm {

enum class MyDetailsTab { Personal, Professional, Pension, Payment };
constexpr std::array<std::string_view, 4> kMyDetailsTabs{"Personal", "Professional", "Pension",
                                                         "Payment"};

struct MyDetailSpec {
  MyDetailField field;
  std::string_view caption;
  MyDetailsTab tab;
  std::string_view shape = "";  // A a letter, 9 a digit, # a number; "" has no fixed one
  std::string_view hint = "";   // what to look at when the text cannot fit
  std::string_view box = "";    // its text box; "" for txtMyDetails and the number
};

// In the order in which they stand on the page, the user's names among them.
extern const std::array<MyDetailSpec, kMyDetailsFields + 6> kMyDetailSpecs;

// "txtMyDetails5"
std::string MyDetailBox(const MyDetailSpec& spec);

// What to look at when the text cannot fit the boxes of the pension forms; "" when it can, or when
// the field has no fixed shape.
std::string MyDetailHint(const MyDetailSpec& spec, std::string_view text);

}  // namespace lm
