// The demo month: what a locum's first month in the program looks like, entered through the same
// windows that the doctor uses.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "core/dates.h"

namespace lm {

// The script that enters the month before `now`, in UTF-8.
std::string DemoScript(Date now);

// A script and the time at which it runs. The steps follow one another in one run.
struct DemoStep {
  Date now;
  std::string script;
};
// The months of so many years up to now: each is worked, billed, pensioned and paid in its time.
std::vector<DemoStep> DemoYears(Date now, int years);

// A line for each file in the directory.
void TellWrittenFiles(const std::filesystem::path& directory, std::ostream& output);

}  // namespace lm
