// The tips of the program, one at a time, as a strip above the page. It covers nothing, takes no
// keys from whoever types, and waits until other windows are closed. A tip that the user closed is
// not shown again, in later runs neither.
#pragma once

#include <QFrame>
#include <deque>
#include <filesystem>
#include <functional>

class QCheckBox;
class QLabel;

namespace lm {

class TipStrip : public QFrame {
  Q_OBJECT
 public:
  // The file of the closed tips stands in the program's directory. One that is damaged or missing
  // knows of none; one that cannot be written lets them come again in the next run.
  explicit TipStrip(const std::filesystem::path& programDirectory, QWidget* parent = nullptr);

  // `stopTips` is called when the user closes the tip and wants no others.
  void Add(const QString& heading, const QString& text, std::function<void()> stopTips);
  void CloseTip();

 signals:
  void tipClosed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Tip {
    QString heading, text;
    std::function<void()> stopTips;
    QString Key() const;
  };

  void ShowNext();
  QStringList ClosedTips() const;

  QString file_;
  std::deque<Tip> tips_;  // the front one is shown, once its turn has come
  QLabel* txtMainPrompt_;
  QLabel* txtMinorPrompt_;
  QCheckBox* chkStopShowingTips_;
};

// The strip of the main window; null when there is none.
TipStrip* MainWindowTips();

}  // namespace lm
