// Pictures in a document: what is written, and what a page shows.
#include "pdf/images.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "tests/pdf/picture_bytes.h"
#include "tests/pdf/rendered_page.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using namespace test;

constexpr Pixel kWhite = {255, 255, 255}, kBlack = {0, 0, 0}, kRed = {255, 0, 0};
constexpr Pixel kGreen = {0, 255, 0}, kBlue = {0, 0, 255};

// Red and green above blue and white.
std::string FourColours() {
  return PngHeader(2, 2, 8, kPngRgb) +
         PngEnd(Codes({0, 255, 0, 0, 0, 255, 0, 0, 0, 0, 255, 255, 255, 255}));
}

// A document of 100 x 100 points on one page, and files beside it.
class Images : public testing::Test {
 protected:
  Images() {
    pdf_.SetScale(0);
    pdf_.SetPaperSize(255, 100, 100);
    pdf_.BeginDoc(PathText(Path("a.pdf")));
    pdf_.BeginPage();
  }

  std::filesystem::path Path(const std::string& name) const { return directory_.Path() / name; }
  std::string File(const std::string& name, const std::string& bytes) {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return PathText(Path(name));
  }
  void Draw(const std::string& file, double x, double y, double width, double height, int mode = 0,
            int maskColour = -1, double transparency = 0) {
    pdf_.DrawImage(file, x, y, width, height, mode, maskColour, transparency);
    EXPECT_EQ(pdf_.ErrDescription(), "") << file;
  }
  // The finished file, which must be sound.
  std::string Finish() {
    pdf_.EndDoc();
    EXPECT_EQ(CheckPdf(Path("a.pdf")), 0);
    return Bytes();
  }
  std::string Bytes() {
    std::string reason;
    return ReadFile(Path("a.pdf"), reason).value_or("");
  }
  RenderedPage Render(int page = 1) {
    Finish();
    return RenderedPage(Path("a.pdf"), page);
  }

  test::TempDirectory directory_;
  clsPDFCreator pdf_{test::StandingClock()};
};

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST_F(Images, StandUprightInTheirBox) {
  const std::string file = File("four.PnG", FourColours());
  Draw(file, 20, 10, 40, 60);
  EXPECT_EQ(pdf_.GetX(), 20);
  EXPECT_EQ(pdf_.GetY(), 10);
  const RenderedPage page = Render();
  EXPECT_EQ(page.At(30, 20), kRed);
  EXPECT_EQ(page.At(50, 20), kGreen);
  EXPECT_EQ(page.At(30, 60), kBlue);
  EXPECT_EQ(page.At(50, 60), kWhite);
  EXPECT_EQ(page.At(18, 20), kWhite);
  EXPECT_EQ(page.At(30, 8), kWhite);
  EXPECT_EQ(page.At(30, 72), kWhite);
}

TEST_F(Images, OneObjectForAllUses) {
  const std::string file = File("four.png", FourColours());
  Draw(file, 0, 0, 10, 10);
  for (int i = 1; i < 5; ++i) {
    pdf_.BeginPage();
    Draw(i % 2 == 0 ? Replace(file, ".png", ".PNG") : file, 0, 0, 10, 10);
  }
  EXPECT_EQ(Count(Finish(), "/Subtype /Image"), 1U);
}

TEST_F(Images, AnotherMaskColourIsAnotherObject) {
  const std::string file = File("four.png", FourColours());
  Draw(file, 0, 0, 40, 40, 0, 0x0000FF);
  Draw(file, 50, 0, 40, 40, 0, 0x00FF00);
  Draw(file, 0, 50, 40, 40, 0, 0x0000FF);
  Draw(file, 50, 50, 40, 40, 1, 0, 0);  // as documents call it: no mask colour
  Draw(file, 50, 50, 40, 40, 1);
  const std::string bytes = Finish();
  EXPECT_EQ(Count(bytes, "/Subtype /Image"), 3U);
  EXPECT_EQ(Count(bytes, "/Mask [255 255 0 0 0 0]"), 1U);
  EXPECT_EQ(Count(bytes, "/Mask [0 0 255 255 0 0]"), 1U);
  EXPECT_EQ(Count(bytes, "/Mask"), 2U);
}

TEST_F(Images, MaskShowsWhatIsBelow) {
  pdf_.SetColorFill("#0000FF");
  pdf_.DrawRect(0, 0, 100, 100, 5);
  const std::string two = Codes({0, 0, 0, 255, 0, 0});  // black and red
  const std::string rows = Codes({0, 0x40});            // black, red
  const std::string start = PngHeader(2, 1, 1, kPngIndexed) + PngChunk("PLTE", two);
  Draw(File("a.png", start + PngChunk("tRNS", Codes({0})) + PngEnd(rows)), 0, 0, 40, 20);
  Draw(File("b.png", start + PngEnd(rows)), 0, 30, 40, 20, 0, 0x1000000);  // black
  Draw(File("c.gif", Gif(2, 1, 2, two + two, "", Codes({0, 1}), 0, GifTransparency(1))), 0, 60, 40,
       20);
  const RenderedPage page = Render();
  EXPECT_EQ(page.At(10, 10), kBlue);
  EXPECT_EQ(page.At(30, 10), kRed);
  EXPECT_EQ(page.At(10, 40), kBlue);
  EXPECT_EQ(page.At(30, 40), kRed);
  EXPECT_EQ(page.At(10, 70), kBlack);
  EXPECT_EQ(page.At(30, 70), kBlue);
}

TEST_F(Images, SizesThatAreLeftOut) {
  const std::string file =  // 4 x 2
      File("a.png", PngHeader(4, 2, 8, kPngGray) + PngEnd(std::string(10, '\0')));
  struct Case {
    double width, height;
    int mode;
    const char* matrix;
  };
  const Case cases[] = {
      {0, 0, 0, "q 4 0 0 -2 5 7 cm"},      {10, 0, 0, "q 10 0 0 -5 5 10 cm"},
      {0, 10, 0, "q 20 0 0 -10 5 15 cm"},  {10, 10, 0, "q 10 0 0 -10 5 15 cm"},
      {10, 10, 1, "q 10 0 0 -10 5 15 cm"}, {30, 10, 1, "q 30 0 0 -10 5 15 cm"},
      {0, 10, 1, "q 20 0 0 -10 5 15 cm"},  {-3, -3, 1, "q 4 0 0 -2 5 7 cm"},
  };
  for (const Case& c : cases) Draw(file, 5, 5, c.width, c.height, c.mode);
  pdf_.SetScale(2);
  Draw(file, 10, 10, 0, 0);  // the pixels stay at 72 to the inch
  const std::string bytes = Finish();
  std::size_t at = 0;
  for (const Case& c : cases) {
    at = bytes.find(c.matrix, at);
    ASSERT_NE(at, bytes.npos) << c.matrix << " " << c.mode;
    ++at;
  }
  EXPECT_NE(bytes.find("q 4 0 0 -2 28.346 30.346 cm"), bytes.npos);
}

TEST_F(Images, AnArchiveHoldsNothingTransparentAndNoDeepPicture) {
  const std::string black =
      File("a.png", PngHeader(1, 1, 8, kPngGray) + PngEnd(std::string(2, '\0')));
  const std::string deep =
      File("b.png", PngHeader(1, 1, 16, kPngGray) + PngEnd(std::string(3, '\0')));
  pdf_.SetPDFa(true);
  pdf_.DrawImage(black, 50, 50, 20, 20, 0, -1, 25);
  EXPECT_NE(pdf_.ErrDescription().find("transparent"), std::string::npos);
  EXPECT_EQ(pdf_.AddImage(deep), "");
  EXPECT_EQ(pdf_.GetX(), 0);
  pdf_.DrawImage(black, 0, 0, 20, 20);
  const RenderedPage page = Render();
  EXPECT_TRUE(Bytes().starts_with("%PDF-1.4"));
  EXPECT_EQ(page.At(10, 10), kBlack);
  EXPECT_EQ(page.At(60, 60), kWhite);
}

TEST_F(Images, TransparencyLetsThePageThrough) {
  const std::string black =
      File("a.png", PngHeader(1, 1, 8, kPngGray) + PngEnd(std::string(2, '\0')));
  Draw(black, 0, 0, 20, 20, 0, -1, 25);
  Draw(black, 30, 0, 20, 20, 0, -1, 100);
  Draw(black, 60, 0, 20, 20, 0, -1, 0);
  const RenderedPage page = Render();
  EXPECT_NEAR(page.At(10, 10)[0], 64, 2);
  EXPECT_EQ(page.At(40, 10), kWhite);
  EXPECT_EQ(page.At(70, 10), kBlack);
}

// Red and green side by side, or black and white, as each kind of file can hold them. The first row
// counts.
TEST_F(Images, EveryFormatShowsItsPixels) {
  const std::string palette = Codes({255, 0, 0, 0, 255, 0});
  const std::string bgr = Codes({0, 0, 255, 0, 255, 0});
  const std::string bmpPalette = Codes({0, 0, 255, 0, 0, 255, 0, 0});
  const std::string blue = Codes({0, 0, 255, 0, 0, 255});
  const std::string blueBgr = Codes({255, 0, 0, 255, 0, 0});
  const std::string deep =
      Codes({0}) + Big(0xFFFF, 2) + Big(0, 4) + Big(0, 2) + Big(0xFFFF, 2) + Big(0, 2);
  const std::string masks565 = Little(0xF800, 4) + Little(0x07E0, 4) + Little(0x001F, 4);
  const auto indexed = [&](int bits) {
    return PngHeader(2, 1, bits, kPngIndexed) + PngChunk("PLTE", palette);
  };
  struct Case {
    const char* name;
    std::string bytes;
    bool gray = false;
  };
  const Case cases[] = {
      {"1.png", indexed(1) + PngEnd(Codes({0, 0x40}))},
      {"2.png", indexed(2) + PngEnd(Codes({0, 0x10}))},
      {"4.png", indexed(4) + PngEnd(Codes({0, 0x01}))},
      {"8.png", indexed(8) + PngEnd(Codes({0, 0, 1}))},
      {"g1.png", PngHeader(2, 1, 1, kPngGray) + PngEnd(Codes({0, 0x40})), true},
      {"g2.png", PngHeader(2, 1, 2, kPngGray) + PngEnd(Codes({0, 0x30})), true},
      {"g4.png", PngHeader(2, 1, 4, kPngGray) + PngEnd(Codes({0, 0x0F})), true},
      {"g8.png", PngHeader(2, 1, 8, kPngGray) + PngEnd(Codes({0, 0, 255})), true},
      {"g16.png", PngHeader(2, 1, 16, kPngGray) + PngEnd(Codes({0, 0, 0, 255, 255})), true},
      {"rgb16.png", PngHeader(2, 1, 16, kPngRgb) + PngEnd(deep)},
      // The row's filter refers to the pixel on its left.
      {"rgb8.png", PngHeader(2, 1, 8, kPngRgb) + PngEnd(Codes({1, 255, 0, 0, 1, 255, 0}))},
      {"1.bmp", Bmp(2, 1, 1, 0, bmpPalette, Codes({0x40, 0, 0, 0}))},
      {"4.bmp", Bmp(2, 1, 4, 0, bmpPalette, Codes({0x01, 0, 0, 0}))},
      {"rle8.bmp", Bmp(2, 2, 8, 1, bmpPalette, Codes({2, 1, 0, 0, 1, 0, 1, 1, 0, 1}))},
      {"rle4.bmp", Bmp(2, 2, 4, 2, bmpPalette, Codes({2, 0x11, 0, 0, 2, 0x01, 0, 1}))},
      {"565.bmp", Bmp(2, 1, 16, 3, masks565, Little(0xF800, 2) + Little(0x07E0, 2))},
      {"24.bmp", Bmp(2, -2, 24, 0, "", bgr + Codes({0, 0}) + blueBgr + Codes({0, 0}))},
      {"32.bmp", Bmp(2, 1, 32, 0, "", Codes({0, 0, 255, 0, 0, 255, 0, 0}))},
      {"a.gif", Gif(2, 1, 2, palette + palette, "", Codes({0, 1}))},
      {"interlaced.gif", Gif(2, 2, 2, palette + blue, "", Codes({0, 1, 2, 2}), 0x40)},
      {"8.tga", Tga(1, 2, 1, 8, 0, Codes({0, 1}), bgr)},
      {"gray.tga", Tga(11, 2, 1, 8, 0, Codes({1, 0, 255})), true},
      {"bottom.tga", Tga(2, 2, 2, 24, 0, blueBgr + bgr)},
      {"top.tga", Tga(2, 2, 2, 24, 0x20, bgr + blueBgr)},
      {"run.tga", Tga(10, 2, 1, 24, 0, Codes({0x80, 0, 0, 255, 0x80, 0, 255, 0}))},
  };
  pdf_.EndPage();
  pdf_.SetPaperSize(255, 100, 10.0 * static_cast<double>(std::size(cases)));
  pdf_.SetCompression(4, 2, 0);
  pdf_.BeginPage();
  pdf_.SetColorFill("BLUE");
  pdf_.DrawRect(0, 0, 100, 1000, 5);
  double y = 0;
  for (const Case& c : cases) Draw(File(c.name, c.bytes), 0, (y += 10) - 10, 40, 8);
  const RenderedPage page = Render(2);
  EXPECT_TRUE(Bytes().starts_with("%PDF-1.5"));  // samples of 16 bits
  int row = 1;
  for (const Case& c : cases) {
    EXPECT_EQ(page.At(10, row), c.gray ? kBlack : kRed) << c.name;
    EXPECT_EQ(page.At(30, row), c.gray ? kWhite : kGreen) << c.name;
    row += 10;
  }
}

TEST_F(Images, JpegIsTakenOver) {
  int x = 0;
  for (const bool progressive : {false, true}) {
    for (const int components : {1, 3, 4}) {
      const std::string name = std::to_string(x) + (components == 3 ? ".JPG" : ".jpg");
      const std::string mark = components == 4 ? AdobeMark() : "";
      Draw(File(name, Jpeg(components, mark, progressive)), x, 0, 12, 12);
      x += 16;
    }
  }
  const RenderedPage page = Render();
  const std::string bytes = Bytes();
  for (const int half : {0, 48}) {
    EXPECT_NEAR(page.At(half + 6, 6)[0], 128, 2);
    EXPECT_NEAR(page.At(half + 22, 6)[1], 128, 2);
    EXPECT_LT(page.At(half + 38, 6)[0], 110);  // half of each ink
    EXPECT_GT(page.At(half + 38, 6)[0], 20);
  }
  EXPECT_EQ(Count(bytes, "/ColorSpace /DeviceCMYK /BitsPerComponent 8 /Decode [1 0 1 0 1 0 1 0]"),
            2U);
  EXPECT_NE(bytes.find(Jpeg(3)), bytes.npos);
}

TEST_F(Images, NamesAndPatterns) {
  const std::string file = File("four.png", FourColours());
  const std::string name = pdf_.AddImage(file);
  EXPECT_TRUE(name.ends_with("+IMG_1")) << name;
  EXPECT_EQ(pdf_.AddImage(file), name);
  Draw(name, 0, 0, 20, 20);
  pdf_.AddImagePattern("TILES", file, 10, 10);
  EXPECT_EQ(pdf_.ErrDescription(), "");
  pdf_.SetColorFill("TILES");
  pdf_.DrawRect(0, 50, 40, 40, 5);
  const RenderedPage page = Render();
  EXPECT_EQ(page.At(5, 5), kRed);
  for (const int x : {0, 10, 20, 30}) {
    EXPECT_EQ(page.At(x + 2, 52), kRed) << x;
    EXPECT_EQ(page.At(x + 7, 62), kGreen) << x;
    EXPECT_EQ(page.At(x + 2, 77), kBlue) << x;
  }
}

TEST_F(Images, FailuresLeaveNothing) {
  struct Case {
    std::string file;
    int number;
    const char* reason;
  };
  const Case cases[] = {
      {PathText(Path("missing.png")), 53, "does not exist"},
      {PathText(Path("missing.wmf")), 53, "does not exist"},
      {File("a.tif", "II*"), 5, "not supported"},
      {File("png", FourColours()), 5, "not supported"},
      {File("b.gif", FourColours()), 5, "no GIF"},
      {File("b.Jpeg", FourColours()), 5, "no JPEG"},
      {File("c.png", FourColours().substr(0, 60)), 5, "breaks off"},
      {PathText(directory_.Path()) + "/", 5, "not supported"},
  };
  for (const Case& c : cases) {
    pdf_.DrawImage(c.file, 1, 2, 10, 10);
    EXPECT_EQ(pdf_.ErrNumber(), c.number) << c.file;
    EXPECT_EQ(pdf_.ErrSource(), "PageWriter.DrawImage");
    EXPECT_NE(pdf_.ErrDescription().find(c.reason), std::string::npos) << pdf_.ErrDescription();
  }
  EXPECT_EQ(pdf_.AddImage(File("d.eps", "%!PS")), "");
  EXPECT_EQ(pdf_.GetX(), 0);
  const std::string bytes = Finish();
  EXPECT_EQ(Count(bytes, "/Subtype /Image"), 0U);
  EXPECT_EQ(Count(bytes, "/ImageC"), 0U);
}

TEST_F(Images, EncipheredPalettes) {
  pdf_.EndDoc();
  clsPDFCreator enciphered(test::StandingClock());
  enciphered.SetScale(0);
  enciphered.SetPaperSize(255, 100, 100);
  enciphered.SetProtection(pdf::kKey128, "", "owner");
  enciphered.BeginDoc(PathText(Path("b.pdf")));
  enciphered.BeginPage();
  const std::string palette = Codes({255, 0, 0, 0, 255, 0, 0, 0, 0, 0, 0, 0});
  enciphered.DrawImage(File("a.gif", Gif(2, 1, 2, palette, "", Codes({0, 1}))), 0, 0, 40, 20);
  enciphered.EndDoc();
  EXPECT_EQ(CheckPdf(Path("b.pdf")), 0);
  const RenderedPage page(Path("b.pdf"), 1);
  EXPECT_EQ(page.At(10, 10), kRed);
  EXPECT_EQ(page.At(30, 10), kGreen);
}

}  // namespace
}  // namespace lm
