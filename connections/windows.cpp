#include "connections/windows.h"

namespace lm {

void AddConnectionWindows(WindowCatalogue&) {}

}  // namespace lm
