#include "shell/qt/typeahead.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>

namespace lm {
namespace {

constexpr int kPause = 1000;  // ms between two letters; the usual 400 are short for many

// What the list itself does with a letter.
void Search(QComboBox& list, const QString& text) {
  QAbstractItemView& view = *list.view();
  view.setCurrentIndex(list.model()->index(list.currentIndex(), list.modelColumn()));
  view.keyboardSearch(text);
  const int found = view.currentIndex().row();
  if (found < 0 || found == list.currentIndex()) return;
  list.setCurrentIndex(found);
  emit list.activated(found);
}

}  // namespace

TypeAhead::TypeAhead() {
  QApplication::setKeyboardInputInterval(kPause);
  qApp->installEventFilter(this);
}

bool TypeAhead::Typing(const QComboBox& list) const {
  return list_ == &list && since_.isValid() && !since_.hasExpired(kPause);
}

bool TypeAhead::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  auto* list = qobject_cast<QComboBox*>(watched);
  if (!list || list->isEditable() || list->view()->isVisible()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool space = key.key() == Qt::Key_Space && key.modifiers() == Qt::NoModifier;
  if (space && !Typing(*list)) return false;
  if (key.text().isEmpty() || !key.text()[0].isPrint()) return false;
  list_ = list;
  since_.start();
  if (space) Search(*list, key.text());
  return space;
}

}  // namespace lm
