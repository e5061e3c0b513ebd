// The types of charts as a row of pictures.
#pragma once

#include <QListWidget>

#include "shell/qt/views.h"

namespace lm {

class ChartTypeList : public QListWidget, public ScreenPart {
  Q_OBJECT
 public:
  explicit ChartTypeList(QWidget* parent = nullptr);
  void AttachTo(Screen& screen) override;
};

}  // namespace lm
