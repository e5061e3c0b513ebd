// The practice window. Each column of fgPractices but BRANCHOF is edited in the box named "txt" and
// the column's key, so that a new column needs only a box of that name.
#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"

namespace lm {

class frmPractice : public Screen {
 public:
  explicit frmPractice(Ledger& ledger);

  void New();
  bool Open(std::string_view id);  // false when there is no such practice

  TabField tabMain{
      this,
      "tabMain",
      {"Practice", "Contact", "Partners", "Notes", "Invoice Note", "Rates", "GPnetworks Data"}};

  TextField txtID{this, "txtID"};  // empty while the practice is new
  TextField txtName{this, "txtName"};
  TextField txtPCode{this, "txtPCode"};
  TextField txtODS_CODE{this, "txtODS_CODE"};
  TextField txtPCT{this, "txtPCT"};
  TextField txtMileage{this, "txtMileage"};
  LabelField lblMileageHelp{this, "lblMileageHelp"};

  TextField txtAddr1{this, "txtAddr1"};
  TextField txtAddr2{this, "txtAddr2"};
  TextField txtAddr3{this, "txtAddr3"};
  TextField txtAddr4{this, "txtAddr4"};
  TextField txtPostcode{this, "txtPostcode"};
  TextField txtPhone{this, "txtPhone"};
  TextField txtFax{this, "txtFax"};
  TextField txtEmail{this, "txtEmail"};
  TextField txtWeb{this, "txtWeb"};
  TextField txtPManager{this, "txtPManager"};

  TextField txtPartners{this, "txtPartners"};
  TextField txtNotes{this, "txtNotes"};
  TextField txtInvoiceNote{this, "txtInvoiceNote"};
  LabelField lblInvoiceNoteHelp{this, "lblInvoiceNoteHelp"};

  TextField txtRate_Normal{this, "txtRate_Normal"};
  TextField txtRate_OOHS{this, "txtRate_OOHS"};
  TextField txtRate_OOHD{this, "txtRate_OOHD"};
  TextField txtRate_Unpensioned{this, "txtRate_Unpensioned"};
  TextField txtRate_Private{this, "txtRate_Private"};
  Button cmdRate_Normal{this, "cmdRate_Normal"};
  Button cmdRate_OOHS{this, "cmdRate_OOHS"};
  Button cmdRate_OOHD{this, "cmdRate_OOHD"};
  Button cmdRate_Unpensioned{this, "cmdRate_Unpensioned"};
  Button cmdRate_Private{this, "cmdRate_Private"};
  LabelField lblRatesHelp{this, "lblRatesHelp"};
  LabelField lblRatesUse{this, "lblRatesUse"};

  TextField txtGPNet_Match{this, "txtGPNet_Match"};

  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  void Bind();
  void Load(int row);  // -1 empties the boxes
  bool CheckRate(Field& field);
  bool CheckMileage();
  void Save();
  Field* BoxOf(int col) const;  // null for a column without a box
};

}  // namespace lm
