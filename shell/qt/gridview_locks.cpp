// What a list says of its locked rows and of the cells that may be typed over.
#include <QToolTip>

#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {

QString GridView::LockOf(int gridRow) const {
  return rules_ && gridRow >= 0 ? ToQt(rules_->LockedBy(gridRow)) : QString();
}

bool GridView::InvitesTyping(int gridRow, int col) const {
  return rules_ && rules_->InvitesTyping(gridRow, col);
}

QString GridView::NoteOf(int gridRow, int col) const {
  const QString lock = LockOf(gridRow);
  if (!lock.isEmpty()) return tr("Locked. %1").arg(lock);
  return InvitesTyping(gridRow, col) ? tr("May be typed over") : QString();
}

void GridView::TellLock(const QModelIndex& cell) {
  const QString lock = LockOf(model_->GridRow(cell));
  if (!lock.isEmpty())
    QToolTip::showText(viewport()->mapToGlobal(visualRect(cell).bottomLeft()),
                       tr("Locked. %1").arg(lock), this);
}

}  // namespace lm
