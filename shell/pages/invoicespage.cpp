#include "shell/pages/invoicespage.h"

#include "documents/invoices.h"
#include "entry/frmPopupCalendar.h"
#include "shell/severalrows.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Invoices, "Invoices", "invoices", "mnuViewInvoices",
                         "cmdInvoicePage"};

constexpr RecordList::Texts kTexts{
    "Invoices",
    "No invoices here. Choose another tab above, or prepare invoices with the green plus."};

}  // namespace

InvoicesPage::InvoicesPage(frmMain& theWindow)
    : MainPage(theWindow, kSpec), list_(AddList(ledger.fgInvoices, kTexts, &rules_)) {
  list_.FilterBy(tabInvoices,
                 [this](int tab) { return InvoicesOf(ledger, static_cast<InvoiceState>(tab)); });
  SetTabs(tabInvoices);
  SetFilter(txtFilterInvoices);
  SetGrouping({&cboGroupInvoices, &lblGrpByInvoice, &lblCollapseInvoices});
  list_.GroupBy(kGroupedInvoices, Grouping());
  AddButtons();
  AddCommands();
  AddTip({"Invoices",
          "Invoices are prepared from the sessions that are not on an invoice yet. The list shows "
          "when each was sent and paid."});
}

void InvoicesPage::AddButtons() {
  AddButton({&cmdAddInvoice, "plus", "frmPrepareInvoices"}, "Prepare Invoices",
            [this] { rules_.AddPressed(); });
  AddButton({&cmdEditInvoice, "edit", "frmInvoice"}, "Edit Invoice", [this] {
    const int row = list_.SelectedRecord("Edit Invoice", "There is no invoice selected to edit.");
    if (row >= 0) rules_.Opened(row);
  });
  AddButton({&cmdViewInvoice, "pdf"}, "View Invoice", [this] { OpenDocument(false); });
  AddButton({&cmdViewInvoice_Options, "down", "", nullptr, "mnuPopDocument"}, "",
            [this] { OpenDocument(false); });
  cmdViewInvoice_Options.SetToolTip("Open or recreate the invoice's document");
  AddButton({&cmdDeleteInvoice, "delete"}, "Delete Invoice", [this] { DeleteSelected(list_); });
  SetItemButtons(cmdAddInvoice, cmdEditInvoice, cmdDeleteInvoice);
}

void InvoicesPage::AddCommands() {
  OnCommand("mnuPopOpenDocument", Pressing(cmdViewInvoice));
  OnCommand("mnuPopRecreateAndOpenDocument", {[this] { OpenDocument(true); }});
  OnCommand("mnuPopInv_DeleteInvoice", Pressing(cmdDeleteInvoice));

  SetListMenu("mnuPopInvoices");
  OnCommand("mnuPopInv_MarkSent", {[this] { Mark("SDATE", "Invoice Sent"); }});
  OnCommand("mnuPopInv_MarkPaid", {[this] { Mark("PAYDATE", "Payment Received"); }});
  for (const char* entry : {"mnuPopInv_MarkSent", "mnuPopInv_MarkPaid"}) OfferEntry(entry);
  for (const char* entry : {"cmdEditInvoice", "mnuPopOpenDocument", "mnuPopRecreateAndOpenDocument",
                            "mnuPopInv_DeleteInvoice"})
    OfferEntry(entry, [this] { return EnabledIf(list_.OnRecord()); });
}

void InvoicesPage::Mark(std::string_view key, std::string_view caption) {
  frmPopupCalendar calendar(ledger, caption);
  if (const auto day = calendar.PickFrom("")) MarkInvoices(ledger, list_, key, *day);
}

void InvoicesPage::OpenDocument(bool recreate) {
  const int row =
      list_.SelectedRecord("View Invoice", "Select an invoice to view by clicking on any row.");
  if (row >= 0) OpenInvoiceDocument(ledger, ledger.fgInvoices.TextMatrix(row, "ID"), recreate);
}

}  // namespace lm
