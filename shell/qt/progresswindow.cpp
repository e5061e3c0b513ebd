#include "shell/qt/progresswindow.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/messagebox.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kTextWidth = 380;  // device-independent pixels

}  // namespace

ProgressWindow::ProgressWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      lblProgress_(new QLabel),
      bar_(new QProgressBar),
      cmdCancel_(new QPushButton("Cancel")) {
  setObjectName("progressWindow");
  setWindowTitle(ToQt(kProductName));
  setModal(true);
  lblProgress_->setObjectName("lblProgress");
  lblProgress_->setTextFormat(Qt::PlainText);
  lblProgress_->setFixedWidth(kTextWidth);
  bar_->setRange(0, 100);
  bar_->setTextVisible(false);
  bar_->setFixedHeight(8);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 24);
  column->setSpacing(12);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(lblProgress_);
  column->addWidget(bar_);
  cmdCancel_->setObjectName("cmdCancel");
  cmdCancel_->hide();
  column->addWidget(cmdCancel_, 0, Qt::AlignRight);
  connect(cmdCancel_, &QPushButton::clicked, this, &ProgressWindow::reject);
}

void ProgressWindow::OfferCancel() { cmdCancel_->show(); }

void ProgressWindow::reject() {
  if (cmdCancel_->isHidden() || cancelled_) return;
  cancelled_ = true;
  cmdCancel_->setEnabled(false);
}

void ProgressWindow::SetProgress(int percent, std::string_view text) {
  if (percent >= 0) {
    bar_->setRange(0, percent > 0 ? 100 : 0);  // to and fro until there is something to measure
    bar_->setValue(std::min(percent, 100));
  }
  lblProgress_->setText(
      lblProgress_->fontMetrics().elidedText(ToQt(text).trimmed(), Qt::ElideRight, kTextWidth));
  bar_->setAccessibleName(lblProgress_->text());
}

void ProgressWindow::showEvent(QShowEvent* event) {
  adjustSize();
  CentreWindow(*this);
  QDialog::showEvent(event);
}

void ProgressWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace lm
