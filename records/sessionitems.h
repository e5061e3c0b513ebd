// The working grids of the session window: the extras or the expenses of one session, edited apart
// from their table until the session is saved. A deleted row stays, hidden, so that cancelling the
// window leaves the table as it was.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/numbers.h"
#include "core/screen.h"
#include "core/tables.h"

namespace lm {

extern const TableSpec kWorkingExtras;
extern const TableSpec kWorkingExpenses;

// The expense of driving to a practice and back: what it is called, and its category in
// the list as it is shipped.
std::string MileageItem(Single miles, Single poundsAMile);
constexpr std::string_view kMileageCategory = "0";

// The rows of a working grid and the rules by which they are edited.
class SessionItems : public GridRules {
 public:
  // `table` is where the rows come from and go back to.
  SessionItems(Ledger& ledger, Grid& grid, const TableSpec& columns, Grid& table);

  Grid& grid() { return grid_; }

  // The rows of a session in place of those in the grid; "" is a new session, which has none.
  void Load(std::string_view sessionId);
  // The same as new rows with IDs of their own.
  void LoadCopy(std::string_view sessionId);

  // A new row at the end, current, with rate 0. Returns its number.
  int Add(std::string_view sessionId, std::string_view item);
  // Hides the row, or removes it when it is new, and makes its neighbour current.
  void Delete(int row);

  bool HasRows() const;      // deleted ones do not count
  bool HasSelected() const;  // the current row is one that the user sees

  // Of a locked session only the notes can be edited; the other columns turn grey.
  void SetLocked(bool locked);

  // Carries the rows into the table: deletions, additions and changes.
  void WriteBack(std::string_view sessionId);

  // What the window does after the sum has changed, for the Enter key and for the Delete key.
  std::function<void()> onRateEdited;
  std::function<void()> onAddPressed;
  std::function<void()> onDeletePressed;

  bool MayEdit(int row, int col) override;
  Picker PickerOf(int row, int col) override;
  // An amount goes through CleanMoney; what it does not take is refused.
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  void AddPressed() override;
  void DeletePressed(int row) override;

 private:
  std::vector<int> TableRowsOf(std::string_view sessionId) const;
  int TableRow(int row, std::string_view sessionId) const;
  int NextItemId() const;
  int AppendCopyOf(int tableRow);
  void MakeNew(int row);
  void CopyItem(const Grid& from, int fromRow, Grid& to, int toRow) const;
  bool IsRate(int col) const;
  void SelectNear(int row);

  Ledger& ledger_;
  Grid& grid_;
  const TableSpec& columns_;
  Grid& table_;
  bool locked_ = false;
};

}  // namespace lm
