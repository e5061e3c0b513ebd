#include "shell/qt/mainwindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <fstream>
#include <set>

#include "core/files.h"
#include "core/options.h"
#include "core/shortcuts.h"
#include "documents/invoicepdf.h"
#include "shell/pages/sessionspage.h"
#include "shell/qt/binder.h"
#include "shell/qt/footband.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct Running {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;
  std::unique_ptr<MainWindow> window;

  Running() {
    SetDefaultShortcuts(test.ledger);
    FillDemo(test);
    AddWindows(windows);
    screen = std::make_unique<frmMain>(test.ledger, windows);
    window = std::make_unique<MainWindow>(*screen);
    screen->ShowPage(Page::Practices);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  // A page's widgets are there once it was shown.
  void ShowEveryPage() {
    for (const auto& page : screen->Pages()) screen->ShowPage(page->Spec().page);
  }
  template <typename Widget>
  Widget* Find(const char* name) {
    return window->findChild<Widget*>(name);
  }
};

// A letter that a shortcut has with Alt never reaches the menu or box under whose letter it is.
TEST(MainWindow, UnderlinesNoLetterThatAShortcutHas) {
  Running run;
  run.ShowEveryPage();
  QStringList texts;
  std::set<int> ofMenus;
  for (const QAction* menu : run.window->menuBar()->actions()) {
    const QKeySequence letter = QKeySequence::mnemonic(menu->text());
    if (letter.isEmpty()) continue;
    EXPECT_TRUE(ofMenus.insert(letter[0].key()).second) << menu->text().toStdString();
    EXPECT_LT(FindShortcut(run.test.ledger, letter[0].key(), kAltBit), 0)
        << menu->text().toStdString();
  }
  for (const auto* button : run.window->findChildren<QAbstractButton*>()) texts << button->text();
  for (const auto* label : run.window->findChildren<QLabel*>())
    if (label->buddy()) texts << label->text();
  for (const QString& text : texts) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    if (letter.isEmpty()) continue;
    const int key = letter[0].key();
    EXPECT_LT(FindShortcut(run.test.ledger, key, kAltBit), 0) << text.toStdString();
    EXPECT_FALSE(ofMenus.contains(key)) << text.toStdString();
  }
}

TEST(MainWindow, APageShowsWhatWasToldBeforeItWasBuilt) {
  Running run;
  Field& button = run.screen->PageOf<SessionsPage>().cmdAddSession;
  ASSERT_EQ(run.Find<QPushButton>("cmdAddSession"), nullptr);
  button.SetToolTip("Not today");
  run.screen->ShowPage(Page::Sessions);
  EXPECT_EQ(run.Find<QPushButton>("cmdAddSession")->toolTip(), "Not today");
  run.screen->ShowPage(Page::Practices);
  run.screen->ShowPage(Page::Sessions);
  EXPECT_EQ(run.window->findChildren<QPushButton*>("cmdAddSession").size(), 1);
}

TEST(MainWindow, ButtonsTellTheirKeys) {
  Running run;
  run.ShowEveryPage();
  EXPECT_EQ(run.Find<QPushButton>("cmdAddSession")->toolTip(), "Add Session (Ctrl+N)");
  EXPECT_EQ(run.Find<QPushButton>("cmdDeleteSession")->toolTip(), "Delete Session (Ctrl+Delete)");
  EXPECT_EQ(run.Find<QPushButton>("cmdAddManySessions")->toolTip(),
            "Add Several Sessions (Ctrl+M)");
  EXPECT_EQ(run.Find<QPushButton>("cmdViewInvoice")->toolTip(), "View Invoice (Ctrl+O)");
  Grid& keys = run.test.ledger.fgShortcuts;
  keys.SetTextMatrix(keys.FindRow("13", "IDENTIFIER"), "KEY", "113");
  run.screen->ApplyShortcutsToMenus();
  EXPECT_EQ(run.Find<QPushButton>("cmdAddSession")->toolTip(), "Add Session (Ctrl+F2)");
}

TEST(MainWindow, ShortcutsGoBeforeMenuLettersAndBoxes) {
  Running run;
  QTest::keyClick(run.window->CurrentList(), Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(run.screen->CurrentPage(), Page::Sessions);
  QTest::keyClick(run.window.get(), Qt::Key_T, Qt::AltModifier);
  EXPECT_EQ(run.screen->CurrentPage(), Page::LMToday)
      << "Alt+T is LM Today before it is the Tools menu";
  QTest::keyClick(run.window.get(), Qt::Key_F6);
  EXPECT_FALSE(run.screen->ShortcutBarVisible());
  EXPECT_FALSE(run.Find<QListWidget>("fgMenu")->isVisible());
}

TEST(MainWindow, BarChoosesPages) {
  Running run;
  auto* bar = run.Find<QListWidget>("fgMenu");
  EXPECT_EQ(bar->count(), 10);
  EXPECT_EQ(bar->currentRow(), 5);
  bar->setCurrentRow(8);
  EXPECT_EQ(run.screen->CurrentPage(), Page::MyDetails);
  for (int row = 0; row < bar->count(); ++row) EXPECT_FALSE(bar->item(row)->icon().isNull()) << row;
  SetOption(run.test, optIconsInToolbar, "FALSE");
  run.screen->ShowPage(Page::Sessions);
  EXPECT_TRUE(bar->item(0)->icon().isNull());
}

TEST(MainWindow, AChosenPageGetsTheKeys) {
  Running run;
  auto* bar = run.Find<QListWidget>("fgMenu");
  QTest::keyClick(run.window.get(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(run.window->CurrentList()->hasFocus());
  QTest::keyClick(run.window.get(), Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(run.Find<QLineEdit>("txtMyDetails17")->hasFocus());
  QTest::keyClick(run.window.get(), Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(run.Find<QTableView>("fgUpcoming")->hasFocus());
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_Home);
  QTest::keyClick(bar, Qt::Key_Down);
  EXPECT_EQ(run.screen->CurrentPage(), Page::Sessions);
  EXPECT_TRUE(bar->hasFocus()) << "the arrows walk on";
  QTest::mouseClick(bar->viewport(), Qt::LeftButton, {},
                    bar->visualItemRect(bar->item(5)).center());
  EXPECT_EQ(run.screen->CurrentPage(), Page::Practices);
  EXPECT_TRUE(run.window->CurrentList()->hasFocus());
}

TEST(MainWindow, EveryShownMenuNodeHasItsAction) {
  Running run;
  std::function<void(const std::vector<MenuNode>&)> walk = [&](const std::vector<MenuNode>& nodes) {
    for (const MenuNode& node : nodes) {
      if (node.hidden || node.name.empty()) continue;
      const bool found = node.command ? run.Find<QAction>(node.name.c_str()) != nullptr
                                      : run.Find<QMenu>(node.name.c_str()) != nullptr;
      EXPECT_TRUE(found) << node.name;
      walk(node.children);
    }
  };
  walk(run.screen->MenuBar());
  EXPECT_EQ(run.Find<QMenu>("mnuHideMe_AlwaysHideLastToPreventErrors"), nullptr);

  auto* file = run.Find<QMenu>("mnuFile");
  emit file->aboutToShow();
  EXPECT_EQ(run.Find<QAction>("mnuSave")->text(), "&Save\tCtrl+S");
  EXPECT_TRUE(run.Find<QAction>("mnuSave")->isEnabled());
}

TEST(MainWindow, MyDetailsAreTakenBeforeThePageChanges) {
  Running run;
  run.screen->ShowPage(Page::MyDetails);
  auto* title = run.Find<QLineEdit>("txtMyDetails17");
  title->setFocus();
  title->selectAll();
  QTest::keyClicks(title, "Prof");
  QTest::keyClick(title, Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(MyDetail(run.test, kMyTitleField), "Prof");
  EXPECT_EQ(run.screen->CurrentPage(), Page::Sessions);
}

TEST(MainWindow, AListOutOfSightCatchesUpWhenItsPageIsShown) {
  Running run;
  Grid& sessions = run.test.ledger.fgSessions;
  run.screen->ShowPage(Page::Sessions);
  run.screen->Enter(run.screen->PageOf<SessionsPage>().tabSessions, "All");
  QApplication::processEvents();
  const GridView& list = *run.window->CurrentList();
  const int shown = list.model()->rowCount();
  run.screen->ShowPage(Page::Practices);
  sessions.RemoveItem(sessions.Rows() - 1);
  sessions.RemoveItem(sessions.FixedRows());
  QApplication::processEvents();
  run.screen->ShowPage(Page::Sessions);
  EXPECT_EQ(list.model()->rowCount(), shown - 2);
  EXPECT_EQ(list.Model().GridRow(list.model()->index(shown - 3, 0)), sessions.Rows() - 1);
}

TEST(MainWindow, StatusBarCounts) {
  Running run;
  run.screen->ShowPage(Page::Sessions);
  run.screen->Enter(run.screen->PageOf<SessionsPage>().tabSessions, "All");
  run.window->RefreshStatus();
  QStringList texts;
  for (const QLabel* label : run.window->statusBar()->findChildren<QLabel*>())
    texts << label->text();
  const QString all = texts.join("|");
  EXPECT_TRUE(all.contains("New, not saved: 2 sessions")) << all.toStdString();
  EXPECT_TRUE(all.contains("Edited, not saved: a session")) << all.toStdString();
}

TEST(MainWindow, SeveralRowsAreSelectedByKeysAndMouse) {
  Running run;
  run.screen->ShowPage(Page::Sessions);
  auto& page = run.screen->PageOf<SessionsPage>();
  run.screen->Enter(page.tabSessions, "All");
  QApplication::processEvents();
  GridView& list = *run.window->CurrentList();
  const RecordList& records = *page.ListOf(run.test.ledger.fgSessions);
  const auto* told = run.Find<QLabel>("lblSelection");
  list.setFocus();
  list.setCurrentIndex(list.model()->index(2, 3));
  EXPECT_EQ(records.SelectedRows().size(), 1u);
  EXPECT_FALSE(told->isVisible());
  QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(records.SelectedRows().size(), 2u);
  EXPECT_TRUE(told->text().startsWith("2 sessions selected, ")) << FromQt(told->text());
  const auto click = [&](int row, Qt::KeyboardModifiers keys, Qt::MouseButton button) {
    QTest::mouseClick(list.viewport(), button, keys,
                      list.visualRect(list.model()->index(row, 3)).center());
  };
  click(6, Qt::ControlModifier, Qt::LeftButton);
  EXPECT_EQ(records.SelectedRows().size(), 3u);
  click(2, Qt::NoModifier, Qt::RightButton);
  EXPECT_EQ(records.SelectedRows().size(), 3u) << "the menu is for all of them";
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(std::count(run.test.shown.clipboard.begin(), run.test.shown.clipboard.end(), '\n'), 4);
  QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(records.SelectedRows().size(), 12u);
  QTest::keyClick(&list, Qt::Key_Delete);  // the safe answer is No
  EXPECT_EQ(run.test.shown.TakeMessage(), "Delete 12 sessions?");
  EXPECT_EQ(list.model()->rowCount(), 12);
  click(4, Qt::NoModifier, Qt::LeftButton);
  EXPECT_EQ(records.SelectedRows().size(), 1u);
  EXPECT_FALSE(told->isVisible());
}

TEST(MainWindow, TheFootOfAListBringsAllOfItIntoSight) {
  Running run;
  run.screen->ShowPage(Page::Sessions);
  auto& page = run.screen->PageOf<SessionsPage>();
  run.screen->Enter(page.tabSessions, "Last Month");
  run.window->RefreshStatus();
  const GridView* list = run.window->CurrentList();
  auto* foot = list->parentWidget()->findChild<FootBand*>();
  ASSERT_TRUE(foot->isVisible());
  auto* count = foot->findChild<QLabel*>();
  EXPECT_TRUE(count->accessibleName().contains("Total ")) << count->accessibleName().toStdString();
  EXPECT_TRUE(count->accessibleName().contains("of 12 sessions"));
  ASSERT_TRUE(count->text().contains("href"));
  count->linkActivated("all");
  EXPECT_EQ(page.tabSessions.Text(), "All");
  run.window->RefreshStatus();
  EXPECT_EQ(count->text(), "12 sessions");
}

TEST(MainWindow, InvoicesPageOpensDocumentsByButtonAndMenu) {
  Running run;
  const Grid& invoices = run.test.ledger.fgInvoices;
  const auto document = InvoiceFile(run.test, invoices.FixedRows() + 1);
  std::filesystem::create_directories(document.parent_path());
  std::ofstream(document) << "%PDF-1.7\n%%EOF\n";
  run.screen->ShowPage(Page::Invoices);
  GridView* list = run.window->CurrentList();
  EXPECT_EQ(list->model()->rowCount(), 3);
  list->selectRow(1);

  QTest::mouseClick(run.Find<QToolButton>("cmdViewInvoice_Options"), Qt::LeftButton);
  auto* menu = run.Find<QMenu>("cmdViewInvoice_Options_Menu");
  ASSERT_TRUE(menu->isVisible());
  EXPECT_TRUE(run.test.shown.opened.empty()) << "the small button only drops its menu";
  QStringList texts;
  for (const QAction* action : menu->actions()) texts << action->text();
  EXPECT_EQ(texts.join("|").toStdString(),
            "Open Document\tCtrl+O|Recreate then Open\tShift+Ctrl+O");
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  const std::vector<std::string> once{PathText(document)};
  EXPECT_EQ(run.test.shown.opened, once);
  run.test.shown.opened.clear();
  QTest::mouseClick(run.Find<QPushButton>("cmdViewInvoice"), Qt::LeftButton);
  EXPECT_EQ(run.test.shown.opened, once);
}

TEST(MainWindow, ClosesWhenTheScreenAgrees) {
  Running run;
  run.test.shown.answers = {Answer::No};
  run.window->close();
  EXPECT_TRUE(run.window->isVisible());
  run.test.shown.answers = {Answer::Yes};
  run.window->close();
  EXPECT_TRUE(run.screen->Closed());
  EXPECT_FALSE(run.window->isVisible());
}

}  // namespace
}  // namespace lm::test
