#include "shell/qt/chartpainting.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

#include "reports/chartfile.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/printpreview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr double kPointsAnInch = 72;
constexpr int kPngDotsAPoint = 2;

// Its pixels are the canvas's points. Unhinted, so that texts are as wide as measured at any scale.
QFont FontOf(ChartFont font) {
  QFont shown;
  shown.setPixelSize(font.size);
  shown.setBold(font.bold);
  shown.setHintingPreference(QFont::PreferNoHinting);
  return shown;
}

QRectF ToRect(const ChartBox& box) { return {box.x, box.y, box.width, box.height}; }

QPolygonF ToPolygon(std::span<const ChartPoint> points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const ChartPoint& point : points) polygon << QPointF(point.x, point.y);
  return polygon;
}

void PaintPage(QPainter& painter, const Chart& chart, const ChartTitles& titles,
               const ChartBox& box) {
  painter.setRenderHint(QPainter::Antialiasing);
  PainterCanvas canvas(&painter);
  ChartDrawing(chart, titles, box, {}, canvas).Paint(canvas);
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter* painter) : painter_(painter) {}

double PainterCanvas::TextWidth(std::string_view text, ChartFont font) {
  return QFontMetricsF(FontOf(font)).horizontalAdvance(ToQt(text));
}

void PainterCanvas::FillBox(const ChartBox& box, Colour colour) {
  if (painter_) painter_->fillRect(ToRect(box), ToQColor(colour));
}

void PainterCanvas::FillPolygon(std::span<const ChartPoint> corners, Colour colour) {
  if (!painter_) return;
  painter_->setPen(Qt::NoPen);
  painter_->setBrush(ToQColor(colour));
  painter_->drawPolygon(ToPolygon(corners));
}

void PainterCanvas::DrawLine(std::span<const ChartPoint> points, const ChartPen& pen) {
  if (!painter_ || points.size() < 2) return;
  QPen line(ToQColor(pen.colour), pen.width);
  line.setJoinStyle(Qt::RoundJoin);
  line.setCapStyle(Qt::FlatCap);
  QList<qreal> dashes;
  for (const double length : pen.dashes) dashes << length / pen.width;  // Qt counts in widths
  if (!dashes.isEmpty()) line.setDashPattern(dashes);
  painter_->setPen(line);
  painter_->setBrush(Qt::NoBrush);
  painter_->drawPolyline(ToPolygon(points));
}

void PainterCanvas::DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) {
  if (!painter_) return;
  const double width = TextWidth(text, style.font);
  const double back = style.anchor == ChartAnchor::Left     ? 0
                      : style.anchor == ChartAnchor::Centre ? width / 2
                                                            : width;
  painter_->save();
  painter_->setFont(FontOf(style.font));
  painter_->setPen(ToQColor(style.colour));
  painter_->translate(place.x, place.y);
  painter_->rotate(-style.turned);
  painter_->drawText(QPointF(-back, 0), ToQt(text));
  painter_->restore();
}

ChartInk InkOf(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
  const auto mixed = [&](double share) { return FromQColor(MixedColour(ground, text, share)); };
  return {FromQColor(ground), FromQColor(text), mixed(0.7), mixed(0.13), mixed(0.5)};
}

std::string ChartPng(const Chart& chart, const ChartTitles& titles) {
  QImage picture(QSizeF(kChartPage.width, kChartPage.height).toSize() * kPngDotsAPoint,
                 QImage::Format_RGB32);
  if (picture.isNull()) return "";
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.scale(kPngDotsAPoint, kPngDotsAPoint);
  PaintPage(painter, chart, titles, kChartOnPage);
  painter.end();
  const double dotsAMetre = kPngDotsAPoint * kPointsAnInch / 0.0254;
  picture.setDotsPerMeterX(static_cast<int>(dotsAMetre));
  picture.setDotsPerMeterY(static_cast<int>(dotsAMetre));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  return picture.save(&buffer, "PNG") ? bytes.toStdString() : "";
}

bool PaintChart(QPagedPaintDevice& paper, const Chart& chart, const ChartTitles& titles) {
  QPainter painter;
  if (!painter.begin(&paper)) return false;
  const double dots = paper.logicalDpiX() / kPointsAnInch;
  painter.scale(dots, dots);
  PaintPage(painter, chart, titles,
            {0, 0, painter.device()->width() / dots, painter.device()->height() / dots});
  return painter.end();
}

void PrintChart(const frmChart& screen, QWidget* parent) {
  const ChartTitles titles = screen.Titles();
  ShowPrintPreview(
      ToQt(titles.main), [&](QPrinter& paper) { PaintChart(paper, screen.Shown(), titles); },
      parent);
}

}  // namespace lm
