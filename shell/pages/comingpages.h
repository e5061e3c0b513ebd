// Pages whose content is not there yet: they say so, and the lists among them show what was read
// from the file.
#pragma once

#include "shell/pages/mainpage.h"

namespace lm {

class TodayPage : public MainPage {
 public:
  explicit TodayPage(frmMain& window);
};

}  // namespace lm
