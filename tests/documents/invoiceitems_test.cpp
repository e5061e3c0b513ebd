// The items of a template: texts, shapes, pictures and links, as PDF tools find them on the page.
#include "documents/invoicepages.h"
#include "tests/documents/paper.h"
#include "tests/pdf/picture_bytes.h"
#include "tests/pdf/rendered_page.h"

namespace lm {
namespace {

using test::Attributes;
using test::FindWord;
using test::Item;
using test::kLine;
using test::kNear;
using test::Paper;
using test::Section;
using test::Text;
using test::Word;

TEST(InvoiceItems, AlignmentNeedsHorizontalScaling) {
  // A box of 80 by 30 at 20, 40.
  const struct {
    const char *halign, *valign;
    double across, down;  // where the text stands: 0 at the left or top, 1 at the right or bottom
  } kCases[] = {{"LEFT", "TOP", 0, 0},        {"centre", "Middle", 0.5, 0.5},
                {"Center", "BOTTOM", 0.5, 1}, {"RIGHT", "TOP", 1, 0},
                {"right", "bottom", 1, 1},    {"none", "none", 0, 0}};
  for (const auto& [halign, valign, across, down] : kCases) {
    Paper paper;
    Attributes box{{"left", "20"},     {"top", "40"},        {"width", "80"},
                   {"height", "30"},   {"halign", halign},   {"valign", valign},
                   {"fontsize", "20"}, {"fillcolor1", "255"}};
    const Word aligned = FindWord(paper.Write(Section("invheader", Text("Amount", box))), "Amount");
    const double width = aligned.right - aligned.left;
    const double height = aligned.bottom - aligned.top;
    EXPECT_NEAR(aligned.left, 20 + across * (80 - width), kNear) << halign;
    EXPECT_NEAR(aligned.top, 40 + down * (30 - height), 2.2) << valign;
    EXPECT_EQ(test::RenderedPage(paper.File(), 1).At(230, 180), (test::Pixel{255, 255, 255}));

    // Without it the number says how a rectangle is drawn: 4 fills, 2 strokes, 1 does nothing.
    box["horizontalscaling"] = "-";
    const Word plain = FindWord(paper.Write(Section("invheader", Text("Amount", box))), "Amount");
    EXPECT_NEAR(plain.left, 20, kNear) << halign;
    EXPECT_NEAR(plain.top, 40, 2.2) << valign;
    const test::RenderedPage page(paper.File(), 1);
    const bool filled = across == 0.5;
    const bool stroked = filled || across == 1;
    EXPECT_EQ(page.At(230, 180) == (test::Pixel{255, 0, 0}), filled) << halign;
    // With neither side named and none of the bits, mode 0 strokes.
    const bool border = stroked || std::string(halign) == "none";
    const auto isDark = [&](int x) { return page.At(x, 180)[0] < 128; };
    EXPECT_EQ(isDark(56) || isDark(57), border) << halign;
  }
}

TEST(InvoiceItems, HorizontalScalingIsOfItsItemAlone) {
  Paper paper;
  const auto words = paper.Write(
      Section("invheader", Text("wide", {{"horizontalscaling", "200"}}) +
                               Text("half", {{"horizontalscaling", "50"}, {"top", "20"}}) +
                               Text("wide.", {{"horizontalscaling", "-"}, {"top", "40"}}) +
                               Text("half.", {{"horizontalscaling", "x"}, {"top", "60"}})));
  const auto width = [&](const char* text) {
    const Word word = FindWord(words, text);
    return word.right - word.left;
  };
  EXPECT_NEAR(width("wide") / width("wide."), 2, 0.4);
  EXPECT_NEAR(width("half.") / width("half"), 2, 0.4);
}

TEST(InvoiceItems, TextsAsTheyAreWritten) {
  const struct {
    Attributes changes;
    const char* caption;
    const char* text;
  } kCases[] = {
      {{}, "{Practice} and {NoSuch} {Invoice Total|#,##0.00}", "1:Riverside 1:and 1:1,234.50"},
      {{{"textcase", "uppercase"}}, "{Practice} road", "1:RIVERSIDE 1:ROAD"},
      {{{"textcase", "Low"}}, "{Practice} ROAD", "1:riverside 1:road"},
      {{{"textcase", "INITIAL"}, {"height", "20"}},
       "st JOHN&apos;s&#10;mill road",
       "1:St 1:John&apos;s 1:Mill 1:Road"},
      {{{"textcase", "UP"}}, "{Practice}", "1:Riverside"},
      {{{"hideifempty", "TRUE"}}, "{Invoice Note}", ""},
      {{{"hideifempty", "true"}}, "  {Invoice Note} ", ""},
      {{{"hideifempty", "true"}}, "{Invoice Note}.", "1:."},
      {{{"hideifempty", "-1"}}, "{Invoice Note}", ""},
      {{{"hideifempty", "no"}}, "x", "1:x"},
      {{{"fontname", "VERDANA"}, {"fontbold", "True"}}, "Bold", "1:Bold"},
      {{{"fontname", "No Such Family"}}, "Plain", "1:Plain"},
      {{{"fontsize", "0"}}, "Size", "1:Size"},
      {{{"width", "0"}}, "Wide", "1:Wide"},
      {{{"width", "1"}}, "Narrow", ""},
      {{{"textcolor", "99999999999999999999999"}, {"fillcolor1", "-5"}}, "Colour", "1:Colour"},
  };
  for (const auto& [changes, caption, text] : kCases) {
    Paper paper;
    const std::string read = paper.WriteText(Section("invheader", Text(caption, changes)));
    if (std::string(text).empty())
      EXPECT_EQ(read.find("Riverside"), std::string::npos) << caption << read;
    else
      EXPECT_EQ(read, text) << caption;
    EXPECT_EQ(paper.Messages(), "") << caption;
  }
}

TEST(InvoiceItems, TheTwoFontFilesOfEverySystemAreBaseFonts) {
  Paper paper;
  paper.Write(Section("invheader", Text("a", {{"fontname", "Verdana"}, {"fontitalic", "TRUE"}}) +
                                       Text("b", {{"fontname", "GEORGIA"}, {"fontbold", "TRUE"}})));
  const std::string fonts = test::OutputOf("pdffonts '" + paper.File().string() + "'");
  EXPECT_EQ(fonts.find("erdana"), std::string::npos) << fonts;
  for (const char* name : {"Arial,Italic", "TimesNewRoman,Bold"})
    EXPECT_NE(fonts.find(name), std::string::npos) << fonts;
}

TEST(InvoiceItems, TextsGrowAndTakeTheirSectionAlong) {
  const std::string note = "one two three four five six seven eight nine ten";
  const struct {
    const char* caption;
    const char* expansion;
    const char *height, *width;
    double advance;  // of the section, 10 by itself
  } kCases[] = {
      {"short", "DOWN", "6", "50", 10},
      {"{Session Note}", "NONE", "6", "20", 10},
      {"{Session Note}", "down", "6", "200", 10},
      // Three lines, from 2 on: the section ends with its lowest item.
      {"{Session Note}", "DOWN", "6", "30", 2 + 3 * kLine},
      {"a&#10;b&#10;c", "DOWN", "1", "50", 2 + 3 * kLine},
      {"a", "DOWN", "1", "50", 2 + kLine},
  };
  for (const auto& [caption, expansion, height, width, advance] : kCases) {
    Paper paper(2);
    for (int row : {2, 3}) paper.ledger.fgSessions.SetTextMatrix(row, "PUBLICNOTE", note);
    const auto words = paper.Write(Section(
        "session",
        Text(caption, {{"allowexpansion", expansion}, {"height", height}, {"width", width}}) +
            Text("S{Session Total}", {{"left", "150"}, {"top", "0"}, {"height", "5"}})));
    EXPECT_NEAR(FindWord(words, "S2").top - FindWord(words, "S1").top, advance, 0.3)
        << caption << " " << expansion << " " << width;
  }
}

// Height and drawing agree on where a line ends, whatever an old file parts its lines by.
TEST(InvoiceItems, EveryLineOfANoteIsDrawn) {
  for (const char* note : {"one\ntwo\nthree", "one\rtwo\rthree", "one\r\ntwo\r\nthree"}) {
    Paper paper(2);
    paper.ledger.fgSessions.SetTextMatrix(2, "PUBLICNOTE", note);
    const auto words = paper.Write(
        Section("session", Text("{Session Note}", {{"allowexpansion", "DOWN"}, {"height", "1"}}) +
                               Text("S{Session Total}", {{"left", "150"}, {"top", "0"}})));
    const double first = FindWord(words, "one").top;
    EXPECT_NEAR(FindWord(words, "two").top - first, kLine, kNear);
    EXPECT_NEAR(FindWord(words, "three").top - first, 2 * kLine, kNear);
    EXPECT_GT(FindWord(words, "S2").top, FindWord(words, "three").top);
  }
}

TEST(InvoiceItems, HiddenTextsLeaveNoGap) {
  Paper paper(2);
  const auto words = paper.Write(
      Section("session",
              Text("{Session Note}",
                   {{"hideifempty", "TRUE"}, {"height", "90"}, {"allowexpansion", "DOWN"}}) +
                  Text("S{Session Total}&#10;x", {{"allowexpansion", "DOWN"}, {"height", "5"}})));
  EXPECT_NEAR(FindWord(words, "S2").top - FindWord(words, "S1").top, 2 + 2 * kLine, 0.3);
}

TEST(InvoiceItems, ShapesAndFills) {
  const test::Pixel white{255, 255, 255}, red{255, 0, 0}, blue{0, 0, 255};
  const auto pixels = [&](const Attributes& changes, const std::string& kind = "S") {
    Attributes shape{{"left", "20"},         {"top", "20"},         {"width", "100"},
                     {"height", "50"},       {"fillcolor1", "255"}, {"fillcolor2", "16711680"},
                     {"backstyle", "OPAQUE"}};
    for (const auto& [key, value] : changes) shape[key] = value;
    Paper paper;
    paper.Write(Section("invheader", Item(kind, shape)));
    const test::RenderedPage page(paper.File(), 1);
    // The middle, a corner, and the middles of the left and the right edge.
    return std::array{page.At(198, 128), page.At(59, 59), page.At(60, 128), page.At(336, 128)};
  };
  const auto plain = pixels({});
  EXPECT_EQ(plain[0], red);
  EXPECT_EQ(plain[1], red);
  EXPECT_EQ(pixels({{"cornerradius", "10"}})[1], white);
  const auto circle = pixels({{"objectshape", "Circle"}});
  EXPECT_EQ(circle[0], red);
  EXPECT_EQ(circle[1], white);
  EXPECT_EQ(pixels({{"backstyle", "none"}})[0], white);
  EXPECT_EQ(pixels({{"objectshape", "STAR"}})[0], white);
  EXPECT_EQ(pixels({{"caption", "x"}}, "T")[0], red);

  const auto across = pixels({{"gradient", "Across"}});
  EXPECT_GT(across[2][0], 240);
  EXPECT_GT(across[3][2], 240);
  EXPECT_NEAR(across[0][0], 128, 8);
  const auto radial = pixels({{"gradient", "RADIAL"}});
  EXPECT_GT(radial[0][0], 240);
  EXPECT_GT(radial[1][2], 230);
  const auto up = pixels({{"gradient", "DIAGONAL UP"}});
  EXPECT_GT(up[2][0], up[3][0]);
  EXPECT_EQ(pixels({{"gradient", "sideways"}})[3], red);

  // A border of 30 tenths is 3 mm wide, half of it inside.
  const auto bordered = pixels({{"borderwidth", "30"}, {"bordercolor", "16711680"}});
  EXPECT_EQ(bordered[0], red);
  EXPECT_EQ(bordered[2], blue);
  EXPECT_EQ(pixels({{"borderwidth", "30"}, {"bordercolor", "16711680"}, {"caption", ""}}, "T")[2],
            blue);
}

TEST(InvoiceItems, Pictures) {
  const std::string bytes =
      test::PngHeader(1, 1, 8, test::kPngRgb) + test::PngEnd(std::string("\0\xFF\0\0", 4));
  Paper paper(2);
  std::string error;
  ASSERT_TRUE(ReplaceFile(paper.ledger.File("Invoice Templates/dot.png"), bytes, error));
  const auto picture = [](const std::string& file) {
    return Item("P", {{"filename", file}, {"left", "20"}, {"width", "40"}, {"height", "40"}});
  };
  for (const std::string& file :
       {std::string("..\\Invoice Templates\\dot.png"), std::string("../Invoice Templates/dot.png"),
        (paper.ledger.programDirectory / "Invoice Templates/dot.png").string()}) {
    paper.Write(Section("invheader", picture(file)));
    EXPECT_EQ(test::RenderedPage(paper.File(), 1).At(110, 60), (test::Pixel{255, 0, 0})) << file;
  }
  EXPECT_EQ(paper.Messages(), "");
  EXPECT_EQ(paper.WriteText(Section("invheader", picture("") + Text("after"))), "1:after");
  EXPECT_EQ(paper.Messages(), "");

  // Missing in every session: told once, and the rest is drawn.
  EXPECT_EQ(paper.WriteText(Section("session", picture("..\\no.png") + Text("after"))),
            "1:after 1:after");
  ASSERT_EQ(paper.shown.messages.size(), 1u);
  EXPECT_EQ(paper.shown.messages[0].mainPrompt, "Unable to find file");
  EXPECT_EQ(
      paper.shown.messages[0].minorPrompt,
      "The invoice template is trying to load a file which does not exist. The file is;\r\n " +
          PathText(paper.ledger.programDirectory) +
          "/no.png\r\n\r\nThe invoice will still be created but without this picture.");
  paper.Messages();

  // Damaged: told as a fault of the section, and the rest is drawn.
  ASSERT_TRUE(ReplaceFile(paper.ledger.File("dot.png"), bytes.substr(0, 40), error));
  EXPECT_EQ(paper.WriteText(Section("session", picture("../dot.png") + Text("after"))),
            "1:after 1:after");
  ASSERT_EQ(paper.shown.messages.size(), 1u);
  EXPECT_EQ(paper.shown.messages[0].title, "Error while processing document template");
}

TEST(InvoiceItems, Links) {
  Paper paper(0);
  paper.Write(Section("invheader", Text("a", {{"weblink", "www.riverside.example"}}) +
                                       Text("b", {{"weblink", "https://b.example"}}) +
                                       Text("{Invoice Note}", {{"weblink", "http://hidden.example"},
                                                               {"hideifempty", "TRUE"}}) +
                                       Item("S", {{"weblink", "mailto:c@c.example"}})));
  const std::string objects = paper.Objects();
  for (const char* uri :
       {"http://www.riverside.example", "https://b.example", "mailto:c@c.example"})
    EXPECT_NE(objects.find(uri), std::string::npos) << uri;
  EXPECT_EQ(objects.find("hidden.example"), std::string::npos);
}

}  // namespace
}  // namespace lm
