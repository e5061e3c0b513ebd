#include "pdf/textbox.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lm::pdf {
namespace {

// Every character is ten points wide and a line ten points high.
Advances TenWide() {
  Advances advances;
  advances.fill(10);
  return advances;
}

std::string Shown(const BrokenText& broken) {
  std::string shown;
  for (const BoxLine& line : broken.lines) {
    shown += line.first ? "F" : "-";
    shown += line.last ? "L[" : "-[";
    shown += line.text + "]";
  }
  return shown;
}

TEST(TextBox, BreaksParagraphsIntoLines) {
  struct Case {
    const char* text;
    double width, indent;
    int flags;
    const char* lines;
  };
  const Case cases[] = {
      {"", 100, 0, 0, ""},
      {"one", 30, 0, 0, "FL[one]"},
      {"one two", 70, 0, 0, "FL[one two]"},
      {"one two", 69, 0, 0, "F-[one]-L[two]"},
      {"one two", 70, 10, 0, "F-[one]-L[two]"},
      {"one two three", 50, -20, 0, "F-[one two]-L[three]"},
      {"a  b", 100, 0, 0, "FL[a  b]"},
      {"a   b", 100, 0, kTextJustify, "FL[a b]"},
      // Paragraphs: an empty line stays, the one after a final break does not.
      {"a\r\nb", 100, 0, 0, "FL[a]FL[b]"},
      {"a\rb\nc", 100, 0, 0, "FL[a]FL[b]FL[c]"},
      {"a\r\r\rb\r", 100, 0, 0, "FL[a]FL[ ]FL[ ]FL[b]"},
      {"a\n\n", 100, 0, 0, "FL[a]FL[ ]"},
      {"\ra", 100, 0, 0, "FL[]FL[a]"},
      // A word wider than the box is cut: the ellipsis takes two characters' place at least.
      {"abcdef", 50, 0, 0, "FL[abcd\x85]"},
      {"abcdef", 30, 0, 0, "FL[ab\x85]"},
      {"abcdef", 10, 0, 0, "FL[\x85]"},
      {"abcdef", 9, 0, 0, "FL[]"},
      {"x abcdef y", 30, 0, 0, "F-[x]--[ab\x85]-L[y]"},
      // One that only the indent pushes out goes to the second line.
      {"abc d", 30, 10, 0, "F-[]--[abc]-L[d]"},
      // No wrapping where a line is squeezed.
      {"one two three\rx", 30, 0, kTextShrink, "FL[one two three]FL[x]"},
      {"abcdef", 30, 0, kTextFit, "FL[abcdef]"},
      // A continuation has no indent.
      {"\x01one two", 70, 10, 0, "-L[one two]"},
      {"\x01one two\rab", 30, 10, 0, "--[one]-L[two]FL[ab]"},
      {"\x01", 30, 10, 0, ""},
      {"abc", -5, 0, 0, "FL[]"},
  };
  for (const Case& c : cases) {
    const BoxMeasures box{.width = c.width, .indent = c.indent, .lineHeight = 10, .flags = c.flags};
    EXPECT_EQ(Shown(BreakText(c.text, box, TenWide())), c.lines) << c.text << " in " << c.width;
  }
}

TEST(TextBox, OverflowIsLeftOverOrEndsInAnEllipsis) {
  struct Case {
    const char* text;
    double height;
    int flags;
    const char* lines;
    const char* leftover;
  };
  const Case cases[] = {
      {"one two six", 30, 0, "F-[one]--[two]-L[six]", ""},
      {"one two six", 29, 0, "F-[one]--[two]", "\x01six"},
      {"one two six ten\rab\r\rcd", 20, 0, "F-[one]--[two]", "\x01six ten\r\nab\r\n \r\ncd"},
      {"one\rtwo six", 10, 0, "FL[one]", "two six"},
      {"one two", 9, 0, "", "one two"},
      {"\x01one two", 9, 0, "", "\x01one two"},
      {"one\rtwo", 0, 0, "", "one\r\ntwo"},
      {"one two six", 20, kTextEllipsis, "F-[one]--[tw\x85]", ""},
      {"a bcd e", 10, kTextEllipsis, "F-[a \x85]", ""},
      {"a\rb", 10, kTextEllipsis, "FL[a\x85]", ""},
      {"abc\rb", 10, kTextEllipsis, "FL[ab\x85]", ""},
      {"a\rb", 5, kTextEllipsis, "", ""},
      {"one two\rsix", 10, kTextShrink, "FL[one two]", "six"},
  };
  for (const Case& c : cases) {
    const BoxMeasures box{.width = 30, .height = c.height, .lineHeight = 10, .flags = c.flags};
    const BrokenText broken = BreakText(c.text, box, TenWide());
    EXPECT_EQ(Shown(broken), c.lines) << c.text;
    EXPECT_EQ(broken.leftover, c.leftover) << c.text;
  }
}

// What is drawn box after box is the text of one high box.
TEST(TextBox, LeftoversGoOnWhereTheyWereBroken) {
  const std::string text =
      "The quick brown fox\r\n\r\njumps over the lazy\rdog and incomprehensibly on";
  BoxMeasures box{.width = 120, .indent = 30, .lineHeight = 10};
  const std::string whole = Shown(BreakText(text, box, TenWide()));
  box.height = 20;
  std::string parts, rest = text;
  for (int boxes = 0; !rest.empty() && boxes < 20; ++boxes) {
    const BrokenText broken = BreakText(rest, box, TenWide());
    EXPECT_LE(broken.lines.size(), 2u);
    parts += Shown(broken);
    rest = broken.leftover;
  }
  EXPECT_EQ(parts, whole);
}

TEST(TextBox, SurvivesAbsurdTexts) {
  const Advances advances = TenWide();
  constexpr std::size_t kLength = 20'000;
  std::string noise(kLength, ' ');
  for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<char>(i * i % 253);
  for (const std::string& text :
       {std::string(kLength, ' '), std::string(kLength, 'x'), std::string(kLength, '\r'), noise})
    for (const int flags : {0, kTextJustify, kTextEllipsis | kTextRight})
      for (const double height : {-1.0, 0.0, 1e300}) {
        const BoxMeasures box{.width = 100, .height = height, .lineHeight = 1e-3, .flags = flags};
        double widest = 0;
        for (const BoxLine& line : BreakText(text, box, advances).lines)
          widest = std::max(widest, Advance(advances, line.text));
        EXPECT_LE(widest, 100);
      }
}

}  // namespace
}  // namespace lm::pdf
