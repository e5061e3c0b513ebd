// Amounts as they are typed.
#pragma once

#include <string>
#include <string_view>

namespace lm {

constexpr double kMoneyCeiling = 100000;  // pounds; a typed amount stays below it

// The amount's text without "£", "$" and "+", in pounds: "12.5" gives "12.50", "12.00" gives
// "12", "1,000" stays. Empty when it is not an amount below the ceiling.
std::string CleanMoney(std::string_view text);

// The same without thousands commas, as it goes into a cell or a field, so that no sum ever reads
// a thousand pounds as one.
std::string MoneyCell(std::string_view text);

// The same for an amount that was not typed: there is no ceiling. Empty when it is no amount.
std::string AnyMoneyCell(std::string_view text);

}  // namespace lm
