#include "documents/frmInvoice.h"

#include <algorithm>
#include <array>
#include <memory>

#include "core/change.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/email.h"
#include "documents/invoices.h"
#include "documents/prepareinvoices.h"
#include "documents/reminders.h"
#include "entry/pickedboxes.h"
#include "records/practices.h"
#include "records/sessionlines.h"
#include "records/sessionrules.h"
#include "records/windows.h"

namespace lm {
namespace {

constexpr ColumnSpec kSessionColumns[] = {
    SessionColumn("ID"),
    SessionColumn("PRACTICE"),
    SessionColumn("SDATE"),
    SessionColumn("STIME"),
    SessionColumn("EDATE"),
    SessionColumn("ETIME"),
    SessionColumn("SESS_TYPE"),
    SessionColumn("RATE"),
    SessionColumn("EXTRAS"),
    SessionColumn("EMPLOYERCONTRIB"),
    SessionColumn("EXPENSES"),
    {"TOTAL", "Total\n(Rate+Ext+Pen+Exp)", DataType::Money, kAmountFormat, 1900},
};
constexpr TableSpec kSessionTable{"fgInvSessions", kSessionColumns};

constexpr std::array<std::string_view, 5> kSummed{"RATE", "EXTRAS", "EMPLOYERCONTRIB", "EXPENSES",
                                                  "TOTAL"};

// What the columns of the same names hold is worked out or given by others.
constexpr std::array<std::string_view, 5> kNotStored{"PRACTICE", "AMOUNT", "NUMBER", "CDATE",
                                                     "EMPLOYERCONTRIB"};

}  // namespace

class frmInvoice::SessionRules : public GridRules {
 public:
  explicit SessionRules(frmInvoice& window) : window_(window) {}
  void Opened(int row) override {
    const std::string id = window_.fgInvSessions.TextMatrix(row, "ID");
    if (!id.empty()) OpenSession(window_.ledger, id);
  }
  void DeletePressed(int) override { window_.Press(window_.cmdRemove); }

 private:
  frmInvoice& window_;
};

frmInvoice::frmInvoice(Ledger& theLedger)
    : Screen(theLedger, "frmInvoice", "Invoice"),
      sessionRules_(std::make_unique<SessionRules>(*this)) {
  cID.SetVisible(false);
  cPublicNote.multiLine = true;
  cPrivateNote.multiLine = true;
  MakeSessionLines(fgInvSessions, kSessionTable, ledger.fgSessions);
  const bool showsContrib = ShowsEmployerContrib(ledger);
  fgInvSessions.SetColHidden(fgInvSessions.ColIndex("EMPLOYERCONTRIB"), !showsContrib);
  cEmployerContrib.SetVisible(showsContrib);
  imgEmployerContrib_Help.SetVisible(showsContrib);
  AddGrid(fgInvSessions, sessionRules_.get());

  const auto show = [this] {
    ShowState();
    return true;
  };
  BindDate({cIDate, cmdIDate, "Invoice Date"}, [this] {
    const std::string due = DueCell(ledger, cIDate.Text());
    if (!cDueDate.Text().empty() && !due.empty()) cDueDate.SetText(due);
    ShowState();
    return true;
  });
  BindDate({cDueDate, cmdDue, "Payment Due"}, show);
  BindDate({cSDate, cmdSent, "Invoice Sent"}, show);
  BindDate({cPayDate, cmdReceived, "Payment Received"}, show);
  BindDate({cReceiptDate, cmdReceiptSent, "Receipt Sent"}, show);
  BindActions();
}

frmInvoice::~frmInvoice() = default;

void frmInvoice::BindActions() {
  cmdRemove.SetText("&Remove Session");
  cmdRemove.onPressed = [this] { RemoveSession(); };
  cmdViewInvoice.SetText("&View Invoice");
  cmdViewInvoice.onPressed = [this] { OpenInvoiceDocument(ledger, cID.Text()); };
  cmdSendByEmail.SetText("&Send By E-mail");
  cmdSendByEmail.onPressed = [this] { SendInvoice(); };
  cmdSendReceiptByEmail.SetText("Send Recei&pt By E-mail");
  cmdSendReceiptByEmail.onPressed = [this] { SendReceipt(); };
  cmdSendReminder.SetText("Send Re&minder By E-mail");
  cmdSendReminder.onPressed = [this] {
    if (SendReminderByEmail(ledger, cID.Text())) ShowState();
  };
  cmdReminderLetter.SetText("Reminder &Letter");
  cmdReminderLetter.onPressed = [this] {
    if (WriteReminderLetter(ledger, cID.Text())) ShowState();
  };
  cmdDeleteInvoice.SetText("&Delete Invoice");
  cmdDeleteInvoice.onPressed = [this] {
    if (DeleteInvoice(ledger, cID.Text(), cSDate.Text())) Close();
  };
  imgEmployerContrib_Help.onPressed = [this] { ShowEmployerContribHelp(); };
  cmdOk.SetText("&OK");
  cmdOk.onPressed = [this] { Save(); };
  cmdCancel.SetText("&Cancel");
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "this invoice";
}

int frmInvoice::Row() const { return InvoiceRow(ledger, cID.Text()); }

Field* frmInvoice::StoredField(int col) const {
  const std::string& key = ledger.fgInvoices.ColKey(col);
  const bool stored = std::ranges::none_of(
      kNotStored, [&](std::string_view other) { return EqualsIgnoreCase(other, key); });
  return stored && !key.empty() ? FindField("c" + key) : nullptr;
}

bool frmInvoice::Open(std::string_view id) {
  const int row = InvoiceRow(ledger, id);
  if (row < 0) return false;
  const Grid& invoices = ledger.fgInvoices;
  for (int col = 0; col < invoices.Cols(); ++col)
    if (Field* field = StoredField(col)) field->SetText(invoices.TextMatrix(row, col));
  cNumber.SetText(invoices.TextMatrix(row, "NUMBER"));
  cPractice.SetText(PracticeName(ledger, invoices.TextMatrix(row, "PRACTICE")));
  cCDate.SetText(invoices.DisplayText(row, "CDATE"));
  SetCaption("Invoice (" + cNumber.Text() + ") " + cPractice.Text());
  ShowSessions();
  ShowState();
  return true;
}

void frmInvoice::ShowSessions() {
  const Grid& sessions = ledger.fgSessions;
  const RedrawOff redrawOff(fgInvSessions);
  fgInvSessions.ClearData();
  const int invoice = sessions.ColIndex("INVOICE");
  for (const int row : Records(sessions))
    if (sessions.TextMatrix(row, invoice) == cID.Text())
      AddSessionLine(fgInvSessions, sessions, row);
  ShowTotals();
}

void frmInvoice::ShowTotals() {
  std::array<Currency, kSummed.size()> sums;
  for (int session = fgInvSessions.FixedRows(); session < fgInvSessions.Rows(); ++session)
    for (std::size_t i = 0; i < kSummed.size(); ++i)
      sums[i] += CurrencyOf(fgInvSessions.TextMatrix(session, kSummed[i]));

  const int total = fgInvSessions.AddItem("");
  for (std::size_t i = 0; i < kSummed.size(); ++i)
    fgInvSessions.SetTextMatrix(total, kSummed[i], sums[i].ToText());
  fgInvSessions.SetTextMatrix(total, "PRACTICE", "Total");
  fgInvSessions.SetCell(CellSetting::flexcpFontBold, {total, 0, total, fgInvSessions.Cols() - 1},
                        "TRUE");

  const auto show = [](Field& field, Currency amount) {
    field.SetText(Format(amount, kAmountFormat));
  };
  const auto& [rate, extras, contrib, expenses, ignored] = sums;
  show(cRate, rate);
  show(cExtras, extras);
  show(cPensionable, rate + extras);
  show(cEmployerContrib, contrib);
  show(cExpenses, expenses);
  show(cAmount, CurrencyOf(ledger.fgInvoices.TextMatrix(Row(), "AMOUNT")));
}

PaymentState frmInvoice::StateTyped() const {
  PaymentState state = PaymentStateOf(ledger.fgInvoices, Row());
  state.sent = cSDate.Text();
  state.paid = cPayDate.Text();
  state.due = cDueDate.Text();
  return state;
}

void frmInvoice::ShowState() {
  lblStatus.SetText(InvoiceStatusLine(ledger, cSDate.Text(), cPayDate.Text()));
  const std::string overdue = OverdueText(StateTyped(), ledger.platform.clock.Now());
  const std::string reminded = RemindersText(ledger.fgInvoices, Row());
  lblOverdue.SetText(std::string(Trim(overdue + " " + reminded)));
  lblOverdue.SetVisible(!lblOverdue.Text().empty());
  for (Button* button : {&cmdSendReminder, &cmdReminderLetter})
    button->SetVisible(!overdue.empty());
  cmdRemove.SetEnabled(cSDate.Text().empty());
}

void frmInvoice::RemoveSession() {
  const int row = fgInvSessions.Row();
  const std::string id = row < fgInvSessions.FixedRows() ? "" : fgInvSessions.TextMatrix(row, "ID");
  if (id.empty()) {
    ShowMessage(ledger, "Remove Session", "Select a session to remove from the invoice.");
    return;
  }
  const int sessions = fgInvSessions.Rows() - fgInvSessions.FixedRows() - 1;
  if (sessions == 1) {
    ShowMessage(ledger, "You cannot remove the only session from a single session invoice.",
                "It would create an invoice with no sessions.");
    return;
  }
  if (!Ask(ledger, "Remove the selected session from the invoice?")) return;
  TakeOffInvoice(ledger, SessionRow(ledger, id), Row());
  ShowSessions();
}

void frmInvoice::SendInvoice() {
  if (!SendInvoiceByEmail(ledger, cID.Text())) return;
  if (!OptionIsTrue(ledger, optAutoSetInvoiceDate)) return;
  cSDate.SetText(CellText(ledger.platform.clock.Now()));
  cSentBy.SetText("email");
  Keep({"SDATE", "SENTBY"});
  ShowState();
}

void frmInvoice::SendReceipt() {
  if (!SendReceiptByEmail(ledger, cID.Text())) return;
  if (!OptionIsTrue(ledger, optAutoSetReceiptDate)) return;
  cReceiptDate.SetText(CellText(ledger.platform.clock.Now()));
  cReceiptMethod.SetText("email");
  Keep({"RECEIPTDATE", "RECEIPTMETHOD"});
}

// What has happened outside the program is recorded at once: Cancel does not call a message back.
void frmInvoice::Keep(std::initializer_list<std::string_view> keys) {
  const Change change(ledger, "Send By E-mail");
  Grid& invoices = ledger.fgInvoices;
  const int row = Row();
  for (const std::string_view key : keys) {
    const int col = invoices.ColIndex(key);
    if (const Field* field = StoredField(col)) invoices.SetTextMatrix(row, col, field->Text());
  }
  if (row >= 0) MarkEdited(ledger, invoices, row);
}

void frmInvoice::ShowEmployerContribHelp() {
  ShowMessage(ledger, "Employer Pension Contributions", EmployerContribHelp(ledger), Buttons::Ok,
              Icon::Information);
}

void frmInvoice::Save() {
  const Change change(ledger, "Edit Invoice");
  Grid& invoices = ledger.fgInvoices;
  const int row = Row();
  for (int col = 0; col < invoices.Cols(); ++col)
    if (const Field* field = StoredField(col)) invoices.SetTextMatrix(row, col, field->Text());
  if (row >= 0) MarkEdited(ledger, invoices, row);
  Close();
}

}  // namespace lm
