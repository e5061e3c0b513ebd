#include "shell/qt/filterbox.h"

#include <QKeyEvent>

#include "shell/qt/gridview.h"

namespace lm {

// The button comes with the first word: to make those of all boxes would hold up the start.
FilterBox::FilterBox(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!isClearButtonEnabled()) setClearButtonEnabled(true);
  });
}

// The one in front among those that stand with the box; it may be empty.
bool FilterBox::GoToList() {
  for (GridView* list : parentWidget()->findChildren<GridView*>()) {
    if (!list->isVisible()) continue;
    list->setFocus(Qt::TabFocusReason);
    if (!list->currentIndex().isValid()) list->selectRow(0);
    return true;
  }
  return false;
}

void FilterBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  emit entered();
}

void FilterBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down && event->modifiers() == Qt::NoModifier && GoToList()) return;
  if (event->key() == Qt::Key_Escape && escapeClears_ && !text().isEmpty()) {
    clear();
    emit textEdited(QString());
    return;
  }
  QLineEdit::keyPressEvent(event);
}

}  // namespace lm
