// The records of a table as XML elements, a line for each cell: what all XML files have in common.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/clsStringBuilder.h"
#include "reports/exportcolumns.h"
#include "reports/xmlescape.h"

namespace lm {

// The lines that tell which program made the file, and when.
void WriteXmlHead(const Ledger& ledger, clsStringBuilder& file);

class XmlRows {
 public:
  // `escape` and the tables outlive it.
  XmlRows(const Ledger& ledger, const Grid& grid, std::vector<ExportColumn> columns,
          std::string_view itemTag, const XmlEscape& escape);
  void Write(int row, clsStringBuilder& file);

 private:
  struct Tags {
    ExportColumn column;
    std::string empty, open, close;  // of the cell's line; `open` as the column's own type has it
    std::string openAsText;
  };
  static std::vector<Tags> TagsOf(const std::vector<ExportColumn>& columns, int indent);

  // The items that belong to a session: its extras, its expenses.
  struct Items {
    const Grid& table;
    std::string_view list, item;  // tags
    std::vector<Tags> tags;
    ExportValues values;
    RowCells cells;
    std::unordered_map<std::string, std::vector<int>> rowsOf;  // by session
  };
  static Items MakeItems(const Ledger& ledger, const Grid& table, std::string_view list,
                         std::string_view item, const std::vector<std::string_view>& keys);

  void WriteCells(const std::vector<Tags>& tags, const ExportValues& values, const RowCells& cells,
                  int row, clsStringBuilder& file);
  void WriteItems(Items& items, const std::string& session, clsStringBuilder& file);

  const XmlEscape& escape_;
  std::string open_, close_;
  int idCol_;
  std::vector<Tags> tags_;
  ExportValues values_;
  RowCells cells_;
  std::vector<Items> items_;
  std::string line_;
};

}  // namespace lm
