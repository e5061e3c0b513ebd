#include "shell/qt/todaygrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kIndent = 24;     // pixels of the arrow, below which the names begin
constexpr int kSideMargin = 8;  // between the columns, and at the right
constexpr int kAboveHeading = 10, kBelowHeading = 6;
constexpr int kRounding = 2;  // what a text may be wider than it measures
constexpr int kMeasuredRows = 300;
constexpr double kMostOfWidth = 0.45;  // that the dates may take of the names
constexpr double kBalanceSize = 1.15;
constexpr double kFaint = 0.38;     // from the text towards the ground
constexpr double kSelected = 0.25;  // from the ground towards the highlight

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

QColor SelectedGround(const ListStyle& style, const QPalette& palette) {
  return MixedColour(style.base, palette.color(QPalette::Highlight), kSelected);
}

// On a selected row too.
QColor FaintText(const ListStyle& style, const QPalette& palette) {
  return StandingOut(MixedColour(style.text, style.base, kFaint), SelectedGround(style, palette));
}

bool IsBalance(const Grid& grid, int row) { return SectionOfHeading(grid, row) == kBalanceKey; }

}  // namespace

TodayGrid::TodayGrid(const TodayList& list, QWidget* parent) : GridView(parent), list_(list) {
  setItemDelegate(new TodayDelegate(this));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  connect(model(), &QAbstractItemModel::modelReset, this, &TodayGrid::ShowCursor);
  Model().spokenText = [this](int row, int col) {
    return isColumnHidden(col) ? QString() : SpokenText(row);
  };
  Model().spokenNote = nullptr;
}

QFont TodayGrid::HeadingFont(int gridRow) const {
  const Grid& grid = *Shown();
  if (IsBalance(grid, gridRow)) {
    QFont font = Bold(Style().font);
    font.setPointSizeF(font.pointSizeF() * kBalanceSize);
    return font;
  }
  return IsEmptySection(grid, gridRow) ? Style().font : Bold(Style().font);
}

QString TodayGrid::Caption(int gridRow) const {
  const QString text = ToQt(Shown()->TextMatrix(gridRow, 0));
  const QString note = ToQt(Shown()->DataOfRow(gridRow));
  return note.isEmpty() ? text : text.left(text.size() - note.size() - 1);
}

bool TodayGrid::NoteIsBelow(int gridRow) const {
  const QString note = ToQt(Shown()->DataOfRow(gridRow));
  if (note.isEmpty()) return false;
  const int caption = QFontMetrics(HeadingFont(gridRow)).horizontalAdvance(Caption(gridRow) + ' ');
  return caption + QFontMetrics(Style().font).horizontalAdvance(note) > CaptionRoom();
}

// Readers hear the whole line, and of a heading whether it is folded.
QString TodayGrid::SpokenText(int gridRow) const {
  const Grid& grid = *Shown();
  QStringList parts;
  for (int col = 0; col < grid.Cols(); ++col)
    if (const std::string text = grid.TextMatrix(gridRow, col); !text.empty()) parts << ToQt(text);
  if (grid.IsSubtotal(gridRow) && !IsEmptySection(grid, gridRow))
    parts << (grid.RowCollapsed(gridRow) ? tr("folded") : tr("open"));
  return parts.join(", ");
}

// ---- Layout

// Of many texts that are no longer than one before, not all are measured.
int TodayGrid::WidestOf(int col) const {
  const Grid& grid = *Shown();
  const QFontMetrics metrics(Style().font);
  int widest = 0, measured = 0;
  std::size_t longest = 0;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    const std::string text = grid.TextMatrix(row, col);
    const bool heading = grid.IsSubtotal(row);
    if (text.empty() || (!heading && text.size() <= longest && measured > kMeasuredRows)) continue;
    longest = std::max(longest, text.size());
    ++measured;
    const QFontMetrics own = heading ? QFontMetrics(HeadingFont(row)) : metrics;
    widest = std::max(widest, own.horizontalAdvance(ToQt(text)));
  }
  return widest + kRounding;
}

// Dates and amounts as wide as they are, the names the rest; the column between them that runs
// empty takes no room.
void TodayGrid::ReadColumns() {
  QHeaderView* header = horizontalHeader();
  header->hide();
  const int when = list_.nameColumn + 1;
  const int most = static_cast<int>(viewport()->width() * kMostOfWidth);
  for (int col = 0; col <= LastColumn(); ++col) {
    const bool name = col == list_.nameColumn;
    const bool shown = col <= when || col == LastColumn();
    header->setSectionHidden(col, !shown);
    header->setSectionResizeMode(col, name ? QHeaderView::Stretch : QHeaderView::Fixed);
    if (name || !shown) continue;
    const int needed = WidestOf(col) + kSideMargin;
    const int width = col < list_.nameColumn ? kIndent
                      : col == when          ? std::min(most, needed)
                                             : needed;
    header->resizeSection(col, width);
  }
}

int TodayGrid::CaptionRoom() const {
  const int amounts = HasAmounts() ? columnWidth(LastColumn()) : 0;
  return std::max(viewport()->width() - kIndent - kSideMargin - amounts, 1);
}

int TodayGrid::HeadingHeight(int gridRow) const {
  int height = QFontMetrics(HeadingFont(gridRow)).height() + kAboveHeading + kBelowHeading;
  if (NoteIsBelow(gridRow))
    height += QFontMetrics(Style().font)
                  .boundingRect(QRect(0, 0, CaptionRoom(), 0), Qt::TextWordWrap,
                                ToQt(Shown()->DataOfRow(gridRow)))
                  .height();
  return height;
}

void TodayGrid::ReadRows() {
  const Grid* grid = Shown();
  if (!grid) return;
  const int plain = verticalHeader()->defaultSectionSize();
  for (int shown = 0; shown < model()->rowCount(); ++shown) {
    const int row = Model().GridRow(model()->index(shown, 0));
    const int height = grid->IsSubtotal(row) ? HeadingHeight(row) : plain;
    if (rowHeight(shown) != height) verticalHeader()->resizeSection(shown, height);
  }
}

void TodayGrid::resizeEvent(QResizeEvent* event) {
  GridView::resizeEvent(event);
  if (event->size().width() == event->oldSize().width() || !Shown()) return;
  ReadColumns();
  ReadRows();
}

// ---- Keys and pointer

// From a record the left arrow leads to its heading, as in a tree.
void TodayGrid::keyPressEvent(QKeyEvent* event) {
  int row = Shown() ? Model().GridRow(currentIndex()) : -1;
  if (event->key() != Qt::Key_Left || row < 0 || Shown()->IsSubtotal(row))
    return GridView::keyPressEvent(event);
  while (row > Shown()->FixedRows() && !Shown()->IsSubtotal(row)) --row;
  Shown()->Select(row, 0);
}

// The list widget itself opens and closes a group by its title alone.
void TodayGrid::mousePressEvent(QMouseEvent* event) {
  GridView::mousePressEvent(event);
  const QModelIndex pressed = indexAt(event->pos());
  const int row = Model().GridRow(pressed);
  if (event->button() == Qt::LeftButton && row >= 0 && Shown()->IsSubtotal(row) &&
      pressed.column() != Model().TitleColumn(row))
    Owner()->Click(*Shown(), row, pressed.column());
}

void TodayGrid::focusInEvent(QFocusEvent* event) {
  GridView::focusInEvent(event);
  ShowCursor();
  viewport()->update();
}

// The keys have to begin somewhere.
void TodayGrid::ShowCursor() {
  if (hasFocus() && !currentIndex().isValid() && model()->rowCount() > 0)
    setCurrentIndex(model()->index(0, 0));
}

void TodayGrid::focusOutEvent(QFocusEvent* event) {
  GridView::focusOutEvent(event);
  viewport()->update();
}

// ---- Painting

void TodayDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const int row = view_->Model().GridRow(index);
  if (row < 0) return;
  painter->save();
  const ListStyle& style = view_->Style();
  if (option.state & QStyle::State_Selected && view_->hasFocus())
    painter->fillRect(option.rect, SelectedGround(style, option.palette));
  if (view_->Shown()->IsSubtotal(row))
    PaintHeading(*painter, option.rect, row, index.column());
  else
    PaintRow(*painter, option.rect, row, index.column());
  painter->restore();
}

void TodayDelegate::PaintHeading(QPainter& painter, const QRect& rect, int row, int col) const {
  const Grid& grid = *view_->Shown();
  const ListStyle& style = view_->Style();
  const QColor faint = FaintText(style, view_->palette());
  const bool balance = IsBalance(grid, row), empty = IsEmptySection(grid, row) && !balance;
  if (row > grid.FixedRows())
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), balance ? faint : style.line);
  const QFont font = view_->HeadingFont(row);
  const int height = QFontMetrics(font).height();
  const QRect line(rect.left(), rect.top() + kAboveHeading, rect.width(), height);
  painter.setFont(font);
  painter.setPen(empty ? faint : style.text);
  if (col != view_->Model().TitleColumn(row)) {
    painter.drawText(line.adjusted(0, 0, -kSideMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                     ToQt(grid.TextMatrix(row, col)));
    return;
  }
  if (!IsEmptySection(grid, row)) {
    QStyleOption arrow;
    arrow.rect = QRect(rect.left() + 6, line.center().y() - 5, 11, 11);
    arrow.palette = view_->palette();
    arrow.state = QStyle::State_Enabled;
    view_->style()->drawPrimitive(
        grid.RowCollapsed(row) ? QStyle::PE_IndicatorArrowRight : QStyle::PE_IndicatorArrowDown,
        &arrow, &painter, view_);
  }
  QRect place(rect.left() + kIndent, line.top(), view_->CaptionRoom(), height);
  const QFontMetrics metrics(font);
  const QString caption = view_->Caption(row);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(caption, Qt::ElideRight, place.width()));
  const QString note = ToQt(grid.DataOfRow(row));
  if (note.isEmpty()) return;
  painter.setFont(style.font);
  painter.setPen(faint);
  if (view_->NoteIsBelow(row)) {
    painter.drawText(
        QRect(place.left(), line.bottom() + 1, place.width(), rect.bottom() - line.bottom()),
        Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, note);
  } else {
    place.setLeft(place.left() + metrics.horizontalAdvance(caption + ' '));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, note);
  }
}

void TodayDelegate::PaintRow(QPainter& painter, const QRect& rect, int row, int col) const {
  const Grid& grid = *view_->Shown();
  const ListStyle& style = view_->Style();
  const int name = view_->List().nameColumn;
  QString text = ToQt(grid.TextMatrix(row, col));
  QRect place = rect.adjusted(0, 0, -kSideMargin, 0);
  const bool day = col < name;  // the text in front of the names, over all of the row
  if (col == 0) place.setLeft(rect.left() + kIndent);
  if (day && text.isEmpty()) return;
  const QFont font = day ? Bold(style.font) : style.font;
  painter.setFont(font);
  painter.setPen(day || col == name + 1 ? FaintText(style, view_->palette()) : style.text);
  const bool right = col == view_->Shown()->Cols() - 1 && col > name + 1;
  painter.drawText(place, (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter,
                   QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

}  // namespace lm
