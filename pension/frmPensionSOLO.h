// The window of one Form SOLO.
#pragma once

#include "core/screen.h"
#include "pension/formlist.h"
#include "pension/formwindow.h"

namespace lm {

class frmPensionSOLO : public FormWindow {
 public:
  explicit frmPensionSOLO(Ledger& ledger);

  LabelField lblPractice{this, "lblPractice"};
  LabelField lblSentToHANote{this, "lblSentToHANote"};

  LabelField lblSessionsHelp{this, "lblSessionsHelp"};
  Grid fgSessions{"fgSessions"};

 private:
  void Filled() override;
  void ShowSessions();

  SessionOpener sessionRules_;
};

}  // namespace lm
