#include "records/sessionlines.h"

namespace lm {

void MakeSessionLines(Grid& lines, const TableSpec& columns, const Grid& sessions) {
  MakeBlank(lines, columns);
  for (const ColumnSpec& column : columns.columns) {
    const int col = lines.ColIndex(column.key);
    lines.SetColHidden(col, column.hidden);
    lines.SetColDataType(col, column.type);
    lines.SetColFormat(col, column.format.empty()
                                ? sessions.ColFormat(sessions.ColIndex(column.key))
                                : column.format);
  }
}

int AddSessionLine(Grid& lines, const Grid& sessions, int sessionRow) {
  const int added = lines.AddItem("");
  for (int col = lines.FixedCols(); col < lines.Cols(); ++col) {
    const int source = sessions.ColIndex(lines.ColKey(col));
    lines.SetTextMatrix(added, col,
                        sessions.ColComboList(source).empty()
                            ? sessions.TextMatrix(sessionRow, source)
                            : sessions.DisplayText(sessionRow, source));
  }
  return added;
}

}  // namespace lm
