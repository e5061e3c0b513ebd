#include "cli/exportcommands.h"

#include <ostream>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "reports/standardreport.h"
#include "shell/exports.h"

namespace lm {
namespace {

int Refuse(std::ostream& error, std::string_view why) {
  error << "ledgerminder-cli: " << ToUtf8(why) << '\n';
  return 2;
}

}  // namespace

int RunExportCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& error) {
  if (words.size() < 2 || words.size() > 3) return Refuse(error, "export what, to which file?");
  const std::string& kind = words[0];
  if (kind != "xml" && kind != "xls" && kind != "csv")
    return Refuse(error, "export knows xml, xls and csv, not " + kind);
  const Grid* table = words.size() > 2 ? ledger.Table(words[2]) : nullptr;
  auto exported = table ? ExportOf(*table) : std::nullopt;
  const bool takesTable = kind == "xls" ? table && HasSheet(ledger, *table) : exported.has_value();
  if (words.size() > 2 && !takesTable)
    return Refuse(error, "no such table to export as " + kind + ": " + words[2]);
  if (kind == "csv" && !exported) return Refuse(error, "csv takes a table, such as fgSessions");
  if (exported) exported->allRows = true;
  const bool done = WriteExportFile(ledger, PathFromUtf8(words[1]), [&](clsStringBuilder& file) {
    if (kind == "xls")
      WriteWorkbook(ledger, file, table);
    else if (!exported)
      WriteAllData(ledger, file);
    else
      WriteGrid(ledger, *exported, kind == "csv" ? GridFormat::Csv : GridFormat::Xml, file);
  });
  return done ? 0 : 1;
}

int RunReportCommand(const std::vector<std::string>& words, Ledger& ledger, std::ostream& output,
                     std::ostream& error) {
  if (words.size() < 3) return Refuse(error, "which report, from when, to when?");
  const int last = static_cast<int>(StandardReports().size()) - 1;
  if (!AllDigits(words[0]) || ValInt(words[0]) > last)
    return Refuse(error, "a report is a number from 0 to " + std::to_string(last));
  const std::string_view refused = WhyNoReport(words[1], words[2]);
  if (!refused.empty()) return Refuse(error, refused);
  ReportRequest request{ValInt(words[0]), {*CellDate(words[1]), *CellDate(words[2])}, false};
  std::string path;
  for (std::size_t i = 3; i < words.size(); ++i) {
    if (words[i] == "--csv" && i + 1 < words.size())
      path = words[++i];
    else if (words[i] == "day" || words[i] == "month")
      request.byDay = words[i] == "day" && !IsMonthly(request.report);
    else
      return Refuse(error, "not understood: " + words[i]);
  }
  Grid report("fgReports");
  RunStandardReport(ledger, request, report);
  HideZeros(ledger, report, false, false);
  const auto write = [&](clsStringBuilder& file) {
    WriteGrid(ledger, *ExportOf(report), GridFormat::Csv, file);
  };
  if (!path.empty()) return WriteExportFile(ledger, PathFromUtf8(path), write) ? 0 : 1;
  clsStringBuilder text;
  write(text);
  output << Replace(ToUtf8(text.ToString()), "\r\n", "\n");
  return 0;
}

}  // namespace lm
