// Cross-references: tables, streams, and both in one file; the newest section first, older ones
// through /Prev.
#pragma once

#include "pdf/reader/objects.h"

namespace lm::pdf {

// Notes every entry and returns the trailer. Throws Error for damage.
Trailer ReadCrossReference(Objects& objects);

}  // namespace lm::pdf
