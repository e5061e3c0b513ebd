// The lists of the main window's pages without their groups for a scope: around saving, loading and
// whatever else goes over all rows as the file has them.
#pragma once

#include <list>

#include "shell/frmMain.h"
#include "shell/grouping.h"
#include "shell/pages/mainpage.h"

namespace lm {

class UngroupedLists {
 public:
  explicit UngroupedLists(const frmMain& window) {
    for (const auto& page : window.Pages())
      for (const auto& list : page->Lists())
        if (ListGrouping* grouping = list->Grouping()) ungrouped_.emplace_back(*grouping);
  }

 private:
  std::list<Ungrouped> ungrouped_;
};

}  // namespace lm
