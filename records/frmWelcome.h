// A first start: asks once whose program this is. The name stands on invoices, forms and mails and
// can be changed nowhere else.
#pragma once

#include "core/screen.h"

namespace lm {

class frmWelcome : public Screen {
 public:
  explicit frmWelcome(Ledger& ledger);

  LabelField lblWelcome{this, "lblWelcome"};
  TextField txtTitle{this, "txtTitle"};
  TextField txtFirstName{this, "txtFirstName"};
  TextField txtLastName{this, "txtLastName"};
  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  void Save();
};

}  // namespace lm
