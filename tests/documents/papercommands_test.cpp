// What templates may ask for so that nothing is cut: texts that shrink, close up and flow over
// pages, items that go with a value, sessions that stay together, numbered pages.
#include <gtest/gtest.h>

#include "core/text.h"
#include "tests/documents/paper.h"

namespace lm {
namespace {

using test::FindWord;
using test::Item;
using test::kLine;
using test::kNear;
using test::Paper;
using test::Section;
using test::Text;
using test::Word;

// "word1 word2 ... wordN", and as lines.
std::string Words(int count, const std::string& between = " ") {
  std::string text;
  for (int i = 1; i <= count; ++i) text += (i > 1 ? between : "") + "w" + std::to_string(i);
  return text;
}

int LastPage(const std::vector<Word>& words) { return words.empty() ? 0 : words.back().page; }

TEST(PaperCommands, ATextShrinksUntilItFits) {
  Paper paper;
  const auto height = [&](const std::string& caption, const test::Attributes& more) {
    test::Attributes changes{{"width", "40"}, {"height", "9"}, {"fit", "SHRINK"}};
    changes.insert(more.begin(), more.end());
    const auto words = paper.Write(Section("invheader", Text(caption, changes), "60"));
    const Word first = words.at(0), last = words.back();
    EXPECT_LE(last.bottom, 2 + 9 + 1.0) << caption;
    return first.bottom - first.top;
  };
  const double full = height("short", {});
  EXPECT_NEAR(height(Words(10), {}), full, 0.05) << "two lines have room";
  EXPECT_LT(height(Words(40), {}), full * 0.9);
  EXPECT_GT(height(Words(40), {}), full * 0.4);
  const auto mail = paper.Write(
      Section("invheader", Text("alexandra.featherstone@locum-doctors.example.org",
                                {{"width", "40"}, {"height", "9"}, {"fit", "SHRINK"}})));
  std::string whole;
  for (const Word& word : mail) whole += word.text;
  EXPECT_EQ(whole, "alexandra.featherstone@locum-doctors.example.org");
}

TEST(PaperCommands, ATextFlowsOverPages) {
  Paper paper(2);
  paper.ledger.fgSessions.SetTextMatrix(paper.ledger.fgSessions.FindRow("1", "ID"), "PUBLICNOTE",
                                        Words(200, "\n"));
  const test::Attributes flows{{"top", "6"}, {"height", "0"}, {"allowexpansion", "PAGES"}};
  const auto words =
      paper.Write(Section("session", Text("S{Session Total}") + Text("{Session Note}", flows)) +
                  Section("sessioncontinued", Text("on{Session Total}"), "8") +
                  Section("pagefooter", Text("foot"), "14"));
  for (int i = 1; i <= 200; ++i) {
    const Word word = FindWord(words, "w" + std::to_string(i));
    EXPECT_GT(word.page, 0) << i;
    EXPECT_LT(word.bottom, 297 - 15.5 + 0.5) << i;
  }
  EXPECT_EQ(FindWord(words, "w200").page, 4);
  EXPECT_EQ(FindWord(words, "on1").page, 2);
  EXPECT_NEAR(FindWord(words, "on1").top, 20 + 2, 1.5);
  const Word next = FindWord(words, "S2");
  EXPECT_EQ(next.page, 4);
  EXPECT_NEAR(next.top - FindWord(words, "w200").top, kLine + 2, 1);
}

TEST(PaperCommands, TheFooterRisesWithItsNote) {
  const struct {
    int lines;
    double top;  // of the footer's first text, on its page
    int pages;
  } cases[] = {{0, 197, 1}, {10, 197, 1}, {30, 297 - 15.5 - 30 * kLine - 20, 1}, {80, 20, 2}};
  for (const auto& each : cases) {
    Paper paper(1);
    paper.ledger.fgInvoices.SetTextMatrix(2, "PUBLICNOTE", Words(each.lines, "\n"));
    const auto words =
        paper.Write(Section("session", Text("S")) +
                    Section("invfooter",
                            Text("Total", {{"top", "0"}}) +
                                Text("{Invoice Note}", {{"top", "20"},
                                                        {"height", "0"},
                                                        {"hideifempty", "TRUE"},
                                                        {"allowexpansion", "PAGES"}}),
                            "100"));
    EXPECT_NEAR(FindWord(words, "Total").top, each.top, 1.5) << each.lines;
    EXPECT_EQ(LastPage(words), each.pages) << each.lines;
    if (each.lines == 0) continue;
    EXPECT_LT(FindWord(words, "w" + std::to_string(each.lines)).bottom, 297 - 15 + 0.5);
  }
}

TEST(PaperCommands, EmptyLinesCloseAndItemsGoWithTheirValue) {
  Paper paper;
  const auto text = [&](const std::string& items) {
    return paper.WriteText(Section("invheader", items, "60"));
  };
  EXPECT_EQ(text(Text("{Practice Address 1}&#10;{Practice Name}, {Practice Address 2}",
                      {{"emptylines", "CLOSE"}})),
            "1:Riverside");
  EXPECT_EQ(text(Text("Fax", {{"shownwith", "{Practice Fax}"}}) +
                 Text("Mail", {{"top", "20"}, {"shownwith", "{Practice Email}"}})),
            "1:Mail");

  // Below the text above it in its column, and where that is missing at its own top.
  const auto top = [&](const std::string& above, const char* left) {
    const auto words = paper.Write(Section(
        "invheader",
        Text(above, {{"hideifempty", "TRUE"}, {"allowexpansion", "PAGES"}, {"left", left}}) +
            Text("note", {{"below", "1"}, {"width", "40"}}),
        "60"));
    return FindWord(words, "note").top;
  };
  const double alone = top("{Practice Fax}", "10");
  EXPECT_NEAR(top("a", "10"), alone + 6 + 1, kNear);
  EXPECT_NEAR(top("a&#10;b&#10;c", "10"), alone + 3 * kLine + 1, kNear);
  EXPECT_NEAR(top("a&#10;b&#10;c", "50"), alone, kNear) << "beside it";
}

TEST(PaperCommands, SessionsStayTogetherAndTheLastWithTheFooter) {
  const auto pages = [](int sessions, const char* keep, const char* footer) {
    Paper paper(sessions);
    for (int i = 1; i <= sessions; ++i)
      paper.AddRow(paper.ledger.fgExtras, {"SESSID=" + std::to_string(i), "ITEM=X"});
    const auto words = paper.Write(
        Section("session", Text("S{Session Total}", {{"top", "0"}}), "20") +
            Section("extra", Text("E{Session Total}", {{"top", "0"}}), "20") +
            Section("sessioncontinued", Text("C{Session Total}", {{"top", "0"}}), "10") +
            Section("invfooter", Text("Total"), footer),
        {{"keep_together", keep}, {"show_extras", "YES"}, {"margin_bottom", "17"}});
    std::string found;
    for (const Word& word : words) found += std::to_string(word.page) + ":" + word.text + " ";
    return found.substr(found.find("S6"));
  };
  // 280 down: seven sessions of 40 from the top; on further pages six, from 20.
  EXPECT_EQ(pages(8, "NO", "40"), "S6 1:E6 1:S7 1:E7 2:S8 2:E8 2:Total ");
  EXPECT_EQ(pages(7, "NO", "40"), "S6 1:E6 1:S7 1:E7 2:Total ");
  EXPECT_EQ(pages(7, "YES", "40"), "S6 1:E6 2:S7 2:E7 2:Total ");
  EXPECT_EQ(pages(6, "YES", "50"), "S6 1:E6 1:Total ");
  EXPECT_EQ(pages(7, "YES", "250"), "S6 1:E6 1:S7 1:E7 2:Total ") << "no room for both";
}

TEST(PaperCommands, ExtrasBeyondAPageStandBelowTheirSession) {
  for (const char* keep : {"YES", "NO"}) {
    Paper paper(2);
    for (int i = 1; i <= 30; ++i) paper.AddRow(paper.ledger.fgExtras, {"SESSID=2", "ITEM=X"});
    const auto words =
        paper.Write(Section("session", Text("S{Session Total}", {{"top", "0"}})) +
                        Section("extra", Text("E", {{"top", "0"}})) +
                        Section("sessioncontinued", Text("C{Session Total}", {{"top", "0"}}), "10"),
                    {{"keep_together", keep}, {"show_extras", "YES"}});
    const auto second =
        std::ranges::find_if(words, [](const Word& word) { return word.page == 2; });
    ASSERT_NE(second, words.end());
    EXPECT_EQ(second->text, "C2") << keep;
    EXPECT_EQ(FindWord(words, "S2").page, 1) << "it would not fit on the next page either";
  }
}

TEST(PaperCommands, PageNumbers) {
  const auto text = [](int sessions, const char* numbers) {
    Paper paper(sessions);
    return paper.WriteText(Section("session", "", "200") +
                               Section("pagefooter", Text("Page {Page} of {Pages}."), "20"),
                           {{"page_numbers", numbers}});
  };
  EXPECT_EQ(text(2, "ON SEVERAL PAGES"), "1:Page 1:1 1:of 1:2. 2:Page 2:2 2:of 2:2.");
  EXPECT_EQ(text(1, "ON SEVERAL PAGES"), "");
  EXPECT_EQ(text(1, "ALWAYS"), "1:Page 1:1 1:of 1:1.");
  for (const char* none : {"NONE", "-"}) EXPECT_EQ(text(1, none), "1:Page 1:of 1:.");
}

// Sections of every page that flow over pages would begin pages without end.
TEST(PaperCommands, EveryTemplateEnds) {
  Paper paper(3);
  const std::string tall = Text("{Invoice Note}", {{"allowexpansion", "PAGES"}, {"top", "200"}});
  paper.ledger.fgInvoices.SetTextMatrix(2, "PUBLICNOTE", Words(300, "\n"));
  for (const char* section : {"backgroundall", "pageheader", "pagefooter", "sessioncontinued",
                              "invfootercontinued", "invheader"})
    paper.Write(Section(section, tall) + Section("session", tall) + Section("invfooter", tall),
                {{"page_backgrounds", "SAME ON ALL PAGES"}, {"keep_together", "YES"}});
  paper.Write(Section("session", Text("{Invoice Note}", {{"allowexpansion", "PAGES"}})),
              {{"margin_top", "400"}, {"margin_bottom", "400"}, {"keep_together", "YES"}});
  paper.Write(
      Section("session",
              Text("{Invoice Note}",
                   {{"fit", "SHRINK"}, {"fontsize", "10000"}, {"width", "-5"}, {"height", "0"}})));
  EXPECT_TRUE(paper.shown.messages.empty());
}

}  // namespace
}  // namespace lm
