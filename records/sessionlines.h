// Lists in which the windows of documents and forms show sessions: some columns of fgSessions,
// filled once.
#pragma once

#include <string_view>

#include "core/grid.h"
#include "core/tables.h"

namespace lm {

// A column of fgSessions as such lists show it. A key that is none of theirs does not compile.
consteval ColumnSpec SessionColumn(std::string_view key) {
  constexpr ColumnSpec kColumns[] = {
      {"ID", "ID", DataType::Text, "", -1, true},
      {"PRACTICE", "Practice", DataType::Text, "", 2200},
      {"SDATE", "Start Date", DataType::Date, "", 1100},
      {"STIME", "Start Time", DataType::Date, "", 800},
      {"EDATE", "End Date", DataType::Date, "", 1100},
      {"ETIME", "End Time", DataType::Date, "", 800},
      {"SESS_TYPE", "Session\nType", DataType::Text, "", 1300},
      {"RATE", "Rate", DataType::Money, kAmountFormat, 1000},
      {"EXTRAS", "Extras", DataType::Money, kAmountFormat, 900},
      {"EMPLOYERCONTRIB", "Employer\nPen. Contrib.", DataType::Money, kAmountFormat, 1200},
      {"EXPENSES", "Expenses", DataType::Money, kAmountFormat, 1000},
      {"TOTAL", "Total", DataType::Money, kAmountFormat, 1100},
      {"FORMS", "Forms", DataType::Text, "", 650},
  };
  for (const ColumnSpec& column : kColumns)
    if (column.key == key) return column;
  throw key;
}

// A blank list; a column without a format of its own shows as it does in `sessions`.
void MakeSessionLines(Grid& lines, const TableSpec& columns, const Grid& sessions);
// The session's cells at the end; practice and type, which are IDs there, as they show. Returns the
// row.
int AddSessionLine(Grid& lines, const Grid& sessions, int sessionRow);

}  // namespace lm
