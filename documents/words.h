// Amounts of money in English words.
#pragma once

#include <string>
#include <string_view>

namespace lm {

// The number of a text of digits in words: "zero", "one thousand two hundred and five". Of nine
// digits or more the leading ones are not looked at. Signs that are no digits have no word.
std::string NumberInWords(std::string_view digits);

// Pounds and pence: "one hundred pounds", "twelve pounds fifty pence"; "" stays "".
std::string MoneyInWords(std::string_view amount);

}  // namespace lm
