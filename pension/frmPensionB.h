// The window of one Form B.
#pragma once

#include "core/screen.h"
#include "pension/formwindow.h"

namespace lm {

class frmPensionB : public FormWindow {
 public:
  explicit frmPensionB(Ledger& ledger);

  LabelField lblUPR{this, "lblUPR"};  // the user's pension scheme number
  LabelField lblSentToHANote{this, "lblSentToHANote"};

  LabelField lblPensionAHelp{this, "lblPensionAHelp"};
  Grid fgPensionA{"fgPensionA"};  // the Forms A that came back in the month, and a line "Total"

 private:
  void Filled() override;  // the list of Forms A
};

}  // namespace lm
