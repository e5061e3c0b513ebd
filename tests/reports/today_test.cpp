// LM Today: which records stand in which section, what the headings say, and the balance.
#include "reports/today.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/rows.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Lines = std::vector<std::string>;

// Today is Tuesday, 3 February 2026.
struct TodayDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid grid{"fgToday"};
  std::set<std::string> folded;

  TodayDesk() {
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Abbey"});
    test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Moor"});
  }
  int Session(const std::string& id, const std::string& date, Lines more = {}) {
    Lines cells{"ID=" + id,     "SDATE=" + date, "PRACTICE=1", "SESS_TYPE=1",
                "TOTAL=100.00", "INVOICE=9",     "FORMS=A"};
    cells.insert(cells.end(), more.begin(), more.end());
    return test.AddRow(ledger.fgSessions, cells);
  }
  bool Fill(const TodayList& list) {
    if (grid.Cols() != static_cast<int>(list.columns.size())) StartToday(list, grid);
    NoteFolded(grid, folded);
    return FillToday(ledger, TodayRecords(ledger), list, folded, grid);
  }
  // The section of this key, a line a row, its cells joined by "|" and its tag in front; the
  // heading without its tag.
  Lines SectionOf(const TodayList& list, std::string_view key) {
    EXPECT_TRUE(Fill(list));
    Lines lines;
    bool inside = false;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
      const std::string data = grid.Cell(CellSetting::flexcpData, row, 0);
      if (grid.IsSubtotal(row)) inside = data == key;
      if (!inside) continue;
      std::string line = grid.IsSubtotal(row) ? "" : data + ":";
      std::string between;
      for (int col = 0; col < grid.Cols(); ++col) {
        if (grid.TextMatrix(row, col).empty()) continue;
        line += between + ToUtf8(grid.TextMatrix(row, col));
        between = "|";
      }
      lines.push_back(line);
    }
    return lines;
  }
  Lines Headings(const TodayList& list) {
    EXPECT_TRUE(Fill(list));
    Lines headings;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      if (!SectionOfHeading(grid, row).empty()) headings.push_back(grid.TextMatrix(row, 0));
    return headings;
  }
};

TEST_F(TodayDesk, TheScheduleNamesDaysAndCountsSessions) {
  SetOption(ledger, optUpcomingDays, "2");
  Session("1", "05/02/2026", {"STIME=14:00", "ETIME=18:00"});
  Session("2", "03/02/2026", {"STIME=13:05"});
  Session("3", "05/02/2026", {"STIME=08:30", "ETIME=12:00", "PRACTICE=2"});
  Session("4", "06/02/2026");
  Session("5", "02/02/2026");
  Session("6", "05/02/2026", {"ETIME=00:30", "PRACTICE=77"});
  Session("7", "soon");
  const Lines all{"Upcoming Sessions (4)",   ":Tuesday 3 February", "S2:Abbey|1:05pm",
                  ":Thursday 5 February",    "S6:12:30am",          "S3:Moor|8:30am - 12:00pm",
                  "S1:Abbey|2:00pm - 6:00pm"};
  EXPECT_EQ(SectionOf(kTodaySchedule, "SESSIONS"), all);
  ledger.fgSessions.Sort(SortSetting::GenericAscending, ledger.fgSessions.ColIndex("PRACTICE"));
  ledger.fgSessions.Subtotal(SubtotalFunction::Sum, ledger.fgSessions.ColIndex("PRACTICE"),
                             ledger.fgSessions.ColIndex("TOTAL"), {});
  EXPECT_EQ(SectionOf(kTodaySchedule, "SESSIONS"), all) << "grouped on screen";
  SetOption(ledger, optUpcomingDays, "0");
  EXPECT_EQ(SectionOf(kTodaySchedule, "SESSIONS").size(), 3u) << "today alone";
  SetOption(ledger, optUpcomingDays, "-1");
  EXPECT_EQ(SectionOf(kTodaySchedule, "SESSIONS"), Lines{"Upcoming Sessions"});
}

TEST_F(TodayDesk, EventsThatTouchTheDaysAreToldWhole) {
  SetOption(ledger, optUpcomingDays, "2");
  const auto event = [&](const char* id, const char* title, const char* from, const char* to) {
    test.AddRow(ledger.fgEvents, {std::string("ID=") + id, std::string("TITLE=") + title,
                                  std::string("SDATE=") + from, std::string("EDATE=") + to});
  };
  event("1", "Alps", "01/02/2026", "14/02/2026");
  event("2", "Course", "05/02/2026", "");
  event("3", "Appraisal", "05/02/2026", "05/02/2026");
  event("4", "Over", "01/02/2026", "02/02/2026");
  event("5", "Later", "06/02/2026", "07/02/2026");
  event("6", "Damaged", "x", "05/02/2026");
  EXPECT_EQ(SectionOf(kTodaySchedule, "EVENTS"),
            (Lines{"Events (3)", "E1:Alps|Sun 1 Feb - Sat 14 Feb", "E2:Course|Thu 5 Feb",
                   "E3:Appraisal|Thu 5 Feb"}));
}

TEST_F(TodayDesk, SessionsWithoutAnInvoiceOrAForm) {
  Session("1", "03/02/2026", {"INVOICE=", "FORMS="});
  Session("2", "04/02/2026", {"INVOICE=", "FORMS="});
  Session("3", "31/01/2026", {"FORMS=", "TOTAL=1,250.50"});
  Session("4", "01/02/2026", {"FORMS="});
  Session("5", "31/01/2026", {"FORMS=", "SESS_TYPE=0"});
  Session("6", "31/01/2026", {"FORMS=", "SESS_TYPE=4"});
  Session("7", "31/01/2026", {"FORMS=", "SESS_TYPE="});
  Session("8", "31/01/2026", {"INVOICE=", "FORMS=", "PRACTICE=-1"});
  Session("9", "31/01/2026", {"INVOICE=", "FORMS=", "PRACTICE="});
  Session("10", "30/01/2026", {"INVOICE=", "FORMS=", "SESS_TYPE=3", "PRACTICE=77"});
  Session("11", "31/02/2026", {"INVOICE=", "FORMS="});
  EXPECT_EQ(SectionOf(kTodayStatus, "UNINVOICED SESSIONS"),
            (Lines{"Uninvoiced Sessions (2) (up until today)|£200.00",
                   "S1:Abbey|Tue 03/02/26|£100.00", "S10:Fri 30/01/26|£100.00"}));
  EXPECT_EQ(SectionOf(kTodayStatus, "UNPENSIONED SESSIONS"),
            (Lines{"Unpensioned Sessions (2) (previous mths)|£1,350.50",
                   "S3:Abbey|Sat 31/01/26|£1,250.50", "S10:Fri 30/01/26|£100.00"}));
}

TEST_F(TodayDesk, InvoicesAndFormsThatAreUnderWay) {
  const auto invoice = [&](Lines cells) { test.AddRow(ledger.fgInvoices, cells); };
  invoice({"ID=1", "PRACTICE=1", "CDATE=02/02/2026", "AMOUNT=10"});
  invoice({"ID=2", "PRACTICE=2", "CDATE=", "AMOUNT=20"});
  invoice({"ID=3", "PRACTICE=2", "CDATE=01/01/2026", "SDATE=02/01/2026", "AMOUNT=40"});
  invoice({"ID=4", "PRACTICE=2", "SDATE=02/01/2026", "PAYDATE=03/01/2026", "AMOUNT=80"});
  invoice({"ID=5", "PRACTICE=2", "SDATE=posted", "AMOUNT=160"});
  EXPECT_EQ(
      SectionOf(kTodayStatus, "UNSENT INVOICES"),
      (Lines{"Unsent Invoices (2)|£30.00", "I1:Abbey|Mon 02/02/26|£10.00", "I2:Moor|-|£20.00"}));
  EXPECT_EQ(SectionOf(kTodayStatus, "UNPAID INVOICES"),
            (Lines{"Unpaid Invoices (1)|£40.00", "I3:Moor|Fri 02/01/26|£40.00"}));

  for (Grid* forms : {&ledger.fgPensionA, &ledger.fgPensionC}) {
    const auto form = [&](Lines cells) { return test.AddRow(*forms, cells); };
    form({"ID=", "PRACTICE=1", "MONTH=01/01/2026", "SENTTOPRACTICE=01/02/2026", "AMOUNT=5"});
    form({"PRACTICE=1", "MONTH=01/12/2025", "AMOUNT=5"});
    form(
        {"PRACTICE=2", "MONTH=01/12/2025", "SENTTOPRACTICE=1/1/2026", "RCVDFROMPRACTICE=2/1/2026"});
  }
  EXPECT_EQ(SectionOf(kTodayStatus, "UNRETURNED PENSION FORM As"),
            (Lines{"Unreturned Pension Form A's (1)|£5.00", "A:Abbey|Jan 26|£5.00"}));
  EXPECT_EQ(grid.DataOfRow(grid.Rows() - 1), "1 012026") << "what finds a form without an ID";
  EXPECT_EQ(SectionOf(kTodayStatus, "UNRETURNED PENSION FORM Cs"), Lines{});
  SetOption(ledger, optHasRetiredForms, "TRUE");
  EXPECT_EQ(SectionOf(kTodayStatus, "UNRETURNED PENSION FORM Cs"),
            (Lines{"Pension Form C's (1) (not returned)|£5.00", ":Abbey|Jan 26|£5.00"}));
  SetOption(ledger, optTodayUnreturnedFormC, "FALSE");
  EXPECT_EQ(SectionOf(kTodayStatus, "UNRETURNED PENSION FORM Cs"), Lines{});
}

struct FinanceDesk : TodayDesk {
  FinanceDesk() {
    SetOption(ledger, optFinancePeriod, "10");  // from 24/01/2026
    for (const char* paid : {"23/01/2026", "24/01/2026", "03/02/2026", "04/02/2026", "", "cash"})
      test.AddRow(ledger.fgInvoices, {"PRACTICE=1", std::string("PAYDATE=") + paid,
                                      "AMOUNT=1,100.00", "EMPLOYERCONTRIB=100"});
    test.AddRow(ledger.fgExpenses, {"DATE=24/01/2026", "ITEM=Stethoscope", "AMOUNT=80.55"});
    test.AddRow(ledger.fgExpenses, {"DATE=23/01/2026", "ITEM=Books", "AMOUNT=1"});
    Session("1", "03/02/2026", {"EXPENSES=12.30"});
    Session("2", "03/02/2026", {"EXPENSES=0.00"});
    Session("3", "04/02/2026", {"EXPENSES=5"});
    test.AddRow(ledger.fgPensionB,
                {"MONTH=01/12/2025", "SENTTOHA=24/01/2026", "TOTAL_CONTRIB=200"});
    test.AddRow(ledger.fgPensionD, {"MONTH=", "SENTTOHA=3/2/2026", "TOTAL_CONTRIB=20"});
    test.AddRow(ledger.fgPensionB, {"MONTH=01/01/2026", "SENTTOHA=", "TOTAL_CONTRIB=7"});
    test.AddRow(ledger.fgPensionSolo,
                {"MONTH=01/12/2025", "PRACTICE=2", "SENTTOHA=02/02/2026", "MY_CONTRIB=1", "AVC=0.2",
                 "EXTRAYEARS=0.03", "ADDITIONAL=0.004", "ERRBO=0.0001", "EMP_CONTRIB=50",
                 "TOTAL_CONTRIB=51"});
  }
};

TEST_F(FinanceDesk, EachSectionLooksBackFromToday) {
  EXPECT_EQ(SectionOf(kTodayFinance, "RECENTLY PAID INVOICES"),
            (Lines{"Income Received (2) Does not include employer pension contributions.|£2,000.00",
                   "I2:Abbey|Sat 24/01/26|£1,000.00", "I3:Abbey|Tue 03/02/26|£1,000.00"}));
  EXPECT_EQ(SectionOf(kTodayFinance, "EXPENSES"),
            (Lines{"Expenses (1)|£80.55", ":Stethoscope|Sat 24/01/26|£80.55"}));
  EXPECT_EQ(SectionOf(kTodayFinance, "SESSION EXPENSES"),
            (Lines{"Session Expenses (1)|£12.30", "S1:Abbey|Tue 03/02/26|£12.30"}));
  EXPECT_EQ(
      SectionOf(kTodayFinance, "RECENT PENSION CONTRIBUTIONS"),
      (Lines{"Pension Contributions (3) Personal contributions only. Does not include "
             "employer contributions.|£221.23",
             ":Form B|Dec 2025|£200.00", ":Form D|-|£20.00", ":Form SOLO - Moor|Dec 2025|£1.23"}));
}

TEST_F(FinanceDesk, TheBalanceIsOfWhatIsShown) {
  const auto balance = [&] {
    const Lines lines = SectionOf(kTodayFinance, kBalanceKey);
    return lines.empty() ? "none" : lines.front();
  };
  EXPECT_EQ(balance(), "Balance|£1,685.92") << "2000 - 80.55 - 12.30 - 221.2341";
  for (const auto& [option, left] : {std::pair{optTodayRecentlyPaid, "Balance|-£314.08"},
                                     {optTodayPensionContribs, "Balance|-£92.85"},
                                     {optTodaySessionExpenses, "Balance|-£80.55"},
                                     {optTodayRecentExpenses, "Balance|£0.00"},
                                     {optTodayBalance, "none"}}) {
    SetOption(ledger, option, "FALSE");
    EXPECT_EQ(balance(), left);
  }
}

TEST_F(TodayDesk, AnEmptyLedgerHasHeadingsAndNothings) {
  const Lines nothings{"Uninvoiced Sessions (up until today)|£0.00"};
  EXPECT_EQ(SectionOf(kTodayStatus, "UNINVOICED SESSIONS"), nothings);
  EXPECT_EQ(SectionOf(kTodayFinance, kBalanceKey), Lines{"Balance|£0.00"});
  EXPECT_EQ(Headings(kTodaySchedule), (Lines{"Upcoming Sessions", "Events"}));
  SetOption(ledger, optTodayUpcomingSessions, "");
  EXPECT_EQ(Headings(kTodaySchedule), Lines{"Events"});
}

TEST_F(TodayDesk, TheListHasTwoFixedRowsAndRunsOverEmptyCells) {
  StartToday(kTodayStatus, grid);
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.FixedRows(), 2);
  EXPECT_EQ(grid.TextMatrix(0, 0), "Status");
  EXPECT_TRUE(grid.RowHidden(1));
  EXPECT_EQ(grid.ColWidth(0), 1800);
  EXPECT_EQ(grid.ColWidth(2), 1400);
  EXPECT_EQ(grid.ColAlignment(3), Alignment::Right);
  Session("1", "03/02/2026", {"INVOICE="});
  Fill(kTodayStatus);
  EXPECT_EQ(grid.MergedRange(2, 1), (CellRange{2, 0, 2, 2})) << "a heading up to its total";
  EXPECT_EQ(grid.MergedRange(3, 2), (CellRange{3, 1, 3, 2}));
}

TEST_F(TodayDesk, FoldsAndCursorOutliveARebuild) {
  Session("1", "03/02/2026", {"INVOICE=", "FORMS="});
  Session("2", "31/01/2026", {"INVOICE=", "FORMS="});
  Fill(kTodayStatus);
  grid.SetRowCollapsed(2, true);
  grid.Select(6, 1);  // S2 among the unpensioned
  Session("3", "02/02/2026", {"INVOICE="});
  Fill(kTodayStatus);
  EXPECT_FALSE(grid.RowVisible(3));
  EXPECT_TRUE(grid.RowVisible(7));
  EXPECT_EQ(grid.Row(), 7);
  ledger.fgSessions.SetTextMatrix(RecordRow(ledger.fgSessions, "2"), "FORMS", "A");
  Fill(kTodayStatus);
  EXPECT_EQ(grid.Row(), 6) << "the record has gone, its heading stays";
  SetOption(ledger, optTodayUninvoiced, "FALSE");
  Fill(kTodayStatus);
  SetOption(ledger, optTodayUninvoiced, "TRUE");
  Fill(kTodayStatus);
  EXPECT_FALSE(grid.RowVisible(3)) << "folded as it was left";
}

std::vector<TodayRow> Fault(const TodayRecords&) { throw std::out_of_range("a fault"); }

TEST_F(TodayDesk, AFaultInOneListLeavesTheOthers) {
  const TodaySection broken[] = {
      kTodayStatus.sections.front(),
      {"UNSENT INVOICES", "Unsent", "", optTodayUnsent, TodayTotal::OfRows, Fault}};
  TodayList status = kTodayStatus;
  status.sections = broken;
  ASSERT_TRUE(Fill(kTodayStatus));
  EXPECT_FALSE(Fill(status));
  EXPECT_EQ(test.shown.TakeMessage(), "Error while processing LedgerMinder Today sheet (status)");
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_TRUE(grid.Redraw());
  EXPECT_TRUE(Fill(kTodayFinance));
  EXPECT_EQ(Headings(kTodayFinance).size(), 5u);
  EXPECT_EQ(test.shown.TakeMessage(), "");
  EXPECT_EQ(kTodaySchedule.fault, "Error while processing LedgerMinder Today sheet (schedule)");
  EXPECT_EQ(kTodayFinance.fault, "Error while processing LedgerMinder Today sheet (finance)");
}

}  // namespace
}  // namespace lm
