// The practices of a Form B: what the Forms A that came back in its month add up to for each.
#pragma once

#include "core/ledger.h"
#include "pension/formoverlay.h"
#include "pension/month.h"

namespace lm {

// The columns of the table on paper. Practices stand in the order in which fgPensionA names them
// first; those without an amount are left out, and when there are too many the rest.
void AddPractices(const Ledger& ledger, SessionsByMonth& sessions, Month month,
                  FormFigures& figures);

}  // namespace lm
