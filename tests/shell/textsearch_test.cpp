// Words that are typed, and the records that hold all of them.
#include "shell/textsearch.h"

#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Texts = std::vector<std::string>;

Texts WordsOf(std::string_view typed) {
  Texts words;
  for (const SearchWord& word : SearchWords(typed)) words.push_back(word.text);
  return words;
}

TEST(SearchWords, AreLowerCaseTheLongestFirstEachOnce) {
  const struct {
    std::string_view typed;
    Texts words;
  } kCases[] = {
      {"", {}},
      {" \t\r\n\xA0 ", {}},
      {"Riverside feb", {"riverside", "feb"}},
      {"b a B  A", {"a", "b"}},
      {"Form A nov", {"form a", "nov"}},
      {"forms a", {"forms", "a"}},
      {"form", {"form"}},
      {"form SOLO", {"form solo"}},
      {"not sent", {"not sent"}},
      {"not urgent", {"urgent", "not"}},
      {"\"quoted\" £384.00"_w, {"\"quoted\"", std::string("£384.00"_w)}},
      {"caf\xC9", {"caf\xE9"}},
  };
  for (const auto& [typed, words] : kCases) EXPECT_EQ(WordsOf(typed), words) << typed;
}

TEST(SearchWords, StandAnywhereButAStateNotInItsOpposite) {
  const struct {
    std::string_view text, typed;
    bool has;
  } kCases[] = {
      {"riverside", "vers", true},          {"riverside", "versa", false},
      {"unpaid, not sent", "paid", false},  {"unpaid, not sent", "sent", false},
      {"unpaid, not sent", "pai", true},    {"unpaid, not sent", "unpaid", true},
      {"unpaid; paid twice", "paid", true}, {"prepaid", "paid", true},
      {"form b april", "form a", false},    {"form a april", "form a", true},
  };
  for (const auto& [text, typed, has] : kCases)
    EXPECT_EQ(HasWord(text, SearchWords(typed).front()), has) << text << " / " << typed;
}

struct Sessions : testing::Test {
  test::TestLedger test;
  Grid& grid = test.ledger.fgSessions;

  Sessions() {
    test.AddRow(test.ledger.fgPractices, {"NAME=Riverside Surgery"});
    test.AddRow(test.ledger.fgPractices, {"NAME=Riverside Surgery"});
    test.AddRow(grid, {"PRACTICE=1", "SDATE=03/02/2026", "TOTAL=1384.00", "NOTES=Key at \"desk\""});
    test.AddRow(grid, {"PRACTICE=2", "SDATE=14/02/2026", "TOTAL=84.50", "NOTES=key\r\nlost"});
    test.AddRow(grid, {"PRACTICE=99", "SDATE=banana", "TOTAL=lots", "NOTES=-5%"});
    test.AddRow(grid, {});
    FormatTables(test.ledger);
  }

  Texts Found(std::string_view typed) {
    TextIndex index(grid);
    for (int col = 1; col < grid.Cols(); ++col)
      if (grid.ColKey(col) != "ID") index.AddCell(col);
    index.Read();
    Texts ids;
    for (const int row : index.Matching(SearchWords(typed)))
      ids.push_back(grid.TextMatrix(row, "ID"));
    return ids;
  }
};

TEST_F(Sessions, AreFoundByWhatTheirCellsShowAndHowPeopleTypeIt) {
  const struct {
    std::string_view typed;
    Texts ids;
  } kCases[] = {
      {"", {"1", "2", "3", "4"}},
      {"riverside", {"1", "2"}},  // two practices of one name
      {"RIVERSIDE feb", {"1", "2"}},
      {"feb 3 2026 tue", {"1"}},
      {"14/02/2026", {"2"}},
      {"14/2/2026", {"2"}},
      {"2026-02-14", {"2"}},
      {"saturday", {"2"}},
      {"1384", {"1"}},
      {"1,384.00", {"1"}},
      {"384", {"1"}},
      {"84.5", {"2"}},
      {"\"desk\"", {"1"}},
      {"key lost", {"2"}},
      {"banana", {"3"}},
      {"lots", {"3"}},
      {"-5%", {"3"}},
      {"99", {}},  // an id that points nowhere is nothing that is shown
      {"riverside march", {}},
  };
  for (const auto& [typed, ids] : kCases) EXPECT_EQ(Found(typed), ids) << typed;
}

TEST_F(Sessions, HostileTextsEndQuietly) {
  std::string distinct;
  for (int i = 0; distinct.size() < 10'000; ++i) distinct += std::to_string(i) + ' ';
  for (const std::string& typed : {std::string(10'000, 'a'), std::string(10'000, ' '), distinct,
                                   std::string(10'000, '\''), std::string("\0\x1F\x1D;--", 6)})
    EXPECT_EQ(Found(typed).size(), Trim(typed).empty() ? 4u : 0u);
}

TEST_F(Sessions, GroupRowsAreNoRecords) {
  grid.Sort(SortSetting::GenericAscending, grid.ColIndex("PRACTICE"));
  grid.Subtotal(SubtotalFunction::Sum, grid.ColIndex("PRACTICE"), grid.ColIndex("TOTAL"), {});
  EXPECT_EQ(Found("riverside").size(), 2u);
  EXPECT_EQ(Found("").size(), 4u);
}

}  // namespace
}  // namespace lm
