// Lists in which the windows of documents show sessions: some columns of fgSessions, filled once.
#pragma once

#include "core/grid.h"
#include "core/tables.h"

namespace lm {

// A blank list; a column without a format of its own shows as it does in `sessions`.
void MakeSessionLines(Grid& lines, const TableSpec& columns, const Grid& sessions);
// The session's cells at the end; practice and type, which are IDs there, as they show. Returns the
// row.
int AddSessionLine(Grid& lines, const Grid& sessions, int sessionRow);

}  // namespace lm
