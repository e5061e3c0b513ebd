// The one-time tips of the pages: one at each visit, the first that fits and was not shown in
// this run.
#pragma once

#include "core/ledger.h"
#include "shell/pages.h"

namespace lm {

void ShowPageTip(Ledger& ledger, Page page);
// Why the tab Current does not show every session.
void ShowCurrentSessionsTip(Ledger& ledger);

}  // namespace lm
