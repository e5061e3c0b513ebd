// Connects a view with its screen by names: the widget `cSDate` shows and changes the field cSDate,
// whatever its case. What the user typed reaches the screen when the field is left; a refused text
// keeps the focus.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <list>
#include <vector>

#include "core/screen.h"

class QAbstractButton;
class QComboBox;
class QKeyEvent;
class QLabel;
class QTabBar;
class QTabWidget;
class QWidget;

namespace lm {

class GridView;

class Binder : public QObject, private ScreenObserver {
  Q_OBJECT
 public:
  // Both outlive the binder.
  Binder(QWidget& view, Screen& screen);
  ~Binder() override;
  // Binds what stands in `part`, which has come into the view since.
  void Add(QWidget& part);

  // Null for a field or a list that the view does not show, or not yet.
  QWidget* WidgetOf(const Field& field) const;
  GridView* ViewOf(const Grid& grid) const;
  // Hands over what was typed and not yet left. False when a field refused it.
  bool CommitPending();
  // Presses a field after what was typed has been taken; the cancel button does not wait for that.
  void Press(Field& field);
  // What was typed in a box and not yet left.
  bool HasPending() const;
  // The focus where the screen wants it, or on the first field.
  void TakeFirstFocus();

  std::function<void()> onCaptionChanged;
  std::function<void()> onClosed;
  std::function<bool()> mayCancel;  // nothing set: always

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Bound {
    Field* field = nullptr;
    QWidget* widget = nullptr;
    std::vector<QLabel*> captions;     // the labels that name it; hidden with it
    std::vector<QWidget*> companions;  // frames and lists that are shown with it, as they name it
    QString spoken{};                  // what readers of the screen call it
  };

  void FieldChanged(Field& field) override;
  void CaptionChanged() override;
  void FocusRequested(Field& field) override;
  void CellEditRequested(Grid& grid, int row, int col) override;
  void ScreenClosed() override;

  void Connect(Bound& bound);
  void ConnectTabs(Bound& bound, QTabBar& bar);
  void ConnectShortcuts();
  static void NameForReaders(Bound& bound);
  static void SayValue(const Bound& bound);
  void Show(const Bound& bound);
  void ShowDefaultButton();
  void ShowText(const Bound& bound);
  void ShowLabel(const Bound& bound, QLabel& label) const;
  void ShowTabs(const TabField& tabs, QTabBar& bar) const;
  void Choose(ChoiceField& field, int index);
  bool Commit(Bound& bound);
  bool CommitBoxes();  // of the text boxes; lists have editors of their own
  void CommitLater();
  QAbstractButton* PickerOf(const QWidget& box) const;
  bool HandleKey(QWidget& box, const QKeyEvent& key);
  Bound* Of(const QObject* widget);
  Bound* Of(const Field& field);
  void BringToFront(QWidget& widget);

  QWidget& view_;
  Screen& screen_;
  // Lists, since what a field does may add a part while they are walked through.
  std::list<Bound> bound_;
  std::list<GridView*> grids_;
  std::vector<QPointer<QWidget>> left_;  // text boxes that lost the focus and wait for their turn
  const Button* shownDefault_ = nullptr;
  bool showing_ = false;  // the view follows the screen; not an act of the user
  bool committing_ = false;
};

// The tab bar that shows a tab field: the widget itself or its own. Null when it has none.
QTabBar* TabBarOf(QWidget& widget);

}  // namespace lm
