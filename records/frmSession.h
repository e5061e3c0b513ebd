// The window on which one session is created, changed, copied or deleted. It holds a working copy
// of the session, its extras and its expenses; nothing reaches the tables until Ok.
#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"
#include "records/sessionitems.h"

namespace lm {

class frmSession : public Screen {
 public:
  explicit frmSession(Ledger& ledger);

  // Each fills the window; false, after its message, when it must not be shown.

  // False, after a message with this main prompt, while there is no practice to work at.
  static bool HasPractices(Ledger& ledger, std::string_view otherwise);

  // `date` is dd/mm/yyyy, `time` hh:nn or "", `practiceId` may be "".
  bool New(std::string_view date, std::string_view time, std::string_view practiceId);
  bool OpenSession(std::string_view id);
  // A new session filled from a stored one; it is not locked even if that is.
  bool Copy(std::string_view id);

  // A column of fgSessions is bound to the control "c" + its key.
  TextField cID{this, "cID"};
  ComboField cPractice{this, "cPractice"};
  ComboField cSess_Type{this, "cSess_Type"};
  TextField cSDate{this, "cSDate"};
  TextField cSTime{this, "cSTime"};
  TextField cEDate{this, "cEDate"};
  TextField cETime{this, "cETime"};
  TextField cRate{this, "cRate"};
  LabelField cExtras{this, "cExtras"};
  LabelField lblNoRate{this, "lblNoRate"};
  LabelField cPensionable{this, "cPensionable"};
  LabelField cEmployerContrib{this, "cEmployerContrib"};
  LabelField cEmployerContribRate{this, "cEmployerContribRate"};
  LabelField cExpenses{this, "cExpenses"};
  LabelField cTotal{this, "cTotal"};
  LabelField cInvoice{this, "cInvoice"};
  LabelField lblInvoiceDetails{this, "lblInvoiceDetails"};
  LabelField cForms{this, "cForms"};
  LabelField lblFormDetails{this, "lblFormDetails"};
  TextField cPublicNote{this, "cPublicNote"};
  TextField cNotes{this, "cNotes"};

  LabelField lblHelpPublicNote{this, "lblHelpPublicNote"};
  LabelField lblHelpPrivateNote{this, "lblHelpPrivateNote"};
  LabelField lblHelpExtras{this, "lblHelpExtras"};
  LabelField lblHelpExpenses{this, "lblHelpExpenses"};
  LabelField imgRefreshPensionContribution{this, "imgRefreshPensionContribution"};
  LabelField imgNameHelp{this, "imgNameHelp"};
  LabelField imgPensionable_Help{this, "imgPensionable_Help"};
  LabelField imgEmployerContrib_Help{this, "imgEmployerContrib_Help"};

  Button cmdStart{this, "cmdStart"};
  Button cmdStartTime{this, "cmdStartTime"};
  Button cmdEnd{this, "cmdEnd"};
  Button cmdEndTime{this, "cmdEndTime"};
  Button cmdRate{this, "cmdRate"};
  Button cmdAddExtra{this, "cmdAddExtra"};
  Button cmdDeleteExtra{this, "cmdDeleteExtra"};
  Button cmdAddExpense{this, "cmdAddExpense"};
  Button cmdDeleteExpense{this, "cmdDeleteExpense"};
  Button cmdAddMileageCharge{this, "cmdAddMileageCharge"};
  Button cmdOk{this, "cmdOk"};
  Button cmdOkNew{this, "cmdOkNew"};  // saves, and goes on with a new session
  Button cmdCancel{this, "cmdCancel"};
  Button cmdDelete{this, "cmdDelete"};
  TabField tabMain{
      this, "tabMain", {"Details", "Private Note", "Public Note", "Extras", "Expenses"}};

  Grid fgExtras{"fgExtras"};
  Grid fgExpenses{"fgExpenses"};

 private:
  enum Tab { kDetailsTab, kPrivateNoteTab, kPublicNoteTab, kExtrasTab, kExpensesTab };

  // One of the two lists, with what its messages and its sum differ in.
  struct ItemList {
    SessionItems rows;
    std::string one;  // "Extra"
    int tab;
    LabelField& sum;
  };

  // frmSession.cpp: filling, checking and saving.
  void BindFields();
  void BindActions();
  int StoredRow(std::string_view id);
  void Fill(int row);
  void WriteMoneyFields();
  void ShowStatus();
  void ShowNoRate();
  void ShowMarks();
  void ApplyLock();
  void MarkTabs();

  static std::string ChosenOr(const ComboField& combo, const std::string& stored);
  int TypeCode() const;
  bool OnForm() const { return !cForms.Text().empty(); }
  bool Invoiced() const { return !cInvoice.Text().empty(); }
  bool Locked() const { return OnForm() || Invoiced(); }
  void CalculateFee();
  void Recalculate();

  bool CheckDate(TextField& field, std::string_view message);
  bool CheckTime(TextField& field, std::string_view message);
  bool CheckRate();
  void TypeChosen();

  bool Ok();
  void OkAndNew();
  void StartAnew();
  bool DatesAreInOrder();
  bool TimesAreInOrder();
  bool MayBeDuplicate();
  bool Save();
  bool GiveId();
  void WriteRow(int row);
  void Delete();

  // frmSession_items.cpp: extras, expenses and the mileage charge.
  void BindItems();
  void AddItem(ItemList& list);
  void DeleteItem(ItemList& list);
  int NewItemRow(ItemList& list);
  void ItemsChanged(ItemList& list);
  void AddMileageCharge();

  // frmSession_links.cpp: links to other windows, the refresh icon and the help messages.
  void BindLinks();
  void FormLinkPressed();
  void InvoiceLinkPressed();
  void OpenForm(const Grid& forms, std::string_view window);
  int FormRow(const Grid& forms) const;
  void ReadLinksAgain();
  void RefreshPensionContribution();
  bool HasOtherContribRate() const;
  void ShowSessionTypeHelp();
  void ShowEmployerContribHelp();

  ItemList extras_;
  ItemList expenses_;
  // Of the session shown or copied, for what the lists no longer offer: a retired type, a practice
  // that has lost its name.
  std::string storedPractice_;
  std::string storedType_;
};

}  // namespace lm
