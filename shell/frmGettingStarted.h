// The first three steps of a new user, each with a button that goes there.
#pragma once

#include "core/screen.h"

namespace lm {

class frmMain;

class frmGettingStarted : public Screen {
 public:
  explicit frmGettingStarted(frmMain& main);

  LabelField lblIntroduction{this, "lblIntroduction"};
  LabelField lblPractices{this, "lblPractices"};  // what the step is for, and what is done of it
  Button cmdPractices{this, "cmdPractices"};
  LabelField lblMyDetails{this, "lblMyDetails"};
  Button cmdMyDetails{this, "cmdMyDetails"};
  LabelField lblSessions{this, "lblSessions"};
  Button cmdSessions{this, "cmdSessions"};
  Button cmdClose{this, "cmdClose"};

 private:
  void ShowSteps();

  frmMain& main_;
};

}  // namespace lm
