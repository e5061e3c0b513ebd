// Keeps sessions and the appointments of Outlook's calendar in step.
#pragma once

#include "connections/outlooksync.h"
#include "core/screen.h"

namespace lm {

class frmSynchroniseOutlook : public Screen {
 public:
  explicit frmSynchroniseOutlook(Ledger& ledger);

  LabelField lblOutlookNotInstalled{this, "lblOutlookNotInstalled"};
  LabelField lblLastSync{this, "lblLastSync"};
  LabelField lblProgress{this, "lblProgress"};
  Button cmdUpdateOutlook{this, "cmdUpdateOutlook"};
  Button cmdPurge{this, "cmdPurge"};
  Button cmdOptions{this, "cmdOptions"};
  Button cmdClose{this, "cmdClose"};

 private:
  void ShowWhetherReachable();
  void ShowLastSync();
  void StoreLastSync();
  void Update();
  void PurgeAll();
  using Work = OutlookRun(Ledger& ledger, OutlookPort& outlook, const OutlookProgress& progress);
  OutlookRun Run(Work& work);
  bool ToldEarlyEnd(const OutlookRun& run);
};

}  // namespace lm
