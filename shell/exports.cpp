// The Export menu: everything as one file, or the grid in front.
#include "shell/exports.h"

#include <algorithm>
#include <iterator>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/savefile.h"
#include "core/text.h"
#include "records/practices.h"
#include "shell/frmMain.h"
#include "shell/pages/mainpage.h"

namespace lm {
namespace {

constexpr std::string_view kUnable = "Unable to export the data.\\n";

// The grids that can be exported, with the title of their file.
struct GridFile {
  std::string_view grid, title, itemTag;
  int firstCol = 1;
  bool allRows = false;
};

constexpr GridFile kGridFiles[] = {
    {"fgReports", "Report - ", "item", 0},
    {"fgGroupingReport", "Grouping Report", "item"},
    {"fgTaxReport", "Tax Report", "item", 0, true},
    {"fgSessions", "Sessions", "session"},
    {"fgEvents", "Events", "event"},
    {"fgPractices", "Practices", "practice"},
    {"fgExpenses", "Expenses", "expense"},
    {"fgInvoices", "Invoice", "invoice"},
    {"fgPensionA", "Pension Form A", "form"},
    {"fgPensionB", "Pension Form B", "form"},
    {"fgPensionC", "Pension Form C", "form"},
    {"fgPensionD", "Pension Form D", "form"},
    {"fgPensionSolo", "Pension Form Solo", "form"},
    {"fgPensionPayments", "Pension Payments", "form"},
};

const std::vector<FileFilter>& GridFilters() {
  static const std::vector<FileFilter> filters{{"Comma Seperated Values (*.csv)", "*.csv"},
                                               {"Pipe Delimited Values (*.txt)", "*.txt"},
                                               {"XML File (*.xml)", "*.xml"}};
  return filters;
}

}  // namespace

std::optional<ExportedGrid> ExportOf(const Grid& grid) {
  const auto* found = std::ranges::find(kGridFiles, grid.Name(), &GridFile::grid);
  if (found == std::end(kGridFiles)) return std::nullopt;
  return ExportedGrid{&grid, found->itemTag, found->firstCol, found->allRows};
}

void frmMain::Export(const std::filesystem::path& path,
                     const std::function<void(clsStringBuilder& file)>& write) {
  const BusyPointer busy(ledger.platform);
  if (WriteExportFile(ledger, path, write))
    lblStatus.SetText("Exported: " + PathText(path.filename()));
}

void frmMain::ExportAllData() {
  const auto target = AskWhereToSave(
      ledger, "Export All Data", kUnable,
      {{"XML File (*.xml)", "*.xml"}, {"XML Spreadsheet (*.xml)", "*.xml"}}, "LedgerMinder Data");
  if (!target) return;
  Export(target->path, [&](clsStringBuilder& file) {
    target->filter == 0 ? WriteAllData(ledger, file) : WriteWorkbook(ledger, file);
  });
}

void frmMain::ExportGrid() {
  const Grid* grid = PageGrid();
  const auto exported = grid ? ExportOf(*grid) : std::nullopt;
  if (!exported) {
    ShowMessage(ledger, "Data can only be exported from grid views",
                "Please select the grid you want to export first (Invoices, Expenses etc.) and "
                "then choose to Export Grid.",
                Buttons::Ok, Icon::Exclamation, "Export Grid");
    return;
  }
  const std::string title =
      std::string(std::ranges::find(kGridFiles, grid->Name(), &GridFile::grid)->title) +
      FrontPage().Subject();
  const auto target =
      AskWhereToSave(ledger, "Export Grid", kUnable, GridFilters(), NameForFile(title));
  if (!target) return;
  Export(target->path, [&](clsStringBuilder& file) {
    WriteGrid(ledger, *exported, static_cast<GridFormat>(target->filter), file);
  });
}

}  // namespace lm
