// The windows of the ways in and out, by name.
#pragma once

#include "core/screen.h"

namespace lm {

void AddConnectionWindows(WindowCatalogue& catalogue);

}  // namespace lm
