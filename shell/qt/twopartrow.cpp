#include "shell/qt/twopartrow.h"

#include <algorithm>

namespace lm {

TwoPartRow::TwoPartRow(QLayout* left, QLayout* right, int spacing) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(spacing);
  for (QLayout* part : {left, right}) {
    addChildLayout(part);
    addItem(part);
  }
}

void TwoPartRow::addItem(QLayoutItem* item) {
  for (auto& part : parts_)
    if (!part) return part.reset(item);
}

int TwoPartRow::count() const {
  return static_cast<int>(std::count_if(parts_.begin(), parts_.end(),
                                        [](const auto& part) { return part != nullptr; }));
}

QLayoutItem* TwoPartRow::itemAt(int index) const {
  return index >= 0 && index < count() ? parts_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* TwoPartRow::takeAt(int index) {
  if (!itemAt(index)) return nullptr;
  QLayoutItem* taken = parts_[static_cast<std::size_t>(index)].release();
  if (index == 0) parts_[0] = std::move(parts_[1]);
  return taken;
}

bool TwoPartRow::SideBySide(int width) const {
  int needed = spacing() * (count() - 1);
  for (int i = 0; i < count(); ++i) needed += itemAt(i)->minimumSize().width();
  return needed <= width;
}

QSize TwoPartRow::sizeHint() const {
  QSize size(0, 0);
  for (int i = 0; i < count(); ++i) {
    const QSize part = itemAt(i)->sizeHint();
    size = {size.width() + part.width() + (i ? spacing() : 0),
            std::max(size.height(), part.height())};
  }
  return size;
}

QSize TwoPartRow::minimumSize() const {
  QSize size(0, 0);
  for (int i = 0; i < count(); ++i) size = size.expandedTo(itemAt(i)->minimumSize());
  return size;
}

int TwoPartRow::heightForWidth(int width) const {
  if (SideBySide(width)) return sizeHint().height();
  int height = spacing() * (count() - 1);
  for (int i = 0; i < count(); ++i) height += itemAt(i)->sizeHint().height();
  return height;
}

void TwoPartRow::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  if (count() < 2) return;
  QRect left = place;
  QRect right = place;
  if (SideBySide(place.width())) {
    right.setLeft(place.right() + 1 -
                  std::min(parts_[1]->sizeHint().width(),
                           place.width() - spacing() - parts_[0]->minimumSize().width()));
    left.setRight(right.left() - 1 - spacing());
  } else {
    left.setHeight(parts_[0]->sizeHint().height());
    right.setTop(left.bottom() + 1 + spacing());
  }
  parts_[0]->setGeometry(left);
  parts_[1]->setGeometry(right);
}

}  // namespace lm
