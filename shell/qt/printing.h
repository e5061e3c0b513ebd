// Lists on paper.
#pragma once

#include <string>

#include "core/grid.h"
#include "core/ledger.h"

class QPagedPaintDevice;
class QWidget;

namespace lm {

struct PrintHeading {
  std::string title;
  std::string period;  // below it: which records of the list; may be empty
};

// Shows the print preview of a list, from which it can be printed, or written as a PDF.
void PrintGrid(const Ledger& ledger, Grid& grid, const PrintHeading& heading, QWidget* parent);

// Paints the list, page after page, its columns as wide as their texts and made to fit the paper.
// Each page has the heading, the captions, the time of printing and its number. Returns the number
// of pages; 0 when the device takes nothing.
int PaintGrid(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const PrintHeading& heading);

}  // namespace lm
