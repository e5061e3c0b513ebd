// The command for people who put official blank forms in the place of the stand-ins.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/ledger.h"

namespace lm {

// words: "check", which writes a line for each blank form of the program directory, and a proof of
// each beside it. Returns the exit status: 0, 1 when not all of them can be used, 2 for other
// words.
int RunFormCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output);

}  // namespace lm
