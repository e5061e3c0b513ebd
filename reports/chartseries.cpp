#include "reports/chartseries.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/text.h"
#include "reports/standardreport.h"

namespace lm {
namespace {

constexpr std::string_view kOthers = "Others";
constexpr int kCaptions = 1;
constexpr int kMinutesAnHour = 60;
constexpr double kMostValue = 1e12;  // sums of so many stay exact enough to draw

// A pie shows its largest parts, and further ones that are no slivers.
constexpr std::size_t kPieParts = 8;
constexpr double kSmallPart = 0.03;
constexpr std::size_t kMostPieParts = 31;  // the days of a month

// A practice, or what stands in its place in the matrix, with a value for each period.
struct Column {
  std::string name;
  std::vector<double> values;
  double whole = 0;  // the matrix's own total or average
};

struct Matrix {
  std::vector<std::string> periods;
  std::vector<Column> columns;
  ChartFigures figures = ChartFigures::Money;
  bool averages = false;
  bool gathered = false;  // the last column is what was gathered
};

double Sum(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

bool IsZero(double value) { return value == 0; }

double Size(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0,
                         [](double sum, double value) { return sum + std::abs(value); });
}

ChartFigures FiguresOf(const Grid& report) {
  for (int row = report.FixedRows(); row < report.Rows(); ++row)
    for (int col = report.FixedCols(); col < report.Cols(); ++col)
      if (report.TextMatrix(row, col).find(':') != std::string::npos) return ChartFigures::Hours;
  return report.ColFormat(report.FixedCols()) == "#" ? ChartFigures::Count : ChartFigures::Money;
}

Matrix ReadMatrix(const Grid& report) {
  Matrix matrix;
  const int firstRow = report.FixedRows(), totalRow = report.Rows() - 1;
  const int firstCol = report.FixedCols(), totalCol = report.Cols() - 1;
  if (totalRow <= firstRow || totalCol <= firstCol || firstRow <= kCaptions) return matrix;
  matrix.figures = FiguresOf(report);
  matrix.averages = report.TextMatrix(totalRow, 0) == "AVG";
  for (int col = firstCol; col < totalCol; ++col)
    matrix.columns.push_back(
        {report.TextMatrix(kCaptions, col), {}, ChartValue(report.TextMatrix(totalRow, col))});
  for (int row = firstRow; row < totalRow; ++row) {
    std::vector<double> values;
    for (int col = firstCol; col < totalCol; ++col)
      values.push_back(ChartValue(report.TextMatrix(row, col)));
    if (report.RowHeight(row) == kReportSliver && std::ranges::all_of(values, IsZero)) continue;
    matrix.periods.push_back(report.TextMatrix(row, 0));
    for (std::size_t i = 0; i < values.size(); ++i) matrix.columns[i].values.push_back(values[i]);
  }
  std::erase_if(matrix.columns,
                [](const Column& column) { return std::ranges::all_of(column.values, IsZero); });
  return matrix;
}

// Their sum; of averages, the mean of those that there are.
double Together(const std::vector<double>& values, bool averages) {
  const auto filled = values.size() - static_cast<std::size_t>(std::ranges::count(values, 0.0));
  return averages && filled > 0 ? Sum(values) / static_cast<double>(filled) : Sum(values);
}

// Which of these are to be gathered: true for each that is not among the largest `keep`.
std::vector<bool> BeyondLargest(const std::vector<double>& sizes, std::size_t keep) {
  std::vector<std::size_t> order(sizes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order,
                           [&](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
  std::vector<bool> beyond(sizes.size(), false);
  for (std::size_t i = keep; i < order.size(); ++i) beyond[order[i]] = true;
  return beyond;
}

void GatherPractices(Matrix& matrix) {
  if (matrix.columns.size() <= kMostSeries) return;
  std::vector<double> sizes;
  for (const Column& column : matrix.columns) sizes.push_back(Size(column.values));
  const std::vector<bool> small = BeyondLargest(sizes, kMostSeries - 1);

  Matrix kept = matrix;
  kept.columns.clear();
  std::vector<const Column*> gathered;
  for (std::size_t i = 0; i < small.size(); ++i) {
    if (small[i])
      gathered.push_back(&matrix.columns[i]);
    else
      kept.columns.push_back(matrix.columns[i]);
  }
  Column others{std::string(kOthers), {}, 0};
  std::vector<double> each(gathered.size());
  for (std::size_t period = 0; period < matrix.periods.size(); ++period) {
    std::ranges::transform(gathered, each.begin(),
                           [&](const Column* column) { return column->values[period]; });
    others.values.push_back(Together(each, matrix.averages));
  }
  std::ranges::transform(gathered, each.begin(),
                         [](const Column* column) { return column->whole; });
  others.whole = Together(each, matrix.averages);
  kept.columns.push_back(std::move(others));
  kept.gathered = true;
  matrix = std::move(kept);
}

// The period without its smallest unit: "03 Feb 26" is of "Feb 26", and that of "26".
std::string_view LargerPeriod(std::string_view period) {
  const std::size_t blank = period.find(' ');
  return blank == std::string_view::npos ? period : period.substr(blank + 1);
}

std::string_view YearOf(std::string_view period) { return period.substr(period.rfind(' ') + 1); }

// "26" in full, as a reader of this century takes it.
std::string PeriodName(std::string_view period) {
  const bool isYear = period.size() == 2 && AllDigits(period);
  return (isYear ? (ValInt(period) < 80 ? "20" : "19") : "") + std::string(period);
}

std::string AllPeriods(const Matrix& matrix) {
  const std::string &first = matrix.periods.front(), &last = matrix.periods.back();
  return first == last ? first : first + " to " + last;
}

// A tax year, from April to April, is one.
bool ReachesOverYears(const Matrix& matrix) {
  constexpr Date kLongestYear = 366;
  const auto monthOf = [](std::string_view period) {
    const auto month = MonthOfText(period);
    return month ? month : MonthOfText(LargerPeriod(period));
  };
  const auto first = monthOf(matrix.periods.front()), last = monthOf(matrix.periods.back());
  return first && last && *last - *first > kLongestYear;
}

void SetByDate(const Matrix& matrix, Chart& chart) {
  chart.ofTime = true;
  chart.labels = matrix.periods;
  for (const Column& column : matrix.columns) chart.series.push_back({column.name, column.values});
  if (matrix.gathered) chart.others = static_cast<int>(chart.series.size()) - 1;
}

void SetByPractice(const Matrix& matrix, Chart& chart) {
  for (const Column& column : matrix.columns) chart.labels.push_back(column.name);
  if (matrix.averages) {
    chart.series.push_back({AllPeriods(matrix), {}});
    for (const Column& column : matrix.columns) chart.series.front().values.push_back(column.whole);
    return;
  }
  const bool byYear = ReachesOverYears(matrix);
  std::string_view year;
  for (std::size_t period = 0; period < matrix.periods.size(); ++period) {
    if (chart.series.empty() || (byYear && YearOf(matrix.periods[period]) != year)) {
      year = YearOf(matrix.periods[period]);
      chart.series.push_back({PeriodName(year), std::vector<double>(matrix.columns.size(), 0)});
    }
    for (std::size_t i = 0; i < matrix.columns.size(); ++i)
      chart.series.back().values[i] += matrix.columns[i].values[period];
  }
  if (chart.series.size() == 1) chart.series.front().name = AllPeriods(matrix);
}

struct Part {
  std::string name;
  double value = 0;
};

// Days into months, months into years, as long as there are more parts than a circle can show.
std::vector<Part> OfLargerPeriods(std::vector<Part> parts) {
  while (parts.size() > kMostPieParts) {
    std::vector<Part> larger;
    for (const Part& part : parts) {
      const std::string name(LargerPeriod(part.name));
      if (larger.empty() || larger.back().name != name) larger.push_back({name, 0});
      larger.back().value += part.value;
    }
    if (larger.size() < 2 || larger.size() == parts.size()) break;
    parts = std::move(larger);
  }
  for (Part& part : parts) part.name = PeriodName(part.name);
  return parts;
}

// The small parts as one, where there are two or more of them. A part that gathers already joins.
void GatherParts(std::vector<Part>& parts, bool gathered) {
  std::vector<double> sizes;
  for (const Part& part : parts) sizes.push_back(part.value);
  const double whole = Sum(sizes);
  const std::vector<bool> notLarge = BeyondLargest(sizes, kPieParts);
  const std::vector<bool> tooMany = BeyondLargest(sizes, kMostSeries - 1);
  std::vector<Part> kept;
  Part others{std::string(kOthers), 0};
  std::size_t count = gathered ? 1 : 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool small = tooMany[i] || (notLarge[i] && sizes[i] < kSmallPart * whole);
    const bool isOthers = gathered && i + 1 == parts.size();
    if (small || isOthers) {
      others.value += parts[i].value;
      count += small && !isOthers;
    } else {
      kept.push_back(parts[i]);
    }
  }
  if (!gathered && (count == 0 || (count == 1 && parts.size() <= kMostSeries))) return;
  kept.push_back(std::move(others));
  parts = std::move(kept);
}

void MakePie(const Matrix& matrix, Chart& chart) {
  std::vector<Part> parts;
  bool below = false;
  for (std::size_t label = 0; label < chart.labels.size(); ++label) {
    double value = 0;
    for (const ChartSeries& series : chart.series) value += series.values[label];
    below |= value < 0;
    if (value > 0) parts.push_back({chart.labels[label], value});
  }
  const bool gathered =
      !chart.ofTime && matrix.gathered && !parts.empty() && parts.back().name == kOthers;
  if (chart.ofTime) parts = OfLargerPeriods(std::move(parts));
  const std::size_t before = parts.size();
  GatherParts(parts, gathered);
  chart.others = gathered || parts.size() != before ? static_cast<int>(parts.size()) - 1 : -1;
  chart.labels.clear();
  chart.series.clear();
  if (below) chart.note = "Values below 0 have no place in a pie and are left out.";
  if (parts.empty()) return;
  chart.series.push_back({AllPeriods(matrix), {}});
  for (Part& part : parts) {
    chart.labels.push_back(std::move(part.name));
    chart.series.front().values.push_back(part.value);
  }
}

}  // namespace

int Chart::Entries() const { return static_cast<int>(IsPie() ? labels.size() : series.size()); }

const std::string& Chart::EntryName(int entry) const {
  const auto at = static_cast<std::size_t>(entry);
  return IsPie() ? labels[at] : series[at].name;
}

Chart MakeChart(const Grid& report, ChartChoice choice) {
  Chart chart;
  chart.choice = choice;
  Matrix matrix = ReadMatrix(report);
  chart.figures = matrix.figures;
  if (matrix.columns.empty()) return chart;
  GatherPractices(matrix);
  if (choice.group == ChartGroup::Date)
    SetByDate(matrix, chart);
  else
    SetByPractice(matrix, chart);
  if (chart.IsPie()) MakePie(matrix, chart);
  const bool addsUp = choice.type != ChartType::Columns && choice.type != ChartType::Lines;
  if (matrix.averages && addsUp && chart.note.empty())
    chart.note = "Averages do not add up to a whole: columns and lines show them better.";
  return chart;
}

bool HasChartValues(const Grid& report) { return !ReadMatrix(report).columns.empty(); }

double ChartValue(std::string_view cell) {
  const std::string text = RemoveAny(cell, ",");
  const std::size_t colon = text.find(':');
  double value = Val(text);
  if (colon != std::string::npos) {
    const double minutes = Val(std::string_view(text).substr(colon + 1));
    // The sign is that of the text: "-0:30" is below 0 too.
    const bool negative = Trim(text).starts_with('-');
    value = value * kMinutesAnHour + (negative ? -minutes : minutes);
  }
  return std::isfinite(value) ? std::clamp(value, -kMostValue, kMostValue) : 0;
}

std::string ChartValueText(double value, ChartFigures figures) {
  if (figures == ChartFigures::Money) return Format(value, "0.00");
  if (figures == ChartFigures::Count) {
    const std::string text = Format(value, "#");
    return text.empty() ? "0" : text;
  }
  const double minutes = std::round(std::abs(value));
  const double hours = std::floor(minutes / kMinutesAnHour);
  return (value < 0 && minutes > 0 ? "-" : "") + Format(hours, "0") + ":" +
         Format(minutes - hours * kMinutesAnHour, "00");
}

std::string ShareText(double share) {
  constexpr double kLeast = 0.005;
  return share > 0 && share < kLeast ? "<1%" : Format(share, "0%");
}

double WholeOf(const Chart& chart) {
  return chart.IsPie() && !chart.IsEmpty() ? Sum(chart.series.front().values) : 0;
}

}  // namespace lm
