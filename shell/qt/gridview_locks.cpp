// What a list says of its new, edited and locked rows and of the cells that may be typed over.
#include <QToolTip>

#include "core/rows.h"
#include "shell/grouping.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {

QString GridView::LockOf(int gridRow) const {
  return rules_ && gridRow >= 0 ? ToQt(rules_->LockedBy(gridRow)) : QString();
}

bool GridView::InvitesTyping(int gridRow, int col) const {
  return rules_ && rules_->InvitesTyping(gridRow, col);
}

// What the colours and signs of a row say.
QString GridView::NoteOf(int gridRow, int col) const {
  if (IsGroup(gridRow)) {
    if (!HasRows(*Shown(), gridRow)) return {};
    return Shown()->RowCollapsed(gridRow) ? tr("folded") : tr("open");
  }
  QStringList notes;
  if (model_->HasMarker() && gridRow >= 0) {
    const RowState state = StateOfRow(screen_->ledger, *Shown(), gridRow);
    if (state == RowState::New) notes << tr("New, not saved");
    if (state == RowState::Edited) notes << tr("Edited, not saved");
  }
  const QString lock = LockOf(gridRow);
  if (!lock.isEmpty())
    notes << tr("Locked. %1").arg(lock);
  else if (InvitesTyping(gridRow, col))
    notes << tr("May be typed over");
  return notes.join(QStringLiteral(". "));
}

void GridView::TellLock(const QModelIndex& cell) {
  const QString lock = LockOf(model_->GridRow(cell));
  if (!lock.isEmpty())
    QToolTip::showText(viewport()->mapToGlobal(visualRect(cell).bottomLeft()),
                       tr("Locked. %1").arg(lock), this);
}

}  // namespace lm
