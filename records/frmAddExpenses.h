// The window that enters a general expense, once or as a series.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "core/screen.h"
#include "records/repeats.h"

namespace lm {

class frmAddExpenses : public Screen {
 public:
  explicit frmAddExpenses(Ledger& ledger);

  TextField txtItem{this, "txtItem"};
  TextField txtAmount{this, "txtAmount"};
  Button cmdAmount{this, "cmdAmount"};
  ComboField txtCategory{this, "txtCategory"};
  TextField txtExpenseDate{this, "txtExpenseDate"};
  Button cmdExpenseDate{this, "cmdExpenseDate"};
  TextField txtNotes{this, "txtNotes"};

  // One of the three is ticked.
  CheckField optRepetition_None{this, "optRepetition_None"};
  CheckField optRepetition_Weekly{this, "optRepetition_Weekly"};
  CheckField optRepetition_Monthly{this, "optRepetition_Monthly"};

  std::array<std::unique_ptr<CheckField>, 7> chkDayOfWeek;  // "chkDayOfWeek0", Monday, to 6

  // One of the two is ticked.
  CheckField optMontlyRepeat_Days{this, "optMontlyRepeat_Days"};
  CheckField optMontlyRepeat_Day{this, "optMontlyRepeat_Day"};
  Grid fgRecurOnDays{"fgRecurOnDays"};  // 5 rows of 7 numbers of days, each with a box
  ComboField cboRecurMontly{this, "cboRecurMontly"};
  ComboField cboDayOfWeek{this, "cboDayOfWeek"};

  TextField txtStartDate{this, "txtStartDate"};
  Button cmdStartDate{this, "cmdStartDate"};
  // One of the two is ticked.
  CheckField optDuration_RepeatUntil{this, "optDuration_RepeatUntil"};
  CheckField optDuration_StopAfter{this, "optDuration_StopAfter"};
  TextField txtRepeatUntil{this, "txtRepeatUntil"};
  Button cmdRepeatUntil{this, "cmdRepeatUntil"};
  TextField txtStopAfter{this, "txtStopAfter"};
  LabelField lblFirstDates{this, "lblFirstDates"};  // what Ok will make

  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel"};

 protected:
  void CellClicked(Grid& grid, int row, int col) override;

 private:
  void BindChoice(std::vector<CheckField*> choices);
  void BindFields();
  void FillDays();
  bool CheckStopAfter();
  void ShowFrames();
  void ShowFirstDates();
  std::optional<Repeat> RepeatOf() const;  // none while the dates are missing
  bool HasDays() const;
  bool Refuse(std::string_view mainPrompt, std::string_view minorPrompt = "");
  bool Checked();
  void Ok();
};

}  // namespace lm
