#include "shell/qt/mainwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>

#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/tables.h"
#include "shell/pages/calendarpage.h"
#include "shell/pages/mainpage.h"
#include "shell/qt/binder.h"
#include "shell/qt/calendarprint.h"
#include "shell/qt/footband.h"
#include "shell/qt/freearea.h"
#include "shell/qt/gridview.h"
#include "shell/qt/headermenu.h"
#include "shell/qt/icons.h"
#include "shell/qt/pagewidgets.h"
#include "shell/qt/printing.h"
#include "shell/qt/qtext.h"
#include "shell/qt/scrolling.h"
#include "shell/qt/tipstrip.h"
#include "shell/qt/virtualkeys.h"
#include "shell/severalrows.h"
#include "shell/unsavedwords.h"

namespace lm {
namespace {

constexpr int kBarIcon = 22;
constexpr int kBarRow = 42;
constexpr int kBarAir = 10;        // pixels above and below a row's words, at least
constexpr int kStatusDelay = 150;  // ms; counting waits until the changes are over

bool IsTextBox(const QWidget& widget) {
  return widget.inherits("QLineEdit") || widget.inherits("QPlainTextEdit") ||
         widget.inherits("QTextEdit");
}

// On a low screen the rows move together, so that all pages stay in sight.
class PageBar : public QListWidget {
 protected:
  void resizeEvent(QResizeEvent* event) override {
    QListWidget::resizeEvent(event);
    const int room = viewport()->height() / std::max(count(), 1) - 2 * spacing();
    const int words = fontMetrics().height();
    const int height = std::clamp(room, words + kBarAir, std::max(kBarRow, words + 18));
    for (int row = 0; row < count(); ++row) item(row)->setSizeHint(QSize(0, height));
  }
};

}  // namespace

MainWindow::MainWindow(frmMain& screen)
    : screen_(screen), ledger_(screen.ledger), memory_(screen.ledger.programDirectory, "frmMain") {
  setObjectName("frmMain");
  setWindowIcon(LineIcon("ledgerminder"));
  // No drawing comes from the desktop's theme, and to look through its folders would take a good
  // part of the start.
  QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
  QIcon::setFallbackSearchPaths({QStringLiteral(":/icons")});

  auto* central = new QWidget;
  auto* across = new QHBoxLayout(central);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(0);
  across->addWidget(BuildShortcutBar());
  auto* content = new QWidget;
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(18, 14, 18, 12);
  column->setSpacing(12);
  column->addWidget(BuildHead());
  tips_ = new TipStrip(ledger_.programDirectory);
  column->addWidget(tips_);
  pages_ = new QStackedWidget;
  column->addWidget(pages_, 1);
  across->addWidget(content, 1);
  setCentralWidget(central);
  BuildMenus();
  BuildStatusBar();
  ApplyLineIcons(*this);

  binder_ = std::make_unique<Binder>(*this, screen);
  statusTimer_.setSingleShot(true);
  statusTimer_.setInterval(kStatusDelay);
  connect(&statusTimer_, &QTimer::timeout, this, &MainWindow::RefreshStatus);
  const auto showCaption = [this] { setWindowTitle(ToQt(screen_.Caption())); };
  showCaption();
  binder_->onCaptionChanged = showCaption;
  binder_->onClosed = [this] {
    hide();
    QApplication::quit();
  };
  screen_.layOut = [this](bool allPages) {
    if (allPages) {
      for (GridView* list : findChildren<GridView*>()) list->ReadLayout();
      for (const auto& page : widgets_) ShowKeys(*page.first);
    }
    ShowPage();
  };
  screen_.showWindow = [this] { ShowFirst(); };
  screen_.printGrid = [this](Grid& grid, const std::string& title, const std::string& period) {
    const auto* calendar = dynamic_cast<const CalendarPage*>(&screen_.FrontPage());
    if (calendar)
      PrintCalendar(screen_, *calendar, this);
    else
      PrintGrid(ledger_, grid, {title, period}, this);
  };
  connect(tips_, &TipStrip::tipClosed, this, [this] {
    if (tips_->isAncestorOf(focusWidget())) FocusPage();
  });
  screen_.RefreshCommands();
  qApp->installEventFilter(this);
  ShowPage();
}

MainWindow::~MainWindow() {
  screen_.layOut = nullptr;
  screen_.showWindow = nullptr;
  screen_.printGrid = nullptr;
}

void MainWindow::ShowFirst() {
  FitScreen();
  const QRect area = FreeArea(*this);
  QRect place(QPoint(), QSize(1240, 780).boundedTo(area.size() * 0.96));
  place.setSize(place.size().expandedTo(minimumSizeHint()));
  place.moveCenter(area.center());
  setGeometry(Inside(place, area));
  memory_.Restore(*this, screen_.maximised);
  show();
  raise();
  activateWindow();
  FocusPage();
}

// The pages scroll where the window would be larger than the screen for them.
void MainWindow::FitScreen() {
  ensurePolished();
  SettleLayouts(*this);
  const QSize area = FreeArea(*this).size();
  const QSize needed = minimumSizeHint();
  const QSize room = area - (needed - pages_->minimumSizeHint());
  for (int i = 0; i < pages_->count(); ++i) FitPage(*pages_->widget(i), room);
  SettleLayouts(*this);
  resize(size().boundedTo(area));
}

void MainWindow::setVisible(bool visible) {
  if (visible && isHidden()) FitScreen();
  if (!visible && isVisible()) memory_.Keep(*this);
  QMainWindow::setVisible(visible);
}

// A page that needs more room later is fitted then.
bool MainWindow::event(QEvent* event) {
  const bool done = QMainWindow::event(event);
  if (event->type() != QEvent::LayoutRequest || !isVisible()) return done;
  const QSize needed = minimumSizeHint();
  if (needed.boundedTo(FreeArea(*this).size()) == needed || needed == tooLarge_) return done;
  FitScreen();
  tooLarge_ = minimumSizeHint();
  return done;
}

// Menus

void MainWindow::BuildMenus() {
  for (const MenuNode& node : screen_.MenuBar()) {
    if (node.hidden) continue;
    QMenu* menu = menuBar()->addMenu(ToQt(node.caption));
    menu->setObjectName(ToQt(node.name));
    AddMenuNodes(*menu, node.children);
  }
}

void MainWindow::AddMenuNodes(QMenu& menu, const std::vector<MenuNode>& nodes) {
  for (const MenuNode& node : nodes) {
    if (node.hidden) continue;
    if (!node.children.empty()) {
      QMenu* below = menu.addMenu(ToQt(node.caption));
      below->setObjectName(ToQt(node.name));
      AddMenuNodes(*below, node.children);
      continue;
    }
    if (!node.command) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(ToQt(node.caption));
    action->setObjectName(ToQt(node.name));
    action->setCheckable(node.checkable);
    if (node.header) {
      QFont bold = menu.font();
      bold.setBold(true);
      action->setFont(bold);
    }
    actions_[action] = &node;
    connect(action, &QAction::triggered, this, [this, &node] { binder_->Press(*node.command); });
  }
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { RefreshMenu(menu); });
}

void MainWindow::DropMenu(std::string_view name, const Field& field) {
  const auto& menus = screen_.ContextMenus();
  const auto node = std::find_if(menus.begin(), menus.end(),
                                 [&](const MenuNode& menu) { return menu.name == name; });
  auto* button = qobject_cast<QAbstractButton*>(binder_->WidgetOf(field));
  if (node == menus.end() || !button) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(button->objectName() + "_Menu");
  AddMenuNodes(*menu, node->children);
  disconnect(button, &QAbstractButton::clicked, binder_.get(), nullptr);
  connect(button, &QAbstractButton::clicked, this, [this, button, menu] {
    if (binder_->CommitPending()) menu->popup(button->mapToGlobal(QPoint(0, button->height() + 1)));
  });
}

void MainWindow::RefreshMenu(QMenu& menu) {
  screen_.RefreshCommands();
  for (QAction* action : menu.actions()) {
    const auto found = actions_.find(action);
    if (found == actions_.end()) continue;
    const MenuNode& node = *found->second;
    const QString shortcut = ToQt(screen_.ShortcutTextOf(node));
    const QString caption = ToQt(node.command->Text());
    action->setText(shortcut.isEmpty() ? caption : caption + '\t' + shortcut);
    action->setEnabled(node.command->Enabled());
    action->setVisible(node.command->Visible());
    if (node.checkable) action->setChecked(screen_.IsChecked(node));
  }
}

// Shortcut bar

QWidget* MainWindow::BuildShortcutBar() {
  bar_ = new PageBar;
  bar_->setObjectName("fgMenu");
  bar_->setAccessibleName(tr("Pages"));
  bar_->setFrameShape(QFrame::NoFrame);
  // Windows' own style marks a row by a faint light, on which the white drawing would be lost.
  if (QApplication::style()->name() == u"windowsvista") {
    QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"));
    fusion->setParent(bar_);
    bar_->setStyle(fusion);
  }
  bar_->setIconSize(QSize(kBarIcon, kBarIcon));
  bar_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  bar_->setSpacing(2);
  const Grid& menu = screen_.fgMenu;
  for (int col = 1; col < menu.Cols(); ++col) {
    auto* item = new QListWidgetItem(ToQt(menu.TextMatrix(1, col)), bar_);
    item->setSizeHint(QSize(0, std::max(kBarRow, bar_->fontMetrics().height() + 18)));
  }
  connect(bar_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row < 0 || row + 1 == screen_.fgMenu.Col()) return;
    if (binder_ && !binder_->CommitPending()) return ShowPage();
    // The arrow keys go on through the bar.
    const QScopedValueRollback walking(walkingTheBar_, true);
    screen_.ShowPage(static_cast<Page>(row + 1));
  });
  connect(bar_, &QListWidget::itemActivated, this, &MainWindow::FocusPage);
  connect(bar_, &QListWidget::itemClicked, this, &MainWindow::FocusPage);
  return bar_;
}

void MainWindow::ShowShortcutBar() {
  // The page is marked alike whether or not the bar has the focus: a drawing knows no difference.
  QPalette palette = QApplication::palette();
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
    palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
  bar_->setPalette(palette);
  bar_->setVisible(screen_.ShortcutBarVisible());
  const bool icons = OptionIsTrue(ledger_, optIconsInToolbar);
  int widest = 0;
  for (int row = 0; row < bar_->count(); ++row) {
    const std::string picture = screen_.fgMenu.Cell(CellSetting::flexcpPicture, 0, row + 1);
    bar_->item(row)->setIcon(icons ? LineIcon(ToQt(picture)) : QIcon());
    widest = std::max(widest, bar_->fontMetrics().horizontalAdvance(bar_->item(row)->text()));
  }
  bar_->setFixedWidth(widest + (icons ? kBarIcon : 0) + 44);
  const QSignalBlocker quiet(bar_);
  bar_->setCurrentRow(screen_.fgMenu.Col() - 1);
}

// The buttons tell which keys press them.
void MainWindow::ShowKeys(const MainPage& page) {
  for (const PageButton& each : page.Buttons()) {
    QWidget* button = binder_->WidgetOf(*each.button);
    const QString keys = ToQt(page.KeysOf(*each.button));
    if (button && each.button->ToolTip().empty())
      button->setToolTip(keys.isEmpty() ? QString()
                                        : tr("%1 (%2)").arg(ToQt(each.button->Text()), keys));
  }
}

// Pages

QWidget* MainWindow::BuildHead() {
  auto* title = new QLabel;
  title->setObjectName("lblPage");
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.55);
  font.setBold(true);
  title->setFont(font);
  return title;
}

QWidget* MainWindow::WidgetOf(const MainPage& page) {
  QWidget*& widget = widgets_[&page];
  if (widget) return widget;
  widget = MakePageWidget(page);
  pages_->addWidget(widget);
  ApplyLineIcons(*widget);
  binder_->Add(*widget);
  BindLists(*widget);
  for (const PageButton& each : page.Buttons())
    if (!each.menu.empty()) DropMenu(each.menu, *each.button);
  ShowKeys(page);
  return widget;
}

void MainWindow::BindLists(const QWidget& page) {
  for (GridView* list : page.findChildren<GridView*>()) {
    Grid* grid = list->Shown();
    if (!grid) continue;
    list->onHeaderClicked = [this, list, grid](int col) {
      screen_.HeaderClicked(*grid, col);
      ShowSortMark(*list);
    };
    if (FindTable(grid->Name())) {
      list->LetLastTakeRoom();
      list->onHeaderMenu = [list](int col, const QPoint& place) {
        ShowHeaderMenu(*list, col, place);
      };
    }
    list->onColumnMoved = [this, grid](int from, int to) { screen_.ColumnMoved(*grid, from, to); };
    const auto later = [this] { statusTimer_.start(); };
    LetSelectSeveral(*list);
    connect(list->model(), &QAbstractItemModel::modelReset, this, [this, list, later] {
      ShowSortMark(*list);
      later();
    });
    connect(list->model(), &QAbstractItemModel::dataChanged, this, later);
    connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this, list] {
      if (list == CurrentList()) ShowLock();
    });
  }
}

void MainWindow::ShowSortMark(GridView& list) {
  if (!list.Shown()) return;
  const SortState sort = screen_.SortOf(*list.Shown());
  list.SetSortMark(sort.key.empty() ? -1 : list.Shown()->ColIndex(sort.key), sort.descending);
}

void MainWindow::LetSelectSeveral(GridView& list) {
  MainPage* page = screen_.PageWith(*list.Shown());
  RecordList* records = page ? page->ListOf(*list.Shown()) : nullptr;
  if (!records) return;
  list.LetSelectSeveral();
  list.onSelected = [this, records](std::vector<int> rows) {
    records->SelectRows(std::move(rows));
    ShowSelection();
  };
  list.onDelete = [page, records] { page->DeleteSelected(*records); };
  list.onCopy = [page, records] { page->CopySelected(*records); };
}

GridView* MainWindow::CurrentList() const {
  const Grid* grid = screen_.PageGrid();
  return grid ? binder_->ViewOf(*grid) : nullptr;
}

void MainWindow::ShowPage() {
  ShowShortcutBar();
  QWidget* page = WidgetOf(screen_.FrontPage());
  const bool another = pages_->currentWidget() != page;
  pages_->setCurrentWidget(page);
  GridView* list = CurrentList();
  for (QWidget* part = list; part && part != pages_->currentWidget(); part = part->parentWidget())
    if (auto* stack = qobject_cast<QStackedWidget*>(part->parentWidget()))
      stack->setCurrentWidget(part);
  if (another && !walkingTheBar_) FocusPage();
  statusTimer_.start();
}

// On a page's list, else on its first box; a page with neither leaves the keys with the bar.
void MainWindow::FocusPage() {
  QWidget* first = CurrentList();
  if (!first) first = pages_->currentWidget()->focusProxy();
  (first ? first : bar_)->setFocus();
}

// Status bar

void MainWindow::BuildStatusBar() {
  selection_ = new QLabel;
  selection_->setObjectName("lblSelection");
  statusBar()->addWidget(selection_);
  lockSign_ = new QLabel;
  lockSign_->setAccessibleName(tr("Padlock"));
  lock_ = new QLabel;
  statusBar()->addWidget(lockSign_);
  statusBar()->addWidget(lock_);
  auto* status = new QLabel;
  status->setObjectName("lblStatus");
  status->setIndent(16);
  statusBar()->addWidget(status, 1);
  const auto add = [this](QLabel*& label) {
    label = new QLabel;
    statusBar()->addPermanentWidget(label);
  };
  add(newRows_);
  add(editedRows_);
  add(typedDetails_);
  statusBar()->setContentsMargins(12, 0, 4, 0);
}

void MainWindow::RefreshStatus() {
  if (const GridView* list = CurrentList())
    if (auto* foot = list->parentWidget()->findChild<FootBand*>()) foot->Refresh();
  ShowSelection();
  ShowLock();

  const UnsavedWords unsaved = DescribeUnsaved(ledger_);
  const auto show = [this](QLabel& label, bool waits, const QString& text, int option) {
    const QString colour = StandingOut(ToQColor(ValInt(GetOption(ledger_, option))),
                                       palette().color(QPalette::Window), kMarkContrast)
                               .name();
    label.setMinimumWidth(1);  // a long list of names must not widen the window
    label.setVisible(waits);
    label.setTextFormat(Qt::RichText);
    label.setText(
        QStringLiteral("<span style=\"color:%1\">&#9632;</span>&nbsp;%2").arg(colour, text));
    label.setAccessibleName(text);  // without the square
  };
  show(*newRows_, !unsaved.added.empty(), tr("New, not saved: %1").arg(ToQt(unsaved.added)),
       optNewRowColour);
  show(*editedRows_, !unsaved.edited.empty(), tr("Edited, not saved: %1").arg(ToQt(unsaved.edited)),
       optEditedRowColour);
  show(*typedDetails_, !ledger_.typedDetails.empty(), tr("My Details, not saved"),
       optEditedRowColour);
}

void MainWindow::ShowSelection() {
  const GridView* list = CurrentList();
  const RecordList* records =
      list && list->Shown() ? screen_.FrontPage().ListOf(*list->Shown()) : nullptr;
  selection_->setText(records ? ToQt(SelectionText(*records)) : QString());
  selection_->setVisible(!selection_->text().isEmpty());
}

void MainWindow::ShowLock() {
  const GridView* list = CurrentList();
  const QString lock = list && list->Shown() ? list->LockOf(list->Shown()->Row()) : QString();
  constexpr int kSign = 14;
  lockSign_->setPixmap(LineIcon("padlock", palette().color(QPalette::WindowText))
                           .pixmap(QSize(kSign, kSign), devicePixelRatioF()));
  lock_->setText(lock);
  lock_->setAccessibleName(tr("Locked. %1").arg(lock));
  lockSign_->setVisible(!lock.isEmpty());
  lock_->setVisible(!lock.isEmpty());
}

// Keys and closing

bool MainWindow::IsShortcut(QObject* watched, QEvent* event) const {
  if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || widget->window() != this || QApplication::activePopupWidget() ||
      QApplication::activeModalWidget())
    return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (IsTextBox(*widget) &&
      (EditsText(key) || key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)))
    return false;  // of what is being typed there
  const int code = VirtualKey(key);
  return code >= 0 && FindShortcut(ledger_, code, ShiftBits(key)) >= 0;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!IsShortcut(watched, event)) return QMainWindow::eventFilter(watched, event);
  if (event->type() == QEvent::ShortcutOverride) {
    // Taken here, so that no menu's Alt letter gets it; the key press itself follows.
    event->accept();
    return true;
  }
  const auto& key = static_cast<const QKeyEvent&>(*event);
  return !binder_->CommitPending() || screen_.ShortcutPressed(VirtualKey(key), ShiftBits(key));
}

// A tip takes no focus, so here is where it is sent away without the mouse.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    tips_->CloseTip();
  else
    QMainWindow::keyPressEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!screen_.Closed() && binder_->CommitPending()) screen_.CloseRequested();
  event->setAccepted(screen_.Closed());
}

}  // namespace lm
