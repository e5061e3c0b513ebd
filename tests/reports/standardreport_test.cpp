// The standard reports: what counts, where it stands, how it is divided, totalled and shown.
#include "reports/standardreport.h"

#include <algorithm>

#include "core/dates.h"
#include "core/rows.h"
#include "tests/reports/practice_year.h"

namespace lm::test {
namespace {

constexpr DateRange kJanAndFeb{46023, 46081};  // 01/01/2026 to 28/02/2026

int ReportNamed(std::string_view name) {
  const auto reports = StandardReports();
  const auto found = std::ranges::find(reports, name, &StandardReport::name);
  EXPECT_NE(found, reports.end()) << name;
  return static_cast<int>(found - reports.begin());
}

// Rows from the captions on, one a line.
std::string ReportText(const Ledger& ledger, std::string_view name, DateRange days = kJanAndFeb,
                       bool byDay = false) {
  Grid grid("fgReports");
  RunStandardReport(ledger, {ReportNamed(name), days, byDay}, grid);
  std::string text;
  for (int row = 1; row < grid.Rows(); ++row) text += RowText(grid, row) + "\n";
  return text;
}

TEST(StandardReports, ListIsComplete) {
  ASSERT_EQ(StandardReports().size(), 39u);
  EXPECT_EQ(ReportNamed("Average Hourly Rate - All"), 15);
  EXPECT_EQ(ReportNamed("Invoices- Money Rcvd (excluding Employer Pension Contrib)"), 28);
  EXPECT_EQ(ReportNamed("Expenses - non-Sessional"), 38);
}

TEST(StandardReports, OfSessions) {
  const PracticeYear year;
  const std::string head = "|Riverside Surgery|Old Mill|Old Mill|";
  const struct {
    std::string_view name, jan, feb, total;
    bool average = false;
  } cases[] = {
      {"Work Value - All (Rates only)", "940.00|1,000.50||1,940.50", "200.00||110.00|310.00",
       "1,140.00|1,000.50|110.00|2,250.50"},
      {"Work Value - All (Extras only)", "20.00|0.00||20.00", "0.00||15.00|15.00",
       "20.00|0.00|15.00|35.00"},
      {"Work Value - All (Rates + Extras + Expenses)", "977.40|1,000.50||1,977.90",
       "200.00||128.00|328.00", "1,177.40|1,000.50|128.00|2,305.90"},
      // Unpensioned is NHS too.
      {"Work Value - NHS (Rates + Extras + Expenses)", "977.40|1,000.50||1,977.90",
       "200.00|||200.00", "1,177.40|1,000.50|0.00|2,177.90"},
      {"Work Value - NHS Normal (Rates + Extras)", "320.00|||320.00", "|||0.00",
       "320.00|0.00|0.00|320.00"},
      {"Work Value - NHS OOH (Rates + Extras + Expenses)", "645.00|1,000.50||1,645.50", "|||0.00",
       "645.00|1,000.50|0.00|1,645.50"},
      {"Work Value - Private (Rates + Extras + Expenses)", "|||0.00", "||128.00|128.00",
       "0.00|0.00|128.00|128.00"},
      {"Number of Sessions - All", "2|1||3", "1||1|2", "3|1|1|5"},
      {"Number of Sessions - OOH", "1|1||2", "|||", "1|1||2"},
      {"Number of Hours - All", "11:30|12:00||23:30", "0:00||1:00|1:00", "11:30|12:00|1:00|24:30"},
      // Averages of the totals, and not of the averages.
      {"Average Hourly Rate - All", "81.74|83.38||82.57", "0.00||110.00|310.00",
       "99.13|83.38|110.00|91.86", true},
      {"Average Session Rate - OOH", "640.00|1,000.50||820.25", "|||0.00",
       "640.00|1,000.50|0.00|820.25", true},
      {"Average Session Length - All", "5:45|12:00||7:50", "0:00||1:00|0:30",
       "3:50|12:00|1:00|4:54", true},
      {"Mileage - to and from Practices", "25.00|||25.00", "12.50||8.00|20.50",
       "37.50|0.00|8.00|45.50"},
      {"Pension- Employer Contribs per Practice (date worked)", "35.00|0.00||35.00",
       "0.00||0.00|0.00", "35.00|0.00|0.00|35.00"},
  };
  for (const auto& each : cases) {
    const std::string end = each.average ? "AVG" : "TOTAL";
    EXPECT_EQ(ReportText(year.ledger, each.name), head + end + "\nJan 26|" + std::string(each.jan) +
                                                      "\nFeb 26|" + std::string(each.feb) + "\n" +
                                                      end + "|" + std::string(each.total) + "\n")
        << each.name;
  }
}

TEST(StandardReports, ByDayHaveARowForEachDay) {
  const PracticeYear year;
  EXPECT_EQ(ReportText(year.ledger, "Number of Sessions - All", {46028, 46029}, true),
            "|Riverside Surgery|Old Mill|Old Mill|TOTAL\n06 Jan 26|1|||1\n07 Jan 26|1|1||2\n"
            "TOTAL|2|1||3\n");
  EXPECT_EQ(ReportText(year.ledger, "Number of Hours - OOH", {46029, 46029}, true),
            "|Riverside Surgery|Old Mill|Old Mill|TOTAL\n07 Jan 26|8:00|12:00||20:00\n"
            "TOTAL|8:00|12:00|0:00|20:00\n");
}

// A month at an end counts only the days of the period.
TEST(StandardReports, KeepToTheirDays) {
  const PracticeYear year;
  EXPECT_EQ(ReportText(year.ledger, "Number of Sessions - All", {46029, 46080}),
            "|Riverside Surgery|Old Mill|Old Mill|TOTAL\nJan 26|1|1||2\nFeb 26|1||1|2\n"
            "TOTAL|2|1|1|4\n");
}

TEST(StandardReports, GroupRowsTakeNoPart) {
  PracticeYear year;
  const std::string before = ReportText(year.ledger, "Work Value - All (Rates only)");
  GroupByPractice(year.ledger.fgSessions);
  ASSERT_TRUE(year.ledger.fgSessions.IsSubtotal(year.ledger.fgSessions.FixedRows()));
  EXPECT_EQ(ReportText(year.ledger, "Work Value - All (Rates only)"), before);
}

TEST(StandardReports, EndsBeforeStartsCountBelowZero) {
  PracticeYear year;
  year.ledger.fgSessions.ClearData();
  year.Session("1", "06/01/2026", "17:30", "09:00", "1", "10", "", "", "");
  EXPECT_EQ(ReportText(year.ledger, "Number of Hours - All", {46028, 46028}),
            "|Riverside Surgery|Old Mill|Old Mill|TOTAL\nJan 26|-8:30|||-8:30\n"
            "TOTAL|-8:30|0:00|0:00|-8:30\n");
}

TEST(StandardReports, OfInvoices) {
  PracticeYear year;
  Grid& invoices = year.ledger.fgInvoices;
  const auto add = [&](const char* sent, const char* paid, const char* amount) {
    year.Add(invoices, {"PRACTICE=1", std::string("SDATE=") + sent, std::string("PAYDATE=") + paid,
                        std::string("AMOUNT=") + amount, "EMPLOYERCONTRIB=14.38"});
  };
  add("31/01/2026", "01/02/2026", "1,200.00");
  add("01/02/2026", "", "100.10");
  add("", "28/02/2026", "50");
  const struct {
    std::string_view name, jan, feb;
  } cases[] = {
      {"Invoices- Number Sent", "1|||1", "1|||1"},
      {"Invoices- Value of Those Sent", "1,200.00|||1,200.00", "100.10|||100.10"},
      {"Invoices- Avg Value of Those Sent", "1,200.00|||1,200.00", "100.10|||100.10"},
      {"Invoices- Num of Payments Rcvd", "|||", "2|||2"},
      {"Invoices- Money Rcvd (excluding Employer Pension Contrib)", "|||0.00",
       "1,221.24|||1,221.24"},
      {"Invoices- Money Rcvd (including Employer Pension Contrib)", "|||0.00",
       "1,250.00|||1,250.00"},
  };
  for (const auto& each : cases) {
    const std::string text = ReportText(year.ledger, each.name);
    EXPECT_NE(
        text.find("Jan 26|" + std::string(each.jan) + "\nFeb 26|" + std::string(each.feb) + "\n"),
        std::string::npos)
        << each.name << "\n"
        << text;
  }
}

TEST(StandardReports, OfFormsHaveAColumnForEach) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  year.Add(ledger.fgPensionB, {"MONTH=01/01/2026", "CONTRIBUTION=100.5", "AVC=10", "EXTRA_YEARS=2",
                               "ADDITIONAL=3", "ERRBO=4", "EMPLOYERCONTRIB=70"});
  year.Add(ledger.fgPensionB, {"MONTH=01/03/2026", "CONTRIBUTION=999"});
  year.Add(ledger.fgPensionSolo,
           {"MONTH=01/02/2026", "MY_CONTRIB=40", "EXTRAYEARS=1", "EMP_CONTRIB=30"});
  const std::string head = "|Form B|Form D|Form SOLO|TOTAL\n";
  EXPECT_EQ(
      ReportText(ledger, "Pension- My Contributions"),
      head + "Jan 26|100.50|||100.50\nFeb 26|||40.00|40.00\nTOTAL|100.50|0.00|40.00|140.50\n");
  EXPECT_EQ(
      ReportText(ledger, "Pension- My Total (Contribs + AVCs + Added + Additional + ERRBO)"),
      head + "Jan 26|119.50|||119.50\nFeb 26|||41.00|41.00\nTOTAL|119.50|0.00|41.00|160.50\n");
  // The form of a month counts by the first of that month.
  EXPECT_EQ(ReportText(ledger, "Pension- My Contributions", {46024, 46081}),
            head + "Jan 26||||0.00\nFeb 26|||40.00|40.00\nTOTAL|0.00|0.00|40.00|40.00\n");
  year.Add(ledger.fgPensionD, {"MONTH=01/02/2026", "EMP_CONTRIB=5"});
  EXPECT_EQ(
      ReportText(ledger, "Pension- Employer Contribs per Form (sent)"),
      head + "Jan 26|70.00|||70.00\nFeb 26||5.00|30.00|35.00\nTOTAL|70.00|5.00|30.00|105.00\n");

  for (const bool withD : {true, false}) {
    if (!withD) ledger.fgPensionD.ClearData();
    Grid grid("fgReports");
    RunStandardReport(ledger, {35, kJanAndFeb, false}, grid);
    HideZeros(ledger, grid, false, false);
    EXPECT_EQ(grid.ColHidden(2), !withD);
  }
}

TEST(StandardReports, OfExpensesHaveOneColumn) {
  PracticeYear year;
  year.Add(year.ledger.fgExpenses, {"DATE=28/02/2026", "AMOUNT=42.5"});
  year.Add(year.ledger.fgExpenses, {"DATE=rubbish", "AMOUNT=1"});
  EXPECT_EQ(ReportText(year.ledger, "Expenses - non-Sessional"),
            "|Expense|TOTAL\nJan 26||0.00\nFeb 26|42.50|42.50\nTOTAL|42.50|42.50\n");
}

TEST(StandardReports, TellWhyThereIsNone) {
  const struct {
    const char *start, *end, *why;
  } cases[] = {
      {"", "01/01/2026", "No Start Date has been entered for the report"},
      {"01/01/2026", "soon", "No End Date has been entered for the report"},
      {"02/01/2026", "01/01/2026", "Start date must be earlier than the end date"},
      {"01/01/2026", "01/01/2026", ""},
      {"01/01/2016", "07/01/2026", ""},  // 3,659 days
      {"01/01/2016", "08/01/2026", "Reports are limited to showing 10 years of data"},
  };
  for (const auto& each : cases) EXPECT_EQ(WhyNoReport(each.start, each.end), each.why);
}

TEST(StandardReports, HideWhatIsZero) {
  const PracticeYear year;
  Grid grid("fgReports");
  RunStandardReport(year.ledger, {ReportNamed("Number of Hours - OOH"), {46023, 46111}, false},
                    grid);
  HideZeros(year.ledger, grid, true, true);
  EXPECT_FALSE(grid.ColHidden(1));
  EXPECT_TRUE(grid.ColHidden(3));
  EXPECT_FALSE(grid.ColHidden(4));
  EXPECT_EQ(grid.RowHeight(2), kReportRow);
  EXPECT_EQ(grid.RowHeight(3), kReportSliver);
  EXPECT_NE(grid.RowHeight(grid.Rows() - 1), kReportSliver);
  HideZeros(year.ledger, grid, false, false);
  EXPECT_FALSE(grid.ColHidden(3));
  EXPECT_EQ(grid.RowHeight(3), kReportRow);
  // Half an hour is not nothing, and neither total is ever hidden.
  grid.SetTextMatrix(grid.Rows() - 1, 3, "0:30");
  for (int col = 1; col < grid.Cols(); ++col)
    if (col != 3) grid.SetTextMatrix(grid.Rows() - 1, col, "0:00");
  HideZeros(year.ledger, grid, true, true);
  EXPECT_FALSE(grid.ColHidden(3));
  EXPECT_TRUE(grid.ColHidden(1));
  EXPECT_FALSE(grid.ColHidden(4));
}

}  // namespace
}  // namespace lm::test
