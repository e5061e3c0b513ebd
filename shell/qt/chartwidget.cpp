#include "shell/qt/chartwidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

#include "reports/chartmarks.h"
#include "reports/chartsummary.h"
#include "shell/qt/chartpainting.h"
#include "shell/qt/gridview.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr double kPointsAnInch = 72;

// Before the names in the legend: the colour, and of lines the dashes and markers too.
class SwatchDelegate : public QStyledItemDelegate {
 public:
  SwatchDelegate(QObject* parent, const frmChart& screen)
      : QStyledItemDelegate(parent), screen_(screen) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (index.row() >= screen_.Shown().Entries()) return;
    const ListStyle& style = static_cast<const GridView*>(option.widget)->Style();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double pixels = option.widget->logicalDpiX() / kPointsAnInch;
    painter->scale(pixels, pixels);
    const QRectF cell = QRectF(option.rect).adjusted(4, 0, -4, 0);
    PainterCanvas canvas(painter);
    PaintSwatch(
        canvas, screen_.Shown(), index.row(),
        {cell.x() / pixels, cell.y() / pixels, cell.width() / pixels, cell.height() / pixels},
        FromQColor(style.base));
    painter->restore();
    if (!style.horizontalLines) return;
    painter->setPen(style.line);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  }

 private:
  const frmChart& screen_;
};

}  // namespace

ChartWidget::ChartWidget(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Chart"));
}

ChartWidget::~ChartWidget() {
  if (screen_) screen_->SetDesktop({});
}

void ChartWidget::AttachTo(Screen& screen) {
  screen_ = dynamic_cast<frmChart*>(&screen);
  if (!screen_) return;
  screen_->SetDesktop({[this] { return ChartPng(screen_->Shown(), screen_->Titles()); },
                       [this] { PrintChart(*screen_, window()); }, [this] { Show(); }});
  if (auto* legend = window()->findChild<GridView*>(ToQt(screen_->fgLegend.Name())))
    legend->setItemDelegateForColumn(screen_->fgLegend.ColIndex("COLOUR"),
                                     new SwatchDelegate(legend, *screen_));
}

void ChartWidget::Show() {
  Mark(std::nullopt, {});
  setAccessibleDescription(ToQt(ChartSummary(screen_->Shown())));
  LayOut();
}

double ChartWidget::PixelsAPoint() const { return logicalDpiX() / kPointsAnInch; }

ChartPoint ChartWidget::ToPoint(const QPointF& pixel) const {
  return {pixel.x() / PixelsAPoint(), pixel.y() / PixelsAPoint()};
}

void ChartWidget::LayOut() {
  drawing_.reset();
  if (!screen_ || contentsRect().isEmpty()) return;
  constexpr double kMargin = 9;  // points
  const ChartInk ink = InkOf(palette());
  const ChartPoint whole = ToPoint(QPointF(width(), height()));
  const ChartBox box{kMargin, kMargin, std::max(whole.x - 2 * kMargin, 1.0),
                     std::max(whole.y - 2 * kMargin, 1.0)};
  picture_ = QPixmap(size() * devicePixelRatioF());
  picture_.setDevicePixelRatio(devicePixelRatioF());
  picture_.fill(ToQColor(ink.ground));
  QPainter painter(&picture_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(PixelsAPoint(), PixelsAPoint());
  PainterCanvas canvas(&painter);
  drawing_ = std::make_unique<ChartDrawing>(screen_->Shown(), ChartTitles{}, box,
                                            ChartLook{ink, false}, canvas);
  drawing_->Paint(canvas);
  update();
}

void ChartWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (drawing_) {
    painter.drawPixmap(0, 0, picture_);
    if (marked_) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.scale(PixelsAPoint(), PixelsAPoint());
      QPolygonF outline;
      for (const ChartPoint& corner : drawing_->Outline(*marked_))
        outline << QPointF(corner.x, corner.y);
      QPen pen(palette().color(QPalette::Text), 1.5);
      pen.setJoinStyle(Qt::MiterJoin);
      painter.setPen(pen);
      painter.drawPolygon(outline);
      painter.resetTransform();
    }
  }
  painter.end();
  QFrame::paintEvent(event);
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  LayOut();
}

void ChartWidget::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) LayOut();
}

QPoint ChartWidget::PlaceOf(ChartPart part) const {
  const std::vector<ChartPoint> outline =
      drawing_ ? drawing_->Outline(part) : std::vector<ChartPoint>{};
  ChartPoint middle;
  for (const ChartPoint& corner : outline) {
    middle.x += corner.x / static_cast<double>(outline.size());
    middle.y += corner.y / static_cast<double>(outline.size());
  }
  return (QPointF(middle.x, middle.y) * PixelsAPoint()).toPoint();
}

void ChartWidget::Mark(std::optional<ChartPart> part, const QPoint& place) {
  if (part == marked_) return;
  marked_ = part;
  update();
  if (!marked_) {
    QToolTip::hideText();
    return setAccessibleName(tr("Chart"));
  }
  const QString text = ToQt(PartText(screen_->Shown(), *marked_));
  QToolTip::showText(mapToGlobal(place), text, this);
  // Whoever listens hears the value.
  setAccessibleName(tr("Chart, %1").arg(QString(text).replace('\n', QStringLiteral(", "))));
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!drawing_) return;
  Mark(drawing_->At(ToPoint(event->position())), event->position().toPoint());
}

void ChartWidget::leaveEvent(QEvent* event) {
  QFrame::leaveEvent(event);
  Mark(std::nullopt, {});
}

void ChartWidget::focusOutEvent(QFocusEvent* event) {
  QFrame::focusOutEvent(event);
  Mark(std::nullopt, {});
}

// The value that a key goes to; nothing for a key that is none of this widget's.
std::optional<ChartPart> ChartWidget::Beside(int key) const {
  const Chart& chart = screen_->Shown();
  const int labels = static_cast<int>(chart.labels.size());
  const int series = static_cast<int>(chart.series.size());
  ChartPart part = marked_.value_or(ChartPart{});
  const auto step = [this](int from, int by, int count) {
    return marked_ ? std::clamp(from + by, 0, count - 1) : from;
  };
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      part.label = step(part.label, key == Qt::Key_Left ? -1 : 1, labels);
      return part;
    case Qt::Key_Up:
    case Qt::Key_Down:
      part.series = step(part.series, key == Qt::Key_Up ? 1 : -1, series);
      return part;
    case Qt::Key_Home:
      part.label = 0;
      return part;
    case Qt::Key_End:
      part.label = labels - 1;
      return part;
    default:
      return std::nullopt;
  }
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
  const bool shown = drawing_ && !screen_->Shown().IsEmpty();
  const auto part = shown ? Beside(event->key()) : std::nullopt;
  if (!part) return QFrame::keyPressEvent(event);
  Mark(part, PlaceOf(*part));
}

}  // namespace lm
