// The extras and expenses of the session window.

#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/text.h"
#include "records/frmSession.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

std::string CannotAdd(std::string_view one, std::string_view where) {
  return "You cannot add " + std::string(one) + " items to a session which is already on " +
         std::string(where) + ".";
}

}  // namespace

void frmSession::BindItems() {
  lblHelpExtras.SetText(
      "Extras are additional items for the session. These items are pensionable.");
  lblHelpExpenses.SetText(
      "Expenses are costs incurred for the session. These items are not pensionable.");
  for (ItemList* list : {&extras_, &expenses_}) {
    list->rows.onRateEdited = [this, list] { ItemsChanged(*list); };
    list->rows.onAddPressed = [this, list] { AddItem(*list); };
    list->rows.onDeletePressed = [this, list] { DeleteItem(*list); };
  }
  cmdAddExtra.onPressed = [this] { AddItem(extras_); };
  cmdDeleteExtra.onPressed = [this] { DeleteItem(extras_); };
  cmdAddExpense.onPressed = [this] { AddItem(expenses_); };
  cmdDeleteExpense.onPressed = [this] { DeleteItem(expenses_); };
  cmdAddMileageCharge.onPressed = [this] { AddMileageCharge(); };
}

int frmSession::NewItemRow(ItemList& list) {
  const int row = list.rows.Add(cID.Text(), "[New " + list.one + "]");
  tabMain.SetSelected(list.tab);
  MarkTabs();
  return row;
}

void frmSession::AddItem(ItemList& list) {
  if (Locked()) {
    ShowMessage(ledger, CannotAdd(list.one, Invoiced() ? "an invoice" : "a pension form"));
    return;
  }
  const int row = NewItemRow(list);
  Grid& grid = list.rows.grid();
  RequestCellEdit(grid, row, grid.ColIndex("ITEM"));
}

void frmSession::DeleteItem(ItemList& list) {
  if (!list.rows.HasSelected()) {
    ShowMessage(ledger, "There is no " + list.one + " selected to delete.");
    return;
  }
  if (Locked()) {
    ShowMessage(ledger, "Unable to delete " + list.one,
                "You cannot delete " + list.one +
                    "s for a Session which is already on an invoice or pension form.");
    return;
  }
  if (!Ask(ledger, "Delete " + list.one, "Delete the selected " + list.one + "?")) return;
  list.rows.Delete(list.rows.grid().Row());
  MarkTabs();
  ItemsChanged(list);
}

void frmSession::ItemsChanged(ItemList& list) {
  list.sum.SetText(SumOfItems(list.rows.grid()));
  Recalculate();
}

void frmSession::AddMileageCharge() {
  if (Locked()) {
    ShowMessage(ledger, "Add Mileage Charge",
                CannotAdd("Expense", Invoiced() ? "an invoice" : "a pension form"));
    return;
  }
  const auto refuse = [this](std::string_view reason) {
    ShowMessage(ledger, "Unable to add mileage charge", reason);
  };
  if (cPractice.Selected() < 0)
    return refuse(
        "The Practice has not been specified for this Session. The Practice must be specified so "
        "the mileage "
        "to charge for is known.");
  const auto rate = static_cast<Single>(Val(GetOption(ledger, optMileageRate)));
  if (rate == 0)
    return refuse(
        "No mileage expense rate has been specified. This can be entered on the Options screen, on "
        "the Expenses tab.");
  const auto miles =
      static_cast<Single>(Val(PracticeCell(ledger, cPractice.ItemData(), "MILEAGE")));
  if (miles == 0)
    return refuse(
        "The mileage to the Practice has not been entered. This can be entered on the Practices "
        "grid.");

  const int row = NewItemRow(expenses_);
  fgExpenses.SetTextMatrix(row, "ITEM", MileageItem(miles, rate));
  fgExpenses.SetTextMatrix(row, "RATE", Money(miles * rate));
  fgExpenses.SetTextMatrix(row, "CATEGORY", kMileageCategory);
  ItemsChanged(expenses_);
}

}  // namespace lm
