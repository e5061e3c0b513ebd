// The one window in which everything is looked at before it is printed.
#pragma once

#include <QString>
#include <functional>

class QPrinter;
class QWidget;

namespace lm {

// Returns when the window is closed. `paint` may be called several times: the user turns the paper.
void ShowPrintPreview(const QString& title, const std::function<void(QPrinter&)>& paint,
                      QWidget* parent);

}  // namespace lm
