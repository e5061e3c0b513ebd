// What a reader of the screen says: every window is walked as such a reader walks it.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>
#include <memory>
#include <set>

#include "records/frmSession.h"
#include "shell/frmConfigure.h"
#include "shell/pages/mainpage.h"
#include "shell/pages/sessionspage.h"
#include "shell/qt/binder.h"
#include "shell/qt/frmHelp.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/frmSplashScreen.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/printing.h"
#include "shell/qt/progresswindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/tipstrip.h"
#include "tests/qt/everywindow.h"

namespace lm::test {
namespace {

constexpr int kMostChildren = 150;  // of a list; its other rows say no other kinds of things

// "cmdOk", "fgInvSessions", "lblStatus": what no doctor shall hear.
bool IsIdentifier(const QString& name) {
  static const QRegularExpression kIdentifier(
      "^((c|cmd|lbl|fg|txt|chk|opt|mnu|pic|img|cbo|tab|fra|frm|caption|page|layout)[A-Z]\\w*|[a-z]+"
      "[A-Z]\\w*)$");
  return name != "iCalendar" && kIdentifier.match(name).hasMatch();
}

bool NeedsName(QAccessible::Role role) {
  static const std::set<QAccessible::Role> kRoles{
      QAccessible::Button,     QAccessible::CheckBox,     QAccessible::RadioButton,
      QAccessible::ComboBox,   QAccessible::EditableText, QAccessible::List,
      QAccessible::Table,      QAccessible::PageTabList,  QAccessible::PageTab,
      QAccessible::SpinBox,    QAccessible::Link,         QAccessible::ButtonDropDown,
      QAccessible::ButtonMenu, QAccessible::ProgressBar,  QAccessible::MenuItem,
      QAccessible::Chart,      QAccessible::Graphic,      QAccessible::Slider};
  return kRoles.contains(role);
}

// Qt's own parts of a widget, such as the buttons at the ends of a row of tabs.
bool IsPartOfQt(const QObject* object) {
  return object && (object->inherits("QScrollBar") || object->objectName() == "ScrollLeftButton" ||
                    object->objectName() == "ScrollRightButton");
}

// What a label shows, in words: without mark-up, Alt letters and squares of colour.
QString ShownBy(const QLabel& label) {
  QString text = label.text();
  const bool rich = label.textFormat() == Qt::RichText ||
                    (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(text));
  if (rich) text = QTextDocumentFragment::fromHtml(text).toPlainText();
  if (label.buddy()) text = PlainCaption(text);
  return text.remove(QChar(0x25A0)).simplified();
}

class Walk {
 public:
  explicit Walk(std::string where) : where_(std::move(where)) {}

  void Over(QAccessibleInterface* node) {
    if (!node || !node->isValid() || node->state().invisible) return;
    if (IsPartOfQt(node->object())) return;
    Listen(*node);
    for (int i = 0; i < std::min(node->childCount(), kMostChildren); ++i) Over(node->child(i));
  }

 private:
  void Listen(QAccessibleInterface& node) {
    const QObject* object = node.object();
    QString name = node.text(QAccessible::Name).simplified();
    // The name that Qt gives a combo box on Linux is its value; what it is called comes beside it.
    if (const auto* combo = qobject_cast<const QComboBox*>(object)) {
      name = combo->accessibleName();
      EXPECT_TRUE(!node.relations(QAccessible::Label).isEmpty() ||
                  !node.text(QAccessible::Description).isEmpty())
          << What(node);
    }
    if (NeedsName(node.role())) {
      EXPECT_FALSE(name.isEmpty()) << What(node);
    }
    EXPECT_FALSE(IsIdentifier(name)) << What(node) << ": " << FromQt(name);
    if (object && !object->objectName().isEmpty()) {
      EXPECT_NE(name, object->objectName()) << What(node);
    }
    if (const auto* label = qobject_cast<const QLabel*>(object)) {
      EXPECT_TRUE(name.contains(ShownBy(*label))) << What(node) << ": " << FromQt(name);
      EXPECT_TRUE(!label->text().isEmpty() || !label->pixmap().isNull() || name.isEmpty())
          << What(node) << " shows nothing and says " << FromQt(name);
    }
    if (const auto* list = qobject_cast<const QTableView*>(object)) ListenToHidden(node, *list);
  }

  void ListenToHidden(QAccessibleInterface& node, const QTableView& list) {
    for (int col = 0; col < list.model()->columnCount(); ++col) {
      if (!list.isColumnHidden(col)) continue;
      EXPECT_TRUE(list.horizontalHeader()->isHidden() ||
                  !list.model()->headerData(col, Qt::Horizontal).isValid())
          << What(node) << " column " << col;
      for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QAccessibleInterface* cell = node.tableInterface()->cellAt(row, col);
        for (const auto text : {QAccessible::Name, QAccessible::Value, QAccessible::Description})
          EXPECT_EQ(FromQt(cell->text(text)), "") << What(node) << " column " << col;
      }
    }
  }

  std::string What(const QAccessibleInterface& node) const {
    const QObject* object = node.object();
    const std::string name = object ? FromQt(object->objectName()) : "";
    const std::string kind = object ? object->metaObject()->className() : "";
    return where_ + ": " + name + " [" + kind + "] " +
           QMetaEnum::fromType<QAccessible::Role>().valueToKey(node.role());
  }

  std::string where_;
};

void Hear(QWidget& window, const std::string& where) {
  QApplication::processEvents();
  Walk(where).Over(QAccessible::queryAccessibleInterface(&window));
}

// The window with each of its tabs in front.
void HearTabs(QWidget& window, const std::string& where) {
  for (QTabWidget* tabs : window.findChildren<QTabWidget*>())
    for (int tab = 0; tabs->isVisible() && tab < tabs->count(); ++tab) {
      if (!tabs->isTabVisible(tab)) continue;
      tabs->setCurrentIndex(tab);
      Hear(*tabs, where + ", " + FromQt(tabs->tabText(tab)));
    }
  Hear(window, where);
}

// Also of what is not in sight now.
void HearNames(const Screen& screen, const Binder& bindings, const std::string& where) {
  for (const Field* field : screen.Fields()) {
    QWidget* widget = bindings.WidgetOf(*field);
    if (!widget || widget->focusPolicy() == Qt::NoFocus || qobject_cast<QLabel*>(widget)) continue;
    const QString name = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    const bool combo = qobject_cast<QComboBox*>(widget);  // see above
    EXPECT_FALSE((combo ? widget->accessibleName() : name).isEmpty())
        << where << " " << field->Name();
    EXPECT_FALSE(IsIdentifier(name)) << where << " " << field->Name() << " " << FromQt(name);
  }
  for (const Screen::ListedGrid& listed : screen.Grids())
    if (const GridView* view = bindings.ViewOf(*listed.grid)) {
      EXPECT_FALSE(view->accessibleName().isEmpty()) << where << " " << listed.grid->Name();
    }
}

TEST(Accessibility, EveryWindowSpeaksInWords) {
  Windows windows;
  windows.ShowEach([](Screen& screen, const ViewSpec& spec) {
    ScreenDialog dialog(spec, screen, nullptr);
    dialog.show();
    HearTabs(dialog, screen.Name());
    if (auto* options = dynamic_cast<frmConfigure*>(&screen))
      for (int row = 0; row < options->fgChooser.Rows(); ++row) {
        options->fgChooser.Select(row, options->fgChooser.Col());
        HearTabs(dialog, "options " + std::to_string(row));
      }
    HearNames(screen, dialog.Bindings(), screen.Name());
  });
}

struct ShownMain {
  TestLedger test;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> screen;
  std::unique_ptr<MainWindow> window;

  explicit ShownMain(bool withForms = true) {
    FillDemo(test);
    if (withForms) FillPensionDemo(test);
    AddWindows(windows);
    screen = std::make_unique<frmMain>(test, windows);
    window = std::make_unique<MainWindow>(*screen);
    test.ledger.starting = false;
    window->show();
  }
};

TEST(Accessibility, EveryPageSpeaksInWords) {
  ShownMain shown;
  for (const auto& page : shown.screen->Pages()) {
    shown.screen->ShowPage(page->Spec().page);
    const std::string where(page->Spec().caption);
    auto* tabs = const_cast<TabField*>(page->Tabs());
    for (int tab = 0; tab < (tabs ? tabs->Count() : 1); ++tab) {
      if (tabs) shown.screen->Choose(*tabs, tab);
      shown.window->RefreshStatus();
      HearTabs(*shown.window, where + " " + std::to_string(tab));
    }
    if (ComboField* grouping = page->Grouping().choice) {
      shown.screen->Choose(*grouping, 1);
      Hear(*shown.window, where + ", grouped");
    }
  }
  HearNames(*shown.screen, shown.window->Bindings(), "main window");
}

TEST(Accessibility, MessagesProgressAndTheGuideSpeakInWords) {
  MessageBoxText message;
  message.mainPrompt = "Delete this session?";
  message.minorPrompt = "It cannot be\r\nundone.";
  message.link = "www.ledgerminder.example";
  for (const Icon icon : {Icon::Critical, Icon::Exclamation, Icon::Information, Icon::Question,
                          Icon::Done, Icon::Tip}) {
    message.icon = icon;
    frmMesgBox box(message);
    box.show();
    Hear(box, "message");
    EXPECT_EQ(box.accessibleDescription(), "Delete this session? It cannot be undone.");
  }
  ProgressWindow progress(nullptr);
  progress.SetProgress(40, "Preparing invoice 12");
  progress.OfferCancel();
  progress.show();
  Hear(progress, "progress");
  frmSplashScreen splash("4.0.0");
  splash.SetProgressBar(35, "Loading data...");
  splash.show();
  Hear(splash, "splash");
  frmHelp guide(nullptr);
  guide.show();
  guide.GoTo("invoices");
  Hear(guide, "guide");
}

TEST(Accessibility, TheTipStripSpeaksInWords) {
  ShownMain shown;
  auto* tips = shown.window->findChild<TipStrip*>();
  tips->Add("Sessions", "A double click opens a session.", nullptr);
  ASSERT_TRUE(tips->isVisible());
  Hear(*tips, "tip");
}

TEST(Accessibility, ThePrintPreviewSpeaksInWords) {
  TestLedger test;
  FillDemo(test);
  bool heard = false;
  QTimer::singleShot(0, [&] {
    QWidget* preview = QApplication::activeModalWidget();
    Hear(*preview, "print preview");
    heard = true;
    preview->close();
  });
  PrintGrid(test.ledger, test.ledger.fgSessions, {"Sessions", ""}, nullptr);
  EXPECT_TRUE(heard);
}

TEST(Accessibility, AValueIsFollowed) {
  TestLedger test;
  FillDemo(test);
  frmSession screen(test);
  ScreenDialog dialog(*FindView("frmSession"), screen, nullptr);
  dialog.show();
  const QWidget* total = dialog.Bindings().WidgetOf(screen.cTotal);
  EXPECT_EQ(total->accessibleName(), "") << "it shows nothing yet";
  for (const char* rate : {"384.00", "97.50"}) {
    screen.Enter(screen.cRate, rate);
    EXPECT_EQ(FromQt(total->accessibleName()), std::string("Total: ") + rate);
  }
}

TEST(Accessibility, WhatIsTypedInAListIsCalledByItsHeading) {
  ShownMain shown(false);
  shown.screen->ShowPage(Page::Sessions);
  GridView& list = *shown.window->CurrentList();
  const Grid& sessions = *list.Shown();
  for (const auto& [key, heading] : {std::pair{"RATE", "Rate"}, std::pair{"SDATE", "Start Date"}}) {
    list.EditCellAt(sessions.Rows() - 1, sessions.ColIndex(key));
    const auto* editor = list.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr) << key;
    EXPECT_EQ(editor->accessibleName(), heading);
    Hear(*list.viewport(), key);
    QTest::keyClick(list.viewport()->findChild<QLineEdit*>(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST(Accessibility, HiddenColumnsAreSilentAndRowsSayHowTheyStand) {
  ShownMain shown(false);
  shown.screen->ShowPage(Page::Sessions);
  shown.screen->Enter(shown.screen->PageOf<SessionsPage>().tabSessions, "All");
  QApplication::processEvents();
  const Grid& sessions = shown.test.ledger.fgSessions;
  const GridModel& model = shown.window->CurrentList()->Model();
  const int id = sessions.ColIndex("ID"), practice = sessions.ColIndex("PRACTICE");
  EXPECT_FALSE(model.headerData(id, Qt::Horizontal, Qt::DisplayRole).isValid());
  std::set<std::string> states;
  for (int row = 0; row < model.rowCount(); ++row) {
    EXPECT_FALSE(model.index(row, id).data().isValid());
    EXPECT_FALSE(model.index(row, id).data(Qt::AccessibleDescriptionRole).isValid());
    states.insert(
        FromQt(model.index(row, practice).data(Qt::AccessibleDescriptionRole).toString()));
  }
  EXPECT_TRUE(states.contains("New, not saved"));
  EXPECT_TRUE(states.contains("Edited, not saved"));
  EXPECT_TRUE(states.contains("Locked. On INV-00001"));
  EXPECT_TRUE(states.contains(""));
}

}  // namespace
}  // namespace lm::test
