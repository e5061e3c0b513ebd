// "ics export FILE" and "ics import FILE|URL": sessions out to a calendar and in from one.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/ledger.h"

namespace lm {

// Words behind "ics"; the ledger is loaded. The exit status: 2 for words that are not understood,
// with the reason in `error`.
int RunIcsCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                  std::ostream& error);

// Words behind "ics export" and "ics import".
int RunIcsExport(const std::vector<std::string>& words, Ledger& ledger, std::ostream& error);
int RunIcsImport(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                 std::ostream& error);

}  // namespace lm
