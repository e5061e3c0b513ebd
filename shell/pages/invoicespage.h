// The Invoices page: which invoices wait for what, grouped if wished, and what is done to them.
#pragma once

#include "documents/invoicelist.h"
#include "shell/pages/mainpage.h"

namespace lm {

class InvoicesPage : public MainPage {
 public:
  explicit InvoicesPage(frmMain& window);

  TabField tabInvoices{&window, "tabInvoices", InvoiceStateCaptions()};
  TextField txtFilterInvoices{&window, "txtFilterInvoices"};
  ComboField cboGroupInvoices{&window, "cboGroupInvoices"};
  LabelField lblGrpByInvoice{&window, "lblGrpByInvoice"};
  LabelField lblCollapseInvoices{&window, "lblCollapseInvoices"};
  Button cmdAddInvoice{&window, "cmdAddInvoice"};
  Button cmdEditInvoice{&window, "cmdEditInvoice"};
  Button cmdViewInvoice{&window, "cmdViewInvoice"};
  Button cmdViewInvoice_Options{&window, "cmdViewInvoice_Options"};
  Button cmdDeleteInvoice{&window, "cmdDeleteInvoice"};

 private:
  void AddButtons();
  void AddCommands();
  void Mark(std::string_view key, std::string_view caption);
  void OpenDocument(bool recreate);

  InvoiceListRules rules_{ledger};
  RecordList& list_;
};

}  // namespace lm
