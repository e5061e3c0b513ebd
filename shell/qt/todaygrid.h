// One of the three lists of LM Today: the list widget without lines and header. Its columns share
// the width that there is, headings fold by a click anywhere on them, and the cursor shows while
// the list has the keys.
#pragma once

#include "reports/today.h"
#include "shell/qt/griddelegate.h"
#include "shell/qt/gridview.h"

namespace lm {

class TodayGrid : public GridView {
  Q_OBJECT
 public:
  explicit TodayGrid(const TodayList& list, QWidget* parent = nullptr);

  const TodayList& List() const { return list_; }
  QFont HeadingFont(int gridRow) const;
  // The texts of a heading: the caption with its count, and whether its note needs lines of its own
  // below it.
  QString Caption(int gridRow) const;
  bool NoteIsBelow(int gridRow) const;
  int CaptionRoom() const;  // the width for both, in pixels

 protected:
  void ReadColumns() override;
  void ReadRows() override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowCursor();
  int LastColumn() const { return static_cast<int>(list_.columns.size()) - 1; }
  bool HasAmounts() const { return list_.nameColumn + 1 < LastColumn(); }
  int WidestOf(int col) const;
  int HeadingHeight(int gridRow) const;
  QString SpokenText(int gridRow) const;

  const TodayList& list_;
};

class TodayDelegate : public GridDelegate {
 public:
  explicit TodayDelegate(TodayGrid* view) : GridDelegate(view), view_(view) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  void PaintHeading(QPainter& painter, const QRect& rect, int row, int col) const;
  void PaintRow(QPainter& painter, const QRect& rect, int row, int col) const;

  TodayGrid* view_;
};

}  // namespace lm
