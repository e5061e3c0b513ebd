// The lists inside the form windows: filled once, read only, sums in bold below.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/screen.h"
#include "core/tables.h"

namespace lm {

// A blank list; a date column without a format of its own shows as days do in `fgSessions`.
void MakeFormList(Grid& list, const TableSpec& columns, const Ledger& ledger);
void MakeBold(Grid& list, int row);

// The sessions of a form, blank.
void MakeSessionList(Grid& list, const Ledger& ledger);

// A list with a column ID of sessions: a double click opens the session, and `closed` runs after.
class SessionOpener : public GridRules {
 public:
  SessionOpener(Ledger& ledger, const Grid& list, std::function<void()> closed)
      : ledger_(ledger), list_(list), closed_(std::move(closed)) {}
  void Opened(int row) override;

 private:
  Ledger& ledger_;
  const Grid& list_;
  std::function<void()> closed_;
};

}  // namespace lm
