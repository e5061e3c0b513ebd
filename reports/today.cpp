#include "reports/today.h"

#include <algorithm>
#include <exception>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr int kTitleRow = 0, kKeyRow = 1, kFixedRows = 2;
constexpr int kHeadingLevel = 1;
constexpr std::string_view kPounds = "£#,##0.00"_w;

struct Section {
  const TodaySection& spec;
  std::vector<TodayRow> rows;
  Currency total;

  // Days are headings among the rows, and nothing to count.
  auto Count() const {
    return std::ranges::count_if(rows, [](const TodayRow& row) { return !row.isDay; });
  }
};

bool IsShown(const Ledger& ledger, const TodaySection& section) {
  return OptionIsTrue(ledger, section.shown) &&
         (!section.shownToo || OptionIsTrue(ledger, *section.shownToo));
}

// A section that is not shown takes no part in the balance.
std::vector<Section> Gather(const TodayRecords& records, const TodayList& list) {
  std::vector<Section> sections;
  Currency balance;
  for (const TodaySection& spec : list.sections) {
    if (!IsShown(records.ledger, spec)) continue;
    Section& section = sections.emplace_back(Section{spec, {}, {}});
    if (spec.rows) section.rows = spec.rows(records);
    if (spec.onlyWithRows && section.rows.empty()) {
      sections.pop_back();
      continue;
    }
    for (const TodayRow& row : section.rows) section.total += row.amount;
    if (spec.inBalance > 0) balance += section.total;
    if (spec.inBalance < 0) balance += -section.total;
    if (spec.total == TodayTotal::Balance) section.total = balance;
  }
  return sections;
}

std::string HeadingOf(const Section& section) {
  std::string text(section.spec.caption);
  if (const auto count = section.Count()) text += " (" + std::to_string(count) + ")";
  if (!section.spec.note.empty()) text += " " + std::string(section.spec.note);
  return text;
}

void WriteHeading(const Section& section, bool folded, Grid& grid, int row) {
  grid.SetRowOutlineLevel(row, kHeadingLevel);
  grid.SetRowCollapsed(row, folded);
  grid.SetTextMatrix(row, 0, HeadingOf(section));
  grid.SetCell(CellSetting::flexcpData, row, 0, section.spec.key);
  grid.SetDataOfRow(row, section.spec.note);
  if (section.spec.total != TodayTotal::None)
    grid.SetTextMatrix(row, grid.Cols() - 1, Format(section.total, kPounds));
}

void WriteRow(const TodayList& list, const TodayRow& row, bool amounts, Grid& grid, int at) {
  if (row.isDay) return grid.SetTextMatrix(at, 0, row.name);
  grid.SetTextMatrix(at, list.nameColumn, row.name);
  grid.SetTextMatrix(at, list.nameColumn + 1, row.when);
  if (amounts) grid.SetTextMatrix(at, grid.Cols() - 1, Format(row.amount, kPounds));
  if (!row.tag.empty()) grid.SetCell(CellSetting::flexcpData, at, 0, row.tag);
  if (!row.finder.empty()) grid.SetDataOfRow(at, row.finder);
}

void Write(const TodayList& list, const std::vector<Section>& sections,
           const std::set<std::string>& folded, Grid& grid) {
  std::size_t rows = 0;
  for (const Section& section : sections) rows += 1 + section.rows.size();
  int at = grid.FixedRows();
  grid.SetRows(at + static_cast<int>(rows));
  for (const Section& section : sections) {
    WriteHeading(section, folded.contains(std::string(section.spec.key)), grid, at++);
    for (const TodayRow& row : section.rows)
      WriteRow(list, row, section.spec.total != TodayTotal::None, grid, at++);
  }
}

std::string DataAt(const Grid& grid, int row) { return grid.Cell(CellSetting::flexcpData, row, 0); }

// A row's tag with what finds its form; "" for a row without either.
std::string RecordAt(const Grid& grid, int row) { return DataAt(grid, row) + grid.DataOfRow(row); }

// Where the cursor is, by what stands there: rows above it come and go.
struct Place {
  std::string section, record;  // the record is "" on a heading
  int col = -1;
};

Place PlaceOfCursor(const Grid& grid) {
  int row = grid.Row();
  if (row < grid.FixedRows()) return {};
  Place place{"", grid.IsSubtotal(row) ? "" : RecordAt(grid, row), grid.Col()};
  while (row > grid.FixedRows() && !grid.IsSubtotal(row)) --row;
  place.section = SectionOfHeading(grid, row);
  return place;
}

// On the record, else on its section's heading.
void PutCursor(Grid& grid, const Place& place) {
  int row = grid.FixedRows();
  while (row < grid.Rows() && SectionOfHeading(grid, row) != place.section) ++row;
  if (place.section.empty() || row == grid.Rows()) return grid.Select(-1, -1);
  int record = row + 1;
  while (record < grid.Rows() && !grid.IsSubtotal(record) && RecordAt(grid, record) != place.record)
    ++record;
  const bool found = !place.record.empty() && record < grid.Rows() && !grid.IsSubtotal(record);
  grid.Select(found ? record : row, place.col);
}

}  // namespace

void StartToday(const TodayList& list, Grid& grid) {
  const RedrawOff off(grid);
  const int cols = static_cast<int>(list.columns.size());
  grid.SetRows(kFixedRows);
  grid.SetFixedRows(kFixedRows);
  grid.SetCols(cols);
  for (int col = 0; col < cols; ++col) {
    const TodayColumn& column = list.columns[static_cast<std::size_t>(col)];
    grid.SetColKey(col, column.key);
    grid.SetTextMatrix(kKeyRow, col, column.key);
    grid.SetColWidth(col, column.width);
    grid.SetColAlignment(col, column.alignment);
  }
  grid.SetTextMatrix(kTitleRow, 0, list.title);
  grid.SetCell(CellSetting::flexcpFontBold, kTitleRow, 0, "TRUE");
  grid.SetRowHidden(kKeyRow, true);
  grid.SetMergeCells(MergeSetting::Spill);
}

bool FillToday(Ledger& ledger, const TodayRecords& records, const TodayList& list,
               const std::set<std::string>& folded, Grid& grid) {
  try {
    const RedrawOff off(grid);
    const Place cursor = PlaceOfCursor(grid);
    grid.ClearData();
    Write(list, Gather(records, list), folded, grid);
    PutCursor(grid, cursor);
    return true;
  } catch (const std::exception&) {
    grid.ClearData();
  }
  ShowMessage(ledger, list.fault);
  return false;
}

std::string SectionOfHeading(const Grid& grid, int row) {
  return grid.IsSubtotal(row) ? DataAt(grid, row) : "";
}

bool IsEmptySection(const Grid& grid, int heading) {
  return heading + 1 >= grid.Rows() || grid.IsSubtotal(heading + 1);
}

void NoteFolded(const Grid& grid, std::set<std::string>& folded) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    const std::string section = SectionOfHeading(grid, row);
    if (section.empty() || IsEmptySection(grid, row)) continue;
    if (grid.RowCollapsed(row))
      folded.insert(section);
    else
      folded.erase(section);
  }
}

}  // namespace lm
