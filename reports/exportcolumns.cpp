#include "reports/exportcolumns.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "core/celltexts.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kGroupMonth = "GROUPMONTH";

struct TypedKey {
  std::string_view key;
  ColumnType type;
};

using enum ColumnType;

constexpr TypedKey kTypedKeys[] = {
    {"ADDITIONAL", Decimal},
    {"AMOUNT", Decimal},
    {"AVC", Decimal},
    {"CDATE", ColumnType::Date},
    {"CONTRIBUTION", Decimal},
    {"DATE", ColumnType::Date},
    {"EDATE", ColumnType::Date},
    {"EMPLOYERCONTRIB", Decimal},
    {"EMP_CONTRIB", Decimal},
    {"ERRBO", Decimal},
    {"ETIME", Time},
    {"EXPENSES", Decimal},
    {"EXTRAS", Decimal},
    {"EXTRAYEARS", Decimal},
    {"EXTRA_YEARS", Decimal},
    {"IDATE", ColumnType::Date},
    {"INCLUDEEMPLOYERCONTRIB", Boolean},
    {"MILEAGE", Decimal},
    {"MY_CONTRIB", Decimal},
    {"PAYDATE", ColumnType::Date},
    {"PENSIONABLE", Decimal},
    {"RATE", Decimal},
    {"RATE_NORMAL", Decimal},
    {"RATE_OOHD", Decimal},
    {"RATE_OOHS", Decimal},
    {"RATE_PRIVATE", Decimal},
    {"RATE_UNPENSIONED", Decimal},
    {"RCVDFROMPRACTICE", ColumnType::Date},
    {"RECEIPTDATE", ColumnType::Date},
    {"SDATE", ColumnType::Date},
    {"SENTTOHA", ColumnType::Date},
    {"SENTTOPRACTICE", ColumnType::Date},
    {"SESSIONS", Integer},
    {"STIME", Time},
    {"TOTAL", Decimal},
    {"TOTAL_CONTRIB", Decimal},
    {"TOTAL_PAID", Decimal},
};
static_assert(std::ranges::is_sorted(kTypedKeys, {}, &TypedKey::key));

void PutDigits(std::string& text, int number, int width) {
  for (int power = width == 4 ? 1000 : 10; power > 0; power /= 10)
    text += static_cast<char>('0' + number / power % 10);
}

std::string IsoDate(lm::Date date) {
  const CivilDate civil = ToCivilDate(date);
  std::string text;
  PutDigits(text, civil.year, 4);
  text += '-';
  PutDigits(text, civil.month, 2);
  text += '-';
  PutDigits(text, civil.day, 2);
  return text;
}

bool IsPlainNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  std::size_t points = 0;
  for (const char c : text) {
    if (c == '.')
      ++points;
    else if (c < '0' || c > '9')
      return false;
  }
  return points <= 1 && text.size() > points && text.size() <= 15;
}

ExportValue NumberValue(ColumnType type, std::string_view cell) {
  if (IsPlainNumber(cell)) return {type, std::string(cell)};
  if (!IsNumeric(cell)) return {String, std::string(cell)};
  const std::string digits = Replace(Trim(cell), ",", "");
  return {type, IsPlainNumber(digits) ? digits : PlainText(NumericValue(cell))};
}

ExportValue TypedValue(ColumnType type, std::string_view cell) {
  switch (type) {
    case String:
      break;
    case Boolean:
      return {type, IsTrueCell(cell) ? "1" : "0"};
    case Decimal:
    case Integer:
      return NumberValue(type, cell);
    case ColumnType::Date:
      if (const auto date = CellDate(cell)) return {type, IsoDate(*date)};
      break;
    case Time:
      if (const auto time = CellTime(cell)) return {type, CellTimeText(*time)};
      break;
  }
  return {String, std::string(cell)};
}

}  // namespace

bool IsTrueCell(std::string_view cell) { return cell == "-1" || cell == "1" || cell == "TRUE"; }

std::string_view TypeWord(ColumnType type) {
  constexpr std::array<std::string_view, 6> kWords{"string",  "boolean", "decimal",
                                                   "integer", "date",    "time"};
  return kWords[static_cast<std::size_t>(type)];
}

ColumnType TypeOfColumn(std::string_view key) {
  const std::string upper = ToUpper(key);
  const auto* found =
      std::ranges::lower_bound(kTypedKeys, std::string_view(upper), {}, &TypedKey::key);
  return found != std::end(kTypedKeys) && found->key == upper ? found->type : String;
}

std::string TagOf(std::string_view caption, int number) {
  std::string tag;
  for (const char c : ToLower(Trim(caption))) {
    const bool letter = c >= 'a' && c <= 'z', digit = c >= '0' && c <= '9';
    if (tag.empty() && (digit || c == '-')) tag += '_';
    if (letter || digit || c == '-' || c == '_') tag += c;
    if (c == ' ') tag += '_';
  }
  return tag.empty() ? "column_" + std::to_string(number) : tag;
}

// ---- Columns and cells

namespace {

constexpr std::pair<std::string_view, CellMeaning> kMeanings[] = {
    {"practice", CellMeaning::Practice},
    {"ooh_provider", CellMeaning::Practice},
    {"branch_of", CellMeaning::Practice},
    {"invoice", CellMeaning::Invoice},
    {"session_type", CellMeaning::ShownText},
    {"category", CellMeaning::ShownText},
    {"month", CellMeaning::Month},
};

// A report's columns bear no keys: they hold names already, and any caption may be a practice's.
CellMeaning MeaningOf(const Grid& grid, int col, std::string_view tag) {
  if (grid.ColFormat(col) == kHoursFormat) return CellMeaning::ShownText;
  if (grid.ColKey(col).empty()) return CellMeaning::Itself;
  for (const auto& [name, meaning] : kMeanings)
    if (name == tag) return meaning;
  return CellMeaning::Itself;
}

ExportColumn MakeColumn(const Grid& grid, int col) {
  const std::string caption = grid.TextMatrix(CaptionRow(grid), col);
  std::string tag = TagOf(caption, col);
  const CellMeaning meaning = MeaningOf(grid, col, tag);
  return {col, TypeOfColumn(grid.ColKey(col)), meaning, caption, std::move(tag)};
}

}  // namespace

std::vector<ExportColumn> ExportColumns(const Grid& grid, int first) {
  std::vector<ExportColumn> columns;
  for (int col = first; col < grid.Cols(); ++col)
    if (grid.ColVisible(col) && grid.ColKey(col) != kGroupMonth)
      columns.push_back(MakeColumn(grid, col));
  return columns;
}

ExportColumn ColumnOfKey(const Grid& grid, std::string_view key) {
  return MakeColumn(grid, grid.ColIndex(key));
}

const std::string& ExportValues::Named(Texts& names, const Grid& table, std::string_view key,
                                       std::string_view id) const {
  if (names.empty()) {
    names.emplace("", "");
    const int ids = table.ColIndex("ID"), texts = table.ColIndex(key);
    for (const int row : Records(table))
      names.try_emplace(table.TextMatrix(row, ids), table.TextMatrix(row, texts));
  }
  static const std::string kNone;
  const auto found = names.find(std::string(id));
  return found == names.end() ? kNone : found->second;
}

const std::string& ExportValues::Shown(const ExportColumn& column, int row,
                                       std::string_view cell) const {
  const auto [text, added] = shown_[column.col].try_emplace(std::string(cell));
  if (added) text->second = grid_.DisplayText(row, column.col);
  return text->second;
}

ExportValue ExportValues::Of(const ExportColumn& column, int row, std::string_view cell) const {
  if (cell.empty()) return {};
  if (column.type != String) return TypedValue(column.type, cell);
  switch (column.meaning) {
    case CellMeaning::Practice:
      return {String, Named(practices_, ledger_.fgPractices, "NAME", cell)};
    case CellMeaning::Invoice:
      return {String, Named(invoices_, ledger_.fgInvoices, "NUMBER", cell)};
    case CellMeaning::ShownText:
      return {String, Shown(column, row, cell)};
    case CellMeaning::Month:
      if (const auto month = CellDate(cell)) return {String, FormatDate(*month, "mmmm yyyy")};
      break;
    case CellMeaning::Itself:
      break;
  }
  return {String, std::string(cell)};
}

void RowCells::Read(int row) {
  record_.clear();
  cells_.clear();
  grid_.WriteRecord(row, record_);
  std::size_t start = 0;
  for (std::size_t end; (end = record_.find(kFieldEnd, start)) != std::string::npos;
       start = end + 1)
    cells_.push_back(std::string_view(record_).substr(start, end - start));
}

}  // namespace lm
