#include "shell/qt/icons.h"

#include <QAbstractButton>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QPushButton>

#include "shell/qt/linedrawing.h"

namespace lm {
namespace {

// The one colour that a drawing has of its own; it fades with the rest.
constexpr const char* kRed = "#c8362b";

class LineIconEngine : public QIconEngine {
 public:
  LineIconEngine(LineDrawing drawing, const QColor& colour)
      : drawing_(std::move(drawing)), colour_(colour) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QColor colour = ColourFor(mode);
    const QColor opaque(colour.rgb());
    painter->setOpacity(colour.alphaF());
    drawing_.Paint(*painter, rect, [&](const QString& name) {
      const bool own = name != QLatin1String("currentColor") &&
                       !(mode == QIcon::Disabled && name == QLatin1String(kRed));
      return own ? QColor(name) : opaque;
    });
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new LineIconEngine(drawing_, colour_); }

 private:
  QColor ColourFor(QIcon::Mode mode) const {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
    if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
    return colour_.isValid() ? colour_ : palette.color(QPalette::ButtonText);
  }

  LineDrawing drawing_;
  QColor colour_;
};

bool DarkGround() { return QGuiApplication::palette().color(QPalette::Window).lightness() < 128; }

// Messages speak of the green plus.
QColor OwnColour(const QString& name) { return name.startsWith(u"plus") ? GoodColour() : QColor(); }

}  // namespace

QIcon LineIcon(const QString& name, const QColor& colour) {
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(
      new LineIconEngine(LineDrawing(file.readAll()), colour.isValid() ? colour : OwnColour(name)));
}

QColor AccentColour() { return DarkGround() ? QColor(0x6c, 0xb2, 0xf0) : QColor(0x1f, 0x6f, 0xb5); }
QColor GoodColour() { return DarkGround() ? QColor(0x5f, 0xc9, 0x8a) : QColor(0x1e, 0x8a, 0x4c); }
QColor WarningColour() {
  return DarkGround() ? QColor(0xf2, 0xb8, 0x4b) : QColor(0xb8, 0x74, 0x0a);
}
QColor DangerColour() { return DarkGround() ? QColor(0xf0, 0x7b, 0x72) : QColor(0xc0, 0x39, 0x2b); }

void ApplyLineIcons(QWidget& root) {
  for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
    const QString name = button->property("lineIcon").toString();
    if (name.isEmpty()) continue;
    button->setIcon(LineIcon(name));
    if (!qobject_cast<QPushButton*>(button)) continue;
    // Air around drawing and words. Words that come later widen the button by themselves.
    const QSize airy = button->sizeHint() + QSize(12, 4);
    button->setMinimumSize(button->text().isEmpty() ? 0 : airy.width(), airy.height());
  }
  for (QLabel* label : root.findChildren<QLabel*>()) {
    const QString name = label->property("picture").toString();
    if (!name.isEmpty())
      label->setPixmap(LineIcon(name).pixmap(label->minimumSize(), label->devicePixelRatioF()));
  }
}

}  // namespace lm
