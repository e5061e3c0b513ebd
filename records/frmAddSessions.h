// The window that makes a run of like sessions in one step: a maternity cover, every Tuesday of a
// term. It shows the days before they are made.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "core/screen.h"
#include "records/sessionrun.h"

namespace lm {

class frmAddSessions : public Screen {
 public:
  explicit frmAddSessions(Ledger& ledger);

  ComboField cboPractice{this, "cboPractice"};
  ComboField cboSessType{this, "cboSessType"};
  TextField txtSDate{this, "txtSDate"};
  Button cmdSDate{this, "cmdSDate"};
  TextField txtEDate{this, "txtEDate"};
  Button cmdEDate{this, "cmdEDate"};
  std::array<std::unique_ptr<CheckField>, 7> chkDay;  // "chkDay0", Monday, to "chkDay6"
  TextField txtSTime{this, "txtSTime"};
  Button cmdSTime{this, "cmdSTime"};
  TextField txtETime{this, "txtETime"};
  Button cmdETime{this, "cmdETime"};
  TextField txtRate{this, "txtRate"};
  Button cmdRate{this, "cmdRate"};
  CheckField chkMileageCharge{this, "chkMileageCharge"};
  TextField txtPrivateNote{this, "txtPrivateNote"};
  TextField txtPublicNote{this, "txtPublicNote"};
  LabelField lblCount{this, "lblCount"};  // how many sessions Ok will make
  Grid fgSpan{"fgSpan"};                  // the span, a week a row; the days to be made are filled
  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  void CalculateFee();
  SessionRun Run() const;
  std::array<bool, 7> Weekdays() const;
  struct Span {
    Date first, last;
  };
  std::optional<Span> DaysOfSpan() const;  // none while it cannot be made
  void ShowSpan();
  void FillSpan(const Span& span, const RunDays& days);
  std::string WhatIsMissing() const;
  void Ok();
};

}  // namespace lm
