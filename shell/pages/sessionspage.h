// The Sessions page: the sessions of a period, grouped if wished, and what is done to them.
#pragma once

#include "records/sessionlist.h"
#include "shell/pages/mainpage.h"

namespace lm {

class SessionsPage : public MainPage {
 public:
  explicit SessionsPage(frmMain& window);

  TabField tabSessions{&window, "tabSessions", SessionPeriodCaptions()};
  TextField txtFilterSessions{&window, "txtFilterSessions"};
  ComboField cboGroupSessions{&window, "cboGroupSessions"};
  LabelField lblGrpBySession{&window, "lblGrpBySession"};
  LabelField lblCollapseSessions{&window, "lblCollapseSessions"};
  Button cmdAddSession{&window, "cmdAddSession"};
  Button cmdAddManySessions{&window, "cmdAddManySessions"};
  Button cmdEditSession{&window, "cmdEditSession"};
  Button cmdCopySession{&window, "cmdCopySession"};
  Button cmdDeleteSession{&window, "cmdDeleteSession"};

  void ShowTip() override;

 private:
  void AddButtons();
  void AddCommands();
  void AddTips();
  void AddToInvoice();
  void Invoice(bool (*change)(Ledger& ledger, const std::string& id));
  void ShowCurrentTip();

  SessionListRules rules_{ledger};
  RecordList& list_;
};

}  // namespace lm
