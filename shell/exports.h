// Which grids can be exported.
#pragma once

#include <optional>

#include "reports/exports.h"

namespace lm {

// Nothing for a grid that cannot, such as a calendar.
std::optional<ExportedGrid> ExportOf(const Grid& grid);

}  // namespace lm
