// The Practices page.
#pragma once

#include "records/practicelist.h"
#include "shell/pages/mainpage.h"

namespace lm {

class PracticesPage : public MainPage {
 public:
  explicit PracticesPage(frmMain& window);

  TextField txtFilterPractices{&window, "txtFilterPractices"};
  Button cmdAddPractice{&window, "cmdAddPractice"};
  Button cmdEditPractice{&window, "cmdEditPractice"};
  Button cmdDeletePractice{&window, "cmdDeletePractice"};

 private:
  PracticeListRules rules_{ledger};
  RecordList& list_;
};

}  // namespace lm
