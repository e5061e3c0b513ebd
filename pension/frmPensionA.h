// The window of one Form A.
#pragma once

#include <string>

#include "core/screen.h"
#include "pension/formlist.h"
#include "pension/formwindow.h"

namespace lm {

class frmPensionA : public FormWindow {
 public:
  explicit frmPensionA(Ledger& ledger);

  LabelField lblPractice{this, "lblPractice"};
  TextField cSentToPractice{this, "cSentToPractice"};
  Button cmdSentToPractice{this, "cmdSentToPractice"};
  LabelField imgSentToPractice_Help{this, "imgSentToPractice_Help"};
  TextField cRcvdFromPractice{this, "cRcvdFromPractice"};
  Button cmdRcvdFromPractice{this, "cmdRcvdFromPractice"};
  LabelField imgRecvdFromPractice_Help{this, "imgRecvdFromPractice_Help"};
  LabelField lblPensionBDetails{this, "lblPensionBDetails"};

  // The blocks of days that the paper lists, each with its sessions below, and a row of totals.
  // GROUP numbers the blocks; a block's own row has an outline level and no ID.
  LabelField lblGroupingHelp{this, "lblGroupingHelp"};
  Grid fgGrouping{"fgGrouping"};
  LabelField lblSessionsHelp{this, "lblSessionsHelp"};
  Grid fgSessions{"fgSessions"};

 private:
  void Filled() override;

  bool CheckReceived();
  bool OnFormB() const;
  void ShowState();
  void ShowSessions();
  void ShowReceivedHelp();

  std::string received_;  // the date that stands, while another may be typed
  SessionOpener groupingRules_;
  SessionOpener sessionRules_;
};

}  // namespace lm
