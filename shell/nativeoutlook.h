// Outlook on the machine where the program runs.
#pragma once

#include <memory>

#include "core/outlook.h"

namespace lm::native {

// By its automation object on Windows; null on other systems, where there is none.
std::unique_ptr<OutlookPort> MakeOutlook();

}  // namespace lm::native
