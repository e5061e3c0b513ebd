#include "reports/standardreport.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/celltexts.h"
#include "core/format.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "reports/figures.h"

namespace lm {
namespace {

// ---- What can be added up

enum class Taken { All, Nhs, Normal, Ooh, Private };

bool Takes(Taken taken, int type) {
  switch (taken) {
    case Taken::All:
      break;
    case Taken::Nhs:  // everything that is not private, the unpensioned too
      return type != kTypePrivate;
    case Taken::Normal:
      return type == kTypeNormal;
    case Taken::Ooh:
      return type == kTypeOohStandard || type == kTypeOohDeputising;
    case Taken::Private:
      return type == kTypePrivate;
  }
  return true;
}

enum class Adds { One, Days, Pounds };

struct Metric {
  int number;
  Grid Ledger::*table;
  std::string_view date;
  Taken taken;
  Adds adds;
  std::array<std::string_view, 3> keys = {};
  std::string_view less = "";
};

constexpr Metric Sessions(int number, Taken taken, Adds adds,
                          std::array<std::string_view, 3> keys = {}) {
  return {number, &Ledger::fgSessions, "SDATE", taken, adds, keys};
}
constexpr Metric Invoices(int number, std::string_view date, Adds adds, std::string_view key = "",
                          std::string_view less = "") {
  return {number, &Ledger::fgInvoices, date, Taken::All, adds, {key}, less};
}

constexpr int kExpenses = 27;

// The averages leave expenses out where the values of the same sessions count them.
constexpr Metric kMetrics[] = {
    Sessions(0, Taken::All, Adds::One),
    Sessions(2, Taken::Ooh, Adds::One),
    Sessions(3, Taken::Private, Adds::One),
    Sessions(4, Taken::All, Adds::Days),
    Sessions(5, Taken::Ooh, Adds::Days),
    Sessions(6, Taken::Private, Adds::Days),
    Sessions(7, Taken::Nhs, Adds::Pounds, {"RATE", "EXTRAS", "EXPENSES"}),
    Sessions(8, Taken::Normal, Adds::Pounds, {"RATE", "EXTRAS"}),
    Sessions(9, Taken::Ooh, Adds::Pounds, {"RATE", "EXTRAS"}),
    Sessions(10, Taken::Ooh, Adds::Pounds, {"RATE", "EXTRAS", "EXPENSES"}),
    Sessions(11, Taken::Private, Adds::Pounds, {"RATE", "EXTRAS"}),
    Sessions(12, Taken::Private, Adds::Pounds, {"RATE", "EXTRAS", "EXPENSES"}),
    Sessions(13, Taken::All, Adds::Pounds, {"RATE"}),
    Sessions(14, Taken::All, Adds::Pounds, {"EXTRAS"}),
    Sessions(15, Taken::All, Adds::Pounds, {"RATE", "EXTRAS"}),
    Sessions(16, Taken::All, Adds::Pounds, {"EXPENSES"}),
    Sessions(17, Taken::All, Adds::Pounds, {"TOTAL"}),
    Invoices(18, "SDATE", Adds::One),
    Invoices(19, "SDATE", Adds::Pounds, "AMOUNT"),
    Invoices(20, "PAYDATE", Adds::One),
    Invoices(21, "PAYDATE", Adds::Pounds, "AMOUNT"),
    Invoices(22, "PAYDATE", Adds::Pounds, "AMOUNT", "EMPLOYERCONTRIB"),
    {kExpenses, &Ledger::fgExpenses, "DATE", Taken::All, Adds::Pounds, {"AMOUNT"}},
    Sessions(28, Taken::All, Adds::Pounds, {"EMPLOYERCONTRIB"}),
};

const Metric& MetricOf(int number) { return *std::ranges::find(kMetrics, number, &Metric::number); }

constexpr FormKeys kEmployer[] = {{"EMPLOYERCONTRIB", "EMP_CONTRIB", "EMP_CONTRIB"}};
constexpr FormKeys kMine[] = {
    {"AVC", "AVC", "AVC"},
    {"EXTRA_YEARS", "EXTRA_YEARS", "EXTRAYEARS"},
    {"ERRBO", "ERRBO", "ERRBO"},
    {"CONTRIBUTION", "MY_CONTRIB", "MY_CONTRIB"},
    {"ADDITIONAL", "ADDITIONAL", "ADDITIONAL"},
};
constexpr std::span<const FormKeys> OfMine(std::size_t which) {
  return std::span(kMine).subspan(which, 1);
}

using enum ReportFigures;

constexpr StandardReport kReports[] = {
    {"Work Value - All (Rates only)", Money, {13, -1, -1}},
    {"Work Value - All (Extras only)", Money, {14, -1, -1}},
    {"Work Value - All (Rates + Extras)", Money, {13, 14, -1}},
    {"Work Value - All (Expenses only)", Money, {16, -1, -1}},
    {"Work Value - All (Rates + Extras + Expenses)", Money, {13, 14, 16}},
    {"Work Value - NHS (Rates + Extras + Expenses)", Money, {7, -1, -1}},
    {"Work Value - NHS Normal (Rates + Extras)", Money, {8, -1, -1}},
    {"Work Value - NHS OOH (Rates + Extras + Expenses)", Money, {10, -1, -1}},
    {"Work Value - Private (Rates + Extras + Expenses)", Money, {12, -1, -1}},
    {"Number of Sessions - All", Count, {0, -1, -1}},
    {"Number of Sessions - OOH", Count, {2, -1, -1}},
    {"Number of Sessions - Private", Count, {3, -1, -1}},
    {"Number of Hours - All", Hours, {4, -1, -1}},
    {"Number of Hours - OOH", Hours, {5, -1, -1}},
    {"Number of Hours - Private", Hours, {6, -1, -1}},
    {"Average Hourly Rate - All", Money, {13, -1, -1}, 4, true},
    {"Average Hourly Rate - OOH", Money, {9, -1, -1}, 5, true},
    {"Average Hourly Rate - Private", Money, {11, -1, -1}, 6, true},
    {"Average Session Rate - All", Money, {13, -1, -1}, 0},
    {"Average Session Rate - OOH", Money, {9, -1, -1}, 2},
    {"Average Session Rate - Private", Money, {11, -1, -1}, 3},
    {"Average Session Length - All", Hours, {4, -1, -1}, 0},
    {"Average Session Length - OOH", Hours, {5, -1, -1}, 2},
    {"Average Session Length - Private", Hours, {6, -1, -1}, 3},
    {"Invoices- Number Sent", Count, {18, -1, -1}},
    {"Invoices- Value of Those Sent", Money, {19, -1, -1}},
    {"Invoices- Avg Value of Those Sent", Money, {19, -1, -1}, 18},
    {"Invoices- Num of Payments Rcvd", Count, {20, -1, -1}},
    {"Invoices- Money Rcvd (excluding Employer Pension Contrib)", Money, {22, -1, -1}},
    {"Invoices- Money Rcvd (including Employer Pension Contrib)", Money, {21, -1, -1}},
    {"Pension- Employer Contribs per Practice (date worked)", Money, {28, -1, -1}},
    {.name = "Pension- Employer Contribs per Form (sent)", .forms = kEmployer},
    {.name = "Pension- My AVCs", .forms = OfMine(0)},
    {.name = "Pension- My Added Years", .forms = OfMine(1)},
    {.name = "Pension- My ERRBO", .forms = OfMine(2)},
    {.name = "Pension- My Contributions", .forms = OfMine(3)},
    {.name = "Pension- My Total (Contribs + AVCs + Added + Additional + ERRBO)", .forms = kMine},
    {.name = "Mileage - to and from Practices", .metrics = {0, -1, -1}, .mileage = true},
    {"Expenses - non-Sessional", Money, {kExpenses, -1, -1}},
};

// ---- The matrix while it is worked out

// The rows of the periods and the columns of the practices, and behind them the totals.
class Matrix {
 public:
  Matrix(int rows, int cols)
      : rows_(rows), cols_(cols), cells_(static_cast<std::size_t>((rows + 1) * (cols + 1))) {}

  struct Cell {
    Double value = 0;
    bool filled = false;  // an empty cell reads as 0
  };
  int Rows() const { return rows_; }  // without the totals
  int Cols() const { return cols_; }
  Cell& At(int row, int col) { return cells_[Place(row, col)]; }
  const Cell& At(int row, int col) const { return cells_[Place(row, col)]; }

  void Add(int row, int col, Double value) {
    Cell& cell = At(row, col);
    cell = {AsKept(cell.value + value), true};
  }

  // The totals of the columns count that of the rows too.
  void Total() {
    for (int row = 0; row < rows_; ++row) {
      Double sum = 0;
      for (int col = 0; col < cols_; ++col) sum += At(row, col).value;
      At(row, cols_) = {AsKept(sum), true};
    }
    for (int col = 0; col <= cols_; ++col) {
      Double sum = 0;
      for (int row = 0; row < rows_; ++row) sum += At(row, col).value;
      At(rows_, col) = {AsKept(sum), true};
    }
  }

  // Each cell of `over` that counts something becomes its share of this one, the totals too: the
  // average of a total is that of its records and not that of its cells.
  Matrix DividedBy(Matrix over, bool hourly) const {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      Cell& cell = over.cells_[i];
      if (cell.filled && cell.value != 0)
        cell.value = AsKept(cells_[i].value / cell.value / (hourly ? 24 : 1));
    }
    return over;
  }

 private:
  std::size_t Place(int row, int col) const {
    return static_cast<std::size_t>(row * (cols_ + 1) + col);
  }

  int rows_, cols_;
  std::vector<Cell> cells_;
};

int MonthNumber(Date day) {
  const CivilDate civil = ToCivilDate(day);
  return civil.year * 12 + civil.month - 1;
}

// The rows of a report.
class Periods {
 public:
  explicit Periods(const ReportRequest& request) : days_(request.days), byDay_(request.byDay) {
    first_ = byDay_ ? static_cast<int>(days_.first) : MonthNumber(days_.first);
  }
  int Count() const { return NumberOf(days_.last) - first_ + 1; }
  // -1 for a date outside the days of the report, and for none.
  int RowOf(std::string_view cell) const {
    const auto day = CellDate(cell);
    return days_.Has(day) ? NumberOf(*day) - first_ : -1;
  }
  std::string Text(int row) const {
    return byDay_ ? FormatDate(first_ + row, "dd mmm yy")
                  : FormatDate(DateSerial(0, first_ + row + 1, 1), "mmm yy");
  }

 private:
  int NumberOf(Date day) const { return byDay_ ? static_cast<int>(day) : MonthNumber(day); }

  DateRange days_;
  bool byDay_;
  int first_;
};

class Run {
 public:
  Run(const Ledger& ledger, const ReportRequest& request)
      : ledger_(ledger),
        report_(kReports[static_cast<std::size_t>(request.report)]),
        periods_(request) {
    if (!report_.forms.empty())
      columns_ = {{"", "Form B"}, {"", "Form D"}, {"", "Form SOLO"}};
    else if (report_.metrics[0] == kExpenses)
      columns_ = {{"", "Expense"}};
    else
      ReadPractices();
  }

  void Fill(Grid& grid) {
    Matrix figures = Figures();
    Lay(grid);
    Write(figures, grid);
  }

 private:
  struct Column {
    std::string id, name;
  };
  // A record that counts, and its cell.
  struct Placed {
    int record, row, col;
  };

  void ReadPractices() {
    const Grid& practices = ledger_.fgPractices;
    const int id = practices.ColIndex("ID"), name = practices.ColIndex("NAME");
    for (const int row : Records(practices)) {
      colOfPractice_.try_emplace(practices.TextMatrix(row, id), static_cast<int>(columns_.size()));
      columns_.push_back({practices.TextMatrix(row, id), practices.TextMatrix(row, name)});
    }
  }

  Matrix Empty() const { return {periods_.Count(), static_cast<int>(columns_.size())}; }

  Matrix Figures() {
    Matrix sums = Empty();
    for (const FormKeys& keys : report_.forms) AddForms(keys, sums);
    for (const int metric : report_.metrics)
      if (metric >= 0) AddMetric(MetricOf(metric), sums);
    if (report_.mileage) CountMiles(sums);
    sums.Total();
    if (!report_.IsAverage()) return sums;
    Matrix over = Empty();
    AddMetric(MetricOf(report_.over), over);
    over.Total();
    return sums.DividedBy(std::move(over), report_.hourly);
  }

  // Records without a practice, and of one that is gone, have no column.
  int ColumnOf(const Grid& table, int row, int practiceCol) const {
    if (report_.metrics[0] == kExpenses) return 0;
    const std::string practice = table.TextMatrix(row, practiceCol);
    if (practice.empty() || practice == "-1") return -1;
    const auto found = colOfPractice_.find(practice);
    return found == colOfPractice_.end() ? -1 : found->second;
  }

  // A report that adds several metrics of one table finds its records once.
  const std::vector<Placed>& PlacesOf(const Metric& metric) {
    if (placedTable_ == metric.table && placedDate_ == metric.date) return placed_;
    placedTable_ = metric.table;
    placedDate_ = metric.date;
    placed_.clear();
    const Grid& table = ledger_.*metric.table;
    const int date = table.ColIndex(metric.date), practice = table.FindCol("PRACTICE");
    for (const int record : Records(table)) {
      const int row = periods_.RowOf(table.TextMatrix(record, date));
      const int col = row < 0 ? -1 : ColumnOf(table, record, practice);
      if (col >= 0) placed_.push_back({record, row, col});
    }
    return placed_;
  }

  void AddMetric(const Metric& metric, Matrix& sums) {
    const Grid& table = ledger_.*metric.table;
    const int type = metric.taken == Taken::All ? -1 : table.ColIndex("SESS_TYPE");
    const auto value = ValueOf(metric, table);
    for (const Placed& each : PlacesOf(metric))
      if (type < 0 || Takes(metric.taken, ValInt(table.TextMatrix(each.record, type))))
        sums.Add(each.row, each.col, value(each.record));
  }

  static std::function<Double(int record)> ValueOf(const Metric& metric, const Grid& table) {
    switch (metric.adds) {
      case Adds::One:
        break;
      case Adds::Days:
        return [hours = SessionHours(table)](int record) { return hours.Days(record).value_or(0); };
      case Adds::Pounds: {
        std::vector<int> cols;
        for (const std::string_view key : metric.keys)
          if (!key.empty()) cols.push_back(table.ColIndex(key));
        const int less = metric.less.empty() ? -1 : table.ColIndex(metric.less);
        return [&table, cols, less](int record) {
          Double pounds = 0;
          for (const int col : cols) pounds += PoundsOf(table.TextMatrix(record, col));
          return less < 0 ? pounds : pounds - PoundsOf(table.TextMatrix(record, less));
        };
      }
    }
    return [](int) { return 1.0; };
  }

  void AddForms(const FormKeys& keys, Matrix& sums) const {
    const std::pair<const Grid*, std::string_view> forms[] = {{&ledger_.fgPensionB, keys.b},
                                                              {&ledger_.fgPensionD, keys.d},
                                                              {&ledger_.fgPensionSolo, keys.solo}};
    for (int col = 0; col < 3; ++col) {
      const auto& [table, key] = forms[col];
      const int month = table->ColIndex("MONTH"), value = table->FindCol(key);
      for (const int record : Records(*table))
        if (const int row = periods_.RowOf(table->TextMatrix(record, month)); row >= 0)
          sums.Add(row, col, PoundsOf(table->TextMatrix(record, value)));
    }
  }

  // A practice whose way is not told has no figure, not one of 0 miles.
  void CountMiles(Matrix& sums) const {
    const Grid& practices = ledger_.fgPractices;
    const int mileage = practices.ColIndex("MILEAGE");
    int col = 0;
    for (const int practice : Records(practices)) {
      const Double miles = PoundsOf(practices.TextMatrix(practice, mileage));
      for (int row = 0; row < sums.Rows(); ++row) {
        Matrix::Cell& cell = sums.At(row, col);
        if (cell.value > 0)
          cell = miles > 0 ? Matrix::Cell{AsKept(cell.value * miles), true} : Matrix::Cell{};
      }
      ++col;
    }
  }

  void Lay(Grid& grid) const {
    constexpr int kCaptionRow = 1;
    // Of many practices more are in sight where their names take several lines.
    constexpr std::size_t kMany = 7;
    constexpr int kNarrow = 1300, kFitting = -1;  // twips
    const std::string heading = report_.IsAverage() ? "AVG" : "TOTAL";
    const int total = static_cast<int>(columns_.size()) + 1;
    grid.SetRows(0);
    grid.SetCols(0);
    grid.SetCols(total + 1);
    grid.SetRows(2);
    grid.SetFixedRows(2);
    grid.SetFixedCols(1);
    grid.SetRowHidden(0, true);
    grid.SetRowHeight(kCaptionRow, 320);
    grid.SetColAlignment(0, Alignment::Left);
    for (int col = 1; col < total; ++col) {
      const Column& column = columns_[static_cast<std::size_t>(col - 1)];
      grid.SetTextMatrix(0, col, column.id);
      grid.SetTextMatrix(kCaptionRow, col, column.name);
    }
    grid.SetTextMatrix(kCaptionRow, total, heading);
    for (int col = 1; col <= total; ++col) {
      grid.SetColAlignment(col, Alignment::Right);
      grid.SetColWidth(col, columns_.size() > kMany ? kNarrow : kFitting);
      if (report_.figures == Money) grid.SetColFormat(col, "#,##0.00");
      if (report_.figures == Count) grid.SetColFormat(col, "#");
    }
  }

  void Write(const Matrix& figures, Grid& grid) const {
    std::string record;
    for (int row = 0; row <= figures.Rows(); ++row) {
      record = row < figures.Rows() ? periods_.Text(row) : report_.IsAverage() ? "AVG" : "TOTAL";
      record += kFieldEnd;
      for (int col = 0; col <= figures.Cols(); ++col) {
        if (const Matrix::Cell& cell = figures.At(row, col); cell.filled)
          record += report_.figures == Hours ? HoursText(cell.value) : PlainText(cell.value);
        record += kFieldEnd;
      }
      grid.AppendRecord(record);
    }
    const int last = grid.Rows() - 1;
    grid.SetCell(CellSetting::flexcpFontBold, {last, 0, last, grid.Cols() - 1}, "TRUE");
  }

  const Ledger& ledger_;
  const StandardReport& report_;
  Periods periods_;
  std::vector<Column> columns_;
  std::unordered_map<std::string, int> colOfPractice_;
  std::vector<Placed> placed_;
  Grid Ledger::*placedTable_ = nullptr;
  std::string_view placedDate_;
};

// Of a figure as its cell has it, hours too: "0:30" is not 0.
bool IsZero(std::string_view figure) {
  return figure.find_first_of("123456789") == std::string_view::npos;
}

}  // namespace

std::span<const StandardReport> StandardReports() { return kReports; }

std::string_view WhyNoReport(std::string_view start, std::string_view end) {
  constexpr Date kLongest = 3660;  // days
  const auto first = CellDate(start), last = CellDate(end);
  if (!first) return "No Start Date has been entered for the report";
  if (!last) return "No End Date has been entered for the report";
  if (*last < *first) return "Start date must be earlier than the end date";
  if (*last - *first >= kLongest) return "Reports are limited to showing 10 years of data";
  return "";
}

void RunStandardReport(const Ledger& ledger, const ReportRequest& request, Grid& report) {
  const RedrawOff off(report);
  Run(ledger, request).Fill(report);
}

void HideZeros(const Ledger& ledger, Grid& report, bool rows, bool columns) {
  const RedrawOff off(report);
  const int lastRow = report.Rows() - 1, lastCol = report.Cols() - 1;
  const bool ofForms = report.TextMatrix(1, 1) == "Form B" && report.TextMatrix(1, 2) == "Form D";
  for (int col = 1; col < lastCol; ++col) {
    const bool unused = ofForms && col == 2 && !ledger.fgPensionD.HasData();
    report.SetColHidden(col, unused || (columns && IsZero(report.TextMatrix(lastRow, col))));
  }
  for (int row = report.FixedRows(); row < lastRow; ++row)
    report.SetRowHeight(
        row, rows && IsZero(report.TextMatrix(row, lastCol)) ? kReportSliver : kReportRow);
}

}  // namespace lm
