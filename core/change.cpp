#include "core/change.h"

#include <algorithm>
#include <unordered_set>

#include "core/formatting.h"
#include "core/grid_storage.h"
#include "core/ledger.h"
#include "core/rows.h"

namespace lm {
namespace {

constexpr std::size_t kBytesBeside = 128;  // of what stands beside a row's text in a step
constexpr int kMarkerCol = 0;
constexpr std::size_t kFewRows = 16;  // looked up each by itself, more of them in one pass

// Rows of one step mostly stand together, so the search goes both ways from the last one found.
template <typename Rows, typename Row>
int FindNear(const Rows& rows, const Row* wanted, int near) {
  const int count = static_cast<int>(rows.size());
  near = std::clamp(near, 0, std::max(count - 1, 0));
  for (int away = 0; away < count; ++away)
    for (const int at : {near + away, near - away})
      if (at >= 0 && at < count && rows[static_cast<std::size_t>(at)].get() == wanted) return at;
  return -1;
}

}  // namespace

// The text and the marker of a row that stayed.
struct History::Edit {
  Grid* table;
  Grid::RowData* row;
  CellTexts before, after;
  Colour markerBefore, markerAfter;
};

// A row that came or went. While it is away, it is kept here.
struct History::Move {
  Grid* table;
  Grid::RowData* row;
  const Grid::RowData* behind;
  bool added;
  std::unique_ptr<Grid::RowData> away;
};

struct History::Step {
  std::string caption;
  std::vector<Move> moves;
  std::vector<Edit> edits;
  std::unordered_set<const Grid::RowData*> seen;  // rows added or edited, while the change is open
  bool marksStale = false;
  bool documents = false;
  std::size_t bytes = 0;
};

// The rows that a step went over, until they are looked up for those who show them.
class History::Touched {
 public:
  // `undone` when the step was taken back: what it added has gone.
  Touched(const Step& step, bool undone) {
    for (const Edit& edit : step.edits) TableOf(edit.table).edited.push_back(edit.row);
    for (const Move& move : step.moves) {
      Table& table = TableOf(move.table);
      if (move.added != undone)
        table.added.push_back(move.row);
      else
        table.removed = true;
    }
  }

  // `near` is where a row was found last.
  ChangedRecords Find(int& near) {
    ChangedRecords changed;
    for (Table& table : tables_)
      changed.tables_.push_back(table.added.size() + table.edited.size() <= kFewRows
                                    ? FindFewIn(table, near)
                                    : FindIn(table));
    return changed;
  }

 private:
  using RowSet = std::vector<const Grid::RowData*>;

  struct Table {
    const Grid* grid;
    RowSet added, edited;
    bool removed = false;
  };

  Table& TableOf(const Grid* grid) {
    for (Table& table : tables_)
      if (table.grid == grid) return table;
    return tables_.emplace_back(Table{grid, {}, {}});
  }

  static TableChange FindFewIn(const Table& table, int& near) {
    TableChange found{table.grid, {}, {}, table.removed};
    for (const auto& [rows, numbers] :
         {std::pair{&table.added, &found.added}, std::pair{&table.edited, &found.edited}}) {
      for (const Grid::RowData* row : *rows) {
        const int number = FindNear(table.grid->rows_, row, near);
        if (number < 0) continue;  // edited, then removed
        near = number;
        numbers->push_back(number);
      }
      std::ranges::sort(*numbers);
    }
    return found;
  }

  static TableChange FindIn(Table& table) {
    std::ranges::sort(table.added);
    std::ranges::sort(table.edited);
    TableChange found{table.grid, {}, {}, table.removed};
    for (int row = table.grid->FixedRows(); row < table.grid->Rows(); ++row) {
      const Grid::RowData* data = &table.grid->RowAt(row);
      if (std::ranges::binary_search(table.added, data))
        found.added.push_back(row);
      else if (std::ranges::binary_search(table.edited, data))
        found.edited.push_back(row);
    }
    return found;
  }

  std::vector<Table> tables_;
};

// Change

Change::Change(Ledger& ledger, std::string_view caption) : history_(&ledger.history) {
  history_->Begin(caption);
}

Change::Change(const Grid& grid, std::string_view caption) : history_(grid.JournalledIn()) {
  if (history_) history_->Begin(caption);
}

Change::~Change() {
  if (history_) history_->End();
}

const TableChange* ChangedRecords::Of(const Grid& table) const {
  const auto found = std::ranges::find(tables_, &table, &TableChange::table);
  return found == tables_.end() ? nullptr : &*found;
}

// What the tables tell

History::History(Ledger& ledger) : ledger_(ledger) {}
History::~History() = default;

// Outside a change nothing is journalled, and what came before cannot be put back over it.
bool History::MustClear() {
  if (replaying_) return true;
  if (open_ > 0) return false;
  Clear();
  return true;
}

void History::Touch(Grid& table, Grid::RowData& row, bool text) {
  if (!text && open_ == 0) return;  // a marker alone loses nothing
  if (MustClear() || !step_->seen.insert(&row).second) return;
  const Colour marker = row.BackColour(table.ColAt(kMarkerCol).slot);
  step_->edits.push_back({&table, &row, row.cells, {}, marker, marker});
}

void History::RowAdded(Grid& table, Grid::RowData& row, const Grid::RowData* behind) {
  if (MustClear()) return;
  step_->seen.insert(&row);
  step_->moves.push_back({&table, &row, behind, true, nullptr});
}

void History::RowRemoved(Grid& table, std::unique_ptr<Grid::RowData> row,
                         const Grid::RowData* behind) {
  if (MustClear()) return;
  Grid::RowData* const gone = row.get();
  step_->moves.push_back({&table, gone, behind, false, std::move(row)});
}

void History::DocumentWritten() {
  if (step_) step_->documents = true;
}

// Steps

void History::Begin(std::string_view caption) {
  if (open_++ > 0) return;
  step_ = std::make_unique<Step>();
  step_->caption = caption;
}

void History::End() {
  if (--open_ > 0) return;
  std::unique_ptr<Step> step = std::move(step_);
  if (step->edits.empty() && step->moves.empty()) return;
  Touched touched(*step, false);
  for (Edit& edit : step->edits) {
    edit.after = edit.row->cells;
    edit.markerAfter = edit.row->BackColour(edit.table->ColAt(kMarkerCol).slot);
  }
  std::erase_if(step->edits,
                [](const Edit& edit) { return edit.before.Record() == edit.after.Record(); });
  if (!step->edits.empty() || !step->moves.empty()) Keep(std::move(step));
  Tell(touched);
}

void History::Keep(std::unique_ptr<Step> step) {
  step->seen = {};
  step->bytes = step->caption.size() + sizeof(Step);
  for (const Edit& edit : step->edits)
    step->bytes += edit.before.Record().size() + edit.after.Record().size() + kBytesBeside;
  for (const Move& move : step->moves)
    step->bytes += move.row->cells.Record().size() + kBytesBeside;
  bytes_ += step->bytes;
  undo_.push_back(std::move(step));
  redo_.clear();
  std::size_t over = 0;
  while (bytes_ > kMostBytes) bytes_ -= undo_[over++]->bytes;
  undo_.erase(undo_.begin(), undo_.begin() + static_cast<std::ptrdiff_t>(over));
}

void History::Clear() {
  undo_.clear();
  redo_.clear();
  bytes_ = 0;
}

void History::Saved() {
  for (const auto* steps : {&undo_, &redo_})
    for (const auto& step : *steps) step->marksStale = true;
}

std::string History::UndoCaption() const { return undo_.empty() ? "" : undo_.back()->caption; }
std::string History::RedoCaption() const { return redo_.empty() ? "" : redo_.back()->caption; }

// Undo and redo

int History::RowOf(const Grid& table, const Grid::RowData* row) {
  return lastRow_ = FindNear(table.rows_, row, lastRow_);
}

void History::PutBack(Move& move, bool marksStale) {
  const int behind = move.behind ? RowOf(*move.table, move.behind) : move.table->FixedRows() - 1;
  const int at = behind < 0 ? move.table->Rows() : behind + 1;
  move.table->PutRow(at, std::move(move.away));
  if (marksStale) MarkNew(ledger_, *move.table, at);
}

void History::TakeAway(Move& move) {
  const int row = RowOf(*move.table, move.row);
  if (row >= 0) move.away = move.table->TakeRow(row);
}

void History::Restore(const Edit& edit, bool before, bool marksStale) {
  Grid& table = *edit.table;
  const int row = RowOf(table, edit.row);
  if (row < 0) return;
  table.PutCells(row, before ? edit.before : edit.after);
  if (marksStale)
    MarkEdited(ledger_, table, row);
  else
    table.SetCellColour(CellSetting::flexcpBackColor, {row, kMarkerCol, row, kMarkerCol},
                        before ? edit.markerBefore : edit.markerAfter);
}

void History::TakeBack(Step& step) {
  for (auto move = step.moves.rbegin(); move != step.moves.rend(); ++move)
    move->added ? TakeAway(*move) : PutBack(*move, step.marksStale);
  for (const Edit& edit : step.edits) Restore(edit, true, step.marksStale);
}

void History::DoAgain(Step& step) {
  for (Move& move : step.moves) move.added ? PutBack(move, step.marksStale) : TakeAway(move);
  for (const Edit& edit : step.edits) Restore(edit, false, step.marksStale);
}

bool History::Undo() {
  if (undo_.empty() || open_ > 0) return false;
  bytes_ -= undo_.back()->bytes;
  Replay(undo_, redo_, true);
  return true;
}

bool History::Redo() {
  if (redo_.empty() || open_ > 0) return false;
  bytes_ += redo_.back()->bytes;
  Replay(redo_, undo_, false);
  return true;
}

void History::Replay(Steps& from, Steps& to, bool undo) {
  to.push_back(std::move(from.back()));
  from.pop_back();
  Step& step = *to.back();
  replaying_ = true;
  undo ? TakeBack(step) : DoAgain(step);
  replaying_ = false;
  leftDocuments_ = step.documents;
  Touched touched(step, undo);
  Tell(touched);
}

void History::Tell(Touched& touched) {
  const ChangedRecords changed = touched.Find(lastRow_);
  RefreshLookUps(ledger_, changed);
  const std::vector<ChangeListener*> told = listeners_;
  for (ChangeListener* listener : told)
    if (std::ranges::find(listeners_, listener) != listeners_.end())
      listener->RecordsChanged(changed);
}

}  // namespace lm
