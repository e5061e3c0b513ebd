#include "pdf/richtext.h"

#include <gtest/gtest.h>

namespace lm::pdf {
namespace {

const RichStyle kBase{"Arial", 10, 0, "", 0};

// "b{text}" per piece: the style's marks, the text; "_" a blank, "/" a break.
std::string Shown(const RichText& rich) {
  std::string shown;
  for (const RichPiece& piece : rich.pieces) {
    const RichStyle& style = rich.styles[piece.style];
    if (piece.kind != RichPiece::Kind::Text) {
      shown += piece.kind == RichPiece::Kind::Blank ? "_" : "/";
      continue;
    }
    if (style.style & 1) shown += "b";
    if (style.style & 2) shown += "i";
    if (style.style & 4) shown += "u";
    if (style.style & 16) shown += "s";
    if (style.script != 0) shown += style.script > 0 ? "^" : "v";
    if (style.size != 10) shown += std::to_string(static_cast<int>(style.size));
    if (style.font != "Arial") shown += style.font;
    shown += style.colour + "{" + piece.text + "}";
  }
  return shown;
}

TEST(RichText, ReadsTags) {
  TextTags tags;
  tags["WARN"] = {"Courier", 14, 3, "#ff0000"};
  tags["U"] = {"", 0, -1, "BLUE"};
  struct Case {
    const char* text;
    const char* pieces;
  };
  const Case cases[] = {
      {"", ""},
      {"a b", "{a}_{b}"},
      {"<b>a</b>c", "b{a}{c}"},
      {"<B>a<i>c</B>d</I>e", "b{a}bi{c}i{d}{e}"},
      {"<b><b>a</b>c</b>d", "b{ac}{d}"},
      {"<s>a</s><sup>1</sup><sub>2</sub>", "s{a}^{1}v{2}"},
      {"<sup>a<sub>b</sub>c</sup>", "^{a}v{b}^{c}"},
      {"<size=12>a</size>b", "12{a}{b}"},
      {"<font=Times New Roman>a</font>", "Times New Roman{a}"},
      {"<color=#ff0000>a</color>b", "#ff0000{a}{b}"},
      {"a<br>b\r\nc\rd\ne", "{a}/{b}/{c}/{d}/{e}"},
      {"&lt;b&gt; &amp;lt; &euro;", "{<b>}_{&lt;}_{&euro;}"},
      // Defined tags, one of them in place of a built-in one.
      {"<warn>a</WARN>b<u>c</u>", "bi14Courier#ff0000{a}{b}BLUE{c}"},
      // What is no tag stands as it is.
      {"1 < 2 <b>x", "{1}_{<}_{2}_b{x}"},
      {"<blink>a</blink>", "{<blink>a</blink>}"},
      {"<size=big>a", "{<size=big>a}"},
      {"<size=0>a<size=-4>b<size=1e9>c", "{<size=0>a<size=-4>b<size=1e9>c}"},
      {"<font=>a<b", "{<font=>a<b}"},
      {"<b=1>a<>b</>", "{<b=1>a<>b</>}"},
      {"a</b>b", "{ab}"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Shown(ParseRichText(c.text, kBase, tags)), c.pieces) << c.text;
  }
}

// Style 0 is ten wide and ten high a character, every further one twice as much as the one before.
std::vector<RichFace> Faces(std::size_t count) {
  std::vector<RichFace> faces;
  double size = 10;
  for (; faces.size() < count; size *= 2) {
    RichFace face;
    face.advances.fill(size);
    face.lineHeight = size;
    face.descent = -size / 5;
    faces.push_back(face);
  }
  return faces;
}

std::string Lines(const char* text, double width, int flags = 0) {
  const RichText rich = ParseRichText(text, kBase, {});
  std::string shown;
  for (RichLine& line : BreakRichText(rich, Faces(rich.styles.size()), width)) {
    AlignRichLine(line, width, flags);
    shown += line.last ? "L" : "-";
    shown += std::to_string(static_cast<int>(line.height));
    for (const RichFragment& fragment : line.fragments)
      shown += "[" + std::to_string(static_cast<int>(fragment.x)) + ":" +
               std::to_string(static_cast<int>(fragment.width)) + " " + fragment.text + "]";
  }
  return shown;
}

TEST(RichText, WrapsAndAligns) {
  struct Case {
    const char* text;
    double width;
    int flags;
    const char* lines;
  };
  const Case cases[] = {
      {"", 100, 0, ""},
      {"one two", 70, 0, "L10[0:70 one two]"},
      {"one  two", 69, 0, "-10[0:30 one]L10[0:30 two]"},
      // A word may run through several fonts and is not parted.
      {"a b<b>c</b>", 40, 0, "-10[0:10 a]L20[0:10 b][10:20 c]"},
      {"a b<b>c</b>", 50, 0, "L20[0:30 a b][30:20 c]"},
      // A blank takes the font of what follows.
      {"a <b>c</b>", 100, 0, "L20[0:10 a][10:40  c]"},
      {"a <u>b c</u> d", 100, kTextJustify, "-20[0:10 a][35:65 b c]L10[0:10 d]"},
      {"a<br><br>b", 100, 0, "L10[0:10 a]L10L10[0:10 b]"},
      {"a<br>", 100, 0, "L10[0:10 a]"},
      // Too wide: cut.
      {"abcdef", 40, 0, "L10[0:40 abc\x85]"},
      {"abc<b>def</b>", 70, 0, "L20[0:30 abc][30:40 d\x85]"},
      {"abcdef<b>g</b>", 60, 0, "L10[0:60 abcde\x85]"},
      {"a b c", 5, 0, ""},
      {"ab cd ef", 60, kTextRight, "-10[10:50 ab cd]L10[40:20 ef]"},
      {"ab cd ef", 60, kTextCentre, "-10[5:50 ab cd]L10[20:20 ef]"},
      {"a b c ddddd", 60, kTextJustify, "-10[0:60 a b c]L10[0:50 ddddd]"},
      {"a <b>b</b> cc dd", 100, kTextJustify, "-20[0:10 a][10:50  b][60:40  cc]L10[0:20 dd]"},
  };
  for (const Case& c : cases) EXPECT_EQ(Lines(c.text, c.width, c.flags), c.lines) << c.text;
}

TEST(RichText, SurvivesAbsurdTexts) {
  std::string nested, sizes, brackets(200'000, '<');
  for (int i = 0; i < 20'000; ++i) nested += "<b>x <i>";
  for (int i = 0; i < 20'000; ++i) nested += "</b></i>";
  for (int i = 1; i < 300; ++i) sizes += "<size=" + std::to_string(i) + ">a</size> ";
  for (const std::string& text : {nested, sizes, brackets, std::string(200'000, '&')}) {
    const RichText rich = ParseRichText(text, kBase, {});
    EXPECT_LE(rich.styles.size(), 300u);
    EXPECT_FALSE(BreakRichText(rich, std::vector<RichFace>(rich.styles.size()), 50).empty());
  }
}

}  // namespace
}  // namespace lm::pdf
