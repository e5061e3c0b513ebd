// Undo and Redo as the user reaches them: each act taken back and done again leaves the tables as
// they would be saved.
#include <gtest/gtest.h>

#include "core/change.h"
#include "core/datafile.h"
#include "core/formatting.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "documents/frmPrepareInvoices.h"
#include "documents/shippedtemplates.h"
#include "pension/frmPensionForms.h"
#include "pension/shippedforms.h"
#include "records/frmSession.h"
#include "shell/frmMain.h"
#include "shell/pages/invoicespage.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct UndoDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& sessions = ledger.fgSessions;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  UndoDesk() {
    AddWindows(windows);
    for (const char* folder : {"Invoices", "Pension Forms"})
      std::filesystem::create_directories(ledger.File(folder));
    PlaceShippedTemplates(ledger);
    PlaceShippedForms(ledger);
    SetOption(ledger, optInvoiceTemplate, "Light Blue.tmpl");
    for (const char* name : {"Riverside", "Abbey", "Mill"})
      test.AddRow(ledger.fgPractices, {std::string("NAME=") + name});
    for (int i = 0; i < 6; ++i)
      test.AddRow(sessions,
                  {"SDATE=0" + std::to_string(i + 1) + "/02/2026", "STIME=09:00", "ETIME=12:00",
                   "PRACTICE=" + std::to_string(i % 3 + 1), "RATE=100", "TOTAL=112.94",
                   "EMPLOYERCONTRIB=12.94", "EMPLOYERCONTRIBRATE=14.38", "SESS_TYPE=1"});
    test.AddRow(ledger.fgExtras, {"SESSID=2", "ITEM=Visit", "RATE=20"});
    test.AddRow(ledger.fgSessionExpenses, {"SESSID=2", "ITEM=Miles", "RATE=9"});
    test.AddRow(ledger.fgExtras, {"SESSID=3", "ITEM=Cremation", "RATE=80"});
    FormatTables(ledger);
    for (Grid* table : ledger.dataTables) ClearMarkers(*table);
    ledger.history.Clear();
    window = std::make_unique<frmMain>(ledger, windows);
    window->ShowPage(Page::Sessions);
    window->Enter(window->PageOf<SessionsPage>().tabSessions, "All");
  }

  // What a save would write, without its random padding and the widths.
  std::string Texts() const {
    std::string text;
    for (const Grid* table : ledger.dataTables)
      for (const int row : Records(*table)) table->WriteRecord(row, text += table->Name());
    return text;
  }
  void Press(std::string_view name) { window->Press(*window->FindField(name)); }
  std::string Caption(std::string_view name) {
    window->RefreshCommands();
    return window->FindField(name)->Text();
  }
  void Select(std::string_view id) { sessions.Select(RecordRow(sessions, id), 1); }

  void TakeBackAndDoAgain(const std::string& step, const std::function<void()>& act) {
    SCOPED_TRACE(step);
    const std::string before = Texts();
    act();
    const std::string after = Texts();
    EXPECT_NE(before, after);
    EXPECT_EQ(Caption("mnuUndo"), "&Undo " + step);
    Press("mnuUndo");
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(window->lblStatus.Text().find("Undone: " + step), 0u);
    EXPECT_EQ(Caption("mnuRedo"), "&Redo " + step);
    Press("mnuRedo");
    EXPECT_EQ(Texts(), after);
    EXPECT_EQ(Caption("mnuUndo"), "&Undo " + step);
  }
};

TEST_F(UndoDesk, EachActIsTakenBackAndDoneAgain) {
  EXPECT_EQ(Caption("mnuUndo"), "&Undo");
  EXPECT_FALSE(window->FindField("mnuUndo")->Enabled());
  TakeBackAndDoAgain("Edit Session", [this] {
    window->Edit(sessions, RecordRow(sessions, "1"), sessions.ColIndex("RATE"), "1,000");
  });
  TakeBackAndDoAgain("Delete Session", [this] {
    Select("2");
    test.shown.answers = {Answer::Yes};
    Press("cmdDeleteSession");
  });
  TakeBackAndDoAgain("Copy Session", [this] {
    Select("3");
    test.shown.modal = {[](Screen& copy) {
      copy.Enter(*copy.FindField("cSDate"), "20/02/2026");
      copy.Press(*copy.FindField("cmdOk"));
    }};
    Press("cmdCopySession");
  });
  TakeBackAndDoAgain("Prepare Invoices", [this] {
    frmPrepareInvoices prepare(ledger);
    prepare.Press(prepare.cmdCreateInvoices);
  });
  EXPECT_TRUE(std::filesystem::exists(ledger.File("Invoices/INV-00001 Riverside.pdf")));
  Press("mnuUndo");
  EXPECT_EQ(window->lblStatus.Text(), "Undone: Prepare Invoices. Its documents stay as they are.");
  EXPECT_TRUE(std::filesystem::exists(ledger.File("Invoices/INV-00001 Riverside.pdf")));
  Press("mnuRedo");
  EXPECT_EQ(sessions.DisplayText(RecordRow(sessions, "1"), "INVOICE"), "INV-00001");
  TakeBackAndDoAgain("Prepare Pension Forms", [this] {
    frmPensionForms prepare(ledger);
    prepare.Press(prepare.cmdPrepareForms);
  });
  EXPECT_EQ(sessions.TextMatrix(RecordRow(sessions, "1"), "FORMS"), "A");

  const std::string end = Texts();
  int steps = 0;
  for (; window->FindField("mnuUndo")->Enabled() && steps < 20; ++steps) {
    Press("mnuUndo");
    window->RefreshCommands();
  }
  EXPECT_EQ(steps, 5);
  while (steps-- > 0) Press("mnuRedo");
  EXPECT_EQ(Texts(), end);
}

TEST_F(UndoDesk, WorksOnAListThatWasGroupedAndSortedSince) {
  const std::string before = Texts();
  Select("4");
  test.shown.answers = {Answer::Yes};
  Press("cmdDeleteSession");
  window->Enter(window->PageOf<SessionsPage>().cboGroupSessions, "Practice");
  window->HeaderClicked(sessions, sessions.ColIndex("SDATE"));
  Press("mnuUndo");
  const int row = RecordRow(sessions, "4");
  ASSERT_GE(row, 0);
  EXPECT_TRUE(sessions.RowVisible(row));
  EXPECT_EQ(sessions.Row(), row) << "what came back is selected";
  window->Enter(window->PageOf<SessionsPage>().cboGroupSessions, "No Grouping");
  sessions.Sort(SortSetting::NumericAscending, sessions.ColIndex("ID"));
  EXPECT_EQ(Texts(), before);
}

TEST_F(UndoDesk, SavingKeepsTheHistoryAndLoadingClearsIt) {
  Select("4");
  test.shown.answers = {Answer::Yes};
  Press("cmdDeleteSession");
  ASSERT_TRUE(window->SaveAll());
  EXPECT_FALSE(HasUnsavedRows(ledger));
  EXPECT_EQ(Caption("mnuUndo"), "&Undo Delete Session");
  Press("mnuUndo");
  EXPECT_TRUE(HasUnsavedRows(ledger)) << "the file no longer has the session";
  test.shown.answers = {Answer::Yes};
  Press("mnuReloadData");
  EXPECT_EQ(RecordRow(sessions, "4"), -1);
  EXPECT_EQ(Caption("mnuUndo"), "&Undo");
  EXPECT_EQ(Caption("mnuRedo"), "&Redo");
}

TEST_F(UndoDesk, NotUnderAnotherWindow) {
  window->Edit(sessions, RecordRow(sessions, "1"), sessions.ColIndex("RATE"), "7");
  test.shown.modal = {[this](Screen&) {
    window->RefreshCommands();
    EXPECT_FALSE(window->FindField("mnuUndo")->Enabled());
  }};
  Select("2");
  Press("cmdEditSession");
  window->RefreshCommands();
  EXPECT_TRUE(window->FindField("mnuUndo")->Enabled());
}

TEST_F(UndoDesk, KeysOfTheUsualPrograms) {
  SetDefaultShortcuts(ledger);
  window->Edit(sessions, RecordRow(sessions, "1"), sessions.ColIndex("RATE"), "7");
  const std::string after = Texts();
  EXPECT_TRUE(window->ShortcutPressed('Z', kCtrlBit));
  EXPECT_NE(Texts(), after);
  for (const auto& [key, shift] : {std::pair{'Y', kCtrlBit}, {'Z', kCtrlBit | kShiftBit}}) {
    EXPECT_TRUE(window->ShortcutPressed(key, shift));
    EXPECT_EQ(Texts(), after);
    Press("mnuUndo");
  }
}

}  // namespace
}  // namespace lm
