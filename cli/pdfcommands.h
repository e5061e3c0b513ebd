// The PDF commands: what a file holds, whether its pages can be drawn on, and a document that shows
// every feature of the writer.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "core/platform.h"

namespace lm {

// words: "info FILE", "import FILE OUT" or "sample OUT"; results and reasons go to `output` as JSON
// lines. Returns the exit status: 0, 1 when the file could not be read or written, 2 for other
// words.
int RunPdfCommand(const std::vector<std::string>& words, ClockPort& clock, std::ostream& output);

}  // namespace lm
