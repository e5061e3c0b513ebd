#include "reports/exportxml.h"
#include "reports/xmlescape.h"

#include <utility>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string TextElement(std::string_view tag, std::string_view text) {
  const std::string name(tag);
  return " <" + name + " type=\"string\">" + std::string(text) + "</" + name + ">\r\n";
}

}  // namespace

void WriteXmlHead(const Ledger& ledger, clsStringBuilder& file) {
  constexpr std::string_view kScheme = "https://";
  const Date now = ledger.platform.clock.Now();
  file.Append(TextElement("creator", kProductName));
  file.Append(TextElement("version", ProgramVersion()));
  file.Append(TextElement("website", kWebsite.substr(kScheme.size())));
  file.Append(" <created type=\"datetime\">" + FormatDate(now, "yyyy-mm-dd") + "T" +
              FormatDate(now, "hh:nn:ss") + "</created>\r\n");
}

XmlRows::XmlRows(const Ledger& ledger, const Grid& grid, std::vector<ExportColumn> columns,
                 std::string_view itemTag, const XmlEscape& escape)
    : escape_(escape),
      open_("  <" + std::string(itemTag) + ">\r\n"),
      close_("  </" + std::string(itemTag) + ">\r\n"),
      idCol_(grid.FindCol("ID")),
      tags_(TagsOf(columns, 3)),
      values_(ledger, grid),
      cells_(grid) {
  if (&grid != &ledger.fgSessions) return;
  items_.push_back(
      MakeItems(ledger, ledger.fgExtras, "extraitems", "extra", {"ITEM", "RATE", "NOTES"}));
  items_.push_back(MakeItems(ledger, ledger.fgSessionExpenses, "sessionexpenses", "expense",
                             {"ITEM", "RATE", "CATEGORY", "NOTES"}));
}

std::vector<XmlRows::Tags> XmlRows::TagsOf(const std::vector<ExportColumn>& columns, int indent) {
  std::vector<Tags> all;
  const std::string margin(static_cast<std::size_t>(indent), ' ');
  for (const ExportColumn& column : columns) {
    const std::string begin = margin + "<" + column.tag;
    const auto open = [&](ColumnType type) {
      return begin + " type=\"" + std::string(TypeWord(type)) + "\">";
    };
    all.push_back({column, begin + " />\r\n", open(column.type), "</" + column.tag + ">\r\n",
                   open(ColumnType::String)});
  }
  return all;
}

XmlRows::Items XmlRows::MakeItems(const Ledger& ledger, const Grid& table, std::string_view list,
                                  std::string_view item,
                                  const std::vector<std::string_view>& keys) {
  std::vector<ExportColumn> columns;
  for (const std::string_view key : keys) columns.push_back(ColumnOfKey(table, key));
  Items items{table,           list, item, TagsOf(columns, 6), ExportValues(ledger, table),
              RowCells(table), {}};
  const int session = table.ColIndex("SESSID");
  for (const int row : Records(table)) items.rowsOf[table.TextMatrix(row, session)].push_back(row);
  return items;
}

void XmlRows::Write(int row, clsStringBuilder& file) {
  cells_.Read(row);
  file.Append(open_);
  WriteCells(tags_, values_, cells_, row, file);
  if (!items_.empty()) {
    const std::string session(cells_.At(idCol_));
    for (Items& items : items_) WriteItems(items, session, file);
  }
  file.Append(close_);
}

void XmlRows::WriteCells(const std::vector<Tags>& tags, const ExportValues& values,
                         const RowCells& cells, int row, clsStringBuilder& file) {
  line_.clear();
  for (const Tags& each : tags) {
    const ExportValue value = values.Of(each.column, row, cells.At(each.column.col));
    if (value.text.empty()) {
      line_ += each.empty;
      continue;
    }
    line_ += value.type == each.column.type ? each.open : each.openAsText;
    escape_.Append(line_, value.text);
    line_ += each.close;
  }
  file.Append(line_);
}

void XmlRows::WriteItems(Items& items, const std::string& session, clsStringBuilder& file) {
  const auto found = items.rowsOf.find(session);
  if (session.empty() || found == items.rowsOf.end()) return;
  const auto tag = [&](std::string_view before, std::string_view name) {
    file.Append(before).Append(name).Append(">").Append(kLineEnd);
  };
  tag("    <", items.list);
  for (const int row : found->second) {
    items.cells.Read(row);
    tag("     <", items.item);
    WriteCells(items.tags, items.values, items.cells, row, file);
    tag("     </", items.item);
  }
  tag("    </", items.list);
}

}  // namespace lm
