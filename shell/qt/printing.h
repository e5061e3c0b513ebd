// Lists on paper.
#pragma once

#include <string>

#include "core/grid.h"
#include "core/ledger.h"

class QPagedPaintDevice;
class QWidget;

namespace lm {

// Shows the print preview of a list, from which it can be printed. The title heads every page.
void PrintGrid(const Ledger& ledger, Grid& grid, const std::string& title, QWidget* parent);

// Paints the visible rows and columns, page after page, sized to the page's width. Returns the
// number of pages.
int PaintGrid(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const std::string& title);

}  // namespace lm
