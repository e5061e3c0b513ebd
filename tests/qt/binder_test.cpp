#include "shell/qt/binder.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include "records/frmSession.h"
#include "shell/qt/qtext.h"
#include "shell/qt/typeahead.h"
#include "shell/qt/views.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

class Sample : public Screen {
 public:
  explicit Sample(Ledger& theLedger) : Screen(theLedger, "Sample") {
    tName.onEntered = [this] {
      ++entered;
      return tName.Text() != "bad";
    };
    tNote.multiLine = true;
    cKind.SetItems({{"same", "1"}, {"same", "2"}, {"other", "3"}});
    lLink.onPressed = [this] { ++pressed; };
    bOk.onPressed = [this] { ++pressed; };
    bCancel.onPressed = [this] { Close(); };
    for (CheckField* choice : {&oOne, &oTwo})
      choice->onEntered = [this, choice] {
        for (CheckField* each : {&oOne, &oTwo}) each->SetChecked(each == choice);
        return true;
      };
    oTwo.SetChecked(true);
    cancelButton = &bCancel;
    defaultButton = &bOk;
  }
  TextField tName{this, "tName"};
  TextField tNote{this, "tNote"};
  ComboField cKind{this, "cKind"};
  CheckField oOne{this, "oOne"};
  CheckField oTwo{this, "oTwo"};
  LabelField lLink{this, "lLink"};
  Button bOk{this, "bOk"};
  Button bCancel{this, "bCancel"};
  TabField tabs{this, "tabs", {"One", "Two", "Three"}};
  int entered = 0;
  int pressed = 0;
};

template <typename Widget>
Widget* Add(QWidget& parent, const char* name) {
  auto* widget = new Widget(&parent);
  widget->setObjectName(name);
  if (!parent.layout()) new QVBoxLayout(&parent);
  parent.layout()->addWidget(widget);
  return widget;
}

// Names of another case, to show that case does not matter.
struct SampleView {
  TestLedger test;
  Sample screen{test.ledger};
  QDialog view;
  QLineEdit* name = Add<QLineEdit>(view, "TNAME");
  QPlainTextEdit* note = Add<QPlainTextEdit>(view, "tnote");
  QComboBox* kind = Add<QComboBox>(view, "cKind");
  QRadioButton* one = Add<QRadioButton>(view, "oOne");
  QRadioButton* two = Add<QRadioButton>(view, "oTwo");
  QLabel* link = Add<QLabel>(view, "lLink");
  QPushButton* ok = Add<QPushButton>(view, "bOk");
  QPushButton* cancel = Add<QPushButton>(view, "bCancel");
  QTabWidget* tabs = Add<QTabWidget>(view, "tabs");
  Binder binder{(AddTabs(), view), screen};

  void AddTabs() {
    for (int i = 0; i < 3; ++i) tabs->addTab(new QWidget, "");
  }
  void Show() {
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  }
  void Type(const QString& text) {
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, text);
  }
};

TEST(Binder, TextReachesTheFieldWhenTheBoxIsLeftAndOnlyWhenItChanged) {
  SampleView v;
  v.Show();
  v.name->setFocus();
  v.note->setFocus();
  QApplication::processEvents();
  EXPECT_EQ(v.screen.entered, 0);
  v.Type("good");
  EXPECT_EQ(v.screen.tName.Text(), "");
  v.note->setFocus();
  QApplication::processEvents();
  EXPECT_EQ(v.screen.tName.Text(), "good");
  EXPECT_EQ(v.screen.entered, 1);
}

TEST(Binder, RefusedTextKeepsTheFocusAndIsAskedAboutAgain) {
  SampleView v;
  v.Show();
  v.Type("bad");
  v.note->setFocus();
  QApplication::processEvents();
  EXPECT_TRUE(v.name->hasFocus());
  EXPECT_EQ(v.name->text(), "bad");
  QTest::mouseClick(v.ok, Qt::LeftButton);
  EXPECT_EQ(v.screen.pressed, 0) << "a refused text holds every button but Cancel";
  EXPECT_GE(v.screen.entered, 2);
  QTest::mouseClick(v.cancel, Qt::LeftButton);
  EXPECT_TRUE(v.screen.Closed());
}

TEST(Binder, EnterTakesTheTextBeforeTheDefaultButton) {
  SampleView v;
  v.Show();
  v.Type("good");
  QTest::keyClick(v.name, Qt::Key_Return);
  EXPECT_EQ(v.screen.tName.Text(), "good");
  EXPECT_EQ(v.screen.pressed, 1);
}

TEST(Binder, TextsCrossTheEdge) {
  SampleView v;
  v.Show();
  v.name->setText(QString::fromUtf8("£5 – €6 语"));
  EXPECT_TRUE(v.binder.CommitPending());
  EXPECT_EQ(v.screen.tName.Text(), std::string("\xA3"
                                               "5 \x96 \x80"
                                               "6 ?"));
  EXPECT_EQ(v.name->text(), QString::fromUtf8("£5 – €6 ?")) << "the box shows what was stored";

  v.screen.tNote.SetText("one\r\ntwo");
  EXPECT_EQ(v.note->toPlainText(), "one\ntwo");
  v.note->appendPlainText("three");
  EXPECT_TRUE(v.binder.CommitPending());
  EXPECT_EQ(v.screen.tNote.Text(), "one\r\ntwo\r\nthree");
  v.screen.tNote.SetText("a\nb");  // of an old file
  v.screen.tNote.onEntered = [] {
    ADD_FAILURE() << "no change of the user";
    return true;
  };
  EXPECT_TRUE(v.binder.CommitPending());
  EXPECT_EQ(v.screen.tNote.Text(), "a\r\nb");
}

TEST(Binder, ChoosesTheSecondOfTwoEntriesWithOneText) {
  SampleView v;
  emit v.kind->activated(1);
  EXPECT_EQ(v.screen.cKind.ItemData(), "2");
  EXPECT_EQ(v.kind->currentIndex(), 1);
  emit v.kind->activated(2);
  EXPECT_EQ(v.screen.cKind.ItemData(), "3");
}

TEST(Binder, ExactlyOneOfSeveralChoicesIsTicked) {
  SampleView v;
  v.Show();
  EXPECT_TRUE(v.two->isChecked());
  QTest::mouseClick(v.one, Qt::LeftButton, {}, QPoint(8, v.one->height() / 2));
  EXPECT_TRUE(v.screen.oOne.Checked());
  EXPECT_FALSE(v.screen.oTwo.Checked());
  QTest::keyClick(v.one, Qt::Key_Down);
  EXPECT_TRUE(v.screen.oTwo.Checked()) << "the arrow keys choose";
  EXPECT_FALSE(v.screen.oOne.Checked());
  v.screen.oOne.onEntered();  // the screen itself changes its mind
  EXPECT_TRUE(v.one->isChecked());
  EXPECT_FALSE(v.two->isChecked());
}

TEST(Binder, TabsFollowAndSkipWhatIsDisabled) {
  SampleView v;
  v.Show();
  v.screen.tabs.SetTabEnabled(1, false);
  v.screen.tabs.SetTabMarked(2, true);
  EXPECT_FALSE(v.tabs->isTabEnabled(1));
  EXPECT_FALSE(v.tabs->tabIcon(2).isNull());
  QTest::keyClick(&v.view, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(v.tabs->currentIndex(), 2);
  QTest::keyClick(&v.view, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(v.screen.tabs.Selected(), 0);
  v.tabs->setCurrentIndex(2);
  EXPECT_EQ(v.screen.tabs.Text(), "Three");
}

TEST(Binder, LabelsWithSomethingToPressAreLinksAndDataIsNoMarkup) {
  SampleView v;
  v.screen.lLink.SetText("<b>A & B</b>");
  EXPECT_TRUE(v.link->text().contains("&lt;b&gt;A &amp; B&lt;/b&gt;"));
  emit v.link->linkActivated("#");
  EXPECT_EQ(v.screen.pressed, 1);
  v.screen.lLink.SetEnabled(false);
  EXPECT_EQ(v.link->textFormat(), Qt::PlainText);
}

TEST(Binder, ScreenChangesShow) {
  SampleView v;
  v.Show();
  v.screen.tName.SetEnabled(false);
  v.screen.bOk.SetVisible(false);
  EXPECT_FALSE(v.name->isEnabled());
  EXPECT_FALSE(v.ok->isVisible());
  v.name->setText("bad");
  EXPECT_TRUE(v.binder.CommitPending()) << "a disabled box cannot hold anybody";
}

TEST(Binder, ASelectedTextStaysSelectedWhenItChanges) {
  SampleView v;
  v.Show();
  v.name->setFocus();
  v.name->selectAll();
  v.screen.tName.SetText("worked out");
  EXPECT_EQ(v.name->selectedText(), "worked out") << "to be typed over";
  v.name->end(false);
  v.screen.tName.SetText("again");
  EXPECT_EQ(v.name->selectedText(), "");
}

TEST(TypeAhead, ASpaceIsALetterOnceTypingHasBegun) {
  const TypeAhead typeAhead;
  QComboBox list;
  list.addItems({"Abbey", "St Anne's", "St John's", "Stow"});
  std::vector<int> chosen;
  QObject::connect(&list, &QComboBox::activated, [&](int row) { chosen.push_back(row); });
  list.show();
  list.setFocus();
  QTest::keyClicks(&list, "st j");
  EXPECT_EQ(list.currentText(), "St John's");
  ASSERT_FALSE(chosen.empty());
  EXPECT_EQ(chosen.back(), 2);
  EXPECT_FALSE(list.view()->isVisible());

  QComboBox another;
  another.addItems({"Abbey", "Mill"});
  another.show();
  QTest::keyClick(&another, Qt::Key_Space);
  EXPECT_TRUE(another.view()->isVisible()) << "nothing was typed there yet";
  another.hidePopup();
}

TEST(ScreenDialog, AsksBeforeItThrowsTypedWorkAway) {
  struct Case {
    const char* typed;
    const char* key;  // "" for Escape, else the button pressed
    bool asks;
  };
  for (const Case& each : {Case{"", "", false},
                           {"banana", "", true},
                           {"", "cmdCancel", false},
                           {"5 feb", "cmdCancel", true}}) {
    TestLedger test;
    FillDemo(test);
    frmSession session(test);
    ASSERT_TRUE(session.OpenSession("6"));
    ScreenDialog dialog(*FindView("frmSession"), session, nullptr);
    dialog.show();
    auto* date = dialog.findChild<QLineEdit*>("cSDate");
    if (*each.typed) date->setText(each.typed);
    const auto leave = [&] {
      if (*each.key)
        dialog.findChild<QPushButton*>(each.key)->click();
      else
        QTest::keyClick(date, Qt::Key_Escape);
    };
    leave();
    EXPECT_EQ(session.Closed(), !each.asks) << each.typed;
    EXPECT_EQ(test.shown.TakeMessage(), each.asks ? "Close without saving this session?" : "");
    test.shown.answers = {Answer::Yes};
    leave();
    EXPECT_TRUE(session.Closed());
  }
}

TEST(ScreenDialog, EscapeCancelsWhateverWasTyped) {
  TestLedger test;
  FillDemo(test);
  frmSession session(test);
  ASSERT_TRUE(session.OpenSession("6"));
  ScreenDialog dialog(*FindView("frmSession"), session, nullptr);
  dialog.show();
  auto* date = dialog.findChild<QLineEdit*>("cSDate");
  date->setText("banana");
  test.shown.answers = {Answer::Yes};
  QTest::keyClick(date, Qt::Key_Escape);
  EXPECT_TRUE(session.Closed());
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(test.shown.messages.size(), 1U) << "the date is not checked";
}

TEST(ScreenDialog, BadDateShowsItsMessageAndStays) {
  TestLedger test;
  FillDemo(test);
  frmSession session(test);
  ASSERT_TRUE(session.OpenSession("6"));
  ScreenDialog dialog(*FindView("frmSession"), session, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  auto* date = dialog.findChild<QLineEdit*>("cSDate");
  date->setFocus();
  date->selectAll();
  QTest::keyClicks(date, "banana");
  QTest::keyClick(date, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_EQ(test.shown.messages.size(), 1u);
  EXPECT_TRUE(date->hasFocus());
  QTest::keyClicks(date, "5 feb");
  QTest::keyClick(date, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_EQ(session.cSDate.Text(), "05/02/2026");
  EXPECT_EQ(date->text(), "05/02/2026");
}

}  // namespace
}  // namespace lm::test
