// The checks of typed dates, times and amounts, for windows and lists alike. Each gives the text to
// store, or nothing after a message. Blanks give "".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

constexpr std::string_view kInvalidDate = "Please enter a valid date.";
constexpr std::string_view kInvalidAmount = "Please enter a valid amount.";
constexpr std::string_view kInvalidRate = "The rate must be blank or a number.";

// dd/mm/yyyy and hh:nn. The message is the field's own, with the parser's reason where that says
// more.
std::optional<std::string> EnterDate(Ledger& ledger, std::string_view typed,
                                     std::string_view fieldMessage = kInvalidDate);
std::optional<std::string> EnterTime(Ledger& ledger, std::string_view typed,
                                     std::string_view fieldMessage);

// An amount in pounds below the ceiling of typed amounts, without commas or signs of pounds. With
// the message "" it is refused without a word.
std::optional<std::string> EnterAmount(Ledger& ledger, std::string_view typed,
                                       std::string_view fieldMessage = kInvalidAmount);

// A rate in a window: any number, with two decimals ("1,000" gives "1000.00"). Signs of pounds do
// not matter.
std::optional<std::string> EnterRate(Ledger& ledger, std::string_view typed);

}  // namespace lm
