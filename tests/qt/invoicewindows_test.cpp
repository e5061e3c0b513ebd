// The windows of invoices and of booking confirmations, as they are used.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include "documents/frmBookingConfirmation.h"
#include "documents/frmInvoice.h"
#include "documents/frmPrepareInvoices.h"
#include "shell/qt/gridview.h"
#include "shell/qt/views.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

// A window over the sample data, shown and in front.
template <typename S>
struct Shown {
  TestLedger test;
  std::unique_ptr<S> screen;
  std::unique_ptr<ScreenDialog> dialog;

  explicit Shown(const std::function<void(S&)>& prepare = {}) {
    FillDemo(test);
    screen = std::make_unique<S>(test.ledger);
    if (prepare) prepare(*screen);
    dialog = std::make_unique<ScreenDialog>(*FindView(screen->Name()), *screen, nullptr);
    dialog->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  template <typename Widget>
  Widget* Find(const char* name) {
    return dialog->template findChild<Widget*>(name);
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

TEST(PrepareInvoicesWindow, ChoicesAndQuickLinks) {
  Shown<frmPrepareInvoices> w;
  const auto ticked = [&] {
    std::string which;
    for (const char* name : {"optCreateInvoices0", "optCreateInvoices1", "optCreateInvoices2"})
      if (w.Find<QRadioButton>(name)->isChecked()) which += name[17];
    return which;
  };
  EXPECT_EQ(ticked(), "2");
  EXPECT_EQ(w.Find<QLineEdit>("txtSDate")->text(), "01/02/2026");
  EXPECT_EQ(w.Find<QLineEdit>("txtEDate")->text(), "28/02/2026");
  QTest::keyClick(w.dialog.get(), Qt::Key_B, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticked() == "1"; }));
  EXPECT_TRUE(w.screen->optCreateInvoices1.Checked());
  emit w.Find<QLabel>("lblLastMonth")->linkActivated("#");
  EXPECT_EQ(ticked(), "2");
  EXPECT_EQ(w.Find<QLineEdit>("txtSDate")->text(), "01/01/2026");
  w.Type("txtIDate", "5 feb");
  EXPECT_EQ(w.screen->txtIDate.Text(), "05/02/2026");
  QTest::keyClick(w.Find<QLineEdit>("txtIDate"), Qt::Key_Escape);
  EXPECT_TRUE(w.screen->Closed());
}

TEST(InvoiceWindow, ShowsItsStateAndFollowsTheDates) {
  Shown<frmInvoice> w([](frmInvoice& screen) { ASSERT_TRUE(screen.Open("3")); });
  EXPECT_EQ(w.dialog->windowTitle(), "Invoice (INV-00003) St Mary's Out of Hours");
  EXPECT_EQ(w.Find<QLabel>("lblStatus")->text(), "Invoice not sent yet.");
  EXPECT_TRUE(w.screen->cmdRemove.Enabled());
  w.Type("cSDate", "2 feb");
  EXPECT_EQ(w.Find<QLabel>("lblStatus")->text(), "Invoice sent yesterday.");
  EXPECT_FALSE(w.screen->cmdRemove.Enabled());
  w.Type("cPayDate", "banana");
  EXPECT_TRUE(w.Find<QLineEdit>("cPayDate")->hasFocus());
  w.Type("cPayDate", "3 feb");
  EXPECT_EQ(w.Find<QLabel>("lblStatus")->text(), "Invoice paid after 1 day.");
  w.Type("cPayMethod", "BACS");
  QTest::mouseClick(w.Find<QPushButton>("cmdOk"), Qt::LeftButton);
  EXPECT_TRUE(w.screen->Closed());
  const Grid& invoices = w.test.ledger.fgInvoices;
  EXPECT_EQ(invoices.TextMatrix(invoices.FindRow("3", "ID"), "PAYMETHOD"), "BACS");
}

TEST(InvoiceWindow, SessionsFillTheirTabWithATotal) {
  Shown<frmInvoice> w([](frmInvoice& screen) { ASSERT_TRUE(screen.Open("1")); });
  w.screen->tabMain.SetSelected(1);
  QApplication::processEvents();
  auto* list = w.Find<GridView>("fgInvSessions");
  ASSERT_TRUE(list->isVisible());
  const auto cell = [&](int row, const char* key) {
    return list->Model().index(row, w.screen->fgInvSessions.ColIndex(key));
  };
  EXPECT_EQ(list->Model().rowCount(), 3);
  EXPECT_EQ(cell(2, "TOTAL").data().toString(), "637.48");
  EXPECT_TRUE(cell(2, "TOTAL").data(Qt::FontRole).value<QFont>().bold());
  EXPECT_TRUE(cell(2, "TOTAL").data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
  EXPECT_GE(list->horizontalHeader()->height(), 2 * QFontMetrics(list->Style().font).height());
  EXPECT_EQ(w.Find<QLabel>("cAmount")->text(), "637.48");
  EXPECT_LE(list->horizontalHeader()->length(), list->viewport()->width())
      << "every column is in sight";
}

TEST(BookingWindow, TicksAreClickedAndGoIntoTheText) {
  Shown<frmBookingConfirmation> w(
      [](frmBookingConfirmation& screen) { screen.ChoosePractice("1"); });
  auto* list = w.Find<GridView>("fgUpcomingSessions");
  const auto tick = [&](int row) {
    return list->Model().index(row, 0).data(Qt::CheckStateRole).value<Qt::CheckState>();
  };
  ASSERT_EQ(list->Model().rowCount(), 4);
  EXPECT_FALSE(w.Find<QLabel>("lblNoSessions")->isVisible());
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->Model().index(1, 0)).center());
  EXPECT_EQ(tick(1), Qt::Checked);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_EQ(tick(2), Qt::Checked);
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_EQ(tick(2), Qt::Unchecked);
  w.screen->tabMessage.SetSelected(1);
  auto* intro = w.Find<QPlainTextEdit>("txtMsgIntro");
  intro->setPlainText("Hello");
  QTest::mouseClick(w.Find<QPushButton>("cmdCreateConfirmation"), Qt::LeftButton);
  EXPECT_TRUE(w.test.shown.clipboard.starts_with("Hello\r\n")) << w.test.shown.clipboard;
  EXPECT_NE(w.test.shown.clipboard.find("04"), std::string::npos) << w.test.shown.clipboard;
}

TEST(BookingWindow, AnEmptyListSaysSo) {
  Shown<frmBookingConfirmation> w;
  w.test.shown.now += 365;
  w.screen->Choose(w.screen->cboPractice, w.screen->cboPractice.Count() - 1);
  QApplication::processEvents();
  EXPECT_TRUE(w.Find<QLabel>("lblNoSessions")->isVisible());
}

}  // namespace
}  // namespace lm::test
