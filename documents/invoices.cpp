#include "documents/invoices.h"

#include <cmath>
#include <filesystem>

#include "core/change.h"
#include "core/dates.h"
#include "core/files.h"
#include "core/format.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/invoicepdf.h"
#include "documents/prepareinvoices.h"
#include "pdf/wholefile.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

std::string DaysText(int days, std::string_view zero, std::string_view one, std::string_view before,
                     std::string_view after) {
  if (days == 0) return std::string(zero);
  if (days == 1) return std::string(one);
  return std::string(before) + PlainText(days) + std::string(after);
}

InvoiceSums SumsOf(const Grid& table, int row, std::string_view amountKey) {
  return {CurrencyOf(table.TextMatrix(row, amountKey)),
          CurrencyOf(table.TextMatrix(row, "EMPLOYERCONTRIB"))};
}

// The session's money onto an invoice, or off it with `sign` -1.
void AddToSums(Ledger& ledger, int invoice, int session, int sign) {
  Grid& invoices = ledger.fgInvoices;
  InvoiceSums sums = SumsOf(invoices, invoice, "AMOUNT");
  const InvoiceSums change = SumsOf(ledger.fgSessions, session, "TOTAL");
  sums.amount += sign < 0 ? -change.amount : change.amount;
  sums.employerContrib += sign < 0 ? -change.employerContrib : change.employerContrib;
  invoices.SetTextMatrix(invoice, "AMOUNT", sums.amount.ToText());
  invoices.SetTextMatrix(invoice, "EMPLOYERCONTRIB", sums.employerContrib.ToText());
  MarkEdited(ledger, invoices, invoice);
}

void SetInvoiceOf(Ledger& ledger, int session, std::string_view id) {
  ledger.fgSessions.SetTextMatrix(session, "INVOICE", id);
  MarkEdited(ledger, ledger.fgSessions, session);
}

int UnsentInvoiceOf(const Ledger& ledger, const std::string& practiceId) {
  const Grid& invoices = ledger.fgInvoices;
  const int practice = invoices.ColIndex("PRACTICE");
  const int sent = invoices.ColIndex("SDATE");
  for (const int row : Records(invoices))
    if (invoices.TextMatrix(row, practice) == practiceId && invoices.TextMatrix(row, sent).empty())
      return row;
  return -1;
}

bool AddToNewInvoice(Ledger& ledger, int session, const std::string& practiceId) {
  if (ShowMessage(ledger, "No unsent invoice exists for this practice.",
                  "Create a new invoice for practice '" + PracticeName(ledger, practiceId) + "'?",
                  Buttons::YesNo, Icon::Question) != Answer::Yes)
    return false;
  const Change change(ledger, "Add To Invoice");
  const int id = NextInvoiceId(ledger);
  AddInvoice(ledger, id, practiceId, SumsOf(ledger.fgSessions, session, "TOTAL"),
             CellText(ledger.platform.clock.Now()));
  SetInvoiceOf(ledger, session, PlainText(id));
  CreateInvoice(ledger, PlainText(id));
  return true;
}

// "Riverside Surgery, Tue 3 Feb 2026, £384.00"; what is empty is left out.
std::string WhatItIs(const Ledger& ledger, int row) {
  const Grid& invoices = ledger.fgInvoices;
  std::vector<std::string> parts{
      PracticeName(ledger, invoices.TextMatrix(row, "PRACTICE")),
      DayText(invoices.TextMatrix(row, "IDATE")),
      Format(CurrencyOf(invoices.TextMatrix(row, "AMOUNT")), "£#,##0.00"_w)};
  std::erase(parts, "");
  return Join(parts, ", ");
}

}  // namespace

int InvoiceRow(const Ledger& ledger, std::string_view id) {
  return RecordRow(ledger.fgInvoices, id);
}

std::string InvoiceStatusLine(const Ledger& ledger, std::string_view sent, std::string_view paid) {
  const std::optional<Date> sentDay = CellDate(sent);
  if (!sentDay) return "Invoice not sent yet.";
  if (const std::optional<Date> paidDay = CellDate(paid))
    return DaysText(static_cast<int>(*paidDay - *sentDay), "Invoice paid same day it was sent.",
                    "Invoice paid after 1 day.", "Invoice paid after ", " days.");
  const Date today = std::floor(ledger.platform.clock.Now());
  return DaysText(static_cast<int>(today - *sentDay), "Invoice sent today.",
                  "Invoice sent yesterday.", "Invoice sent ", " days ago.");
}

bool DeleteInvoice(Ledger& ledger, const std::string& id) {
  return DeleteInvoice(ledger, id, ledger.fgInvoices.TextMatrix(InvoiceRow(ledger, id), "SDATE"));
}

bool DeleteInvoice(Ledger& ledger, const std::string& id, std::string_view sent) {
  const int row = InvoiceRow(ledger, id);
  if (row < 0) {
    ShowMessage(ledger, "There is no invoice selected to delete.");
    return false;
  }
  Grid& invoices = ledger.fgInvoices;
  if (!sent.empty()) {
    ShowMessage(ledger, "An invoice cannot be deleted once it has been sent",
                "To delete the invoice, you must set the 'Sent Date' to blank.", Buttons::Ok,
                Icon::Exclamation, "Delete Invoice");
    return false;
  }
  if (!Ask(ledger, "Delete invoice " + invoices.TextMatrix(row, "NUMBER") + "?",
           WhatItIs(ledger, row) + ".\\nIts sessions become uninvoiced.", "Delete Invoice"))
    return false;
  const Change change(ledger, "Delete Invoice");
  Grid& sessions = ledger.fgSessions;
  const RedrawOff redrawOff(sessions);
  const int column = sessions.ColIndex("INVOICE");
  for (const int session : Records(sessions))
    if (sessions.TextMatrix(session, column) == id) SetInvoiceOf(ledger, session, "");
  invoices.RemoveItem(row);
  return true;
}

bool AddSessionToInvoice(Ledger& ledger, const std::string& sessionId) {
  const int session = SessionRow(ledger, sessionId);
  if (session < 0) return false;
  if (!ledger.fgSessions.TextMatrix(session, "INVOICE").empty()) {
    ShowMessage(ledger, "This session is on an invoice already",
                "To put it on another one, remove it from its invoice first.");
    return false;
  }
  const std::string practiceId = ledger.fgSessions.TextMatrix(session, "PRACTICE");
  if (practiceId.empty()) {
    ShowMessage(ledger, "No practice has been specified for this session");
    return false;
  }
  const int invoice = UnsentInvoiceOf(ledger, practiceId);
  if (invoice < 0) return AddToNewInvoice(ledger, session, practiceId);
  if (!Ask(ledger, "An unsent invoice (" + ledger.fgInvoices.TextMatrix(invoice, "NUMBER") +
                       ") exists for this practice.\\n\\nDo you want to add this session to this "
                       "invoice?"))
    return false;
  const Change change(ledger, "Add To Invoice");
  SetInvoiceOf(ledger, session, ledger.fgInvoices.TextMatrix(invoice, "ID"));
  AddToSums(ledger, invoice, session, 1);
  return true;
}

bool RemoveSessionFromInvoice(Ledger& ledger, const std::string& sessionId) {
  const int session = SessionRow(ledger, sessionId);
  const int invoice = InvoiceRow(ledger, ledger.fgSessions.TextMatrix(session, "INVOICE"));
  if (invoice < 0) return false;
  const std::string number = ledger.fgInvoices.TextMatrix(invoice, "NUMBER");
  const std::string sent = ledger.fgInvoices.TextMatrix(invoice, "SDATE");
  if (!sent.empty()) {
    ShowMessage(ledger, "Unable to remove session from invoice",
                "Sessions cannot be removed from an invoice after the invoice has been sent.\\nThe "
                "invoice this session is on was sent on " +
                    sent + ".",
                Buttons::Ok, Icon::Exclamation, "Remove From Invoice");
    return false;
  }
  if (!Ask(ledger, "Do you want to remove this session from invoice " + number + "?")) return false;
  TakeOffInvoice(ledger, session, invoice);
  ShowMessage(ledger, "Session removed from invoice " + number + ".", "", Buttons::Ok, Icon::Done);
  return true;
}

void TakeOffInvoice(Ledger& ledger, int sessionRow, int invoiceRow) {
  const Change change(ledger, "Remove From Invoice");
  SetInvoiceOf(ledger, sessionRow, "");
  AddToSums(ledger, invoiceRow, sessionRow, -1);
}

bool OpenInvoiceDocument(Ledger& ledger, const std::string& id, bool recreate) {
  const int row = InvoiceRow(ledger, id);
  if (row < 0) {
    ShowMessage(ledger, "View Invoice", "Select an invoice to view by clicking on any row.");
    return false;
  }
  const std::filesystem::path file = InvoiceFile(ledger, row);
  if ((recreate || !IsWholePdf(file)) && !CreateInvoice(ledger, id)) return false;
  return OpenLink(ledger, PathText(file));
}

}  // namespace lm
