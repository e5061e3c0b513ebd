// Groups of a list of the main window: title rows with the groups' sums, put into the list itself.
// They and the column of months are display only and must be gone before anything is saved.
#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"

namespace lm {

// What a list can be grouped by.
struct GroupChoice {
  std::string_view caption;
  std::string_view key = "";      // of the column that makes the groups; "" for no grouping
  std::string_view monthOf = "";  // of the date whose months make the groups
};

struct GroupedList {
  Grid Ledger::*table;
  std::span<const GroupChoice> choices;  // the first is no grouping
  std::span<const std::string_view> summed;
};
extern const GroupedList kGroupedSessions;
extern const GroupedList kGroupedInvoices;
extern const GroupedList kGroupedExpenses;

std::vector<std::string> GroupCaptions(const GroupedList& list);

// The column of months, at the front while a list is grouped by month.
constexpr std::string_view kGroupMonthKey = "GROUPMONTH";

// What a list shows of a group row: its title stands in the first visible column, from `first` on,
// that holds none of its sums, wherever the columns were moved; the sums stand in their own.
int TitlePlace(const Grid& grid, int groupRow, int first);
std::string ShownInGroup(const Grid& grid, int groupRow, int col, int first);

// False of a line of totals that stands alone, with nothing to open.
bool HasRows(const Grid& grid, int groupRow);

class ListGrouping {
 public:
  ListGrouping(Ledger& ledger, const GroupedList& list) : list_(list), grid_(ledger.*list.table) {
    grid_.DeclareKey(kGroupMonthKey);
  }

  bool IsOn() const { return choice_ > 0; }
  // Groups by this choice from now on, over the rows that are not hidden; 0 takes the groups away.
  void Apply(int choice);
  // The group rows and the column of months away; Restore puts them back, with the groups
  // collapsed that were.
  void Remove();
  void Restore();
  void ExpandAll();
  void CollapseAll();

 private:
  const GroupChoice& Choice() const { return list_.choices[static_cast<std::size_t>(choice_)]; }
  void SortByMonth();
  void FillMonths(std::string_view pattern);

  const GroupedList& list_;
  Grid& grid_;
  int choice_ = 0;
  std::set<std::string> collapsed_;  // values of groups, kept between Remove and Restore
};

// The list without its groups for a scope: around saving and whatever else goes over the rows.
class Ungrouped {
 public:
  explicit Ungrouped(ListGrouping& grouping) : grouping_(grouping) { grouping_.Remove(); }
  ~Ungrouped() { grouping_.Restore(); }
  Ungrouped(const Ungrouped&) = delete;
  Ungrouped& operator=(const Ungrouped&) = delete;

 private:
  ListGrouping& grouping_;
};

}  // namespace lm
