// The Expenses page: costs of the work that no practice is billed for.
#pragma once

#include "records/expenselist.h"
#include "shell/pages/mainpage.h"

namespace lm {

class ExpensesPage : public MainPage {
 public:
  explicit ExpensesPage(frmMain& window);

  TabField tabExpenses{&window, "tabExpenses", {"Recent", "This Tax Year", "All"}};
  TextField txtFilterExpenses{&window, "txtFilterExpenses"};
  ComboField cboGroupExpenses{&window, "cboGroupExpenses"};
  LabelField lblGrpByExpense{&window, "lblGrpByExpense"};
  LabelField lblCollapseExpenses{&window, "lblCollapseExpenses"};
  Button cmdAddExpense{&window, "cmdAddExpense"};
  Button cmdEditExpense{&window, "cmdEditExpense"};
  Button cmdDeleteExpense{&window, "cmdDeleteExpense"};

 private:
  RowTest ShownOn(int tab) const;
  void EditSelected();

  ExpenseListRules rules_{ledger};
  RecordList& list_;
};

}  // namespace lm
