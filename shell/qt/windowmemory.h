// Remembers how the user left each window: its size, its place and whether it was maximised.
#pragma once

#include <QRect>
#include <QString>
#include <filesystem>

class QWidget;

namespace lm {

class WindowMemory {
 public:
  // The file of the windows in the program's directory. One that is damaged or missing remembers
  // nothing; one that cannot be written stays as it is.
  WindowMemory(const std::filesystem::path& programDirectory, const QString& window);

  // Gives the window what is remembered, as far as a screen of now has room for it; what is not
  // remembered stays as it stands. To be called before the window is shown. `maximised`: in any
  // case.
  void Restore(QWidget& window, bool maximised = false);
  // Keeps what the user changed since then. A window that was only looked at keeps what it had, so
  // that an evening at a small screen does not shrink it for the large one.
  void Keep(const QWidget& window) const;

 private:
  QString file_;
  QString name_;
  QRect given_;
  bool maximised_ = false;
};

}  // namespace lm
