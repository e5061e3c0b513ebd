// The user guide in a window of its own: contents at the left, words to find above the text. It
// stands beside the window that asked for it and stops nobody from working there.
#pragma once

#include <QDialog>
#include <QTextCursor>
#include <functional>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace lm {

class GuideBrowser;

class frmHelp : public QDialog {
  Q_OBJECT
 public:
  explicit frmHelp(QWidget* parent);
  void GoTo(const QString& heading);

  std::function<void(const QString&)> openLink;  // gets the links that lead out of the guide

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QHBoxLayout* MakeBar();
  QWidget* MakeContents();
  void FillContents();
  void ShowPlace();
  void Search();
  void Step(int step);
  void ShowFound();

  GuideBrowser* txtGuide_;
  QTreeWidget* lstContents_ = nullptr;
  QLineEdit* txtSearch_ = nullptr;
  QLabel* lblFound_ = nullptr;
  QPushButton* cmdPrevious_ = nullptr;
  QPushButton* cmdNext_ = nullptr;
  QList<QTextCursor> found_;
  int current_ = 0;
};

// Opens the guide at a heading, beside `over`, which may be null. The window that is open there is
// used again; one that stands elsewhere, where it might be out of reach, is closed.
frmHelp& ShowGuideBeside(QWidget* over, const QString& heading);

}  // namespace lm
