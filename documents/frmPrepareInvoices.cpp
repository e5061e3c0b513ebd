#include "documents/frmPrepareInvoices.h"

#include <cmath>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "entry/pickedboxes.h"

namespace lm {
namespace {

constexpr Date kFirstDay = 0;
constexpr Date kLastDay = 109574;  // the far future

}  // namespace

frmPrepareInvoices::frmPrepareInvoices(Ledger& theLedger)
    : Screen(theLedger, "frmPrepareInvoices", "Prepare Invoices") {
  std::vector<ComboItem> practices = PracticeItems(ledger);
  practices.insert(practices.begin(), {"<ALL PRACTICES>", ""});
  cboPractice.SetItems(std::move(practices));
  cboPractice.SetSelected(0);
  cboPractice.onEntered = [this] {
    ShowPreview();
    return true;
  };

  for (CheckField* option : {&optCreateInvoices0, &optCreateInvoices1, &optCreateInvoices2})
    option->onEntered = [this, option] {
      Choose(*option);
      return true;
    };

  // Whoever gives the first or last day means the sessions between the dates.
  const auto chooseBetween = [this] {
    Choose(optCreateInvoices2);
    return true;
  };
  BindDate({txtSDate, cmdStartDate, "Start Date", "Please enter a valid start date."},
           chooseBetween);
  BindDate({txtEDate, cmdEndDate, "End Date", "Please enter a valid end date."}, chooseBetween);
  BindDate({txtIDate, cmdInvoiceDate, "Invoice Date", "Please enter a valid invoice date."});
  lblThisMonth.SetText("This month");
  lblThisMonth.onPressed = [this] { ChooseMonth(0); };
  lblLastMonth.SetText("Last month");
  lblLastMonth.onPressed = [this] { ChooseMonth(-1); };
  imgInvoiceDateHelp.onPressed = [this] {
    ShowMessage(ledger, "Invoice Date",
                "This is the date that appears on the invoices. \\n\\nIt defaults to today but "
                "can be changed to any date in the past or future. \\n\\n",
                Buttons::Ok, Icon::Information);
  };

  cmdCreateInvoices.SetText("&Create Invoices");
  cmdCreateInvoices.onPressed = [this] { CreateInvoices(); };
  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] {
    Close();
    ShowTip(ledger, "Viewing Invoices",
            "To see your new invoice, click the PDF button at the top of the page (the red and "
            "black button).");
  };
  defaultButton = &cmdCreateInvoices;
  cancelButton = &cmdClose;

  txtIDate.SetText(CellText(ledger.platform.clock.Now()));
  ChooseMonth(0);
}

void frmPrepareInvoices::Choose(CheckField& option) {
  for (CheckField* each : {&optCreateInvoices0, &optCreateInvoices1, &optCreateInvoices2})
    each->SetChecked(each == &option);
  ShowPreview();
}

void frmPrepareInvoices::ChooseMonth(int monthsFromNow) {
  const Date first = FirstOfMonth(AddMonths(ledger.platform.clock.Now(), monthsFromNow));
  txtSDate.SetText(CellText(first));
  txtEDate.SetText(CellText(LastOfMonth(first)));
  Choose(optCreateInvoices2);
}

// Nothing while a date is missing.
std::optional<InvoiceBatch> frmPrepareInvoices::Chosen() const {
  InvoiceBatch batch{kFirstDay, kLastDay, cboPractice.ItemData(), txtIDate.Text()};
  if (optCreateInvoices1.Checked()) batch.last = std::floor(ledger.platform.clock.Now()) - 1;
  if (optCreateInvoices2.Checked()) {
    const auto first = CellDate(txtSDate.Text());
    const auto last = CellDate(txtEDate.Text());
    if (!first || !last) return std::nullopt;
    batch.first = *first;
    batch.last = *last;
  }
  return batch;
}

// What was chosen anew is for Create; what was just done is not done again by a second Enter.
void frmPrepareInvoices::ShowPreview() {
  const auto batch = Chosen();
  lblPreview.SetText(batch ? PreviewInvoices(ledger, *batch) : "");
  SetDefaultButton(cmdCreateInvoices);
}

void frmPrepareInvoices::CreateInvoices() {
  const auto batch = Chosen();
  if (!batch) {
    ShowMessage(ledger, "Invoice Between Dates",
                "Please enter the dates bewteen which you want the sessions invoiced.", Buttons::Ok,
                Icon::Exclamation, "Dates Required");
    return;
  }
  const int made = PrepareInvoices(ledger, *batch);
  ShowPreview();
  if (made == 0) return;
  SetDefaultButton(cmdClose);
  Focus(cmdClose);
}

}  // namespace lm
