#include "shell/recordlist.h"

#include <algorithm>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/rows.h"

namespace lm {

void RecordList::FilterBy(TabField& tabs, std::function<RowTest(int tab)> shownOn) {
  tabs_ = &tabs;
  shownOn_ = std::move(shownOn);
  tabs.onEntered = [this] {
    if (ledger_.starting) return true;
    kept_.clear();
    Refresh();
    return true;
  };
}

void RecordList::GroupBy(const GroupedList& groups, const GroupControls& controls) {
  controls_ = controls;
  grouping_.emplace(ledger_, groups);
  std::vector<ComboItem> items;
  for (const std::string& caption : GroupCaptions(groups))
    items.push_back({caption, PlainText(static_cast<int>(items.size()))});
  controls_.choice->SetItems(std::move(items));
  controls_.choice->SetSelected(0);
  controls_.choice->onEntered = [this] {
    ChooseGroup();
    return true;
  };
  controls_.expand->SetText("Expand all");
  controls_.expand->onPressed = [this] { grouping_->ExpandAll(); };
  controls_.collapse->SetText("Collapse all");
  controls_.collapse->onPressed = [this] { grouping_->CollapseAll(); };
  for (LabelField* label : {controls_.expand, controls_.collapse}) label->SetVisible(false);
}

int RecordList::SelectedRow() const {
  const int row = table_.Row();
  return row >= table_.FixedRows() && table_.RowVisible(row) ? row : -1;
}

int RecordList::SelectedRecord(std::string_view mainPrompt, std::string_view minorPrompt) const {
  if (OnRecord()) return SelectedRow();
  ShowMessage(ledger_, mainPrompt, minorPrompt);
  return -1;
}

bool RecordList::OnRecord() const { return IsRecord(table_, SelectedRow()); }

void RecordList::HeaderClicked(int col) {
  const std::string key = table_.ColKey(col);
  if (key.empty() || key == kGroupMonthKey) return;
  sorting_ = {key, sorting_.key == key && !sorting_.descending};
  const RedrawOff redrawOff(table_);
  if (!grouping_) return SortAsClicked();
  const Ungrouped ungrouped(*grouping_);
  SortAsClicked();
}

void RecordList::SortAsClicked() {
  const int col = table_.ColIndex(sorting_.key);
  if (col >= 0)
    table_.Sort(
        sorting_.descending ? SortSetting::GenericDescending : SortSetting::GenericAscending, col);
}

void RecordList::ColumnMoved(int from, int to) {
  const int first = table_.ColKey(1) == kGroupMonthKey ? 2 : 1;
  if (from < first || to < first || from >= table_.Cols() || to >= table_.Cols()) return;
  table_.SetColPosition(from, to);
}

// The order within the groups, and the one left when they go, is the one that the header shows.
void RecordList::ChooseGroup() {
  if (ledger_.starting) return;
  const RedrawOff redrawOff(table_);
  grouping_->Remove();
  SortAsClicked();
  grouping_->Apply(std::max(controls_.choice->Selected(), 0));
  for (LabelField* label : {controls_.expand, controls_.collapse})
    label->SetVisible(grouping_->IsOn());
}

RowTest RecordList::TestOfTab() const {
  RowTest shown = shownOn_(tabs_->Selected());
  if (kept_.empty()) return shown;
  return [this, shown](int row) { return shown(row) || kept_.contains(IdentityOf(row)); };
}

void RecordList::Refresh() {
  if (!tabs_ && !(grouping_ && grouping_->IsOn())) return;
  const RedrawOff redrawOff(table_);
  if (grouping_) grouping_->Remove();
  if (tabs_) {
    const RowTest shown = TestOfTab();
    for (const int row : Records(table_)) table_.SetRowHidden(row, !shown(row));
  }
  if (grouping_) grouping_->Restore();
}

void RecordList::RecordsChanged(const TableChange& change, bool inSight) {
  for (const int row : change.added) Keep(row);
  for (const int row : change.edited)
    if (change.edited.size() == 1 || row == table_.Row()) Keep(row);
  if (!inSight) return;
  if (grouping_ && grouping_->IsOn()) return Refresh();
  if (!tabs_) return;
  const RowTest shown = TestOfTab();
  for (const auto* rows : {&change.added, &change.edited})
    for (const int row : *rows) table_.SetRowHidden(row, !shown(row));
}

// A table without IDs knows its records by what they hold; equal ones are kept together.
std::string RecordList::IdentityOf(int row) const {
  if (const int id = table_.FindCol("ID"); id >= 0) return table_.TextMatrix(row, id);
  std::string record;
  table_.WriteRecord(row, record);
  return record;
}

void RecordList::Keep(int row) {
  std::string id = IdentityOf(row);
  if (tabs_ && !id.empty()) kept_.insert(std::move(id));
}

void RecordList::Forget() {
  kept_.clear();
  sorting_ = {};
}

}  // namespace lm
