// Columns of ticks in lists: their cells hold "TRUE" or "FALSE" and show a box.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/grid.h"

namespace lm {

// Before the first tick is set.
void MakeTickColumn(Grid& lines, std::string_view key);
void SetTick(Grid& lines, int row, std::string_view key, bool ticked);
bool IsTicked(const Grid& lines, int row, std::string_view key);
// What was typed, in any case; empty for what is neither.
std::optional<std::string> EnterTick(std::string_view typed);

}  // namespace lm
