// Texts as operators, and texts as a reader finds them in the finished file. Courier New makes the
// sums easy: at 10 points each character is 6 wide, a line 11.33 high, the descent 3.
#include "pdf/texts.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/error.h"
#include "pdf/fonts.h"
#include "pdf/graphics.h"
#include "pdf/tables.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm {
namespace {

class Text : public testing::Test {
 protected:
  Text() {
    document_.out.Open(directory_.Path() / "out.pdf");
    document_.target = pdf::Target::Page;
    document_.state.colours.fill = document_.state.colours.text;
    fonts_.Set("Courier New", 10, 0, 0);
  }

  // What was drawn since the last call.
  std::string Drawn() { return std::exchange(document_.pageBuffer, {}); }

  static std::string Line(const std::string& position, const std::string& text,
                          const std::string& before = "", const std::string& after = "") {
    return "BT /FNT_1 10 Tf " + before + "1 0 0 -1 " + position + " Tm (" + text + ") Tj " + after +
           "ET\n";
  }

  test::TempDirectory directory_;
  pdf::Document document_;
  pdf::Fonts fonts_{document_};
  pdf::Graphics graphics_{document_, fonts_};
  pdf::Texts texts_{document_, fonts_, graphics_};
};

TEST_F(Text, DrawTextAlignsAgainstAPoint) {
  const struct {
    int flags;
    const char* position;
  } cases[] = {{0, "100 50"}, {1, "100 50"}, {2, "82 50"},  {4, "91 50"},
               {6, "100 50"}, {10, "82 50"}, {64, "100 50"}};
  for (const auto& c : cases) {
    texts_.DrawText(100, 50, "abc", c.flags);
    EXPECT_EQ(Drawn(), Line(c.position, "abc")) << c.flags;
  }
  texts_.DrawText(0, 0, "a\\(b)\r\n");
  EXPECT_EQ(Drawn(), Line("0 0", "a\\\\\\(b\\)\\r\\n"));
}

TEST_F(Text, ALineIsSpreadOverItsBox) {
  const struct {
    const char* text;
    int flags;
    const char* position;
    const char* shown;
    const char* before;
    const char* after;
  } cases[] = {
      {"ab", 2, "48 8.33", "ab", "", ""},
      {"ab", 4, "24 8.33", "ab", "", ""},
      {"ab", 1 + 2, "0 8.33", "ab", "", ""},
      {"a  b cdefghij", 64, "0 8.33", "a b", "42 Tw ", "0 Tw "},
      {"a  b", 64, "0 8.33", "a b", "", ""},  // a paragraph's end is not stretched
      {"abcdefghijklmnop", 64, "0 8.33", "abcdefghi\x85", "", ""},
      {"abcdefghijkl op qrst", 128, "0 8.33", "abcdefghijkl op qrst", "50 Tz ", "100 Tz "},
      {"ab", 128, "0 8.33", "ab", "", ""},
      {"ab cd", 256, "0 8.33", "ab cd", "200 Tz ", "100 Tz "},
      {"", 256, "", "", "", ""},
      {"ab cd", 256 + 2, "0 8.33", "ab cd", "", ""},
  };
  for (const auto& c : cases) {
    texts_.DrawTextBox(0, 0, 60, 12, c.text, c.flags);
    const std::string wanted = *c.text ? Line(c.position, c.shown, c.before, c.after) : "";
    EXPECT_EQ(Drawn(), wanted) << c.text << " " << c.flags;
  }
  // Word spacing replaces the one in force, which comes back; both count before scaling.
  document_.state.text.wordSpacing = 2;
  document_.state.text.horizontalScaling = 50;
  texts_.DrawTextBox(0, 0, 30, 12, "a b cdefghij", 64);
  EXPECT_EQ(Drawn(), Line("0 8.33", "a b", "42 Tw ", "2 Tw "));
}

TEST_F(Text, ColourAndLinesOfAText) {
  document_.state.colours.text = "#1 0 0";
  texts_.DrawText(5, 5, "a");
  EXPECT_EQ(Drawn(), "1 0 0 rg\n" + Line("5 5", "a") + "0 0 0 rg\n");
  // White on a page where no fill colour was chosen, which fills in black.
  document_.state.colours = {.text = "#1 1 1"};
  texts_.DrawText(5, 5, "a");
  EXPECT_EQ(Drawn().substr(0, 9), "1 1 1 rg\n");

  document_.state.colours = {.fill = "#0 0 0", .line = "#0 0 1", .text = "#0 0 0"};
  fonts_.Set("Courier New", 16, 4 + 8 + 16, 0);
  texts_.DrawText(50, 20, "ab");
  EXPECT_NE(
      Drawn().find("ET\nq 0 0 1 RG\n1 w 1 0 0 1 50 20 cm 0 2 m 19.2 2 l S 0 -12.8 m 19.2 -12.8 l S "
                   "0 -4.8 m 19.2 -4.8 l S Q\n"),
      std::string::npos);
}

// A link lies on the page as it is seen: where spaces have moved, stretched and turned the text.
TEST_F(Text, BoxesAreThoseOnThePage) {
  const auto expectBox = [&](double left, double top, double right, double bottom) {
    EXPECT_NEAR(document_.lastBox.left, left, 1e-9);
    EXPECT_NEAR(document_.lastBox.top, top, 1e-9);
    EXPECT_NEAR(document_.lastBox.right, right, 1e-9);
    EXPECT_NEAR(document_.lastBox.bottom, bottom, 1e-9);
  };
  graphics_.BeginSpace(100, 50, 2, 1, 90);
  texts_.DrawText(0, 0, "ab");
  expectBox(100 - 2 * 3, 50, 100 + 2 * 8.33, 62);
  graphics_.EndSpace();
  expectBox(100 - 2 * 3, 50, 100 + 2 * 8.33, 62);

  graphics_.BeginSpace(100, 50);
  graphics_.BeginSpace(10, 20, -1, 3);
  texts_.DrawTextBox(1, 2, 30, 40, "ab");
  expectBox(79, 76, 109, 196);
  graphics_.EndSpace();
  texts_.DrawTextRich(1, 2, 30, 40, "ab");
  expectBox(101, 52, 131, 92);
  graphics_.EndSpace();

  graphics_.AxisTranslation(5, 6);
  graphics_.AxisScaling(2, 2);
  graphics_.AxisSkewing(0, 1);
  texts_.DrawTextBox(1, 2, 10, 10, "ab");
  expectBox(5 + 2 * (1 + 2), 6 + 2 * 2, 5 + 2 * (11 + 12), 6 + 2 * 12);
}

TEST_F(Text, WritingMovesTheCursor) {
  document_.state.x = 10;
  document_.state.y = 40;
  texts_.WriteText("abc");
  EXPECT_EQ(Drawn(), Line("10 40", "abc"));
  EXPECT_DOUBLE_EQ(document_.state.x, 28);
  // Small, and moved by the difference of the descents: 3 x 0.5.
  const struct {
    int mode;
    const char* y;
  } cases[] = {{1, "38.5"}, {2, "41.5"}, {3, "40"}};
  for (const auto& c : cases) {
    document_.state.x = 28;
    texts_.WriteText("a", c.mode, 50);
    EXPECT_EQ(Drawn(), "BT /FNT_1 5 Tf 1 0 0 -1 28 " + std::string(c.y) + " Tm (a) Tj ET\n");
    EXPECT_DOUBLE_EQ(document_.state.x, 31);
    EXPECT_DOUBLE_EQ(document_.state.y, 40);
    EXPECT_DOUBLE_EQ(document_.state.text.size, 10);
  }
  EXPECT_THROW(texts_.WriteText("a", 4), pdf::Error);
  EXPECT_THROW(texts_.WriteText("a", 1, 0), pdf::Error);

  texts_.SetBoxStyle(2, 0, 0, 0, 0, 0);
  texts_.WriteTextLn("x");
  EXPECT_DOUBLE_EQ(document_.state.x, 0);
  EXPECT_DOUBLE_EQ(document_.state.y, 40 + 2 * 11.33);
}

TEST_F(Text, TheStateIsWrittenAndMeasured) {
  texts_.SetCharSpacing(1.5);
  texts_.SetWordSpacing(2);
  texts_.SetTextHorizontalScaling(50);
  texts_.SetTextMode(1);
  EXPECT_EQ(Drawn(), "1.5 Tc\n2 Tw\n50 Tz\n1 Tr\n");
  EXPECT_DOUBLE_EQ(texts_.GetTextWidth("a b"), (3 * 6 + 3 * 1.5 + 2) / 2);
  EXPECT_DOUBLE_EQ(texts_.GetTextWidth(""), 0);
  document_.scale = 2;
  EXPECT_DOUBLE_EQ(texts_.GetTextWidth("a b"), (3 * 6 + 3 * 1.5 + 2) / 4);
  EXPECT_DOUBLE_EQ(texts_.GetTextHeight(), 11.33 / 2);
  document_.scale = 1;

  texts_.SetTextHorizontalScaling(0);
  texts_.SetTextMode(8);
  texts_.SetCharSpacing(std::nan(""));
  texts_.SetFontSize(-1);
  texts_.SetBoxStyle(INFINITY, 9, 9, 9, 9, 9);
  EXPECT_EQ(Drawn(), "");
  EXPECT_DOUBLE_EQ(document_.state.text.size, 10);
  EXPECT_DOUBLE_EQ(document_.state.text.padLeft, 0);

  texts_.SetFontSize(0);
  texts_.DrawText(1, 2, "a");
  EXPECT_EQ(Drawn(), "BT /FNT_1 0 Tf 1 0 0 -1 1 2 Tm (a) Tj ET\n");
}

TEST_F(Text, ABoxPlacesItsLines) {
  texts_.SetBoxStyle(1, 12, 5, 3, 7, 2);
  const double line = 11.33;
  const struct {
    int flags;
    double above;
  } cases[] = {{8, 0}, {0, 0}, {32, (95 - 2 * line) / 2}, {16, 95 - 2 * line}};
  for (const auto& c : cases) {
    texts_.DrawTextBox(10, 20, 60, 100, "abc defg", c.flags);
    const double first = 20 + 3 + c.above + line - 3;
    EXPECT_EQ(Drawn(), Line("27 " + document_.Points(first), "abc") +
                           Line("15 " + document_.Points(first + line), "defg"))
        << c.flags;
    EXPECT_DOUBLE_EQ(document_.lastBox.left, 10);
    EXPECT_DOUBLE_EQ(document_.lastBox.top, 20);
    EXPECT_DOUBLE_EQ(document_.lastBox.right, 70);
    EXPECT_DOUBLE_EQ(document_.lastBox.bottom, 120);
    EXPECT_DOUBLE_EQ(document_.state.x, 10);
    EXPECT_DOUBLE_EQ(document_.state.y, 20 + 2 * line);
  }
}

TEST_F(Text, WhatABoxCutsIsKnown) {
  std::string leftover;
  texts_.DrawTextBox(10, 20, 60, 15, "abc defg", 0);
  texts_.DrawTextBox(10, 20, 30, 15, "abc defg hij", 0, 1, &leftover);
  EXPECT_TRUE(texts_.CutTexts().empty()) << "it has room, or a leftover takes it";
  texts_.DrawTextBox(10, 20, 30, 15, "abc\rhij", 0);
  texts_.DrawTextBox(10, 20, 30, 30, "abc abcdefghij", 0);
  EXPECT_EQ(texts_.CutTexts(), (std::vector<std::string>{"hij", "abcdefghij"}));
}

TEST_F(Text, ABoxWithARectangle) {
  std::string leftover;
  texts_.DrawTextBox(10, 20, 30, 15, "abc defg hij", 0, 5, &leftover);
  EXPECT_NE(Drawn().find("10 20 30 15 re"), std::string::npos);
  EXPECT_EQ(leftover,
            "\x01"
            "defg hij");
  EXPECT_DOUBLE_EQ(document_.state.y, 35);
  // No text, no lines; the box is drawn.
  texts_.DrawTextBox(10, 20, 30, 15, "", 0, 0, &leftover);
  EXPECT_EQ(Drawn().find("BT"), std::string::npos);
  EXPECT_EQ(leftover, "");
  EXPECT_DOUBLE_EQ(document_.state.y, 35);
  // Width to the page's edge, height as it takes.
  texts_.DrawTextBox(document_.pageWidth - 18, 20, 0, 0, "abc\r\rd", 0, 0);
  EXPECT_DOUBLE_EQ(document_.lastBox.right, document_.pageWidth);
  EXPECT_DOUBLE_EQ(document_.lastBox.bottom, 20 + 3 * 11.33);
  EXPECT_DOUBLE_EQ(document_.state.y, 20 + 3 * 11.33);
}

TEST_F(Text, LettersStandAroundACircle) {
  // Each letter has its middle on the circle; at the right it is turned a quarter clockwise.
  const double half = 3.0 / 30 * 180 / 3.14159265358979;
  const struct {
    double angle;
    int flags;
    const char* origin;
  } cases[] = {
      {90 + half, 0, "100 70"}, {90, 4, "100 70"}, {90 - half, 2, "100 70"}, {0, 4, "130 100"}};
  for (const auto& c : cases) {
    texts_.DrawTextCircular(100, 100, 30, "a", c.angle, c.flags);
    const std::string drawn = Drawn();
    EXPECT_NE(drawn.find(std::string(c.origin) + " cm"), std::string::npos) << drawn;
    EXPECT_NE(drawn.find("-3 0 Tm (a)"), std::string::npos) << drawn;
    EXPECT_EQ(drawn.find("0 1 -1 0 0 0 cm") != std::string::npos, c.angle == 0) << drawn;
  }
  EXPECT_THROW(texts_.DrawTextCircular(0, 0, 0, "a", 0), pdf::Error);
}

TEST(TextTables, ColumnWidths) {
  EXPECT_EQ(pdf::ColumnWidths("30;40.5; 20"), (std::vector<double>{30, 40.5, 20}));
  for (const char* damaged : {"", ";", "30;", "30;x", "0", "-1;2", "30,5x"})
    EXPECT_THROW(pdf::ColumnWidths(damaged), pdf::Error) << damaged;
}

TEST_F(Text, ATableFillsItsRows) {
  EXPECT_THROW(texts_.TableCell("a"), pdf::Error);
  EXPECT_THROW(texts_.EndTable(), pdf::Error);
  EXPECT_THROW(texts_.BeginTable(0, 0, "30;x", 10), pdf::Error);
  texts_.BeginTable(10, 20, "30;40;20", 15);
  EXPECT_THROW(texts_.BeginTable(0, 0, "30", 10), pdf::Error);
  EXPECT_THROW(texts_.TableRowHeight(-1), pdf::Error);
  texts_.TableCell("a");
  texts_.TableCell("b");
  EXPECT_EQ(Drawn(), "");
  texts_.TableCell("c", 2, 9);
  std::string row = Drawn();
  for (const char* part : {"10 20 30 15 re", "40 20 40 15 re", "80 20 20 15 re", "94 28.33 Tm (c)"})
    EXPECT_NE(row.find(part), std::string::npos) << part << " in " << row;
  // Three lines need more than the row height; the empty rest is filled up at the end.
  texts_.TableRowHeight(5);
  texts_.TableCell("ab\rcd\ref", 0, 2);
  texts_.EndTable();
  row = Drawn();
  for (const char* part : {"10 35 70 33.99 re", "80 35 20 33.99 re"})
    EXPECT_NE(row.find(part), std::string::npos) << part << " in " << row;
  EXPECT_DOUBLE_EQ(document_.state.x, 10);
  EXPECT_DOUBLE_EQ(document_.state.y, 35 + 33.99);
}

TEST_F(Text, ACellKeepsTheStateOfItsTime) {
  texts_.BeginTable(0, 0, "30;30", 15, 0);
  texts_.SetCharSpacing(2);
  texts_.TableCell("a");
  texts_.SetCharSpacing(0);
  Drawn();
  texts_.TableCell("b");
  EXPECT_EQ(Drawn(), "q 2 Tc \n" + Line("0 8.33", "a") + "Q\n" + Line("30 8.33", "b"));
}

TEST_F(Text, ATableKeepsItsSpacingsOnTheNextPage) {
  const auto newPage = [&] {
    document_.state.text.charSpacing = 0;
    document_.state.text.lineFactor = 1;
    return 5.0;
  };
  texts_.SetPageFlow({[] { return 30.0; }, newPage});
  texts_.SetBoxStyle(2, 0, 0, 0, 0, 0);
  texts_.BeginTable(0, 0, "30", 20, 0);
  texts_.SetCharSpacing(2);
  texts_.TableCell("a");
  Drawn();
  texts_.TableCell("b");
  EXPECT_EQ(Drawn(), "2 Tc " + Line("0 24.66", "b"));
  EXPECT_DOUBLE_EQ(document_.state.text.charSpacing, 2);
}

std::string OutputOf(const std::string& command) { return test::OutputOf(command + " 2>&1"); }

class WrittenText : public testing::Test {
 protected:
  void Begin() {
    writer_.SetScale(2);
    writer_.BeginDoc(PathOf());
    writer_.BeginPage();
  }
  std::string PathOf() const { return (directory_.Path() / "out.pdf").string(); }
  void End() {
    writer_.EndDoc();
    EXPECT_EQ(writer_.ErrDescription(), "");
    const std::string report = OutputOf("qpdf --check " + PathOf());
    EXPECT_NE(report.find("No syntax or stream encoding errors found"), std::string::npos)
        << report;
    EXPECT_EQ(report.find("WARNING"), std::string::npos) << report;
  }
  // The text of a page, its blanks and line ends made one blank.
  std::string PageText(int page) const {
    std::string text = OutputOf("pdftotext -enc UTF-8 -layout -f " + std::to_string(page) + " -l " +
                                std::to_string(page) + " " + PathOf() + " -");
    std::string plain;
    for (const char c : text)
      if (c > ' ' || c < 0)
        plain += c;
      else if (!plain.empty() && plain.back() != ' ')
        plain += ' ';
    return std::string(Trim(plain));
  }

  test::TempDirectory directory_;
  clsPDFCreator writer_{test::StandingClock()};
};

TEST_F(WrittenText, PlaceHoldersAreFilledAtTheEnd) {
  Begin();
  writer_.SetPlaceHolder("foot", "Page #PAGE of #PAGES");
  writer_.DrawPlaceHolder("foot", 20, 20, 100);
  writer_.DrawPlaceHolder("total", 20, 40, 100, 2);
  writer_.DrawPlaceHolder("unset", 20, 60, 100);
  writer_.BeginPage();
  writer_.DrawPlaceHolder("#PAGE", 20, 20, 0);
  writer_.DrawPlaceHolder("#PAGES", 40, 20, 0);
  writer_.BeginPage(1);
  writer_.DrawPlaceHolder("foot", 20, 20, 100);
  writer_.SetPlaceHolder("total", "12 (net)");
  End();
  EXPECT_EQ(PageText(1), "Page 1 of 3");
  EXPECT_EQ(PageText(2), "Page 2 of 3 12 (net)");
  EXPECT_EQ(PageText(3), "3 3");
}

TEST_F(WrittenText, ATableGoesOnOnTheNextPage) {
  Begin();
  writer_.SetMargins(10, 10, 15, 15);
  writer_.BeginTable(10, 200, "30;40", 10);
  for (int row = 1; row <= 12; ++row) {
    writer_.TableCell("Row" + std::to_string(row));
    writer_.TableCell("value", 2);
  }
  writer_.TableCell(std::string(3000, 'x') + "\rend", 0, 2);
  writer_.EndTable();
  EXPECT_EQ(writer_.GetPages(), 2);
  End();
  EXPECT_NE(PageText(1).find("Row8 value"), std::string::npos);
  EXPECT_EQ(PageText(1).find("Row9"), std::string::npos);
  EXPECT_EQ(PageText(2).find("Row9 value Row10"), 0u) << PageText(2);
}

TEST_F(WrittenText, RichAndCircularTexts) {
  Begin();
  writer_.SetTextTag("warn", "Times", 14, 3, "RED");
  writer_.DrawTextRich(
      20, 20, 60, 0,
      "Dear <b>Dr <i>Brown</i></b>, the <warn>fee</warn> is <u>due now</u> at 5 m<sup>2"
      "</sup> &amp; <size=7>small</size> <color=#0000ff>blue</color> <blink>",
      64);
  const double below = writer_.GetY();
  EXPECT_GT(below, 25);
  EXPECT_DOUBLE_EQ(writer_.GetX(), 20);
  writer_.DrawTextRich(20, 100, 60, 0, "<color=#0000ff>a</color><color=nonsense>b");
  EXPECT_NE(writer_.ErrDescription(), "");
  EXPECT_DOUBLE_EQ(writer_.GetY(), below);

  writer_.DrawTextCircular(100, 180, 30, "WWW", 90, 4);
  const std::string file = PathOf();
  writer_.EndDoc();
  const std::string report = OutputOf("qpdf --check " + file);
  EXPECT_NE(report.find("No syntax or stream encoding errors found"), std::string::npos) << report;
  const std::string text = PageText(1);
  for (const char* part : {"Dear Dr Brown, the fee is", "due now at 5 m", "& small blue <blink>"})
    EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
  const std::string fonts = OutputOf("pdffonts " + file);
  for (const char* part : {"Arial,Bold ", "Arial,BoldItalic", "TimesNewRoman,BoldItalic"})
    EXPECT_NE(fonts.find(part), std::string::npos) << part << " in " << fonts;
}

}  // namespace
}  // namespace lm
