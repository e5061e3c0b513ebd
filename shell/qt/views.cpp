#include "shell/qt/views.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>

#include "core/messagebox.h"
#include "core/platform.h"
#include "core/text.h"
#include "shell/guidetopics.h"
#include "shell/qt/binder.h"
#include "shell/qt/freearea.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/gridview.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"
#include "shell/qt/scrolling.h"
#include "shell/qt/virtualkeys.h"

namespace lm {
namespace {

constexpr const char* kAnchor = "pickerAnchor";
constexpr QSize kButtonAir(32, 4);  // pixels round a button's words

// A drawing makes a button taller than its neighbours: all get one height, and air.
void LevelButtons(const QWidget& dialog) {
  const auto buttons = dialog.findChildren<QPushButton*>();
  int tallest = 0;
  for (const QPushButton* button : buttons)
    tallest = std::max(tallest, button->sizeHint().height());
  for (QPushButton* button : buttons) {
    const QSize words(button->fontMetrics().horizontalAdvance(PlainCaption(button->text())),
                      tallest);
    button->setMinimumSize(button->minimumSize().expandedTo(words + kButtonAir));
  }
}

bool IsHelpKey(const QKeyEvent& key) {
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

}  // namespace

const ViewSpec* FindView(std::string_view screen) {
  for (const ViewSpec& view : Views())
    if (EqualsIgnoreCase(view.screen, screen)) return &view;
  return nullptr;
}

void SetPickerAnchor(QWidget& widget) {
  widget.window()->setProperty(kAnchor, QVariant::fromValue(QPointer<QWidget>(&widget)));
}

ScreenDialog::ScreenDialog(const ViewSpec& view, Screen& screen, QWidget* parent)
    : QDialog(parent),
      screen_(screen),
      memory_(screen.ledger.programDirectory, ToQt(screen.Name())) {
  view.build(*this);
  popup_ = property("popup").toBool();
  if (popup_) setWindowFlags(Qt::Popup);
  ApplyLineIcons(*this);
  if (!popup_) LevelButtons(*this);
  binder_ = std::make_unique<Binder>(*this, screen);
  for (QWidget* widget : findChildren<QWidget*>())
    if (auto* part = dynamic_cast<ScreenPart*>(widget)) part->AttachTo(screen);
  const auto showCaption = [this] { setWindowTitle(ToQt(screen_.Caption())); };
  binder_->onCaptionChanged = showCaption;
  binder_->onClosed = [this] { done(0); };
  binder_->mayCancel = [this] { return MayCancel(); };
  showCaption();
  screen_.NoteContent();
  if (!popup_) return;
  installEventFilter(this);
  for (QWidget* widget : findChildren<QWidget*>()) widget->installEventFilter(this);
}

ScreenDialog::~ScreenDialog() = default;

void ScreenDialog::reject() {
  if (MayCancel()) screen_.CloseRequested();
}

bool ScreenDialog::MayCancel() {
  if (screen_.holds.empty() || !(screen_.ContentChanged() || binder_->HasPending())) return true;
  return Ask(screen_.ledger, "Close without saving " + std::string(screen_.holds) + "?",
             "What you changed in this window will be lost.");
}

void ScreenDialog::closeEvent(QCloseEvent* event) {
  if (!screen_.Closed() && MayCancel()) screen_.CloseRequested();
  event->setAccepted(screen_.Closed());
}

void ScreenDialog::setVisible(bool visible) {
  if (visible && isHidden() && !popup_) TakePlace();
  if (!visible && isVisible() && !popup_) memory_.Keep(*this);
  QDialog::setVisible(visible);
}

void ScreenDialog::TakePlace() {
  const QSize area = FreeArea(*this).size();
  if (!testAttribute(Qt::WA_Resized)) adjustSize();  // the view names no size of its own
  if (FitDialog(*this, area)) resize(size().expandedTo(sizeHint()).boundedTo(area));
  CentreWindow(*this);
  memory_.Restore(*this);
}

// What comes into sight later may be too much for the screen, too.
bool ScreenDialog::event(QEvent* event) {
  const bool done = QDialog::event(event);
  if (event->type() != QEvent::LayoutRequest || popup_ || !isVisible() || isMaximized())
    return done;
  const QRect area = FreeArea(*this);
  const QSize needed = minimumSizeHint();
  if (needed.boundedTo(area.size()) == needed || needed == tooLarge_) return done;
  FitDialog(*this, area.size());
  tooLarge_ = minimumSizeHint();
  setGeometry(Inside(geometry(), area));
  return done;
}

void ScreenDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!popup_) return binder_->TakeFirstFocus();
  const QWidget* opener = parentWidget() ? parentWidget()->window() : nullptr;
  DropBelow(opener ? opener->property(kAnchor).value<QPointer<QWidget>>() : nullptr);
  // Arrows and figures work at once, and Enter takes the choice.
  QWidget* first = nullptr;
  for (GridView* grid : findChildren<GridView*>())
    if (grid->isVisible()) first = grid;
  if (screen_.defaultButton) first = binder_->WidgetOf(*screen_.defaultButton);
  if (first) first->setFocus();
}

void ScreenDialog::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  if (!popup_) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ScreenDialog::keyPressEvent(QKeyEvent* event) {
  IsHelpKey(*event) ? ShowGuide() : QDialog::keyPressEvent(event);
}

// A window that drops below another closes first: a click on the guide would close both.
void ScreenDialog::ShowGuide() {
  WindowPort& windows = screen_.ledger.platform.windows;
  const std::string_view heading = GuideHeading(screen_.Name());
  if (!popup_) return windows.ShowGuide(heading);
  screen_.CloseRequested();
  QMetaObject::invokeMethod(
      qApp, [&windows, heading] { windows.ShowGuide(heading); }, Qt::QueuedConnection);
}

void ScreenDialog::DropBelow(const QWidget* anchor) {
  adjustSize();
  if (!anchor) return CentreWindow(*this);
  const QRect available = FreeArea(*anchor);
  QPoint place = anchor->mapToGlobal(QPoint(anchor->width() - width(), anchor->height() + 2));
  if (place.y() + height() > available.bottom())
    place.setY(anchor->mapToGlobal(QPoint()).y() - height() - 2);
  place.setX(std::clamp(place.x(), available.left(),
                        std::max(available.left(), available.right() - width())));
  place.setY(std::max(place.y(), available.top()));
  move(place);
}

// A screen that knows keys of its own gets them before the widgets do, except for those that press
// the button in focus.
bool ScreenDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (IsHelpKey(key)) {
    ShowGuide();
    return true;
  }
  if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (enter) button->click();
    if (enter || key.key() == Qt::Key_Space) return enter;
  }
  const std::string typed = FromQt(key.text());
  return screen_.KeyPressed(VirtualKey(key), typed.size() == 1 ? typed[0] : '\0');
}

void RunView(Screen& screen, QWidget* parent) {
  const ViewSpec* view = FindView(screen.Name());
  if (!view) {
    qWarning("no view for %s", screen.Name().c_str());
    screen.Close();
    return;
  }
  ScreenDialog dialog(*view, screen, parent);
  if (!screen.Closed()) dialog.exec();
}

}  // namespace lm
