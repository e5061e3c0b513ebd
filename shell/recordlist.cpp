#include "shell/recordlist.h"

#include <algorithm>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

std::string InSentence(std::string_view name) {
  return name.starts_with("Form") ? std::string(name) : ToLower(name);
}

}  // namespace

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

std::vector<int> RecordList::SelectedRows() const {
  std::vector<int> rows;
  for (const int row : several_)
    if (IsRecord(table_, row) && table_.RowVisible(row)) rows.push_back(row);
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (std::ranges::binary_search(rows, table_.Row())) return rows;
  return OnRecord() ? std::vector{SelectedRow()} : std::vector<int>();
}

bool RecordList::OnRecord() const { return IsRecord(table_, SelectedRow()); }

void RecordList::HeaderClicked(int col) {
  const std::string key = table_.ColKey(col);
  if (key.empty() || key == kGroupMonthKey) return;
  sorting_ = {key, sorting_.key == key && !sorting_.descending};
  several_.clear();
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
  several_.clear();
  const RedrawOff redrawOff(table_);
  grouping_->Remove();
  SortAsClicked();
  grouping_->Apply(std::max(controls_.choice->Selected(), 0));
  for (LabelField* label : {controls_.expand, controls_.collapse})
    label->SetVisible(grouping_->IsOn());
}

RowTest RecordList::TestOfTab() const {
  return tabs_ ? shownOn_(tabs_->Selected()) : [](int) { return true; };
}

RowTest RecordList::WithKept(RowTest shown) const {
  if (kept_.empty()) return shown;
  return [this, shown = std::move(shown)](int row) {
    return shown(row) || kept_.contains(IdentityOf(row));
  };
}

RowTest RecordList::TestOfAll() {
  RowTest onTab = TestOfTab();
  if (!filter_.IsOn()) return WithKept(std::move(onTab));
  return WithKept([onTab = std::move(onTab), matches = filter_.TestOfAll()](int row) {
    return matches(row) && onTab(row);
  });
}

RowTest RecordList::TestOfSingle() const {
  return WithKept([this, onTab = TestOfTab()](int row) {
    return onTab(row) && (!filter_.IsOn() || filter_.Shows(row));
  });
}

void RecordList::Narrow(std::string_view typed) {
  if (!filter_.SetText(typed)) return;
  kept_.clear();
  Refresh();
}

// Groups are made of the records that are shown. They come and go without the order of the records
// changing, so what is to be shown is found before.
void RecordList::Refresh() {
  several_.clear();
  const bool grouped = grouping_ && grouping_->IsOn();
  const ListFilter::OnlyHiding hiding(filter_);
  std::vector<bool> shown;
  {
    const RowTest test = TestOfAll();
    for (const int row : Records(table_)) shown.push_back(test(row));
  }
  const RedrawOff redrawOff(table_);
  if (grouped) grouping_->Remove();
  auto show = shown.begin();
  for (const int row : Records(table_)) table_.SetRowHidden(row, !*show++);
  if (grouped) grouping_->Restore();
}

void RecordList::RecordsChanged(const TableChange& change, bool inSight) {
  if (change.removed || !change.added.empty()) several_.clear();
  for (const int row : change.added) Keep(row);
  for (const int row : change.edited)
    if (change.edited.size() == 1 || row == table_.Row()) Keep(row);
  if (!inSight) return;
  if (grouping_ && grouping_->IsOn()) return Refresh();
  if (!IsFiltered()) return;
  const RowTest shown = TestOfSingle();
  for (const auto* rows : {&change.added, &change.edited})
    for (const int row : *rows) table_.SetRowHidden(row, !shown(row));
}

void RecordList::Reveal(int row) {
  if (!IsRecord(table_, row)) return;
  table_.Select(row, std::max(table_.Col(), table_.FixedCols()));
  Keep(row);
  Refresh();
  if (!table_.RowVisible(table_.Row()) && grouping_) grouping_->ExpandAll();
}

std::string RecordList::Period() const {
  std::string period = TabText();
  if (filter_.IsOn()) period += (period.empty() ? "" : ", ") + Quoted(Words());
  return period;
}

std::string RecordList::EmptyText() const {
  if (!filter_.IsOn()) return std::string(texts_.whenEmpty);
  return "No " + OneRecord() + " matches " + Quoted(Words()) + ". Escape clears the filter.";
}

std::string RecordList::OneRecord() const { return InSentence(FindTable(table_.Name())->record); }

std::string RecordList::ManyRecords() const { return InSentence(texts_.name); }

// A table without IDs knows its records by what they hold; equal ones are kept together.
std::string RecordList::IdentityOf(int row) const {
  if (const int id = table_.FindCol("ID"); id >= 0) return table_.TextMatrix(row, id);
  std::string record;
  table_.WriteRecord(row, record);
  return record;
}

void RecordList::Keep(int row) {
  std::string id = IdentityOf(row);
  if (IsFiltered() && !id.empty()) kept_.insert(std::move(id));
}

void RecordList::Forget() {
  kept_.clear();
  filter_.SetText("");
  sorting_ = {};
}

}  // namespace lm
