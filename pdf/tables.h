// Tables: cells are given from left to right and fill row after row.
//
// - Column widths are user units parted by ";": "30;40;20".
// - A cell takes the font, colour, spacings and box style in force when it is given. Its text is
//   wrapped; flags are those of a text box, 8, 16 and 32 place it in the height of its row.
// - A cell of span n covers n columns, no more than its row has left.
// - A row is drawn when its last column is filled. It is as high as its highest cell, and at least
//   the row height, which TableRowHeight changes for the row being filled and those that follow.
// - borderMask is DrawRect's `borders`, around every cell, in the line colour and width; 0 none.
// - A row that does not fit on the page begins a new one. A row higher than a page runs over its
//   bottom: rows are never parted. Inside an object or a tiling there are no pages to break.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"
#include "pdf/textbox.h"
#include "pdf/texts.h"

namespace lm::pdf {

// "30;40;20" as numbers. Throws Error when one of them is no positive number.
std::vector<double> ColumnWidths(std::string_view text);

class Tables {
 public:
  Tables(Document& document, Graphics& graphics, Texts& texts)
      : document_(document), graphics_(graphics), texts_(texts) {}

  // All throw Error out of order: a table is begun once and ended before the next.
  void Begin(double x, double y, std::string_view columnWidths, double rowHeight, int borderMask);
  void Cell(std::string_view text, int flags, int span);
  void RowHeight(double height);
  // Fills the last row up with empty cells; the cursor goes below the table, to its left edge.
  void End();

  void Forget();
  PageFlow flow;

 private:
  struct TableCell {
    std::string text;
    int flags = 0;
    double x = 0, width = 0;  // user units
    TextState style;
    std::string colour;
  };

  void NeedTable() const;
  double HeightOf(const TableCell& cell);
  void DrawRow();
  void BreakPage(double rowHeight);
  void DrawCell(const TableCell& cell, double height);

  Document& document_;
  Graphics& graphics_;
  Texts& texts_;
  std::vector<double> columns_;  // empty: no table is open
  std::vector<TableCell> row_;
  std::size_t filled_ = 0;  // columns
  double x_ = 0, y_ = 0, rowHeight_ = 0;
  double pageTop_ = 0;  // where the last new page began; a table may begin anywhere
  int borderMask_ = 0;
};

}  // namespace lm::pdf
