// The Reports page: its choices and messages, what stays when nothing runs, opening records, and
// the export of what stands there.
#include <gtest/gtest.h>

#include "core/dates.h"
#include "core/files.h"
#include "core/formatting.h"
#include "core/options.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/reportspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// Today is Tuesday, 3 February 2026.
struct ReportsDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  ReportsPage* page = nullptr;

  ReportsDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    test.shown.catalogue = &windows;
    ledger.starting = false;
    SetOption(ledger, optShowTips, "FALSE");
    page = &window->PageOf<ReportsPage>();
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Abbey"});
    test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Moor"});
    for (const char* day : {"05/01/2026", "02/02/2026"})
      test.AddRow(ledger.fgSessions, {std::string("SDATE=") + day, "PRACTICE=1", "STIME=09:00",
                                      "ETIME=12:00", "SESS_TYPE=1", "RATE=300", "TOTAL=300"});
    window->ShowPage(Page::Reports);
  }
  void Dates(std::string_view first, std::string_view last) {
    window->Enter(page->txtReport_SDate, first);
    window->Enter(page->txtReport_EDate, last);
  }
  void Refresh(std::string_view report) {
    window->Enter(page->cboReport, report);
    window->Press(page->cmdRefreshReport);
  }
};

TEST_F(ReportsDesk, PeriodsFillTheDates) {
  const struct {
    const char *period, *first, *last;
  } cases[] = {
      {"Last 12 Months", "01/03/2025", "28/02/2026"}, {"This Month", "01/02/2026", "28/02/2026"},
      {"Last Month", "01/01/2026", "31/01/2026"},     {"This Tax Year", "06/04/2025", "05/04/2026"},
      {"Last Tax Year", "06/04/2024", "05/04/2025"},  {"This Year", "01/01/2026", "31/12/2026"},
      {"Last Year", "01/01/2025", "31/12/2025"},      {"Own Dates", "01/01/2025", "31/12/2025"},
  };
  for (const auto& each : cases) {
    window->Enter(page->cboReportPeriod, each.period);
    EXPECT_EQ(page->txtReport_SDate.Text(), each.first) << each.period;
    EXPECT_EQ(page->txtReport_EDate.Text(), each.last) << each.period;
  }
  window->Enter(page->cboReportPeriod, "This Year");
  window->Enter(page->txtReport_EDate, "30/6/2026");
  EXPECT_EQ(page->cboReportPeriod.Text(), "Own Dates");
}

TEST_F(ReportsDesk, RefusedDatesLeaveTheReport) {
  Dates("01/01/2026", "28/02/2026");
  Refresh("Work Value - All (Rates only)");
  EXPECT_EQ(test.shown.TakeMessage(), "");
  EXPECT_EQ(page->fgReports.Rows(), 5);
  EXPECT_EQ(page->fgReports.DisplayText(4, 3), "600.00");
  const struct {
    const char *first, *last, *message;
  } cases[] = {
      {"", "28/02/2026", "No Start Date has been entered for the report"},
      {"01/01/2026", "", "No End Date has been entered for the report"},
      {"01/03/2026", "28/02/2026", "Start date must be earlier than the end date"},
      {"01/01/2000", "28/02/2026", "Reports are limited to showing 10 years of data"},
  };
  for (const auto& each : cases) {
    Dates(each.first, each.last);
    Refresh("Number of Sessions - All");
    EXPECT_EQ(test.shown.TakeMessage(), each.message);
    EXPECT_EQ(page->fgReports.DisplayText(4, 3), "600.00");
  }
  // A report of pension months knows no days.
  Dates("01/01/2026", "28/02/2026");
  window->Enter(page->cboReportGroup, "By Day");
  Refresh("Number of Sessions - All");
  EXPECT_EQ(page->fgReports.Rows(), 2 + 59 + 1);
  Refresh("Pension- My AVCs");
  EXPECT_EQ(page->cboReportGroup.Text(), "By Month");
  EXPECT_EQ(page->fgReports.Rows(), 2 + 2 + 1);
}

TEST_F(ReportsDesk, FiguresFollowTheChoicesAboveThem) {
  window->Enter(page->cboReport, "Number of Sessions - All");
  EXPECT_FALSE(page->fgReports.HasData());  // nothing was asked for yet
  Dates("01/01/2026", "28/02/2026");
  window->Press(page->cmdRefreshReport);
  EXPECT_EQ(page->fgReports.DisplayText(4, 3), "2");
  window->Enter(page->cboReport, "Number of Hours - All");
  EXPECT_EQ(page->fgReports.DisplayText(4, 3), "6:00");
  window->Enter(page->cboReportPeriod, "Last Month");
  EXPECT_EQ(page->fgReports.DisplayText(3, 3), "3:00");
  window->Enter(page->txtReport_SDate, "");
  EXPECT_EQ(test.shown.TakeMessage(), "");
  EXPECT_EQ(page->fgReports.DisplayText(3, 3), "3:00");
  window->Press(page->cmdRefreshTaxReport);
  test.AddRow(ledger.fgExpenses, {"DATE=01/01/2025", "ITEM=Books", "AMOUNT=12"});
  window->Press(page->cmdTaxYear_Previous);
  EXPECT_EQ(page->fgTaxReport.TextMatrix(6, 0), "General Expenses (1)");
}

TEST_F(ReportsDesk, ZerosHideAtOnce) {
  Dates("01/01/2026", "31/03/2026");
  window->Tick(page->chkHideEmptyCols, true);  // before anything ran
  window->Tick(page->chkHideEmptyRows, true);
  Refresh("Number of Hours - All");
  EXPECT_FALSE(page->fgReports.ColHidden(1));
  EXPECT_TRUE(page->fgReports.ColHidden(2));
  EXPECT_EQ(page->fgReports.RowHeight(4), 15);
  window->Tick(page->chkHideEmptyCols, false);
  EXPECT_FALSE(page->fgReports.ColHidden(2));
}

TEST_F(ReportsDesk, GroupingFollowsItsChoices) {
  window->Choose(page->tabReport, 1);
  Grid& report = page->fgGroupingReport;
  Dates("", "");
  window->Press(page->cmdRefreshGroupingReport);
  EXPECT_EQ(test.shown.TakeMessage(), "A start and end date must be entered for the report");
  Dates("01/01/2020", "31/01/2020");
  window->Press(page->cmdRefreshGroupingReport);
  EXPECT_EQ(test.shown.messages.back().mainPrompt, "No data within the specified date range");
  EXPECT_EQ(test.shown.messages.back().title, "Report");
  EXPECT_TRUE(report.Redraw());
  test.shown.TakeMessage();
  Dates("01/01/2026", "28/02/2026");
  window->Press(page->cmdRefreshGroupingReport);
  EXPECT_EQ(report.Rows(), 1 + 2 + 2);
  window->Enter(page->cboGroupingLevels, "0");
  EXPECT_EQ(report.Rows(), 1 + 2 + 1);
  window->Enter(page->cboGroupingReportCalculation, "Count");
  EXPECT_EQ(report.DisplayText(report.Rows() - 1, "TOTAL"), "2");
  window->ColumnMoved(report, 2, 1);
  EXPECT_EQ(report.TextMatrix(0, 1), "Session Month");
  window->ColumnMoved(report, 1, 0);  // the blank column stays in front
  EXPECT_EQ(report.TextMatrix(0, 1), "Session Month");
}

TEST_F(ReportsDesk, GroupsHaveNoStripes) {
  SetOption(ledger, optColourAlternateRows, "255");
  SetOption(ledger, optColourBackground, "65535");
  EXPECT_EQ(window->LookOption(page->fgReports, optColourAlternateRows), "255");
  EXPECT_EQ(window->LookOption(page->fgGroupingReport, optColourAlternateRows), "65535");
}

TEST_F(ReportsDesk, TaxYearsAndSections) {
  window->Choose(page->tabReport, 2);
  EXPECT_EQ(page->lblTaxYear.Text(), "2025 - 2026");
  window->Press(page->cmdTaxYear_Previous);
  window->Press(page->cmdTaxYear_Previous);
  window->Press(page->cmdTaxYear_Next);
  EXPECT_EQ(page->lblTaxYear.Text(), "2024 - 2025");
  EXPECT_EQ(page->Title(), "Tax Report 2024 - 2025");
  window->Press(page->cmdRefreshTaxReport);
  EXPECT_EQ(page->fgTaxReport.TextMatrix(0, 0), "Income (0)");
  window->Click(page->fgTaxReport, 0, 0);
  EXPECT_FALSE(page->fgTaxReport.RowHidden(1));
  window->DoubleClick(page->fgTaxReport, 0, 0);  // as Enter on the title
  EXPECT_TRUE(page->fgTaxReport.RowHidden(1));
}

TEST_F(ReportsDesk, RowsOpenTheirRecords) {
  window->Choose(page->tabReport, 1);
  Dates("01/01/2026", "28/02/2026");
  window->Press(page->cmdRefreshGroupingReport);
  const Grid& report = page->fgGroupingReport;
  window->DoubleClick(page->fgGroupingReport, 1, 3);
  EXPECT_EQ(test.shown.opened, std::vector<std::string>{"frmSession 1"});
  window->DoubleClick(page->fgGroupingReport, report.Rows() - 1, 3);  // a group
  window->DoubleClick(page->fgReports, 1, 1);
  EXPECT_EQ(test.shown.opened.size(), 1u);
}

TEST_F(ReportsDesk, TellsHowToUseTheTabInFront) {
  for (const char* title : {"Standard Report", "Grouping Report", "Tax Report"}) {
    window->Enter(page->tabReport, title);
    window->Press(page->imgReportHelp);
    EXPECT_EQ(test.shown.TakeMessage(), title);
  }
}

TEST_F(ReportsDesk, ExportsUnderTheNameOfTheReport) {
  Dates("01/01/2026", "28/02/2026");
  Refresh("Work Value - All (Rates only)");
  test.shown.saveFile = ledger.File("out");
  window->Press(*window->FindField("mnuExportGrid"));
  EXPECT_EQ(test.shown.saveStart, "Report - Work Value - All (Rates only)");
  std::string error;
  EXPECT_EQ(ReadFile(ledger.File("out.csv"), error),
            ",Abbey,Moor,TOTAL\r\nJan 26,300.00,,300.00\r\nFeb 26,300.00,,300.00\r\n"
            "TOTAL,600.00,0.00,600.00\r\n");
  EXPECT_EQ(window->lblStatus.Text(), "Exported: out.csv");
  // The name typed without an extension would replace a file: that is asked first.
  window->Press(*window->FindField("mnuExportGrid"));
  EXPECT_EQ(test.shown.TakeMessage(), "Replace the file that is there?");
  test.shown.saveFile = ledger.DataFile();
  window->Press(*window->FindField("mnuExportFile"));
  EXPECT_NE(test.shown.TakeMessage().find("The program itself uses this file"), std::string::npos);
  window->ShowPage(Page::MyDetails);
  window->Press(*window->FindField("mnuExportGrid"));
  EXPECT_EQ(test.shown.messages.back().title, "Export Grid");
  EXPECT_EQ(test.shown.TakeMessage(), "Data can only be exported from grid views");
}

TEST_F(ReportsDesk, OtherDataTakesTheReportsAway) {
  Dates("01/01/2026", "28/02/2026");
  Refresh("Work Value - All (Rates only)");
  EXPECT_NE(page->Subject(), "");
  window->DataLoaded();
  EXPECT_EQ(page->fgReports.Rows(), 0);
  EXPECT_EQ(page->Subject(), "");
  window->Tick(page->chkHideEmptyRows, true);
}

}  // namespace
}  // namespace lm
