#include "shell/qt/scrolling.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QScrollBar>
#include <QTabWidget>
#include <algorithm>

namespace lm {
namespace {

constexpr int kGap = 8;              // pixels between a content and its scroll bar
constexpr QSize kSmallest(200, 80);  // pixels in which scrolling still makes sense

bool Fits(const QWidget& window, const QSize& area) {
  const QLayout* layout = window.layout();
  const QSize needed = layout->totalMinimumSize();
  if (needed.width() > area.width() || needed.height() > area.height()) return false;
  return !layout->hasHeightForWidth() || layout->totalMinimumHeightForWidth(std::min(
                                             window.width(), area.width())) <= area.height();
}

bool Scrolls(const QWidget& page) {
  return page.findChild<ScrollBody*>(QString(), Qt::FindDirectChildrenOnly) != nullptr;
}

void ScrollTabs(QDialog& dialog) {
  for (QTabWidget* tabs : dialog.findChildren<QTabWidget*>())
    for (int i = 0; i < tabs->count(); ++i)
      if (tabs->widget(i)->layout() && !Scrolls(*tabs->widget(i))) new ScrollBody(*tabs->widget(i));
}

void ScrollSideways(QDialog& dialog) {
  for (ScrollBody* body : dialog.findChildren<ScrollBody*>()) body->ScrollSideways();
}

void ScrollAboveButtons(QDialog& dialog) {
  auto* column = qobject_cast<QVBoxLayout*>(dialog.layout());
  if (Scrolls(dialog) || !column || column->count() < 2) return;
  QLayout* buttons = column->itemAt(column->count() - 1)->layout();
  if (!buttons) return;
  column->removeItem(buttons);
  const QMargins margins = column->contentsMargins();
  column->setContentsMargins(0, 0, kGap, 0);
  const int spacing = column->spacing();
  new ScrollBody(dialog);
  auto* outer = static_cast<QVBoxLayout*>(dialog.layout());
  outer->setContentsMargins(margins);
  outer->setSpacing(spacing);
  outer->addLayout(buttons);
}

}  // namespace

ScrollBody::ScrollBody(QWidget& page) : QScrollArea(&page) {
  auto* content = new QWidget(viewport());
  content->setLayout(page.layout());
  auto* column = new QVBoxLayout(&page);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(this, 1);
  setWidget(content);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  // The ground of a tab's page is its own.
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  content->show();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && isAncestorOf(now)) ensureWidgetVisible(now, 8, 8);
  });
}

void ScrollBody::ScrollSideways() {
  sideways_ = true;
  updateGeometry();
}

QSize ScrollBody::sizeHint() const {
  return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize ScrollBody::minimumSizeHint() const {
  if (sideways_) return kSmallest;
  const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
  return {std::max(width, kSmallest.width()), kSmallest.height()};
}

void SettleLayouts(QWidget& window) {
  QList<QWidget*> parts = window.findChildren<QWidget*>();
  parts.prepend(&window);
  // From the innermost outwards.
  for (auto part = parts.rbegin(); part != parts.rend(); ++part)
    if (QLayout* layout = (*part)->layout()) {
      layout->invalidate();
      layout->activate();
    }
}

bool FitDialog(QDialog& dialog, const QSize& area) {
  if (dialog.minimumWidth() > area.width()) dialog.setMinimumWidth(0);
  if (dialog.minimumHeight() > area.height()) dialog.setMinimumHeight(0);
  SettleLayouts(dialog);
  for (void (*step)(QDialog&) : {ScrollTabs, ScrollSideways, ScrollAboveButtons, ScrollSideways}) {
    if (Fits(dialog, area)) break;
    step(dialog);
    SettleLayouts(dialog);
  }
  return dialog.findChild<ScrollBody*>() != nullptr;
}

void FitPage(QWidget& page, const QSize& room) {
  if (!page.layout() || Scrolls(page) || Fits(page, room)) return;
  auto* body = new ScrollBody(page);
  if (!Fits(page, room)) body->ScrollSideways();
}

}  // namespace lm
