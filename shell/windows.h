// Every window of the program, by name.
#pragma once

#include "core/screen.h"

namespace lm {

void AddWindows(WindowCatalogue& catalogue);

}  // namespace lm
