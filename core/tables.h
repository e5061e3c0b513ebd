// The declaration of all stored tables, as data. The blank data file, the formatting pass, the
// reading of older files and the exports go by it.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "core/grid.h"

namespace lm {

// Whose list a column chooses from.
enum class Lookup {
  None,
  Practices,
  InvoiceNumbers,
  SessionTypes,
  ExpenseCategories,
  EventCategories,
  PaymentMethods,
  PaymentForms
};

constexpr std::string_view kAmountFormat = "#,##0.00";
constexpr std::string_view kMonthFormat = "mmm yyyy";
constexpr std::string_view kTimeFormat = "hh:nn";

// A date column without a format shows as the user's date format says, one with kTimeFormat as the
// user's time format says.
struct ColumnSpec {
  std::string_view key;
  std::string_view caption;
  DataType type = DataType::Text;
  std::string_view format = "";
  int width = -1;  // twips; -1 the default
  bool hidden = false;
  Lookup lookup = Lookup::None;
  bool englandOnly = false;  // shown only where the pension rules are England's
  // Where a table that lacks the column gets it; when neither is told, behind the column declared
  // before this one.
  std::string_view before = "";  // directly in front of this one
  int position = 0;              // at this place, or the last one of a shorter table
};

struct TableSpec {
  std::string_view name;                // "fgSessions"
  std::span<const ColumnSpec> columns;  // in the order of a new file, without the marker column
  std::string_view record = "";         // what a row is called: "Session"
};

// The thirteen tables of the data file, in the order in which they stand there.
constexpr int kDataTables = 13;
extern const std::array<TableSpec, kDataTables> kTables;
extern const TableSpec kShortcutsTable;

// Null when there is no table of this name; ignores case.
const TableSpec* FindTable(std::string_view name);

// Makes the grid a blank table: caption row, hidden key row, columns, widths, no data.
void MakeBlank(Grid& grid, const TableSpec& table);

// The narrow first column of a table that shows the state of its rows by their colour.
constexpr int kMarkerWidth = 120;  // twips
bool HasMarker(const Grid& grid);
// The first fixed row that is shown, where the captions stand; -1 when there is none.
int CaptionRow(const Grid& grid);

// Adds the columns that a stored table lacks, each where its declaration puts it. Cells of the new
// columns are empty.
void AddMissingColumns(Grid& grid, const TableSpec& table);
// Adds a declared column behind another one, or at the end of a table that lacks that one too;
// nothing when it is there already.
void AddColumn(Grid& grid, const TableSpec& table, std::string_view key, std::string_view behind);

}  // namespace lm
