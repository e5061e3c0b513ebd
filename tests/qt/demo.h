// Sample data for the desktop's tests and pictures.
#pragma once

#include "tests/support/scripted_platform.h"

namespace lm::test {

// Three practices and a dozen sessions of all types around 3 February 2026, some of them new,
// edited, invoiced or on a form, with extras and expenses; three invoices: paid, sent and not sent.
void FillDemo(TestLedger& ledger);

// On top of it, the pension month: Forms A of January sent to their practices, the one of Riverside
// Surgery back and on the Form B of February; Forms A of February not sent yet; the Form SOLO of
// January, and the payment for it.
void FillPensionDemo(TestLedger& ledger);

}  // namespace lm::test
