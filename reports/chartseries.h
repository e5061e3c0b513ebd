// What a chart shows, made of a report's matrix: labels along its axis, and series of values.
//
// By date each period is a label and each practice a series. By practice each practice is a label;
// its periods are added up to one series, or, where they reach over more than a year, to one for
// each year. Averages cannot be added up: there the practice's value is the matrix's own average. A
// pie has one part a label, of all series together.
//
// The totals of the matrix are no practice and no period. A practice without any value is left out,
// and so is a period that the matrix shows as a sliver. Beyond kMostSeries practices the smallest
// are gathered as "Others".
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"

namespace lm {

enum class ChartType { Columns, Stacked, Percent, Lines, Areas, Pie };
constexpr std::array<std::string_view, 6> kChartTypeNames{
    "Clustered columns", "Stacked columns", "Stacked to 100 %", "Lines", "Areas", "Pie"};
constexpr int kChartTypes = static_cast<int>(kChartTypeNames.size());

enum class ChartGroup { Practice, Date };

// What the values are: pieces, pounds or minutes.
enum class ChartFigures { Count, Money, Hours };

// What the user chose of a chart.
struct ChartChoice {
  ChartType type = ChartType::Columns;
  ChartGroup group = ChartGroup::Practice;
  bool operator==(const ChartChoice&) const = default;
};

struct ChartSeries {
  std::string name;
  std::vector<double> values;  // one a label
};

struct Chart {
  ChartChoice choice;
  ChartFigures figures = ChartFigures::Money;
  bool ofTime = false;  // the labels are periods, one after the other, and not names
  std::vector<std::string> labels;
  std::vector<ChartSeries> series;  // of a pie one
  int others = -1;                  // the series, or a pie's part, that gathers the small ones
  std::string note;                 // what the reader has to know to read it; mostly ""

  bool IsEmpty() const { return series.empty(); }
  bool IsPie() const { return choice.type == ChartType::Pie; }
  // What the legend names and the colours tell apart: a pie's parts, else the series.
  int Entries() const;
  const std::string& EntryName(int entry) const;
};

constexpr int kMostSeries = 20;

// Of a matrix without values, and a pie of nothing above 0: an empty one.
Chart MakeChart(const Grid& report, ChartChoice choice);

// False for a report that was not run, and for one of zeros.
bool HasChartValues(const Grid& report);

// The number in a cell of a report; "36:30" is in minutes. 0 for what is none.
double ChartValue(std::string_view cell);

// "12", "1234.50" or "36:30".
std::string ChartValueText(double value, ChartFigures figures);
// Of a share, 1 being the whole: "45%", "<1%".
std::string ShareText(double share);
// Of all parts of a pie.
double WholeOf(const Chart& chart);

}  // namespace lm
