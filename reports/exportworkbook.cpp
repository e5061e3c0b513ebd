// All records as a workbook in SpreadsheetML, which spreadsheet programs have read since 2003.
#include <algorithm>
#include <array>
#include <utility>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "reports/exportcolumns.h"
#include "reports/exports.h"
#include "reports/xmlescape.h"

namespace lm {
namespace {

struct Sheet {
  std::string_view name;
  Grid Ledger::*table;
  bool ofSessions = false;  // its records belong to sessions, whose practice and date stand first
};

constexpr Sheet kSheets[] = {
    {"Sessions", &Ledger::fgSessions},
    {"Session Extras", &Ledger::fgExtras, true},
    {"Session Expenses", &Ledger::fgSessionExpenses, true},
    {"Practices", &Ledger::fgPractices},
    {"Events", &Ledger::fgEvents},
    {"Expenses", &Ledger::fgExpenses},
    {"Invoices", &Ledger::fgInvoices},
    {"Pension A", &Ledger::fgPensionA},
    {"Pension B", &Ledger::fgPensionB},
    {"Pension C", &Ledger::fgPensionC},
    {"Pension D", &Ledger::fgPensionD},
    {"Pension SOLO", &Ledger::fgPensionSolo},
};

constexpr std::string_view kHead =
    "<?xml version=\"1.0\"?>\r\n"
    "<Workbook xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\"\r\n"
    " xmlns:o=\"urn:schemas-microsoft-com:office:office\"\r\n"
    " xmlns:x=\"urn:schemas-microsoft-com:office:excel\"\r\n"
    " xmlns:ss=\"urn:schemas-microsoft-com:office:spreadsheet\"\r\n"
    " xmlns:html=\"http://www.w3.org/TR/REC-html40\">\r\n";

constexpr std::string_view kStyles =
    " <OfficeDocumentSettings xmlns=\"urn:schemas-microsoft-com:office:office\">\r\n"
    "  <DownloadComponents/>\r\n"
    "  <LocationOfComponents HRef=\"file:///D:\\\"/>\r\n"
    " </OfficeDocumentSettings>\r\n"
    " <ExcelWorkbook xmlns=\"urn:schemas-microsoft-com:office:excel\">\r\n"
    "  <ProtectStructure>False</ProtectStructure>\r\n"
    "  <ProtectWindows>False</ProtectWindows>\r\n"
    " </ExcelWorkbook>\r\n"
    " <Styles>\r\n"
    "  <Style ss:ID=\"Default\" ss:Name=\"Normal\">\r\n"
    "   <Alignment ss:Vertical=\"Bottom\"/>\r\n"
    "  </Style>\r\n"
    "  <Style ss:ID=\"s21\">\r\n"
    "   <NumberFormat ss:Format=\"dd mmm yyyy;@\"/>\r\n"
    "  </Style>\r\n"
    "  <Style ss:ID=\"s22\">\r\n"
    "   <NumberFormat ss:Format=\"h:mm;@\"/>\r\n"
    "  </Style>\r\n"
    "  <Style ss:ID=\"s23\">\r\n"
    "   <NumberFormat ss:Format=\"0\"/>\r\n"
    "  </Style>\r\n"
    " </Styles>\r\n";

// How a cell of a type is written around its value.
struct CellForm {
  std::string_view column;  // what the column's element says
  std::string_view open, close;
};

constexpr std::string_view kEnd = "</Data></Cell>\r\n";
constexpr std::array<CellForm, 6> kForms{{
    {"", "><Data ss:Type=\"String\">", kEnd},
    {"", "><Data ss:Type=\"Boolean\">", kEnd},
    {"", "><Data ss:Type=\"Number\">", kEnd},
    {" ss:StyleID=\"s23\"", "><Data ss:Type=\"Number\">", kEnd},
    {" ss:StyleID=\"s21\"", " ss:StyleID=\"s21\"><Data ss:Type=\"DateTime\">",
     "T00:00:00.000</Data></Cell>\r\n"},
    {" ss:StyleID=\"s22\"", " ss:StyleID=\"s22\"><Data ss:Type=\"DateTime\">1899-12-31T",
     ":00.000</Data></Cell>\r\n"},
}};

const CellForm& FormOf(ColumnType type) { return kForms[static_cast<std::size_t>(type)]; }

class SheetWriter {
 public:
  SheetWriter(const Ledger& ledger, const Sheet& sheet, clsStringBuilder& file)
      : sheet_(sheet),
        table_(ledger.*sheet.table),
        sessions_(ledger.fgSessions),
        columns_(ExportColumns(table_, table_.FixedCols())),
        values_(ledger, table_),
        sessionValues_(ledger, sessions_),
        file_(file) {
    if (!sheet.ofSessions) return;
    leading_ = {ColumnOfKey(sessions_, "PRACTICE"), ColumnOfKey(sessions_, "SDATE")};
    leading_[0].caption = "Practice";
    leading_[1].caption = "Date";
    rowOfSession_ = sessions_.RowsBy("ID");
  }

  void Write(bool selected) {
    file_.Append(" <Worksheet ss:Name=\"").Append(sheet_.name).Append("\">\r\n  <Table>\r\n");
    for (const auto* columns : {&leading_, &columns_})
      for (const ExportColumn& column : *columns)
        file_.Append("   <Column").Append(FormOf(column.type).column).Append("/>\r\n");
    BeginRow();
    for (const auto* columns : {&leading_, &columns_})
      for (const ExportColumn& column : *columns) WriteCell({ColumnType::String, column.caption});
    EndRow();
    RowCells cells(table_);
    for (const int row : Records(table_)) {
      cells.Read(row);
      BeginRow();
      if (sheet_.ofSessions) WriteSession(row);
      for (const ExportColumn& column : columns_)
        WriteCell(values_.Of(column, row, cells.At(column.col)));
      EndRow();
    }
    file_.Append(
        "  </Table>\r\n"
        "  <WorksheetOptions xmlns=\"urn:schemas-microsoft-com:office:excel\">\r\n");
    if (selected) file_.Append("   <Selected/>\r\n");
    file_.Append(
        "   <ProtectObjects>False</ProtectObjects>\r\n"
        "   <ProtectScenarios>False</ProtectScenarios>\r\n"
        "  </WorksheetOptions>\r\n"
        " </Worksheet>\r\n");
  }

 private:
  void BeginRow() {
    line_ = "   <Row>\r\n";
    place_ = 0;
    skipped_ = false;
  }
  void EndRow() { file_.Append(line_ += "   </Row>\r\n"); }

  void WriteSession(int row) {
    const auto found = rowOfSession_.find(table_.TextMatrix(row, "SESSID"));
    for (const ExportColumn& column : leading_)
      WriteCell(found == rowOfSession_.end()
                    ? ExportValue{}
                    : sessionValues_.Of(column, found->second,
                                        sessions_.TextMatrix(found->second, column.col)));
  }

  // An empty cell is left out, and the next one tells its place.
  void WriteCell(const ExportValue& value) {
    ++place_;
    if (value.text.empty()) {
      skipped_ = true;
      return;
    }
    line_ += "    <Cell";
    if (skipped_) line_ += " ss:Index=\"" + std::to_string(place_) + "\"";
    skipped_ = false;
    const CellForm& form = FormOf(value.type);
    line_ += form.open;
    AsciiEscape().Append(line_, value.text);
    line_ += form.close;
  }

  const Sheet& sheet_;
  const Grid& table_;
  const Grid& sessions_;
  std::vector<ExportColumn> leading_, columns_;
  ExportValues values_, sessionValues_;
  std::unordered_map<std::string, int> rowOfSession_;
  clsStringBuilder& file_;
  std::string line_;
  int place_ = 0;
  bool skipped_ = false;
};

std::string Properties(const Ledger& ledger) {
  const std::string version(ProgramVersion()), product(kProductName);
  const Date now = ledger.platform.clock.Now();
  return " <DocumentProperties xmlns=\"urn:schemas-microsoft-com:office:office\">\r\n  <Author>" +
         product + " " + version + "</Author>\r\n  <Created>" + FormatDate(now, "yyyy-mm-dd") +
         "T" + FormatDate(now, "hh:nn:ss") + "Z</Created>\r\n  <Company>" + product +
         "</Company>\r\n  <Version>" + version.substr(0, version.rfind('.')) +
         "</Version>\r\n </DocumentProperties>\r\n";
}

}  // namespace

void WriteWorkbook(const Ledger& ledger, clsStringBuilder& file, const Grid* only) {
  file.Append(kHead).Append(Properties(ledger)).Append(kStyles);
  bool first = true;
  for (const Sheet& sheet : kSheets)
    if (!only || &(ledger.*sheet.table) == only)
      SheetWriter(ledger, sheet, file).Write(std::exchange(first, false));
  file.Append("</Workbook>\r\n");
}

bool HasSheet(const Ledger& ledger, const Grid& table) {
  return std::ranges::any_of(kSheets,
                             [&](const Sheet& sheet) { return &(ledger.*sheet.table) == &table; });
}

}  // namespace lm
