// The main window: the view of frmMain. Shortcut bar, menus, pages and status bar are made from
// what the screen tells.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <map>
#include <memory>

#include "shell/frmMain.h"
#include "shell/qt/windowmemory.h"

class QLabel;
class QListWidget;
class QStackedWidget;

namespace lm {

class Binder;
class GridView;
class TipStrip;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  // The screen outlives the window.
  explicit MainWindow(frmMain& screen);
  ~MainWindow() override;
  Binder& Bindings() { return *binder_; }
  void setVisible(bool visible) override;
  // The list in front; null on a page without one.
  GridView* CurrentList() const;
  void RefreshStatus();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // Every key of this window goes past the shortcuts first.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  // The menu drops below the button and is all that the button does.
  void DropMenu(std::string_view menu, const Field& button);
  void AddMenuNodes(QMenu& menu, const std::vector<MenuNode>& nodes);
  void RefreshMenu(QMenu& menu);
  QWidget* BuildShortcutBar();
  QWidget* BuildHead();
  void BuildStatusBar();
  // Built when the page is first shown.
  QWidget* WidgetOf(const MainPage& page);
  void BindLists(const QWidget& page);
  // Why the row where the cursor stands is locked.
  void ShowLock();
  void LetSelectSeveral(GridView& list);
  void ShowSelection();
  void ShowShortcutBar();
  void ShowKeys(const MainPage& page);
  void ShowPage();
  void FocusPage();
  void ShowSortMark(GridView& list);
  bool IsShortcut(QObject* watched, QEvent* event) const;
  void FitScreen();
  void ShowFirst();

  frmMain& screen_;
  Ledger& ledger_;
  QListWidget* bar_ = nullptr;
  TipStrip* tips_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  QLabel* selection_ = nullptr;
  QLabel* lockSign_ = nullptr;
  QLabel* lock_ = nullptr;
  QLabel* newRows_ = nullptr;
  QLabel* editedRows_ = nullptr;
  QLabel* typedDetails_ = nullptr;
  bool walkingTheBar_ = false;  // the page changes because the bar's current row did
  std::map<QAction*, const MenuNode*> actions_;
  std::map<const MainPage*, QWidget*> widgets_;  // of the pages that were shown
  QTimer statusTimer_;
  QSize tooLarge_;  // what the window still needs though its pages scroll
  WindowMemory memory_;
  std::unique_ptr<Binder>
      binder_;  // gone first: the lists let go of their tables while the rest stands
};

}  // namespace lm
