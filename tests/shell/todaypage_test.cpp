// The page LM Today: it is built when it is shown and after changes, folds, opens records, and
// tells the first steps while there is nothing to show.
#include <gtest/gtest.h>

#include "core/change.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/todaypage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// Today is Tuesday, 3 February 2026.
struct TodayWindow : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  TodayPage* page = nullptr;

  TodayWindow() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    test.shown.catalogue = &windows;
    page = &window->PageOf<TodayPage>();
  }
  void Session(const std::string& id, const std::string& day) {
    const Change change(ledger, "Add Session");
    test.AddRow(ledger.fgSessions,
                {"ID=" + id, "PRACTICE=1", "SDATE=" + day, "SESS_TYPE=1", "TOTAL=10"});
  }
  void Fill() {
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Abbey"});
    test.AddRow(ledger.fgInvoices, {"ID=5", "PRACTICE=1", "CDATE=01/02/2026", "AMOUNT=20"});
    test.AddRow(ledger.fgEvents, {"ID=7", "TITLE=Course", "SDATE=06/02/2026"});
    test.AddRow(ledger.fgPensionA,
                {"ID=", "PRACTICE=1", "MONTH=01/01/2026", "SENTTOPRACTICE=01/02/2026"});
    test.AddRow(ledger.fgExpenses, {"DATE=01/02/2026", "ITEM=Books", "AMOUNT=5"});
    Session("1", "03/02/2026");
    Session("2", "04/02/2026");
    window->ShowPage(Page::LMToday);
  }
  static int RowOf(const Grid& grid, std::string_view data) {
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      if (grid.Cell(CellSetting::flexcpData, row, 0) == data) return row;
    return -1;
  }
};

TEST_F(TodayWindow, IsBuiltWhenShownAndAfterChanges) {
  Fill();
  EXPECT_EQ(page->lblLMTodayDate.Text(), "Tue 3-Feb-2026");
  EXPECT_EQ(window->fgMenu.TextMatrix(1, ColumnOf(Page::LMToday)), "LM Today");
  EXPECT_EQ(page->tabLMToday.Text(), "LedgerMinder Today");
  EXPECT_GT(RowOf(page->fgUpcoming, "S2"), 0);
  Session("3", "05/02/2026");
  EXPECT_GT(RowOf(page->fgUpcoming, "S3"), 0);
  window->ShowPage(Page::Sessions);
  Session("4", "05/02/2026");
  EXPECT_EQ(RowOf(page->fgUpcoming, "S4"), -1) << "out of sight it costs nothing";
  window->ShowPage(Page::LMToday);
  EXPECT_GT(RowOf(page->fgUpcoming, "S4"), 0);
  SetOption(ledger, optUpcomingDays, "0");
  window->OptionsChanged();
  EXPECT_EQ(RowOf(page->fgUpcoming, "S4"), -1);
}

TEST_F(TodayWindow, AClickFoldsAndADoubleClickOpens) {
  Fill();
  const struct {
    Grid& grid;
    const char* tag;
    const char* opened;
  } kRecords[] = {{page->fgUpcoming, "S2", "frmSession 2"},
                  {page->fgUpcoming, "E7", "frmEvent 7"},
                  {page->fgLMTodayStatus, "S1", "frmSession 1"},
                  {page->fgLMTodayStatus, "I5", "frmInvoice 5"},
                  {page->fgLMTodayStatus, "A", "frmPensionA 1 012026"},
                  {page->fgFinance, "", ""}};
  for (const auto& [grid, tag, opened] : kRecords) {
    const int row = RowOf(grid, tag);
    ASSERT_GT(row, 0) << tag;
    test.shown.opened.clear();
    window->DoubleClick(grid, row, 1);
    EXPECT_EQ(test.shown.opened,
              *opened ? std::vector<std::string>{opened} : std::vector<std::string>{});
  }

  Grid& status = page->fgLMTodayStatus;
  const int heading = RowOf(status, "UNINVOICED SESSIONS"), first = heading + 1;
  window->Click(status, heading, 3);
  EXPECT_FALSE(status.RowVisible(first));
  Session("3", "02/02/2026");
  EXPECT_FALSE(status.RowVisible(first)) << "it stays as it was left";
  window->DoubleClick(status, heading, 0);
  EXPECT_TRUE(status.RowVisible(first));
  window->Click(status, first, 0);
  EXPECT_TRUE(status.RowVisible(first)) << "records do not fold";
  // A section that had nothing to fold is open when something comes.
  window->Click(status, RowOf(status, "UNPAID INVOICES"), 0);
  EXPECT_FALSE(status.RowCollapsed(RowOf(status, "UNPAID INVOICES")));
}

TEST_F(TodayWindow, PrintsNothingAndHelps) {
  Fill();
  EXPECT_EQ(window->PageGrid(), nullptr);
  window->Press(*window->FindField("mnuPrint"));
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].minorPrompt, "This page cannot be printed");
  window->Press(page->imgLMTodayHelp);
  EXPECT_TRUE(test.shown.messages[1].minorPrompt.ends_with("3. Click on the 'LM Today' tab."));
}

TEST_F(TodayWindow, TheFirstStepsComeFirst) {
  window->ShowPage(Page::LMToday);
  EXPECT_TRUE(page->picLMTodaySteps.Visible());
  EXPECT_FALSE(page->picLMToday.Visible());
  EXPECT_FALSE(page->cmdLMTodaySessions.Enabled()) << "practices come first";
  EXPECT_FALSE(page->cmdLMTodayInvoices.Enabled());
  std::string opened;
  const auto save = [&](Screen& screen) {
    opened = screen.Name();
    screen.Press(*screen.defaultButton);
  };
  test.shown.modal = {save};
  window->Press(page->cmdLMTodayPractices);
  EXPECT_EQ(opened, "frmPractice");
  EXPECT_TRUE(page->lblLMTodayPractices.Text().ends_with("Done: 1 practice entered."));
  EXPECT_TRUE(page->picLMTodaySteps.Visible()) << "practices stand on none of the lists";
  window->Press(page->cmdLMTodayMyDetails);
  EXPECT_EQ(window->CurrentPage(), Page::MyDetails);
  window->ShowPage(Page::LMToday);
  test.shown.modal = {save};
  window->Press(page->cmdLMTodaySessions);
  EXPECT_EQ(opened, "frmSession");
  Session("1", "03/02/2026");
  EXPECT_FALSE(page->picLMTodaySteps.Visible());
  EXPECT_TRUE(page->picLMToday.Visible());
}

}  // namespace
}  // namespace lm
