// Whether there is a newer version of the program. It is only told: nothing is installed.
#pragma once

#include "core/ledger.h"

namespace lm {

// Asks the website and shows what it answered, or that it did not.
void CheckForUpdates(Ledger& ledger);

}  // namespace lm
