// The commands of the Pension page.
#include <gtest/gtest.h>

#include "core/shortcuts.h"
#include "shell/frmMain.h"
#include "shell/pages/pensionpage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct CellWatcher : ScreenObserver {
  std::string opened;
  void FieldChanged(Field&) override {}
  void CaptionChanged() override {}
  void FocusRequested(Field&) override {}
  void CellEditRequested(Grid& grid, int row, int) override {
    opened += grid.Name() + " " + std::to_string(row) + ";";
  }
  void ScreenClosed() override {}
};

struct PensionDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  PensionPage* page = nullptr;

  PensionDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    page = &window->PageOf<PensionPage>();
    window->ShowPage(Page::Pension);
    test.shown.tips.clear();
  }
  std::string Press(Field& button, const char* tab) {
    window->Enter(page->tabForm, tab);
    test.shown.messages.clear();
    window->Press(button);
    std::string told;
    for (const MessageBoxText& box : test.shown.messages)
      told += box.mainPrompt + "|" + box.minorPrompt;
    return told;
  }
};

TEST_F(PensionDesk, SaysWhatIsMissing) {
  for (const char* tab : {"Form A", "Form B", "Form SOLO"}) {
    EXPECT_EQ(Press(page->cmdAddPensionForm, tab),
              "Pension forms cannot be created if there are no Sessions.|");
    EXPECT_EQ(
        Press(page->cmdEditPensionForm, tab),
        "Edit " + std::string(tab) + "|Select a pension form to view by clicking on any row.");
    EXPECT_EQ(Press(page->cmdDeletePensionForm, tab),
              "Delete Pension Form|There is no form selected to delete.");
  }
  EXPECT_EQ(Press(page->cmdDeletePensionForm, "Payments"),
            "Delete Pension Payment|There is no payment selected to delete.");
}

TEST_F(PensionDesk, OnlyANewPaymentIsOpenedForTyping) {
  CellWatcher watcher;
  window->SetObserver(&watcher);
  Grid& payments = ledger.fgPensionPayments;
  const int old = test.AddRow(payments, {"ID=3", "FORM=B"});
  payments.Select(old, payments.ColIndex("AMOUNT"));
  EXPECT_EQ(Press(page->cmdAddPensionForm, "Payments"),
            "Pension payments cannot be created if there are no Practices.|");
  EXPECT_EQ(watcher.opened, "");
  test.AddRow(ledger.fgPractices, {"NAME=Riverside"});
  EXPECT_EQ(Press(page->cmdAddPensionForm, "Payments"), "");
  ASSERT_EQ(payments.Rows(), payments.FixedRows() + 2);
  const int added = payments.TextMatrix(old, "ID") == "3" ? old + 1 : old;
  EXPECT_EQ(payments.TextMatrix(added, "ID"), "4");
  EXPECT_EQ(watcher.opened, "fgPensionPayments " + std::to_string(added) + ";");
  window->SetObserver(nullptr);
}

}  // namespace
}  // namespace lm
