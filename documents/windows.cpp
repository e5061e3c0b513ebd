#include "documents/windows.h"

#include <string>
#include <vector>

#include "core/messagebox.h"
#include "documents/frmBookingConfirmation.h"
#include "documents/frmInvoice.h"
#include "documents/frmPaymentReminders.h"
#include "documents/frmPrepareInvoices.h"

namespace lm {
namespace {

using Words = std::vector<std::string>;

bool PrepareByWords(Ledger& ledger, const Words&) { return OpenPrepareInvoices(ledger); }

bool InvoiceByWords(Ledger& ledger, const Words& words) {
  return words.size() > 1 && words[0] == "open" && OpenInvoice(ledger, words[1]);
}

bool RemindersByWords(Ledger& ledger, const Words&) {
  frmPaymentReminders window(ledger);
  ShowModal(window);
  return true;
}

bool BookingByWords(Ledger& ledger, const Words& words) {
  frmBookingConfirmation window(ledger);
  if (words.size() > 1) window.ChoosePractice(words[1]);
  ShowModal(window);
  return true;
}

}  // namespace

bool OpenPrepareInvoices(Ledger& ledger) {
  if (!ledger.fgSessions.HasData()) {
    ShowMessage(ledger, "Invoices cannot be created if there are no Sessions.");
    return false;
  }
  frmPrepareInvoices window(ledger);
  ShowModal(window);
  return true;
}

bool OpenInvoice(Ledger& ledger, std::string_view id) {
  frmInvoice window(ledger);
  return ShowRecord(window, id, "The invoice window is already open.",
                    [&] { return window.Open(id); });
}

void AddDocumentWindows(WindowCatalogue& catalogue) {
  catalogue.Add("frmPrepareInvoices", PrepareByWords);
  catalogue.Add("frmInvoice", InvoiceByWords);
  catalogue.Add("frmPaymentReminders", RemindersByWords);
  catalogue.Add("frmBookingConfirmation", BookingByWords);
}

}  // namespace lm
