#include "shell/listpage.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/rows.h"

namespace lm {

ListPage::ListPage(Ledger& ledger, const GroupedList& list, Controls controls,
                   std::function<RowTest(int tab)> shownOn)
    : ledger_(ledger),
      grid_(ledger.*list.table),
      controls_(controls),
      shownOn_(std::move(shownOn)),
      grouping_(ledger, list) {
  std::vector<ComboItem> groups;
  for (const std::string& caption : GroupCaptions(list))
    groups.push_back({caption, PlainText(static_cast<int>(groups.size()))});
  controls_.group.SetItems(std::move(groups));
  controls_.group.SetSelected(0);
  controls_.group.onEntered = [this] {
    ChooseGroup();
    return true;
  };
  controls_.tabs.onEntered = [this] {
    if (ledger_.starting) return true;
    ForgetKept();
    Refresh();
    return true;
  };
  controls_.expand.SetText("Expand all");
  controls_.expand.onPressed = [this] { grouping_.ExpandAll(); };
  controls_.expand.SetVisible(false);
  controls_.collapse.SetText("Collapse all");
  controls_.collapse.onPressed = [this] { grouping_.CollapseAll(); };
  controls_.collapse.SetVisible(false);
}

void ListPage::ChooseGroup() {
  if (ledger_.starting) return;
  grouping_.Apply(std::max(controls_.group.Selected(), 0));
  controls_.expand.SetVisible(grouping_.IsOn());
  controls_.collapse.SetVisible(grouping_.IsOn());
}

void ListPage::Refresh() {
  const RedrawOff redrawOff(grid_);
  const Ungrouped ungrouped(grouping_);
  const RowTest isShown = shownOn_(controls_.tabs.Selected());
  const int id = grid_.ColIndex("ID");
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row)
    grid_.SetRowHidden(row, !isShown(row) && !kept_.contains(grid_.TextMatrix(row, id)));
}

void ListPage::CellEdited(int row) {
  Keep(grid_.TextMatrix(row, "ID"));
  if (grouping_.IsOn()) Refresh();
}

void ListPage::Change(const std::function<void()>& change) {
  const int firstNew = NextId(grid_);
  const int row = grid_.Row();
  if (row >= grid_.FixedRows() && grid_.RowVisible(row)) Keep(grid_.TextMatrix(row, "ID"));
  change();
  const int id = grid_.ColIndex("ID");
  for (int each = grid_.FixedRows(); each < grid_.Rows(); ++each)
    if (ValInt(grid_.TextMatrix(each, id)) >= firstNew) Keep(grid_.TextMatrix(each, id));
  Refresh();
}

}  // namespace lm
