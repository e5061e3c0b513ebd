#include "shell/qt/calendargrid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextLayout>
#include <QTimerEvent>
#include <cmath>

#include "calendar/timeslots.h"
#include "calendar/tooltip.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kRestDelay = 450;   // ms until the pointer counts as resting
constexpr int kMinute = 60'000;   // ms
constexpr int kTightPadding = 1;  // in views that show all of their rows at once
constexpr int kLinePadding = 4;   // pixels above and below a line together
constexpr int kTextMargin = 3;    // pixels between a cell's edge and its text
constexpr int kPicture = 12;
const QColor kNowColour(0xd0, 0x2a, 0x1e);

// Year shows 36 rows at once, Week scrolls anyway.
int PaddingOf(CalendarView view) {
  if (view == CalendarView::Year) return 0;
  return view == CalendarView::Week ? kLinePadding : kTightPadding;
}

// As many lines of a text as have room, broken between words, the last one with an ellipsis where
// more is left.
QStringList FittingLines(const QString& text, const QFont& font, int width, int most) {
  QStringList lines;
  const QFontMetrics metrics(font);
  const QStringList paragraphs = text.split('\n');
  for (const QString& paragraph : paragraphs) {
    QTextLayout layout(paragraph, font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width);
      const QString rest = paragraph.mid(line.textStart());
      if (lines.size() + 1 == most) {
        const bool more = &paragraph != &paragraphs.back();
        lines << metrics.elidedText(more && line.textLength() >= rest.size() ? rest + "..." : rest,
                                    Qt::ElideRight, width);
        layout.endLayout();
        return lines;
      }
      lines << metrics.elidedText(paragraph.mid(line.textStart(), line.textLength()),
                                  Qt::ElideRight, width);
    }
    layout.endLayout();
    if (paragraph.isEmpty()) lines << QString();
  }
  return lines;
}

}  // namespace

CalendarGrid::CalendarGrid(const CalendarPage& page, CalendarView view, QWidget* parent)
    : GridView(parent), page_(page), view_(view) {
  FillRoom();
  setItemDelegate(new CalendarDelegate(this));
  viewport()->setMouseTracking(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setFrameShape(QFrame::NoFrame);
  if (view == CalendarView::Week || view == CalendarView::Detail) minute_.start(kMinute, this);
  Model().spokenText = [this](int row, int col) { return SpokenText({row, col}); };
}

// The day, the time, and what the tooltip tells of the records there.
QString CalendarGrid::SpokenText(CellPlace cell) const {
  const Grid* grid = Shown();
  const auto day = grid ? DayOfCell(view_, page_.Period(), *grid, cell) : std::nullopt;
  if (!day || !Owner()) return grid ? ToQt(grid->DisplayText(cell.row, cell.col)) : QString();
  const CalendarTip tip = TipOf(Owner()->ledger, *day, TagAt(*grid, cell.row, cell.col));
  QStringList parts{ToQt(tip.title)};
  for (const std::string& part :
       {PracticeNameOf(cell), TimeOfCell(view_, *grid, cell), tip.details})
    if (!part.empty()) parts << ToQt(part).simplified();
  return parts.join(", ");
}

// The name that stands at the left of a row of Planner.
std::string CalendarGrid::PracticeNameOf(CellPlace cell) const {
  return view_ == CalendarView::Planner ? Shown()->TextMatrix(cell.row, 0) : "";
}

// The page's own tooltip tells more than the texts of the cells.
bool CalendarGrid::viewportEvent(QEvent* event) {
  return event->type() == QEvent::ToolTip || GridView::viewportEvent(event);
}

// ---- Layout

void CalendarGrid::ReadRows() {
  const Grid* grid = Shown();
  const int count = model()->rowCount();
  if (!grid || count == 0) return;
  const int line = QFontMetrics(Style().font).lineSpacing();
  if (IsHeadings()) {
    int height = 0;
    for (int row = 0; row < count; ++row) {
      const bool twoLines =
          grid->TextMatrix(row, grid->FixedCols()).find('\n') != std::string::npos;
      const int own =
          grid->RowHeight(row) >= 0 ? TwipsToPixels(grid->RowHeight(row), logicalDpiY()) : 0;
      const int rowHeight = std::max(own, line * (twoLines ? 2 : 1) + 2 * kLinePadding);
      verticalHeader()->resizeSection(row, rowHeight);
      height += rowHeight;
    }
    // Weeks with very many events at once must leave room for the days.
    setFixedHeight(std::min(height, std::max(8 * line, parentWidget()->height() / 3)));
  } else {
    const int room = viewport()->height();
    const int least = line + PaddingOf(view_);
    const int most = view_ == CalendarView::Planner ? 2 * line + kLinePadding : room;
    const int shared = std::clamp(room / count, least, std::max(least, most));
    const int left = shared > least && shared < most ? room - shared * count : 0;  // a pixel each
    for (int row = 0; row < count; ++row)
      verticalHeader()->resizeSection(row, shared + (row < left ? 1 : 0));
  }
  emit laidOut();
  if (view_ == CalendarView::Week && !IsHeadings() && !opened_ && isVisible()) {
    opened_ = true;
    QMetaObject::invokeMethod(this, &CalendarGrid::ShowWorkingHours, Qt::QueuedConnection);
  }
}

void CalendarGrid::ShowWorkingHours() {
  const int slotsOfHour = model()->rowCount() / kHoursOfDay;
  verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                rowViewportPosition((kWorkBegins - 1) * slotsOfHour));
}

void CalendarGrid::showEvent(QShowEvent* event) {
  GridView::showEvent(event);
  ReadRows();
}

void CalendarGrid::resizeEvent(QResizeEvent* event) {
  GridView::resizeEvent(event);
  if (!IsHeadings()) ReadRows();
}

CellPlace CalendarGrid::CellAt(const QPoint& point) const {
  const int row = rowAt(point.y()), col = columnAt(point.x());
  if (row < 0 || col < 0) return {};
  return {Model().GridRow(model()->index(row, col)), col};
}

QRect CalendarGrid::RectOf(CellPlace cell) const {
  const int row = Model().ModelRow(cell.row);
  if (row < 0) return {};
  return {columnViewportPosition(cell.col), rowViewportPosition(row), columnWidth(cell.col),
          rowHeight(row)};
}

QLine CalendarGrid::NowLine() const {
  const Grid* grid = Shown();
  if (IsHeadings() || !grid || !Owner()) return {};
  const Date now = Owner()->ledger.platform.clock.Now();
  const Date today = std::floor(now);
  const auto isToday = [&](CellPlace cell) {
    const auto day = DayOfCell(view_, page_.Period(), *grid, cell);
    return day && *day == today;
  };
  if (view_ == CalendarView::Week) {
    const int count = grid->Rows() - grid->FixedRows();
    const double slot = (now - today) * count;
    for (int col = grid->FixedCols(); col < grid->Cols(); ++col) {
      if (!isToday({grid->FixedRows(), col})) continue;
      const QRect cell = RectOf({grid->FixedRows() + static_cast<int>(slot), col});
      const int y = cell.top() + static_cast<int>((slot - std::floor(slot)) * cell.height());
      return {cell.left(), y, cell.right(), y};
    }
  } else if (view_ == CalendarView::Detail) {
    const int count = grid->Cols() - grid->FixedCols();
    const double slot = (now - today) * count;
    for (int row = grid->FixedRows(); row < grid->Rows(); ++row) {
      if (!isToday({row, grid->FixedCols()})) continue;
      const QRect cell = RectOf({row, grid->FixedCols() + static_cast<int>(slot)});
      const int x = cell.left() + static_cast<int>((slot - std::floor(slot)) * cell.width());
      return {x, cell.top(), x, cell.bottom()};
    }
  }
  return {};
}

void CalendarGrid::paintEvent(QPaintEvent* event) {
  GridView::paintEvent(event);
  QPainter painter(viewport());
  if (const QLine now = NowLine(); !now.isNull()) {
    // With a rim of the ground, for it crosses sessions of any colour.
    painter.setPen(QPen(Style().base, 4));
    painter.drawLine(now);
    painter.setPen(QPen(StandingOut(kNowColour, Style().base, kMarkContrast), 2));
    painter.drawLine(now);
  }
  if (dragging_ && target_.row >= 0) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2, Qt::DashLine));
    painter.drawRect(RectOf(target_).adjusted(1, 1, -2, -2));
  }
}

// ---- Keys

void CalendarGrid::keyPressEvent(QKeyEvent* event) {
  Grid* grid = Shown();
  GridRules* rules = grid && Owner() ? Owner()->RulesOf(*grid) : nullptr;
  if (!rules) return QTableView::keyPressEvent(event);
  StopResting();
  if (OpenedMenu(*event)) return;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Owner()->DoubleClick(*grid, grid->Row(), grid->Col());
    case Qt::Key_Insert:
      return rules->AddPressed();
    case Qt::Key_Delete:
      return rules->DeletePressed(grid->Row());
    default:
      QTableView::keyPressEvent(event);
  }
}

// ---- Pointer

void CalendarGrid::mousePressEvent(QMouseEvent* event) {
  StopResting();
  click_.stop();
  QTableView::mousePressEvent(event);
  pressed_ = event->button() == Qt::LeftButton ? CellAt(event->pos()) : CellPlace{};
  pressedAt_ = event->pos();
  if (const CellPlace cell = CellAt(event->pos()); cell.row >= 0 && Shown())
    Shown()->Select(cell.row, cell.col);
}

void CalendarGrid::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton)) return Point(event->pos());
  if (!dragging_ && pressed_.row >= 0 &&
      (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance()) {
    GridRules* rules = Owner() ? Owner()->RulesOf(*Shown()) : nullptr;
    dragging_ = rules && !IsHeadings() && rules->MayDrag(pressed_.row, pressed_.col);
    if (!dragging_) pressed_ = {};  // asked once
    if (dragging_) viewport()->setCursor(Qt::ClosedHandCursor);
  }
  if (!dragging_) return;
  target_ = CellAt(event->pos());
  viewport()->update();
}

void CalendarGrid::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const CellPlace from = pressed_, to = CellAt(event->pos());
  pressed_ = target_ = {};
  if (dragging_) {
    dragging_ = false;
    viewport()->unsetCursor();
    viewport()->update();
    if (to.row >= 0) Owner()->Drag(*Shown(), from.row, from.col, to.row, to.col);
  } else if (from.row >= 0 && from == to && view_ == CalendarView::Year && !IsHeadings()) {
    click_.start(QApplication::doubleClickInterval(), this);
  }
}

void CalendarGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  click_.stop();
  pressed_ = {};
  const CellPlace cell = CellAt(event->pos());
  if (event->button() == Qt::LeftButton && cell.row >= 0)
    Owner()->DoubleClick(*Shown(), cell.row, cell.col);
}

void CalendarGrid::leaveEvent(QEvent* event) {
  QTableView::leaveEvent(event);
  StopResting();
}

void CalendarGrid::Point(const QPoint& point) {
  const CellPlace cell = CellAt(point);
  if (cell == restsOn_) return;
  StopResting();
  restsOn_ = cell;
  if (cell.row >= 0) rest_.start(kRestDelay, this);
}

void CalendarGrid::StopResting() {
  rest_.stop();
  if (restsOn_.row >= 0 && Owner() && Shown()) Owner()->Hover(*Shown(), -1, -1);
  restsOn_ = {};
}

void CalendarGrid::timerEvent(QTimerEvent* event) {
  if (event->timerId() == rest_.timerId()) {
    rest_.stop();
    Owner()->Hover(*Shown(), restsOn_.row, restsOn_.col);
    emit rested(QCursor::pos());
  } else if (event->timerId() == click_.timerId()) {
    click_.stop();
    Owner()->Click(*Shown(), Shown()->Row(), Shown()->Col());
  } else if (event->timerId() == minute_.timerId()) {
    viewport()->update();
  } else {
    GridView::timerEvent(event);
  }
}

// ---- Painting

namespace {

Qt::Alignment AcrossOf(const Grid& grid, CellPlace cell) {
  switch (
      static_cast<Alignment>(ValInt(grid.Cell(CellSetting::flexcpAlignment, cell.row, cell.col)))) {
    case Alignment::Centre:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
    default:
      return Qt::AlignLeft;
  }
}

}  // namespace

// Straight from the grid: most of the thousands of cells have a ground and nothing else.
void CalendarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  const Grid& grid = *view_->Shown();
  const CellPlace cell{view_->Model().GridRow(index), index.column()};
  if (cell.row < 0) return;
  const QColor ground = ToQColor(grid.CellColour(CellSetting::flexcpBackColor, cell.row, cell.col));
  const QColor fore = ToQColor(grid.CellColour(CellSetting::flexcpForeColor, cell.row, cell.col));
  const QColor under = ground.isValid() ? ground : view_->Style().base;
  const QColor ink = fore.isValid()     ? StandingOut(fore, under)
                     : ground.isValid() ? ReadableOn(ground)
                                        : view_->Style().text;
  painter->fillRect(option.rect, under);
  PaintText(*painter, option.rect, cell, ink);
  PaintLines(*painter, option.rect);
  if (KindOf(TagAt(grid, cell.row, cell.col)) == 'Z') {
    painter->setPen(ink);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
  }
  if (view_->hasFocus() && index == view_->currentIndex()) {
    painter->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    painter->setPen(view_->Style().base);
    painter->drawRect(option.rect.adjusted(2, 2, -4, -4));
  }
}

void CalendarDelegate::PaintText(QPainter& painter, const QRect& rect, CellPlace cell,
                                 const QColor& ink) const {
  const Grid& grid = *view_->Shown();
  const QString text = ToQt(grid.DisplayText(cell.row, cell.col)).remove(u'\r');
  const QString picture = view_->Model().PictureOf(cell.row, cell.col);
  if (text.isEmpty() && picture.isEmpty()) return;
  const int margin = cell.col < grid.FixedCols() ? 1 : kTextMargin;
  QRect place = rect.adjusted(margin, 1, -margin, -2);
  if (!picture.isEmpty()) {
    LineIcon("status" + picture, ink)
        .paint(&painter, QRect(place.left(), place.top() + 1, kPicture, kPicture));
    place.setLeft(place.left() + kPicture + kTextMargin);
  }
  QFont font = view_->Style().font;
  if (view_->View() == CalendarView::Year) font.setFamily("Arial Narrow");
  font.setBold(grid.Cell(CellSetting::flexcpFontBold, cell.row, cell.col) == "TRUE");
  const QFontMetrics metrics(font);
  const int most = std::max(place.height() / metrics.lineSpacing(), 1);
  // A figure or a letter needs no breaking.
  const bool fits = !text.contains('\n') && metrics.horizontalAdvance(text) <= place.width();
  const QStringList lines =
      fits ? QStringList(text) : FittingLines(text, font, std::max(place.width(), 1), most);
  // Bars of one line stand in the middle, blocks begin at their top.
  const bool middle = lines.size() == 1 && rect.height() < 3 * metrics.lineSpacing();
  painter.save();
  painter.setClipRect(rect);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(place, AcrossOf(grid, cell) | (middle ? Qt::AlignVCenter : Qt::AlignTop),
                   lines.join('\n'));
  painter.restore();
}

}  // namespace lm
