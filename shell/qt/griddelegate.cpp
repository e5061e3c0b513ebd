#include "shell/qt/griddelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

#include "core/numbers.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/pickers.h"
#include "shell/grouping.h"
#include "shell/optiongrids.h"
#include "shell/qt/changemarks.h"
#include "shell/qt/gridview.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"
#include "shell/qt/views.h"
#include "shell/qt/virtualkeys.h"

namespace lm {
namespace {

constexpr int kTextMargin = 4;  // pixels between a cell's edge and its text
constexpr int kExpanderWidth = 22;
constexpr int kLevelIndent = 14;
constexpr int kNarrowestEditor = 104;
constexpr int kPadlock = 12;
constexpr int kPicture = 16, kLargePicture = 24;
constexpr double kTitleSize = 1.2;  // of a section's title, to the other texts
constexpr int kTallRow = 40;        // from which on a picture is drawn large

// In the middle of the cell, or before its text.
QRect PicturePlace(const QRect& cell, bool before) {
  const int side = cell.height() >= kTallRow ? kLargePicture : kPicture;
  QRect place(0, 0, side, side);
  place.moveCenter(cell.center());
  if (before) place.moveLeft(cell.left() + 3);
  return place;
}

}  // namespace

GridDelegate::GridDelegate(GridView* view) : QStyledItemDelegate(view), view_(view) {}

// Painting

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->font.setFamily(view_->Style().font.family());
  const bool title = view_->HasSections() && option->font.bold();
  option->font.setPointSizeF(view_->Style().font.pointSizeF() * (title ? kTitleSize : 1));
  option->text.remove(u'\r');
  if (!view_->Wraps(index.column())) option->text.replace(u'\n', u' ');
  option->state &= ~QStyle::State_HasFocus;
  KeepReadable(*option);
}

// Colours of texts and of grounds are chosen apart from each other.
void GridDelegate::KeepReadable(QStyleOptionViewItem& option) const {
  const ListStyle& style = view_->Style();
  const QColor ground = option.backgroundBrush.style() != Qt::NoBrush
                            ? option.backgroundBrush.color()
                        : option.features & QStyleOptionViewItem::Alternate ? style.alternate
                                                                            : style.base;
  const QColor text = option.palette.color(QPalette::Text);
  if (const QColor readable = StandingOut(text, ground); readable != text)
    option.palette.setColor(QPalette::Text, readable);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + QSize(2 * kTextMargin, 0);
}

int GridDelegate::TextHeight(const QModelIndex& index, int width) const {
  QStyleOptionViewItem cell;
  initStyleOption(&cell, index);
  const QRect place(0, 0, std::max(width - 2 * kTextMargin, 1), 0);
  return QFontMetrics(cell.font).boundingRect(place, Qt::TextWordWrap, cell.text).height();
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const GridModel& model = view_->Model();
  const int row = model.GridRow(index);
  if (row < 0) return;
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  if (model.HasMarker() && index.column() == 0) {
    PaintMarker(*painter, option.rect, row);
    return;
  }
  const QString text = std::exchange(cell.text, QString());
  const bool tick = cell.features & QStyleOptionViewItem::HasCheckIndicator;
  cell.features &= ~QStyleOptionViewItem::HasCheckIndicator;
  view_->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, view_);
  const bool group = view_->IsGroup(row) && index.column() == model.TitleColumn(row);
  QRect place = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
  if (group) {
    if (HasRows(*view_->Shown(), row)) PaintExpander(*painter, option, row);
    place.setLeft(option.rect.left() + kExpanderWidth +
                  kLevelIndent * (view_->Shown()->RowOutlineLevel(row) - 1));
  }
  const QString picture = model.PictureOf(row, index.column());
  const bool before = !picture.isEmpty() && picture != ToQt(kSwatch) && !text.isEmpty();
  if (before) place.setLeft(option.rect.left() + kExpanderWidth);
  if (view_->rowSpan(index.row(), index.column()) > 1) {
    const QRect seen = option.rect & view_->viewport()->rect();
    place.setTop(seen.top());
    place.setHeight(std::min(view_->verticalHeader()->defaultSectionSize(), seen.height()));
  }
  if (view_->InvitesTyping(row, index.column())) {
    const QString sign = view_->LockOf(row).isEmpty() ? "edit" : "padlock";
    LineIcon(sign, cell.palette.color(QPalette::Text))
        .paint(painter, PicturePlace(option.rect, true), Qt::AlignCenter,
               option.state & QStyle::State_Selected ? QIcon::Selected : QIcon::Normal);
    place.setLeft(option.rect.left() + kExpanderWidth);
  }
  if (tick) place.setLeft(PaintTick(*painter, cell, text.isEmpty()));
  const bool selected = option.state & QStyle::State_Selected;
  const auto colours = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
  painter->save();
  painter->setFont(cell.font);
  painter->setPen(
      cell.palette.color(colours, selected ? QPalette::HighlightedText : QPalette::Text));
  const int alignment = static_cast<int>(cell.displayAlignment);
  if (view_->Wraps(index.column()))
    painter->drawText(place, alignment | Qt::TextWordWrap, text);
  else
    painter->drawText(place, alignment | Qt::TextSingleLine,
                      QFontMetrics(cell.font).elidedText(text, Qt::ElideRight, place.width()));
  painter->restore();
  if (picture == ToQt(kSwatch))
    PaintSwatch(*painter, option.rect, row, index.column());
  else if (!picture.isEmpty())
    LineIcon(picture, cell.palette.color(QPalette::Text))
        .paint(painter, PicturePlace(option.rect, before), Qt::AlignCenter,
               selected ? QIcon::Selected : QIcon::Normal);
  PaintLines(*painter, option.rect);
  if (selected && view_->hasFocus() && index == view_->currentIndex() && !group) {
    painter->setPen(cell.palette.color(QPalette::HighlightedText));
    painter->drawRect(option.rect.adjusted(1, 1, -3, -3));
  }
}

void GridDelegate::PaintMarker(QPainter& painter, const QRect& rect, int gridRow) const {
  const Grid& grid = *view_->Shown();
  const RowState state = StateOfRow(view_->screen_->ledger, grid, gridRow);
  QRect mark = rect.adjusted(0, 0, -2, -1);
  if (!view_->LockOf(gridRow).isEmpty()) {
    QRect lock = mark;
    // Of a row that is not saved both signs have their half.
    if (state != RowState::Saved) {
      mark.setHeight(mark.height() / 2);
      lock.setTop(mark.bottom() + 1);
    }
    PaintPadlock(painter, lock);
  }
  PaintChangeMark(painter, mark, state,
                  ToQColor(grid.CellColour(CellSetting::flexcpBackColor, gridRow, 0)),
                  view_->Style().base);
  PaintLines(painter, rect);
}

void GridDelegate::PaintPadlock(QPainter& painter, const QRect& room) const {
  const int side = std::min({room.width(), room.height(), kPadlock});
  QRect place(0, 0, side, side);
  place.moveCenter(room.center());
  LineIcon("padlock", view_->Style().text).paint(&painter, place);
}

void GridDelegate::PaintSwatch(QPainter& painter, const QRect& rect, int gridRow, int col) const {
  const int colour = ValInt(view_->Shown()->TextMatrix(gridRow, col));
  painter.save();
  painter.setPen(view_->Style().text);
  painter.setBrush(ToQColor(colour));
  painter.drawRect(rect.adjusted(6, 4, -8, -6));
  painter.restore();
}

void GridDelegate::PaintLines(QPainter& painter, const QRect& rect) const {
  const ListStyle& style = view_->Style();
  painter.setPen(style.line);
  if (style.horizontalLines) painter.drawLine(rect.bottomLeft(), rect.bottomRight());
  if (style.verticalLines) painter.drawLine(rect.topRight(), rect.bottomRight());
}

int GridDelegate::PaintTick(QPainter& painter, const QStyleOptionViewItem& cell, bool alone) const {
  QStyleOptionViewItem box = cell;
  const QStyle& style = *view_->style();
  box.rect.setSize({style.pixelMetric(QStyle::PM_IndicatorWidth, &cell, view_),
                    style.pixelMetric(QStyle::PM_IndicatorHeight, &cell, view_)});
  box.rect.moveCenter(cell.rect.center());
  if (!alone) box.rect.moveLeft(cell.rect.left() + kTextMargin);
  box.state.setFlag(QStyle::State_On, cell.checkState == Qt::Checked);
  box.state.setFlag(QStyle::State_Off, cell.checkState != Qt::Checked);
  // The frame takes its colour from the window's, which is lost on a dark list.
  if (view_->Style().base.lightness() < 128)
    box.palette.setColor(QPalette::Window, view_->Style().text);
  // The mark stands on the list's own ground, whatever colour the row has.
  box.palette.setColor(QPalette::Text, view_->Style().text);
  style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, view_);
  return box.rect.right() + 2 * kTextMargin;
}

void GridDelegate::PaintExpander(QPainter& painter, const QStyleOptionViewItem& option,
                                 int gridRow) const {
  QStyleOption arrow;
  const int size = 10;
  const int indent = kLevelIndent * (view_->Shown()->RowOutlineLevel(gridRow) - 1);
  arrow.rect =
      QRect(option.rect.left() + indent + 7, option.rect.center().y() - size / 2, size, size);
  arrow.palette = option.palette;
  const QColor own = ToQColor(view_->Shown()->CellColour(CellSetting::flexcpForeColor, gridRow, 0));
  if (own.isValid() && !(option.state & QStyle::State_Selected))
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      arrow.palette.setColor(role, own);
  arrow.state = option.state;
  const bool collapsed = view_->Shown()->RowCollapsed(gridRow);
  view_->style()->drawPrimitive(
      collapsed ? QStyle::PE_IndicatorArrowRight : QStyle::PE_IndicatorArrowDown, &arrow, &painter,
      view_);
}

// Editing

QWidget* GridDelegate::ListEditor(QWidget* parent, const std::string& list) const {
  auto* combo = new QComboBox(parent);
  const std::string held = view_->Shown()->TextMatrix(editRow_, editCol_);
  int shown = -1;
  for (const auto& [id, text] : ComboEntries(list)) {
    if (shown < 0 && Trim(id) == held) shown = combo->count();
    combo->addItem(ToQt(text), ToQt(Trim(id)));
  }
  combo->setCurrentIndex(shown);
  combo->view()->installEventFilter(const_cast<GridDelegate*>(this));
  connect(combo, &QComboBox::activated, this,
          [this] { const_cast<GridDelegate*>(this)->Commit(); });
  return combo;
}

QWidget* GridDelegate::TextEditor(QWidget* parent, int row, int col,
                                  Qt::Alignment alignment) const {
  auto* frame = new QWidget(parent);
  frame->setAutoFillBackground(true);
  auto* line = new QLineEdit(frame);
  line->setFrame(false);
  line->setTextMargins(kTextMargin - 2, 0, kTextMargin - 2, 0);
  line->setAlignment(alignment);
  auto* across = new QHBoxLayout(frame);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(0);
  across->addWidget(line, 1);
  frame->setFocusProxy(line);
  line->installEventFilter(const_cast<GridDelegate*>(this));
  if (const Picker picker = view_->rules_->PickerOf(row, col); picker != Picker::None) {
    static constexpr const char* kDrawings[] = {"", "calendar", "sessions", "numbers"};
    auto* button = new QToolButton(frame);
    button->setIcon(LineIcon(kDrawings[static_cast<int>(picker)]));
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRaise(true);
    button->setAccessibleName(tr("Choose"));
    across->addWidget(button);
    connect(button, &QToolButton::clicked, this,
            [this, button, picker] { const_cast<GridDelegate*>(this)->Pick(*button, picker); });
  }
  return frame;
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
  editRow_ = view_->Model().GridRow(index);
  editCol_ = index.column();
  const std::string list = view_->rules_->EditList(*view_->Shown(), editRow_, editCol_);
  const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  editor_ =
      list.empty() ? TextEditor(parent, editRow_, editCol_, alignment) : ListEditor(parent, list);
  editor_->setFont(view_->Style().font);
  const QString heading =
      view_->model()->headerData(editCol_, Qt::Horizontal).toString().simplified();
  QWidget& typed = editor_->focusProxy() ? *editor_->focusProxy() : *editor_;
  typed.setAccessibleName(heading);
  typed.setAccessibleDescription(heading);  // on Linux the name of a combo box is its value
  return editor_;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex&) const {
  if (editor->property("filled").toBool())
    return;  // a repaint of the cell is no reason to lose what was typed
  editor->setProperty("filled", true);
  if (auto* combo = qobject_cast<QComboBox*>(editor)) {
    // A letter chooses the first entry that begins with it.
    const int entry = typed_ ? combo->findText(*typed_, Qt::MatchStartsWith) : -1;
    if (entry >= 0) combo->setCurrentIndex(entry);
    // It may be left before its turn comes.
    const auto drop = [this, combo] {
      if (combo == editor_) combo->showPopup();
    };
    QMetaObject::invokeMethod(combo, drop, Qt::QueuedConnection);
    return;
  }
  auto* line = editor->findChild<QLineEdit*>();
  line->setText(typed_ ? *typed_ : ToQt(view_->Shown()->TextMatrix(editRow_, editCol_)));
}

void GridDelegate::Opened() {
  if (!typed_ || !editor_) return;
  if (auto* line = editor_->findChild<QLineEdit*>()) line->end(false);
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const {
  QRect place = option.rect;
  place.setWidth(std::max(place.width(), kNarrowestEditor));
  editor->setGeometry(place);
}

std::optional<CellInput> GridDelegate::Input() const {
  using How = CellInput::How;
  const auto* list = qobject_cast<const QComboBox*>(editor_.data());
  if (!list) return CellInput{How::Typed, FromQt(editor_->findChild<QLineEdit*>()->text())};
  if (list->currentIndex() < 0) return std::nullopt;
  return CellInput{How::Chosen, FromQt(list->currentData().toString())};
}

void GridDelegate::CloseEditor() {
  QWidget* editor = editor_;
  editor_ = nullptr;
  if (editor) emit closeEditor(editor, NoHint);
}

// What a picker writes is final and goes past the reading of typed text.
void GridDelegate::Pick(QWidget& button, Picker picker) {
  Grid& grid = *view_->Shown();
  const int row = editRow_, col = editCol_;
  SetPickerAnchor(button);
  committing_ = true;
  const auto chosen =
      PickForCell(view_->screen_->ledger, picker, Input()->text, grid.TextMatrix(0, col));
  committing_ = false;
  if (!editor_) return;
  editor_->setFocus();
  if (!chosen) return;
  CloseEditor();
  view_->screen_->FinishEdit(grid, row, col, {CellInput::How::Picked, *chosen});
}

bool GridDelegate::Commit() {
  if (!editor_) return true;
  if (committing_) return false;
  if (const std::optional<CellInput> input = Input()) {
    committing_ = true;
    const EditOutcome outcome =
        view_->screen_->FinishEdit(*view_->Shown(), editRow_, editCol_, *input);
    committing_ = false;
    if (outcome == EditOutcome::Refused && editor_) {
      editor_->setFocus();
      return false;
    }
  }
  CloseEditor();
  return true;
}

// A list that has dropped down takes the focus, and is still the editor; and what was left may be
// the editor of the cell before.
void GridDelegate::CommitWhenLeft() {
  if (!editor_) return;
  const QWidget* focus = QApplication::focusWidget();
  if (focus && (focus == editor_ || editor_->isAncestorOf(focus))) return;
  const auto* combo = qobject_cast<const QComboBox*>(editor_.data());
  if (!combo || !combo->view()->isVisible()) Commit();
}

// Takes the text and goes on with the next shown cell of the row.
void GridDelegate::EditNeighbour(int step) {
  const int row = editRow_;
  int col = editCol_ + step;
  if (!Commit()) return;
  const Grid& grid = *view_->Shown();
  while (col >= 0 && col < grid.Cols() && !grid.ColVisible(col)) col += step;
  if (col >= view_->Model().FirstColumn() && col < grid.Cols()) view_->EditCellAt(row, col);
}

// A list that has dropped down keeps the keys for itself: Tab takes what is highlighted there.
bool GridDelegate::LeavesDroppedList(const QEvent& event) {
  auto* list = qobject_cast<QComboBox*>(editor_.data());
  if (!list || event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  if (key != Qt::Key_Tab && key != Qt::Key_Backtab) return false;
  const QModelIndex highlighted = list->view()->currentIndex();
  // A list that shows none of its entries has a current one all the same.
  if (list->view()->selectionModel()->isSelected(highlighted))
    list->setCurrentIndex(highlighted.row());
  list->hidePopup();
  EditNeighbour(key == Qt::Key_Tab ? +1 : -1);
  return true;
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (!editor_) return false;
  if (qobject_cast<QAbstractItemView*>(watched)) return LeavesDroppedList(*event);
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    const bool passing = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    if (!passing && !committing_)
      QMetaObject::invokeMethod(this, &GridDelegate::CommitWhenLeft, Qt::QueuedConnection);
    return false;
  }
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (event->type() == QEvent::ShortcutOverride) {
    // Taking and leaving belong to the editor while it is open, not to the window's buttons.
    const bool own = key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (own) event->accept();
    return own;
  }
  const auto& pressed = static_cast<const QKeyEvent&>(*event);
  auto* picker = OpensPicker(pressed) ? editor_->findChild<QToolButton*>() : nullptr;
  if (picker) picker->click();
  if (picker || (qobject_cast<QLineEdit*>(watched) && IsStrayAltLetter(pressed))) return true;
  switch (key) {
    case Qt::Key_Escape:
      CloseEditor();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* combo = qobject_cast<QComboBox*>(watched); combo && combo->view()->isVisible())
        return false;
      Commit();
      return true;
    case Qt::Key_Tab:
      EditNeighbour(+1);
      return true;
    case Qt::Key_Backtab:
      EditNeighbour(-1);
      return true;
    default:
      return false;
  }
}

}  // namespace lm
