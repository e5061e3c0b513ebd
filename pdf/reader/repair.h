// Finding the objects of a file whose cross-reference cannot be trusted.
#pragma once

#include "pdf/reader/objects.h"

namespace lm::pdf {

// Scans for "n g obj"; of several the last one counts, as it does in a file with updates. Notes
// every entry and returns the trailer, whose root is null when there is no catalog. Throws Error
// when there are no objects at all.
Trailer RepairByScanning(Objects& objects);

}  // namespace lm::pdf
