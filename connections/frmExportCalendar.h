// The window that writes sessions to a calendar file.
#pragma once

#include "core/screen.h"

namespace lm {

class frmExportCalendar : public Screen {
 public:
  explicit frmExportCalendar(Ledger& ledger);

  TextField txtSDate{this, "txtSDate"};
  Button cmdStartDate{this, "cmdStartDate"};
  TextField txtEDate{this, "txtEDate"};
  Button cmdEndDate{this, "cmdEndDate"};
  ComboField cboPractice{this, "cboPractice"};
  TextField txtExportCategory{this, "txtExportCategory"};
  ComboField cboExportClass{this, "cboExportClass"};
  CheckField chkRfc5545{this, "chkRfc5545"};
  TextField txtExportFile{this, "txtExportFile"};
  Button cmdSelectExportFile{this, "cmdSelectExportFile"};

  Button cmdExport{this, "cmdExport"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  void SelectFile();
  void Export();
};

}  // namespace lm
