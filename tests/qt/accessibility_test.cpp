// What a reader of the screen says: every window is walked as such a reader walks it.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTabWidget>
#include <set>

#include "records/frmSession.h"
#include "shell/pages/mainpage.h"
#include "shell/pages/sessionspage.h"
#include "shell/qt/binder.h"
#include "shell/qt/gridview.h"
#include "shell/qt/mainwindow.h"
#include "shell/qt/qtext.h"
#include "tests/qt/everywindow.h"

namespace lm::test {
namespace {

constexpr int kMostChildren = 150;  // of a list; its other rows say no other kinds of things

// "cmdOk", "fgInvSessions", "lblStatus": what no doctor shall hear.
bool IsIdentifier(const QString& name) {
  static const QRegularExpression kIdentifier(
      "^((c|cmd|lbl|fg|txt|chk|opt|mnu|pic|img|cbo|tab|fra|frm|caption|page|layout)[A-Z]\\w*|[a-z]+"
      "[A-Z]\\w*)$");
  return kIdentifier.match(name).hasMatch();
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
  return object && (object->objectName().startsWith("qt_") || object->inherits("QScrollBar") ||
                    object->objectName() == "ScrollLeftButton" ||
                    object->objectName() == "ScrollRightButton");
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
  void Listen(const QAccessibleInterface& node) {
    const QObject* object = node.object();
    QString name = node.text(QAccessible::Name);
    // The name that Qt gives a combo box on Linux is its value; what it is called comes beside it.
    if (auto* combo = qobject_cast<const QComboBox*>(object)) name = combo->accessibleName();
    const std::string what = where_ + ": " + (object ? FromQt(object->objectName()) : "") + " [" +
                             std::string(object ? object->metaObject()->className() : "") + "] " +
                             QMetaEnum::fromType<QAccessible::Role>().valueToKey(node.role());
    if (NeedsName(node.role())) {
      EXPECT_FALSE(name.trimmed().isEmpty()) << what;
    }
    EXPECT_FALSE(IsIdentifier(name)) << what << ": " << FromQt(name);
    if (object && !object->objectName().isEmpty()) {
      EXPECT_NE(name, object->objectName()) << what;
    }
  }

  std::string where_;
};

void Hear(QWidget& window, const std::string& where) {
  Walk(where).Over(QAccessible::queryAccessibleInterface(&window));
}

// A label that shows a value of the screen says it.
void HearValues(const Screen& screen, const Binder& bindings, const std::string& where) {
  for (const Field* field : screen.Fields()) {
    const auto* label = qobject_cast<QLabel*>(bindings.WidgetOf(*field));
    if (!label || !label->isVisible() || field->Text().empty()) continue;
    EXPECT_TRUE(label->accessibleName().contains(ToQt(field->Text()).simplified()))
        << where << " " << field->Name() << ": " << FromQt(label->accessibleName());
  }
}

TEST(Accessibility, EveryWindowSpeaksInWords) {
  Windows windows;
  windows.ShowEach([](Screen& screen, const ViewSpec& spec) {
    ScreenDialog dialog(spec, screen, nullptr);
    dialog.show();
    for (QTabWidget* tabs : dialog.findChildren<QTabWidget*>())
      for (int tab = tabs->count() - 1; tab >= 0; --tab) {
        tabs->setCurrentIndex(tab);
        QApplication::processEvents();
        Hear(*tabs, screen.Name() + " " + std::to_string(tab));
        HearValues(screen, dialog.Bindings(), screen.Name());
      }
    QApplication::processEvents();
    Hear(dialog, screen.Name());
    HearValues(screen, dialog.Bindings(), screen.Name());
  });
}

TEST(Accessibility, EveryPageSpeaksInWords) {
  TestLedger test;
  FillDemo(test);
  FillPensionDemo(test);
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test, windows);
  MainWindow window(screen);
  test.ledger.starting = false;
  window.show();
  for (const auto& page : screen.Pages()) {
    screen.ShowPage(page->Spec().page);
    const TabField* tabs = page->Tabs();
    for (int tab = 0; tab < (tabs ? tabs->Count() : 1); ++tab) {
      if (tabs) screen.Choose(const_cast<TabField&>(*tabs), tab);
      window.RefreshStatus();
      QApplication::processEvents();
      const std::string where = std::string(page->Spec().caption) + " " + std::to_string(tab);
      Hear(window, where);
      HearValues(screen, window.Bindings(), where);
    }
  }
}

TEST(Accessibility, AValueIsFollowed) {
  TestLedger test;
  FillDemo(test);
  frmSession screen(test);
  ScreenDialog dialog(*FindView("frmSession"), screen, nullptr);
  dialog.show();
  screen.Enter(screen.cRate, "384");
  const auto* total = dialog.Bindings().WidgetOf(screen.cTotal);
  EXPECT_EQ(FromQt(total->accessibleName()), "Total: " + screen.cTotal.Text());
}

TEST(Accessibility, HiddenColumnsAreSilentAndRowsSayHowTheyStand) {
  TestLedger test;
  FillDemo(test);
  WindowCatalogue windows;
  AddWindows(windows);
  frmMain screen(test, windows);
  MainWindow window(screen);
  test.ledger.starting = false;
  window.show();
  screen.ShowPage(Page::Sessions);
  screen.Enter(screen.PageOf<SessionsPage>().tabSessions, "All");
  QApplication::processEvents();
  const Grid& sessions = test.ledger.fgSessions;
  const GridModel& model = window.CurrentList()->Model();
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
