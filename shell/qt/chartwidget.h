// The drawing of a chart in its window. The pointer, or the arrow keys, tell a value; left and
// right go along the axis, up and down from series to series.
#pragma once

#include <QFrame>
#include <QPixmap>
#include <memory>
#include <optional>

#include "reports/frmChart.h"
#include "shell/qt/views.h"

namespace lm {

class ChartWidget : public QFrame, public ScreenPart {
  Q_OBJECT
 public:
  explicit ChartWidget(QWidget* parent = nullptr);
  ~ChartWidget() override;

  void AttachTo(Screen& screen) override;

  // What is marked, and told.
  const std::optional<ChartPart>& Marked() const { return marked_; }
  // In the middle of a value, in pixels of the widget.
  QPoint PlaceOf(ChartPart part) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Show();
  void LayOut();
  double PixelsAPoint() const;
  ChartPoint ToPoint(const QPointF& pixel) const;
  void Mark(std::optional<ChartPart> part, const QPoint& place);
  std::optional<ChartPart> Beside(int key) const;

  frmChart* screen_ = nullptr;
  std::unique_ptr<ChartDrawing> drawing_;
  QPixmap picture_;  // of the drawing: a mark that moves paints no values anew
  std::optional<ChartPart> marked_;
};

}  // namespace lm
