#include "shell/unsavedwords.h"

#include <gtest/gtest.h>

#include "core/rows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

TEST(UnsavedWords, RecordsAreNamedAndItemsCountAsTheirSession) {
  test::TestLedger t;
  Ledger& ledger = t;
  EXPECT_EQ(DescribeUnsaved(ledger).added + DescribeUnsaved(ledger).edited, "");

  Grid& sessions = ledger.fgSessions;
  const int saved = sessions.AddItem("");
  sessions.SetTextMatrix(saved, "ID", "7");
  for (Grid* items : {&ledger.fgExtras, &ledger.fgSessionExpenses})
    items->SetTextMatrix(AddRecord(ledger, *items), "SESSID", "7");
  EXPECT_EQ(DescribeUnsaved(ledger).added, "") << "an item is no record of its own";
  EXPECT_EQ(DescribeUnsaved(ledger).edited, "a session") << "counted once";

  MarkNew(ledger, sessions, saved);
  EXPECT_EQ(DescribeUnsaved(ledger).added, "a session");
  EXPECT_EQ(DescribeUnsaved(ledger).edited, "") << "a new session is not edited as well";

  AddRecord(ledger, sessions);
  AddRecord(ledger, ledger.fgExpenses);
  EXPECT_EQ(DescribeUnsaved(ledger).added, "2 sessions and an expense");
  for (int i = 0; i < 1000; ++i) AddRecord(ledger, ledger.fgPensionC);
  EXPECT_EQ(DescribeUnsaved(ledger).added, "2 sessions, an expense and 1,000 Forms C");
}

}  // namespace
}  // namespace lm
