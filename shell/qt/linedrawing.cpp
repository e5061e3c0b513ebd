#include "shell/qt/linedrawing.h"

#include <QtMath>
#include <cmath>

namespace lm {
namespace {

// The data of a path, as SVG 1.1, section 8.3, writes them.
class PathReader {
 public:
  explicit PathReader(QStringView text) : text_(text) {}

  // As far as it is understood.
  QPainterPath Read() {
    QChar command;
    while (Skip()) {
      const qsizetype before = at_;
      if (text_[at_].isLetter()) command = text_[at_++];
      if (!Draw(command) || at_ == before) break;
      // Further points behind a move are lines.
      if (command == u'M') command = u'L';
      if (command == u'm') command = u'l';
    }
    return path_;
  }

 private:
  bool Skip() {
    while (at_ < text_.size() && (text_[at_].isSpace() || text_[at_] == u',')) ++at_;
    return at_ < text_.size();
  }

  double Number() {
    Skip();
    const qsizetype start = at_;
    bool point = false;
    for (; at_ < text_.size(); ++at_) {
      const QChar c = text_[at_];
      const bool sign = (c == u'-' || c == u'+') && at_ == start;
      if (c == u'.' && !point)
        point = true;
      else if (!c.isDigit() && !sign)
        break;
    }
    return text_.sliced(start, at_ - start).toDouble();
  }

  QPointF Point(QPointF base) {
    const double x = Number();
    return base + QPointF(x, Number());
  }

  bool Draw(QChar command) {
    const QPointF here = path_.currentPosition();
    const QPointF base = command.isLower() ? here : QPointF();
    QPointF handle;
    bool curve = false;
    switch (command.toLower().unicode()) {
      case u'm':
        path_.moveTo(Point(base));
        break;
      case u'l':
        path_.lineTo(Point(base));
        break;
      case u'h':
        path_.lineTo(base.x() + Number(), here.y());
        break;
      case u'v':
        path_.lineTo(here.x(), base.y() + Number());
        break;
      case u'c':
      case u's': {
        // A smooth curve goes on as the one before it ended.
        const QPointF first = command.toLower() == u'c' ? Point(base) : smooth_ ? handle_ : here;
        const QPointF second = Point(base), end = Point(base);
        path_.cubicTo(first, second, end);
        handle = 2 * end - second;
        curve = true;
        break;
      }
      case u'a':
        Arc(base);
        break;
      case u'z':
        path_.closeSubpath();
        break;
      default:
        return false;
    }
    handle_ = handle;
    smooth_ = curve;
    return true;
  }

  // Of a circle: both radii alike, and nothing turned.
  void Arc(QPointF base) {
    const QPointF start = path_.currentPosition();
    double radius = Number();
    Number();
    Number();
    const bool large = Flag(), clockwise = Flag();
    const QPointF end = Point(base), chord = end - start;
    const double half = std::hypot(chord.x(), chord.y()) / 2;
    if (half == 0) return;
    radius = std::max(radius, half);
    const double off = std::sqrt(radius * radius - half * half) * (large == clockwise ? -1 : 1);
    const QPointF centre = (start + end) / 2 + QPointF(-chord.y(), chord.x()) / (2 * half) * off;
    const auto angle = [&](QPointF p) {
      return qRadiansToDegrees(std::atan2(centre.y() - p.y(), p.x() - centre.x()));
    };
    double sweep = angle(end) - angle(start);
    if (clockwise && sweep > 0) sweep -= 360;
    if (!clockwise && sweep < 0) sweep += 360;
    path_.arcTo(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius),
                angle(start), sweep);
  }

  // A single digit: what follows may stand right behind it.
  bool Flag() { return Skip() && text_[at_++] == u'1'; }

  QStringView text_;
  qsizetype at_ = 0;
  QPainterPath path_;
  QPointF handle_;
  bool smooth_ = false;
};

Qt::PenCapStyle CapOf(QStringView name) {
  return name == u"round" ? Qt::RoundCap : name == u"square" ? Qt::SquareCap : Qt::FlatCap;
}
Qt::PenJoinStyle JoinOf(QStringView name) {
  return name == u"round" ? Qt::RoundJoin : name == u"bevel" ? Qt::BevelJoin : Qt::SvgMiterJoin;
}

QRectF ViewBox(const QXmlStreamAttributes& attributes) {
  const auto box = attributes.value(QLatin1String("viewBox")).split(u' ', Qt::SkipEmptyParts);
  if (box.size() != 4) return {};
  return {box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble()};
}

QPainterPath PathOf(QStringView element, const QXmlStreamAttributes& attributes) {
  const auto number = [&](const char* name) {
    return attributes.value(QLatin1String(name)).toDouble();
  };
  QPainterPath path;
  if (element == u"path") path = PathReader(attributes.value(QLatin1String("d"))).Read();
  if (element == u"rect")
    path.addRoundedRect(QRectF(number("x"), number("y"), number("width"), number("height")),
                        number("rx"), number("rx"));
  if (element == u"circle") path.addEllipse({number("cx"), number("cy")}, number("r"), number("r"));
  return path;
}

}  // namespace

LineDrawing::Look::Look() {
  pen.setWidthF(1);
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::SvgMiterJoin);
}

void LineDrawing::Read(const QXmlStreamAttributes& attributes, Look& look) {
  for (const QXmlStreamAttribute& each : attributes) {
    const QStringView name = each.name(), value = each.value();
    if (name == u"fill") look.fill = value.toString();
    if (name == u"stroke") look.stroke = value.toString();
    if (name == u"stroke-width") look.pen.setWidthF(value.toDouble());
    if (name == u"stroke-linecap") look.pen.setCapStyle(CapOf(value));
    if (name == u"stroke-linejoin") look.pen.setJoinStyle(JoinOf(value));
  }
}

LineDrawing::LineDrawing(const QByteArray& svg) {
  std::vector<Look> looks{Look()};  // of the elements that are open
  QXmlStreamReader xml(svg);
  while (!xml.atEnd()) {
    const auto token = xml.readNext();
    if (token == QXmlStreamReader::EndElement) looks.pop_back();
    if (token != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributes = xml.attributes();
    looks.push_back(looks.back());
    Read(attributes, looks.back());
    if (xml.name() == u"svg") box_ = ViewBox(attributes);
    if (QPainterPath path = PathOf(xml.name(), attributes); !path.isEmpty())
      shapes_.push_back({std::move(path), looks.back()});
  }
}

void LineDrawing::Paint(QPainter& painter, const QRectF& bounds,
                        const std::function<QColor(const QString&)>& colourOf) const {
  if (box_.isEmpty()) return;
  const QString none = QStringLiteral("none");
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(bounds.topLeft());
  painter.scale(bounds.width() / box_.width(), bounds.height() / box_.height());
  painter.translate(-box_.topLeft());
  for (const auto& [path, look] : shapes_) {
    QPen pen = look.pen;
    pen.setColor(colourOf(look.stroke));
    painter.setBrush(look.fill == none ? QBrush(Qt::NoBrush) : QBrush(colourOf(look.fill)));
    painter.setPen(look.stroke == none ? QPen(Qt::NoPen) : pen);
    painter.drawPath(path);
  }
  painter.restore();
}

}  // namespace lm
