// Windows that do not fit the screen: their content scrolls, and their buttons stay in sight.
#pragma once

#include <QScrollArea>

class QDialog;

namespace lm {

// Shows a content that was laid out for a larger window. Has no frame, and shows a scroll bar only
// where one is needed; what gets the focus comes into sight.
class ScrollBody : public QScrollArea {
  Q_OBJECT
 public:
  // Takes the layout of `page`, with all that stands in it, and stands there in its place.
  explicit ScrollBody(QWidget& page);
  // Not only up and down.
  void ScrollSideways();
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  bool sideways_ = false;
};

// What is not in sight yet tells its present size only after this.
void SettleLayouts(QWidget& window);

// Lets a dialog whose content needs more than `area` scroll: the pages of its tabs, or else all
// above its last row, that of the buttons. One that fits stays as it is.
// Whether it scrolls.
bool FitDialog(QDialog& dialog, const QSize& area);

// The same for a page of a window that has this room for it.
void FitPage(QWidget& page, const QSize& room);

}  // namespace lm
