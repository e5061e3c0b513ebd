#include "shell/qt/binder.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>
#include <unordered_map>

#include "core/numbers.h"
#include "core/text.h"
#include "shell/qt/gridview.h"
#include "shell/qt/icons.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"
#include "shell/qt/views.h"
#include "shell/qt/virtualkeys.h"

namespace lm {
namespace {

// On a picker's button: the name of the box for which it picks.
constexpr const char* kPickerOf = "pickerOf";
// On a frame, a text or a list: the name of the field with which it comes and goes.
constexpr const char* kShownWith = "shownWith";

// On a button: its text is a colour, which it shows.
constexpr const char* kSwatchButton = "swatch";

// Begins the text of the one that is chosen of several labels.
constexpr QChar kChosen(0x2022);

bool IsTextBox(const QObject* widget) {
  return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget);
}

QString ShownText(const QWidget& box) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&box)) return line->text();
  return static_cast<const QPlainTextEdit&>(box).toPlainText();
}

// A box to tick, or one of several choices; null for other widgets.
QAbstractButton* TickOf(QWidget* widget) {
  if (auto* box = qobject_cast<QCheckBox*>(widget)) return box;
  return qobject_cast<QRadioButton*>(widget);
}

// The sign on a tab that holds something.
QIcon TabMark() {
  QPixmap picture(32, 32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(AccentColour());
  painter.drawEllipse(9, 9, 14, 14);
  return picture;
}

// The first in the window's tab order that stands in `part` and takes the keyboard; null for none.
QWidget* FirstIn(const QWidget& window, const QWidget& part) {
  for (QWidget* each = window.nextInFocusChain(); each != &window; each = each->nextInFocusChain())
    if (part.isAncestorOf(each) && each->focusPolicy() & Qt::TabFocus && each->isEnabled() &&
        each->isVisible() && !TabBarOf(*each))
      return each;
  return nullptr;
}

QStringList EntryTexts(const ChoiceField& field) {
  QStringList texts;
  for (int i = 0; i < field.Count(); ++i) texts << ToQt(field.EntryText(i));
  return texts;
}

QIcon SwatchIcon(const QColor& colour, const QSize& size) {
  QPixmap picture(size);
  picture.fill(colour);
  return picture;
}

}  // namespace

QTabBar* TabBarOf(QWidget& widget) {
  if (auto* tabs = qobject_cast<QTabWidget*>(&widget)) return tabs->tabBar();
  return qobject_cast<QTabBar*>(&widget);
}

Binder::Binder(QWidget& view, Screen& screen) : view_(view), screen_(screen) {
  Add(view);
  ConnectShortcuts();
  screen_.SetObserver(this);
}

void Binder::Add(QWidget& part) {
  std::unordered_map<std::string, QWidget*> widgets;
  for (QWidget* widget : part.findChildren<QWidget*>())
    widgets.try_emplace(ToUpper(FromQt(widget->objectName())), widget);
  const auto find = [&](const std::string& name) {
    const auto found = widgets.find(ToUpper(name));
    return found == widgets.end() ? nullptr : found->second;
  };
  std::vector<Bound*> added;
  for (Field* field : screen_.Fields())
    if (QWidget* widget = find(field->Name()))
      added.push_back(&bound_.emplace_back(Bound{field, widget, {}, {}}));
  for (QLabel* label : part.findChildren<QLabel*>())
    if (Bound* bound = Of(label->buddy())) bound->captions.push_back(label);
  for (QWidget* widget : part.findChildren<QWidget*>())
    if (QWidget* leader = find(FromQt(widget->property(kShownWith).toString())))
      if (Bound* bound = Of(leader)) bound->companions.push_back(widget);
  for (Bound* bound : added) {
    bound->spoken = bound->widget->accessibleName();
    Show(*bound);
    Connect(*bound);
    NameForReaders(*bound);
  }
  for (const Screen::ListedGrid& listed : screen_.Grids()) {
    auto* gridView = qobject_cast<GridView*>(find(listed.grid->Name()));
    if (!gridView) continue;
    grids_.push_back(gridView);
    gridView->Bind(screen_, *listed.grid);
    gridView->mayLeaveBoxes = [this] { return CommitBoxes(); };
  }
  for (GridView* headings : part.findChildren<GridView*>())
    if (Grid* grid = screen_.FindGrid(FromQt(headings->HeadingsOf())).grid) {
      grids_.push_back(headings);
      headings->Bind(screen_, *grid);
    }
  ShowDefaultButton();
}

Binder::~Binder() {
  if (screen_.Observer() == this) screen_.SetObserver(nullptr);
  for (GridView* grid : grids_) grid->Unbind();
}

Binder::Bound* Binder::Of(const QObject* widget) {
  const auto found = std::find_if(bound_.begin(), bound_.end(),
                                  [&](const Bound& b) { return b.widget == widget; });
  return widget && found != bound_.end() ? &*found : nullptr;
}

Binder::Bound* Binder::Of(const Field& field) {
  const auto found =
      std::find_if(bound_.begin(), bound_.end(), [&](const Bound& b) { return b.field == &field; });
  return found == bound_.end() ? nullptr : &*found;
}

QWidget* Binder::WidgetOf(const Field& field) const {
  const Bound* bound = const_cast<Binder*>(this)->Of(field);
  return bound ? bound->widget : nullptr;
}

GridView* Binder::ViewOf(const Grid& grid) const {
  for (GridView* view : grids_)
    if (view->Shown() == &grid) return view;
  return nullptr;
}

// From the user to the screen

void Binder::Connect(Bound& bound) {
  Field& field = *bound.field;
  if (IsTextBox(bound.widget)) {
    bound.widget->installEventFilter(this);
    const auto& typing = static_cast<const TextField&>(field).onTyping;
    if (auto* line = qobject_cast<QLineEdit*>(bound.widget); line && typing)
      connect(line, &QLineEdit::textEdited, this,
              [&typing](const QString& typed) { typing(FromQt(typed)); });
  } else if (auto* list = qobject_cast<QListWidget*>(bound.widget)) {
    connect(list, &QListWidget::currentRowChanged, this, [this, &field](int row) {
      if (!showing_ && row >= 0) Choose(static_cast<ChoiceField&>(field), row);
    });
  } else if (auto* combo = qobject_cast<QComboBox*>(bound.widget)) {
    connect(combo, &QComboBox::activated, this,
            [this, &field](int index) { Choose(static_cast<ChoiceField&>(field), index); });
  } else if (QAbstractButton* tick = TickOf(bound.widget)) {
    connect(tick, &QAbstractButton::clicked, this, [this, &field](bool checked) {
      if (!screen_.Tick(static_cast<CheckField&>(field), checked)) FieldChanged(field);
    });
  } else if (auto* button = qobject_cast<QAbstractButton*>(bound.widget)) {
    connect(button, &QAbstractButton::clicked, this, [this, &field] { Press(field); });
  } else if (QTabBar* bar = TabBarOf(*bound.widget)) {
    ConnectTabs(bound, *bar);
  } else if (auto* label = qobject_cast<QLabel*>(bound.widget)) {
    connect(label, &QLabel::linkActivated, this, [this, &field] { Press(field); });
  }
}

void Binder::ConnectTabs(Bound& bound, QTabBar& bar) {
  auto& tabs = static_cast<TabField&>(*bound.field);
  connect(&bar, &QTabBar::currentChanged, this, [this, &tabs](int index) {
    if (showing_ || index < 0 || index >= tabs.Count()) return;
    if (!CommitPending()) return FieldChanged(tabs);
    Choose(tabs, index);
  });
}

void Binder::ConnectShortcuts() {
  if (!view_.isWindow()) return;
  for (const auto& [key, step] : {std::pair{Qt::Key_Left, -1}, std::pair{Qt::Key_Right, 1}}) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | key), &view_);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
      const auto tabs = std::find_if(bound_.begin(), bound_.end(), [](const Bound& bound) {
        return bound.field->Kind() == FieldKind::Tabs && bound.widget->isVisible();
      });
      if (tabs != bound_.end() && CommitPending())
        screen_.Step(static_cast<TabField&>(*tabs->field), step);
    });
  }
}

// What the screen does not take the view shows no longer.
void Binder::Choose(ChoiceField& field, int index) {
  if (!screen_.Choose(field, index)) FieldChanged(field);
}

QAbstractButton* Binder::PickerOf(const QWidget& box) const {
  for (auto* button : view_.findChildren<QAbstractButton*>())
    if (button->property(kPickerOf).toString() == box.objectName()) return button;
  return nullptr;
}

bool Binder::HandleKey(QWidget& box, const QKeyEvent& key) {
  if (IsStrayAltLetter(key)) return true;
  QAbstractButton* picker = OpensPicker(key) ? PickerOf(box) : nullptr;
  if (picker) picker->click();
  return picker != nullptr;
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress)
    return HandleKey(static_cast<QWidget&>(*watched), static_cast<const QKeyEvent&>(*event));
  if (event->type() != QEvent::FocusOut) return false;
  const auto reason = static_cast<QFocusEvent*>(event)->reason();
  // Another program or a menu in front is no leaving of the field.
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
      reason == Qt::MenuBarFocusReason)
    return false;
  left_.emplace_back(static_cast<QWidget*>(watched));
  QMetaObject::invokeMethod(this, &Binder::CommitLater, Qt::QueuedConnection);
  return false;
}

void Binder::CommitLater() {
  if (committing_) return;
  // Cancelling must be possible with anything typed.
  const QWidget* focus = view_.focusWidget();
  if (focus && screen_.cancelButton && focus == WidgetOf(*screen_.cancelButton)) return;
  const auto left = std::exchange(left_, {});
  for (const QPointer<QWidget>& box : left) {
    Bound* bound = box ? Of(box.data()) : nullptr;
    if (bound && !box->hasFocus() && !Commit(*bound)) return;
  }
}

bool Binder::CommitBoxes() {
  if (committing_) return false;
  left_.clear();
  return std::all_of(bound_.begin(), bound_.end(),
                     [this](Bound& bound) { return !IsTextBox(bound.widget) || Commit(bound); });
}

bool Binder::HasPending() const {
  return std::any_of(bound_.begin(), bound_.end(), [](const Bound& bound) {
    return IsTextBox(bound.widget) && bound.field->Enabled() &&
           WithCrLf(FromQt(ShownText(*bound.widget))) != bound.field->Text();
  });
}

bool Binder::CommitPending() {
  if (!CommitBoxes()) return false;
  return std::all_of(grids_.begin(), grids_.end(),
                     [](GridView* grid) { return grid->CommitEditor(); });
}

bool Binder::Commit(Bound& bound) {
  Field& field = *bound.field;
  if (screen_.Closed() || !field.Enabled() || !field.Visible()) return true;
  const QScopedValueRollback guard(committing_, true);
  const bool taken = screen_.Enter(field, FromQt(ShownText(*bound.widget)));
  if (taken && !screen_.Closed()) Show(bound);
  return taken;
}

void Binder::Press(Field& field) {
  QWidget* widget = WidgetOf(field);
  if (widget) SetPickerAnchor(*widget);
  const bool cancels = &field == screen_.cancelButton;
  if (cancels ? mayCancel && !mayCancel() : !CommitPending()) return;
  // What a picker writes is gone on with where it stands.
  const QString box = widget ? widget->property(kPickerOf).toString() : QString();
  if (auto* picked = box.isEmpty() ? nullptr : view_.findChild<QWidget*>(box)) picked->setFocus();
  screen_.Press(field);
}

// From the screen to the view

void Binder::FieldChanged(Field& field) {
  if (Bound* bound = Of(field)) Show(*bound);
  if (screen_.defaultButton != shownDefault_) ShowDefaultButton();
  // What may be typed into a list can hang on a box beside it.
  if (field.Kind() == FieldKind::Text)
    for (GridView* grid : grids_) grid->viewport()->update();
}

// Only when it is another: a button in focus is the default meanwhile.
void Binder::ShowDefaultButton() {
  shownDefault_ = screen_.defaultButton;
  for (const Bound& bound : bound_)
    if (auto* push = qobject_cast<QPushButton*>(bound.widget))
      push->setDefault(bound.field == shownDefault_);
}

void Binder::Show(const Bound& bound) {
  const QScopedValueRollback guard(showing_, true);
  bound.widget->setEnabled(bound.field->Enabled());
  bound.widget->setVisible(bound.field->Visible());
  for (QLabel* caption : bound.captions) caption->setVisible(bound.field->Visible());
  for (QWidget* widget : bound.companions) widget->setVisible(bound.field->Visible());
  if (!bound.field->ToolTip().empty()) bound.widget->setToolTip(ToQt(bound.field->ToolTip()));
  ShowText(bound);
}

void Binder::ShowText(const Bound& bound) {
  const Field& field = *bound.field;
  const QString text = ToQt(field.Text());
  if (auto* line = qobject_cast<QLineEdit*>(bound.widget)) {
    if (field.Kind() == FieldKind::Text && static_cast<const TextField&>(field).password)
      line->setEchoMode(QLineEdit::Password);
    if (line->text() != text) {
      // What is about to be typed over stays so when the value under it changes.
      const bool whole = line->hasFocus() && line->selectedText() == line->text();
      line->setText(text);
      if (whole) line->selectAll();
    }
  } else if (auto* edit = qobject_cast<QPlainTextEdit*>(bound.widget)) {
    if (WithCrLf(FromQt(edit->toPlainText())) != field.Text()) edit->setPlainText(text);
  } else if (auto* combo = qobject_cast<QComboBox*>(bound.widget)) {
    const QStringList texts = EntryTexts(static_cast<const ComboField&>(field));
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
    if (texts != shown) {
      combo->clear();
      combo->addItems(texts);
    }
    combo->setCurrentIndex(static_cast<const ComboField&>(field).Selected());
  } else if (auto* list = qobject_cast<QListWidget*>(bound.widget)) {
    const auto& choices = static_cast<const ComboField&>(field);
    if (list->count() != choices.Count()) {
      list->clear();
      list->addItems(EntryTexts(choices));
    }
    list->setCurrentRow(choices.Selected());
  } else if (QAbstractButton* tick = TickOf(bound.widget)) {
    tick->setChecked(static_cast<const CheckField&>(field).Checked());
  } else if (auto* button = qobject_cast<QAbstractButton*>(bound.widget);
             button && button->property(kSwatchButton).toBool()) {
    button->setIcon(SwatchIcon(ToQColor(ValInt(field.Text())), button->iconSize()));
  } else if (button) {
    // On a small tool the drawing says it without words.
    const bool drawn = qobject_cast<QToolButton*>(button) && !button->icon().isNull();
    if (!text.isEmpty() && !drawn) button->setText(text);
  } else if (QTabBar* bar = TabBarOf(*bound.widget)) {
    ShowTabs(static_cast<const TabField&>(field), *bar);
  } else if (auto* label = qobject_cast<QLabel*>(bound.widget)) {
    ShowLabel(bound, *label);
    SayValue(bound);
  }
}

void Binder::ShowLabel(const Bound& bound, QLabel& label) const {
  const QString text = ToQt(bound.field->Text());
  if (!bound.field->onPressed || !bound.field->Enabled()) {
    label.setTextFormat(Qt::PlainText);
    label.setText(text);
    return;
  }
  label.setTextFormat(Qt::RichText);
  label.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  label.setFocusPolicy(Qt::TabFocus);
  QString look;
  if (label.property("plainLink").toBool())
    look = QStringLiteral(" style=\"text-decoration:none; color:%1%2\"")
               .arg(label.palette().color(QPalette::WindowText).name(),
                    text.startsWith(kChosen) ? "; font-weight:bold" : "");
  label.setText(QStringLiteral("<a href=\"#\"%1>%2</a>").arg(look, text.toHtmlEscaped()));
  label.setVisible(bound.field->Visible() && !text.isEmpty());
}

void Binder::ShowTabs(const TabField& tabs, QTabBar& bar) const {
  while (bar.count() < tabs.Count() && !qobject_cast<QTabWidget*>(bar.parentWidget()))
    bar.addTab(QString());
  for (int i = 0; i < std::min(bar.count(), tabs.Count()); ++i) {
    bar.setTabText(i, ToQt(tabs.TabCaption(i)));
    bar.setTabVisible(i, tabs.TabVisible(i));
    bar.setTabEnabled(i, tabs.TabEnabled(i));
    bar.setTabIcon(i, tabs.TabMarked(i) ? TabMark() : QIcon());
  }
  bar.setCurrentIndex(tabs.Selected());
}

// What has words of its own needs no name.
void Binder::NameForReaders(Bound& bound) {
  QString& name = bound.spoken;
  const auto* button = qobject_cast<const QAbstractButton*>(bound.widget);
  if (name.isEmpty() && button && !button->text().isEmpty()) return;
  for (const QLabel* caption : bound.captions)
    if (name.isEmpty()) name = PlainCaption(caption->text());
  if (qobject_cast<QLabel*>(bound.widget)) return SayValue(bound);
  if (name.isEmpty()) name = bound.widget->toolTip();
  if (name.isEmpty() && TabBarOf(*bound.widget)) name = tr("Tabs");
  bound.widget->setAccessibleName(name);
  // On Linux the name of a combo box is its value, and a label beside it tells what it is.
  if (qobject_cast<QComboBox*>(bound.widget) && bound.captions.empty())
    bound.widget->setAccessibleDescription(name);
}

// A label says what it is and what it shows; one that shows nothing is silent. Each name that is
// set is told to those who listen, so only another one is.
void Binder::SayValue(const Bound& bound) {
  QString said = ToQt(bound.field->Text()).simplified();
  if (!said.isEmpty() && !bound.spoken.isEmpty()) said = tr("%1: %2").arg(bound.spoken, said);
  if (bound.widget->accessibleName() != said) bound.widget->setAccessibleName(said);
}

void Binder::CaptionChanged() {
  if (onCaptionChanged) onCaptionChanged();
}

void Binder::BringToFront(QWidget& widget) {
  for (QWidget* page = &widget; page; page = page->parentWidget()) {
    for (Bound& bound : bound_) {
      auto* tabs = qobject_cast<QTabWidget*>(bound.widget);
      const int index = tabs ? tabs->indexOf(page) : -1;
      if (index >= 0 && index != tabs->currentIndex())
        static_cast<TabField&>(*bound.field).SetSelected(index);
    }
  }
}

void Binder::FocusRequested(Field& field) {
  QWidget* widget = WidgetOf(field);
  if (!widget) return;
  BringToFront(*widget);
  // Of tabs, what stands on the page in front.
  const auto* tabs = qobject_cast<QTabWidget*>(widget);
  if (QWidget* first = tabs ? FirstIn(view_, *tabs->currentWidget()) : nullptr) widget = first;
  widget->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(widget)) line->selectAll();
}

void Binder::TakeFirstFocus() {
  if (screen_.Focused()) return FocusRequested(*screen_.Focused());
  QWidget* first = FirstIn(view_, view_);
  (first ? first : &view_)->setFocus(Qt::TabFocusReason);
}

void Binder::CellEditRequested(Grid& grid, int row, int col) {
  GridView* view = ViewOf(grid);
  if (!view) return;
  BringToFront(*view);
  view->EditCellAt(row, col);
}

void Binder::ScreenClosed() {
  if (onClosed) onClosed();
}

}  // namespace lm
