#include "pdf/graphics.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::pdf {
namespace {

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string_view::npos; at += part.size())
    ++count;
  return count;
}

// The part alone, with an open page and what has been written so far at hand.
struct Drawing {
  test::TempDirectory directory;
  Document document;
  Fonts fonts{document};
  Graphics graphics{document, fonts};

  Drawing() {
    document.out.Open(directory.Path() / "part.pdf");
    document.out.SetObjectCount(3);
    document.prefix = "A1+";
    document.pages.emplace_back();
    document.order.push_back(0);
    document.target = Target::Page;
  }
  std::string Take() { return std::exchange(document.pageBuffer, ""); }
  std::string File() {
    document.out.Close();
    std::string error;
    return ReadFile(directory.Path() / "part.pdf", error).value_or("");
  }
};

struct Operators {
  std::function<void(Graphics&)> draw;
  std::string text;
};

TEST(Graphics, OperatorsAsText) {
  const Operators cases[] = {
      {[](auto& g) { g.SetColorFill("RED"); }, "1 0 0 rg\n"},
      {[](auto& g) { g.SetColorLine("@0;1;1;0"); }, "0 1 1 0 K\n"},
      {[](auto& g) { g.SetColorFill(""); }, ""},
      {[](auto& g) { g.SetColorFill("-1"); }, ""},
      {[](auto& g) { g.SetColorText("RED"); }, ""},
      {[](auto& g) { g.SetLineWidth(0.5); }, "0.5 w\n"},
      {[](auto& g) { g.SetLineWidth(-1); }, ""},
      {[](auto& g) { g.SetLineStyle(1, 2, 10); }, "1 J\n2 j\n10 M\n"},
      {[](auto& g) { g.SetLineStyle(3, -1, 0); }, ""},
      {[](auto& g) { g.SetDash("solid"); }, "[ ] 0 d\n"},
      {[](auto& g) { g.SetDash("3;1.5", 2); }, "[3 1.5 ] 2 d\n"},
      {[](auto& g) { g.SetLineWidth(2), g.SetDash("DASHDOT"); }, "2 w\n[8 4 2 4 ] 0 d\n"},
      {[](auto& g) { g.SetLineWidth(0), g.SetDash("DOT"); }, "0 w\n[1 2 ] 0 d\n"},
      {[](auto& g) { g.DrawLine(1, 2, 3, 4); }, "1 2 m 3 4 l S\n"},
      {[](auto& g) { g.DrawLine(1, 2, 3, 4, 0.25); }, "q 0.25 w\n1 2 m 3 4 l S\nQ\n"},
      {[](auto& g) { g.MoveTo(1, 2), g.DrawLineTo(3, 4), g.DrawLineTo(5, 6); },
       "1 2 m 3 4 l S\n3 4 m 5 6 l S\n"},
      {[](auto& g) { g.DrawCurve(1, 2, 3, 4, 5, 6); }, "0 0 m 1 2 3 4 5 6 c S\n"},
      {[](auto& g) { g.DrawCurve(1, 2, 3, 4, 5, 6, 1); }, "0 0 m 3 4 5 6 v S\n"},
      {[](auto& g) { g.DrawCurve(1, 2, 3, 4, 5, 6, 2); }, "0 0 m 1 2 5 6 y S\n"},
      {[](auto& g) { g.DrawPolyline("1;2;3;4"); }, "1 2 m 3 4 l S\n"},
      {[](auto& g) { g.DrawPolygon("1 2 3 4 5 6"); }, "1 2 m 3 4 l 5 6 l h S\n"},
      {[](auto& g) { g.SetColorFill("RED"), g.DrawPolygon("1 2 3 4 5 6", 4); },
       "1 0 0 rg\n1 2 m 3 4 l 5 6 l b*\n"},
      {[](auto& g) { g.DrawRect(10, 20, 30, 40); }, "10 20 30 40 re S\n"},
      {[](auto& g) { g.DrawRect(10, 20, 30, 40, 0, 255, 0); }, "10 20 30 40 re S\n"},
      {[](auto& g) { g.SetColorFill("RED"), g.DrawRect(0, 0, 1, 1, 5); },
       "1 0 0 rg\n0 0 1 1 re f*\n"},
      // White is chosen before the first filling only.
      {[](auto& g) { g.DrawRect(0, 0, 1, 1, 5), g.DrawRect(0, 0, 1, 1, 4); },
       "1 1 1 rg\n0 0 1 1 re f*\n0 0 1 1 re B*\n"},
      {[](auto& g) { g.DrawRect(0, 0, 10, 20, 0, 255, 2); },
       "2 0 m 8 0 l 9.1 0 10 0.9 10 2 c 10 18 l 10 19.1 9.1 20 8 20 c 2 20 l 0.9 20 0 19.1 0 18 c "
       "0 2 l "
       "0 0.9 0.9 0 2 0 c S\n"},
      {[](auto& g) { g.DrawRect(0, 0, 10, 20, 0, 15 | 32, 2); },
       "0 0 m 8 0 l 9.1 0 10 0.9 10 2 c 10 20 l 0 20 l 0 0 l h S\n"},
      {[](auto& g) { g.DrawRect(0, 0, 10, 20, 0, 1 | 4); }, "0 0 m 10 0 l S\n10 20 m 0 20 l S\n"},
      {[](auto& g) { g.DrawRect(0, 0, 10, 20, 0, 1 | 2 | 32, 2); },
       "0 0 m 8 0 l S\n8 0 m 9.1 0 10 0.9 10 2 c S\n10 2 m 10 20 l S\n"},
      {[](auto& g) { g.SetColorFill("RED"), g.DrawRect(0, 0, 10, 20, 4, 8); },
       "1 0 0 rg\n0 0 m 10 0 l 10 20 l 0 20 l 0 0 l f*\n0 20 m 0 0 l S\n"},
      {[](auto& g) { g.DrawRect(0, 0, 10, 20, 0, 0); }, ""},
      {[](auto& g) { g.DrawCircle(10, 10, 10); },
       "20 10 m 20 4.477 15.523 0 10 0 c 4.477 0 0 4.477 0 10 c 0 15.523 4.477 20 10 20 c "
       "15.523 20 20 15.523 20 10 c S\n"},
      {[](auto& g) { g.DrawArc(10, 10, 10, 10, 0, 90); }, "20 10 m 20 4.477 15.523 0 10 0 c S\n"},
      {[](auto& g) { g.DrawArc(10, 10, 10, 10, 90, 0, 0); },
       "10 0 m 4.477 0 0 4.477 0 10 c 0 15.523 4.477 20 10 20 c 15.523 20 20 15.523 20 10 c S\n"},
      {[](auto& g) { g.DrawArc(10, 10, 10, 10, 0, 90, 0, true); },
       "20 10 m 20 4.477 15.523 0 10 0 c 10 10 l h S\n"},
      {[](auto& g) { g.DrawArc(10, 10, 10, 10, 30, 30); }, ""},
      {[](auto& g) { g.AxisRotation(30); }, "0.866 0.5 -0.5 0.866 0 0 cm\n"},
      {[](auto& g) { g.AxisRotation(-720); }, ""},
      {[](auto& g) { g.AxisScaling(2, 0.5); }, "2 0 0 0.5 0 0 cm\n"},
      {[](auto& g) { g.AxisSkewing(0.5, -1); }, "1 0.5 -1 1 0 0 cm\n"},
      {[](auto& g) { g.AxisTranslation(5, 6), g.DrawLineTo(0, 0); },
       "1 0 0 1 5 6 cm\n5 6 m 0 0 l S\n"},
      {[](auto& g) { g.BeginSpace(5, 6, 2, 3, 90), g.EndSpace(); },
       "q\n2 0 0 3 5 6 cm\n0 1 -1 0 0 0 cm\nQ\n"},
  };
  for (const auto& c : cases) {
    Drawing drawing;
    c.draw(drawing.graphics);
    EXPECT_EQ(drawing.Take(), c.text);
  }
}

TEST(Graphics, PaintModes) {
  const struct {
    int mode;
    const char* text;
  } cases[] = {{0, " S"},       {1, " n"},       {2, " h S"},    {3, " h n"},    {4, " B*"},
               {5, " f*"},      {6, " b*"},      {7, " f*"},     {128, " W S"},  {129, " W n"},
               {130, " W h S"}, {131, " W h n"}, {133, " W f*"}, {134, " W b*"}, {8, " S"}};
  for (const auto& c : cases) EXPECT_EQ(PaintOperator(c.mode), c.text) << c.mode;
}

TEST(Graphics, LengthsAreUserUnitsAndBoxesPoints) {
  Drawing drawing;
  drawing.document.scale = 2;
  drawing.graphics.DrawRect(10, 20, -5, 8);
  EXPECT_EQ(drawing.Take(), "20 40 -10 16 re S\n");
  EXPECT_EQ(drawing.document.lastBox.left, 10);
  EXPECT_EQ(drawing.document.lastBox.right, 20);
  EXPECT_EQ(drawing.document.lastBox.top, 40);
  EXPECT_EQ(drawing.document.lastBox.bottom, 56);
  drawing.graphics.DrawCircle(10, 10, 3);
  EXPECT_EQ(drawing.document.lastBox.top, 14);
  drawing.graphics.DrawPolygon("7;1;3;9;5;5");
  EXPECT_EQ(drawing.document.lastBox.left, 6);
  EXPECT_EQ(drawing.document.lastBox.bottom, 18);
}

TEST(Graphics, NonsenseIsRefusedAndLeavesThePageAlone) {
  const double infinite = std::numeric_limits<double>::infinity();
  const std::function<void(Graphics&)> cases[] = {
      [](auto& g) { g.SetColorFill("banana"); },
      [](auto& g) { g.SetDash("wavy"); },
      [](auto& g) { g.SetDash(""); },
      [](auto& g) { g.SetDash("0;0"); },
      [](auto& g) { g.SetDash("3;-1"); },
      [](auto& g) { g.SetBlend("Mix"); },
      [](auto& g) { g.DrawPolygon("1;2"); },
      [](auto& g) { g.DrawPolygon("1;2;3"); },
      [](auto& g) { g.DrawPolygon("1;2;3;x"); },
      [](auto& g) { g.DrawCurve(1, 2, 3, 4, 5, 6, 3); },
      [&](auto& g) { g.DrawArc(1, 2, 3, 4, 0, infinite); },
      [&](auto& g) { g.AxisRotation(infinite); },
      [](auto& g) { g.AxisScaling(0, 1); },
      [](auto& g) { g.AxisSkewing(2, 0.5); },
      [&](auto& g) { g.AxisSkewing(0, infinite); },
      [](auto& g) { g.BeginSpace(0, 0, 1, 0.0001); },
      [](auto& g) { g.EndSpace(); },
      [](auto& g) { g.EndObject(); },
      [](auto& g) { g.EndTiling(); },
      [](auto& g) { g.EndLayer(); },
      [](auto& g) { g.DrawObject("none"); },
      [](auto& g) { g.BeginObject(""); },
      [](auto& g) { g.BeginConditionalLayer("none", 0); },
      [](auto& g) { g.BeginTiling("t", 0, 1); },
      [&](auto& g) { g.BeginTiling("t", infinite, 1); },
      [](auto& g) { g.AddGradient("RED", 0, "RED", "BLUE", 0, 0, 1, 1); },
      [](auto& g) { g.AddGradient("g", 2, "RED", "BLUE", 0, 0, 1, 1); },
      [](auto& g) { g.AddGradient("g", 0, "RED", "%1", 0, 0, 1, 1); },
      [](auto& g) { g.AddGradient("g", 0, "RED", "", 0, 0, 1, 1); },
      [](auto& g) { g.AddGradient("g", 1, "RED", "BLUE", 0, 0, 1, 1, -1, 2); },
      [](auto& g) { g.DrawBarCode(0, "\xE9", 0, 0, 10, 10); },
      [](auto& g) { g.DrawBarCode(0, "A", 0, 0, 0, 10); },
  };
  int number = 0;
  for (const auto& act : cases) {
    Drawing drawing;
    EXPECT_THROW(act(drawing.graphics), Error) << number;
    EXPECT_EQ(drawing.Take(), "") << number;
    EXPECT_EQ(drawing.document.target, Target::Page) << number;
    ++number;
  }
}

TEST(Graphics, OneStateForEachTransparency) {
  Drawing drawing;
  drawing.graphics.SetAlpha(150);
  drawing.graphics.SetAlpha(100);
  drawing.graphics.SetAlphaFill(50);
  drawing.graphics.SetAlphaFill(50);
  drawing.graphics.SetAlphaLine(-3);
  drawing.graphics.SetBlend("colordodge");
  EXPECT_EQ(drawing.Take(),
            "/A1+GS_100 gs\n/A1+GS_100 gs\n/A1+GSF_50 gs\n/A1+GSF_50 gs\n/A1+GSL_0 "
            "gs\n/A1+GSB_ColorDodge gs\n");
  EXPECT_EQ(drawing.document.resources.Entries(ResourceKind::ExtGState),
            "/A1+GS_100 4 0 R /A1+GSF_50 5 0 R /A1+GSL_0 6 0 R /A1+GSB_ColorDodge 7 0 R ");
  EXPECT_EQ(drawing.document.versionStep, 1);
  const std::string file = drawing.File();
  for (const char* object :
       {"<</Type /ExtGState /ca 1 /CA 1 /BM /Normal >>",
        "<</Type /ExtGState /ca 0.5 /BM /Normal >>", "<</Type /ExtGState /CA 0 /BM /Normal >>",
        "<</Type /ExtGState /BM /ColorDodge >>"}) {
    EXPECT_EQ(Count(file, object), 1U) << object;
  }
}

TEST(Graphics, AnArchiveIsOpaque) {
  Drawing archive;
  archive.document.pdfA = true;
  Graphics& g = archive.graphics;
  EXPECT_THROW(g.SetAlpha(99), Error);
  EXPECT_THROW(g.SetAlphaFill(0), Error);
  EXPECT_THROW(g.SetAlphaLine(-5), Error);
  EXPECT_THROW(g.SetBlend("Multiply"), Error);
  EXPECT_EQ(archive.document.resources.Entries(ResourceKind::ExtGState), "");
  EXPECT_EQ(archive.Take(), "");
  g.SetAlpha(150);
  g.SetBlend("normal");
  EXPECT_EQ(archive.Take(), "/A1+GS_100 gs\n/A1+GSB_Normal gs\n");
}

TEST(Graphics, AGradientWithoutItsLastNumbersIsAPlainOne) {
  Drawing drawing;
  drawing.graphics.AddGradient("ID1", 0, "255", "16711680", 1, 2, 3, 4, 0, 0, 0, 0);
  drawing.graphics.AddGradient("ID2", 1, "%0", "%1", 1, 2, 1, 2, 0, 5, 2, 1);
  EXPECT_THROW(drawing.graphics.AddGradient("ID1", 0, "RED", "BLUE", 1, 2, 3, 4), Error);
  drawing.graphics.SetColorFill("ID1");
  drawing.graphics.SetColorLine("ID2");
  EXPECT_EQ(drawing.Take(), "/Pattern cs /A1+ID1 scn\n/Pattern CS /A1+ID2 SCN\n");
  EXPECT_EQ(drawing.document.resources.Entries(ResourceKind::Pattern),
            "/A1+ID1 4 0 R /A1+ID2 5 0 R ");
  const std::string file = drawing.File();
  EXPECT_NE(file.find("<</Type /Pattern /PatternType 2 /Matrix [ 1 0 0 -1 0 842] /Shading "
                      "<<\r\n/ColorSpace /DeviceRGB "
                      "/ShadingType 2 /Coords [1 2 3 4] /Extend [true true] "
                      "/Function <</FunctionType 2 /Domain [0 1] /C0 [1 0 0] /C1 [0 0 1] /N 1>>"),
            std::string::npos);
  EXPECT_NE(
      file.find("/ColorSpace /DeviceGray /ShadingType 3 /Coords [1 2 0 1 2 5] /Extend [true false] "
                "/Function <</FunctionType 2 /Domain [0 1] /C0 [0] /C1 [1] /N 2>>"),
      std::string::npos);
}

TEST(Graphics, TilingPatterns) {
  Drawing drawing;
  Graphics& g = drawing.graphics;
  g.SetColorFill("RED");
  g.BeginTiling("dots", 10, 20, 0, 25, false);
  EXPECT_THROW(g.BeginTiling("more", 1, 1), Error);
  g.SetColorFill("BLUE");
  g.DrawRect(1, 1, 2, 2, 5);
  g.DrawBarCode(3, "9638507", 0, 0, 10, 10, false);
  g.EndTiling();
  drawing.Take();
  g.SetColorFill("dots");
  EXPECT_EQ(drawing.Take(), "/CS-RGB cs 1 0 0 /A1+dots scn\n");
  g.BeginObject("o");
  EXPECT_THROW(g.SetColorFill("dots"), Error);
  g.EndObject();
  const std::string file = drawing.File();
  EXPECT_NE(file.find("<< /Type /Pattern /PatternType 1 /PaintType 2 /TilingType 1 /BBox [0 0 10 "
                      "20] /Resources << /ProcSet 3 0 R >> "
                      "/XStep 10 /YStep 25 /Matrix [1 0 0 1 0 0]"),
            std::string::npos);
  EXPECT_NE(file.find("1 0 0 -1 0 20 cm \r1 w\n1 1 2 2 re f*\nq\n0 0 "), std::string::npos);
}

TEST(Graphics, SpacesAndLayersThatStayOpenEndWithThePage) {
  Drawing drawing;
  Graphics& g = drawing.graphics;
  g.SetColorFill("RED");
  g.BeginSpace(1, 2);
  g.SetColorFill("BLUE");
  g.SetLineWidth(3);
  g.SetXY(9, 9);
  g.BeginSpace(3, 4);
  g.EndSpace();
  EXPECT_EQ(drawing.document.state.x, 9);
  g.BeginLayer("Notes");
  drawing.Take();
  g.AtPageEnd();
  EXPECT_EQ(drawing.Take(), "EMC\nQ\n");
  EXPECT_EQ(drawing.document.state.colours.fill, "#1 0 0");
  EXPECT_EQ(drawing.document.state.lineWidth, 1);
  g.AtPageStart();
  EXPECT_EQ(drawing.Take(), "1 0 0 rg\n");
}

TEST(Graphics, ObjectsWithinObjects) {
  Drawing drawing;
  Graphics& g = drawing.graphics;
  g.BeginObject("outer");
  g.DrawObject("inner");
  g.DrawObject("outer");
  EXPECT_NE(drawing.document.objectBuffer.find("##inner## "), std::string::npos);
  g.DrawLine(0, 0, 1, 1);
  g.EndObject();
  g.BeginObject("inner");
  g.DrawObject("outer");  // would close a circle
  g.EndObject();
  EXPECT_THROW(g.BeginObject("inner"), Error);
  g.DrawObject("outer");
  EXPECT_EQ(drawing.Take(), "q /A1+outer Do Q\n");
  g.WriteAtEnd();
  const std::string file = drawing.File();
  EXPECT_EQ(Count(file, "q /A1+outer Do Q"), 1U);
  EXPECT_EQ(Count(file, "q /A1+inner Do Q"), 0U);
  EXPECT_EQ(Count(file, "##"), 0U);
  EXPECT_EQ(Count(file, "0 0 m 1 1 l S"), 1U);
}

TEST(Graphics, PageObjectsChooseTheirPages) {
  const struct {
    int flag;
    const char* pages;  // of four: "s" at the beginning, "e" at the end, "." not
  } cases[] = {{0, "...."}, {7, "ssss"}, {23, "eeee"},     {4, "s.s."},
               {2, ".s.s"}, {1, "s..."}, {16 + 4, "e.e."}, {6, "ssss"}};
  for (const auto& c : cases) {
    Drawing drawing;
    drawing.document.pages.resize(4);
    drawing.document.order = {0, 1, 2, 3};
    drawing.graphics.BeginObject("o", c.flag);
    drawing.graphics.EndObject();
    std::string got;
    for (std::size_t page = 0; page < 4; ++page) {
      drawing.document.openPage = page;
      drawing.graphics.AtPageStart();
      const bool atStart = Count(drawing.Take(), " Do ") == 1;
      drawing.graphics.AtPageEnd();
      const bool atEnd = Count(drawing.Take(), " Do ") == 1;
      got += atStart ? 's' : atEnd ? 'e' : '.';
    }
    EXPECT_EQ(got, c.pages) << c.flag;
  }
}

TEST(Graphics, Layers) {
  Drawing drawing;
  Graphics& g = drawing.graphics;
  g.BeginLayer("One");
  g.EndLayer();
  g.BeginLayer("Two", false, false);
  EXPECT_THROW(g.EndConditionalLayer(), Error);
  g.EndLayer();
  g.BeginLayer("Three", true, true, "SCREEN");
  g.EndLayer();
  g.BeginLayer("Four", true, true, "PRINTER");
  g.EndLayer();
  g.BeginLayer("One");
  g.EndLayer();
  g.BeginConditionalLayer("One, Two", 3);
  g.EndConditionalLayer();
  EXPECT_THROW(g.BeginConditionalLayer("One", 4), Error);
  const std::string page = drawing.Take();
  EXPECT_EQ(Count(page, "/OC /A1+LAY_1 BDC\nEMC\n"), 2U);
  EXPECT_EQ(Count(page, "/OC /A1+GRLAY_1 BDC\nEMC\n"), 1U);
  EXPECT_EQ(drawing.document.versionStep, 2);
  EXPECT_EQ(Count(drawing.document.resources.Entries(ResourceKind::Properties), " 0 R "), 5U);
  const std::string catalog = g.CatalogEntries();
  EXPECT_NE(catalog.find("/OFF [5 0 R 7 0 R ]"), std::string::npos) << catalog;
  g.WriteAtEnd();
  const std::string file = drawing.File();
  EXPECT_NE(file.find("/Usage <</Print <</PrintState /OFF>> /View <</ViewState /ON>> >>"),
            std::string::npos);
  EXPECT_NE(file.find("/Usage <</Print <</PrintState /ON>> /View <</ViewState /OFF>> >>"),
            std::string::npos);
  EXPECT_NE(file.find("<</Type /OCMD /OCGs [4 0 R 5 0 R ] /P /AllOff>>"), std::string::npos);

  Drawing archive;
  archive.document.pdfA = true;
  archive.graphics.BeginLayer("One");
  archive.graphics.BeginConditionalLayer("None", 0);
  archive.graphics.EndConditionalLayer();
  archive.graphics.EndLayer();
  EXPECT_EQ(archive.Take(), "");
  EXPECT_EQ(archive.graphics.CatalogEntries(), "");
  EXPECT_EQ(archive.document.versionStep, 0);
}

// One pixel a point.
class Picture {
 public:
  explicit Picture(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string magic;
    int most = 0;
    in >> magic >> width_ >> height_ >> most;
    in.get();
    bytes_.assign(std::istreambuf_iterator<char>(in), {});
  }
  // "r", "g", "b", "w" or "k" for what is nearly that colour, "?" for others.
  char At(int x, int y) const {
    const auto at = static_cast<std::size_t>(3 * (y * width_ + x));
    if (at + 2 >= bytes_.size()) return '!';
    int colour = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      const int value = static_cast<unsigned char>(bytes_[at + i]);
      if (value > 40 && value < 215) return '?';
      colour = colour * 2 + (value > 128);
    }
    return "kbg?r??w"[colour];
  }

 private:
  int width_ = 0, height_ = 0;
  std::string bytes_;
};

TEST(Graphics, ThePageAsItIsSeen) {
  test::TempDirectory directory;
  const std::string pdf = (directory.Path() / "page.pdf").string();
  clsPDFCreator c(test::StandingClock());
  c.SetScale(0);
  c.BeginDoc(pdf);
  c.SetPaperSize(255, 200, 300);

  c.BeginPage();
  c.DrawRect(0, 0, 200, 300, 5);  // white before any colour is chosen
  c.SetColorFill("RED");
  c.DrawArc(50, 50, 40, 40, 0, 90, 5, true);
  c.AddGradient("across", 0, "#FF0000", "#0000FF", 100, 0, 200, 0);
  c.SetColorFill("across");
  c.DrawRect(100, 0, 100, 40, 5);
  c.AddGradient("down", 0, "#FF0000", "#0000FF", 0, 100, 0, 200);
  c.SetColorFill("down");
  c.DrawRect(0, 100, 40, 100, 5);
  c.AddGradient("round", 1, "#FF0000", "#0000FF", 100, 150, 100, 150, 0, 40, 0, 0);
  c.SetColorFill("round");
  c.DrawRect(60, 110, 80, 80, 5, 255, 40);
  c.BeginSpace(160, 120, 1, 1, 90);
  c.SetColorFill("LIME");
  c.DrawRect(0, 0, 30, 10, 5);  // down and to the left
  c.EndPage();                  // ends the space

  c.BeginPage();
  c.BeginTiling("boxes", 20, 20);
  c.SetColorFill("BLUE");
  c.DrawRect(0, 0, 10, 10, 5);
  c.EndTiling();
  c.SetColorFill("boxes");
  c.DrawRect(0, 0, 100, 100, 5);
  c.BeginTiling("stamps", 20, 20, 0, 0, false);
  c.DrawRect(0, 0, 10, 10, 5);
  c.EndTiling();
  c.SetColorFill("RED");
  c.SetColorFill("stamps");
  c.DrawRect(100, 0, 100, 100, 5);
  c.BeginObject("mark");
  c.SetColorFill("LIME");
  c.DrawRect(10, 120, 20, 10, 5);
  c.EndObject();
  c.DrawObject("mark");
  c.BeginLayer("hidden", false);
  c.SetColorFill("BLACK");
  c.DrawRect(0, 200, 50, 50, 5);
  c.EndLayer();
  c.BeginLayer("seen");
  c.DrawRect(100, 200, 50, 50, 5);
  c.EndLayer();
  c.BeginConditionalLayer("hidden,seen", 2);
  c.DrawRect(150, 200, 50, 50, 5);
  c.EndConditionalLayer();
  c.EndDoc();
  ASSERT_EQ(c.ErrDescription(), "");

  ASSERT_EQ(test::RunTool("qpdf --check '" + pdf + "' > /dev/null"), 0);
  const std::string pages = (directory.Path() / "page").string();
  ASSERT_EQ(test::RunTool("pdftoppm -r 72 -aa no '" + pdf + "' '" + pages + "'"), 0);
  const struct {
    int page, x, y;
    char colour;
  } cases[] = {
      {1, 65, 35, 'r'},   {1, 65, 65, 'w'},   {1, 35, 35, 'w'},    // a pie above and to the right
      {1, 103, 20, 'r'},  {1, 197, 20, 'b'},                       //
      {1, 20, 103, 'r'},  {1, 20, 197, 'b'},                       //
      {1, 100, 150, 'r'}, {1, 63, 150, 'b'},  {1, 63, 113, 'w'},   // the corners are cut
      {1, 155, 140, 'g'}, {1, 165, 140, 'w'},                      //
      {2, 5, 5, 'b'},     {2, 15, 15, 'w'},   {2, 5, 15, 'w'},     // 300 is a multiple of 20
      {2, 105, 5, 'r'},   {2, 115, 15, 'w'},                       //
      {2, 20, 125, 'g'},  {2, 20, 175, 'w'},                       //
      {2, 25, 225, 'w'},  {2, 125, 225, 'k'}, {2, 175, 225, 'w'},  //
  };
  for (const auto& p : cases) {
    const Picture picture(pages + "-" + std::to_string(p.page) + ".ppm");
    EXPECT_EQ(picture.At(p.x, p.y), p.colour) << p.page << " " << p.x << " " << p.y;
  }
}

}  // namespace
}  // namespace lm::pdf
