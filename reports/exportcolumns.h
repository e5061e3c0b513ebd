// What the exports make of a table's columns and cells: the type and the tag of a column, and a
// cell's value as other programs understand it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/ledger.h"

namespace lm {

enum class ColumnType { String, Boolean, Decimal, Integer, Date, Time };

std::string_view TypeWord(ColumnType type);  // "string", "boolean" ...

// "-1", "1" or "TRUE".
bool IsTrueCell(std::string_view cell);

// By the column's key, in capitals; "string" for a key that tells no other and for none.
ColumnType TypeOfColumn(std::string_view key);

// A name that XML takes, of a caption: "Rate - Normal" gives "rate_-_normal", "My Contrib."
// "my_contrib". A caption without such signs gives "column_" and the number.
std::string TagOf(std::string_view caption, int number);

// A cell to be written. What its column's type cannot read is a String.
struct ExportValue {
  ColumnType type = ColumnType::String;
  std::string text;  // dates yyyy-mm-dd, times hh:nn, decimals without commas, booleans 1 or 0
};

// What a text cell stands for.
enum class CellMeaning { Itself, Practice, Invoice, ShownText, Month };

struct ExportColumn {
  int col = 0;
  ColumnType type = ColumnType::String;
  CellMeaning meaning = CellMeaning::Itself;
  std::string caption, tag;
};

// The exported columns of a grid from `first` on: those that are shown, without one that a grouped
// list adds for its months.
std::vector<ExportColumn> ExportColumns(const Grid& grid, int first);
// The column of this key, shown or not.
ExportColumn ColumnOfKey(const Grid& grid, std::string_view key);

// The values of a grid's cells. What refers to other records reads them once: make it anew after
// they changed.
class ExportValues {
 public:
  ExportValues(const Ledger& ledger, const Grid& grid) : ledger_(ledger), grid_(grid) {}
  // Names for practices and invoices, what is shown for session types and categories, months as
  // "February 2026"; empty for an ID that no record bears.
  ExportValue Of(const ExportColumn& column, int row, std::string_view cell) const;

 private:
  using Texts = std::unordered_map<std::string, std::string>;
  const std::string& Named(Texts& names, const Grid& table, std::string_view key,
                           std::string_view id) const;
  const std::string& Shown(const ExportColumn& column, int row, std::string_view cell) const;

  const Ledger& ledger_;
  const Grid& grid_;
  mutable Texts practices_, invoices_;
  mutable std::unordered_map<int, Texts> shown_;  // by column
};

// The cells of a row, in the order of the columns; valid until the next.
class RowCells {
 public:
  explicit RowCells(const Grid& grid) : grid_(grid) {}
  void Read(int row);
  std::string_view At(int col) const {
    return col >= 0 && col < static_cast<int>(cells_.size()) ? cells_[static_cast<std::size_t>(col)]
                                                             : std::string_view();
  }

 private:
  const Grid& grid_;
  std::string record_;
  std::vector<std::string_view> cells_;
};

}  // namespace lm
