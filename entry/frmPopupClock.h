// The clock that drops under a time field.
#pragma once

#include <string_view>

#include "core/grid.h"
#include "entry/pickers.h"

namespace lm {

class frmPopupClock : public PopupPicker {
 public:
  explicit frmPopupClock(Ledger& ledger, std::string_view caption = "");

  // Two rows of the hours 12, 1 to 11, then two of the minutes 00, 05 to 55.
  Grid fg{"fg"};
  LabelField lblHour{this, "lblHour"};
  LabelField lblColon{this, "lblColon"};
  LabelField lblMins{this, "lblMins"};  // pressed: one minute on
  LabelField lblAM{this, "lblAM"};      // the half chosen carries a bullet
  LabelField lblPM{this, "lblPM"};
  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel"};

  bool IsPM() const { return pm_; }

  // The keyboard: moves the shown time, around the clock; the half stays.
  void MoveHour(int hours);
  void MoveMinutes(int minutes);

  bool KeyPressed(int key, char character) override;

 protected:
  void CellClicked(Grid& grid, int row, int col) override;
  // hh:nn; 09:00 when the text is no time.
  void StartFrom(std::string_view text) override;

 private:
  void SetHalf(bool pm);
  void ShowTime();

  int hour_ = 0;  // 0 to 11; 0 is shown as 12
  int minute_ = 0;
  bool pm_ = false;
};

}  // namespace lm
