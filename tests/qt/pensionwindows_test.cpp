// The windows of pension forms, as they are used.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include "pension/frmPensionA.h"
#include "pension/frmPensionB.h"
#include "pension/frmPensionForms.h"
#include "pension/frmPensionSOLO.h"
#include "shell/qt/gridview.h"
#include "shell/qt/views.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

constexpr QSize kSmallScreen(1366, 768 - 70);  // less a title bar and a task bar

// A window over the sample month, shown and in front.
template <typename S>
struct Shown {
  TestLedger test;
  std::unique_ptr<S> screen;
  std::unique_ptr<ScreenDialog> dialog;

  Shown() {
    FillDemo(test);
    FillPensionDemo(test);
    EXPECT_EQ(test.shown.TakeMessage(), "");
    screen = std::make_unique<S>(test.ledger);
    if constexpr (requires { screen->Open(2); }) {
      EXPECT_TRUE(screen->Open(2));
    }
    dialog = std::make_unique<ScreenDialog>(*FindView(screen->Name()), *screen, nullptr);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  template <typename Widget>
  Widget* Find(const char* name) {
    return dialog->template findChild<Widget*>(name);
  }
  GridView& Details() { return *Find<GridView>("fgDetails"); }
  // A cell of fgDetails; lines count from 1.
  QModelIndex Line(int line, const char* key) {
    return Details().Model().index(line - 1, screen->fgDetails.ColIndex(key));
  }
  void Click(const QModelIndex& cell) {
    Details().scrollTo(cell);
    QTest::mouseClick(Details().viewport(), Qt::LeftButton, {},
                      Details().visualRect(cell).center());
  }
  void Type(const char* box, const char* text) {
    auto* line = Find<QLineEdit>(box);
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Tab);
    QApplication::processEvents();
  }
};

// What every form window owes its lines.
template <typename S>
void ExpectReadableLines(Shown<S>& w) {
  EXPECT_LE(w.dialog->width(), kSmallScreen.width()) << w.screen->Name();
  EXPECT_LE(w.dialog->height(), kSmallScreen.height()) << w.screen->Name();
  GridView& details = w.Details();
  EXPECT_FALSE(details.horizontalHeader()->isVisible()) << "there are no captions";
  EXPECT_EQ(details.horizontalHeader()->length(), details.viewport()->width());
  EXPECT_LE(details.verticalHeader()->length(), details.viewport()->height())
      << w.screen->Name() << ": every line is in sight";
  const QFontMetrics metrics(details.Style().font);
  for (int line = 1; line <= details.Model().rowCount(); ++line) {
    const QModelIndex label = w.Line(line, "LABEL");
    const QRect place = details.visualRect(label);
    EXPECT_LE(metrics
                  .boundingRect(QRect(0, 0, place.width() - 8, 0), Qt::TextWordWrap,
                                label.data().toString())
                  .height(),
              place.height())
        << label.data().toString().toStdString();
  }
}

TEST(PensionWindows, LongLabelsAreReadOnASmallScreen) {
  Shown<frmPensionA> a;
  ExpectReadableLines(a);
  EXPECT_GT(a.Details().rowHeight(2), a.Details().rowHeight(0)) << "two lines in the label";
  Shown<frmPensionB> b;
  ExpectReadableLines(b);
  Shown<frmPensionSOLO> solo;
  ExpectReadableLines(solo);
}

TEST(PensionWindows, HelpIsPressedInItsLine) {
  Shown<frmPensionB> w;
  w.Click(w.Line(3, "ICON"));
  EXPECT_EQ(w.test.shown.TakeMessage(), "Added Years");
  w.Click(w.Line(3, "LETTER"));
  EXPECT_EQ(w.test.shown.TakeMessage(), "");
  QTest::keyClick(&w.Details(), Qt::Key_Up);
  QTest::keyClick(&w.Details(), Qt::Key_Space);
  EXPECT_EQ(w.test.shown.TakeMessage(), "Employee Contribution Rate");
  Shown<frmPensionA> a;
  QTest::mouseClick(a.Find<QToolButton>("imgSentToPractice_Help"), Qt::LeftButton);
  EXPECT_TRUE(a.test.shown.TakeMessage().starts_with("This is the date the paper form"));
}

TEST(PensionWindows, AFigureIsTypedOnItsLineUntilTheFormIsSent) {
  Shown<frmPensionB> w;
  const auto editor = [&] { return w.Details().viewport()->template findChild<QLineEdit*>(); };
  const auto grand = w.Line(7, "VALUE").data().toString();
  w.Click(w.Line(5, "LABEL"));
  QTest::keyClicks(&w.Details(), "2");
  ASSERT_NE(editor(), nullptr) << "typing on the label reaches the figure";
  QTest::keyClicks(editor(), "5.50");
  QTest::keyClick(editor(), Qt::Key_Return);
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(w.Line(5, "VALUE").data().toString(), "25.50");
  EXPECT_NEAR(w.Line(7, "VALUE").data().toDouble(), grand.toDouble() + 25.5, 0.001);
  w.Click(w.Line(1, "VALUE"));
  QTest::keyClicks(&w.Details(), "9");
  EXPECT_EQ(editor(), nullptr) << "the first line is a sum";
  w.Type("cSentToHA", "3 feb");
  w.Details().setFocus();
  w.Click(w.Line(5, "VALUE"));
  QTest::keyClicks(&w.Details(), "9");
  EXPECT_EQ(editor(), nullptr) << "the form is sent";
  w.test.shown.answers = {Answer::No};
  QTest::mouseClick(w.Find<QPushButton>("cmdOk"), Qt::LeftButton);
  EXPECT_EQ(w.test.shown.TakeMessage(), "Recreate Pension Form");
  EXPECT_TRUE(w.screen->Closed());
  EXPECT_EQ(w.test.ledger.fgPensionB.TextMatrix(2, "ADDITIONAL"), "25.50");
  EXPECT_EQ(w.test.ledger.fgPensionB.TextMatrix(2, "SENTTOHA"), "03/02/2026");
}

TEST(PensionWindows, AFormOnAFormBKeepsItsDate) {
  Shown<frmPensionA> w;
  EXPECT_EQ(w.dialog->windowTitle(), "Pension Form A - January 2026 - Riverside Surgery");
  EXPECT_TRUE(w.Find<QLabel>("lblPensionBDetails")
                  ->text()
                  .startsWith("This Form A is included on the Form B for February 2026."));
  w.Type("cRcvdFromPractice", "banana");
  EXPECT_EQ(w.test.shown.TakeMessage(), "Please enter a valid date.");
  EXPECT_TRUE(w.Find<QLineEdit>("cRcvdFromPractice")->hasFocus());
  w.Type("cRcvdFromPractice", "1 mar");
  EXPECT_EQ(w.test.shown.TakeMessage(), "Unable to change date");
  EXPECT_EQ(w.screen->cRcvdFromPractice.Text(), "02/02/2026");
  QTest::keyClick(w.dialog.get(), Qt::Key_Escape);
  EXPECT_TRUE(w.screen->Closed());
}

TEST(PensionWindows, ListsShowAllTheirColumns) {
  const auto inSight = [](auto& w, const char* name, int tab) {
    w.screen->tabMain.SetSelected(tab);
    QApplication::processEvents();
    auto* list = w.template Find<GridView>(name);
    ASSERT_TRUE(list->isVisible()) << name;
    EXPECT_LE(list->horizontalHeader()->length(), list->viewport()->width()) << name;
    EXPECT_GT(list->Model().rowCount(), 0) << name;
  };
  Shown<frmPensionA> a;
  inSight(a, "fgGrouping", 1);
  inSight(a, "fgSessions", 3);
  Shown<frmPensionB> b;
  inSight(b, "fgPensionA", 1);
  Shown<frmPensionSOLO> solo;
  inSight(solo, "fgSessions", 1);
}

TEST(PensionWindows, TheDialogChoosesMonthAndForm) {
  Shown<frmPensionForms> w;
  const auto ticked = [&] {
    QString which;
    for (const char* name : {"optForm0", "optForm1", "optForm2", "optForm3"})
      if (w.Find<QRadioButton>(name)->isChecked()) which += w.Find<QRadioButton>(name)->text();
    return which;
  };
  EXPECT_EQ(ticked(), "All &Froms");
  QTest::keyClick(w.dialog.get(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticked() == "Form &Solo"; }));
  EXPECT_TRUE(w.screen->optForm3.Checked());
  QTest::mouseClick(w.Find<QToolButton>("cmdMonthDown"), Qt::LeftButton);
  EXPECT_EQ(w.Find<QLineEdit>("txtMonth")->text(), "01/01/2026");
  EXPECT_EQ(w.Find<QLabel>("lblMonth")->text(), "Jan 2026");
  w.Type("txtMonth", "17 mar");
  EXPECT_EQ(w.Find<QLabel>("lblMonth")->text(), "Mar 2026");
  QTest::mouseClick(w.Find<QToolButton>("imgPensionHelp1"), Qt::LeftButton);
  EXPECT_EQ(w.test.shown.TakeMessage(), "How the NHS Pension Forms are created");
  QTest::keyClick(w.Find<QLineEdit>("txtMonth"), Qt::Key_Escape);
  EXPECT_TRUE(w.screen->Closed());
}

}  // namespace
}  // namespace lm::test
