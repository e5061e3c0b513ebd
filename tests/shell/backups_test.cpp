// Backups saved and loaded by the user.
#include <gtest/gtest.h>

#include "core/datafile.h"
#include "core/files.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

struct Backups : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  const fs::path backup = ledger.File("Elsewhere.bak");

  Backups() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    ledger.starting = false;
    SetOption(ledger, optAutoSave, "TRUE");
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside"});
    for (const char* day : {"03/02/2026", "05/01/2026"})
      test.AddRow(ledger.fgSessions, {"PRACTICE=1", std::string("SDATE=") + day});
    EXPECT_TRUE(window->SaveAll());
    window->DataLoaded();
  }
  void PressNamed(std::string_view name) { window->Press(*window->FindField(name)); }
  std::string Bytes(const fs::path& path) {
    std::string error;
    return ReadFile(path, error).value_or("(none)");
  }
  std::vector<std::string> Prompts() {
    std::vector<std::string> prompts;
    for (const MessageBoxText& message : test.shown.messages) prompts.push_back(message.mainPrompt);
    test.shown.messages.clear();
    return prompts;
  }
};

using Texts = std::vector<std::string>;

TEST_F(Backups, SavedAndLoadedAgain) {
  window->ShowPage(Page::Sessions);
  window->Enter(window->PageOf<SessionsPage>().cboGroupSessions, "Month");
  test.shown.saveFile = ledger.File("Elsewhere");
  PressNamed("mnuSaveBackup");
  EXPECT_EQ(Prompts(), Texts{"Backup Saved"});
  ASSERT_TRUE(fs::exists(backup)) << "under the extension of backups";
  EXPECT_EQ(GetOption(ledger, optLastBackupDate), "03/02/2026 10:30");
  EXPECT_EQ(GetOption(ledger, optLastBackupFile), PathText(backup));

  test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Abbey"});
  ASSERT_TRUE(window->SaveAll());
  const std::string saved = Bytes(ledger.DataFile());
  test.shown.openFile = backup;
  PressNamed("mnuLoadBackup");
  EXPECT_EQ(Prompts(), Texts{"Auto save is now turned off"});
  EXPECT_EQ(GetOption(ledger, optAutoSave), "FALSE");
  EXPECT_EQ(ledger.fgPractices.Rows(), ledger.fgPractices.FixedRows() + 1);
  EXPECT_FALSE(window->Closed());
  EXPECT_EQ(Bytes(ledger.DataFile()), saved) << "loading saves nothing";
  EXPECT_TRUE(ledger.history.UndoCaption().empty());
  EXPECT_TRUE(window->SaveAll());  // no other version: the file is the one that this run saved
  EXPECT_EQ(Prompts(), Texts{});
}

TEST_F(Backups, CancelledDialogsDoNothing) {
  PressNamed("mnuSaveBackup");
  PressNamed("mnuLoadBackup");
  EXPECT_EQ(Prompts(), Texts{});
  EXPECT_EQ(GetOption(ledger, optLastBackupDate), "");
  EXPECT_EQ(GetOption(ledger, optAutoSave), "TRUE");
}

TEST_F(Backups, UnsavedChangesAreAskedFor) {
  ASSERT_TRUE(WriteDataFile(ledger, backup));
  MarkEdited(ledger, ledger.fgPractices, ledger.fgPractices.FixedRows());
  test.shown.openFile = backup;
  test.shown.answers = {Answer::No};
  PressNamed("mnuLoadBackup");
  EXPECT_EQ(Prompts(), Texts{"Load the backup in place of your unsaved changes?"});
  EXPECT_EQ(GetOption(ledger, optAutoSave), "TRUE");
  EXPECT_TRUE(HasUnsavedRows(ledger));
}

TEST_F(Backups, WhatCannotBeWrittenIsToldAndLeavesTheDate) {
  fs::create_directory(ledger.File("Folder.bak"));
  const struct {
    fs::path path;
    std::string why;
  } kCases[] = {
      {ledger.File("Folder.bak"), ""},
      {ledger.File("no such folder") / "x.bak", ""},
      {ledger.DataFile(), "The program itself uses this file"},
      {ledger.File("Folder.bak") / ".." / "Options.dat", "The program itself uses this file"}};
  const std::string saved = Bytes(ledger.DataFile());
  ASSERT_TRUE(SaveOptions(ledger));
  for (const auto& each : kCases) {
    test.shown.saveFile = each.path;
    PressNamed("mnuSaveBackup");
    const Texts told = Prompts();
    ASSERT_EQ(told.size(), 1u) << each.path;
    EXPECT_TRUE(told[0].starts_with("Unable to save backup.\r\n" + each.why) ||
                told[0].starts_with("Unable to save backup.\n" + each.why))
        << told[0];
    EXPECT_EQ(GetOption(ledger, optLastBackupDate), "");
  }
  EXPECT_EQ(Bytes(ledger.DataFile()), saved);
}

// The tables may hold half a backup then; the program goes, and the data file stays.
TEST_F(Backups, AFailedLoadEndsTheProgramWithoutSaving) {
  ASSERT_TRUE(WriteDataFile(ledger, backup));
  const std::string whole = Bytes(backup);
  const struct {
    std::string bytes, told;
  } kCases[] = {{whole.substr(0, whole.size() - 100), "Decryption Error: PensionPayments"},
                {"not a backup", "This is not a LedgerMinder data file"},
                {"", "This is not a LedgerMinder data file"}};
  for (const auto& each : kCases) {
    frmMain fresh(ledger, windows);
    ASSERT_TRUE(LoadData(ledger));
    ledger.exitWithoutSaving = false;
    std::string error;
    ASSERT_TRUE(ReplaceFile(backup, each.bytes, error));
    const std::string saved = Bytes(ledger.DataFile());
    test.shown.openFile = backup;
    fresh.LoadBackup();
    EXPECT_EQ(Prompts(),
              (Texts{"Auto save is now turned off", each.told, "The backup could not be loaded"}));
    EXPECT_TRUE(fresh.Closed());
    EXPECT_EQ(Bytes(ledger.DataFile()), saved);
  }
  frmMain fresh(ledger, windows);
  fs::remove(backup);
  fresh.LoadBackup();
  EXPECT_EQ(Prompts()[1], "Missing File");
  EXPECT_TRUE(fresh.Closed());
}

}  // namespace
}  // namespace lm
