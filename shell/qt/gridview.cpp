#include "shell/qt/gridview.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QScrollBar>
#include <QTimerEvent>

#include "core/tables.h"
#include "shell/qt/griddelegate.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kRowPadding = 10;  // pixels above and below the text together
constexpr int kHeaderPadding = 14;
constexpr int kHeaderMargin = 10;  // pixels that a caption does not fill

// Two headings beside each other keep their distance, the first one at the right of its column, the
// second at the left.
class HeadingEdges : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    constexpr int kEdge = 5;
    return metric == PM_HeaderMargin ? kEdge : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

QStyle* HeadingStyle() {
  static const QPointer<QStyle> style = [] {
    auto* made = new HeadingEdges;
    made->setParent(qApp);
    return made;
  }();
  return style;
}

}  // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)), delegate_(new GridDelegate(this)) {
  setModel(model_);
  setItemDelegate(delegate_);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  setShowGrid(false);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(4);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);

  QHeaderView* header = horizontalHeader();
  header->setStyle(HeadingStyle());
  header->setMinimumSectionSize(4);
  header->setSectionsMovable(true);
  header->setSectionsClickable(true);
  header->setHighlightSections(false);
  connect(header, &QHeaderView::sectionClicked, this, [this](int col) {
    if (onHeaderClicked && !(model_->HasMarker() && col == 0) && CommitEditor())
      onHeaderClicked(col);
  });
  connect(header, &QHeaderView::sectionResized, this,
          [this](int col, int, int pixels) { HeaderSized(col, pixels); });
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this, [this, header](const QPoint& place) {
    if (onHeaderMenu && Shown())
      onHeaderMenu(header->logicalIndexAt(place), header->mapToGlobal(place));
  });
  connect(header, &QHeaderView::sectionMoved, this, &GridView::HeaderMoved);
  // The text of a tall block stays in sight, and so stands elsewhere in it.
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    if (Shown() && Shown()->MergeCells() != MergeSetting::Never) viewport()->update();
  });
  model_->lockOf = [this](int row) { return LockOf(row); };
  model_->spokenNote = [this](int row, int col) { return NoteOf(row, col); };
  connect(model_, &QAbstractItemModel::modelReset, this, &GridView::ReadLayout);
  connect(model_, &GridModel::cursorMoved, this, &GridView::ReadCursor);
}

void GridView::Bind(Screen& screen, Grid& grid) {
  screen_ = &screen;
  rules_ = screen.RulesOf(grid);
  measured_.clear();
  model_->SetEditable(rules_ != nullptr);
  model_->SetGrid(&grid);
}

void GridView::Unbind() {
  model_->SetGrid(nullptr);
  screen_ = nullptr;
  rules_ = nullptr;
}

void GridView::ReadWhenShown() {
  model_->mayRead = [this] { return isVisible(); };
}

void GridView::showEvent(QShowEvent* event) {
  model_->Sync();
  QTableView::showEvent(event);
}

void GridView::SetChoice(bool choice) {
  choice_ = choice;
  setSelectionBehavior(choice ? SelectItems : SelectRows);
  horizontalHeader()->setSectionsMovable(!choice);
  horizontalHeader()->setSectionsClickable(!choice);
}

void GridView::SetSections(bool sections) {
  sections_ = sections;
  model_->SetWhiteIsPlain(sections);
}

void GridView::FillRoom() {
  fillsRoom_ = true;
  setSelectionBehavior(SelectItems);
}

void GridView::SetHeadingsOf(const QString& grid) {
  headingsOf_ = grid;
  model_->SetHeadings(true);
}

// Layout

void GridView::ReadStyle() {
  if (!screen_ || !Shown()) return;
  const QPalette system = QApplication::palette(this);
  style_ =
      ListStyleOf([this](int option) { return screen_->LookOption(*Shown(), option); }, system);
  QPalette own = system;
  own.setColor(QPalette::Base, style_.base);
  own.setColor(QPalette::AlternateBase, style_.alternate);
  own.setColor(QPalette::Text, style_.text);
  const bool wasReading = std::exchange(reading_, true);
  setFont(style_.font);
  horizontalHeader()->setFont(style_.font);
  setPalette(own);
  setAlternatingRowColors(style_.alternate != style_.base);
  verticalHeader()->setDefaultSectionSize(QFontMetrics(style_.font).height() + kRowPadding);
  reading_ = wasReading;
}

void GridView::ReadLayout() {
  Grid* grid = Shown();
  if (!grid || !model_->IsRead()) return;
  const int scrolled = verticalScrollBar()->value();
  ReadStyle();
  reading_ = true;
  ReadColumns();
  ReadRows();
  ReadSpans();
  if (hidesWhenEmpty_) setVisible(model_->rowCount() > 0);
  reading_ = false;
  ReadCursor();
  verticalScrollBar()->setValue(scrolled);
}

void GridView::ReadColumns() {
  const Grid* grid = Shown();
  QHeaderView* header = horizontalHeader();
  header->setVisible(!fillsRoom_ && HasCaptions());
  for (int col = 0; col < grid->Cols(); ++col) {
    const bool shown = grid->ColVisible(col);
    header->setSectionHidden(col, !shown);
    if (!shown) continue;
    const bool marker = model_->HasMarker() && col == 0;
    const bool stretches = choice_ || Wraps(col) || (fillsRoom_ && grid->ColWidth(col) < 0);
    const auto mode = stretches ? QHeaderView::Stretch
                      : marker  ? QHeaderView::Fixed
                                : QHeaderView::Interactive;
    // Each change makes the header measure all of its sections.
    if (header->sectionResizeMode(col) != mode) header->setSectionResizeMode(col, mode);
    if (!stretches) header->resizeSection(col, ColumnWidth(col));
  }
  GiveRoomToLast();
  if (!fillsRoom_) header->setFixedHeight(HeaderHeight());
}

void GridView::ReadRows() {
  Grid* grid = Shown();
  if (choice_) {
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return;
  }
  const int wrapped = Named(wrappedColumn_);
  for (int shown = 0; shown < model_->rowCount(); ++shown) {
    const int twips = grid->RowHeight(model_->GridRow(model_->index(shown, 0)));
    if (twips >= 0)
      verticalHeader()->resizeSection(shown, TwipsToPixels(twips, logicalDpiY()));
    else if (wrapped >= 0)
      verticalHeader()->resizeSection(
          shown,
          kRowPadding + delegate_->TextHeight(model_->index(shown, wrapped), columnWidth(wrapped)));
  }
}

bool GridView::HasCaptions() const {
  const Grid& grid = *Shown();
  const int captions = CaptionRow(grid);
  for (int col = 0; col < grid.Cols(); ++col)
    if (grid.ColVisible(col) && !grid.TextMatrix(captions, col).empty()) return true;
  return false;
}

int GridView::Named(const QString& key) const {
  return key.isEmpty() || !Shown() ? -1 : Shown()->ColIndex(FromQt(key));
}

void GridView::ReadSpans() {
  clearSpans();
  Grid* grid = Shown();
  for (int shown = 0; shown < model_->rowCount(); ++shown) {
    const int row = model_->GridRow(model_->index(shown, 0));
    if (grid->IsSubtotal(row)) {
      const int title = model_->TitleColumn(row);
      if (const int end = model_->TitleEnd(row); end - title > 1)
        setSpan(shown, title, 1, end - title);
      continue;
    }
    if (sections_ && grid->Cell(CellSetting::flexcpFontBold, row, 0) == "TRUE") {
      int end = 1;
      while (end < grid->Cols() && grid->TextMatrix(row, end).empty()) ++end;
      if (end > 1) setSpan(shown, 0, 1, end);
      continue;
    }
    if (grid->MergeCells() == MergeSetting::Never) continue;
    for (int col = 0; col < grid->Cols(); ++col) {
      const CellRange block = grid->MergedRange(row, col);
      const int last = model_->ModelRow(block.row2);
      if (block.row1 != row || block.col1 != col || last < shown) continue;
      if (last > shown || block.col2 > col)
        setSpan(shown, col, last - shown + 1, block.col2 - col + 1);
      col = block.col2;
    }
  }
}

void GridView::ReadCursor() {
  Grid* grid = Shown();
  if (!grid || reading_) return;
  const int row = model_->ModelRow(grid->Row());
  reading_ = true;
  if (row < 0) {
    selectionModel()->clear();
  } else {
    int col = std::max(grid->Col(), model_->FirstColumn());
    if (!grid->ColVisible(col)) col = model_->FirstColumn();
    const QModelIndex index = model_->index(row, col);
    if (index != currentIndex() || !selectionModel()->isSelected(index))
      selectionModel()->setCurrentIndex(
          index,
          QItemSelectionModel::ClearAndSelect |
              (choice_ || fillsRoom_ ? QItemSelectionModel::NoUpdate : QItemSelectionModel::Rows));
    scrollTo(model_->index(row, col));
  }
  reading_ = false;
}

// Long captions take several lines.
int GridView::HeaderHeight() const {
  const QFontMetrics metrics(style_.font);
  int tallest = metrics.height();
  for (int col = 0; col < Shown()->Cols(); ++col) {
    if (horizontalHeader()->isSectionHidden(col)) continue;
    const int width = std::max(horizontalHeader()->sectionSize(col) - kHeaderMargin, 1);
    const QString caption = model_->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
    tallest = std::max(
        tallest, metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, caption).height());
  }
  return std::min(tallest, 3 * metrics.lineSpacing()) + kHeaderPadding;
}

void GridView::HeaderSized(int col, int pixels) {
  // Without a header it was not the user.
  if (reading_ || choice_ || horizontalHeader()->isHidden() || !Shown() || pixels <= 0) return;
  if (Wraps(col)) return;
  model_->IgnoreLayout(true);
  Shown()->SetColWidth(col, PixelsToTwips(pixels, logicalDpiX()));
  model_->IgnoreLayout(false);
  GiveRoomToLast();
  horizontalHeader()->setFixedHeight(HeaderHeight());
}

// The header goes back to the model's order at once; the moved column comes with the new layout.
void GridView::HeaderMoved(int, int from, int to) {
  if (reading_ || !Shown()) return;
  reading_ = true;
  horizontalHeader()->moveSection(to, from);
  reading_ = false;
  const bool marker = model_->HasMarker() && (from == 0 || to == 0);
  if (onColumnMoved && !marker && CommitEditor()) onColumnMoved(from, to);
}

void GridView::SetSortMark(int col, bool descending) {
  horizontalHeader()->setSortIndicatorShown(col >= 0);
  horizontalHeader()->setSortIndicator(col, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// Groups and rows

void GridView::ToggleGroup(int gridRow) { SetGroupOpen(gridRow, Shown()->RowCollapsed(gridRow)); }

void GridView::SetGroupOpen(int gridRow, bool open) {
  if (Shown()->RowCollapsed(gridRow) != open) return;
  Shown()->SetRowCollapsed(gridRow, !open);
  model_->Sync();
}

void GridView::OpenRow(int gridRow) {
  if (gridRow < 0) return;
  if (choice_)
    screen_->Click(*Shown(), gridRow, currentIndex().column());
  else if (IsGroup(gridRow))
    ToggleGroup(gridRow);
  else if (rules_)
    rules_->Opened(gridRow);
}

// A longer text may need a taller row.
void GridView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                           const QList<int>& roles) {
  QTableView::dataChanged(topLeft, bottomRight, roles);
  if (!wrappedColumn_.isEmpty()) ReadRows();
}

// Editing

void GridView::EditCellAt(int gridRow, int col, const std::optional<QString>& typed) {
  if (!rules_ || !CommitEditor()) return;
  model_->Sync();
  const int shown = model_->ModelRow(gridRow);
  if (shown < 0 || IsGroup(gridRow) || !Shown()->ColVisible(col)) return;
  if (model_->HasTick(gridRow, col)) return;  // it is pressed, not typed
  const QModelIndex cell = model_->index(shown, col);
  setCurrentIndex(cell);
  scrollTo(cell);
  if (!(model_->flags(cell) & Qt::ItemIsEditable)) return;
  if (!screen_->OpenCell(*Shown(), gridRow, col)) return TellLock(cell);
  setFocus();
  delegate_->StartWith(typed);
  edit(model_->index(model_->ModelRow(gridRow), col));
  delegate_->Opened();
}

bool GridView::CommitEditor() { return delegate_->Commit(); }

// Keys and mouse

bool GridView::HandleKey(const QKeyEvent& event) {
  const int row = CurrentRow();
  const int typed = Named(typedColumn_);
  const int col = typed >= 0 ? typed : currentIndex().column();
  const bool plain =
      !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (!plain) return false;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (choice_) return false;
      if (editsInPlace_ && rules_)
        rules_->AddPressed();
      else if (row >= 0 && (rules_ || IsGroup(row)))
        OpenRow(row);
      else
        return false;
      return true;
    case Qt::Key_Insert:
      if (rules_) rules_->AddPressed();
      return rules_ != nullptr;
    case Qt::Key_Delete:
      if (onDelete && row >= 0)
        onDelete();
      else if (rules_ && row >= 0)
        rules_->DeletePressed(row);
      return rules_ && row >= 0;
    case Qt::Key_F2:
      if (row >= 0) EditCellAt(row, col);
      return row >= 0;
    case Qt::Key_Plus:
    case Qt::Key_Right:
    case Qt::Key_Minus:
    case Qt::Key_Left:
      if (!IsGroup(row)) break;
      SetGroupOpen(row, event.key() == Qt::Key_Plus || event.key() == Qt::Key_Right);
      return true;
    case Qt::Key_Space:
      if (const int pressed = model_->PressedColumn(row); pressed >= 0) {
        screen_->Click(*Shown(), row, pressed);
        return true;
      }
      if (choice_ || IsGroup(row)) {
        OpenRow(row);
        return true;
      }
      break;
    default:
      break;
  }
  const QString text = event.text();
  if (!rules_ || choice_ || row < 0 || IsGroup(row) || text.isEmpty() || !text[0].isPrint())
    return false;
  EditCellAt(row, col, text);
  return true;
}

bool GridView::OpenedMenu(const QKeyEvent& event) {
  if (event.key() != Qt::Key_F10) return false;
  if (event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier) && onHeaderMenu) {
    const int col = std::max(currentIndex().column(), model_->FirstColumn());
    const QPoint below(columnViewportPosition(col), horizontalHeader()->height());
    onHeaderMenu(col, horizontalHeader()->mapToGlobal(below));
    return true;
  }
  if (event.modifiers() != Qt::ShiftModifier) return false;
  const QPoint place = visualRect(currentIndex()).bottomLeft();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, viewport()->mapToGlobal(place));
  contextMenuEvent(&menu);
  return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (onCopy && event->matches(QKeySequence::Copy)) {
    onCopy();
    return event->accept();
  }
  if (Shown() && (OpenedMenu(*event) || HandleKey(*event)))
    event->accept();
  else
    QTableView::keyPressEvent(event);
}

// The column of markers holds nothing to stand on.
QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const QModelIndex to = QTableView::moveCursor(action, modifiers);
  return to.column() == 0 && model_->HasMarker() ? to.siblingAtColumn(model_->FirstColumn()) : to;
}

void GridView::mousePressEvent(QMouseEvent* event) {
  // A refused text keeps its editor, or its box beside the list: the click then leads nowhere.
  if (!CommitEditor() || (mayLeaveBoxes && !mayLeaveBoxes())) return;
  const QModelIndex pressed = indexAt(event->pos());
  const int row = model_->GridRow(pressed);
  wasCurrent_ = pressed.isValid() && pressed == currentIndex() && hasFocus();
  slowClick_.stop();
  QTableView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton && IsGroup(row) &&
      pressed.column() == model_->TitleColumn(row))
    ToggleGroup(row);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton || indexAt(event->pos()) != currentIndex()) return;
  if (choice_)
    OpenRow(CurrentRow());
  else if (model_->IsPressed(CurrentRow(), currentIndex().column()))
    screen_->Click(*Shown(), CurrentRow(), currentIndex().column());
  else if (wasCurrent_ && rules_ && !IsGroup(CurrentRow()))
    slowClick_.start(QApplication::doubleClickInterval(), this);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  slowClick_.stop();
  wasCurrent_ = false;
  const QModelIndex index = indexAt(event->pos());
  const int row = model_->GridRow(index);
  if (event->button() != Qt::LeftButton || row < 0 || choice_) return;
  if (model_->IsPressed(row, index.column())) return;
  if (model_->HasMarker() && index.column() == 0 && !LockOf(row).isEmpty())
    return rules_->LockPressed(row);
  if (editsInPlace_)
    EditCellAt(row, index.column());
  else if (!IsGroup(row))
    OpenRow(row);
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != slowClick_.timerId()) return QTableView::timerEvent(event);
  slowClick_.stop();
  if (hasFocus() && CurrentRow() >= 0) EditCellAt(CurrentRow(), currentIndex().column());
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  if (!screen_ || !CommitEditor()) return;
  const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
  if (byMouse) {
    const QModelIndex index = indexAt(event->pos());
    // On one of several selected rows the menu is for all of them.
    if (index.isValid() && selectionModel()->isSelected(index))
      selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    else if (index.isValid())
      setCurrentIndex(index);
  }
  const std::vector<MenuEntry> entries = screen_->ContextMenu(*Shown());
  if (entries.empty()) return;
  QMenu menu(this);
  for (const MenuEntry& entry : entries) {
    if (!entry.command) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(ToQt(entry.command->Text()));
    action->setObjectName(ToQt(entry.command->Name()));
    action->setVisible(entry.visible);
    action->setEnabled(entry.enabled);
    connect(action, &QAction::triggered, this,
            [this, command = entry.command] { screen_->Press(*command); });
  }
  const QPoint place = byMouse ? event->globalPos()
                               : viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
  menu.exec(place);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (reading_ || !Shown() || !current.isValid()) return;
  reading_ = true;
  Shown()->Select(model_->GridRow(current), current.column());
  reading_ = false;
}

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!onSelected) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      rows.push_back(model_->GridRow(model_->index(row, 0)));
  onSelected(std::move(rows));
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  const bool look = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
  if (look && !reading_) ReadStyle();
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  GiveRoomToLast();
  if (model_->IsRead() && Named(wrappedColumn_) >= 0) ReadRows();
}

void GridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  const QString text = whenEmpty ? whenEmpty() : emptyText_;
  if (model_->rowCount() > 0 || text.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(viewport()->rect().adjusted(24, 24, -24, -24),
                   Qt::AlignCenter | Qt::TextWordWrap, text);
}

}  // namespace lm
