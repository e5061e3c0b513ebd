#include "reports/chartseries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "tests/reports/chart_desk.h"

namespace lm::test {
namespace {

using Names = std::vector<std::string>;
using Values = std::vector<double>;

constexpr ChartChoice kByDate{ChartType::Columns, ChartGroup::Date};
constexpr ChartChoice kByPractice{ChartType::Columns, ChartGroup::Practice};
constexpr ChartChoice kPieByDate{ChartType::Pie, ChartGroup::Date};
constexpr ChartChoice kPieByPractice{ChartType::Pie, ChartGroup::Practice};

double Total(const Chart& chart) {
  double total = 0;
  for (const ChartSeries& series : chart.series)
    total = std::accumulate(series.values.begin(), series.values.end(), total);
  return total;
}

TEST(ChartSeriesTest, ByDatePracticesAreSeries) {
  const ReportMatrix report({"Elm", "Idle", "Oak"},
                            {{"Jan 26", {"1,200.50", "", "3"}}, {"Feb 26", {"", "0", "-4"}}});
  const Chart chart = MakeChart(report, kByDate);
  EXPECT_EQ(chart.labels, (Names{"Jan 26", "Feb 26"}));
  ASSERT_EQ(chart.series.size(), 2u);  // one without any value is left out
  EXPECT_EQ(chart.series[0].name, "Elm");
  EXPECT_EQ(chart.series[0].values, (Values{1200.5, 0}));
  EXPECT_EQ(chart.series[1].values, (Values{3, -4}));
}

TEST(ChartSeriesTest, ByPracticePeriodsAreAddedUpByYear) {
  const std::vector<ReportRow> rows{
      {"Nov 24", {"1", "5"}}, {"Dec 24", {"2", ""}}, {"Dec 25", {"4", "6"}}};
  Chart chart = MakeChart(ReportMatrix({"Elm", "Oak"}, rows), kByPractice);
  EXPECT_EQ(chart.labels, (Names{"Elm", "Oak"}));
  ASSERT_EQ(chart.series.size(), 2u);
  EXPECT_EQ(chart.series[0].name, "2024");
  EXPECT_EQ(chart.series[0].values, (Values{3, 5}));
  EXPECT_EQ(chart.series[1].name, "2025");
  EXPECT_EQ(chart.series[1].values, (Values{4, 6}));

  // A tax year is one year, though it ends in another.
  chart = MakeChart(ReportMatrix({"Elm", "Oak"}, {{"Apr 25", {"1", "2"}}, {"Apr 26", {"3", ""}}}),
                    kByPractice);
  ASSERT_EQ(chart.series.size(), 1u);
  EXPECT_EQ(chart.series[0].name, "Apr 25 to Apr 26");
  EXPECT_EQ(chart.series[0].values, (Values{4, 2}));

  chart =
      MakeChart(ReportMatrix({"Elm", "Oak"}, {{"31 Dec 98", {"1", "2"}}, {"01 Jan 00", {"3", ""}}}),
                kByPractice);
  ASSERT_EQ(chart.series.size(), 2u);
  EXPECT_EQ(chart.series[0].name + chart.series[1].name, "19982000");
}

TEST(ChartSeriesTest, AveragesOfAPracticeAreTheReportsOwn) {
  const ReportMatrix report({"Elm", "Oak"}, {{"Dec 25", {"80", "70"}}, {"Jan 26", {"90", ""}}},
                            "#,##0.00", "AVG", {"83.75", "70"});
  const Chart chart = MakeChart(report, kByPractice);
  ASSERT_EQ(chart.series.size(), 1u);
  EXPECT_EQ(chart.series[0].values, (Values{83.75, 70}));
  EXPECT_EQ(chart.note, "");
  EXPECT_NE(MakeChart(report, kPieByPractice).note, "");
}

TEST(ChartSeriesTest, ReadsCells) {
  const std::pair<const char*, double> kCells[] = {
      {"36:30", 2190},     {"-8:30", -510}, {"-0:30", -30}, {"0:00", 0},  {"", 0},
      {"1,234.5", 1234.5}, {"-12", -12},    {"abc", 0},     {"1e300", 1}, {":", 0},
      {"1:08", 68},        {" 7", 7}};
  for (const auto& [cell, value] : kCells) EXPECT_EQ(ChartValue(cell), value) << cell;
}

TEST(ChartSeriesTest, FiguresAreToldByTheReport) {
  const std::vector<ReportRow> rows{{"Jan 26", {"2", "3"}}};
  EXPECT_EQ(MakeChart(ReportMatrix({"A", "B"}, rows), kByDate).figures, ChartFigures::Money);
  EXPECT_EQ(MakeChart(ReportMatrix({"A", "B"}, rows, "#"), kByDate).figures, ChartFigures::Count);
  const ReportMatrix hours({"A", "B"}, {{"Jan 26", {"", "1:30"}}}, "");
  EXPECT_EQ(MakeChart(hours, kByDate).figures, ChartFigures::Hours);

  EXPECT_EQ(ChartValueText(12, ChartFigures::Count), "12");
  EXPECT_EQ(ChartValueText(0, ChartFigures::Count), "0");
  EXPECT_EQ(ChartValueText(1234.5, ChartFigures::Money), "1234.50");
  EXPECT_EQ(ChartValueText(2190, ChartFigures::Hours), "36:30");
  EXPECT_EQ(ChartValueText(-30, ChartFigures::Hours), "-0:30");
  EXPECT_EQ(ShareText(0) + ShareText(0.004) + ShareText(0.25) + ShareText(1), "0%<1%25%100%");
}

TEST(ChartSeriesTest, BeyondTwentyPracticesTheSmallestAreOthers) {
  const Chart twenty = MakeChart(ReportMatrix(Numbered("P", 20), Days(2, 20)), kByDate);
  EXPECT_EQ(twenty.series.size(), 20u);
  EXPECT_EQ(twenty.others, -1);
  for (const ChartChoice choice : {kByDate, kByPractice}) {
    const Chart chart = MakeChart(ReportMatrix(Numbered("P", 200), Days(2, 200)), choice);
    const bool byDate = choice.group == ChartGroup::Date;
    EXPECT_EQ((byDate ? chart.series.size() : chart.labels.size()), 20u);
    EXPECT_EQ((byDate ? chart.series[0].name : chart.labels[0]), "P 182");
    EXPECT_EQ((byDate ? chart.series[19].name : chart.labels[19]), "Others");
    EXPECT_EQ(Total(chart), 2 * 200 * 201 / 2);
  }
}

TEST(ChartSeriesTest, OthersOfAveragesAreAnAverage) {
  std::vector<std::string> cells(22, "50");
  cells[20] = "20";
  cells[21] = "";  // has none, and counts not
  cells[3] = "10";
  const ReportMatrix report(Numbered("P", 22),
                            {{"Jan 26", cells}, {"Feb 26", std::vector<std::string>(22, "50")}},
                            "#,##0.00", "AVG", cells);
  const Chart chart = MakeChart(report, kByDate);
  ASSERT_EQ(chart.series.size(), 20u);
  EXPECT_EQ(chart.series[19].name, "Others");
  EXPECT_EQ(chart.series[19].values[0], 15);
}

TEST(ChartSeriesTest, SliversOfNothingAreLeftOut) {
  ReportMatrix report({"A"}, {{"Jan 26", {"1"}}, {"Feb 26", {"0"}}, {"Mar 26", {"2"}}});
  EXPECT_EQ(MakeChart(report, kByDate).labels.size(), 3u);
  report.grid.SetRowHeight(3, 15);
  EXPECT_EQ(MakeChart(report, kByDate).labels, (Names{"Jan 26", "Mar 26"}));
  report.grid.SetTextMatrix(3, 1, "5");  // what is no nothing stays
  EXPECT_EQ(MakeChart(report, kByDate).labels.size(), 3u);
}

TEST(ChartSeriesTest, APieGathersItsSmallParts) {
  std::vector<std::string> cells{"500", "300"};
  for (int i = 0; i < 10; ++i) cells.push_back("10");
  const Chart chart =
      MakeChart(ReportMatrix(Numbered("P", 12), {{"Jan 26", cells}}), kPieByPractice);
  ASSERT_EQ(chart.labels.size(), 9u);  // the eight largest, and four that are no slice
  EXPECT_EQ(chart.labels.back(), "Others");
  EXPECT_EQ(chart.others, 8);
  EXPECT_EQ(chart.series[0].values.back(), 40);
  EXPECT_EQ(Total(chart), WholeOf(chart));
  EXPECT_EQ(Total(chart), 900);

  const Chart many = MakeChart(ReportMatrix(Numbered("P", 200), Days(1, 200)), kPieByPractice);
  EXPECT_EQ(std::ranges::count(many.labels, "Others"), 1);
  EXPECT_EQ(Total(many), 200 * 201 / 2);
}

TEST(ChartSeriesTest, APieOfManyDaysIsOfMonthsAndYears) {
  const ReportMatrix month({"A", "B"}, Days(26, 2));
  EXPECT_EQ(MakeChart(month, kPieByDate).others, -1 + 20);  // all days, but the last few in one
  const Chart months = MakeChart(ReportMatrix({"A", "B"}, Days(59, 2)), kPieByDate);
  EXPECT_EQ(months.labels, (Names{"Feb 26", "Mar 26", "Apr 26"}));
  EXPECT_EQ(months.series[0].values, (Values{26 * 3, 31 * 3, 2 * 3}));
  const Chart years = MakeChart(ReportMatrix({"A"}, Days(3659, 1)), kPieByDate);
  EXPECT_EQ(years.labels.front(), "2026");
  EXPECT_EQ(Total(years), 3659);
}

TEST(ChartSeriesTest, APieHasNoPlaceForLessThanNothing) {
  const ReportMatrix report({"A", "B"}, {{"Jan 26", {"5", "-3"}}});
  const Chart chart = MakeChart(report, kPieByPractice);
  EXPECT_EQ(chart.labels, (Names{"A"}));
  EXPECT_NE(chart.note, "");
  EXPECT_TRUE(MakeChart(ReportMatrix({"A"}, {{"Jan 26", {"-3"}}}), kPieByPractice).IsEmpty());
}

TEST(ChartSeriesTest, ReportsWithoutValues) {
  const Grid blank("fgReports");
  EXPECT_FALSE(HasChartValues(blank));
  EXPECT_FALSE(HasChartValues(ReportMatrix({"A"}, {})));
  EXPECT_FALSE(HasChartValues(ReportMatrix({}, {{"Jan 26", {}}})));
  EXPECT_FALSE(HasChartValues(ReportMatrix({"A", "B"}, {{"Jan 26", {"", "0:00"}}})));
  EXPECT_TRUE(HasChartValues(ReportMatrix({"A"}, {{"Jan 26", {"-1"}}})));
  for (const ChartChoice choice : {kByDate, kByPractice, kPieByDate})
    EXPECT_TRUE(MakeChart(blank, choice).IsEmpty());
}

}  // namespace
}  // namespace lm::test
