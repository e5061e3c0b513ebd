// The export of the list in front: what its file is called, and pages that have none.
#include <gtest/gtest.h>

#include "core/files.h"
#include "core/formatting.h"
#include "core/shortcuts.h"
#include "shell/exports.h"
#include "shell/frmMain.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct ExportDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  ExportDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    ledger.starting = false;
    test.AddRow(ledger.fgSessions, {"SDATE=03/02/2026", "SESS_TYPE=1", "RATE=100", "TOTAL=100",
                                    "NOTES=<quiet> & \"short\""});
    FormatTables(ledger);
    window->DataLoaded();
    test.shown.saveFile = ledger.File("out.txt");
  }
  void Export() { window->Press(*window->FindField("mnuExportGrid")); }
};

TEST_F(ExportDesk, FilesAreCalledByTheirPage) {
  const struct {
    Page page;
    const char* tab;  // of Pension
    const char* title;
    const char* item;
  } cases[] = {{Page::Sessions, "", "Sessions", "session"},
               {Page::Events, "", "Events", "event"},
               {Page::Invoices, "", "Invoice", "invoice"},
               {Page::Practices, "", "Practices", "practice"},
               {Page::Expenses, "", "Expenses", "expense"},
               {Page::Pension, "Form A", "Pension Form A", "form"},
               {Page::Pension, "Form B", "Pension Form B", "form"},
               {Page::Pension, "Form SOLO", "Pension Form Solo", "form"},
               {Page::Pension, "Payments", "Pension Payments", "form"}};
  for (const auto& each : cases) {
    window->ShowPage(each.page);
    if (*each.tab) window->Enter(*window->FindField("tabForm"), each.tab);
    Export();
    EXPECT_EQ(test.shown.saveStart, each.title);
    const auto exported = window->PageGrid() ? ExportOf(*window->PageGrid()) : std::nullopt;
    ASSERT_TRUE(exported) << each.title;
    EXPECT_EQ(exported->itemTag, each.item);
  }
}

TEST_F(ExportDesk, CalendarsAndThePagesWithoutListHaveNone) {
  for (const Page page : {Page::Calendar, Page::MyDetails, Page::LMToday}) {
    window->ShowPage(page);
    test.shown.saveStart.clear();
    Export();
    EXPECT_EQ(test.shown.TakeMessage(), "Data can only be exported from grid views");
    EXPECT_TRUE(test.shown.saveStart.empty());
  }
}

TEST_F(ExportDesk, TheChosenKindDecides) {
  window->ShowPage(Page::Sessions);
  const char* parts[] = {",\"<quiet> & \"\"short\"\"\",", "|<quiet> & \"short\"|",
                         ">&lt;quiet&gt; &amp; &quot;short&quot;</private_note>"};
  std::string error;
  for (std::size_t filter = 0; filter < 3; ++filter) {
    test.shown.saveFilter = filter;
    Export();
    EXPECT_NE(ReadFile(ledger.File("out.txt"), error)->find(parts[filter]), std::string::npos);
  }
  test.shown.saveFilter = 1;
  window->Press(*window->FindField("mnuExportFile"));
  EXPECT_NE(ReadFile(ledger.File("out.txt"), error)->find("<Workbook "), std::string::npos);
  EXPECT_EQ(window->lblStatus.Text(), "Exported: out.txt");
}

}  // namespace
}  // namespace lm
