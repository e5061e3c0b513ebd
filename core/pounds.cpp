#include "core/pounds.h"

#include "core/text.h"

namespace lm {

Double PoundsOf(std::string_view cell) { return Val(RemoveAny(cell, ",")); }
Single SingleOf(std::string_view cell) { return static_cast<Single>(PoundsOf(cell)); }
Currency CurrencyOf(std::string_view cell) { return Currency::From(PoundsOf(cell)); }

}  // namespace lm
