// Stands over the program while work lasts: how far it has come, and at what it is.
#pragma once

#include <QDialog>
#include <string_view>

class QLabel;
class QProgressBar;

namespace lm {

class ProgressWindow : public QDialog {
  Q_OBJECT
 public:
  explicit ProgressWindow(QWidget* parent);

  // percent is cut to 0..100; -1 leaves the bar and changes the text only.
  void SetProgress(int percent, std::string_view text);

 protected:
  void showEvent(QShowEvent* event) override;
  // The user does not end the work by closing its window.
  void reject() override {}
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel* lblProgress_;
  QProgressBar* bar_;
};

}  // namespace lm
