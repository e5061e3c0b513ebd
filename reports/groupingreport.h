// The grouping report: the sessions or invoices of a period, a row each, with subtotals by the
// columns at the left, so that moving a column asks another question.
#pragma once

#include <span>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

enum class GroupedRecords { Sessions, Invoices };  // in the order of the list

// The captions of the calculations, in the order of the list.
std::span<const std::string_view> GroupingCalculations();

constexpr int kMostGroupingLevels = 3;

struct Grouping {
  int calculation = 0;  // its place in the list; any other is the sum
  int levels = 0;       // of groups below the grand total
};

// Fills the grid with the records whose date, SDATE of sessions and CDATE of invoices, lies in the
// period; without groups, in the order of their table. Column 0 is blank; its cells bear the tags
// of the records. False when there are none.
bool FillGroupingReport(const Ledger& ledger, GroupedRecords records, const DateRange& days,
                        Grid& report);

// Sorts by the columns as they stand and makes the subtotals anew: after a refresh, and after a
// column was moved. Figures are the columns at the right end whose heading bears "CALC".
void Regroup(Grid& report, const Grouping& grouping);

}  // namespace lm
