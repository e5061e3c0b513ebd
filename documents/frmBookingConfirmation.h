// The window that confirms booked sessions to a practice, as a text or an e-mail.
#pragma once

#include <string>
#include <string_view>

#include "core/screen.h"

namespace lm {

class frmBookingConfirmation : public Screen {
 public:
  explicit frmBookingConfirmation(Ledger& ledger);

  // Shows this practice's sessions; an unknown ID leaves the one that is chosen.
  void ChoosePractice(std::string_view id);

  ComboField cboPractice{this, "cboPractice"};
  // A tick in column 0 takes a session into the confirmation.
  Grid fgUpcomingSessions{"fgUpcomingSessions"};
  LabelField lblNoSessions{this, "lblNoSessions"};  // shown while the list is empty

  TabField tabMessage{this, "tabMessage", {"Subject", "Introduction", "Sessions", "Ending"}};
  TextField txtMsgSubject{this, "txtMsgSubject"};
  TextField txtMsgIntro{this, "txtMsgIntro"};
  TextField txtMsgSessions{this, "txtMsgSessions"};
  TextField txtMsgEnding{this, "txtMsgEnding"};

  Button cmdCreateConfirmation{this, "cmdCreateConfirmation"};
  Button cmdSendByEmail{this, "cmdSendByEmail"};
  Button cmdSaveTemplate{this, "cmdSaveTemplate"};
  Button cmdClose{this, "cmdClose"};

 protected:
  void CellClicked(Grid& grid, int row, int col) override;

 private:
  void FillSessions();
  // The text for the ticked sessions; "" after a message when none is ticked.
  std::string Confirmation();
  void CreateConfirmation();
  void SendByEmail();
  void SaveTemplate();
};

}  // namespace lm
