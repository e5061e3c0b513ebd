// Brings in upcoming sessions from a booking service, in four pages: the account, the practices
// that the service knows and this program does not, the sessions, the end.
#pragma once

#include <optional>
#include <string>

#include "connections/bookingfeeds.h"
#include "connections/clashes.h"
#include "connections/feedimport.h"
#include "core/screen.h"

namespace lm {

class frmImportWizard : public Screen {
 public:
  frmImportWizard(Ledger& ledger, const BookingFeed& feed);

  // Shows how far one is; the buttons lead from page to page.
  TabField frmTab{this, "frmTab", {"Account", "Practices", "Sessions", "Complete"}};

  LabelField lblIntroduction{this, "lblIntroduction"};
  LabelField lblWebPage{this, "lblWebPage"};
  TextField txtUniqueID{this, "txtUniqueID"};
  LabelField lblIDFormat{this, "lblIDFormat"};
  LabelField lblIDSample{this, "lblIDSample"};
  CheckField chkRememberLocation{this, "chkRememberLocation"};  // the id, for the next import
  CheckField chkAccepted{this, "chkAccepted"};
  CheckField chkConfirmed{this, "chkConfirmed"};
  TextField txtDefaultNote{this, "txtDefaultNote"};
  LabelField lblLastSuccesfulImport{this, "lblLastSuccesfulImport"};

  Grid fgPractices{"fgPractices"};
  Grid fgSessions{"fgSessions"};

  LabelField lblComplete{this, "lblComplete"};
  LabelField lblCompleteText{this, "lblCompleteText"};

  LabelField lblStatus{this, "lblStatus"};
  Button cmdCancel{this, "cmdCancel"};
  Button cmdBack{this, "cmdBack"};
  Button cmdNext{this, "cmdNext"};

 protected:
  void CellClicked(Grid& grid, int row, int col) override;

 private:
  enum Page { kAccount, kPractices, kSessions, kComplete };

  class PracticeRules : public GridRules {
   public:
    explicit PracticeRules(frmImportWizard& window) : window_(window) {}
    bool MayEdit(int row, int col) override;
    void Opened(int row) override;

   private:
    frmImportWizard& window_;
  } practiceRules_{*this};

  class SessionRules : public GridRules {
   public:
    explicit SessionRules(frmImportWizard& window) : window_(window) {}
    bool MayEdit(int row, int col) override;
    std::string EditList(const Grid& grid, int row, int col) override;
    Picker PickerOf(int row, int col) override;
    std::optional<std::string> Accept(int row, int col, std::string_view typed) override;
    void Edited(int row, int col) override;
    void Opened(int row) override;

   private:
    frmImportWizard& window_;
  } sessionRules_{*this};

  void ReadOptions();
  void StoreAccount(const std::string& id);
  void ShowLastImport();
  void StoreLastImport();
  void ShowPage(Page page);
  void Next();

  // The id as the service has it; nothing after a message.
  std::optional<std::string> CheckedId();
  // Nothing after a message, or when the user cancelled.
  std::optional<Feed> Fetch(const std::string& id);
  void LeaveAccount();

  void ShowPractices();
  void LeavePractices();

  void GoToSessions();
  void ShowSessions();
  void CheckClash(int row);
  void NameClashes();
  void ShowClash(const std::string& id);
  void Import();

  const BookingFeed& feed_;
  FeedOffer offer_;
  std::size_t kept_ = 0;            // sessions that were offered before practices were ignored
  std::optional<Clashes> clashes_;  // with the records, which stay as they are while this is open
};

}  // namespace lm
