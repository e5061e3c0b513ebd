#include "shell/qt/frmHelp.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTreeWidget>

#include "shell/qt/frmMesgBox.h"
#include "shell/qt/guidebrowser.h"
#include "shell/qt/icons.h"

namespace lm {
namespace {

constexpr const char* kGuide = "user-guide.md";
constexpr QSize kWindow(980, 660);
constexpr int kContentsWidth = 250;
constexpr int kSubheading = 3;  // the level that is set in below the one before
constexpr int kMostFound = 999;

QPushButton* MakeButton(const char* name, const QString& caption, const char* drawing) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setProperty("lineIcon", drawing);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

frmHelp::frmHelp(QWidget* parent) : QDialog(parent), txtGuide_(new GuideBrowser) {
  setObjectName("frmHelp");
  setWindowTitle(tr("LedgerMinder User Guide"));
  setAttribute(Qt::WA_DeleteOnClose);

  txtGuide_->setObjectName("txtGuide");
  auto* parts = new QSplitter;
  parts->addWidget(MakeContents());
  parts->addWidget(txtGuide_);
  parts->setStretchFactor(1, 1);
  parts->setSizes({kContentsWidth, kWindow.width() - kContentsWidth});
  parts->setChildrenCollapsible(false);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  column->addLayout(MakeBar());
  column->addWidget(parts, 1);
  ApplyLineIcons(*this);

  connect(txtGuide_, &GuideBrowser::textLoaded, this, [this] {
    FillContents();
    Search();
  });
  connect(txtGuide_, &GuideBrowser::leftByLink, this, [this](const QString& address) {
    if (openLink) openLink(address);
  });
  connect(txtGuide_->verticalScrollBar(), &QScrollBar::valueChanged, this, &frmHelp::ShowPlace);
  resize(kWindow.boundedTo(screen()->availableGeometry().size() * 0.94));
}

QHBoxLayout* frmHelp::MakeBar() {
  QPushButton* back = MakeButton("cmdBack", tr("&Back"), "back");
  back->setToolTip(tr("Back (Alt+Left)"));
  back->setEnabled(false);
  connect(back, &QPushButton::clicked, txtGuide_, &GuideBrowser::GoBack);
  connect(txtGuide_, &GuideBrowser::mayGoBack, back, &QPushButton::setEnabled);

  txtSearch_ = new QLineEdit;
  txtSearch_->setObjectName("txtSearch");
  txtSearch_->setPlaceholderText(tr("Find in the guide"));
  txtSearch_->setAccessibleName(tr("Find in the guide"));
  txtSearch_->setClearButtonEnabled(true);
  txtSearch_->setMinimumWidth(txtSearch_->fontMetrics().averageCharWidth() * 24);
  connect(txtSearch_, &QLineEdit::textChanged, this, [this] {
    Search();
    ShowFound();
  });
  lblFound_ = new QLabel;
  lblFound_->setObjectName("lblFound");
  cmdPrevious_ = MakeButton("cmdPrevious", tr("&Previous"), "left");
  cmdNext_ = MakeButton("cmdNext", tr("&Next"), "right");
  cmdPrevious_->setToolTip(tr("Previous place (Shift+Enter, Shift+F3)"));
  cmdNext_->setToolTip(tr("Next place (Enter, F3)"));
  connect(cmdPrevious_, &QPushButton::clicked, this, [this] { Step(-1); });
  connect(cmdNext_, &QPushButton::clicked, this, [this] { Step(1); });

  auto* bar = new QHBoxLayout;
  bar->setSpacing(8);
  bar->addWidget(back);
  bar->addStretch();
  bar->addWidget(lblFound_);
  bar->addWidget(txtSearch_);
  bar->addWidget(cmdPrevious_);
  bar->addWidget(cmdNext_);
  return bar;
}

QWidget* frmHelp::MakeContents() {
  lstContents_ = new QTreeWidget;
  lstContents_->setObjectName("lstContents");
  lstContents_->setAccessibleName(tr("Contents"));
  lstContents_->setHeaderHidden(true);
  lstContents_->setRootIsDecorated(false);
  lstContents_->setItemsExpandable(false);
  lstContents_->setMinimumWidth(kContentsWidth * 2 / 3);
  connect(lstContents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item) txtGuide_->GoTo(txtGuide_->Text(), item->data(0, Qt::UserRole).toString());
  });
  connect(lstContents_, &QTreeWidget::itemActivated, txtGuide_,
          qOverload<>(&GuideBrowser::setFocus));
  return lstContents_;
}

void frmHelp::FillContents() {
  const QSignalBlocker quiet(lstContents_);
  lstContents_->clear();
  QTreeWidgetItem* chapter = nullptr;
  for (const GuideBrowser::Heading& heading : txtGuide_->Headings()) {
    auto* item = new QTreeWidgetItem({heading.text});
    item->setData(0, Qt::UserRole, heading.anchor);
    const bool below = chapter && heading.level >= kSubheading;
    below ? chapter->addChild(item) : lstContents_->addTopLevelItem(item);
    if (!below) chapter = item;
  }
  lstContents_->expandAll();
}

void frmHelp::ShowPlace() {
  const QSignalBlocker quiet(lstContents_);
  const int number = txtGuide_->HeadingInSight();
  QTreeWidgetItemIterator item(lstContents_);
  for (int i = 0; i < number && *item; ++i) ++item;
  if (number >= 0 && *item) lstContents_->setCurrentItem(*item);
}

void frmHelp::GoTo(const QString& heading) {
  txtGuide_->GoTo(kGuide, heading);
  ShowPlace();
  txtGuide_->setFocus();
}

// All places with the words; the first below the top of what is in sight is the one to begin with.
void frmHelp::Search() {
  found_.clear();
  current_ = -1;
  const QString words = txtSearch_->text();
  const int top = txtGuide_->cursorForPosition(QPoint(0, 0)).position();
  QList<QTextEdit::ExtraSelection> marks;
  QTextCursor place(txtGuide_->document());
  while (!words.isEmpty() && found_.size() < kMostFound) {
    place = txtGuide_->document()->find(words, place);
    if (place.isNull()) break;
    if (current_ < 0 && place.position() >= top) current_ = int(found_.size());
    found_.append(place);
    QTextEdit::ExtraSelection mark;
    mark.cursor = place;
    mark.format.setFontUnderline(true);
    mark.format.setUnderlineColor(AccentColour());
    mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    marks.append(mark);
  }
  txtGuide_->setExtraSelections(marks);
  current_ = std::max(current_, 0);
  cmdNext_->setEnabled(found_.size() > 1);
  cmdPrevious_->setEnabled(found_.size() > 1);
  lblFound_->setText(words.isEmpty() ? QString() : tr("Not found"));
}

void frmHelp::Step(int step) {
  if (found_.isEmpty()) return;
  current_ = (current_ + step + int(found_.size())) % int(found_.size());
  ShowFound();
}

void frmHelp::ShowFound() {
  if (found_.isEmpty()) return;
  txtGuide_->setTextCursor(found_[current_]);
  txtGuide_->ensureCursorVisible();
  lblFound_->setText(tr("%1 of %2").arg(current_ + 1).arg(found_.size()));
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_F3 || (enter && txtSearch_->hasFocus()))
    Step(shift ? -1 : 1);
  else if (event->matches(QKeySequence::Find))
    txtSearch_->setFocus(Qt::ShortcutFocusReason);
  else if (event->matches(QKeySequence::Back))
    txtGuide_->GoBack();
  else if (!enter)
    QDialog::keyPressEvent(event);
}

frmHelp& ShowGuideBeside(QWidget* over, const QString& heading) {
  frmHelp* window = nullptr;
  for (QWidget* each : QApplication::topLevelWidgets()) {
    auto* guide = qobject_cast<frmHelp*>(each);
    if (!guide || !guide->isVisible()) continue;
    if (guide->parentWidget() == over)
      window = guide;
    else
      guide->close();
  }
  if (!window) {
    window = new frmHelp(over);
    CentreWindow(*window);
  }
  window->show();
  window->GoTo(heading);
  window->raise();
  window->activateWindow();
  return *window;
}

}  // namespace lm
