// Vector files: what their readers make of them, and what a page shows.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/error.h"
#include "pdf/images/eps.h"
#include "pdf/images/wmf.h"
#include "tests/pdf/picture_bytes.h"
#include "tests/pdf/rendered_page.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using namespace test;
using pdf::VectorPicture;

constexpr Pixel kWhite = {255, 255, 255}, kRed = {255, 0, 0}, kGreen = {0, 255, 0},
                kBlue = {0, 0, 255};

// One unit of the file is one point of the page.
std::string Drawn(const VectorPicture& picture) {
  return pdf::DrawnIn(picture, {0, 0, picture.width, picture.height}, pdf::Document());
}

void ExpectHas(const std::string& text, const std::string& part) {
  EXPECT_NE(text.find(part), std::string::npos) << part << "\nin\n" << text;
}

std::string Eps(const std::string& body, const std::string& box = "0 0 100 50") {
  return "%!PS-Adobe-3.0 EPSF-3.0\r%%BoundingBox: " + box +
         "\n/m { 1 0 0 setrgbcolor } def\n9 9 m 8 8 l S\n%%EndProlog\n" + body +
         "\nshowpage\n0 0 m 1 1 l S\n%%EOF\n";
}

// A metafile without the placeable header, with a window of 100 x 50 from 0, 0.
std::string Record(int function, const std::string& parameters) {
  return Little(3 + parameters.size() / 2, 4) + Little(static_cast<unsigned>(function), 2) +
         parameters;
}
std::string Shorts(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += Little(static_cast<std::uint16_t>(value), 2);
  return bytes;
}
std::string Window(int width, int height) {
  return Record(0x020B, Shorts({0, 0})) + Record(0x020C, Shorts({height, width}));
}
std::string Wmf(const std::string& records) {
  return Shorts({1, 9, 0x300, 0, 0, 4, 0, 0, 0}) + records + Record(0, "");
}
std::string Placeable(int left, int top, int right, int bottom, int inch) {
  return Little(0x9AC6CDD7, 4) + Shorts({0, left, top, right, bottom, inch, 0, 0, 0});
}
std::string Pen(int style, int width, std::uint32_t colour) {
  return Record(0x02FA, Shorts({style, width, 0}) + Little(colour, 4));
}
std::string Brush(int style, std::uint32_t colour) {
  return Record(0x02FC, Shorts({style}) + Little(colour, 4) + Shorts({0}));
}
std::string Select(int number) { return Record(0x012D, Shorts({number})); }

const std::string kLine = Record(0x0214, Shorts({10, 20})) + Record(0x0213, Shorts({30, 40}));

TEST(Eps, OperatorsMapOntoPages) {
  struct Case {
    const char* body;
    const char* drawn;
  };
  const Case cases[] = {
      {"10 40 m 20 30 l s", "10 10 m\n20 20 l\ns\n"},
      {"10 40 moveto 20 30 lineto closepath stroke", "10 10 m\n20 20 l\nh\nS\n"},
      {"0 0 m 1 2 3 4 5 6 c 7 8 9 10 v 11 12 13 14 y f",
       "0 50 m\n1 48 3 46 5 44 c\n7 42 9 40 v\n11 38 13 36 y\nf\n"},
      {"0 0 m 1 2 3 4 5 6 C 7 8 L b", "1 48 3 46 5 44 c\n7 42 l\nb\n"},
      {"0.5 g 1 G 0 0.1 0.2 1 k 1 0 0 0 K 1 0 0 Xa 0 0 m 1 1 l B",
       "0.5 g\n1 G\n0 0.1 0.2 1 k\n1 0 0 0 K\n1 0 0 rg\n0 50 m"},
      {"1 0.5 0 0 (Name \\) m) 0.5 x 0 0 m 1 1 l F", "0.5 0.25 0 0 k\n"},
      {"0.5 setgray 0 0 m 1 1 l S", "0.5 g\n0.5 G\n"},
      {"1 J 2 j 4 M 3 w 0 0 m 1 1 l S", "1 J\n2 j\n4 M\n3 w\n"},
      {"[3 1]0 d 0 0 m 1 1 l S", "[3 1 ] 0 d\n"},
      {"[] 0 d 0 0 m 1 1 l S", "[ ] 0 d\n0 50 m"},
      {"[0 -1] 0 setdash 0 0 m 1 1 l S", "[ ] 0 d\n0 50 m"},
      {"10 10 20 5 re f*", "10 40 m\n30 40 l\n30 35 l\n10 35 l\nh\nf*\n"},
      {"0 0 50 50 re W n 0 0 m 9 9 l S", "h\nW\nn\n0 50 m"},
      {"gsave 10 0 translate 2 3 scale 1 1 m 2 2 l 3 w S grestore 1 1 m 2 2 l S",
       "q\n7.348 w\n12 47 m\n14 44 l\nS\nQ\n1 49 m\n2 48 l\nS\n"},
      {"[0 1 -1 0 0 0] concat 10 -20 m 30 -40 l S", "20 40 m\n40 20 l\nS\n"},
      {"90 rotate 10 -20 m 30 -40 l S", "20 40 m\n40 20 l\nS\n"},
      // The path outlives what is painted while the state is saved.
      {"1 1 m 2 2 l gsave fill grestore stroke", "q\n1 49 m\n2 48 l\nf\nQ\n1 49 m\n2 48 l\nS\n"},
      {"Q Q 1 1 m 2 2 l S q q", "S\nq\nq\nQ\nQ\nQ\n"},
      {"{ 5 5 m 6 6 l S } pop <6d> % 7 7 m\n1 1 m 2 2 l S",
       "10 M\n[ ] 0 d\n1 w\n1 49 m\n2 48 l\nS\nQ\n"},
      {"l 3 l 1 1 m 2 2 l nan inf 1e999 l S", "1 49 m\n2 48 l\nS\n"},
  };
  for (const Case& c : cases) ExpectHas(Drawn(pdf::ReadEps(Eps(c.body))), c.drawn);
}

TEST(Eps, BoxAndBody) {
  const std::string line = "1 1 m 2 2 l S";
  const VectorPicture moved = pdf::ReadEps(Eps("10 20 m 110 70 l S", "10 20 110 70"));
  EXPECT_EQ(moved.width, 100);
  EXPECT_EQ(moved.height, 50);
  ExpectHas(pdf::DrawnIn(moved, {5, 6, 50, 50}, pdf::Document()), "5 56 m\n55 6 l\nS\n");

  const std::string late = "%!PS\n%%BoundingBox: (atend)\n%%EndSetup\n" + line +
                           "\n%%PageTrailer\n3 3 m 4 4 l S\n%%BoundingBox: 0 0 10 20\n";
  const VectorPicture atEnd = pdf::ReadEps(late);
  EXPECT_EQ(atEnd.height, 20);
  EXPECT_EQ(Drawn(atEnd).find("3 "), std::string::npos);

  // With a header that tells where the text lies among pictures for screens.
  const std::string text = Eps(line);
  EXPECT_EQ(Drawn(pdf::ReadEps("\xC5\xD0\xD3\xC6" + Little(32, 4) + Little(text.size(), 4) +
                               std::string(20, '\0') + text + "junk")),
            Drawn(pdf::ReadEps(text)));
}

TEST(Eps, Refused) {
  std::string deep, wide = "0 0 m ";
  for (int i = 0; i < 100; ++i) deep += "gsave ";
  for (int i = 0; i < 20000; ++i) wide += "1 1 l ";
  for (int i = 0; i < 20000; ++i) wide += "q Q ";
  const std::string cases[] = {
      "",
      "%PDF-1.5",
      Eps(""),
      Eps("1 1 m 2 2 l n"),
      Eps("1 1 m 2 2 l S", "0 0 0 50"),
      Eps("1 1 m 2 2 l S", "0 0 50"),
      Eps("1 1 m 2 2 l S", "a b c d"),
      Eps("(never ends 1 1 m 2 2 l S"),
      Eps("{{{{ 1 1 m 2 2 l S }"),
      Eps(deep + "1 1 m 2 2 l S"),
      Eps(wide + "S"),  // work that grows with the square of the file
      "\xC5\xD0\xD3\xC6" + Little(32, 4) + Little(1000, 4),
  };
  for (const std::string& bytes : cases) {
    EXPECT_THROW(pdf::ReadEps(bytes), pdf::Error) << bytes.substr(0, 200);
  }
}

TEST(Wmf, RecordsMapOntoPages) {
  const std::string square = Record(0x041B, Shorts({40, 30, 20, 10}));  // 10, 20 to 30, 40
  struct Case {
    const char* name;
    std::string records;
    const char* drawn;
  };
  const Case cases[] = {
      {"line", kLine, "0 0 0 RG\n0 w\n[ ] 0 d\n20 10 m\n40 30 l\nS\n"},
      {"pen", Pen(0, 3, 0x0000FF) + Select(0) + kLine, "1 0 0 RG\n3 w\n[ ] 0 d\n"},
      {"dash", Pen(1, 1, 0) + Select(0) + kLine, "1 w\n[3 1] 0 d\n"},
      {"dot", Pen(2, 1, 0) + Select(0) + kLine, "\n[0.5 0.5] 0 d\n"},
      {"dash dot", Pen(3, 1, 0) + Select(0) + kLine, "\n[2 1 0.5 1] 0 d\n"},
      {"dash dot dot", Pen(4, 1, 0) + Select(0) + kLine, "\n[2 1 0.5 1 0.5 1] 0 d\n"},
      {"no pen", Pen(5, 1, 0) + Brush(0, 0x00FF00) + Select(0) + Select(1) + square,
       "0 1 0 rg\n10 20 m\n30 20 l\n30 40 l\n10 40 l\nf*\n"},
      {"no brush", Brush(1, 0) + Select(0) + square, "\n10 40 l\ns\n"},
      {"both", square, "\nb*\n"},
      {"winding", Record(0x0106, Shorts({2})) + square, "\nb\n"},
      {"polyline", Record(0x0325, Shorts({3, 1, 2, 3, 4, 5, 6})), "\n1 2 m\n3 4 l\n5 6 l\nS\n"},
      {"polygon", Record(0x0324, Shorts({3, 1, 2, 3, 4, 5, 6})), "\n1 2 m\n3 4 l\n5 6 l\nb*\n"},
      {"polygons", Record(0x0538, Shorts({2, 2, 2, 1, 2, 3, 4, 5, 6, 7, 8})),
       "\n1 2 m\n3 4 l\nh\n5 6 m\n7 8 l\nh\nb*\n"},
      {"round", Record(0x061C, Shorts({4, 6, 40, 30, 20, 10})), "\n30 38 m\n"},
      {"ellipse", Record(0x0418, Shorts({40, 30, 20, 10})),
       "\n30 30 m\n30 35.523 25.523 40 20 40 c\n"},
      {"arc", Record(0x0817, Shorts({20, 20, 30, 30, 40, 30, 20, 10})),  // right to top
       "\n30 30 m\n30 24.477 25.523 20 20 20 c\nS\n"},
      {"long arc", Record(0x0817, Shorts({30, 30, 20, 20, 40, 30, 20, 10})),  // top to right
       "\n20 20 m\n14.477 20 10 24.477 10 30 c\n"},
      {"pie", Record(0x081A, Shorts({20, 20, 30, 30, 40, 30, 20, 10})), " 20 20 c\n20 30 l\nb*\n"},
      {"chord", Record(0x0830, Shorts({20, 20, 30, 30, 40, 30, 20, 10})), " 20 20 c\nb*\n"},
      {"saved",
       Pen(1, 2, 0xFF0000) + Record(0x001E, "") + Select(0) + Record(0x0127, Shorts({-1})) + kLine,
       "0 0 0 RG\n0 w\n[ ] 0 d\n"},
      // The second pen takes the number that was given back.
      {"numbers",
       Pen(0, 1, 0) + Pen(0, 2, 0) + Record(0x01F0, Shorts({0})) + Pen(0, 7, 0) + Select(0) + kLine,
       "\n7 w\n"},
      {"fonts take numbers", Record(0x02FB, Shorts({0, 0})) + Pen(0, 4, 0) + Select(1) + kLine,
       "\n4 w\n"},
      {"origin", Record(0x020B, Shorts({5, 10})) + kLine, "\n10 5 m\n30 25 l\n"},
      {"unknown", Record(0x0BAD, Shorts({1, 2})) + Select(99) + Record(0x0127, Shorts({5})) + kLine,
       "\nS\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ExpectHas(Drawn(pdf::ReadWmf(Wmf(Window(100, 50) + c.records))), c.drawn);
  }
}

TEST(Wmf, SizeAndRefusal) {
  const VectorPicture placed = pdf::ReadWmf(Placeable(0, 0, 2000, 1000, 1000) + Wmf(kLine));
  EXPECT_EQ(placed.width, 144);
  EXPECT_EQ(placed.height, 72);
  // A window that grows upwards.
  const VectorPicture up = pdf::ReadWmf(
      Wmf(Record(0x020B, Shorts({50, 0})) + Record(0x020C, Shorts({-50, 100})) + kLine));
  ExpectHas(Drawn(up), "\n20 40 m\n40 20 l\n");

  const std::string good = Wmf(Window(100, 50) + kLine);
  std::string endless = good;
  endless.replace(18, 4, Little(0, 4));
  const std::string cases[] = {
      "",
      "no metafile at all, only words",
      Wmf(Window(100, 50)),
      Wmf(kLine),
      Wmf(Window(0, 50) + kLine),
      Wmf(Window(100, 50) + Record(0x0324, Shorts({30000, 1, 2}))),
      Wmf(Window(100, 50) + Record(0x0538, Shorts({-1, -1}))),
      endless,
      good.substr(0, good.size() - 6),
  };
  for (const std::string& bytes : cases) EXPECT_THROW(pdf::ReadWmf(bytes), pdf::Error);
}

TEST(VectorImages, DamagedFiles) {
  std::mt19937 random(5);
  const std::string wmf =
      Placeable(0, 0, 100, 50, 72) + Wmf(Window(100, 50) + Pen(1, 1, 0) + Select(0) + kLine +
                                         Record(0x0538, Shorts({2, 2, 2, 1, 2, 3, 4, 5, 6, 7, 8})) +
                                         Record(0x081A, Shorts({20, 20, 30, 30, 40, 30, 20, 10})));
  const std::string eps =
      Eps("q 2 0 0 2 5 5 cm [3 1] 0 d 10 40 m 20 30 l s (x) {y} Q 1 1 9 9 re f");
  for (int i = 0; i < 2000; ++i) {
    std::string damaged = i % 2 == 0 ? wmf : eps;
    for (unsigned hits = random() % 4 + 1; hits > 0; --hits) {
      damaged[random() % damaged.size()] = static_cast<char>(random());
    }
    try {
      const std::string drawn = Drawn(i % 2 == 0 ? pdf::ReadWmf(damaged) : pdf::ReadEps(damaged));
      EXPECT_TRUE(drawn.starts_with("q ") && drawn.ends_with("Q\n"));
    } catch (const pdf::Error&) {
    }
  }
}

TEST(VectorImages, ShowOnThePage) {
  test::TempDirectory directory;
  const auto file = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(directory.Path() / name, std::ios::binary) << bytes;
    return PathText(directory.Path() / name);
  };
  // Red below, green above, and a blue bar that leaves the box on the right.
  const std::string eps = file("a.Eps", Eps("1 0 0 rg 0 0 100 25 re f 0 1 0 rg 0 25 100 25 re f "
                                            "0 0 1 rg 80 0 100 50 re f"));
  const std::string wmf =
      file("b.wmf", Wmf(Window(100, 50) + Pen(5, 0, 0) + Brush(0, 0x0000FF) + Select(0) +
                        Select(1) + Record(0x0418, Shorts({50, 100, 0, 0}))));
  clsPDFCreator pdf(test::StandingClock());
  pdf.SetScale(0);
  pdf.SetPaperSize(255, 100, 100);
  const auto path = directory.Path() / "a.pdf";
  pdf.BeginDoc(PathText(path));
  pdf.BeginPage();
  pdf.DrawImage(eps, 10, 10, 50, 20);
  pdf.DrawImage(wmf, 10, 40, 0, 20);  // 40 wide
  pdf.DrawImage(eps, 10, 70, 20, 20, 1);
  EXPECT_EQ(pdf.ErrDescription(), "");
  pdf.EndDoc();
  ASSERT_EQ(CheckPdf(path), 0);
  const RenderedPage page(path, 1);
  EXPECT_EQ(page.At(20, 15), kGreen);
  EXPECT_EQ(page.At(20, 25), kRed);
  EXPECT_EQ(page.At(55, 15), kBlue);
  EXPECT_EQ(page.At(70, 15), kWhite);
  EXPECT_EQ(page.At(30, 50), kRed);
  EXPECT_EQ(page.At(11, 41), kWhite);
  EXPECT_EQ(page.At(54, 50), kWhite);
  EXPECT_EQ(page.At(15, 72), kGreen);
  EXPECT_EQ(page.At(15, 87), kRed);
}

}  // namespace
}  // namespace lm
