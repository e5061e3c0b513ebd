// What the window of options lets pass into an option, by the option's declaration.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/optiontable.h"

namespace lm {

struct CheckedOption {
  std::optional<std::string> text;  // as it is stored; empty: refused
  std::string_view prompt;          // of the refusal; "" where the reason stands alone
  std::string_view reason;
};

// What was typed for an option, or for one entry of a packed option. An option without a check
// takes every text.
CheckedOption CheckOption(const OptionSpec& option, std::string_view typed);

}  // namespace lm
