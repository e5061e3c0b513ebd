// What every record table does with its rows: the change marker, new rows and new IDs.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

enum class RowState { Saved, New, Edited };

// A saved row's marker has no colour; one stored as 0 says the same.
RowState StateOfRow(const Ledger& ledger, const Grid& grid, int row);
void MarkNew(Ledger& ledger, Grid& grid, int row);
void MarkEdited(Ledger& ledger, Grid& grid, int row);  // a row that is new stays new
void ClearMarkers(Grid& grid);
bool HasUnsavedRows(const Ledger& ledger);

// Adds an empty row, at the end when option 59 is "BOTTOM" and above the first data row
// otherwise, marked as new. Returns its number.
int AddRecord(Ledger& ledger, Grid& grid);

// One more than the largest ID of the table; 1 when it has no row. Damaged IDs do not count.
int NextId(const Grid& grid);

}  // namespace lm
