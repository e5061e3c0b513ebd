// The pages of the main window as widgets, named after the screen's fields and tables.
#pragma once

#include "shell/pages.h"

class QStackedWidget;
class QWidget;

namespace lm {

// The frame of one page. A page without content of its own yet shows its drawing and its note.
QWidget* MakePage(Page page);

constexpr const char* kFormStack = "stackForms";  // the Pension page's lists, in the tabs' order

}  // namespace lm
