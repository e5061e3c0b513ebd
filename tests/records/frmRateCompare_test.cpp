// Hourly rates side by side.
#include "records/frmRateCompare.h"

#include <gtest/gtest.h>

#include "tests/records/surgery.h"

namespace lm::test {
namespace {

const std::vector<std::string> kKeys{"NAME",      "RATE_NORMAL",      "RATE_OOHS",
                                     "RATE_OOHD", "RATE_UNPENSIONED", "RATE_PRIVATE"};

std::vector<std::string> Lines(const frmRateCompare& window) {
  std::vector<std::string> lines;
  const Grid& rates = window.fgRates;
  for (int row = rates.FixedRows(); row < rates.Rows(); ++row) {
    std::string line;
    for (const std::string& key : kKeys) line += rates.DisplayText(row, key) + "|";
    lines.push_back(line);
  }
  return lines;
}

TEST(RateCompare, DefaultsAloneWithoutPractices) {
  TestLedger test;
  SetOption(test, optDefaultRates, "50|60.5||80|90");
  const frmRateCompare window(test);
  EXPECT_EQ(Lines(window),
            (std::vector<std::string>{"Default|50.00|60.50||90.00|80.00|", "Maximum||||||",
                                      "Average||||||", "Minimum||||||"}));
}

TEST(RateCompare, APracticeWithoutARateTakesNoPart) {
  TestLedger test;
  test.AddRow(test.ledger.fgPractices, {"NAME=Riverside", "RATE_NORMAL=100", "RATE_PRIVATE=-1"});
  test.AddRow(test.ledger.fgPractices, {"NAME=Abbey", "RATE_NORMAL=80"});
  test.AddRow(test.ledger.fgPractices, {"NAME=Moor Lane", "RATE_OOHS=73.33"});
  test.AddRow(test.ledger.fgPractices, {"NAME=Abbey", "RATE_NORMAL=70"});
  const frmRateCompare window(test);
  EXPECT_EQ(Lines(window),
            (std::vector<std::string>{"Default||||||", "Maximum|100.00|73.33||||",
                                      "Average|83.33|73.33||||", "Minimum|70.00|73.33||||",
                                      "Riverside|100.00|||||", "Abbey|80.00|||||",
                                      "Moor Lane||73.33||||", "Abbey|70.00|||||"}));
  EXPECT_TRUE(window.fgRates.ColHidden(window.fgRates.ColIndex("RATE_OOHD")));
  SetOption(test, optHasRetiredForms, "TRUE");
  const frmRateCompare retired(test);
  EXPECT_FALSE(retired.fgRates.ColHidden(retired.fgRates.ColIndex("RATE_OOHD")));
}

}  // namespace
}  // namespace lm::test
