// The pickers as a person meets them: dropped from a session's buttons and from a list's cell.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "records/frmSession.h"
#include "shell/qt/gridview.h"
#include "shell/qt/views.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

struct OpenSessionWindow {
  TestLedger test;
  std::unique_ptr<frmSession> session;
  std::unique_ptr<ScreenDialog> dialog;

  OpenSessionWindow() {
    FillDemo(test);
    session = std::make_unique<frmSession>(test.ledger);
    EXPECT_TRUE(session->OpenSession("6"));
    dialog = std::make_unique<ScreenDialog>(*FindView("frmSession"), *session, nullptr);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }

  // Presses a button and types keys into the picker that drops.
  void Pick(QToolButton& button, const std::vector<Qt::Key>& keys) {
    test.shown.modal.push_back([&](Screen& screen) {
      QTimer::singleShot(0, [&] {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        for (const Qt::Key key : keys) QTest::keyClick(popup->focusWidget(), key);
        if (popup->isVisible()) popup->close();
      });
      RunView(screen, dialog.get());
    });
    QTest::mouseClick(&button, Qt::LeftButton);
  }
  void Pick(const char* button, const std::vector<Qt::Key>& keys) {
    Pick(*dialog->findChild<QToolButton*>(button), keys);
  }
};

TEST(Pickers, StandOutsideTheTabOrderAndDropFromTheirBox) {
  OpenSessionWindow window;
  auto* date = window.dialog->findChild<QLineEdit*>("cSDate");
  auto* time = window.dialog->findChild<QLineEdit*>("cSTime");
  date->setFocus();
  QTest::keyClick(date, Qt::Key_Tab);
  EXPECT_TRUE(time->hasFocus());
  QTest::keyClick(time, Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(time->text(), "09:00") << "an Alt letter types nothing";

  window.test.shown.modal.push_back(
      [](Screen& screen) { EXPECT_EQ(screen.Caption(), "End Date"); });
  QTest::keyClick(window.dialog->findChild<QLineEdit*>("cEDate"), Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(window.test.shown.modal.empty()) << "the picker was opened";
  EXPECT_TRUE(window.dialog->findChild<QLineEdit*>("cEDate")->hasFocus());

  for (const auto* button : window.dialog->findChildren<QToolButton*>()) {
    const QString box = button->property("pickerOf").toString();
    EXPECT_TRUE(box.isEmpty() || window.dialog->findChild<QLineEdit*>(box)) << qPrintable(box);
  }
}

TEST(Pickers, DateTimeAndAmountByKeyboard) {
  OpenSessionWindow window;
  window.Pick("cmdStart", {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(window.session->cSDate.Text(), "11/02/2026");
  window.Pick("cmdEndTime", {Qt::Key_Up, Qt::Key_Return});
  EXPECT_EQ(window.session->cETime.Text(), "17:31");
  window.Pick("cmdRate", {Qt::Key_Backspace, Qt::Key_1, Qt::Key_Return});
  EXPECT_TRUE(window.session->cRate.Text().ends_with("1") ||
              window.session->cRate.Text().ends_with("1.00"))
      << window.session->cRate.Text();
}

TEST(Pickers, LeavingOneWritesNothing) {
  OpenSessionWindow window;
  window.Pick("cmdStart", {Qt::Key_Down});
  EXPECT_EQ(window.session->cSDate.Text(), "03/02/2026");
  window.Pick("cmdStart", {Qt::Key_Down, Qt::Key_Escape});
  EXPECT_EQ(window.session->cSDate.Text(), "03/02/2026");
}

TEST(Pickers, AListCellTakesWhatWasPicked) {
  OpenSessionWindow window;
  window.session->tabMain.SetSelected(3);
  auto* list = window.dialog->findChild<GridView*>("fgExtras");
  Grid& extras = window.session->fgExtras;
  list->EditCellAt(extras.FixedRows(), extras.ColIndex("RATE"));
  auto* button = list->viewport()->findChild<QToolButton*>();
  ASSERT_NE(button, nullptr);
  window.Pick(*button, {Qt::Key_4, Qt::Key_Return});
  EXPECT_EQ(extras.TextMatrix(extras.FixedRows(), "RATE"), "254");
  EXPECT_EQ(window.session->cExtras.Text(), "254.00");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(list->viewport()->findChild<QLineEdit*>(), nullptr) << "the editor is closed";
}

}  // namespace
}  // namespace lm::test
