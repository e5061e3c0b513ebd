// A report as a chart, with its titles and legend; saved as a picture and printed from here.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "core/screen.h"
#include "reports/chartdrawing.h"

namespace lm {

class frmChart : public Screen {
 public:
  // The report outlives the window. Type and grouping are those chosen last in this run.
  frmChart(Ledger& ledger, const Grid& report, std::string_view title, std::string_view subTitle);

  LabelField lblMainTitle{this, "lblMainTitle"};
  LabelField lblSubTitle{this, "lblSubTitle"};
  LabelField lblLegend{this, "lblLegend"};
  Grid fgLegend{"fgLegend"};  // COLOUR, a cell of that ground, and NAME; a row an entry
  Button cmdChartOptions{this, "cmdChartOptions"};
  Button cmdSaveChart{this, "cmdSaveChart"};
  Button cmdPrintChart{this, "cmdPrintChart"};
  Button cmdClose{this, "cmdClose"};

  const Chart& Shown() const { return chart_; }
  ChartTitles Titles() const { return {lblMainTitle.Text(), lblSubTitle.Text()}; }
  ChartChoice Choice() const;
  void SetChoice(ChartChoice choice);

  // What only the desktop can: the bytes of a PNG picture, and printing with a preview. Without it
  // (no desktop) neither is offered.
  struct Desktop {
    std::function<std::string()> png;
    std::function<void()> print;
    std::function<void()> chartChanged;
  };
  void SetDesktop(Desktop desktop);

 private:
  void Refresh();
  void FillLegend();
  void ShowOptions();
  void Save();
  bool Write(const std::filesystem::path& path, std::string_view extension, std::string& error);

  const Grid& report_;
  Chart chart_;
  Desktop desktop_;
};

// Opens the window; false, after a message, for a report without values.
bool ShowChart(Ledger& ledger, const Grid& report, std::string_view title,
               std::string_view subTitle);

}  // namespace lm
