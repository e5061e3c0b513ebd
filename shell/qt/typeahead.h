// Typing into a list to choose from that is closed: "St J" chooses St John's. A space in the midst
// of that is a letter like others and does not drop the list down.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QComboBox;

namespace lm {

// For all lists of the application, as long as it lives.
class TypeAhead : public QObject {
 public:
  TypeAhead();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Typing(const QComboBox& list) const;

  QPointer<QComboBox> list_;  // into which a letter was typed last,
  QElapsedTimer since_;       // and when
};

}  // namespace lm
