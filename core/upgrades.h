// Data of earlier versions, brought to today's tables when a file is loaded. Each step looks for
// what it mends and leaves a current file alone; the next save makes it permanent.
#pragma once

#include <cstddef>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// Gives the tables today's shape; `sections` is how many the file held. Tables that it did not have
// yet are made blank.
void UpgradeTables(Ledger& ledger, std::size_t sections);

// Since version 3.2 Forms B and D go by the day on which Forms A and C came back; files of before
// get such a day, after a question. `file` is the loaded file, which is kept as a backup, and
// `version` its own, "" where its header tells none, as in the earliest files. False, with nothing
// changed, when the user would not or the backup could not be written.
bool CorrectReturnDates(Ledger& ledger, std::string_view file, std::string_view version);

}  // namespace lm
