// The user guide in the program: every window leads to its section, every link somewhere, and the
// window can be used while others are open.
#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <QWindow>
#include <set>

#include "core/shortcuts.h"
#include "entry/frmPopupCalendar.h"
#include "records/frmPractice.h"
#include "shell/guidetopics.h"
#include "shell/pages/mainpage.h"
#include "shell/qt/desktop.h"
#include "shell/qt/frmHelp.h"
#include "shell/qt/guidebrowser.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

std::set<QString> AnchorsOf(const GuideBrowser& guide) {
  std::set<QString> anchors;
  for (const GuideBrowser::Heading& heading : guide.Headings()) {
    EXPECT_TRUE(anchors.insert(heading.anchor).second) << qPrintable(heading.text) << " twice";
    EXPECT_FALSE(heading.anchor.isEmpty());
  }
  return anchors;
}

TEST(Guide, EveryWindowAndPageHasItsSection) {
  TestLedger test;
  WindowCatalogue windows;
  AddWindows(windows);
  const frmMain main(test.ledger, windows);
  std::set<std::string_view> places, topics;
  for (const ViewSpec& view : Views()) places.insert(view.screen);
  for (const std::string& name : windows.Names()) EXPECT_TRUE(places.contains(name)) << name;
  for (const auto& page : main.Pages()) places.insert(page->Spec().caption);

  GuideBrowser guide;
  guide.GoTo("user-guide.md", "");
  const std::set<QString> anchors = AnchorsOf(guide);
  for (const GuideTopic& topic : GuideTopics()) {
    EXPECT_TRUE(topics.insert(topic.place).second) << topic.place << " twice";
    EXPECT_TRUE(anchors.contains(QString::fromLatin1(topic.heading))) << topic.heading;
  }
  EXPECT_EQ(topics, places);
}

TEST(Guide, EveryLinkAndEveryPictureIsThere) {
  for (const char* text : {"user-guide.md", "templates.md", "file-formats.md"}) {
    GuideBrowser guide;
    ASSERT_TRUE(guide.GoTo(text, "")) << text;
    for (QTextBlock block = guide.document()->begin(); block.isValid(); block = block.next())
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextCharFormat format = part.fragment().charFormat();
        if (format.isImageFormat()) {
          EXPECT_GT(format.toImageFormat().height(), 0)
              << text << ": " << qPrintable(format.toImageFormat().name());
        }
        const QUrl link(format.anchorHref());
        if (link.isEmpty() || !link.isRelative()) continue;
        GuideBrowser target;
        const QString file = link.path().isEmpty() ? QString(text) : link.path();
        EXPECT_TRUE(target.GoTo(file, "")) << text << ": " << qPrintable(link.toString());
        EXPECT_TRUE(!link.hasFragment() || AnchorsOf(target).contains(link.fragment()))
            << text << ": " << qPrintable(link.toString());
      }
  }
}

TEST(Guide, PicturesFitTheWindow) {
  GuideBrowser guide;
  guide.resize(700, 500);
  guide.show();
  guide.GoTo("user-guide.md", "sessions");
  QApplication::processEvents();
  EXPECT_EQ(guide.horizontalScrollBar()->maximum(), 0);
  guide.resize(420, 500);
  QApplication::processEvents();
  EXPECT_EQ(guide.horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(guide.Headings()[std::size_t(guide.HeadingInSight())].anchor, "sessions");
}

struct GuideDesk : testing::Test {
  TestLedger test;
  WindowCatalogue windows;
  GuideDesk() {
    SetDefaultShortcuts(test.ledger);
    AddWindows(windows);
  }
};

TEST_F(GuideDesk, F1OpensTheSectionOfThePageInFront) {
  frmMain screen(test.ledger, windows);
  MainWindow window(screen);
  window.show();
  for (const auto& page : screen.Pages()) {
    screen.ShowPage(page->Spec().page);
    QApplication::processEvents();
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus ? focus : &window, Qt::Key_F1);
    ASSERT_FALSE(test.shown.guides.empty()) << page->Spec().caption;
    EXPECT_EQ(test.shown.guides.back(), GuideHeading(page->Spec().caption));
  }
  EXPECT_EQ(test.shown.guides.size(), screen.Pages().size());
}

TEST_F(GuideDesk, F1InAWindowOpensItsSection) {
  frmPractice screen(test);
  ScreenDialog dialog(*FindView("frmPractice"), screen, nullptr);
  dialog.show();
  QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
  EXPECT_EQ(test.shown.guides, std::vector<std::string>{"practices"});
  EXPECT_FALSE(screen.Closed());
}

TEST_F(GuideDesk, APickerClosesBeforeTheGuideOpens) {
  frmPopupCalendar picker(test.ledger, "Date");
  ScreenDialog dialog(*FindView("frmPopupCalendar"), picker, nullptr);
  dialog.show();
  QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
  EXPECT_TRUE(picker.Closed());
  EXPECT_TRUE(test.shown.guides.empty());
  QApplication::processEvents();
  EXPECT_EQ(test.shown.guides, std::vector<std::string>{"dates-times-and-amounts"});
}

// What stands in the search line, and what it says of it.
struct GuideWindow {
  std::unique_ptr<QWidget> over = std::make_unique<QWidget>();
  frmHelp* window;
  GuideBrowser* text;
  QLineEdit* search;

  explicit GuideWindow(const char* heading) {
    over->show();
    window = &ShowGuideBeside(over.get(), heading);
    text = window->findChild<GuideBrowser*>("txtGuide");
    search = window->findChild<QLineEdit*>("txtSearch");
    QApplication::processEvents();
  }
  QString Found() const { return window->findChild<QLabel*>("lblFound")->text(); }
  QTreeWidget& Contents() const { return *window->findChild<QTreeWidget*>("lstContents"); }
  QString InSight() const {
    const int number = text->HeadingInSight();
    return number < 0 ? QString() : text->Headings()[std::size_t(number)].anchor;
  }
};

TEST(GuideWindow, OpensAtItsHeadingAndShowsThePlaceInTheContents) {
  GuideWindow guide("calendar");
  EXPECT_EQ(guide.InSight(), "calendar");
  ASSERT_TRUE(guide.Contents().currentItem());
  EXPECT_EQ(guide.Contents().currentItem()->text(0), "Calendar");
  const auto finding = guide.Contents().findItems("Finding", Qt::MatchExactly);
  ASSERT_EQ(finding.size(), 1);
  guide.Contents().setCurrentItem(finding[0]);
  EXPECT_EQ(guide.InSight(), "finding");
  auto* back = guide.window->findChild<QPushButton*>("cmdBack");
  EXPECT_TRUE(back->isEnabled());
  back->click();
  EXPECT_EQ(guide.InSight(), "calendar");
}

TEST(GuideWindow, FindsWordsAndGoesRound) {
  GuideWindow guide("");
  QTest::keyClicks(guide.search, "branch surger");
  const int count = guide.Found().section(" of ", 1).toInt();
  ASSERT_GT(count, 1);
  EXPECT_EQ(guide.Found(), QString("1 of %1").arg(count));
  EXPECT_EQ(guide.text->textCursor().selectedText().toLower(), "branch surger");
  for (int i = 0; i < count; ++i) QTest::keyClick(guide.search, Qt::Key_Return);
  EXPECT_EQ(guide.Found(), QString("1 of %1").arg(count));
  QTest::keyClick(guide.search, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(guide.Found(), QString("%1 of %1").arg(count));
  QTest::keyClicks(guide.search, "zzz");
  EXPECT_EQ(guide.Found(), "Not found");
  EXPECT_TRUE(guide.window->isVisible());
}

TEST(GuideWindow, LinksInsideAreFollowedAndOthersHandedOn) {
  GuideWindow guide("invoices");
  QString opened;
  guide.window->openLink = [&](const QString& address) { opened = address; };
  emit guide.text->anchorClicked(QUrl("https://www.example.com/x"));
  EXPECT_EQ(opened, "https://www.example.com/x");
  EXPECT_EQ(guide.InSight(), "invoices");
  emit guide.text->anchorClicked(QUrl("templates.md"));
  EXPECT_EQ(guide.text->Text(), "templates.md");
  EXPECT_EQ(guide.Contents().topLevelItem(0)->text(0), guide.text->Headings()[0].text);
  guide.window->findChild<QPushButton*>("cmdBack")->click();
  EXPECT_EQ(guide.InSight(), "invoices");
}

// What belongs to a modal window is the only thing that can be used beside it.
TEST_F(GuideDesk, TheGuideCanBeUsedBesideAModalWindow) {
  DesktopPlatform desktop;
  desktop.windows.SetCatalogue(test.ledger, windows);
  frmPractice screen(test);
  ScreenDialog dialog(*FindView("frmPractice"), screen, nullptr);
  dialog.setModal(true);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  const auto guides = [] {
    std::vector<frmHelp*> open;
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* guide = qobject_cast<frmHelp*>(window); guide && guide->isVisible())
        open.push_back(guide);
    return open;
  };
  QWidget elsewhere;
  ShowGuideBeside(&elsewhere, "reports");
  desktop.windows.ShowGuide("practices");
  ASSERT_EQ(guides().size(), 1u);
  frmHelp* guide = guides()[0];
  EXPECT_TRUE(
      dialog.windowHandle()->isAncestorOf(guide->windowHandle(), QWindow::IncludeTransients));
  EXPECT_FALSE(guide->isModal());
  desktop.windows.ShowGuide("sessions");
  EXPECT_EQ(guides(), std::vector<frmHelp*>{guide});
  guide->openLink("https://www.example.com/help");
  EXPECT_EQ(test.shown.opened, std::vector<std::string>{"https://www.example.com/help"});
}

}  // namespace
}  // namespace lm::test
