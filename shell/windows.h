// The windows of the program, by name.
#pragma once

#include "core/screen.h"

namespace lm {

// All but those of the main window's own.
void AddWindows(WindowCatalogue& catalogue);

class frmMain;

// The windows that work on the main window itself, which is still there whenever one of them is
// opened.
void AddMainWindows(WindowCatalogue& catalogue, frmMain& main);

}  // namespace lm
