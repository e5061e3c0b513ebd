// The Calendar page: views, period, menu, double click, drag and tooltip.
#include <gtest/gtest.h>

#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/calendarpage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// Today is Tuesday, 3 February 2026. In Week a row is half an hour behind two rows of headings.
struct CalendarDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  CalendarPage* page = nullptr;
  static constexpr int kNine = 2 + 18;

  CalendarDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    test.shown.catalogue = &windows;
    ledger.starting = false;
    SetOption(ledger, optShowTips, "FALSE");
    page = &window->PageOf<CalendarPage>();
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Abbey"});
    test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Moor"});
    Session("1", "04/02/2026", "09:00", "12:00");
    Session("2", "05/02/2026", "09:00", "12:00", "INVOICE=1");
    test.AddRow(ledger.fgInvoices, {"ID=1", "NUMBER=INV-1", "PRACTICE=1"});
    test.AddRow(ledger.fgEvents, {"ID=7", "TITLE=Course", "SDATE=06/02/2026", "CATEGORY=1"});
    window->ShowPage(Page::Calendar);
  }
  void Session(const char* id, const char* day, const char* start, const char* end,
               const char* more = "NOTES=") {
    test.AddRow(ledger.fgSessions,
                {std::string("ID=") + id, "PRACTICE=1", std::string("SDATE=") + day,
                 std::string("STIME=") + start, std::string("ETIME=") + end, "SESS_TYPE=1", more});
  }
  void PressNamed(std::string_view name) { window->Press(*window->FindField(name)); }
  // What stands on the menu of a cell.
  std::string MenuAt(Grid& grid, int row, int col) {
    grid.Select(row, col);
    std::string entries;
    for (const MenuEntry& entry : window->ContextMenu(grid))
      if (entry.command && entry.visible && entry.enabled)
        entries += entry.command->Name().substr(6) + " ";
    return entries;
  }
  // The window that an act opens, with fields of it.
  std::string Opened(const std::function<void()>& act, const std::vector<std::string>& fields) {
    std::string shown;
    test.shown.modal = {[&](Screen& screen) {
      shown = screen.Name();
      for (const std::string& field : fields) shown += " " + screen.FindField(field)->Text();
    }};
    act();
    test.shown.modal.clear();
    return shown;
  }
  std::string Cell(const char* key) {
    return ledger.fgSessions.TextMatrix(RecordRow(ledger.fgSessions, "1"), key);
  }
};

TEST_F(CalendarDesk, OnlyTheViewInFrontIsFilled) {
  EXPECT_EQ(page->lblCalendarPeriod.Text(), "February 2026");
  EXPECT_EQ(TagAt(page->fgWeek, kNine, 3), "S1");
  EXPECT_EQ(page->fgMonth.Rows(), 0);
  for (const auto& [command, grid] : {std::pair{"mnuViewMonth", &page->fgMonth},
                                      {"mnuViewYear", &page->fgYear},
                                      {"mnuViewPlanner", &page->fgPlanner},
                                      {"mnuViewTimeTable", &page->fgTimeTable},
                                      {"mnuViewWeek", &page->fgWeek}}) {
    window->ShowPage(Page::Sessions);
    PressNamed(command);
    EXPECT_EQ(window->CurrentPage(), Page::Calendar);
    EXPECT_EQ(window->PageGrid(), grid);
    EXPECT_GT(grid->Rows(), 0);
  }
  // A change is seen at once in front, and elsewhere when its view comes.
  const int rowsOfMonth = page->fgMonth.Rows();
  EXPECT_EQ(TagAt(page->fgWeek, kNine, 5), "");
  {
    const Change change(ledger, "Add Session");
    Session("3", "06/02/2026", "09:00", "12:00");
  }
  EXPECT_EQ(TagAt(page->fgWeek, kNine, 5), "S3");
  EXPECT_EQ(TagAt(page->fgMonth, 7, 4), "E7");
  EXPECT_EQ(TagAt(page->fgMonth, 8, 4), "");
  PressNamed("mnuViewMonth");
  EXPECT_EQ(TagAt(page->fgMonth, 8, 4), "S3|");
  EXPECT_EQ(page->fgMonth.Rows(), rowsOfMonth);
}

TEST_F(CalendarDesk, ThePeriodMoves) {
  const auto label = [&] { return page->lblCalendarPeriod.Text(); };
  window->Press(page->cmdMonthUp);
  EXPECT_EQ(CellText(page->Period().weekStart), "09/02/2026");
  EXPECT_TRUE(window->ShortcutPressed(37, kAltBit));
  EXPECT_TRUE(window->ShortcutPressed(37, kAltBit));
  EXPECT_EQ(CellText(page->Period().weekStart), "26/01/2026");
  EXPECT_EQ(label(), "January 2026");
  window->Enter(page->tabCalendar, "Year");
  EXPECT_EQ(label(), "2026");
  window->Press(page->cmdMonthDown);
  EXPECT_EQ(label(), "2025");
  window->ShowPage(Page::Sessions);
  PressNamed("mnuGoToToday");
  EXPECT_EQ(label(), "2026");
  window->Enter(page->tabCalendar, "Month");
  EXPECT_EQ(label(), "February 2026");
}

TEST_F(CalendarDesk, WeekendsAndEmptyRowsComeAndGo) {
  EXPECT_EQ(page->cmdShowHideWeekends.Text(), "Hide Weekends");
  EXPECT_FALSE(page->cmdShowHideEmptyRows.Visible());
  window->Press(page->cmdShowHideWeekends);
  EXPECT_TRUE(page->fgWeek.ColHidden(6));
  EXPECT_EQ(page->cmdShowHideWeekends.Text(), "Show Weekends");
  PressNamed("mnuViewWeekends");
  EXPECT_FALSE(page->fgWeek.ColHidden(6));
  window->Enter(page->tabCalendar, "Planner");
  EXPECT_TRUE(page->cmdShowHideEmptyRows.Visible());
  EXPECT_FALSE(page->fgPlanner.RowHidden(3));
  window->Press(page->cmdShowHideEmptyRows);
  EXPECT_TRUE(page->fgPlanner.RowHidden(3));
  EXPECT_EQ(page->cmdShowHideEmptyRows.Text(), "Show Empty Rows");
}

TEST_F(CalendarDesk, TheMenuGoesByWhatStandsInTheCell) {
  const std::string always = "AddSession AddEvent Cal_ConfigureCalendarView ";
  EXPECT_EQ(MenuAt(page->fgWeek, kNine, 1), always);
  EXPECT_EQ(MenuAt(page->fgWeek, kNine, 3),
            "EditSession DeleteSession Cal_CopySession Cal_AddToInvoice " + always);
  EXPECT_EQ(MenuAt(page->fgWeek, kNine, 4),
            "EditSession DeleteSession Cal_CopySession Cal_RemoveFromInvoice " + always);
  EXPECT_EQ(MenuAt(page->fgWeek, 1, 5), "EditEvent DeleteEvent " + always);
  const auto press = [&](const char* entry, int row, int col) {
    MenuAt(page->fgWeek, row, col);
    return [=, this] { PressNamed(entry); };
  };
  EXPECT_EQ(Opened(press("mnuPopAddSession", kNine + 3, 1), {"cSDate", "cSTime"}),
            "frmSession 02/02/2026 10:30");
  EXPECT_EQ(Opened(press("mnuPopAddEvent", kNine, 1), {"cSDate"}), "frmEvent 02/02/2026");
  EXPECT_EQ(Opened(press("mnuPopEditSession", kNine, 3), {"cID"}), "frmSession 1");
  EXPECT_EQ(Opened(press("mnuPopCal_CopySession", kNine, 3), {"cID"}), "frmSession ");
  EXPECT_EQ(Opened(press("mnuPopEditEvent", 1, 5), {"cID"}), "frmEvent 7");
  EXPECT_EQ(Opened(press("mnuPopCal_ConfigureCalendarView", kNine, 3), {"tabFormat"}),
            "frmConfigure Calendars");
  test.shown.answers = {Answer::Yes};
  press("mnuPopDeleteEvent", 1, 5)();
  EXPECT_FALSE(ledger.fgEvents.HasData());
  EXPECT_EQ(TagAt(page->fgWeek, 1, 5), "");
}

TEST_F(CalendarDesk, ADoubleClickOpensOrAdds) {
  const auto twice = [&](Grid& grid, int row, int col) {
    return [&, row, col] { window->DoubleClick(grid, row, col); };
  };
  EXPECT_EQ(Opened(twice(page->fgWeek, kNine + 1, 3), {"cID"}), "frmSession 1");
  EXPECT_EQ(Opened(twice(page->fgWeek, 1, 5), {"cID"}), "frmEvent 7");
  EXPECT_EQ(Opened(twice(page->fgWeek, kNine, 1), {"cSDate", "cSTime"}),
            "frmSession 02/02/2026 09:00");
  EXPECT_EQ(Opened(twice(page->fgWeek, 1, 1), {}), "");
  EXPECT_EQ(Opened(twice(page->fgWeek, 0, 1), {}), "");
  window->Enter(page->tabCalendar, "Detail");
  EXPECT_EQ(Opened(twice(page->fgTimeTable, 2, 39), {"cSDate", "cSTime"}),
            "frmSession 02/02/2026 09:15");
  window->Enter(page->tabCalendar, "Planner");
  EXPECT_EQ(Opened(twice(page->fgPlanner, 3, 9), {"cSDate", "cSTime", "cPractice"}),
            "frmSession 09/02/2026  Moor");
  window->Enter(page->tabCalendar, "Month");
  for (int i = 10; i < 16; ++i) Session(std::to_string(i).c_str(), "24/02/2026", "09:00", "12:00");
  page->Shown();
  ASSERT_EQ(KindOf(TagAt(page->fgMonth, 25, 1)), 'Z');
  window->DoubleClick(page->fgMonth, 25, 1);
  EXPECT_EQ(page->View(), CalendarView::Week);
  EXPECT_EQ(CellText(page->Period().weekStart), "23/02/2026");
}

TEST_F(CalendarDesk, ADragMovesAndUndoTakesItBack) {
  window->Drag(page->fgWeek, kNine, 3, kNine, 3);
  window->Drag(page->fgWeek, kNine, 3, 1, 4);
  window->Drag(page->fgWeek, 1, 5, kNine, 5);
  window->Drag(page->fgWeek, kNine, 1, kNine, 2);
  EXPECT_EQ(test.shown.messages.size(), 0u) << "its own cell, a heading, an event, nothing";
  window->Drag(page->fgWeek, kNine, 4, kNine, 5);
  EXPECT_EQ(test.shown.messages.size(), 0u);
  EXPECT_EQ(window->lblStatus.Text(), "A session on an invoice cannot be moved.");
  window->Drag(page->fgWeek, kNine + 2, 3, kNine + 9, 6);
  EXPECT_EQ(Cell("SDATE"), "04/02/2026") << "No is the safe answer";
  test.shown.answers = {Answer::Yes};
  window->Drag(page->fgWeek, kNine + 2, 3, kNine + 9, 6);
  EXPECT_EQ(Cell("SDATE") + Cell("STIME") + Cell("ETIME"), "07/02/202613:3016:30");
  EXPECT_EQ(TagAt(page->fgWeek, kNine + 9, 6), "S1");
  EXPECT_EQ(TagAt(page->fgWeek, kNine, 3), "");
  PressNamed("mnuUndo");
  EXPECT_EQ(TagAt(page->fgWeek, kNine, 3), "S1");
  window->Enter(page->tabCalendar, "Planner");
  test.shown.answers = {Answer::Yes};
  window->Drag(page->fgPlanner, 2, 4, 3, 20);
  EXPECT_EQ(Cell("SDATE") + Cell("STIME") + Cell("PRACTICE"), "20/02/202609:001");
  window->Enter(page->tabCalendar, "Year");
  test.shown.messages.clear();
  window->Drag(page->fgYear, 5, 26, 4, 1);
  EXPECT_EQ(test.shown.messages.size(), 0u) << "no day there";
}

TEST_F(CalendarDesk, TheToolTipTellsTheCell) {
  window->Hover(page->fgWeek, kNine, 3);
  EXPECT_TRUE(page->picCalendarToolTip.Visible());
  EXPECT_EQ(page->lblCalendarTooltipTitle.Text(), "Wednesday 4 Feb 2026");
  EXPECT_TRUE(page->txtCalendarTooltipDetails.Text().starts_with("Abbey  09:00-12:00\r\n"));
  window->Hover(page->fgWeek, kNine, 1);
  EXPECT_FALSE(page->picCalendarToolTip.Visible());
  window->Hover(page->fgWeek, 1, 5);
  EXPECT_EQ(page->txtCalendarTooltipDetails.Text(), "Course\r\n");
  window->Click(page->fgWeek, 1, 5);
  EXPECT_FALSE(page->picCalendarToolTip.Visible());
  SetOption(ledger, optShowCalendarTips, "FALSE");
  window->Hover(page->fgWeek, kNine, 3);
  EXPECT_FALSE(page->picCalendarToolTip.Visible());
}

TEST_F(CalendarDesk, AClickInYearLeadsToTheMonth) {
  window->Enter(page->tabCalendar, "Year");
  window->Click(page->fgYear, 1, 3);
  EXPECT_EQ(page->View(), CalendarView::Year) << "no day there";
  window->Click(page->fgYear, 36, 32);
  EXPECT_EQ(page->View(), CalendarView::Month);
  EXPECT_EQ(page->lblCalendarPeriod.Text(), "December 2026");
}

}  // namespace
}  // namespace lm
