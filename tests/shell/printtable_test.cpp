// Lists as they go on paper.
#include <gtest/gtest.h>

#include "core/formatting.h"
#include "shell/grouping.h"
#include "shell/printtable.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

struct Paper : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& sessions = ledger.fgSessions;

  Paper() {
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside"});
    test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Abbey"});
    const struct {
      const char *practice, *day, *rate;
    } kSessions[] = {{"1", "24/02/2026", "1,200.50"},
                     {"2", "03/02/2026", "95"},
                     {"1", "05/01/2026", "10.25"},
                     {"2", "banana", ""}};
    for (const auto& each : kSessions)
      test.AddRow(sessions, {std::string("PRACTICE=") + each.practice,
                             std::string("SDATE=") + each.day, std::string("RATE=") + each.rate});
    FormatTables(ledger);
  }

  static std::string Line(const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts) line += text + "|";
    return line;
  }
  static std::vector<std::string> Lines(const PrintTable& table) {
    std::vector<std::string> lines{Line(table.captions)};
    for (const PrintedRow& row : table.rows)
      lines.push_back((row.bold ? "* " : "") + Line(row.texts));
    return lines;
  }
};

TEST_F(Paper, ColumnsWithoutTextAreLeftOutAndAmountsSummed) {
  const PrintTable table = MakePrintTable(sessions);
  EXPECT_EQ(Lines(table),
            (std::vector<std::string>{"Practice|Start Date|Rate|", "Riverside|24/02/2026|1,200.50|",
                                      "Abbey|03/02/2026|95.00|", "Riverside|05/01/2026|10.25|",
                                      "Abbey|banana||", "* Total||1,305.75|"}));
  EXPECT_EQ(table.alignments,
            (std::vector<Alignment>{Alignment::Left, Alignment::Left, Alignment::Right}));
  EXPECT_EQ(table.rows.back().title, 0);
  EXPECT_EQ(PrintedDays(sessions), "05/01/2026 to 24/02/2026");
}

TEST_F(Paper, HiddenRowsTakeNoPartAndCollapsedOnesOnlyInSums) {
  sessions.SetRowHidden(sessions.FixedRows(), true);
  ListGrouping groups(ledger, kGroupedSessions);
  groups.Apply(1);
  groups.CollapseAll();
  const PrintTable table = MakePrintTable(sessions);
  ASSERT_EQ(table.rows.size(), 3u);
  EXPECT_TRUE(table.rows[0].bold);
  ASSERT_GE(table.rows[0].title, 0);
  EXPECT_EQ(table.rows[0].texts[static_cast<std::size_t>(table.rows[0].title)], "Abbey");
  EXPECT_EQ(table.rows.back().texts.back(), "105.25");
  EXPECT_EQ(PrintedDays(sessions), "05/01/2026 to 03/02/2026");
}

TEST_F(Paper, HourlyRatesAreNoAmountsAndAnEmptyListHasNoColumns) {
  test.AddRow(ledger.fgPractices, {"ID=3", "NAME=Moor Lane", "RATE_NORMAL=95"});
  EXPECT_FALSE(MakePrintTable(ledger.fgPractices).summed);
  EXPECT_TRUE(MakePrintTable(ledger.fgInvoices).captions.empty());
  EXPECT_EQ(PrintedDays(ledger.fgInvoices), "");
}

}  // namespace
}  // namespace lm
