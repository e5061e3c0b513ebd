// Practices: the places the locum works for. Everything else refers to one by its ID.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// A cell of the practice with this ID. Empty for an unknown or empty ID and for an unknown key.
// A pass over the practices: inside a loop over another table use fgPractices.RowsBy("ID").
std::string PracticeCell(const Ledger& ledger, std::string_view id, std::string_view key);
std::string PracticeName(const Ledger& ledger, std::string_view id);

// The name without the characters that no file name takes: : / \ ? * < > " |
std::string NameForFile(std::string_view name);

// True for the columns of hourly rates: RATE_NORMAL, RATE_OOHS ...
bool IsRateColumn(std::string_view key);

// Return miles as they go into MILEAGE: trimmed, blank or a number that Val reads whole ("1,000"
// gives "1000"). Empty when the text is neither.
std::optional<std::string> MileageText(std::string_view typed);

// Asks and removes the practice; false after its message when sessions or pension payments refer
// to it, when there is no such practice, or when the user thought better of it.
bool DeletePractice(Ledger& ledger, std::string_view id);

}  // namespace lm
