// The demo month: what a locum's first month in the program looks like, entered through the same
// windows that the doctor uses.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

#include "core/dates.h"

namespace lm {

// The script that enters the month before `now`, in UTF-8.
std::string DemoScript(Date now);

// A line for each file in the directory.
void TellWrittenFiles(const std::filesystem::path& directory, std::ostream& output);

}  // namespace lm
