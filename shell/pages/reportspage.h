// The Reports page: the standard reports, the grouping report and the tax report, a tab for each.
// Nothing runs until the user asks for it. From then on the standard report and the tax report
// follow the choices above them, but for dates that are being typed.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "reports/groupingreport.h"
#include "shell/pages/mainpage.h"

namespace lm {

class ReportsPage : public MainPage {
 public:
  explicit ReportsPage(frmMain& window);
  ~ReportsPage() override;

  TabField tabReport{&window, "tabReport", {"Standard Report", "Grouping Report", "Tax Report"}};
  // The period of the first two.
  ComboField cboReportPeriod{&window, "cboReportPeriod"};
  TextField txtReport_SDate{&window, "txtReport_SDate"};
  Button cmdReport_SDate{&window, "cmdReport_SDate"};
  TextField txtReport_EDate{&window, "txtReport_EDate"};
  Button cmdReport_EDate{&window, "cmdReport_EDate"};
  LabelField imgReportHelp{&window, "imgReportHelp"};

  ComboField cboReport{&window, "cboReport"};
  ComboField cboReportGroup{&window, "cboReportGroup"};
  Button cmdRefreshReport{&window, "cmdRefreshReport"};
  CheckField chkHideEmptyRows{&window, "chkHideEmptyRows"};
  CheckField chkHideEmptyCols{&window, "chkHideEmptyCols"};
  Button cmdChart{&window, "cmdChart"};

  ComboField cboGroupingReport{&window, "cboGroupingReport"};
  ComboField cboGroupingReportCalculation{&window, "cboGroupingReportCalculation"};
  ComboField cboGroupingLevels{&window, "cboGroupingLevels"};
  Button cmdRefreshGroupingReport{&window, "cmdRefreshGroupingReport"};

  LabelField lblTaxYear{&window, "lblTaxYear"};
  Button cmdTaxYear_Previous{&window, "cmdTaxYear_Previous"};
  Button cmdTaxYear_Next{&window, "cmdTaxYear_Next"};
  Button cmdRefreshTaxReport{&window, "cmdRefreshTaxReport"};

  Grid fgReports{"fgReports"}, fgGroupingReport{"fgGroupingReport"}, fgTaxReport{"fgTaxReport"};
  const std::array<Grid*, 3> reports{&fgReports, &fgGroupingReport, &fgTaxReport};

  bool Shows(const Grid& grid) const override;
  Grid* GridInFront() const override;
  void BringToFront(const Grid& grid) override;
  std::string Title() const override;
  std::string PrintedPeriod() const override;
  std::string Subject() const override;
  std::string LookOption(const Grid& grid, int option) const override;
  void ColumnMoved(Grid& grid, int from, int to) override;
  void CellClicked(Grid& grid, int row, int col) override;
  void DataLoaded() override;

 private:
  class Rules;

  void FillChoices();
  void ShowTab(int tab);
  void ChoosePeriod();
  void ShowHelp();
  void KeepReportInStep();
  void RefreshStandardReport();
  void RefreshGroupingReport();
  void RegroupAsChosen();
  void RefreshTaxReport();
  void MoveTaxYear(int years);
  void Open(const Grid& grid, int row);

  std::array<std::unique_ptr<Rules>, 3> rules_;
  std::string shownReport_, shownPeriod_;  // what fgReports holds, "" before the first refresh
};

}  // namespace lm
