// The grouping report: its rows, their order, the subtotals and what moving a column does.
#include "reports/groupingreport.h"

#include "core/options.h"
#include "reports/rowtags.h"
#include "tests/reports/practice_year.h"

namespace lm::test {
namespace {

constexpr DateRange kJanAndFeb{46023, 46081};  // 01/01/2026 to 28/02/2026
constexpr int kSum = 5;

// The rows, with the level of groups in front, one a line.
std::string Text(const Grid& report) {
  std::string text;
  for (int row = report.FixedRows(); row < report.Rows(); ++row)
    text += std::to_string(report.RowOutlineLevel(row)) + RowText(report, row) + "\n";
  return text;
}

TEST(GroupingReport, ListsSessionsByPracticeAndMonth) {
  const PracticeYear year;
  Grid report("fgGroupingReport");
  ASSERT_TRUE(FillGroupingReport(year.ledger, GroupedRecords::Sessions, kJanAndFeb, report));
  EXPECT_EQ(RowText(report, 0),
            "|Practice|Session Month|Session Type|Invoice Number|Session Date|Hours|Rate|Extras|"
            "Expenses|Employer Contrib.|Total");
  Regroup(report, {kSum, 1});
  // The practice that is gone and none at all have no name; a session without a day is not there.
  EXPECT_EQ(Text(report),
            "0||Feb 26|NHS Normal|<none>|16/02/2026|1:00|99.00||||99.00\n"
            "0||Feb 26|NHS Normal|<none>|16/02/2026|1:00|98.00||||98.00\n"
            "2|||||||197.00|0.00|0.00|0.00|197.00\n"
            "0|Old Mill|Jan 26|NHS OOH Deputising|<none>|07/01/2026|12:00|1000.50||||1000.50\n"
            "0|Old Mill|Feb 26|Private|<none>|15/02/2026|1:00|110.00|15.00|3.00||110.00\n"
            "2|Old Mill||||||1110.50|15.00|3.00|0.00|1110.50\n"
            "0|Riverside Surgery|Jan 26|NHS Normal|<none>|06/01/2026|3:30|300.00|20.00|12.40|35.00"
            "|300.00\n"
            "0|Riverside Surgery|Jan 26|NHS OOH|<none>|07/01/2026|8:00|640.00||5.00|"
            "|640.00\n"
            "0|Riverside Surgery|Feb 26|NHS Unpensioned|<none>|16/02/2026|0:00|200.00||||200.00\n"
            "2|Riverside Surgery||||||1140.00|20.00|17.40|35.00|1140.00\n"
            "1|Total||||||2447.50|35.00|20.40|35.00|2447.50\n");
  EXPECT_EQ(report.CellColour(CellSetting::flexcpBackColor, report.Rows() - 1, 3), Rgb(0, 0, 82));
  EXPECT_EQ(report.Cell(CellSetting::flexcpData, 1, 0).substr(0, 1), "S");
}

TEST(GroupingReport, CalculatesEachWay) {
  PracticeYear year;
  Grid& invoices = year.ledger.fgInvoices;
  const auto add = [&](const char* practice, const char* number, const char* sent, const char* paid,
                       const char* amount) {
    year.Add(invoices, {std::string("PRACTICE=") + practice, std::string("NUMBER=") + number,
                        "CDATE=03/01/2026", std::string("SDATE=") + sent,
                        std::string("PAYDATE=") + paid, std::string("AMOUNT=") + amount});
  };
  add("1", "10", "05/01/2026", "15/01/2026", "100");
  add("1", "9", "05/01/2026", "", "200");
  add("2", "8", "07/01/2026", "01/02/2026", "1,300");
  const struct {
    int calculation;
    std::string_view riverside, total;
  } cases[] = {
      {0, "10|150.00", "18|533.33"},           {1, "2|2", "3|3"},
      {2, "10|200.00", "25|1300.00"},          {3, "10|100.00", "10|100.00"},
      {4, "28.57%|18.75%", "100.00%|100.00%"}, {5, "10|300.00", "35|1600.00"},
      {-1, "10|300.00", "35|1600.00"},
  };
  Grid report("fgGroupingReport");
  ASSERT_TRUE(FillGroupingReport(year.ledger, GroupedRecords::Invoices, kJanAndFeb, report));
  for (const auto& each : cases) {
    Regroup(report, {each.calculation, 1});
    EXPECT_EQ(Text(report), "0|Old Mill|8|Jan 26|Jan 26|Feb 26|25|1300.00\n2" + RowText(report, 2) +
                                "\n0|Riverside Surgery|9|Jan 26|Jan 26|||200.00\n"
                                "0|Riverside Surgery|10|Jan 26|Jan 26|Jan 26|10|100.00\n"
                                "2|Riverside Surgery|||||" +
                                std::string(each.riverside) + "\n1|Total|||||" +
                                std::string(each.total) + "\n")
        << each.calculation;
  }
}

TEST(GroupingReport, MovedColumnsAskAnew) {
  const PracticeYear year;
  Grid report("fgGroupingReport");
  FillGroupingReport(year.ledger, GroupedRecords::Sessions, kJanAndFeb, report);
  Regroup(report, {kSum, 2});
  report.SetColPosition(3, 1);  // the type, in front of the practice
  Regroup(report, {kSum, 2});
  EXPECT_EQ(report.RowOutlineLevel(report.Rows() - 1), 1);
  EXPECT_EQ(report.TextMatrix(report.FixedRows(), 1), "NHS Normal");
  // A figure that was moved away is one no more, nor are those on its left.
  report.SetColPosition(report.ColIndex("RATE"), 1);
  Regroup(report, {kSum, 0});
  EXPECT_EQ(report.TextMatrix(report.FixedRows(), 1), "98");
  const int last = report.Rows() - 1;
  EXPECT_EQ(report.TextMatrix(last, 1), "Total");
  EXPECT_EQ(report.DisplayText(last, "TOTAL"), "2447.50");
  report.SetColPosition(report.ColIndex("TOTAL"), 1);
  Regroup(report, {kSum, 3});
  EXPECT_EQ(report.TextMatrix(report.Rows() - 1, 1), "Total");
}

TEST(GroupingReport, MonthsSortByTime) {
  PracticeYear year;
  year.ledger.fgSessions.ClearData();
  for (const char* day : {"05/04/2026", "01/12/2025", "02/02/2026", "09/01/2027"})
    year.Session("1", day, "09:00", "10:00", "1", "1", "", "", "");
  Grid report("fgGroupingReport");
  FillGroupingReport(year.ledger, GroupedRecords::Sessions, {45000, 47000}, report);
  report.SetColPosition(2, 1);
  Regroup(report, {kSum, 0});
  std::string months;
  for (int row = 1; row < report.Rows(); ++row) months += report.TextMatrix(row, 1) + " ";
  EXPECT_EQ(months, "Dec 25 Feb 26 Apr 26 Jan 27 Total ");
}

TEST(GroupingReport, IsEmptyWithoutRecords) {
  const PracticeYear year;
  Grid report("fgGroupingReport");
  EXPECT_FALSE(FillGroupingReport(year.ledger, GroupedRecords::Sessions, {40000, 40001}, report));
  EXPECT_FALSE(report.HasData());
  Regroup(report, {kSum, 3});
  EXPECT_FALSE(report.HasData());
}

TEST(GroupingReport, GroupRowsOfTheListTakeNoPart) {
  PracticeYear year;
  GroupByPractice(year.ledger.fgSessions);
  Grid report("fgGroupingReport");
  FillGroupingReport(year.ledger, GroupedRecords::Sessions, kJanAndFeb, report);
  EXPECT_EQ(report.Rows(), 8);
}

TEST(RowTags, FindFormsByMonthAndPractice) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  const int solo = year.Add(ledger.fgPensionSolo, {"PRACTICE=3", "MONTH=01/02/2026"});
  const int b = year.Add(ledger.fgPensionB, {"MONTH=01/11/2026"});
  const int damaged = year.Add(ledger.fgPensionB, {"MONTH=soon"});
  EXPECT_EQ(FormFinder(ledger.fgPensionSolo, solo), "3 022026");
  EXPECT_EQ(FormFinder(ledger.fgPensionB, b), "112026");
  EXPECT_EQ(FormFinder(ledger.fgPensionB, damaged), "");
  const struct {
    std::string_view tag, form, finder, opened;
  } cases[] = {
      {"S4", "", "", "frmSession 4"},
      {"I7", "", "", "frmInvoice 7"},
      {"E2", "", "", "frmEvent 2"},
      {"A", "", "3 022026", "frmPensionA 3 022026"},
      {"P9", "B", "", "frmPensionB 9"},
      {"P", "SOLO", "3 022026", "frmPensionSOLO 3 022026"},
      {"P", "B", "", ""},
      {"", "", "", ""},
      {"X3", "", "", ""},
  };
  for (const auto& each : cases) {
    year.test.shown.opened.clear();
    OpenTagged(ledger, each.tag, each.form, each.finder);
    EXPECT_EQ(year.test.shown.opened.empty() ? "" : year.test.shown.opened.back(), each.opened);
  }
}

}  // namespace
}  // namespace lm::test
