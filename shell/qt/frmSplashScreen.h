// The splash window: who we are, who was here last, and how far the start has come.
#pragma once

#include <QWidget>
#include <string_view>

class QLabel;
class QProgressBar;

namespace lm {

class frmSplashScreen : public QWidget {
  Q_OBJECT
 public:
  explicit frmSplashScreen(std::string_view version);

  // percent is cut to 0..100; -1 leaves the bar and changes the text only.
  void SetProgressBar(int percent, std::string_view text);
  void ShowLastOpened(std::string_view text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* lblLastLoad_;
  QLabel* lblProgress_;
  QProgressBar* imgProgressBarIndicator_;
};

}  // namespace lm
