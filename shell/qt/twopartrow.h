// A row of two parts, one at the left and one at the right; where there is no room for both side by
// side the right one goes below.
#pragma once

#include <QLayout>
#include <array>
#include <memory>

namespace lm {

class TwoPartRow : public QLayout {
 public:
  TwoPartRow(QLayout* left, QLayout* right, int spacing);

  void addItem(QLayoutItem* item) override;  // takes no third one
  int count() const override;
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& place) override;

 private:
  bool SideBySide(int width) const;

  std::array<std::unique_ptr<QLayoutItem>, 2> parts_;
};

}  // namespace lm
