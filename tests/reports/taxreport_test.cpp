// The tax report: which records belong to a year, and how its sections stand.
#include "reports/taxreport.h"

#include "core/formatting.h"
#include "tests/reports/practice_year.h"

namespace lm::test {
namespace {

// The rows of a section from its title on, without its blank row.
std::string Section(const Grid& report, std::string_view title) {
  std::string text;
  bool in = false;
  for (int row = 0; row < report.Rows(); ++row) {
    if (IsTaxSection(report, row)) in = report.Cell(CellSetting::flexcpData, row, 0) == title;
    if (in && report.RowHeight(row) != 90) text += RowText(report, row) + "\n";
  }
  return text;
}

Grid& Report(PracticeYear& year, std::string_view label, Grid& report) {
  FormatTables(year.ledger);
  FillTaxReport(year.ledger, DaysOfTaxYear(label), report);
  return report;
}

TEST(TaxYear, IsReadFromTheEndOfItsLabel) {
  EXPECT_EQ(TaxYearLabel(2025), "2025 - 2026");
  EXPECT_EQ(MovedTaxYear("1999 - 2000", -1), "1998 - 1999");
  EXPECT_EQ(MovedTaxYear("1999 - 2000", +1), "2000 - 2001");
  EXPECT_EQ(CellText(DaysOfTaxYear("2025 - 2026").first), "06/04/2025");
  EXPECT_EQ(CellText(DaysOfTaxYear("2025 - 2026").last), "05/04/2026");
  EXPECT_EQ(MovedTaxYear(TaxYearLabel(9998), +1), TaxYearLabel(9998));
  EXPECT_EQ(MovedTaxYear("", 0), TaxYearLabel(1900));
}

TEST(TaxReport, CountsIncomeByTheDayOfPayment) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  const auto invoice = [&](const char* id, const char* paid) {
    year.Add(ledger.fgInvoices, {std::string("ID=") + id, std::string("NUMBER=0") + id,
                                 "PRACTICE=1", std::string("PAYDATE=") + paid, "AMOUNT=9999"});
  };
  invoice("1", "05/04/2026");
  invoice("2", "06/04/2026");
  invoice("3", "06/04/2025");
  invoice("4", "");
  invoice("5", "05/04/2026");
  ledger.fgSessions.SetTextMatrix(2, "INVOICE", "1");
  ledger.fgSessions.SetTextMatrix(4, "INVOICE", "1");
  ledger.fgSessions.SetTextMatrix(3, "INVOICE", "2");
  Grid report("fgTaxReport");
  // An invoice without sessions is listed, employers' contributions are not.
  EXPECT_EQ(Section(Report(year, "2025 - 2026", report), "Income"),
            "Income (3)|||£1,300.50|£20.00|||£1,320.50\n"
            "Payment Date|Practice|Invoice|Rate|Extras|||Total\n"
            "06/04/2025|Riverside Surgery|03|£0.00|£0.00|||£0.00\n"
            "05/04/2026|Riverside Surgery|01|£1,300.50|£20.00|||£1,320.50\n"
            "05/04/2026|Riverside Surgery|05|£0.00|£0.00|||£0.00\n");
  EXPECT_EQ(report.Cell(CellSetting::flexcpData, 2, 1), "I3");
  EXPECT_EQ(Section(Report(year, "2026 - 2027", report), "Income"),
            "Income (1)|||£640.00|£0.00|||£640.00\n"
            "Payment Date|Practice|Invoice|Rate|Extras|||Total\n"
            "06/04/2026|Riverside Surgery|02|£640.00|£0.00|||£640.00\n");
}

TEST(TaxReport, DatesExpensesOfSessionsByTheSession) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  const int late = year.Session("2", "06/04/2026", "09:00", "10:00", "1", "1", "", "", "");
  const std::string lateId = ledger.fgSessions.TextMatrix(late, "ID");
  const auto expense = [&](const std::string& session, const char* item, const char* amount) {
    year.Add(ledger.fgSessionExpenses, {"SESSID=" + session, std::string("ITEM=") + item,
                                        "CATEGORY=0", std::string("RATE=") + amount});
  };
  expense("2", "100", "4.5");
  expense("1", "Parking", "2.55");
  expense("1", "Train", "1,010");
  expense(lateId, "Taxi", "7");
  expense("999", "Lost", "8");
  year.Add(ledger.fgExpenses, {"DATE=05/04/2026", "ITEM=Subscription", "AMOUNT=390"});
  year.Add(ledger.fgExpenses, {"DATE=06/04/2026", "ITEM=Too late", "AMOUNT=1"});
  Grid report("fgTaxReport");
  Report(year, "2025 - 2026", report);
  EXPECT_EQ(Section(report, "Session Expenses"),
            "Session Expenses (3)||||£1,017.05|||\n"
            "Expense Date|Practice|Category|Item|Amount|||\n"
            "06/01/2026|Riverside Surgery|Mileage|Parking|£2.55|||\n"
            "06/01/2026|Riverside Surgery|Mileage|Train|£1,010.00|||\n"
            "07/01/2026|Riverside Surgery|Mileage|100|£4.50|||\n");
  EXPECT_EQ(Section(report, "General Expenses"),
            "General Expenses (1)|||£390.00||||\n"
            "Expense Date|Category|Item |Amount||||\n"
            "05/04/2026||Subscription|£390.00||||\n");
}

TEST(TaxReport, ListsThePersonalContributions) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  year.Add(ledger.fgPensionB,
           {"ID=6", "MONTH=01/03/2026", "SENTTOHA=05/04/2026", "CONTRIBUTION=100", "AVC=1",
            "EXTRA_YEARS=2", "ADDITIONAL=3", "ERRBO=4", "TOTAL_CONTRIB=110.01"});
  year.Add(ledger.fgPensionB, {"MONTH=01/04/2026", "SENTTOHA=06/04/2026", "CONTRIBUTION=9"});
  const int solo =
      year.Add(ledger.fgPensionSolo, {"PRACTICE=3", "MONTH=01/02/2026", "SENTTOHA=06/04/2025",
                                      "MY_CONTRIB=50", "EMP_CONTRIB=70", "TOTAL_CONTRIB=999"});
  ledger.fgPensionSolo.SetTextMatrix(solo, "ID", "");
  Grid report("fgTaxReport");
  Report(year, "2025 - 2026", report);
  EXPECT_EQ(Section(report, "Pension Contributions"),
            "Pension Contributions (2)||£150.00|£1.00|£2.00|£3.00|£4.00|£160.01\n"
            "Sent to HA|Form|My Contrib.|AVCs|Added Years|Additional|ERRBO|Total\n"
            "05/04/2026|B (01/03/2026)|£100.00|£1.00|£2.00|£3.00|£4.00|£110.01\n"
            "06/04/2025|SOLO (01/02/2026) Old Mill|£50.00|£0.00|£0.00|£0.00|£0.00|£50.00\n");
  const int last = report.Rows() - 2;
  EXPECT_EQ(report.DataOfRow(last), "SOLO");
  EXPECT_EQ(report.Cell(CellSetting::flexcpData, last, 1), "P");
  EXPECT_EQ(report.Cell(CellSetting::flexcpData, last, 2), "3 022026");
  EXPECT_EQ(report.Cell(CellSetting::flexcpData, last - 1, 1), "P6");
  EXPECT_EQ(report.DataOfRow(last - 1), "B");
}

TEST(TaxReport, OpensAndClosesItsSections) {
  PracticeYear year;
  year.Add(year.ledger.fgExpenses, {"DATE=05/04/2026", "ITEM=Subscription", "AMOUNT=390"});
  Grid report("fgTaxReport");
  Report(year, "2025 - 2026", report);
  const auto shown = [&] {
    std::string titles;
    for (int row = 0; row < report.Rows(); ++row)
      if (!report.RowHidden(row)) titles += report.TextMatrix(row, 0) + "/";
    return titles;
  };
  const std::string closed =
      "Income (0)/Session Expenses (0)/General Expenses (1)/Pension Contributions (0)/";
  EXPECT_EQ(shown(), closed);
  const int general = 6;
  ASSERT_EQ(report.Cell(CellSetting::flexcpData, general, 0), "General Expenses");
  EXPECT_EQ(report.Cell(CellSetting::flexcpPicture, general, 0), "right");
  EXPECT_EQ(report.Cell(CellSetting::flexcpPicture, 0, 0), "");
  ToggleTaxSection(report, general);
  EXPECT_EQ(report.Cell(CellSetting::flexcpPicture, general, 0), "down");
  EXPECT_EQ(shown(),
            "Income (0)/Session Expenses (0)/General Expenses (1)/Expense Date/05/04/2026//"
            "Pension Contributions (0)/");
  ToggleTaxSection(report, general + 1);
  ToggleTaxSection(report, general);
  EXPECT_EQ(shown(), closed);
}

}  // namespace
}  // namespace lm::test
