// Pages as other programs print them: the original and what was imported, pixel by pixel.
#include <gtest/gtest.h>

#include <regex>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "tests/pdf/handmade.h"
#include "tests/pdf/rendered_page.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::HandMade;
using test::Pixel;
using test::RenderedPage;
using test::StreamText;

constexpr Pixel kWhite{255, 255, 255}, kRed{255, 0, 0}, kBlue{0, 0, 255}, kGreen{0, 255, 0};
constexpr const char* kPage = "1 0 0 rg 40 60 30 50 re f 0 0 1 rg 150 200 20 90 re f";

// Object 5 is a picture with a green and a blue half, 6 one of no sort, 7 a layer that is off, 8
// one that is on, 9 and 10 layers by those, 11 a picture on the layer that is off.
HandMade Page(std::string_view entries, std::string_view contents = kPage,
              std::string_view layers = "/OFF [7 0 R]") {
  const std::string halves = "0 1 0 rg 0 0 5 10 re f 0 0 1 rg 5 0 5 10 re f";
  return {{"<< /Type /Catalog /Pages 2 0 R /OCProperties << /OCGs [7 0 R 8 0 R] /D << " +
               std::string(layers) + " >> >> >>",
           "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [10 20 210 320] /Resources << "
           "/Properties << /Off 7 0 R /On 8 0 R /Any 9 0 R /All 10 0 R >> /XObject << /X 11 0 R >> "
           ">> >>",
           "<< /Type /Page /Parent 2 0 R /Contents 4 0 R " + std::string(entries) + " >>",
           StreamText(contents), StreamText(halves, "/Subtype /Form /BBox [0 0 10 10]"),
           StreamText(halves, "/BBox [0 0 10 10] /Matrix [0 2 -1 0 4 9]"),
           "<< /Type /OCG /Name (off) >>", "<< /Type /OCG /Name (on) >>",
           "<< /Type /OCMD /OCGs [7 0 R 8 0 R] >>",
           "<< /Type /OCMD /OCGs [7 0 R 8 0 R] /P /AllOn >>",
           StreamText(halves, "/Subtype /Form /BBox [0 0 10 10] /OC 7 0 R")}};
}

struct PrintedPageTest : testing::Test {
  test::TempDirectory directory;
  std::filesystem::path source = directory.Path() / "in.pdf";
  std::filesystem::path target = directory.Path() / "out.pdf";
  double width = 0, height = 0;

  // Writes the file, and a document with its page on paper of the page's size.
  void Import(const HandMade& file) {
    std::string error;
    ASSERT_TRUE(ReplaceFile(source, file.Bytes(), error)) << error;
    clsPDFCreator writer(test::StandingClock());
    writer.SetScale(0);
    writer.BeginDoc(PathText(target));
    writer.GetImportSize(PathText(source), 1, width, height);
    writer.SetPaperSize(255, width, height);
    writer.BeginPage();
    writer.ImportPage(PathText(source), 1);
    writer.EndDoc();
    EXPECT_EQ(writer.ErrDescription(), "");
    EXPECT_EQ(test::CheckPdf(target), 0);
  }
};

std::string Annotation(std::string_view entries) {
  return "/Annots [<< /Type /Annot /Subtype /Widget /Rect [60 150 100 170] " +
         std::string(entries) + " >>]";
}

TEST_F(PrintedPageTest, LooksAsTheOriginal) {
  const std::string states = "/AP << /N << /Yes 5 0 R /Off 6 0 R >> >> /F 4 ";
  const struct {
    const char* name;
    HandMade file;
    int x, y;  // a point from the top left, and what stands there
    Pixel colour;
  } cases[] = {
      {"plain", Page(""), 45, 230, kRed},
      {"turned by 90", Page("/Rotate 90"), 60, 45, kRed},
      {"turned by 180", Page("/Rotate 180"), 150, 60, kRed},
      {"turned by 270", Page("/Rotate 270"), 230, 150, kRed},
      {"cropped", Page("/CropBox [50 70 190 280]"), 5, 190, kRed},
      {"cropped and turned", Page("/CropBox [50 70 190 280] /Rotate 90"), 20, 5, kRed},
      {"cropped beyond what is there", Page("/CropBox [-5 100 190 350]"), 45, 215, kRed},
      {"cropped by nonsense", Page("/CropBox [50 /x]"), 45, 230, kRed},
      {"annotation", Page(Annotation("/F 4 /AP << /N 5 0 R >>")), 55, 160, kGreen},
      {"its matrix, and no name", Page(Annotation("/F 4 /AP << /N 6 0 R >>")), 85, 152, kBlue},
      {"cropped annotation",
       Page("/CropBox [50 70 190 280] " + Annotation("/F 4 /AP << /N 5 0 R >>")), 15, 120, kGreen},
      {"turned annotation", Page("/Rotate 90 " + Annotation("/F 4 /AP << /N 5 0 R >>")), 140, 55,
       kGreen},
      {"box ticked", Page(Annotation("/AS /Yes " + states)), 55, 160, kGreen},
      {"box not ticked", Page(Annotation("/AS /Off " + states)), 85, 152, kBlue},
      {"box in no state", Page(Annotation("/AS /Maybe " + states)), 55, 160, kWhite},
      {"box of which no state is told", Page(Annotation(states)), 85, 152, kBlue},
      {"hidden", Page(Annotation("/F 6 /AP << /N 5 0 R >>")), 55, 160, kWhite},
      {"not for viewing", Page(Annotation("/F 36 /AP << /N 5 0 R >>")), 55, 160, kWhite},
      {"annotation without a place", Page(Annotation("/F 4 /Rect [] /AP << /N 5 0 R >>")), 55, 160,
       kWhite},
      {"annotation on a layer", Page(Annotation("/F 4 /AP << /N 5 0 R >> /OC 8 0 R")), 55, 160,
       kGreen},
      {"annotation on a layer that is off", Page(Annotation("/F 4 /AP << /N 5 0 R >> /OC 7 0 R")),
       55, 160, kWhite},
      {"contents on layers",
       Page("", "/OC /Off BDC 1 0 0 rg 0 0 50 300 re f EMC /OC /On BDC 50 0 50 300 re f EMC"), 20,
       100, kWhite},
      {"contents by layers",
       Page("", "/OC /Any BDC 0 0 50 300 re f EMC /OC /All BDC 1 0 0 rg 50 0 50 300 re f EMC"), 60,
       100, kWhite},
      {"layers are off to begin with",
       Page("", "/OC /Off BDC 1 0 0 rg 0 0 50 300 re f EMC /OC /On BDC 50 0 50 300 re f EMC",
            "/BaseState /OFF /ON [8 0 R]"),
       60, 100, kRed},
      {"a form on a layer", Page("", "q 10 0 0 10 50 50 cm /X Do Q"), 60, 200, kWhite},
  };
  for (const auto& each : cases) {
    Import(each.file);
    const RenderedPage imported(target, 1);
    EXPECT_EQ(imported, RenderedPage(source, 1)) << each.name;
    EXPECT_EQ(imported.At(each.x, each.y), each.colour) << each.name;
  }
}

// A note keeps its upper left corner and its own way up. (No whole numbers, for the original is
// turned with sines that are not quite whole.)
TEST_F(PrintedPageTest, NotesStandUprightOnTurnedPages) {
  for (const char* rotation : {"90", "180", "270"}) {
    Import(Page("/Rotate " + std::string(rotation) +
                " /Annots [<< /Type /Annot /Subtype /Text "
                "/Rect [90.3 150.3 110.3 170.3] /F 20 /AP << /N 5 0 R >> >>]"));
    EXPECT_EQ(RenderedPage(target, 1), RenderedPage(source, 1)) << rotation;
  }
}

TEST_F(PrintedPageTest, TheUnitOfThePageCounts) {
  Import(Page("/UserUnit 2.5 /CropBox [20 30 200 310] " + Annotation("/F 4 /AP << /N 5 0 R >>")));
  EXPECT_EQ(std::vector({width, height}), std::vector({450.0, 700.0}));
  const RenderedPage imported(target, 1);
  EXPECT_EQ(imported.Width(), 450);
  EXPECT_EQ(imported, RenderedPage(source, 1, 180));  // which knows of no units
  for (const char* nonsense : {"0", "-3", "1e9", "(x)"}) {
    Import(Page("/UserUnit " + std::string(nonsense)));
    EXPECT_EQ(width, 200) << nonsense;
  }
}

// A layer of the page is none that the user is offered, and a PDF/A file may have none at all.
TEST_F(PrintedPageTest, LayersOfThePageAmongOthers) {
  std::string error;
  ASSERT_TRUE(ReplaceFile(source, Page("").Bytes(), error)) << error;
  clsPDFCreator writer(test::StandingClock());
  writer.BeginDoc(PathText(target));
  writer.BeginPage();
  writer.BeginLayer("own");
  writer.ImportPage(PathText(source), 1);
  writer.EndLayer();
  writer.EndDoc();
  EXPECT_EQ(test::CheckPdf(target), 0);
  const std::string bytes = ReadFile(target, error).value_or("");
  EXPECT_TRUE(bytes.starts_with("%PDF-1.5"));
  const std::regex properties(
      R"(/OCGs \[(\d+ 0 R )(\d+ 0 R )(\d+ 0 R )\] /D <</Order \[\1\] /ON \[\1\3\] /OFF \[\2\])");
  EXPECT_TRUE(std::regex_search(bytes, properties));

  clsPDFCreator archive(test::StandingClock());
  archive.SetPDFa(true);
  archive.BeginDoc(PathText(target));
  archive.BeginPage();
  archive.ImportPage(PathText(source), 1);
  EXPECT_NE(archive.ErrDescription().find("hidden layers"), std::string::npos);
}

TEST_F(PrintedPageTest, WhatIsNotPrintedOrCannotBeReadIsLeftOut) {
  HandMade damaged = Page(Annotation("/F 4 /AP << /N 12 0 R >>"));
  damaged.objects.emplace_back("(not closed");
  HandMade damagedFont = Page(Annotation("/F 4 /AP << /N 13 0 R >>"));
  damagedFont.objects.emplace_back("(not closed");
  damagedFont.objects.push_back(StreamText("0 1 0 rg 0 0 5 10 re f",
                                           "/Subtype /Form /BBox [0 0 10 10] /Resources << /Font "
                                           "<< /F 12 0 R >> /XObject 12 0 R >> /Group 12 0 R"));
  const struct {
    const char* name;
    HandMade file;
    Pixel colour;
  } cases[] = {
      {"not for printing", Page(Annotation("/AP << /N 5 0 R >>")), kWhite},
      {"popup", Page(Annotation("/Subtype /Popup /F 4 /AP << /N 5 0 R >>")), kWhite},
      {"damaged", damaged, kWhite},
      {"with a damaged font", damagedFont, kGreen},
      {"a picture of no size", Page(Annotation("/Rect [9 9 9 99] /F 4 /AP << /N 5 0 R >>")),
       kWhite},
      {"cropped to nothing", Page("/CropBox [500 500 600 600]"), kWhite},
      {"annotations that are none", Page("/Annots [null 7 (x) 99 0 R << >> [] 3 0 R]"), kWhite},
      {"annotations that are no list", Page("/Annots (x)"), kWhite},
  };
  for (const auto& each : cases) {
    Import(each.file);
    const RenderedPage imported(target, 1);
    EXPECT_EQ(imported.At(45, 230), kRed) << each.name;
    EXPECT_EQ(imported.At(55, 160), each.colour) << each.name;
  }
}

}  // namespace
}  // namespace lm
