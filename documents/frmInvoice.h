// The window in which an invoice is followed: sent, paid, receipted. It holds a working copy of its
// row; what is done to its sessions is done at once.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "core/screen.h"
#include "documents/moneyowed.h"

namespace lm {

class frmInvoice : public Screen {
 public:
  explicit frmInvoice(Ledger& ledger);
  ~frmInvoice() override;

  bool Open(std::string_view id);  // false when there is no such invoice

  TabField tabMain{this, "tabMain", {"Details", "Sessions", "Public Note", "Private Note"}};

  // A column of fgInvoices is bound to the control "c" + its key; the labels are not stored back.
  TextField cID{this, "cID"};
  LabelField cNumber{this, "cNumber"};
  LabelField cPractice{this, "cPractice"};
  LabelField cCDate{this, "cCDate"};
  LabelField lblStatus{this, "lblStatus"};
  LabelField lblOverdue{this, "lblOverdue"};  // and how often the practice was reminded of it

  TextField cIDate{this, "cIDate"};
  Button cmdIDate{this, "cmdIDate"};
  TextField cSDate{this, "cSDate"};
  Button cmdSent{this, "cmdSent"};
  TextField cSentBy{this, "cSentBy"};
  TextField cDueDate{this, "cDueDate"};
  Button cmdDue{this, "cmdDue"};
  TextField cPayDate{this, "cPayDate"};
  Button cmdReceived{this, "cmdReceived"};
  TextField cPayMethod{this, "cPayMethod"};
  TextField cPayRef{this, "cPayRef"};
  TextField cReceiptDate{this, "cReceiptDate"};
  Button cmdReceiptSent{this, "cmdReceiptSent"};
  TextField cReceiptMethod{this, "cReceiptMethod"};
  TextField cReceiptRef{this, "cReceiptRef"};
  TextField cPublicNote{this, "cPublicNote"};
  TextField cPrivateNote{this, "cPrivateNote"};

  // Totals of the sessions.
  LabelField cRate{this, "cRate"};
  LabelField cExtras{this, "cExtras"};
  LabelField cPensionable{this, "cPensionable"};
  LabelField cEmployerContrib{this, "cEmployerContrib"};
  LabelField imgEmployerContrib_Help{this, "imgEmployerContrib_Help"};
  LabelField cExpenses{this, "cExpenses"};
  LabelField cAmount{this, "cAmount"};

  Grid fgInvSessions{"fgInvSessions"};
  Button cmdRemove{this, "cmdRemove"};

  Button cmdViewInvoice{this, "cmdViewInvoice"};
  Button cmdSendByEmail{this, "cmdSendByEmail"};
  Button cmdSendReceiptByEmail{this, "cmdSendReceiptByEmail"};
  Button cmdSendReminder{this, "cmdSendReminder"};  // both only while it is overdue
  Button cmdReminderLetter{this, "cmdReminderLetter"};
  Button cmdDeleteInvoice{this, "cmdDeleteInvoice"};
  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  class SessionRules;

  void BindActions();
  Field* StoredField(int col) const;  // null for a column that is not stored back
  int Row() const;                    // of the invoice in fgInvoices
  void ShowSessions();
  void ShowTotals();
  void ShowState();
  void RemoveSession();
  void SendInvoice();
  void SendReceipt();
  PaymentState StateTyped() const;
  void Keep(std::initializer_list<std::string_view> keys);
  void ShowEmployerContribHelp();
  void Save();

  std::unique_ptr<SessionRules> sessionRules_;
};

}  // namespace lm
