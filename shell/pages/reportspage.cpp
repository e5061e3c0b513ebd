#include "shell/pages/reportspage.h"

#include <algorithm>
#include <cmath>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/text.h"
#include "entry/pickedboxes.h"
#include "reports/frmChart.h"
#include "reports/rowtags.h"
#include "reports/standardreport.h"
#include "reports/taxreport.h"
#include "shell/periodfilter.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Reports, "Reports", "reports", "mnuViewReports"};

enum ReportTab { kStandard, kGrouping, kTax };

struct ReportHelp {
  std::string_view title, text;
};

constexpr ReportHelp kHelp[] = {
    {"Standard Report",
     "The standard report shows a summary of your selected data.\\n"
     "To use this report;\\n"
     "  1. Enter the dates of the period you are interested in into the boxes at the top of this "
     "page.\\n"
     "  2. From the 'Report' drop down list, select the report you are interested in.\\n"
     "  3. Select to group the data by day or month.\\n"
     "  4. Click the 'Refresh' button."},
    {"Grouping Report",
     "The grouping report allows data to be grouped by practice, month, invoice etc.\\n"
     "Changing the position of the columns changes how the report data is grouped and "
     "summarised.\\n"
     "To use this report;\\n"
     "  1. Enter the dates of the period you are interested in into the boxes at the top of this "
     "page.\\n"
     "  2. Click the 'Refresh' button.\\n"
     "  3. To group by a particular column, drag that columns header to the left of the grid."},
    {"Tax Report",
     "The tax report shows all your income, expenses, and pension contribtions for a tax year.\\n"
     "This information is required on a self assessment tax form.\\n"
     "To use this report;\\n"
     "  1. Use the buttons at the top of the page to select a tax year.\\n"
     "  2. Click the 'Refresh' button.\\n"
     "Notes\\n"
     "  1. Income is calculated based on the invoice received date.\\n"
     "  2. Expenses are calculated based on the day the expense was incurred.\\n"
     "  3. Pension contributions are calculated based on the date the payment was sent.\\n"
     "  4. Pension contributions include only employee payments, not employer payments.\\n"
     "  5. The tax year runs from 6th April to the following 5th April."},
};

// Periods that fill the date boxes; the first leaves them as they are.
struct PeriodChoice {
  std::string_view caption;
  DateRange (*days)(Date today);
};

DateRange MonthsBack(Date today, int months) {
  return {FirstOfMonth(AddMonths(today, -months)), LastOfMonth(today)};
}
DateRange CalendarYear(int year) { return {DateSerial(year, 1, 1), DateSerial(year, 12, 31)}; }
DateRange TaxYear(Date start) { return {start, AddMonths(start, 12) - 1}; }

constexpr PeriodChoice kPeriods[] = {
    {"Own Dates", nullptr},
    {"Last 12 Months", [](Date today) { return MonthsBack(today, 11); }},
    {"This Month", [](Date today) { return MonthsBack(today, 0); }},
    {"Last Month",
     [](Date today) {
       const Date last = AddMonths(today, -1);
       return DateRange{FirstOfMonth(last), LastOfMonth(last)};
     }},
    {"This Tax Year", [](Date today) { return TaxYear(TaxYearStart(today)); }},
    {"Last Tax Year", [](Date today) { return TaxYear(AddMonths(TaxYearStart(today), -12)); }},
    {"This Year", [](Date today) { return CalendarYear(ToCivilDate(today).year); }},
    {"Last Year", [](Date today) { return CalendarYear(ToCivilDate(today).year - 1); }},
};
constexpr int kOwnDates = 0, kLastTwelveMonths = 1;

template <typename Entries, typename TextOf>
void Fill(ComboField& combo, const Entries& entries, TextOf textOf, int selected = 0) {
  std::vector<ComboItem> items;
  for (const auto& entry : entries) items.push_back({std::string(textOf(entry)), ""});
  combo.SetItems(std::move(items));
  combo.SetSelected(selected);
}

}  // namespace

class ReportsPage::Rules : public GridRules {
 public:
  Rules(ReportsPage& page, const Grid& grid) : page_(page), grid_(grid) {}
  void Opened(int row) override { page_.Open(grid_, row); }

 private:
  ReportsPage& page_;
  const Grid& grid_;
};

ReportsPage::ReportsPage(frmMain& theWindow) : MainPage(theWindow, kSpec) {
  for (std::size_t i = 0; i < reports.size(); ++i) {
    rules_[i] = std::make_unique<Rules>(*this, *reports[i]);
    window.ShowGrid(*reports[i], rules_[i].get());
  }
  fgTaxReport.DeclareKey("ITEM");
  SetTabs(tabReport);
  tabReport.onEntered = [this] {
    ShowTab(tabReport.Selected());
    return true;
  };
  FillChoices();
  const auto ownDates = [this] {
    cboReportPeriod.SetSelected(kOwnDates);
    return true;
  };
  BindDate({txtReport_SDate, cmdReport_SDate, "Start Date", kInvalidDate}, ownDates);
  BindDate({txtReport_EDate, cmdReport_EDate, "End Date", kInvalidDate}, ownDates);
  imgReportHelp.SetText("Help");
  imgReportHelp.onPressed = [this] { ShowHelp(); };

  AddButton({&cmdRefreshReport, "refresh"}, "Refresh", [this] { RefreshStandardReport(); });
  AddButton({&cmdRefreshGroupingReport, "refresh"}, "Refresh", [this] { RefreshGroupingReport(); });
  AddButton({&cmdChart, "reports"}, "Ch&art...",
            [this] { ShowChart(ledger, fgReports, shownReport_, shownPeriod_); });
  AddButton({&cmdTaxYear_Previous, "left"}, "", [this] { MoveTaxYear(-1); });
  AddButton({&cmdTaxYear_Next, "right"}, "", [this] { MoveTaxYear(+1); });
  cmdTaxYear_Previous.SetToolTip("The tax year before");
  cmdTaxYear_Next.SetToolTip("The tax year after");
  AddButton({&cmdRefreshTaxReport, "refresh"}, "Refresh", [this] { RefreshTaxReport(); });
  for (CheckField* box : {&chkHideEmptyRows, &chkHideEmptyCols})
    box->onEntered = [this] {
      if (fgReports.HasData())
        HideZeros(ledger, fgReports, chkHideEmptyRows.Checked(), chkHideEmptyCols.Checked());
      return true;
    };
  for (ComboField* choice : {&cboGroupingReportCalculation, &cboGroupingLevels})
    choice->onEntered = [this] {
      RegroupAsChosen();
      return true;
    };
  lblTaxYear.SetText(TaxYearLabel(ToCivilDate(TaxYearStart(ledger.platform.clock.Now())).year));
  OnCommand("mnuNextPeriod",
            {[this] { MoveTaxYear(+1); }, [this] { return tabReport.Selected() == kTax; }});
  OnCommand("mnuLastPeriod",
            {[this] { MoveTaxYear(-1); }, [this] { return tabReport.Selected() == kTax; }});
  AddTip({"Reporting",
          "Reports add up your sessions, invoices and expenses over any period you choose."});
}

ReportsPage::~ReportsPage() = default;

void ReportsPage::FillChoices() {
  const auto itself = [](std::string_view text) { return text; };
  using Captions = std::initializer_list<std::string_view>;
  Fill(
      cboReportPeriod, kPeriods, [](const PeriodChoice& each) { return each.caption; },
      kLastTwelveMonths);
  Fill(cboReport, StandardReports(), [](const StandardReport& each) { return each.name; });
  Fill(cboReportGroup, Captions{"By Month", "By Day"}, itself);
  Fill(cboGroupingReport, Captions{"Sessions", "Invoices"}, itself);
  const auto calculations = GroupingCalculations();
  Fill(cboGroupingReportCalculation, calculations, itself,
       static_cast<int>(calculations.size()) - 1);
  Fill(cboGroupingLevels, Captions{"0", "1", "2", "3"}, itself, 1);
  cboReportPeriod.onEntered = [this] {
    ChoosePeriod();
    KeepReportInStep();
    return true;
  };
  for (ComboField* choice : {&cboReport, &cboReportGroup})
    choice->onEntered = [this] {
      KeepReportInStep();
      return true;
    };
  ChoosePeriod();
}

// ---- Tabs

bool ReportsPage::Shows(const Grid& grid) const {
  return std::ranges::find(reports, &grid) != reports.end();
}

Grid* ReportsPage::GridInFront() const {
  return reports[static_cast<std::size_t>(tabReport.Selected())];
}

void ReportsPage::BringToFront(const Grid& grid) {
  const auto report = std::ranges::find(reports, &grid);
  if (report != reports.end()) ShowTab(static_cast<int>(report - reports.begin()));
}

void ReportsPage::ShowTab(int tab) {
  tabReport.SetSelected(tab);
  window.RefreshCommands();
  window.LayOut();
}

std::string ReportsPage::Title() const {
  constexpr std::string_view kTitles[] = {"Report", "Grouping Report", "Tax Report "};
  const std::string title(kTitles[tabReport.Selected()]);
  return tabReport.Selected() == kTax ? title + lblTaxYear.Text() : title;
}

std::string ReportsPage::PrintedPeriod() const {
  return tabReport.Selected() == kStandard && !shownReport_.empty()
             ? shownReport_ + ", " + shownPeriod_
             : "";
}

std::string ReportsPage::Subject() const {
  return tabReport.Selected() == kStandard ? shownReport_ : "";
}

// Stripes would run across the blocks of the grouping report.
std::string ReportsPage::LookOption(const Grid& grid, int option) const {
  const bool stripes = option == optColourAlternateRows && &grid == &fgGroupingReport;
  return MainPage::LookOption(grid, stripes ? optColourBackground : option);
}

void ReportsPage::ShowHelp() {
  const ReportHelp& help = kHelp[tabReport.Selected()];
  ShowMessage(ledger, help.title, help.text, Buttons::Ok, Icon::Information);
}

// Other records: what stands there is no longer of them.
void ReportsPage::DataLoaded() {
  for (Grid* report : reports) {
    const RedrawOff off(*report);
    report->SetRows(0);
    report->SetCols(0);
  }
  shownReport_.clear();
}

// ---- Standard reports

void ReportsPage::ChoosePeriod() {
  const PeriodChoice& period = kPeriods[std::max(cboReportPeriod.Selected(), 0)];
  if (!period.days) return;
  const DateRange days = period.days(std::floor(ledger.platform.clock.Now()));
  txtReport_SDate.SetText(CellText(days.first));
  txtReport_EDate.SetText(CellText(days.last));
}

// Once a report stands there, its figures never stand under another's name.
void ReportsPage::KeepReportInStep() {
  if (fgReports.HasData() && tabReport.Selected() == kStandard &&
      WhyNoReport(txtReport_SDate.Text(), txtReport_EDate.Text()).empty())
    RefreshStandardReport();
}

void ReportsPage::RefreshStandardReport() {
  const std::string_view refused = WhyNoReport(txtReport_SDate.Text(), txtReport_EDate.Text());
  if (!refused.empty()) {
    ShowMessage(ledger, refused);
    return;
  }
  const BusyPointer busy(ledger.platform);
  const int index = std::max(cboReport.Selected(), 0);
  if (IsMonthly(index)) cboReportGroup.SetSelected(0);
  const RedrawOff off(fgReports);
  RunStandardReport(ledger,
                    {index,
                     {*CellDate(txtReport_SDate.Text()), *CellDate(txtReport_EDate.Text())},
                     cboReportGroup.Selected() == 1},
                    fgReports);
  HideZeros(ledger, fgReports, chkHideEmptyRows.Checked(), chkHideEmptyCols.Checked());
  shownReport_ = StandardReports()[static_cast<std::size_t>(index)].name;
  shownPeriod_ = txtReport_SDate.Text() + " to " + txtReport_EDate.Text();
}

// ---- Grouping report

void ReportsPage::RefreshGroupingReport() {
  const auto first = CellDate(txtReport_SDate.Text()), last = CellDate(txtReport_EDate.Text());
  if (!first || !last) {
    ShowMessage(ledger, "A start and end date must be entered for the report");
    return;
  }
  const auto records =
      cboGroupingReport.Selected() == 1 ? GroupedRecords::Invoices : GroupedRecords::Sessions;
  {
    const BusyPointer busy(ledger.platform);
    const RedrawOff off(fgGroupingReport);
    if (FillGroupingReport(ledger, records, {*first, *last}, fgGroupingReport))
      return RegroupAsChosen();
  }
  ShowMessage(ledger, "No data within the specified date range",
              "Please change the dates used to filter the report so they cover a larger date "
              "range.",
              Buttons::Ok, Icon::Exclamation, "Report");
}

void ReportsPage::RegroupAsChosen() {
  if (fgGroupingReport.HasData())
    Regroup(fgGroupingReport,
            {cboGroupingReportCalculation.Selected(), ValInt(cboGroupingLevels.Text())});
}

// The other reports keep their columns in their places.
void ReportsPage::ColumnMoved(Grid& grid, int from, int to) {
  const auto moves = [&](int col) { return col >= grid.FixedCols() && col < grid.Cols(); };
  if (&grid != &fgGroupingReport || !moves(from) || !moves(to)) return;
  const RedrawOff off(grid);
  grid.SetColPosition(from, to);
  RegroupAsChosen();
}

// ---- Tax report

void ReportsPage::RefreshTaxReport() {
  const BusyPointer busy(ledger.platform);
  FillTaxReport(ledger, DaysOfTaxYear(lblTaxYear.Text()), fgTaxReport);
}

void ReportsPage::MoveTaxYear(int years) {
  lblTaxYear.SetText(MovedTaxYear(lblTaxYear.Text(), years));
  if (fgTaxReport.HasData()) RefreshTaxReport();
}

void ReportsPage::CellClicked(Grid& grid, int row, int) {
  if (&grid == &fgTaxReport) ToggleTaxSection(grid, row);
}

// ---- Records

void ReportsPage::Open(const Grid& grid, int row) {
  if (&grid == &fgTaxReport && IsTaxSection(grid, row)) return ToggleTaxSection(fgTaxReport, row);
  const int tagged = &grid == &fgTaxReport ? 1 : 0;
  if (&grid != &fgReports)
    OpenTagged(ledger, grid.Cell(CellSetting::flexcpData, row, tagged), grid.DataOfRow(row),
               grid.Cell(CellSetting::flexcpData, row, tagged + 1));
}

}  // namespace lm
