// A list as it goes on paper: which columns, how their texts stand, the rows in sight and the sums
// below them. How wide they are and where a page ends is the painter's.
#pragma once

#include <string>
#include <vector>

#include "core/grid.h"

namespace lm {

// Left, Centre or Right: how a cell's text stands, on the screen as on paper. Figures stand right.
Alignment ShownAlignment(const Grid& grid, int row, int col);

struct PrintedRow {
  std::vector<std::string> texts;  // one for each column
  bool bold = false;               // a group's, or the sums
  int title = -1;                  // the column of its title, which stands left in any column
  std::vector<Alignment> alignments = {};  // one for each column; empty: those of the columns
};

struct PrintTable {
  std::vector<std::string> captions;
  std::vector<Alignment> alignments;
  std::vector<PrintedRow> rows;  // the last is the sums, where there is a column to sum
  bool summed = false;
};

// The visible rows and columns; a column without any text in them is left out. Sums stand under
// amounts, of the records that the list shows or has collapsed into their groups.
PrintTable MakePrintTable(const Grid& grid);

// "03/02/2026 to 24/02/2026": the first and the last day in the first column of days that the list
// shows; "" where there is none.
std::string PrintedDays(const Grid& grid);

}  // namespace lm
