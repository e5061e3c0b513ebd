#include "pension/formlist.h"

#include "records/windows.h"

namespace lm {
namespace {

constexpr ColumnSpec kSessionColumns[] = {
    {"ID", "ID", DataType::Text, "", -1, true},
    {"SDATE", "Start Date", DataType::Date, "", 1100},
    {"STIME", "Start Time", DataType::Date, "", 800},
    {"EDATE", "End Date", DataType::Date, "", 1100},
    {"ETIME", "End Time", DataType::Date, "", 800},
    {"RATE", "Rate", DataType::Money, kAmountFormat, 1000},
    {"EXTRAS", "Extras", DataType::Money, kAmountFormat, 900},
    {"EMPLOYERCONTRIB", "Employer\nPen. Contrib.", DataType::Money, kAmountFormat, 1200},
    {"EXPENSES", "Expenses", DataType::Money, kAmountFormat, 1000},
    {"TOTAL", "Total", DataType::Money, kAmountFormat, 1100},
    {"FORMS", "Forms", DataType::Text, "", 650},
};
constexpr TableSpec kSessionTable{"fgSessions", kSessionColumns};

}  // namespace

void MakeFormList(Grid& list, const TableSpec& columns, const Ledger& ledger) {
  const Grid& sessions = ledger.fgSessions;
  MakeBlank(list, columns);
  for (const ColumnSpec& column : columns.columns) {
    const int col = list.ColIndex(column.key);
    const bool asSessions = column.format.empty() && column.type == DataType::Date;
    const bool isTime = column.key == "STIME" || column.key == "ETIME";
    list.SetColHidden(col, column.hidden);
    list.SetColDataType(col, column.type);
    list.SetColFormat(col, asSessions ? std::string_view(sessions.ColFormat(
                                            sessions.ColIndex(isTime ? "STIME" : "SDATE")))
                                      : column.format);
  }
}

void MakeBold(Grid& list, int row) {
  list.SetCell(CellSetting::flexcpFontBold, {row, 0, row, list.Cols() - 1}, "TRUE");
}

void MakeSessionList(Grid& list, const Ledger& ledger) {
  MakeFormList(list, kSessionTable, ledger);
}

int AddSession(Grid& list, const Ledger& ledger, int sessionRow) {
  const int added = list.AddItem("");
  for (int col = list.FixedCols(); col < list.Cols(); ++col)
    list.SetTextMatrix(added, col, ledger.fgSessions.TextMatrix(sessionRow, list.ColKey(col)));
  return added;
}

void SessionOpener::Opened(int row) {
  const std::string id = list_.TextMatrix(row, "ID");
  if (row < list_.FixedRows() || id.empty()) return;
  OpenSession(ledger_, id);
  closed_();
}

}  // namespace lm
