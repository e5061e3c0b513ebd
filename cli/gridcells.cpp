#include "cli/gridcells.h"

#include "core/numbers.h"

namespace lm {
namespace {

// As grid controls number them: left, centre, right, each in the middle of its height.
int NumberOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::General:
      break;
    case Alignment::Left:
      return 1;
    case Alignment::Centre:
      return 4;
    case Alignment::Right:
      return 7;
  }
  return -1;
}

void AddText(Json& cell, const char* name, const std::string& text) {
  if (!text.empty()) cell[name] = Utf8(text);
}

void AddColour(Json& cell, const char* name, Colour colour) {
  if (colour != kNoColour) cell[name] = colour;
}

Json OneCell(const Grid& grid, int row, int col) {
  Json cell = Json::object();
  const std::string text = grid.TextMatrix(row, col), shown = grid.DisplayText(row, col);
  AddText(cell, "text", text);
  if (shown != text) cell["shown"] = Utf8(shown);
  AddText(cell, "data", grid.Cell(CellSetting::flexcpData, row, col));
  AddColour(cell, "back", grid.CellColour(CellSetting::flexcpBackColor, row, col));
  AddColour(cell, "fore", grid.CellColour(CellSetting::flexcpForeColor, row, col));
  if (grid.Cell(CellSetting::flexcpFontBold, row, col) == "TRUE") cell["bold"] = true;
  AddText(cell, "picture", grid.Cell(CellSetting::flexcpPicture, row, col));
  const int alignment =
      NumberOf(static_cast<Alignment>(ValInt(grid.Cell(CellSetting::flexcpAlignment, row, col))));
  if (alignment >= 0) cell["align"] = alignment;
  const CellRange block = grid.MergedRange(row, col);
  const bool merged = block.row1 != block.row2 || block.col1 != block.col2;
  if (merged && block.row1 == row && block.col1 == col)
    cell["merge"] = {block.row1, block.col1, block.row2, block.col2};
  if (cell.empty()) return cell;
  if (!grid.ColVisible(col)) cell["hidden"] = true;
  cell["col"] = col;
  return cell;
}

}  // namespace

Json RowOfCells(const Grid& grid, int row) {
  Json line{{"row", row}};
  if (row < grid.FixedRows()) line["fixed"] = true;
  if (!grid.RowVisible(row)) line["hidden"] = true;
  if (const int level = grid.RowOutlineLevel(row)) line["level"] = level;
  if (const int height = grid.RowHeight(row); height >= 0) line["height"] = height;
  AddText(line, "data", grid.DataOfRow(row));
  Json cells = Json::array();
  for (int col = 0; col < grid.Cols(); ++col)
    if (Json cell = OneCell(grid, row, col); !cell.empty()) cells.push_back(std::move(cell));
  line["cells"] = std::move(cells);
  return line;
}

}  // namespace lm
