#include "reports/groupingreport.h"

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/celltexts.h"
#include "core/format.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "reports/figures.h"

namespace lm {
namespace {

constexpr std::string_view kCalculated = "CALC";
constexpr std::string_view kMonth = "mmm yy";

struct Calculation {
  std::string_view caption;
  SubtotalFunction function;
  std::string_view format;  // "": that of the column
};

constexpr std::array kCalculations{
    Calculation{"Average", SubtotalFunction::Average, ""},
    Calculation{"Count", SubtotalFunction::Count, "0"},
    Calculation{"Maximum", SubtotalFunction::Maximum, ""},
    Calculation{"Minimum", SubtotalFunction::Minimum, ""},
    Calculation{"Percentage", SubtotalFunction::Percent, "0.00\\%"},
    Calculation{"Sum", SubtotalFunction::Sum, ""},
};

struct ReportColumn {
  std::string_view title;
  std::string_view key = "";
  DataType type = DataType::Text;
  std::string_view format = "";
  bool calculated = false;
  int width = -1;  // twips; -1 fits what it shows
};

constexpr ReportColumn Figure(std::string_view title, std::string_view key,
                              std::string_view format = "0.00") {
  return {title, key, DataType::Money, format, true};
}

constexpr ReportColumn kSessionColumns[] = {
    {"Practice"},
    {"Session Month", "", DataType::Date},
    {"Session Type"},
    {"Invoice Number"},
    {"Session Date", "", DataType::Date},
    {"Hours", "HOURS", DataType::Money, kHoursFormat},
    Figure("Rate", "RATE"),
    Figure("Extras", "EXTRAS"),
    Figure("Expenses", "EXPENSES"),
    {"Employer Contrib.", "EMPLOYERCONTRIB", DataType::Money, "0.00", true, 1200},
    Figure("Total", "TOTAL"),
};

constexpr ReportColumn kInvoiceColumns[] = {
    {"Practice"},
    {"Number"},
    {" Invoice Month", "", DataType::Date},
    {"Sent Month", "", DataType::Date},
    {"Paid Month", "", DataType::Date},
    Figure("Days to Pay", "", "0"),
    Figure("Total", "TOTAL"),
};

// The subtotals, from the outside; the third group looks like the second.
struct Level {
  Colour back;
};
constexpr std::array<Level, kMostGroupingLevels + 1> kLevels{
    {{Rgb(0, 0, 82)}, {Rgb(0, 0, 214)}, {Rgb(255, 102, 0)}, {Rgb(255, 102, 0)}}};
constexpr Colour kWhite = Rgb(255, 255, 255);

void Lay(std::span<const ReportColumn> columns, Grid& report) {
  report.SetRows(0);
  report.SetCols(0);
  report.SetCols(static_cast<int>(columns.size()) + 1);
  report.SetRows(1);
  report.SetFixedRows(1);
  report.SetFixedCols(1);
  report.SetRowHeight(0, 320);
  report.SetColWidth(0, 270);
  report.SetSubtotalPosition(SubtotalPosition::Below);
  int col = 1;
  for (const ReportColumn& column : columns) {
    report.SetTextMatrix(0, col, column.title);
    if (!column.key.empty()) report.SetColKey(col, column.key);
    report.SetColDataType(col, column.type);
    report.SetColFormat(col, column.format);
    report.SetColWidth(col, column.width);
    if (column.type == DataType::Money) report.SetColAlignment(col, Alignment::Right);
    if (column.calculated) report.SetCell(CellSetting::flexcpData, 0, col, kCalculated);
    ++col;
  }
}

// Cells of one table by the IDs of its records.
class Names {
 public:
  Names(const Grid& table, std::string_view key)
      : table_(table), col_(table.ColIndex(key)), rows_(table.RowsBy("ID")) {}
  std::string Of(const std::string& id) const {
    const auto found = rows_.find(id);
    return found == rows_.end() ? "" : table_.TextMatrix(found->second, col_);
  }

 private:
  const Grid& table_;
  int col_;
  std::unordered_map<std::string, int> rows_;
};

std::string MonthOf(std::string_view cell) {
  const auto day = CellDate(cell);
  return day ? FormatDate(*day, kMonth) : "";
}

// A code that is no type has no name.
std::string_view TypeName(std::string_view cell, bool withRetired) {
  const SessionType* type = FindSessionType(ValInt(cell));
  if (!type) return "";
  const std::string_view shown = CaptionOf(*type, withRetired);
  return shown.empty() ? type->caption : shown;
}

std::string InDays(Double hours) { return PlainText(std::round(hours * 1e7) / 1e7); }

// The cells of a record, in the order of the columns.
using CellsOf = std::function<std::vector<std::string>(int row)>;

CellsOf SessionCells(const Ledger& ledger) {
  const Grid& sessions = ledger.fgSessions;
  return [&sessions, practices = Names(ledger.fgPractices, "NAME"),
          invoices = Names(ledger.fgInvoices, "NUMBER"), hours = SessionHours(sessions),
          withRetired = OffersRetiredTypes(ledger)](int row) {
    const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
    const std::string invoice = invoices.Of(cell("INVOICE"));
    return std::vector<std::string>{practices.Of(cell("PRACTICE")),
                                    MonthOf(cell("SDATE")),
                                    std::string(TypeName(cell("SESS_TYPE"), withRetired)),
                                    invoice.empty() ? "<none>" : invoice,
                                    cell("SDATE"),
                                    InDays(hours.Days(row).value_or(0)),
                                    cell("RATE"),
                                    cell("EXTRAS"),
                                    cell("EXPENSES"),
                                    cell("EMPLOYERCONTRIB"),
                                    cell("TOTAL")};
  };
}

CellsOf InvoiceCells(const Ledger& ledger) {
  const Grid& invoices = ledger.fgInvoices;
  return [&invoices, practices = Names(ledger.fgPractices, "NAME")](int row) {
    const auto cell = [&](std::string_view key) { return invoices.TextMatrix(row, key); };
    const auto sent = CellDate(cell("SDATE")), paid = CellDate(cell("PAYDATE"));
    return std::vector<std::string>{practices.Of(cell("PRACTICE")),
                                    cell("NUMBER"),
                                    MonthOf(cell("CDATE")),
                                    MonthOf(cell("SDATE")),
                                    MonthOf(cell("PAYDATE")),
                                    sent && paid ? PlainText(*paid - *sent) : "",
                                    cell("AMOUNT")};
  };
}

// How many columns at the right end are figures.
int CalculatedCols(const Grid& report) {
  int first = report.Cols();
  while (first > report.FixedCols() &&
         report.Cell(CellSetting::flexcpData, 0, first - 1) == kCalculated)
    --first;
  return report.Cols() - first;
}

void AddSubtotals(Grid& report, const Grouping& grouping, int firstFigure) {
  const bool known =
      grouping.calculation >= 0 && grouping.calculation < static_cast<int>(kCalculations.size());
  const Calculation& calculation =
      known ? kCalculations[static_cast<std::size_t>(grouping.calculation)] : kCalculations.back();
  const int first = report.FixedCols();
  for (int level = 0; level <= std::min(grouping.levels, kMostGroupingLevels); ++level) {
    const int group = level == 0 ? -1 : first + level - 1;
    if (group >= report.Cols()) break;
    SubtotalStyle style{.level = level + 1,
                        .format = std::string(calculation.format),
                        .backColour = kLevels[static_cast<std::size_t>(level)].back,
                        .foreColour = kWhite,
                        .matchFrom = level == 0 ? -1 : first};
    for (int col = report.Cols() - 1; col >= firstFigure; --col)
      report.Subtotal(calculation.function, group, col, style);
  }
}

}  // namespace

std::span<const std::string_view> GroupingCalculations() {
  static constexpr auto kCaptions = [] {
    std::array<std::string_view, kCalculations.size()> captions;
    for (std::size_t i = 0; i < captions.size(); ++i) captions[i] = kCalculations[i].caption;
    return captions;
  }();
  return kCaptions;
}

bool FillGroupingReport(const Ledger& ledger, GroupedRecords records, const DateRange& days,
                        Grid& report) {
  const RedrawOff off(report);
  const bool ofSessions = records == GroupedRecords::Sessions;
  const Grid& table = ofSessions ? ledger.fgSessions : ledger.fgInvoices;
  const CellsOf cellsOf = ofSessions ? SessionCells(ledger) : InvoiceCells(ledger);
  const int date = table.ColIndex(ofSessions ? "SDATE" : "CDATE"), id = table.ColIndex("ID");
  Lay(ofSessions ? std::span<const ReportColumn>(kSessionColumns) : kInvoiceColumns, report);
  std::string record;
  for (const int row : Records(table)) {
    if (!days.Has(CellDate(table.TextMatrix(row, date)))) continue;
    record = kFieldEnd;
    for (const std::string& cell : cellsOf(row)) (record += cell) += kFieldEnd;
    report.AppendRecord(record);
    report.SetCell(CellSetting::flexcpData, report.Rows() - 1, 0,
                   (ofSessions ? "S" : "I") + table.TextMatrix(row, id));
  }
  return report.HasData();
}

void Regroup(Grid& report, const Grouping& grouping) {
  if (report.Cols() <= report.FixedCols()) return;
  const RedrawOff off(report);
  const int firstFigure = report.Cols() - CalculatedCols(report);
  report.ClearSubtotals();
  if (firstFigure > report.FixedCols())
    report.Sort(SortSetting::GenericAscending, report.FixedCols(), firstFigure - 1);
  AddSubtotals(report, grouping, firstFigure);
  report.SetMergeCells(MergeSetting::RestrictAll);
  for (int col = report.FixedCols(); col < report.Cols(); ++col)
    report.SetMergeCol(col, col < firstFigure);
}

}  // namespace lm
