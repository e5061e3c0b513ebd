// The window that changes the keys of the commands.
#include <gtest/gtest.h>

#include "core/datafile.h"
#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/frmShortcutKeys.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct ShortcutWindow : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> main;

  ShortcutWindow() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    main = std::make_unique<frmMain>(ledger, windows);
  }

  static int RowOf(const Grid& keys, std::string_view action) {
    return keys.FindRow(action, "ACTION");
  }
  static void Point(frmShortcutKeys& window, std::string_view action) {
    window.fgKeys.Select(RowOf(window.fgKeys, action), 1);
  }
  static std::string Shown(const frmShortcutKeys& window, std::string_view action,
                           std::string_view key) {
    return window.fgKeys.TextMatrix(RowOf(window.fgKeys, action), key);
  }
};

TEST_F(ShortcutWindow, ShowsTheKeysOfTheRow) {
  frmShortcutKeys window(*main);
  EXPECT_FALSE(window.cboKeys.Enabled());
  const struct {
    const char* action;
    bool enabled;
    const char* key;
    bool shift, ctrl, alt;
  } kRows[] = {{"Recreate and open document", true, "O", true, true, false},
               {"Go To Today", true, "{HOME}", false, false, true},
               {"Add new session", true, "", false, false, false},
               {"Actions", false, "", false, false, false},
               {"Show/Hide Shortcut Bar", true, "F6", false, false, false}};
  for (const auto& row : kRows) {
    Point(window, row.action);
    EXPECT_EQ(window.cboKeys.Enabled(), row.enabled) << row.action;
    EXPECT_EQ(window.chkALT.Enabled(), row.enabled) << row.action;
    EXPECT_EQ(window.cboKeys.Text(), row.key) << row.action;
    EXPECT_EQ(window.chkSHIFT.Checked(), row.shift) << row.action;
    EXPECT_EQ(window.chkCTRL.Checked(), row.ctrl) << row.action;
    EXPECT_EQ(window.chkALT.Checked(), row.alt) << row.action;
  }
}

TEST_F(ShortcutWindow, OkStoresAtOnceAndCancelNothing) {
  const std::filesystem::path file = ledger.File("ShortcutKeys.dat");
  {
    frmShortcutKeys window(*main);
    Point(window, "Add new session");
    window.Enter(window.cboKeys, "{ESCAPE}");
    window.Tick(window.chkCTRL, true);
    EXPECT_EQ(Shown(window, "Add new session", "SHORTCUT"), "Ctrl+{ESCAPE}");
    test.shown.answers = {Answer::Yes};
    window.Press(window.cmdResetShortcuts);  // taken back by Cancel, like all else
    EXPECT_EQ(Shown(window, "Add new session", "SHORTCUT"), "");
    window.Press(window.cmdCancel);
    EXPECT_TRUE(window.Closed());
  }
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), 2);
  {
    frmShortcutKeys window(*main);
    Point(window, "Save");
    window.Enter(window.cboKeys, "");
    EXPECT_FALSE(window.chkCTRL.Checked());
    EXPECT_EQ(Shown(window, "Save", "SHORTCUT"), "");
    Point(window, "Exit without saving");
    window.Tick(window.chkALT, true);  // first the box, then the key
    EXPECT_EQ(Shown(window, "Exit without saving", "SHORTCUT"), "");
    window.Enter(window.cboKeys, "F4");
    window.Press(window.cmdOK);
    EXPECT_TRUE(window.Closed());
  }
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), -1);
  EXPECT_EQ(FindShortcut(ledger, 115, kAltBit), 4);
  SetDefaultShortcuts(ledger);
  ASSERT_TRUE(LoadGridFile(ledger, file, ledger.fgShortcuts));
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), -1);
  EXPECT_EQ(FindShortcut(ledger, 115, kAltBit), 4);
}

// What the file could not give is set anew; and a disk that takes nothing leaves the window open.
TEST_F(ShortcutWindow, StoresAllActionsOfATableThatWasLost) {
  ledger.fgShortcuts.ClearData();
  frmShortcutKeys window(*main);
  EXPECT_EQ(Shown(window, "Save", "SHORTCUT"), "");
  Point(window, "Print");
  window.Enter(window.cboKeys, "P");
  std::filesystem::create_directory(ledger.File("ShortcutKeys.dat"));
  window.Press(window.cmdOK);
  EXPECT_FALSE(window.Closed());
  EXPECT_NE(test.shown.TakeMessage(), "");
  std::filesystem::remove(ledger.File("ShortcutKeys.dat"));
  window.Press(window.cmdOK);
  EXPECT_TRUE(window.Closed());
  EXPECT_EQ(FindShortcut(ledger, 80, 0), 1);
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), -1);
}

TEST_F(ShortcutWindow, SaysWhoElseHasAKey) {
  frmShortcutKeys window(*main);
  Point(window, "Booking confirmation");
  window.Enter(window.cboKeys, "S");
  window.Tick(window.chkCTRL, true);
  EXPECT_EQ(Shown(window, "Booking confirmation", "NOTE"), "Runs \"Save\" instead");
  EXPECT_EQ(Shown(window, "Save", "NOTE"), "Also set for \"Booking confirmation\"");
  // The window shows Detail before Month; so does the look-up of keys.
  Point(window, "Show Detail Calendar");
  window.Enter(window.cboKeys, "M");
  window.Tick(window.chkALT, true);
  EXPECT_EQ(Shown(window, "Show Month Calendar", "NOTE"), "Runs \"Show Detail Calendar\" instead");
  Point(window, "Save");
  window.Enter(window.cboKeys, "");
  EXPECT_EQ(Shown(window, "Booking confirmation", "NOTE"), "");
  window.Tick(window.chkCTRL, false);
  Point(window, "Print");
  window.Tick(window.chkCTRL, false);
  EXPECT_EQ(Shown(window, "Print", "NOTE"), "Without Ctrl or Alt it does nothing else in lists");
  window.Press(window.cmdOK);
  EXPECT_EQ(FindShortcut(ledger, 83, kCtrlBit), 35);
  EXPECT_EQ(FindShortcut(ledger, 77, kAltBit), 36);
}

}  // namespace
}  // namespace lm
