// All records as XML, and writing any export to its file.
#include "core/files.h"
#include "core/messagebox.h"
#include "core/rows.h"
#include "core/savefile.h"
#include "reports/exports.h"
#include "reports/exportxml.h"
#include "reports/xmlescape.h"

namespace lm {
namespace {

struct ExportedTable {
  Grid Ledger::*table;
  std::string_view list, item;  // tags
};

constexpr ExportedTable kTablesOfXml[] = {
    {&Ledger::fgSessions, "sessions", "session"},
    {&Ledger::fgPractices, "practices", "practice"},
    {&Ledger::fgInvoices, "invoices", "invoice"},
    {&Ledger::fgExpenses, "expenses", "expense"},
    {&Ledger::fgPensionA, "pension_a", "item"},
    {&Ledger::fgPensionB, "pension_b", "item"},
    {&Ledger::fgPensionC, "pension_c", "item"},
    {&Ledger::fgPensionD, "pension_d", "item"},
    {&Ledger::fgPensionSolo, "pension_solo", "item"},
};

}  // namespace

void WriteAllData(const Ledger& ledger, clsStringBuilder& file) {
  file.Append("<?xml version=\"1.0\" encoding=\"iso-8859-1\" standalone=\"yes\"?>\r\n");
  file.Append("<locumdata>\r\n");
  WriteXmlHead(ledger, file);
  for (const ExportedTable& each : kTablesOfXml) {
    const Grid& table = ledger.*each.table;
    XmlRows rows(ledger, table, ExportColumns(table, table.FixedCols()), each.item, LatinEscape());
    file.Append(" <").Append(each.list).Append(">\r\n");
    for (const int row : Records(table)) rows.Write(row, file);
    file.Append(" </").Append(each.list).Append(">\r\n");
  }
  file.Append("</locumdata>\r\n");
}

bool WriteExportFile(Ledger& ledger, const std::filesystem::path& path,
                     const std::function<void(clsStringBuilder& file)>& write) {
  FileReplacement replacement;
  std::string error = IsOwnFile(ledger, path) ? "The program itself uses this file." : "";
  bool good = error.empty() && replacement.Open(path, error);
  if (good) {
    clsStringBuilder file(
        [&](std::string_view block) { good = good && replacement.Write(block, error); });
    write(file);
    file.Flush();
  }
  good = good && replacement.Commit(error);
  if (!good)
    ShowMessage(ledger, "Unable to export the data", PathInMessage(path) + "\\n\\n" + error);
  return good;
}

}  // namespace lm
