// Pages, menus, keys, the details page and closing.
#include <gtest/gtest.h>

#include <set>

#include "core/datafile.h"
#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/mydetails.h"
#include "shell/pages/pensionpage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct MainWindow : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;

  MainWindow() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
  }

  void PressNamed(std::string_view name) {
    Field* field = window->FindField(name);
    ASSERT_TRUE(field) << name;
    window->Press(*field);
  }
  std::vector<std::string> TipTitles() {
    std::vector<std::string> titles;
    for (const MessageBoxText& tip : test.shown.tips) titles.push_back(tip.mainPrompt);
    test.shown.tips.clear();
    return titles;
  }
  std::filesystem::path DataFile() { return ledger.File("LedgerMinder.dat"); }
  std::filesystem::path BackupFile() { return ledger.File("LedgerMinderBackup 03 Feb 2026.bak"); }
};

void CheckNodes(const std::vector<MenuNode>& nodes, bool top, std::set<std::string>& seen) {
  for (const MenuNode& node : nodes) {
    const bool separator = node.name.empty();
    EXPECT_TRUE(separator || node.command || top || !node.children.empty()) << node.name;
    EXPECT_TRUE(separator || node.hidden || !node.caption.empty()) << node.name;
    EXPECT_TRUE(!node.command || seen.insert(node.name).second) << node.name;
    CheckNodes(node.children, false, seen);
  }
}

TEST_F(MainWindow, EveryMenuEntryHasItsCommandOnce) {
  std::set<std::string> seen;
  CheckNodes(window->MenuBar(), true, seen);
  const auto& bar = window->MenuBar();
  ASSERT_EQ(bar.size(), 6u);
  EXPECT_EQ(bar.back().name, "mnuHideMe_AlwaysHideLastToPreventErrors");
  EXPECT_TRUE(bar.back().hidden);
  for (const MenuNode& menu : window->ContextMenus()) {
    EXPECT_TRUE(menu.hidden);
    seen.clear();
    CheckNodes(menu.children, false, seen);
  }
  std::set<int> actions;
  for (const CommandSpec& command : Commands())
    EXPECT_TRUE(command.shortcut < 0 || actions.insert(command.shortcut).second) << command.name;
}

TEST_F(MainWindow, CommandsWithoutTheirWindowAreDisabled) {
  EXPECT_TRUE(window->FindField("mnuNewSession")->Enabled());
  WindowCatalogue none;
  frmMain bare(ledger, none);
  EXPECT_FALSE(bare.FindField("mnuHelpAbout")->Enabled());
  bool opened = false;
  none.Add("frmAbout", [&](Ledger&, const std::vector<std::string>&) { return opened = true; });
  bare.RefreshCommands();
  bare.Press(*bare.FindField("mnuHelpAbout"));
  EXPECT_TRUE(opened);

  EXPECT_FALSE(bare.FindField("mnuNewPractice")->Enabled());
  EXPECT_FALSE(bare.PageOf<SessionsPage>().cmdAddSession.Enabled());
}

TEST_F(MainWindow, EveryPageIsReachedByBarMenuAndCommand) {
  int laidOut = 0;
  window->layOut = [&](bool) { ++laidOut; };
  for (const auto& each : window->Pages()) {
    const PageSpec& page = each->Spec();
    EXPECT_EQ(window->fgMenu.TextMatrix(1, ColumnOf(page.page)), page.caption);
    EXPECT_EQ(window->fgMenu.Cell(CellSetting::flexcpPicture, 0, ColumnOf(page.page)), page.icon);
    for (const std::string_view command : {page.menu, page.command}) {
      if (command.empty()) continue;
      window->ShowPage(page.page == Page::LMToday ? Page::Reports : Page::LMToday);
      PressNamed(command);
      EXPECT_EQ(&window->FrontPage(), each.get()) << command;
      EXPECT_EQ(window->lblPage.Text(), page.caption);
    }
  }
  EXPECT_GT(laidOut, 20);
  window->ShowPage(Page::Pension);
  EXPECT_EQ(window->PageGrid(), &ledger.fgPensionA);
  window->Enter(window->PageOf<PensionPage>().tabForm, "Payments");
  EXPECT_EQ(window->PageGrid(), &ledger.fgPensionPayments);

  ledger.starting = true;
  window->ShowPage(Page::Practices);
  EXPECT_EQ(window->lblPage.Text(), "Pension") << "no work while the program starts";
}

TEST_F(MainWindow, KeysRunTheirActions) {
  const struct {
    int key, shift;
    bool taken;
    Page page;
  } kCases[] = {
      {'S', kAltBit, true, Page::Sessions},
      {'R', kAltBit, true, Page::Reports},
      {'S', kAltBit | kShiftBit, false, Page::Reports},
      {39, kAltBit, true, Page::Reports},
      {'W', kAltBit, true, Page::Calendar},
      {39, kAltBit, true, Page::Calendar},
      {'T', kAltBit, true, Page::LMToday},
      {-1, 0, false, Page::LMToday},
  };
  window->ShowPage(Page::Practices);
  for (const auto& [key, shift, taken, page] : kCases) {
    EXPECT_EQ(window->ShortcutPressed(key, shift), taken) << key;
    EXPECT_EQ(window->CurrentPage(), page) << key;
  }
  EXPECT_TRUE(window->ShortcutPressed('S', kCtrlBit));
  EXPECT_TRUE(std::filesystem::exists(DataFile()));
  EXPECT_EQ(test.shown.busy, 0);

  // Ctrl+N and Ctrl+Delete act on the page in view.
  std::string opened;
  window->ShowPage(Page::Practices);
  test.shown.modal.push_back([&](Screen& screen) { opened = screen.Name(); });
  window->ShortcutPressed('N', kCtrlBit);
  EXPECT_EQ(opened, "frmPractice");
  window->ShortcutPressed(46, kCtrlBit);
  EXPECT_EQ(test.shown.messages.back().minorPrompt.empty() ? test.shown.messages.back().mainPrompt
                                                           : test.shown.messages.back().minorPrompt,
            "There is no practice selected to delete.");
  window->ShowPage(Page::MyDetails);
  test.shown.modal.push_back([&](Screen&) { FAIL() << "no item on this page"; });
  EXPECT_TRUE(window->ShortcutPressed('N', kCtrlBit));

  const MenuNode* save = nullptr;
  for (const MenuNode& node : window->MenuBar().front().children)
    if (node.name == "mnuSave") save = &node;
  ASSERT_TRUE(save);
  EXPECT_EQ(window->ShortcutTextOf(*save), "Ctrl+S");
}

TEST_F(MainWindow, GettingStartedLeadsThroughTheSteps) {
  test.shown.modal = {[&](Screen& steps) {
                        EXPECT_EQ(steps.Name(), "frmGettingStarted");
                        const auto text = [&](std::string_view name) {
                          return steps.FindField(name)->Text();
                        };
                        EXPECT_TRUE(text("lblPractices").ends_with("Not done yet."));
                        EXPECT_FALSE(steps.FindField("cmdSessions")->Enabled());
                        steps.Press(*steps.FindField("cmdPractices"));
                        EXPECT_TRUE(text("lblPractices").ends_with("Done: 1 practice entered."));
                        EXPECT_TRUE(steps.FindField("cmdSessions")->Enabled());
                        steps.Press(*steps.FindField("cmdMyDetails"));
                        EXPECT_TRUE(steps.Closed());
                      },
                      [](Screen& practice) { practice.Press(*practice.FindField("cmdOk")); }};
  PressNamed("mnuGettingStarted");
  EXPECT_TRUE(test.shown.modal.empty());
  EXPECT_EQ(window->CurrentPage(), Page::MyDetails);
}

TEST_F(MainWindow, ShortcutBarIsToggled) {
  PressNamed("mnuViewShortcutBar");
  EXPECT_FALSE(window->ShortcutBarVisible());
  EXPECT_TRUE(window->ShortcutPressed(117, 0));
  EXPECT_TRUE(window->ShortcutBarVisible());
}

TEST_F(MainWindow, TipsComeOneAVisitAndOnlyOnce) {
  window->ShowPage(Page::Sessions);
  ASSERT_EQ(test.shown.tips.size(), 1u);
  EXPECT_NE(test.shown.tips[0].minorPrompt.find("Practices come first"), std::string::npos);
  TipTitles();
  test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
  using Titles = std::vector<std::string>;
  window->ShowPage(Page::Sessions);
  EXPECT_EQ(TipTitles(), Titles{"New Sessions"});
  test.AddRow(ledger.fgSessions, {"PRACTICE=1"});
  window->ShowPage(Page::Sessions);
  EXPECT_EQ(TipTitles(), (Titles{"Sessions Page", "Current Sessions"}));
  window->ShowPage(Page::Sessions);
  EXPECT_EQ(TipTitles(), Titles{"Data Sorting"});
  SetOption(ledger, optShowTips, "FALSE");
  window->ShowPage(Page::MyDetails);
  EXPECT_EQ(TipTitles(), Titles{});
  SetOption(ledger, optShowTips, "");
  window->ShowPage(Page::MyDetails);
  EXPECT_EQ(TipTitles(), Titles{"My Details"}) << "not set is not off";
}

// What the file of options holds now.
std::string StoredDetail(Ledger& ledger, int field) {
  test::ScriptedPlatform other;
  Ledger reloaded(other.platform);
  EXPECT_TRUE(LoadGridFile(reloaded, ledger.File("Options.dat"), reloaded.fgOptions));
  return MyDetail(reloaded, field);
}

TEST_F(MainWindow, MyDetailsWaitForASave) {
  std::set<int> fields;
  for (const MyDetailSpec& spec : kMyDetailSpecs) {
    EXPECT_TRUE(fields.insert(spec.field).second);
    EXPECT_FALSE(spec.caption.empty());
    EXPECT_TRUE(window->FindField(MyDetailBox(spec))) << spec.caption;
  }
  EXPECT_EQ(*fields.rbegin(), kDaysToPayField);

  SetMyDetail(ledger, 5, "7654321");
  ASSERT_TRUE(window->SaveAll());
  EXPECT_FALSE(HasUnsaved(ledger));
  window->ShowPage(Page::MyDetails);
  const auto type = [&](const char* box, const char* text) {
    window->Enter(*window->FindField(box), text);
  };
  type("txtMyDetails5", "1234567");
  type("txtMyFirstName", "Alex ");
  type("txtMyLastName", "Morgan");
  EXPECT_EQ(window->FindField("lblMyName")->Text(), "Alex Morgan");
  EXPECT_EQ(window->Caption(), "LedgerMinder  - Alex Morgan");
  EXPECT_EQ(MyDetail(ledger, 5), "1234567") << "documents show what was typed";

  EXPECT_TRUE(HasUnsaved(ledger));
  ASSERT_TRUE(SaveOptions(ledger));
  EXPECT_EQ(StoredDetail(ledger, 5), "7654321") << "others save the options too";
  window->ShowPage(Page::Practices);
  window->ShowPage(Page::MyDetails);
  EXPECT_EQ(window->FindField("txtMyDetails5")->Text(), "1234567");
  ASSERT_TRUE(window->SaveAll());
  EXPECT_EQ(StoredDetail(ledger, 5), "1234567");
  EXPECT_EQ(StoredDetail(ledger, kLastNameField), "Morgan");
  EXPECT_FALSE(HasUnsaved(ledger));

  type("txtMyLastName", "Mogran");
  test.shown.answers = {Answer::Yes};
  PressNamed("mnuReloadData");
  EXPECT_EQ(window->FindField("txtMyLastName")->Text(), "Morgan");
  EXPECT_EQ(window->Caption(), "LedgerMinder  - Alex Morgan");
}

TEST_F(MainWindow, TitleNamesTheUserWhenTheOptionsSaySo) {
  window->SetWindowTitle();
  EXPECT_EQ(window->Caption(), "LedgerMinder");
  SetMyDetail(ledger, kFirstNameField, "Alex");
  SetMyDetail(ledger, kLastNameField, "Morgan");
  window->SetWindowTitle();
  EXPECT_EQ(window->Caption(), "LedgerMinder  - Alex Morgan");
  SetOption(ledger, optShowNameInTitle, "FALSE");
  window->SetWindowTitle();
  EXPECT_EQ(window->Caption(), "LedgerMinder");
}

TEST_F(MainWindow, PrintingGoesByThePage) {
  window->ShowPage(Page::MyDetails);
  PressNamed("mnuPrint");
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "Print");
  EXPECT_EQ(test.shown.messages[0].minorPrompt, "This page cannot be printed");
  window->ShowPage(Page::Sessions);
  EXPECT_FALSE(window->FindField("mnuPrint")->Enabled()) << "nothing there that prints lists";

  std::string printed;
  window->printGrid = [&](Grid& grid, const std::string& title, const std::string& period) {
    printed += grid.Name() + ":" + title + (period.empty() ? "" : " of " + period) + ";";
  };
  for (const char* day : {"24/02/2026", "03/02/2026", "banana", "24/05/2026"})
    test.AddRow(ledger.fgSessions, {std::string("SDATE=") + day});
  window->ShowPage(Page::Sessions);
  window->Enter(window->PageOf<SessionsPage>().tabSessions, "This Month");
  PressNamed("mnuPrint");
  window->ShowPage(Page::Pension);
  for (const char* tab : {"Form SOLO", "Form C", "Payments"}) {
    window->Enter(window->PageOf<PensionPage>().tabForm, tab);
    PressNamed("mnuPrint");
  }
  EXPECT_EQ(printed,
            "fgSessions:Sessions of This Month, 03/02/2026 to 24/02/2026;fgPensionSolo:Locum Form "
            "Solo;fgPensionC:Locum Form C;"
            "fgPensionPayments:Pension Payments;");
}

TEST_F(MainWindow, SaysWhatCouldNotBeOpened) {
  test.shown.opens = false;
  PressNamed("mnuLedgerMinderWebsite");
  EXPECT_EQ(test.shown.messages.back().mainPrompt, "The web page could not be opened");
  EXPECT_TRUE(test.shown.messages.back().minorPrompt.starts_with(kWebsite));
  EXPECT_FALSE(OpenLink(ledger, "/tmp/a form.pdf"));
  EXPECT_EQ(test.shown.messages.back().mainPrompt, "The file could not be opened");
  EXPECT_TRUE(test.shown.messages.back().minorPrompt.starts_with("/tmp/a form.pdf"));
  PressNamed("mnuCalculator");
  EXPECT_EQ(test.shown.messages.back().mainPrompt, "The calculator could not be started");
}

TEST_F(MainWindow, ReloadAsksAndBringsTheFileBack) {
  test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
  ASSERT_TRUE(window->SaveAll());
  test.AddRow(ledger.fgPractices, {"NAME=Abbey"});
  PressNamed("mnuReloadData");
  EXPECT_EQ(test.shown.TakeMessage(), "Reload all data?");
  EXPECT_EQ(ledger.fgPractices.Rows(), 4);
  window->ShowPage(Page::Sessions);
  window->Enter(window->PageOf<SessionsPage>().cboGroupSessions, "Month");
  test.shown.answers = {Answer::Yes};
  PressNamed("mnuReloadData");
  EXPECT_EQ(ledger.fgPractices.Rows(), 3);
  EXPECT_EQ(ledger.fgSessions.ColIndex(kGroupMonthKey), -1) << "no session, no group";
}

// Closing

struct Closing : MainWindow {
  Closing() {
    SetOption(ledger, optConfirmExit, "FALSE");
    SetOption(ledger, optAutoSave, "TRUE");
    SetOption(ledger, optAutoBackupDays, "0");
  }
};

TEST_F(Closing, AsksFirst) {
  SetOption(ledger, optConfirmExit, "TRUE");
  PressNamed("mnuExit");
  EXPECT_FALSE(window->Closed());
  const MessageBoxText& asked = test.shown.messages.back();
  EXPECT_EQ(asked.title, "Exit LedgerMinder");
  EXPECT_EQ(asked.mainPrompt, "Do you really want to exit?");
  EXPECT_EQ(asked.minorPrompt, "");
  EXPECT_EQ(asked.buttons, Buttons::YesNo);
  EXPECT_FALSE(std::filesystem::exists(DataFile()));

  SetOption(ledger, optAutoSave, "FALSE");
  test.shown.answers = {Answer::Yes};
  window->CloseRequested();
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(test.shown.messages.back().minorPrompt, "Autosave is turned off.");
  EXPECT_FALSE(std::filesystem::exists(DataFile()));
}

TEST_F(Closing, SavesWhenAutoSaveIsOn) {
  EXPECT_TRUE(window->CloseMain());
  EXPECT_TRUE(std::filesystem::exists(DataFile()));
  EXPECT_TRUE(test.shown.messages.empty());
}

TEST_F(Closing, TypedDetailsAreSavedAsTheRestIs) {
  SaveOptions(ledger);
  for (const char* autoSave : {"FALSE", "TRUE"}) {
    SetOption(ledger, optAutoSave, autoSave);
    SetOption(ledger, optAutoBackupDays, "1");
    SetOption(ledger, optLastBackupDate, "");
    frmMain closing(ledger, windows);
    closing.Enter(*closing.FindField("txtMyDetails5"), "1234567");
    EXPECT_TRUE(closing.CloseMain());
    EXPECT_TRUE(std::filesystem::exists(BackupFile()));
    const bool saved = std::string_view(autoSave) == "TRUE";
    EXPECT_EQ(StoredDetail(ledger, 5), saved ? "1234567" : "");
  }
}

TEST_F(Closing, StaysWhenTheSaveFails) {
  std::filesystem::create_directories(DataFile() / "in the way");
  EXPECT_FALSE(window->CloseMain());
  EXPECT_FALSE(window->Closed());
  EXPECT_FALSE(test.shown.messages.empty());
  test.shown.answers = {Answer::Yes};
  PressNamed("mnuExitWithoutSaving");
  EXPECT_TRUE(window->Closed());
}

TEST_F(Closing, ExitWithoutSavingSavesNothing) {
  SetOption(ledger, optAutoBackupDays, "1");
  PressNamed("mnuExitWithoutSaving");
  EXPECT_EQ(test.shown.TakeMessage(), "Exit without saving?");
  EXPECT_FALSE(window->Closed());
  test.shown.answers = {Answer::Yes};
  PressNamed("mnuExitWithoutSaving");
  EXPECT_TRUE(window->Closed());
  EXPECT_FALSE(std::filesystem::exists(DataFile()));
  EXPECT_FALSE(std::filesystem::exists(BackupFile()));
}

TEST_F(Closing, IncompleteTablesReplaceNothing) {
  SetOption(ledger, optAutoBackupDays, "1");
  ledger.dataIncomplete = true;
  // What was entered since does not go without a word.
  AddRecord(ledger, ledger.fgEvents);
  EXPECT_FALSE(window->CloseMain());
  EXPECT_EQ(test.shown.TakeMessage(), "The data was not loaded completely");
  ledger.fgEvents.ClearData();
  EXPECT_TRUE(window->CloseMain());
  EXPECT_EQ(test.shown.TakeMessage(), "");
  EXPECT_FALSE(std::filesystem::exists(DataFile()));
  EXPECT_FALSE(std::filesystem::exists(BackupFile()));
}

TEST_F(Closing, BackupIsMadeWhenDue) {
  const struct {
    const char* days;
    const char* last;
    bool due;
  } kCases[] = {
      {"", "", false},
      {"-1", "", false},
      {"banana", "", false},
      {"7", "", true},
      {"7", "banana", true},
      {"7", "27/01/2026 10:30", true},
      {"7", "27/01/2026 10:31", false},
      {"1", "03/02/2026", false},
      {"0.5", "02/02/2026", true},
  };
  SetOption(ledger, optAutoSave, "FALSE");
  test.AddRow(ledger.fgSessions, {"SDATE=01/02/2026"});
  for (const auto& [days, last, due] : kCases) {
    std::filesystem::remove(BackupFile());
    SetOption(ledger, optAutoBackupDays, days);
    SetOption(ledger, optLastBackupDate, last);
    SetOption(ledger, optLastBackupFile, "");
    frmMain closing(ledger, windows);
    closing.ShowPage(Page::Sessions);
    closing.Enter(closing.PageOf<SessionsPage>().cboGroupSessions, "Month");
    EXPECT_TRUE(closing.CloseMain());
    EXPECT_EQ(std::filesystem::exists(BackupFile()), due) << days << " " << last;
    EXPECT_EQ(GetOption(ledger, optLastBackupFile), due ? PathText(BackupFile()) : "");
    EXPECT_EQ(GetOption(ledger, optLastBackupDate), due ? "03/02/2026 10:30" : last);
    closing.Reopen();
    closing.Enter(closing.PageOf<SessionsPage>().cboGroupSessions, "No Grouping");
    if (!due) continue;
    test::ScriptedPlatform other;
    Ledger reloaded(other.platform);
    ASSERT_TRUE(LoadData(reloaded, BackupFile()));
    EXPECT_EQ(reloaded.fgSessions.Rows(), 3);
    EXPECT_EQ(reloaded.fgSessions.FindCol(kGroupMonthKey), -1);
  }
  EXPECT_FALSE(std::filesystem::exists(DataFile())) << "auto save is off, yet the backup ran";
}

}  // namespace
}  // namespace lm
