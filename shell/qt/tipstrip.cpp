#include "shell/qt/tipstrip.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QCryptographicHash>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSettings>

#include "shell/qt/frmMesgBox.h"
#include "shell/qt/icons.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr const char* kClosedTips = "closed";
constexpr int kIconSize = 24;
constexpr int kEdge = 4;        // pixels of the coloured edge
constexpr double kTint = 0.10;  // of the ground
constexpr double kTitleScale = 1.05;

QLabel* MakeText(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  return label;
}

// Drawn when it is painted, so that it follows the palette.
class TipPicture : public QWidget {
 public:
  TipPicture() {
    setObjectName("picTip");
    setFixedSize(kIconSize, kIconSize);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    LineIcon("tip", WarningColour()).paint(&painter, rect());
  }
};

}  // namespace

// By its words, so that a tip that tells something new is shown again.
QString TipStrip::Tip::Key() const {
  const QByteArray words = (heading + u'\n' + text).toUtf8();
  return QString::fromLatin1(
      QCryptographicHash::hash(words, QCryptographicHash::Sha1).toHex().left(16));
}

TipStrip::TipStrip(const std::filesystem::path& programDirectory, QWidget* parent)
    : QFrame(parent),
      file_(FromPath(programDirectory / "Tips.ini")),
      txtMainPrompt_(MakeText("txtMainPrompt")),
      txtMinorPrompt_(MakeText("txtMinorPrompt")),
      chkStopShowingTips_(new QCheckBox(tr("Do not show tips again"))) {
  setObjectName("tipStrip");
  QFont bold = txtMainPrompt_->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * kTitleScale);
  txtMainPrompt_->setFont(bold);
  chkStopShowingTips_->setObjectName("chkStopShowingTips");
  auto* close = new QPushButton(tr("Got it"));
  close->setObjectName("cmdOk");
  close->setToolTip(tr("Close this tip (Escape)"));
  connect(close, &QPushButton::clicked, this, &TipStrip::CloseTip);

  auto* texts = new QVBoxLayout;
  texts->setSpacing(3);
  texts->addWidget(txtMainPrompt_);
  texts->addWidget(txtMinorPrompt_);
  auto* acts = new QVBoxLayout;
  acts->setSpacing(4);
  acts->addWidget(close, 0, Qt::AlignRight);
  acts->addWidget(chkStopShowingTips_, 0, Qt::AlignRight);
  acts->addStretch();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kEdge + 12, 10, 12, 10);
  row->setSpacing(12);
  row->addWidget(new TipPicture, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  row->addLayout(acts);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  hide();
}

QStringList TipStrip::ClosedTips() const {
  return QSettings(file_, QSettings::IniFormat).value(kClosedTips).toStringList();
}

void TipStrip::Add(const QString& heading, const QString& text, std::function<void()> stopTips) {
  Tip tip{heading, text.simplified(), std::move(stopTips)};
  if (ClosedTips().contains(tip.Key())) return;
  tips_.push_back(std::move(tip));
  if (tips_.size() == 1) ShowNext();
}

void TipStrip::ShowNext() {
  if (tips_.empty() || isVisibleTo(window())) return;
  if (QWidget* above = QApplication::activeModalWidget()) {
    connect(above, &QObject::destroyed, this, &TipStrip::ShowNext,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    return;
  }
  txtMainPrompt_->setText(tips_.front().heading);
  txtMinorPrompt_->setText(tips_.front().text);
  setAccessibleName(tr("Tip: %1").arg(tips_.front().heading));
  setAccessibleDescription(tips_.front().text);
  chkStopShowingTips_->setChecked(false);
  show();
}

void TipStrip::CloseTip() {
  if (!isVisibleTo(window())) return;
  const Tip closed = std::move(tips_.front());
  tips_.pop_front();
  QSettings settings(file_, QSettings::IniFormat);
  settings.setValue(kClosedTips, ClosedTips() << closed.Key());
  if (chkStopShowingTips_->isChecked()) {
    tips_.clear();
    if (closed.stopTips) closed.stopTips();
  }
  emit tipClosed();
  hide();
  ShowNext();
}

void TipStrip::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void TipStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), MixedColour(palette().color(QPalette::Window), AccentColour(), kTint));
  painter.fillRect(QRect(0, 0, kEdge, height()), WarningColour());
}

TipStrip* MainWindowTips() {
  const QWidget* main = MainWindowWidget();
  return main ? main->findChild<TipStrip*>() : nullptr;
}

}  // namespace lm
