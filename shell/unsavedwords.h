// What waits to be saved, in the names that users know: "2 sessions and an expense". The extras and
// expenses of a session are part of it: a session that is saved counts as edited when they are not.
#pragma once

#include <string>

namespace lm {

class Ledger;

// Each "" when nothing waits.
struct UnsavedWords {
  std::string added;
  std::string edited;
};

// One pass over the tables.
UnsavedWords DescribeUnsaved(const Ledger& ledger);

}  // namespace lm
