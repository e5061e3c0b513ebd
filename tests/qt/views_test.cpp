// Names: what stands in a screen stands in its view, and the other way round.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <functional>
#include <memory>
#include <set>

#include "core/optiontable.h"
#include "shell/frmMain.h"
#include "shell/pages/mainpage.h"
#include "shell/qt/binder.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/scrolling.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"
#include "tests/qt/everywindow.h"
#include "tests/qt/pretendedscreen.h"

namespace lm::test {
namespace {

// What a chooser shows and hides as a whole.
bool IsFrame(const QWidget& widget) {
  return widget.metaObject() == &QWidget::staticMetaObject &&
         widget.objectName().startsWith("frame");
}

bool MayShowField(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractButton*>(&widget) ||
         qobject_cast<const QTabWidget*>(&widget) || qobject_cast<const QTabBar*>(&widget) ||
         qobject_cast<const QListWidget*>(&widget) || qobject_cast<const GridView*>(&widget) ||
         IsFrame(widget);
}

// The widgets of a view that carry a name of their own; a fixed text's name begins with "caption".
std::set<std::string> NamesOf(const QWidget& view) {
  std::set<std::string> names;
  for (const QWidget* widget : view.findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    if (MayShowField(*widget) && !name.isEmpty() && !name.startsWith("qt_") &&
        !name.startsWith("caption") && !name.startsWith("Scroll"))
      names.insert(ToUpper(FromQt(name)));
  }
  return names;
}

std::set<std::string> NamesOf(const Screen& screen) {
  std::set<std::string> names;
  for (const Field* field : screen.Fields()) names.insert(ToUpper(field->Name()));
  for (const Screen::ListedGrid& listed : screen.Grids())
    names.insert(ToUpper(listed.grid->Name()));
  return names;
}

TEST(Views, EveryNameStandsOnBothSides) {
  Windows windows;
  windows.ShowEach([](Screen& screen, const ViewSpec& view) {
    QDialog dialog;
    view.build(dialog);
    EXPECT_EQ(NamesOf(screen), NamesOf(dialog)) << view.screen;
  });
  EXPECT_EQ(Views().size(), windows.Names().size()) << "a view without a window";
}

TEST(Views, TheKeyboardBeginsWhereWorkBegins) {
  Windows windows;
  const std::map<std::string, std::string> starts{{"frmSynchroniseOutlook", "cmdClose"},
                                                  {"frmAbout", "cmdOK"},
                                                  {"frmImportCalendar", "txtICalAddress"},
                                                  {"frmImportWizard", "txtUniqueID"},
                                                  {"frmSession", "cPractice"},
                                                  {"frmPractice", "txtName"},
                                                  {"frmWelcome", "txtTitle"},
                                                  {"frmPrepareInvoices", "cboPractice"},
                                                  {"frmInvoice", "cIDate"},
                                                  {"frmBookingConfirmation", "cboPractice"},
                                                  {"frmPensionForms", "cboPractice"},
                                                  {"frmPensionA", "cSentToPractice"},
                                                  {"frmPensionB", "cSentToHA"},
                                                  {"frmPensionSOLO", "cSentToHA"},
                                                  {"frmGetPassword", "txtPassword"},
                                                  {"frmPopupCalendar", "fg"},
                                                  {"frmPopupClock", "cmdOK"},
                                                  {"frmPopupNumbers", "cmdOK"},
                                                  {"frmShortcutKeys", "fgKeys"},
                                                  {"frmAddSessions", "cboPractice"},
                                                  {"frmRateCompare", "fgRates"},
                                                  {"frmPaymentReminders", "fgReminders"},
                                                  {"frmEvent", "cTitle"},
                                                  {"frmExportCalendar", "txtSDate"},
                                                  {"frmFind", "txtFind"},
                                                  {"frmAddExpenses", "txtItem"},
                                                  {"frmGettingStarted", "cmdPractices"},
                                                  {"frmConfigure", "fgChooser"},
                                                  {"frmChart", "plotChart"},
                                                  {"frmChartOptions", "picChartType"}};
  std::map<std::string, std::string> focused;
  windows.ShowEach([&](Screen& screen, const ViewSpec& view) {
    ScreenDialog dialog(view, screen, nullptr);
    dialog.show();
    const QWidget* focus = dialog.focusWidget();
    focused[screen.Name()] = focus ? focus->objectName().toStdString() : "";
  });
  EXPECT_EQ(focused, starts);
}

// The child of `ancestor` in which the widget stands.
const QWidget* ChildWith(const QWidget& ancestor, const QWidget* widget) {
  while (widget && widget->parentWidget() != &ancestor) widget = widget->parentWidget();
  return widget;
}

// False for two widgets on different pages of a tab strip, or in different frames of a chooser.
bool ShownTogether(const QWidget& one, const QWidget& other) {
  const QWidget* common = one.parentWidget();
  while (common && !common->isAncestorOf(&other)) common = common->parentWidget();
  if (!common) return true;
  if (common->inherits("QStackedWidget")) return false;
  const QWidget* first = ChildWith(*common, &one);
  const QWidget* second = ChildWith(*common, &other);
  return first == second || !IsFrame(*first) || !IsFrame(*second);
}

// Two Alt letters alike on one page would each need a second press.
TEST(Views, NoAltLetterStandsTwiceOnAPage) {
  Windows windows;
  windows.ShowEach([](Screen& screen, const ViewSpec& view) {
    ScreenDialog dialog(view, screen, nullptr);
    std::multimap<QChar, std::pair<const QWidget*, QString>> letters;
    const auto take = [&](const QWidget* widget, const QString& text) {
      const int at = static_cast<int>(text.indexOf('&'));
      if (at < 0) return;
      const QChar letter = text[at + 1].toUpper();
      const auto [begin, end] = letters.equal_range(letter);
      for (auto other = begin; other != end; ++other)
        EXPECT_FALSE(ShownTogether(*widget, *other->second.first))
            << view.screen << ": " << text.toStdString() << " and "
            << other->second.second.toStdString();
      letters.insert({letter, {widget, text}});
    };
    for (const QLabel* label : dialog.findChildren<QLabel*>())
      if (label->buddy()) take(label, label->text());
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
      take(button, button->text());
  });
}

// The declaration of the options says what each is called; the window of options says the same.
TEST(Views, OptionsBearTheCaptionsOfTheirDeclaration) {
  Windows windows;
  windows.Show("frmConfigure", [](Screen& screen) {
    ScreenDialog dialog(*FindView("frmConfigure"), screen, nullptr);
    for (const OptionSpec& option : OptionSpecs()) {
      const Field* field = screen.FindField(option.control);
      if (!field) continue;
      QString caption = PlainCaption(ToQt(option.caption));
      QWidget* widget = dialog.Bindings().WidgetOf(*field);
      QString shown = widget->accessibleName();
      if (shown.isEmpty())
        shown = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
      for (QString* text : {&caption, &shown})
        if (text->endsWith(':')) text->chop(1);
      // Some labels are a sentence with the boxes in it.
      if (option.control.starts_with("txtCurrentSessions")) continue;
      EXPECT_EQ(shown.toStdString(), caption.toStdString()) << option.name;
    }
  });
}

bool WhollyInSight(const QWidget& widget) {
  return widget.visibleRegion().boundingRect() == widget.rect();
}

TEST(Views, ButtonsStayInSightOnASmallScreen) {
  const PretendedScreen small(kSmallScreen);
  Windows windows;
  windows.ShowEach([&](Screen& screen, const ViewSpec& view) {
    ScreenDialog dialog(view, screen, nullptr);
    dialog.show();
    QApplication::processEvents();
    EXPECT_TRUE(small.screen.contains(dialog.geometry()))
        << view.screen << " " << dialog.width() << " x " << dialog.height();
    for (const Button* button : {screen.defaultButton, screen.cancelButton}) {
      if (!button || !button->Visible()) continue;
      EXPECT_TRUE(WhollyInSight(*dialog.Bindings().WidgetOf(*button)))
          << view.screen << " " << button->Name();
    }
  });
}

TEST(Views, NothingScrollsOnALargeScreen) {
  const PretendedScreen large(kLargeScreen);
  Windows windows;
  windows.ShowEach([](Screen& screen, const ViewSpec& view) {
    ScreenDialog dialog(view, screen, nullptr);
    dialog.show();
    QApplication::processEvents();
    EXPECT_EQ(dialog.findChild<ScrollBody*>(), nullptr) << view.screen;
  });
}

TEST(Views, TheTabKeyBringsFieldsIntoSight) {
  const PretendedScreen small({853, 300});
  Windows windows;
  for (const std::string name : {"frmSession", "frmAddExpenses", "frmPractice"})
    windows.Show(name, [&](Screen& screen) {
      ScreenDialog dialog(*FindView(name), screen, nullptr);
      dialog.show();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
      ASSERT_NE(dialog.findChild<ScrollBody*>(), nullptr) << name;
      std::set<const QWidget*> reached;
      while (reached.insert(dialog.focusWidget()).second) {
        EXPECT_FALSE(dialog.focusWidget()->visibleRegion().isEmpty())
            << name << " " << dialog.focusWidget()->objectName().toStdString();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
      }
      EXPECT_GT(reached.size(), 5u) << name;
    });
}

TEST(Views, TheMainWindowFitsASmallScreenWithEachPage) {
  const PretendedScreen small(kSmallScreen);
  TestLedger test;
  FillDemo(test);
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test, windows);
  MainWindow window(screen);
  screen.showWindow();
  QApplication::processEvents();
  const auto* bar = window.findChild<QListWidget*>("fgMenu");
  EXPECT_TRUE(bar->viewport()->rect().contains(bar->visualItemRect(bar->item(bar->count() - 1))));
  test.ledger.starting = false;
  for (const auto& page : screen.Pages()) {
    screen.ShowPage(page->Spec().page);
    QApplication::processEvents();
    EXPECT_TRUE(small.screen.contains(window.geometry()))
        << page->Spec().caption << " " << window.x() << " " << window.y() << " " << window.width()
        << " x " << window.height();
    for (const PageButton& each : page->Buttons()) {
      const QWidget* button = window.Bindings().WidgetOf(*each.button);
      EXPECT_TRUE(!button->isVisible() || WhollyInSight(*button)) << each.button->Name();
    }
  }
}

TEST(Views, ALongMessageLeavesItsButtonsInSight) {
  const PretendedScreen small(kSmallScreen);
  MessageBoxText message;
  for (int line = 0; line < 60; ++line) {
    message.mainPrompt += "A line of the main prompt.\n";
    message.minorPrompt += "A line of the minor prompt.\n";
  }
  frmMesgBox box(message);
  box.show();
  EXPECT_TRUE(small.screen.contains(box.geometry())) << box.height();
}

TEST(Views, MainWindowShowsEveryFieldAndCommand) {
  TestLedger test;
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test, windows);
  MainWindow window(screen);
  test.ledger.starting = false;
  for (const auto& page : screen.Pages()) {
    screen.ShowPage(page->Spec().page);
    EXPECT_EQ(screen.PageGrid() != nullptr, window.CurrentList() != nullptr)
        << page->Spec().caption;
  }
  for (const Field* field : screen.Fields()) {
    if (FindCommand(field->Name())) continue;  // menus are looked at with the main window
    EXPECT_NE(window.Bindings().WidgetOf(*field), nullptr) << field->Name();
  }
}

}  // namespace
}  // namespace lm::test
