// The box above a list whose words narrow it. Down goes on into the list, a button in it clears it.
#pragma once

#include <QLineEdit>

namespace lm {

class FilterBox : public QLineEdit {
  Q_OBJECT
  // Escape empties the box; of an empty one, and without this, it is the window's key.
  Q_PROPERTY(bool escapeClears MEMBER escapeClears_)

 public:
  explicit FilterBox(QWidget* parent = nullptr);

 signals:
  void entered();  // it got the focus

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool GoToList();

  bool escapeClears_ = false;
};

}  // namespace lm
