// The tools of a Unix system by which tests look at what the program wrote.
#pragma once

#include <string>

namespace lm::test {

// Runs a command of the shell; its exit status, not 0 when it could not be run. On Windows the
// programs run under Wine and the tools beside it: paths in quotes are told as the tools know them.
int RunTool(const std::string& command);
// What it writes to its standard output.
std::string OutputOf(const std::string& command);

}  // namespace lm::test
