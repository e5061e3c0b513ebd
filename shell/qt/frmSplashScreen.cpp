#include "shell/qt/frmSplashScreen.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>

#include "core/messagebox.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

QLabel* NamedLabel(const char* name, double scale = 1.0, bool bold = false) {
  auto* label = new QLabel;
  label->setObjectName(name);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

}  // namespace

frmSplashScreen::frmSplashScreen(std::string_view version)
    : QWidget(nullptr, Qt::SplashScreen),
      lblLastLoad_(NamedLabel("lblLastLoad", 0.92)),
      lblProgress_(NamedLabel("lblProgress")),
      imgProgressBarIndicator_(new QProgressBar) {
  setObjectName("frmSplashScreen");
  setWindowTitle(ToQt(kProductName));
  auto* name = NamedLabel("captionProduct", 2.0, true);
  name->setText(ToQt(kProductName));
  auto* lblVersion = NamedLabel("lblVersion");
  lblVersion->setText(ToQt(version));
  imgProgressBarIndicator_->setObjectName("imgProgressBarIndicator");
  imgProgressBarIndicator_->setAccessibleName(tr("Progress of the start"));
  imgProgressBarIndicator_->setRange(0, 100);
  imgProgressBarIndicator_->setTextVisible(false);
  imgProgressBarIndicator_->setFixedHeight(8);
  auto* picture = new QLabel;
  picture->setAccessibleName(ToQt(kProductName));
  picture->setPixmap(LineIcon("ledgerminder").pixmap(QSize(64, 64), devicePixelRatioF()));

  auto* titles = new QVBoxLayout;
  titles->setSpacing(2);
  titles->addStretch();
  titles->addWidget(name);
  titles->addWidget(lblVersion);
  titles->addStretch();
  auto* head = new QHBoxLayout;
  head->setSpacing(18);
  head->addWidget(picture);
  head->addLayout(titles, 1);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(32, 28, 32, 24);
  column->setSpacing(8);
  column->addLayout(head);
  column->addSpacing(16);
  column->addWidget(imgProgressBarIndicator_);
  column->addWidget(lblProgress_);
  column->addWidget(lblLastLoad_);
  setMinimumWidth(480);
  adjustSize();
  CentreWindow(*this);
}

void frmSplashScreen::SetProgressBar(int percent, std::string_view text) {
  if (percent >= 0) imgProgressBarIndicator_->setValue(std::min(percent, 100));
  lblProgress_->setText(ToQt(text).trimmed());
  repaint();
}

void frmSplashScreen::ShowLastOpened(std::string_view text) {
  lblLastLoad_->setText(ToQt(text));
  repaint();
}

void frmSplashScreen::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace lm
