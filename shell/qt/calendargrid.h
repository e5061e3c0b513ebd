// A calendar's grid, or the headings above it: the one list widget, filling the room that it has,
// whose cells are places. A record is drawn as a bar over the cells of its block; the pointer
// rests, drags, clicks and double clicks on cells.
#pragma once

#include <QBasicTimer>
#include <QPoint>

#include "calendar/calendar.h"
#include "shell/pages/calendarpage.h"
#include "shell/qt/griddelegate.h"
#include "shell/qt/gridview.h"

namespace lm {

class CalendarGrid : public GridView {
  Q_OBJECT
 public:
  // The page outlives the grid.
  CalendarGrid(const CalendarPage& page, CalendarView view, QWidget* parent = nullptr);

  CalendarView View() const { return view_; }
  // The cell under a point of the viewport, by its place and not by the block that covers it.
  CellPlace CellAt(const QPoint& point) const;
  // The cells of a drag: where it began, and where it would land; {-1, -1} while there is none.
  CellPlace Target() const { return target_; }

 signals:
  // What the pointer rests on was told to the screen; at this point of the screen.
  void rested(const QPoint& global);
  void laidOut();

 protected:
  void ReadRows() override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool IsHeadings() const { return !HeadingsOf().isEmpty(); }
  QRect RectOf(CellPlace cell) const;
  QString SpokenText(CellPlace cell) const;
  std::string PracticeNameOf(CellPlace cell) const;
  // Where the present time lies in Week and Detail; an empty line where it is out of sight.
  QLine NowLine() const;
  void ShowWorkingHours();
  void Point(const QPoint& point);
  void StopResting();

  const CalendarPage& page_;
  const CalendarView view_;
  CellPlace pressed_, target_, restsOn_;
  QPoint pressedAt_;
  bool dragging_ = false;
  bool opened_ = false;  // Week has been scrolled to the working hours
  QBasicTimer rest_, click_, minute_;
};

class CalendarDelegate : public GridDelegate {
 public:
  explicit CalendarDelegate(CalendarGrid* view) : GridDelegate(view), view_(view) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  void PaintText(QPainter& painter, const QRect& rect, CellPlace cell, const QColor& ink) const;

  CalendarGrid* view_;
};

}  // namespace lm
