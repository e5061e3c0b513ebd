// The hourly rates of all practices side by side, so that the doctor sees who pays what.
#pragma once

#include "core/screen.h"

namespace lm {

class frmRateCompare : public Screen {
 public:
  explicit frmRateCompare(Ledger& ledger);

  LabelField lblRates{this, "lblRates"};
  // NAME and the columns of rates; the defaults, three rows of statistics, the practices.
  Grid fgRates{"fgRates"};
  Button cmdCancel{this, "cmdCancel"};

 private:
  void AddDefaults();
  void AddPractices();
  void FillStatistics(std::string_view key);
};

}  // namespace lm
