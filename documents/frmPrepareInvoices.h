// The window from which a batch of invoices is made.
#pragma once

#include <optional>

#include "core/screen.h"
#include "documents/prepareinvoices.h"

namespace lm {

class frmPrepareInvoices : public Screen {
 public:
  explicit frmPrepareInvoices(Ledger& ledger);

  ComboField cboPractice{this, "cboPractice"};

  // Exactly one of the three is ticked.
  CheckField optCreateInvoices0{this, "optCreateInvoices0"};
  CheckField optCreateInvoices1{this, "optCreateInvoices1"};
  CheckField optCreateInvoices2{this, "optCreateInvoices2"};

  TextField txtSDate{this, "txtSDate"};
  Button cmdStartDate{this, "cmdStartDate"};
  TextField txtEDate{this, "txtEDate"};
  Button cmdEndDate{this, "cmdEndDate"};
  LabelField lblThisMonth{this, "lblThisMonth"};
  LabelField lblLastMonth{this, "lblLastMonth"};

  TextField txtIDate{this, "txtIDate"};
  Button cmdInvoiceDate{this, "cmdInvoiceDate"};
  LabelField imgInvoiceDateHelp{this, "imgInvoiceDateHelp"};

  LabelField lblPreview{this, "lblPreview"};  // what Create would do

  Button cmdCreateInvoices{this, "cmdCreateInvoices"};
  Button cmdClose{this, "cmdClose"};

 private:
  void Choose(CheckField& option);
  void ChooseMonth(int monthsFromNow);
  std::optional<InvoiceBatch> Chosen() const;
  void ShowPreview();
  void CreateInvoices();
};

}  // namespace lm
