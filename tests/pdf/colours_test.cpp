#include "pdf/colours.h"

#include <gtest/gtest.h>

namespace lm::pdf {
namespace {

TEST(Colours, EveryNotationHasItsStoredForm) {
  Document document;
  document.prefix = "A1+";
  document.resources.Add(ResourceKind::Pattern, PatternResource("ID77", document), 7);
  document.resources.Add(ResourceKind::Pattern, PatternResource("my tiles", document), 8);
  const struct {
    const char *input, *stored;
  } cases[] = {
      {"", ""},
      {"  ", ""},
      {"-1", ""},
      {"0", "#0 0 0"},
      {"255", "#1 0 0"},
      {"16711680", "#0 0 1"},
      {"8421504", "#0.502 0.502 0.502"},
      {"16777215", "#1 1 1"},
      {"#FF8000", "#1 0.502 0"},
      {"#ff8000", "#1 0.502 0"},
      {"#123456", "#0.071 0.204 0.337"},
      {"#0.5 0.25 1", "#0.5 0.25 1"},
      {"#0.12345 0 0", "#0.12345 0 0"},
      {"#0;  0.5;1", "#0 0.5 1"},
      {"@0;1;0.5;0", "@0 1 0.5 0"},
      {"@255;0;51", "#1 0 0.2"},
      {"@0.5", "%0.5"},
      {"@51", "%0.2"},
      {"%0.25", "%0.25"},
      {"%1", "%1"},
      {"GRAY", "#0.502 0.502 0.502"},
      {" gray ", "#0.502 0.502 0.502"},
      {"ORANGE", "#1 0.498 0"},
      {"GREEN", "#0 0.502 0"},
      {"LIME", "#0 1 0"},
      {"TOMATO", "#1 0.388 0.278"},
      {"ID77", "ID77"},
      {"my tiles", "my tiles"},
  };
  for (const auto& c : cases) EXPECT_EQ(StoredColour(c.input, document), c.stored) << c.input;
}

TEST(Colours, NonsenseIsRefused) {
  Document document;
  document.prefix = "A1+";
  document.resources.Add(ResourceKind::Pattern, PatternResource("ID77", document), 7);
  for (const char* input :
       {"banana",   "16777216", "99999999999999", "-2",       "#",         "#12345", "#GGGGGG",
        "#1 2 3",   "#0.5 0.5", "#1e-1 0 0",      "#nan 0 0", "#-0.5 0 0", "@",      "@1;2",
        "@0;0;0;2", "@256;0;0", "@1;1;1;1;1",     "@300",     "%",         "%2",     "%x",
        "ID7",      "ID777",    "12,3x",          "\xFF\x00"}) {
    EXPECT_THROW(StoredColour(input, document), Error) << input;
  }
}

TEST(Colours, TheOperatorsFollowTheSpace) {
  Document document;
  document.prefix = "A1+";
  const struct {
    const char *stored, *fill, *line;
  } cases[] = {
      {"", "", ""},
      {"#1 0 0.5", "1 0 0.5 rg\n", "1 0 0.5 RG\n"},
      {"@0 1 0.5 0", "0 1 0.5 0 k\n", "0 1 0.5 0 K\n"},
      {"%0.25", "0.25 g\n", "0.25 G\n"},
      {"ID77", "/Pattern cs /A1+ID77 scn\n", "/Pattern CS /A1+ID77 SCN\n"},
      {"#1 0 0/dots", "/CS-RGB cs 1 0 0 /A1+dots scn\n", "/CS-RGB CS 1 0 0 /A1+dots SCN\n"},
      {"@0 0 0 1/a b", "/CS-CMYK cs 0 0 0 1 /A1+a#20b scn\n",
       "/CS-CMYK CS 0 0 0 1 /A1+a#20b SCN\n"},
      {"%0.5/dots", "/CS-GRAY cs 0.5 /A1+dots scn\n", "/CS-GRAY CS 0.5 /A1+dots SCN\n"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FillOperator(c.stored, document), c.fill);
    EXPECT_EQ(LineOperator(c.stored, document), c.line);
  }
}

TEST(Colours, APatternThatTakesAColourKeepsThePlainOne) {
  EXPECT_EQ(PatternWithColour("#1 0 0", "dots"), "#1 0 0/dots");
  EXPECT_EQ(PatternWithColour("#1 0 0/bars", "dots"), "#1 0 0/dots");
  EXPECT_EQ(PatternWithColour("ID77", "dots"), "#0 0 0/dots");
  EXPECT_TRUE(IsPattern("ID77"));
  EXPECT_TRUE(IsPattern("#1 0 0/dots"));
  EXPECT_FALSE(IsPattern("#1 0 0"));
  EXPECT_FALSE(IsPattern(""));
}

}  // namespace
}  // namespace lm::pdf
