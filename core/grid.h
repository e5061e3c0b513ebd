// A table of text cells addressed by row number and column key: storage of every record and its
// display at once. Row 0 of a record table is the caption row, row 1 the hidden key row; data rows
// start at FixedRows. Column 0 is the change marker. A column is found by ColIndex and never by
// position, since users move columns.
//
// Rows and columns count from 0. Reading outside the table gives an empty text or the default;
// writing there does nothing. So a look-up that found no column (-1) is harmless.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lm {

// Colours are blue * 65536 + green * 256 + red, the form in which the options hold them.
using Colour = int;
constexpr Colour Rgb(int red, int green, int blue) { return blue * 65536 + green * 256 + red; }
constexpr Colour kNoColour = -1;  // the list's own colour

// How a column sorts and displays.
enum class DataType { Text = 0, Money = 6, Date = 7 };

enum class CellSetting {
  flexcpText,
  flexcpBackColor,
  flexcpForeColor,
  flexcpFontBold,
  flexcpChecked,
  flexcpPicture,
  flexcpAlignment,
  flexcpData,
  flexcpFormat,
};

// Of cells and columns; General is left for text and right for money.
enum class Alignment { General, Left, Centre, Right };

enum class SortSetting {
  GenericAscending,  // as the column's data type says; a column that stores ids sorts by what it
                     // shows, and among equal texts by id
  GenericDescending,
  NumericAscending,
  NumericDescending,
  StringNoCaseAscending,
  StringNoCaseDescending,
};

enum class SubtotalFunction {
  Clear = 1,
  Sum = 2,
  Percent = 3,
  Count = 4,
  Average = 5,
  Maximum = 6,
  Minimum = 7
};
enum class SubtotalPosition { Above, Below };

struct SubtotalStyle {
  int level = 1;            // outline level of the subtotal rows, 1 and up; 1 is the outermost
  std::string format = "";  // pattern of the figure; the column's own when empty
  Colour backColour = kNoColour;
  Colour foreColour = kNoColour;
  bool bold = true;
  std::string caption = "%s";  // "%s" stands for the group's shown value
  int matchFrom = -1;  // a group also ends where a column from here on changes; -1: groupOn alone
};

enum class MergeSetting {
  Never = 0,
  Free = 1,
  RestrictRows = 2,
  RestrictColumns = 3,
  RestrictAll = 4,
  Spill = 6
};

// Where a block of equal neighbouring cells is drawn as one.
struct CellRange {
  int row1 = 0, col1 = 0, row2 = 0, col2 = 0;
  bool operator==(const CellRange&) const = default;
};

class CellTexts;
class Grid;
class History;

// Told what changed while Redraw is on. Switching Redraw on again after changes gives one
// GridReset.
class GridObserver {
 public:
  virtual ~GridObserver() = default;
  virtual void CellsChanged(Grid& grid, const CellRange& range) = 0;
  virtual void RowsInserted(Grid& grid, int row, int count) = 0;
  virtual void RowsRemoved(Grid& grid, int row, int count) = 0;
  virtual void LayoutChanged(
      Grid& grid) = 0;  // columns, widths, hidden rows or columns, outline, merges
  virtual void CursorMoved(Grid& grid) = 0;
  virtual void GridReset(Grid& grid) = 0;
};

class Grid {
 public:
  explicit Grid(std::string name);
  ~Grid();
  Grid(const Grid&) = delete;
  Grid& operator=(const Grid&) = delete;

  const std::string& Name() const { return name_; }

  // Size. A smaller count drops rows or columns at the end; a negative count is 0.
  int Rows() const;
  void SetRows(int rows);
  int Cols() const;
  void SetCols(int cols);
  int FixedRows() const { return fixedRows_; }
  void SetFixedRows(int rows);
  int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int cols);
  bool HasData() const { return Rows() > FixedRows(); }
  void ClearData();  // removes the data rows; headers, columns and widths stay

  // Cell text.
  std::string TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, std::string_view text);
  std::string TextMatrix(int row, std::string_view key) const;
  void SetTextMatrix(int row, std::string_view key, std::string_view text);

  // Columns.
  const std::string& ColKey(int col) const;
  void SetColKey(int col, std::string_view key);
  // Ignores case; -1 when there is none: a file of another version may lack a column. A key that
  // was never declared is a slip of the pen, which ends the program where LEDGERMINDER_STRICT is
  // set in its environment, as in tests.
  int ColIndex(std::string_view key) const;
  int FindCol(std::string_view key) const;  // the same for a key that a user or a file names
  // A key that the table may have one day. SetColKey declares the key that it sets.
  void DeclareKey(std::string_view key);
  int ColWidth(int col) const;  // twips; -1 is the default width; 0 hides the column
  void SetColWidth(int col, int twips);
  bool ColHidden(int col) const;
  void SetColHidden(int col, bool hidden);
  bool ColVisible(int col) const { return !ColHidden(col) && ColWidth(col) != 0; }
  void SetColPosition(int col, int position);  // moves a column, renumbering those between
  const std::string& ColFormat(int col) const;
  void SetColFormat(int col, std::string_view pattern);
  DataType ColDataType(int col) const;
  void SetColDataType(int col, DataType type);
  const std::string& ColComboList(int col) const;
  // Entries joined by "|", each "#", the id, ";" and the text, or a plain text.
  void SetColComboList(int col, std::string_view list);
  Alignment ColAlignment(int col) const;
  void SetColAlignment(int col, Alignment alignment);
  // A column whose cells are worked out for display and are no part of the records.
  void SetColDerived(int col, bool derived);

  // Rows.
  bool RowHidden(int row) const;
  void SetRowHidden(int row, bool hidden);
  int RowHeight(int row) const;  // twips; -1 is the default height
  void SetRowHeight(int row, int twips);
  // What a row stands for, beside its cells, in a list that is worked out for display.
  const std::string& DataOfRow(int row) const;
  void SetDataOfRow(int row, std::string_view data);
  int RowOutlineLevel(int row) const;  // 0 for a record, 1 and up for a group row
  void SetRowOutlineLevel(int row, int level);
  bool IsSubtotal(int row) const { return RowOutlineLevel(row) != 0; }
  bool RowCollapsed(int row) const;
  void SetRowCollapsed(int row, bool collapsed);
  // True when neither RowHidden nor a collapsed group above hides the row.
  bool RowVisible(int row) const;

  // Appends a row, or puts it before row `at`; a tab parts the cells. Returns the row's number.
  int AddItem(std::string_view text, int at = -1);
  // A row as the data file has it: each cell in the order of the columns, followed by kFieldEnd
  // (core/celltexts.h). A record that does not hold a cell for each column is not appended: false.
  bool AppendRecord(std::string_view record);
  // Many of them as one block before row `at`, which costs no more than one; all or none.
  bool InsertRecords(int at, std::span<const std::string> records);
  void WriteRecord(int row, std::string& text) const;  // behind the text
  // The texts of a row in the order of the columns, for a pass over many; valid until it changes.
  void ViewCells(int row, std::vector<std::string_view>& cells) const;
  void RemoveItem(int row);
  // First row at or after startRow (FixedRows when -1) whose cell equals the value; -1 if none.
  int FindRow(std::string_view value, int startRow, int col) const;
  int FindRow(std::string_view value, std::string_view key) const {
    return FindRow(value, -1, ColIndex(key));
  }
  // Row of each value of a column, group rows and empty cells left out, the first row where a value
  // stands twice. For look-ups inside a loop; stale after any change of rows.
  std::unordered_map<std::string, int> RowsBy(std::string_view key) const;

  // The text that a cell shows: combo entry instead of id, number and date formats applied. A cell
  // that its format cannot read shows its text. An id that its list does not know shows nothing.
  std::string DisplayText(int row, int col) const;
  std::string DisplayText(int row, std::string_view key) const {
    return DisplayText(row, ColIndex(key));
  }

  // One property of a block of cells. flexcpText and flexcpData are texts, flexcpPicture is a
  // picture's name, flexcpFontBold and flexcpChecked are "TRUE" or "FALSE" ("" unset), colours are
  // decimal numbers, flexcpAlignment the number of an Alignment, flexcpFormat a pattern in place of
  // the column's.
  std::string Cell(CellSetting setting, int row, int col) const;
  void SetCell(CellSetting setting, const CellRange& range, std::string_view value);
  void SetCell(CellSetting setting, int row, int col, std::string_view value) {
    SetCell(setting, CellRange{row, col, row, col}, value);
  }
  Colour CellColour(CellSetting setting, int row, int col) const;  // kNoColour when unset
  void SetCellColour(CellSetting setting, const CellRange& range, Colour colour);

  // Sorts the data rows on columns col1 to col2, stable. Group rows go: their groups end with the
  // order that made them. Never fails on damaged cells: those that
  // the data type cannot read stand after the empty ones and before the rest, by their text.
  void Sort(SortSetting setting, int col1, int col2 = -1);

  // Group rows. The rows must be sorted on the group column. groupOn -1 is the grand total. Calls
  // with the same level and group column put further sums into the rows already there. A group ends
  // where the id changes, or in a column without ids the shown value, without regard to case; and
  // at a group row of an outer level. Count counts rows; Average, Maximum and Minimum pass over
  // empty cells; Percent is the share of the total of all records. A totalOn of -1 makes the rows
  // without a figure. Hidden rows take no part, and a group of nothing but hidden rows gets no
  // group row.
  void Subtotal(SubtotalFunction function, int groupOn, int totalOn, const SubtotalStyle& style);
  void ClearSubtotals();
  // What the records of a group row hold in the group column; "" for other rows.
  std::string GroupValue(int row) const;
  // The column that holds the title of a group row made by Subtotal; -1 for other rows.
  int GroupTitleCol(int row) const;
  SubtotalPosition PositionOfSubtotals() const { return subtotalPosition_; }
  void SetSubtotalPosition(SubtotalPosition position);
  // Collapses every group of this level and below, and opens those above; 0 opens all.
  void Outline(int level);

  // Merging.
  MergeSetting MergeCells() const { return mergeCells_; }
  void SetMergeCells(MergeSetting setting);
  bool MergeRow(int row) const;
  void SetMergeRow(int row, bool merge);
  bool MergeCol(int col) const;
  void SetMergeCol(int col, bool merge);
  // The block of equal shown texts that the cell is drawn with; the cell alone when it is not
  // merged. Header cells and data cells, and group rows and records, never merge with each other.
  // Free merges along rows with MergeRow and columns with MergeCol. RestrictColumns merges a cell
  // down only as far as the cell on its left is merged, RestrictRows across only as far as the cell
  // above is. Spill draws every text over the empty cells behind it.
  CellRange MergedRange(int row, int col) const;

  // Cursor and scrolling, -1 for none.
  int Row() const { return row_; }
  int Col() const { return col_; }
  void Select(int row, int col);
  int TopRow() const { return topRow_; }
  void SetTopRow(int row);

  // Screen updating, nested: each SetRedraw(false) needs its SetRedraw(true).
  void SetRedraw(bool on);
  bool Redraw() const { return redrawOff_ == 0; }
  // Any number of observers; one that is told may go, or bring others.
  void AddObserver(GridObserver& observer);
  void RemoveObserver(GridObserver& observer);

  // Where changes of the records are journalled; null, as of a list that holds no records: nowhere.
  void SetHistory(History* history) { history_ = history; }
  History* JournalledIn() const { return history_; }

 private:
  friend class History;  // keeps and puts back whole rows
  struct Properties;
  struct GroupRow;
  struct RowData;
  struct Column;

  bool IsRow(int row) const { return row >= 0 && row < Rows(); }
  bool IsCol(int col) const { return col >= 0 && col < Cols(); }
  RowData& RowAt(int row) { return *rows_[static_cast<std::size_t>(row)]; }
  const RowData& RowAt(int row) const { return *rows_[static_cast<std::size_t>(row)]; }
  Column& ColAt(int col) { return *columns_[static_cast<std::size_t>(col)]; }
  const Column& ColAt(int col) const { return *columns_[static_cast<std::size_t>(col)]; }
  std::size_t FirstDataRow() const;

  bool PutText(int row, int col, std::string_view text);  // false when it was there already
  bool IsRecord(int row) const { return row >= fixedRows_ && !IsSubtotal(row); }
  // The row before `row` that is a record; null for the first.
  const RowData* RecordBefore(int row) const;
  std::unique_ptr<RowData> RowOfRecord(std::string_view record) const;
  void RowsAdded(int row, int count);
  // For the journal, which is not told of them; observers are.
  void PutRow(int at, std::unique_ptr<RowData> row);
  std::unique_ptr<RowData> TakeRow(int row);
  void PutCells(int row, const CellTexts& cells);
  std::string Shown(const RowData& row, const Column& column) const;
  void NumberSlotsAnew();
  void SeeSlotOrder();
  void RemoveColumns(int from);
  bool IsDeclared(std::string_view key) const;
  CellRange Clamped(CellRange range) const;
  void ChangeProperties(const CellRange& range, const std::function<void(Properties&)>& change);
  void FindCoveredRows() const;
  // Runs a change of the order or number of rows; the cursor stays on its record.
  void Rearrange(const std::function<void()>& change);

  void InsertGroupRows(int groupOn, const SubtotalStyle& style);
  void FillGroupRows(SubtotalFunction function, int groupOn, int totalOn,
                     const SubtotalStyle& style);
  std::unique_ptr<RowData> MakeGroupRow(const RowData& record, int groupOn,
                                        const SubtotalStyle& style) const;
  bool SameGroup(const RowData& a, const RowData& b, int groupOn, int matchFrom) const;
  bool HasGroupRows(int level, int groupSlot) const;
  int FirstVisibleDataCol() const;

  CellRange EqualAcross(const CellRange& within, int row, int col) const;
  CellRange EqualDown(const CellRange& within, int row, int col) const;
  CellRange RegionOf(int row, int col) const;
  bool IsMergedAcross(int row, int col) const;
  CellRange MergedAcross(const CellRange& region, int row, int col) const;
  CellRange MergedDown(const CellRange& region, int row, int col) const;
  CellRange Spilled(const CellRange& region, int row, int col) const;

  template <typename Notice>
  void Tell(Notice notice);
  void TellLayout();

  std::string name_;
  std::vector<std::unique_ptr<RowData>> rows_;
  std::vector<std::unique_ptr<Column>> columns_;  // in shown order; each knows its slot in the rows
  std::vector<std::string> declaredKeys_;
  int slots_ = 0;
  bool slotsInOrder_ = true;  // as the columns: rows are stored as files have them
  std::vector<int> freeSlots_;
  int fixedRows_ = 0;
  int fixedCols_ = 0;
  int row_ = -1, col_ = -1, topRow_ = -1;
  int redrawOff_ = 0;
  bool changedWhileOff_ = false;
  MergeSetting mergeCells_ = MergeSetting::Never;
  SubtotalPosition subtotalPosition_ = SubtotalPosition::Above;
  std::vector<GridObserver*> observers_;
  History* history_ = nullptr;
  mutable std::vector<bool> coveredRows_;  // hidden by a collapsed group
  mutable bool coverStale_ = true;
};

// Switches Redraw off for a scope.
class RedrawOff {
 public:
  explicit RedrawOff(Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  ~RedrawOff() { grid_.SetRedraw(true); }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  Grid& grid_;
};

// The entries of a combo list: id and text; a plain entry is its own id. No entries for an empty
// list.
std::vector<std::pair<std::string, std::string>> ComboEntries(std::string_view list);

}  // namespace lm
