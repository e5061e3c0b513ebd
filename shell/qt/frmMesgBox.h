// The one window for all messages. Tips have a strip of their own.
#pragma once

#include <QDialog>

#include "core/platform.h"

class QPushButton;
class QVBoxLayout;

namespace lm {

// The buttons of a message, in the order in which they stand.
std::vector<Answer> AnswersOf(Buttons buttons);
// The button that does the least: Cancel, else No, else OK. It stands last; Escape and the frame's
// close box mean it.
Answer SafeAnswer(Buttons buttons);
// What Enter answers: no more than is asked for. OK of OK and Cancel is the advice; a question is
// answered with its safe button.
Answer EnterAnswer(Buttons buttons);

class frmMesgBox : public QDialog {
  Q_OBJECT
 public:
  explicit frmMesgBox(const MessageBoxText& message, QWidget* parent = nullptr);

  Answer Pressed() const { return pressed_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void reject() override;

 private:
  void AddTexts(const MessageBoxText& message, QVBoxLayout& column);
  void AddButtons(const MessageBoxText& message, QVBoxLayout& column);

  Answer safe_;
  Answer pressed_;
  QPushButton* enterButton_ = nullptr;
};

// Middle of the window over the middle of the main window, or of the screen when that is not shown.
void CentreWindow(QWidget& window);
// The main window, shown or not; null when there is none yet.
QWidget* MainWindowWidget();

}  // namespace lm
