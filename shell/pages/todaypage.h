// The LM Today page: what is coming, what is left to do, what came in and went out. While nothing
// is recorded that it could show, the first steps stand there instead.
#pragma once

#include <array>
#include <memory>
#include <set>
#include <string>

#include "reports/today.h"
#include "shell/firststeps.h"
#include "shell/pages/mainpage.h"

namespace lm {

class TodayPage : public MainPage {
 public:
  explicit TodayPage(frmMain& window);
  ~TodayPage() override;

  TabField tabLMToday{&window, "tabLMToday", {"LedgerMinder Today"}};
  LabelField lblLMTodayDate{&window, "lblLMTodayDate"};
  LabelField imgLMTodayHelp{&window, "imgLMTodayHelp"};

  // One of the two pictures is visible: the lists, or the first steps.
  LabelField picLMToday{&window, "picLMToday"};
  Grid fgUpcoming{"fgUpcoming"}, fgLMTodayStatus{"fgLMTodayStatus"}, fgFinance{"fgFinance"};
  const std::array<Grid*, 3> lists{&fgUpcoming, &fgLMTodayStatus, &fgFinance};

  LabelField picLMTodaySteps{&window, "picLMTodaySteps"};
  LabelField lblLMTodayPractices{&window, "lblLMTodayPractices"};
  Button cmdLMTodayPractices{&window, "cmdLMTodayPractices"};
  LabelField lblLMTodayMyDetails{&window, "lblLMTodayMyDetails"};
  Button cmdLMTodayMyDetails{&window, "cmdLMTodayMyDetails"};
  LabelField lblLMTodaySessions{&window, "lblLMTodaySessions"};
  Button cmdLMTodaySessions{&window, "cmdLMTodaySessions"};
  LabelField lblLMTodayInvoices{&window, "lblLMTodayInvoices"};
  Button cmdLMTodayInvoices{&window, "cmdLMTodayInvoices"};

  // None of its lists is one to print or to export.
  Grid* GridInFront() const override { return nullptr; }
  bool Shows(const Grid& grid) const override;
  void CellClicked(Grid& grid, int row, int col) override;

 protected:
  void Rebuild() override;

 private:
  class Rules;

  void AddSteps();
  void ShowSteps();
  void Open(Grid& grid, int row);

  std::array<std::unique_ptr<Rules>, 3> rules_;
  std::set<std::string> folded_;  // keys of sections, as the user left them
};

}  // namespace lm
