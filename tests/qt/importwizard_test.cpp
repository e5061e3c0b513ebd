// The import wizard by the keyboard alone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "connections/frmImportWizard.h"
#include "core/hosts.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"
#include "shell/qt/views.h"
#include "tests/connections/feeds.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

void Press(Qt::Key key) {
  QTest::keyClick(QApplication::focusWidget(), key);
  QApplication::processEvents();
}

std::string InFocus() { return QApplication::focusWidget()->objectName().toStdString(); }

TEST(ImportWizardWindow, GoesByTheKeyboard) {
  TestLedger test;
  FillDemo(test);
  const std::string id(32, 'a');
  test.shown.web[std::string(kGPnetworks) + "/lm/?uid=" + id] =
      FeedXml({SentSession{.practice = "Far Away"}.Xml(),
               SentSession{.practice = "Riverside Surgery", .date = "2026-02-20"}.Xml()});
  frmImportWizard wizard(test, *FindBookingFeed("GPnetworks"));
  ScreenDialog dialog(*FindView(wizard.Name()), wizard, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  ASSERT_EQ(InFocus(), "txtUniqueID");
  QTest::keyClicks(QApplication::focusWidget(), ToQt(id));
  dialog.findChild<QWidget*>("chkAccepted")->setFocus();
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);

  ASSERT_EQ(InFocus(), "fgPractices");
  Press(Qt::Key_Return);
  auto* choices = dialog.findChild<GridView*>("fgPractices")->findChild<QComboBox*>();
  ASSERT_NE(choices, nullptr);
  QTest::keyClick(choices, Qt::Key_Home);
  QTest::keyClick(choices, Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(wizard.fgPractices.TextMatrix(wizard.fgPractices.FixedRows(), "ACTION"), "-2");
  dialog.findChild<QWidget*>("cmdNext")->setFocus();
  Press(Qt::Key_Return);

  ASSERT_EQ(InFocus(), "fgSessions");
  const int row = wizard.fgSessions.FixedRows();
  EXPECT_EQ(wizard.fgSessions.TextMatrix(row, "IMPORT"), "TRUE");
  Press(Qt::Key_Space);
  EXPECT_EQ(wizard.fgSessions.TextMatrix(row, "IMPORT"), "FALSE");
  wizard.fgSessions.Select(row, wizard.fgSessions.ColIndex("IMPORT"));
  Press(Qt::Key_F2);  // a tick is not typed
  EXPECT_EQ(dialog.findChild<GridView*>("fgSessions")->findChild<QLineEdit*>(), nullptr);
  Press(Qt::Key_Space);
  dialog.findChild<QWidget*>("cmdNext")->setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(InFocus(), "cmdNext");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(wizard.Closed());
}

}  // namespace
}  // namespace lm::test
