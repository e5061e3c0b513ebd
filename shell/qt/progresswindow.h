// Stands over the program while work lasts: how far it has come, and at what it is.
#pragma once

#include <QDialog>
#include <string_view>

class QLabel;
class QProgressBar;
class QPushButton;

namespace lm {

class ProgressWindow : public QDialog {
  Q_OBJECT
 public:
  explicit ProgressWindow(QWidget* parent);

  // percent is cut to 0..100; -1 leaves the bar and changes the text only.
  void SetProgress(int percent, std::string_view text);
  void OfferCancel();
  bool Cancelled() const { return cancelled_; }

 protected:
  void showEvent(QShowEvent* event) override;
  // Escape ends only work that offers Cancel, and only by saying so to it.
  void reject() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel* lblProgress_;
  QProgressBar* bar_;
  QPushButton* cmdCancel_;
  bool cancelled_ = false;
};

}  // namespace lm
