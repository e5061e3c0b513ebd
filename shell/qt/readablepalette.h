// What is disabled here is still there to be read: a session on an invoice shows all its figures in
// disabled boxes. Styles draw such text in a grey that is too faint for that.
#pragma once

#include <QObject>
#include <QPalette>

namespace lm {

// The palette with all texts standing out from their grounds: disabled ones in a grey that does,
// links, hints in empty boxes, and what is selected.
QPalette ReadablePalette(QPalette palette);

// Keeps the application's palette so, whichever theme the desktop changes to.
class PaletteKeeper : public QObject {
 public:
  PaletteKeeper();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace lm
