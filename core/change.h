// What an action does to the records, as one step that can be taken back and done again.
//
//   {
//     const Change change(ledger, "Delete Session");
//     ... cells, rows added and removed, markers ...
//   }  // kept in ledger.history, and everybody who shows records is told once
//
// A change inside another belongs to it. Questions are asked before a change begins: what stands in
// the tables while one is open is nothing that a user should have to look at. Records altered
// outside any change, as by loading a file, clear the history, for what came before cannot be put
// back over them.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"

namespace lm {

class History;
class Ledger;

class Change {
 public:
  // The caption says what was done, as a command does: "Delete Session".
  Change(Ledger& ledger, std::string_view caption);
  // Of what is done to the records of one table; nothing for a list that holds no records.
  Change(const Grid& grid, std::string_view caption);
  ~Change();
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;

 private:
  History* history_;
};

// What a change did to one table. Rows are those that the records have now, in ascending order.
struct TableChange {
  const Grid* table;
  std::vector<int> added;
  std::vector<int> edited;  // their text or their marker; rows that were added are not named again
  bool removed = false;     // records have gone
};

class ChangedRecords {
 public:
  const TableChange* Of(const Grid& table) const;  // null when it was left alone
  const std::vector<TableChange>& Tables() const { return tables_; }

 private:
  friend class History;
  std::vector<TableChange> tables_;
};

class ChangeListener {
 public:
  virtual ~ChangeListener() = default;
  // After each change, undo and redo that did anything.
  virtual void RecordsChanged(const ChangedRecords& changed) = 0;
};

class History {
 public:
  // More than this is not kept, in bytes; the oldest steps go first.
  static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

  explicit History(Ledger& ledger);
  ~History();
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  // What Undo and Redo would take back and do again: "Delete Session"; "" when there is nothing.
  std::string UndoCaption() const;
  std::string RedoCaption() const;
  // False when there is nothing, or while a change is open.
  bool Undo();
  bool Redo();
  // True when the step that Undo or Redo went over last left documents on the disk as they are.
  bool LeftDocuments() const { return leftDocuments_; }
  void Clear();

  // Told after the look-up lists of the tables were made anew.
  void AddListener(ChangeListener& listener) { listeners_.push_back(&listener); }
  void RemoveListener(ChangeListener& listener) { std::erase(listeners_, &listener); }

  // The tables stand in the file as they are now: a step taken back from here on leaves rows that
  // differ from the file, whatever their markers said when it was made.
  void Saved();
  // A document was written to the disk; the open change cannot take it back.
  void DocumentWritten();

  // What the tables tell; `behind` is the record after which a row stands or stood, null for the
  // first.
  void RowWillChange(Grid& table, Grid::RowData& row) { Touch(table, row, true); }
  void MarkerWillChange(Grid& table, Grid::RowData& row) { Touch(table, row, false); }
  void RowAdded(Grid& table, Grid::RowData& row, const Grid::RowData* behind);
  void RowRemoved(Grid& table, std::unique_ptr<Grid::RowData> row, const Grid::RowData* behind);

 private:
  friend class Change;
  struct Edit;
  struct Move;
  struct Step;
  class Touched;

  using Steps = std::vector<std::unique_ptr<Step>>;

  void Begin(std::string_view caption);
  void End();
  void Touch(Grid& table, Grid::RowData& row, bool text);
  bool MustClear();
  void Keep(std::unique_ptr<Step> step);
  void Replay(Steps& from, Steps& to, bool undo);
  void TakeBack(Step& step);
  void DoAgain(Step& step);
  void PutBack(Move& move, bool marksStale);
  void TakeAway(Move& move);
  void Restore(const Edit& edit, bool before, bool marksStale);
  int RowOf(const Grid& table, const Grid::RowData* row);
  void Tell(Touched& touched);

  Ledger& ledger_;
  int open_ = 0;            // changes within changes
  bool replaying_ = false;  // the tables are told nothing while a step is taken back
  bool leftDocuments_ = false;
  std::unique_ptr<Step> step_;  // of the open change
  Steps undo_, redo_;
  int lastRow_ = 0;        // found by RowOf
  std::size_t bytes_ = 0;  // of what undo_ holds
  std::vector<ChangeListener*> listeners_;
};

}  // namespace lm
