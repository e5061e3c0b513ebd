// What the pages with a filtered and grouped list share: the tab strip hides rows, the combo puts
// groups into the list, and both are done anew after records changed.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "core/screen.h"
#include "shell/grouping.h"
#include "shell/periodfilter.h"

namespace lm {

class ListPage {
 public:
  struct Controls {
    TabField& tabs;
    ComboField& group;
    LabelField& expand;    // pressed: opens all groups
    LabelField& collapse;  // pressed: collapses all groups
  };

  // `shownOn` gives the test of a tab. Sets the controls' texts and handlers.
  ListPage(Ledger& ledger, const GroupedList& list, Controls controls,
           std::function<RowTest(int tab)> shownOn);

  ListGrouping& Grouping() { return grouping_; }
  // Filters and groups the list anew.
  void Refresh();
  // Runs what may add, change or delete records, then filters and groups the list anew. What was
  // added, and the selected record, stay in sight.
  void Change(const std::function<void()>& change);
  // A cell was edited in place: its record stays in sight.
  void CellEdited(int row);
  // A new look at the list, from which nothing is kept in sight against its tab.
  void ForgetKept() { kept_.clear(); }

 private:
  void Keep(const std::string& id) {
    if (!id.empty()) kept_.insert(id);
  }
  void ChooseGroup();

  Ledger& ledger_;
  Grid& grid_;
  Controls controls_;
  std::function<RowTest(int tab)> shownOn_;
  ListGrouping grouping_;
  // Records that stay shown, whatever the tab says, until it changes: one just saved must not
  // vanish.
  std::unordered_set<std::string> kept_;
};

}  // namespace lm
