// The band under a list: its records in words, and the sums of its money columns, each under its
// column.
#pragma once

#include <QWidget>
#include <functional>

#include "shell/listfoot.h"

class QLabel;

namespace lm {

class GridView;

class FootBand : public QWidget {
  Q_OBJECT

 public:
  // The list outlives the band.
  FootBand(GridView& list, std::function<ListFoot()> read, std::function<void()> showAll);

  // Reads it anew.
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QSize sizeHint() const override;

 private:
  struct Place {
    int left, right;  // in pixels of the band
    QString text;
  };
  // From left to right, of the columns that are in sight.
  std::vector<Place> Places() const;
  QFont SumFont() const;
  QStringList Sums() const;  // "Rate 5,122.50"
  void Arrange();

  GridView& list_;
  std::function<ListFoot()> read_;
  ListFoot foot_;
  QLabel* count_;
};

}  // namespace lm
