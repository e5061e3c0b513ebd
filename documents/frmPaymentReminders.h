// The window from which all practices are reminded that are late with their payments.
#pragma once

#include <memory>
#include <vector>

#include "core/screen.h"
#include "documents/statements.h"

namespace lm {

class frmPaymentReminders : public Screen {
 public:
  explicit frmPaymentReminders(Ledger& ledger);
  ~frmPaymentReminders() override;

  LabelField lblSummary{this, "lblSummary"};  // "3 invoices of 2 practices are overdue, £1,234.00."
  Grid fgReminders{"fgReminders"};            // a row for each practice, its tick in SEND

  // Exactly one of the two is ticked.
  CheckField optBy0{this, "optBy0"};  // by e-mail
  CheckField optBy1{this, "optBy1"};  // letters

  Button cmdSend{this, "cmdSend"};
  Button cmdClose{this, "cmdClose"};

  void CellClicked(Grid& grid, int row, int col) override;

 private:
  class Rules;

  void Choose(const CheckField& option);
  void ShowStatements();
  void Send();

  std::vector<Statement> statements_;
  std::unique_ptr<Rules> rules_;
};

}  // namespace lm
