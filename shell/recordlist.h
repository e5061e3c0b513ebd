// A list of records on a page of the main window: sorted by its headers, its columns moved,
// filtered by the tabs and by the words above it and grouped by the combo beside them, where the
// page has such.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/change.h"
#include "core/screen.h"
#include "shell/grouping.h"
#include "shell/listfilter.h"
#include "shell/periodfilter.h"

namespace lm {

// The order that the user gave a list by its headers.
struct SortState {
  std::string key;  // of the column; "" when the list was not sorted in this run
  bool descending = false;
};

// The tab that hides nothing.
constexpr std::string_view kTabOfAll = "All";

// What stands beside the list of a page to group it.
struct GroupControls {
  ComboField* choice = nullptr;
  LabelField* expand = nullptr;    // pressed: opens all groups
  LabelField* collapse = nullptr;  // pressed: collapses all groups
};

class RecordList {
 public:
  // What screen readers call the list, and what it says while it is empty.
  struct Texts {
    std::string_view name;
    std::string_view whenEmpty;
  };

  // The ledger and the table outlive the list.
  RecordList(Ledger& ledger, Grid& table, Texts texts)
      : ledger_(ledger), table_(table), texts_(texts), filter_(table) {}

  // The tabs hide what `shownOn` does not show on them. Sets the handler of the tabs.
  void FilterBy(TabField& tabs, std::function<RowTest(int tab)> shownOn);
  // Of what the tab shows only the records with these words; none: all of it.
  void Narrow(std::string_view typed);
  // Words will come: reads what they are looked for in.
  void PrepareToNarrow() { filter_.Prepare(); }
  // Sets the texts and handlers of the controls.
  void GroupBy(const GroupedList& groups, const GroupControls& controls);

  Grid& Table() const { return table_; }
  // The tab that filters it and the words; "" for a list with neither.
  std::string Period() const;
  // The tab and the words for themselves.
  std::string TabText() const { return tabs_ ? tabs_->Text() : ""; }
  const std::string& Words() const { return filter_.Text(); }
  const Texts& ShownTexts() const { return texts_; }
  // "session" and "sessions", "Form A" and "Forms A".
  std::string OneRecord() const;
  std::string ManyRecords() const;
  // What it says while no record is in sight.
  std::string EmptyText() const;

  // The selected row; -1 when there is none, or when it is out of sight.
  int SelectedRow() const;
  // The selected record's row; -1 after the message when no record is selected.
  int SelectedRecord(std::string_view mainPrompt, std::string_view minorPrompt) const;
  // The selected rows of records in ascending order, of which the cursor's is one: it alone, unless
  // several were selected since the list was last changed.
  void SelectRows(std::vector<int> rows) { several_ = std::move(rows); }
  std::vector<int> SelectedRows() const;
  // True when a record is selected, and no group.
  bool OnRecord() const;

  // A click on a column's header: sorts, a second one on the same header reverses.
  void HeaderClicked(int col);
  // A header was dragged from one place to another. The marker column and the group column stay.
  void ColumnMoved(int from, int to);
  const SortState& Sorting() const { return sorting_; }

  // Filters and groups anew.
  void Refresh();
  // What was added stays in sight, whatever tab and words say, until others are chosen, and so does
  // the record that was edited: one just saved must not vanish. A list that is not in sight itself
  // only remembers them, for it is refreshed when it is shown.
  void RecordsChanged(const TableChange& change, bool inSight);
  // Selects a record and keeps it in sight in the same way.
  void Reveal(int row);
  // Other records were loaded: nothing is kept in sight against its tab, nothing is narrowed or
  // sorted.
  void Forget();

  // Null for a list that is never grouped.
  ListGrouping* Grouping() { return grouping_ ? &*grouping_ : nullptr; }

 private:
  std::string IdentityOf(int row) const;
  void Keep(int row);
  bool IsFiltered() const { return tabs_ || filter_.IsOn(); }
  RowTest WithKept(RowTest shown) const;
  RowTest TestOfTab() const;
  RowTest TestOfAll();
  RowTest TestOfSingle() const;
  void ChooseGroup();
  void SortAsClicked();

  Ledger& ledger_;
  Grid& table_;
  Texts texts_;
  TabField* tabs_ = nullptr;
  std::function<RowTest(int tab)> shownOn_;
  ListFilter filter_;
  GroupControls controls_;
  std::optional<ListGrouping> grouping_;
  SortState sorting_;
  std::vector<int> several_;
  std::unordered_set<std::string> kept_;  // identities of records
};

}  // namespace lm
