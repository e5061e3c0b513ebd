// The record windows: which view shows which screen, and the dialog that carries it.
#pragma once

#include <QDialog>
#include <memory>
#include <span>
#include <string_view>

#include "core/screen.h"
#include "shell/qt/windowmemory.h"

namespace lm {

class Binder;

struct ViewSpec {
  std::string_view screen;
  void (*build)(QDialog& dialog);  // fills the dialog from its .ui
};

// Every .ui file of this folder; the build writes them down.
std::span<const ViewSpec> Views();
const ViewSpec* FindView(std::string_view screen);  // null when no view is registered

// A widget that shows more of a screen than one field or list: it is handed the screen, whose
// fields are bound by then, and which outlives it.
class ScreenPart {
 public:
  virtual ~ScreenPart() = default;
  virtual void AttachTo(Screen& screen) = 0;
};

// A screen in its window. Closing the frame and Escape ask the screen, which closes or not; what
// was changed in a window that holds a record is not thrown away without a question. A view with
// the property "popup" drops without a frame below what opened it, and closes when the user clicks
// elsewhere.
class ScreenDialog : public QDialog {
  Q_OBJECT
 public:
  ScreenDialog(const ViewSpec& view, Screen& screen, QWidget* parent);
  ~ScreenDialog() override;
  Binder& Bindings() { return *binder_; }
  // Comes where it was left, else over the main window, and never larger than the screen.
  void setVisible(bool visible) override;

 protected:
  bool event(QEvent* event) override;
  void reject() override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MayCancel();
  void TakePlace();
  void ShowGuide();
  void DropBelow(const QWidget* anchor);

  Screen& screen_;
  bool popup_ = false;
  QSize tooLarge_;  // what the window still needs though all scrolls
  WindowMemory memory_;
  std::unique_ptr<Binder> binder_;
};

// Shows the screen over `parent` until it has closed. A screen without a view is closed at once.
void RunView(Screen& screen, QWidget* parent);

// What was pressed last in a window: a picker drops below it.
void SetPickerAnchor(QWidget& widget);

}  // namespace lm
