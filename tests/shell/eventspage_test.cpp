// The Events page.
#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/eventspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct EventsDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& events = ledger.fgEvents;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  EventsDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    ledger.starting = false;
    const struct {
      const char *title, *start, *end;
    } kEvents[] = {{"over", "01/02/2026", "02/02/2026"},
                   {"running", "01/02/2026", "03/02/2026"},
                   {"to come", "04/02/2026", ""},
                   {"damaged", "banana", ""}};
    for (const auto& each : kEvents)
      test.AddRow(events, {std::string("ID=") + std::to_string(events.Rows() - 1),
                           std::string("TITLE=") + each.title, std::string("SDATE=") + each.start,
                           std::string("EDATE=") + each.end});
    FormatTables(ledger);
    window->DataLoaded();
    window->ShowPage(Page::Events);
  }
  EventsPage& Shown() { return window->PageOf<EventsPage>(); }
  std::string InSight() const {
    std::string titles;
    for (int row = events.FixedRows(); row < events.Rows(); ++row)
      if (events.RowVisible(row)) titles += events.TextMatrix(row, "TITLE") + "|";
    return titles;
  }
};

TEST_F(EventsDesk, TabsGoByTheLastDay) {
  EXPECT_EQ(InSight(), "over|running|to come|damaged|");
  window->Enter(Shown().tabEvents, "Upcoming");
  EXPECT_EQ(InSight(), "running|to come|damaged|");
  window->Enter(Shown().tabEvents, "Past");
  EXPECT_EQ(InSight(), "over|damaged|");
}

TEST_F(EventsDesk, AddedFromAnywhereAndDeletedByItsMenu) {
  window->Enter(Shown().tabEvents, "Past");
  test.shown.modal.push_back([](Screen& screen) {
    screen.Enter(*screen.FindField("cTitle"), "Appraisal");
    screen.Press(*screen.FindField("cmdOk"));
  });
  window->Press(*window->FindField("mnuEvent"));
  EXPECT_EQ(InSight(), "over|damaged|Appraisal|") << "what was just added stays in sight";
  const auto menu = window->ContextMenu(events);
  ASSERT_EQ(menu.size(), 3u);
  test.shown.answers = {Answer::Yes};
  window->Press(*menu[2].command);
  EXPECT_EQ(InSight(), "over|damaged|");
  window->Press(*window->FindField("mnuUndo"));
  EXPECT_EQ(InSight(), "over|damaged|Appraisal|");
}

}  // namespace
}  // namespace lm
