// Message boxes, keys, paper, and what the operating system tells.
#include "shell/qt/desktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPdfWriter>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "core/shortcuts.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/icons.h"
#include "shell/qt/printing.h"
#include "shell/qt/progresswindow.h"
#include "shell/qt/readablepalette.h"
#include "shell/qt/virtualkeys.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

MessageBoxText Box(Buttons buttons) {
  MessageBoxText box;
  box.title = "LedgerMinder";
  box.mainPrompt = "First line\r\nSecond <b>line</b>";
  box.buttons = buttons;
  box.sound = false;
  return box;
}

// Presses a key, or a button by name, in the box that is about to open.
Answer AnswerOf(Buttons buttons, Qt::Key key, const char* button = nullptr) {
  QTimer::singleShot(0, [=] {
    QWidget* box = QApplication::activeModalWidget();
    if (button)
      box->findChild<QPushButton*>(button)->click();
    else
      QTest::keyClick(box->focusWidget(), key);
  });
  DesktopMessages messages;
  return messages.Show(Box(buttons));
}

TEST(MessageBox, AnswersByKeyAndButton) {
  struct Case {
    Buttons buttons;
    Answer escape, enter;
  };
  const Case cases[] = {{Buttons::Ok, Answer::Ok, Answer::Ok},
                        {Buttons::OkCancel, Answer::Cancel, Answer::Ok},
                        {Buttons::YesNoCancel, Answer::Cancel, Answer::Cancel},
                        {Buttons::YesNo, Answer::No, Answer::No}};
  for (const Case& each : cases) {
    EXPECT_EQ(AnswerOf(each.buttons, Qt::Key_Escape), each.escape);
    EXPECT_EQ(AnswerOf(each.buttons, Qt::Key_Return), each.enter);
  }
  EXPECT_EQ(AnswerOf(Buttons::YesNoCancel, Qt::Key_unknown, "cmdYes"), Answer::Yes);
  EXPECT_EQ(AnswerOf(Buttons::OkCancel, Qt::Key_unknown, "cmdOk"), Answer::Ok);
}

TEST(MessageBox, EveryIconHasItsPicture) {
  const std::pair<int, const char*> icons[] = {
      {0, "picCritical"},    {1, "picExclamation"}, {2, "picInformation"}, {3, "picQuestion"},
      {4, "picExclamation"}, {5, "picCompleted"},   {6, "picTip"},         {99, "picInformation"}};
  for (const auto& [number, name] : icons) {
    MessageBoxText text = Box(Buttons::Ok);
    text.icon = static_cast<Icon>(number);
    const frmMesgBox box(text);
    const auto* picture = box.findChild<QLabel*>(name);
    ASSERT_NE(picture, nullptr) << number;
    EXPECT_FALSE(picture->pixmap().isNull()) << number;
  }
}

TEST(MessageBox, ALongTextLeavesTheButtonsOnTheScreen) {
  MessageBoxText text = Box(Buttons::Ok);
  for (int i = 0; i < 200; ++i) text.minorPrompt += "\nSurgery - INV-00001";
  frmMesgBox box(text);
  box.show();
  EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
  const auto* label = box.findChild<QLabel*>("txtMinorPrompt");
  EXPECT_GE(label->height(), 200 * label->fontMetrics().lineSpacing()) << "all of it is there";
}

ProgressWindow* ShownProgress() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* progress = qobject_cast<ProgressWindow*>(window); progress && progress->isVisible())
      return progress;
  return nullptr;
}

TEST(Progress, ComesOnlyWhenTheWorkLastsAndGoesWithIt) {
  DesktopProgress progress;
  progress.Show(-1, "Loading data...");
  QTest::qSleep(600);
  progress.Show(0, "one");
  EXPECT_EQ(ShownProgress(), nullptr) << "a text alone begins no work";
  QTest::qSleep(600);
  progress.Show(40, "two");
  ProgressWindow* window = ShownProgress();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isModal());
  progress.Show(-1, "three");
  EXPECT_EQ(window->findChild<QProgressBar*>()->value(), 40);
  EXPECT_EQ(window->findChild<QLabel*>("lblProgress")->text(), "three");
  QTest::keyClick(window, Qt::Key_Escape);
  window->close();
  EXPECT_EQ(ShownProgress(), window) << "the user does not end the work";
  EXPECT_EQ(AnswerOf(Buttons::YesNo, Qt::Key_unknown, "cmdYes"), Answer::Yes)
      << "a message stands over it and can be answered";
  EXPECT_EQ(ShownProgress(), window);
  progress.Hide();
  progress.Hide();
  EXPECT_EQ(ShownProgress(), nullptr);
}

TEST(Progress, OffersCancelToWorkThatCanBeLeft) {
  DesktopProgress progress;
  EXPECT_FALSE(progress.Cancelled());
  progress.Show(0, "waiting");
  QTest::qSleep(600);
  EXPECT_FALSE(progress.Cancelled());
  ProgressWindow* window = ShownProgress();
  ASSERT_NE(window, nullptr) << "though nothing was shown meanwhile";
  EXPECT_TRUE(window->findChild<QPushButton*>("cmdCancel")->isVisible());
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_TRUE(progress.Cancelled());
  EXPECT_EQ(ShownProgress(), window) << "until the work is over";
  progress.Hide();
  EXPECT_FALSE(progress.Cancelled());
}

TEST(Progress, BelongsToTheSplashDuringTheStart) {
  DesktopProgress progress;
  progress.OpenSplash();
  progress.Show(12, "Loading Preferences...");
  QTest::qSleep(600);
  progress.Show(97, "Tidying up after loading...");
  EXPECT_EQ(ShownProgress(), nullptr);
  progress.CloseSplash();
}

TEST(ReadablePalette, DisabledTextStandsOutFromItsGround) {
  for (const auto& [text, ground] : {std::pair{Qt::black, Qt::white}, {Qt::white, Qt::black}}) {
    QPalette palette(text, ground, ground, ground, ground, text, text, ground, ground);
    palette = ReadablePalette(palette);
    const int apart = palette.color(QPalette::Disabled, QPalette::Text).lightness() -
                      palette.color(QPalette::Active, QPalette::Base).lightness();
    EXPECT_GT(std::abs(apart), 120);
    EXPECT_LT(std::abs(apart), 200) << "it must still be told from enabled text";
  }
}

TEST(VirtualKeys, EveryKeyOfTheShortcutWindowCanBePressed) {
  std::map<int, int> codes;  // what a press of each Qt key gives
  for (int key = 0x20; key < 0x60; ++key)
    codes[VirtualKey(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier))] = key;
  for (int key = Qt::Key_Escape; key <= Qt::Key_F12; ++key)
    codes[VirtualKey(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier))] = key;
  for (const KeyName& name : KeyNames()) {
    EXPECT_TRUE(name.code == kNoKey || codes.contains(name.code)) << name.name;
  }
  EXPECT_EQ(VirtualKey(QKeyEvent(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier)), -1);
  EXPECT_EQ(
      ShiftBits(QKeyEvent(QEvent::KeyPress, Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier)),
      3);
  EXPECT_EQ(ShiftBits(QKeyEvent(QEvent::KeyPress, Qt::Key_S, Qt::AltModifier)), 4);
}

TEST(Desktop, ListsProcessesWithoutTheCommandLineProgram) {
  DesktopSystem system;
  const auto names = system.RunningProcesses();
  EXPECT_NE(std::find(names.begin(), names.end(), "qt_tests"), names.end());
  EXPECT_FALSE(system.Open("/no/such/file/at all"));
}

TEST(Desktop, BusyPointerNests) {
  DesktopWindows windows;
  windows.BusyPointer(true);
  windows.BusyPointer(true);
  windows.BusyPointer(false);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  windows.BusyPointer(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(Icons, EveryDrawingPaintsAndUnknownOnesDoNot) {
  for (const char* name : {"calendar", "sessions", "mydetails", "lmtoday", "plus", "edit", "copy",
                           "delete", "help", "pdf", "down", "mail"})
    EXPECT_FALSE(LineIcon(name).pixmap(24).toImage().isNull()) << name;
  EXPECT_TRUE(LineIcon("no such drawing").isNull());
}

TEST(Printing, AListGoesOverItsPages) {
  TestLedger test;
  FillDemo(test);
  const QTemporaryDir folder;
  const auto pages = [&](int rows) {
    const RedrawOff redrawOff(test.ledger.fgSessions);
    while (test.ledger.fgSessions.Rows() < rows)
      test.AddRow(test.ledger.fgSessions, {"SDATE=banana", "RATE=12,3x"});
    QPdfWriter paper(folder.filePath("list.pdf"));
    return PaintGrid(paper, test, test.ledger.fgSessions, {"Sessions", "All"});
  };
  EXPECT_EQ(pages(10), 1);
  EXPECT_GT(pages(300), 3);
  EXPECT_GT(QFile(folder.filePath("list.pdf")).size(), 1000);
}

}  // namespace
}  // namespace lm::test
