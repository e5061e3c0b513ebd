// Groups of the Sessions page: title rows with the groups' sums, put into the list itself. They
// and the column of months are display only and must be gone before anything is saved.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"

namespace lm {

enum class SessionGroup { None, Practice, Invoice, Month, SessionType };

// The entries of cboGroupSessions, in the order of SessionGroup.
std::vector<std::string> SessionGroupCaptions();

// The column of months, at the front while the list is grouped by month.
constexpr std::string_view kGroupMonthKey = "GROUPMONTH";

class SessionGrouping {
 public:
  explicit SessionGrouping(Ledger& ledger) : ledger_(ledger) {}

  SessionGroup Current() const { return current_; }
  // Groups by this from now on, over the rows that are not hidden. None takes the groups away.
  void Apply(SessionGroup group);
  // The group rows and the column of months away; Restore puts them back, with the groups
  // collapsed that were.
  void Remove();
  void Restore();
  void ExpandAll();
  void CollapseAll();

 private:
  Ledger& ledger_;
  SessionGroup current_ = SessionGroup::None;
  std::set<std::string> collapsed_;  // titles, kept between Remove and Restore
};

// The list without its groups for a scope: around saving and whatever else goes over the rows.
class Ungrouped {
 public:
  explicit Ungrouped(SessionGrouping& grouping) : grouping_(grouping) { grouping_.Remove(); }
  ~Ungrouped() { grouping_.Restore(); }
  Ungrouped(const Ungrouped&) = delete;
  Ungrouped& operator=(const Ungrouped&) = delete;

 private:
  SessionGrouping& grouping_;
};

}  // namespace lm
