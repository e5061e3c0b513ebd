// Tips: one at a time, above the page and not over it, and never one that was closed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <fstream>
#include <memory>

#include "core/shortcuts.h"
#include "shell/qt/desktop.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/tipstrip.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct Strip {
  QWidget window;
  TipStrip tips;
  int stopped = 0;

  explicit Strip(const TempDirectory& folder) : tips(folder.Path()) {
    (new QVBoxLayout(&window))->addWidget(&tips);
    window.show();
  }
  void Add(const QString& heading, const QString& text = "Words.") {
    tips.Add(heading, text, [this] { ++stopped; });
  }
  QString Shown() const {
    return tips.isVisible() ? tips.findChild<QLabel*>("txtMainPrompt")->text() : QString();
  }
  void Close(bool stop = false) {
    tips.findChild<QCheckBox*>("chkStopShowingTips")->setChecked(stop);
    tips.findChild<QPushButton*>("cmdOk")->click();
  }
};

TEST(TipStrip, TipsComeOneAtATimeAndCanBeStopped) {
  TempDirectory folder;
  Strip strip(folder);
  for (const char* heading : {"One", "Two", "Three"}) strip.Add(heading);
  EXPECT_EQ(strip.Shown(), "One");
  strip.Close();
  EXPECT_EQ(strip.Shown(), "Two");
  EXPECT_EQ(strip.stopped, 0);
  strip.Close(true);
  EXPECT_EQ(strip.Shown(), "") << "the third is not shown any more";
  EXPECT_EQ(strip.stopped, 1);
  strip.tips.CloseTip();
  EXPECT_EQ(strip.stopped, 1);
}

TEST(TipStrip, WhatWasClosedDoesNotComeBackInLaterRuns) {
  TempDirectory folder;
  {
    Strip first(folder);
    first.Add("Sessions Page", "Choose your first practice.");
    first.Add("Invoices");
    first.Close();
  }
  Strip second(folder);
  second.Add("Sessions Page", "Choose your first practice.");
  EXPECT_EQ(second.Shown(), "");
  second.Add("Sessions Page", "Something else.");
  EXPECT_EQ(second.Shown(), "Sessions Page");
  second.Close();
  second.Add("Invoices");
  EXPECT_EQ(second.Shown(), "Invoices") << "it was shown, and not closed";
}

TEST(TipStrip, ADamagedFileKnowsOfNone) {
  TempDirectory folder;
  std::ofstream(folder.Path() / "Tips.ini")
      << std::string(200, '\xff') << "closed=@Variant(\\0\\0)";
  Strip strip(folder);
  strip.Add("One");
  EXPECT_EQ(strip.Shown(), "One");
}

TEST(TipStrip, WaitsUntilOtherWindowsAreClosed) {
  TempDirectory folder;
  Strip strip(folder);
  auto below = std::make_unique<QDialog>(&strip.window);
  below->setModal(true);
  below->show();
  auto above = std::make_unique<QDialog>(below.get());
  above->setModal(true);
  above->show();
  strip.Add("One");
  strip.Add("Two");
  EXPECT_EQ(strip.Shown(), "");
  above.reset();
  QApplication::processEvents();
  EXPECT_EQ(strip.Shown(), "");
  below.reset();
  QApplication::processEvents();
  EXPECT_EQ(strip.Shown(), "One");
}

TEST(TipStrip, StandsAboveTheListAndLeavesTheKeysThere) {
  TestLedger test;
  SetDefaultShortcuts(test.ledger);
  FillDemo(test);
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test.ledger, windows);
  MainWindow window(screen);
  screen.ShowPage(Page::Practices);
  DesktopMessages messages;
  MessageBoxText tip;
  tip.mainPrompt = "Practices";
  tip.minorPrompt = "First line.\r\n\r\nSecond line.";
  messages.ShowTip(tip, nullptr);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto* strip = window.findChild<TipStrip*>();
  ASSERT_TRUE(strip->isVisible());
  EXPECT_EQ(strip->findChild<QLabel*>("txtMinorPrompt")->text(), "First line. Second line.");
  EXPECT_EQ(strip->accessibleName(), "Tip: Practices");
  QWidget* list = window.CurrentList();
  EXPECT_LE(strip->mapTo(&window, strip->rect().bottomLeft()).y(),
            list->mapTo(&window, QPoint()).y());
  EXPECT_TRUE(list->hasFocus());
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_FALSE(strip->isVisible());

  tip.mainPrompt = "Another";
  messages.ShowTip(tip, nullptr);
  auto* close = strip->findChild<QPushButton*>("cmdOk");
  close->setFocus();
  QTest::keyClick(close, Qt::Key_Space);
  EXPECT_FALSE(strip->isVisible());
  EXPECT_TRUE(list->hasFocus()) << "the focus goes back to the page";
}

}  // namespace
}  // namespace lm::test
