// The picture book of the PDF writer: a document that shows every feature, a page a subject, and
// beside it what one document cannot show at once: encrypted documents and a PDF/A.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/platform.h"

namespace lm {

struct SampleDocument {
  std::string file;
  int pages = 0;
  std::int64_t bytes = 0;
  std::string what;
  std::string userPassword, ownerPassword;  // "" when it is not encrypted
};

// Writes "NAME.pdf", "NAME-protected-40.pdf", "NAME-protected-128.pdf" and "NAME-pdfa.pdf"; on a
// machine without font files to embed the last one has no file, and `what` says so. Throws
// std::runtime_error with the reason of the first failure.
std::vector<SampleDocument> WriteSamples(const std::string& file, ClockPort& clock);

}  // namespace lm
