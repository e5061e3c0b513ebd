// What kind of chart, and by what: each choice acts at once on the chart behind.
#pragma once

#include <functional>

#include "core/screen.h"
#include "reports/chartseries.h"

namespace lm {

class frmChartOptions : public Screen {
 public:
  frmChartOptions(Ledger& ledger, ChartChoice choice, std::function<void(ChartChoice)> chosen);

  ComboField picChartType{this, "picChartType"};  // in the order of ChartType; a row of pictures
  // One of the two is ticked; pressing the picture or its words chooses it.
  CheckField picByPractice{this, "picByPractice"};
  LabelField lblByPractice{this, "lblByPractice"};
  CheckField picByDate{this, "picByDate"};
  LabelField lblByDate{this, "lblByDate"};
  Button cmdClose{this, "cmdClose"};

 private:
  void SetGroup(ChartGroup group);
  void Chosen();

  ChartChoice choice_;
  std::function<void(ChartChoice)> chosen_;
};

}  // namespace lm
