// Amounts as they are read out of cells, in the kind that a rule names. Thousands commas are left
// out, since a total may be stored with them; else as Val reads, so that what is no number is 0.
// The rules of a session's own row read with Val itself.
#pragma once

#include <string_view>

#include "core/numbers.h"

namespace lm {

Double PoundsOf(std::string_view cell);
Single SingleOf(std::string_view cell);
Currency CurrencyOf(std::string_view cell);

}  // namespace lm
