// One grid as it stands on the screen: comma or pipe separated, or XML.
#include "core/tables.h"
#include "core/text.h"
#include "reports/exports.h"
#include "reports/exportxml.h"
#include "reports/standardreport.h"
#include "reports/xmlescape.h"

namespace lm {
namespace {

bool IsEmptyRow(const Grid& grid, int row) {
  for (int col = 0; col < grid.Cols(); ++col)
    if (!grid.TextMatrix(row, col).empty()) return false;
  return true;
}

bool IsExported(const ExportedGrid& exported, int row) {
  const Grid& grid = *exported.grid;
  if (grid.IsSubtotal(row)) return false;
  const int height = grid.RowHeight(row);
  if (height >= 0 && height <= kReportSliver) return false;
  return exported.allRows ? !IsEmptyRow(grid, row) : grid.RowVisible(row);
}

// A value that would break the line or its fields is wrapped; a reader of pipes takes none.
std::string FieldText(std::string text, char delimiter) {
  text = Replace(Replace(text, "\r\n", "\r"), "\n", "\r");
  if (delimiter != ',' || text.find_first_of(",\"\r") == std::string::npos) return text;
  return "\"" + Replace(text, "\"", "\"\"") + "\"";
}

std::string ShownValue(const Grid& grid, const ExportColumn& column, int row) {
  if (column.type != ColumnType::Boolean) return grid.DisplayText(row, column.col);
  return IsTrueCell(grid.TextMatrix(row, column.col)) ? "TRUE" : "FALSE";
}

void WriteSeparated(const ExportedGrid& exported, const std::vector<ExportColumn>& columns,
                    char delimiter, clsStringBuilder& file) {
  const Grid& grid = *exported.grid;
  std::string line;
  const auto write = [&](auto&& textOf) {
    line.clear();
    for (const ExportColumn& column : columns) {
      if (&column != &columns.front()) line += delimiter;
      line += FieldText(textOf(column), delimiter);
    }
    file.Append(line += "\r\n");
  };
  if (CaptionRow(grid) >= 0) write([](const ExportColumn& column) { return column.caption; });
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (IsExported(exported, row))
      write([&](const ExportColumn& column) { return ShownValue(grid, column, row); });
}

}  // namespace

void WriteGrid(const Ledger& ledger, const ExportedGrid& exported, GridFormat format,
               clsStringBuilder& file) {
  const Grid& grid = *exported.grid;
  std::vector<ExportColumn> columns = ExportColumns(grid, exported.firstCol);
  if (format != GridFormat::Xml)
    return WriteSeparated(exported, columns, format == GridFormat::Csv ? ',' : '|', file);
  // The periods of a report have no caption.
  if (!columns.empty() && columns.front().col == 0 && columns.front().caption.empty() &&
      CaptionRow(grid) >= 0)
    columns.front().tag = "period";
  file.Append("<?xml version=\"1.0\" standalone=\"yes\"?>\r\n<items>\r\n");
  WriteXmlHead(ledger, file);
  XmlRows rows(ledger, grid, std::move(columns), exported.itemTag, AsciiEscape());
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (IsExported(exported, row)) rows.Write(row, file);
  file.Append("</items>\r\n");
}

}  // namespace lm
