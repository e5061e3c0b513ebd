// All that a grid shows of a row, its headings too, as JSON.
#pragma once

#include "cli/terminal.h"
#include "core/grid.h"

namespace lm {

// {"row":2,"fixed":true,...,"cells":[{"col":1,"text":"raw","shown":"as displayed",...}]}; what does
// not apply is left out, and so are cells with nothing set.
Json RowOfCells(const Grid& grid, int row);

}  // namespace lm
