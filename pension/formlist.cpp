#include "pension/formlist.h"

#include "records/sessionlines.h"
#include "records/windows.h"

namespace lm {
namespace {

constexpr ColumnSpec kSessionColumns[] = {
    SessionColumn("ID"),     SessionColumn("SDATE"),           SessionColumn("STIME"),
    SessionColumn("EDATE"),  SessionColumn("ETIME"),           SessionColumn("RATE"),
    SessionColumn("EXTRAS"), SessionColumn("EMPLOYERCONTRIB"), SessionColumn("EXPENSES"),
    SessionColumn("TOTAL"),  SessionColumn("FORMS"),
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
  MakeSessionLines(list, kSessionTable, ledger.fgSessions);
}

void SessionOpener::Opened(int row) {
  const std::string id = list_.TextMatrix(row, "ID");
  if (row < list_.FixedRows() || id.empty()) return;
  OpenSession(ledger_, id);
  closed_();
}

}  // namespace lm
