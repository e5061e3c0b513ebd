#include "reports/frmChart.h"

#include <algorithm>
#include <vector>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/savefile.h"
#include "core/tables.h"
#include "core/text.h"
#include "records/practices.h"
#include "reports/chartfile.h"
#include "reports/chartmarks.h"
#include "reports/frmChartOptions.h"

namespace lm {
namespace {

constexpr ColumnSpec kColumns[] = {
    {.key = "COLOUR", .caption = "", .width = 420},
    {.key = "NAME", .caption = "", .width = 2400},
};

struct ChartFile {
  std::string_view extension;
  std::string_view name;
};

constexpr ChartFile kPng{".png", "PNG Picture (*.png)"};
constexpr ChartFile kDrawings[] = {{".svg", "SVG Drawing (*.svg)"}, {".pdf", "PDF File (*.pdf)"}};

}  // namespace

frmChart::frmChart(Ledger& theLedger, const Grid& report, std::string_view title,
                   std::string_view subTitle)
    : Screen(theLedger, "frmChart", "Chart"), report_(report) {
  lblMainTitle.SetText(title);
  lblSubTitle.SetText(subTitle);
  lblLegend.SetText("Legend");
  MakeBlank(fgLegend, {fgLegend.Name(), kColumns});
  fgLegend.SetColWidth(0, 0);
  AddGrid(fgLegend);

  cmdChartOptions.SetText("&Options...");
  cmdChartOptions.onPressed = [this] { ShowOptions(); };
  cmdSaveChart.SetText("&Save...");
  cmdSaveChart.onPressed = [this] { Save(); };
  cmdPrintChart.SetText("&Print...");
  cmdPrintChart.onPressed = [this] { desktop_.print(); };
  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] { Close(); };
  cancelButton = &cmdClose;
  Refresh();
}

ChartChoice frmChart::Choice() const {
  return {static_cast<ChartType>(ledger.chartType),
          ledger.chartByDate ? ChartGroup::Date : ChartGroup::Practice};
}

void frmChart::SetChoice(ChartChoice choice) {
  ledger.chartType = static_cast<int>(choice.type);
  ledger.chartByDate = choice.group == ChartGroup::Date;
  Refresh();
}

void frmChart::SetDesktop(Desktop desktop) {
  desktop_ = std::move(desktop);
  Refresh();
}

void frmChart::Refresh() {
  chart_ = MakeChart(report_, Choice());
  FillLegend();
  cmdSaveChart.SetEnabled(!chart_.IsEmpty());
  cmdPrintChart.SetEnabled(!chart_.IsEmpty() && desktop_.print);
  if (desktop_.chartChanged) desktop_.chartChanged();
}

void frmChart::FillLegend() {
  const RedrawOff redrawOff(fgLegend);
  fgLegend.ClearData();
  const int colour = fgLegend.ColIndex("COLOUR");
  for (int entry = 0; entry < chart_.Entries(); ++entry) {
    const int row = fgLegend.AddItem("");
    fgLegend.SetTextMatrix(row, "NAME", chart_.EntryName(entry));
    fgLegend.SetCellColour(CellSetting::flexcpBackColor, {row, colour, row, colour},
                           ChartColour(chart_, entry));
  }
}

void frmChart::ShowOptions() {
  frmChartOptions options(ledger, Choice(), [this](ChartChoice choice) { SetChoice(choice); });
  ShowModal(options);
}

void frmChart::Save() {
  constexpr std::string_view kUnable = "Unable to save the chart.\\n";
  std::vector<ChartFile> kinds(std::begin(kDrawings), std::end(kDrawings));
  if (desktop_.png) kinds.insert(kinds.begin(), kPng);
  std::vector<FileFilter> filters;
  for (const ChartFile& kind : kinds)
    filters.push_back({std::string(kind.name), "*" + std::string(kind.extension)});
  const std::string name = Join({lblMainTitle.Text(), lblSubTitle.Text()}, " ");
  const std::filesystem::path start =
      ledger.programDirectory /
      PathFromText(NameForFile(Trim(name)) + std::string(kinds.front().extension));
  const auto target = AskWhereToSave(ledger, "Save Chart", kUnable, filters, start);
  if (!target) return;
  // A name typed with another kind's extension is taken by that.
  const std::string typed = ToLower(PathText(target->path.extension()));
  const auto named = std::ranges::find(kinds, typed, &ChartFile::extension);
  const std::string_view kind =
      named != kinds.end() ? named->extension : kinds[target->filter].extension;
  const BusyPointer busy(ledger.platform);
  std::string error;
  if (!Write(target->path, kind, error))
    ShowMessage(ledger, std::string(kUnable) + "The file could not be written",
                "File '" + PathInMessage(target->path) + "'\\n\\n" + error);
}

bool frmChart::Write(const std::filesystem::path& path, std::string_view extension,
                     std::string& error) {
  if (extension == ".pdf")
    return WriteChartPdf(chart_, Titles(), ledger.platform.clock, path, error);
  const std::string bytes = extension == ".svg" ? ChartSvg(chart_, Titles()) : desktop_.png();
  if (bytes.empty()) {
    error = "The picture could not be drawn.";
    return false;
  }
  return ReplaceFile(path, bytes, error);
}

bool ShowChart(Ledger& ledger, const Grid& report, std::string_view title,
               std::string_view subTitle) {
  if (!HasChartValues(report)) {
    ShowMessage(ledger, "There are no values on the report to chart",
                "1. Click the Refresh button to populate the report grid.\\n"
                "2. If no data appears, change the report dates at the top of the page,\\n"
                "   or select a different report from the list.",
                Buttons::Ok, Icon::Exclamation, "Chart");
    return false;
  }
  frmChart window(ledger, report, title, subTitle);
  ShowModal(window);
  return true;
}

}  // namespace lm
