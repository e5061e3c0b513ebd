// The two lists of the import wizard: their columns, and how rows stand for what is offered.
#pragma once

#include <string>
#include <string_view>

#include "connections/feedimport.h"
#include "core/grid.h"
#include "core/ledger.h"

namespace lm {

// The unmatched practices; ACTION holds what becomes of each.
void MakeUnmatchedList(Ledger& ledger, Grid& lines, std::string_view feedName);
void AddUnmatched(Grid& lines, const UnmatchedPractice& unmatched);

// The sessions. A row's data is the ID of its practice, PRACTICE its name; IMPORT is "TRUE" or
// "FALSE", and shows a tick; COLLISION holds the ID of the session that it clashes with.
void MakeOfferedList(const Ledger& ledger, Grid& lines);
int AddOffered(Grid& lines, const OfferedSession& session, std::string_view practiceName);
// As the user left it.
OfferedSession OfferedOf(const Grid& lines, int row);

// "" for none.
void SetClash(Grid& lines, int row, std::string_view sessionId);

}  // namespace lm
