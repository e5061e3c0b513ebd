// Sample data for the desktop's tests and pictures.
#pragma once

#include "tests/support/scripted_platform.h"

namespace lm::test {

// Three practices and a dozen sessions of all types around 3 February 2026, some of them new,
// edited, invoiced or on a form, with extras and expenses; three invoices: paid, sent and not sent.
void FillDemo(TestLedger& ledger);

}  // namespace lm::test
