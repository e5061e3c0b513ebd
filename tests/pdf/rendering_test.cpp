// What a viewer shows, measured in pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/output.h"
#include "tests/pdf/handmade.h"
#include "tests/pdf/picture_bytes.h"
#include "tests/pdf/rendered_page.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::HandMade;
using test::Pixel;
using test::RenderedPage;

constexpr int kTenPixelsAMillimetre = 254;
constexpr int kFilled = 5;        // without a line around it
constexpr double kBearing = 1.1;  // mm between the beginning of an "H" of 40 points and its ink
constexpr Pixel kBlack = {0, 0, 0}, kRed = {255, 0, 0}, kBlue = {0, 0, 255};

struct Edges {
  int left = 1 << 20, top = 1 << 20, right = 0, bottom = 0;  // pixels; right and bottom are behind
};

// Around all that has the colour.
Edges EdgesOf(const RenderedPage& page, const Pixel& colour) {
  Edges edges;
  for (int y = 0; y < page.Height(); ++y) {
    for (int x = 0; x < page.Width(); ++x) {
      if (page.At(x, y) != colour) continue;
      edges.left = std::min(edges.left, x);
      edges.top = std::min(edges.top, y);
      edges.right = std::max(edges.right, x + 1);
      edges.bottom = std::max(edges.bottom, y + 1);
    }
  }
  return edges;
}

int DifferentPixels(const RenderedPage& a, const RenderedPage& b) {
  int count = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < a.Width(); ++x) count += a.At(x, y) != b.At(x, y) ? 1 : 0;
  }
  return count;
}

constexpr int kWithin = 1;  // pixels, a tenth of a millimetre

void ExpectEdges(const Edges& found, const Edges& expected, const std::string& what) {
  EXPECT_NEAR(found.left, expected.left, kWithin) << what;
  EXPECT_NEAR(found.top, expected.top, kWithin) << what;
  EXPECT_NEAR(found.right, expected.right, kWithin) << what;
  EXPECT_NEAR(found.bottom, expected.bottom, kWithin) << what;
}

// Pages of 100 x 80 mm as they are seen, with a blue box of 30 x 10 mm whose lower left corner is
// 50 mm from the left and 20 mm from the bottom. Each is stored in another way.
struct SourcePage {
  const char* name;
  const char* box;
  int rotate;
  const char* toStored;  // from points as seen to points as stored
};
constexpr SourcePage kSourcePages[] = {
    {"plain", "0 0 283.4646 226.7717", 0, "1 0 0 1 0 0"},
    {"moved", "-30 200 253.4646 426.7717", 0, "1 0 0 1 -30 200"},
    {"turned", "0 0 226.7717 283.4646", 90, "0 1 -1 0 226.7717 0"},
    {"upside down", "0 0 283.4646 226.7717", 180, "-1 0 0 -1 283.4646 226.7717"},
    {"turned back and moved", "10 20 236.7717 303.4646", 270, "0 -1 1 0 10 303.4646"},
};

std::string BytesOf(const SourcePage& page) {
  HandMade file = test::OnePage(std::string(page.toStored) +
                                " cm 0 0 1 rg 141.7323 56.6929 85.0394 28.3465 re f");
  file.objects[2] = "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /MediaBox [" +
                    std::string(page.box) + "] /Rotate " + std::to_string(page.rotate) + " >>";
  return file.Bytes();
}

struct RenderingTest : testing::Test {
  test::TempDirectory directory;

  std::filesystem::path Path(const std::string& name) const { return directory.Path() / name; }
  std::string Save(const std::string& name, const std::string& bytes) {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return PathText(Path(name));
  }

  // A page of 100 x 80 mm with a black box and a red letter, over the first page of `background`.
  RenderedPage Overlay(const std::string& background) {
    clsPDFCreator pdf(test::StandingClock());
    pdf.SetScale(2);
    pdf.SetPaperSize(255, 100, 80);
    pdf.BeginDoc(PathText(Path("out.pdf")));
    pdf.BeginPage();
    if (!background.empty()) pdf.ImportPage(background, 1);
    pdf.SetColorFill("BLACK");
    pdf.DrawRect(30, 10, 50, 20, kFilled);
    pdf.SetColorText("RED");
    pdf.SetFont("Arial", 40);
    pdf.DrawText(10, 60, "H");
    pdf.EndDoc();
    EXPECT_EQ(pdf.ErrDescription(), "");
    EXPECT_EQ(test::CheckPdf(Path("out.pdf")), 0);
    return RenderedPage(Path("out.pdf"), 1, kTenPixelsAMillimetre);
  }
};

TEST_F(RenderingTest, DrawingsStandAtTheirMillimetresOnImportedPages) {
  const Edges letter = EdgesOf(Overlay(""), kRed);
  EXPECT_NEAR(letter.bottom, 600, kWithin);  // the baseline
  EXPECT_NEAR(letter.left, 100 + 10 * kBearing, kWithin);
  for (const SourcePage& source : kSourcePages) {
    const RenderedPage page = Overlay(Save("in.pdf", BytesOf(source)));
    EXPECT_NEAR(page.Width(), 1000, kWithin) << source.name;
    EXPECT_NEAR(page.Height(), 800, kWithin) << source.name;
    ExpectEdges(EdgesOf(page, kBlack), {300, 100, 800, 300}, source.name);
    ExpectEdges(EdgesOf(page, kRed), letter, source.name);
    const Edges blue{500, 500, 800, 600};
    ExpectEdges(EdgesOf(page, kBlue), blue, source.name);
    ExpectEdges(EdgesOf(RenderedPage(Path("in.pdf"), 1, kTenPixelsAMillimetre), kBlue), blue,
                std::string(source.name) + " in the source");
  }
}

TEST_F(RenderingTest, AnImportedPageKeepsItsLooksAmongDrawings) {
  const std::string source = Save(
      "in.pdf", test::OnePage("100 100 200 80 re f 100 300 m 300 300 l S BT /F1 40 Tf 100 500 Td "
                              "(plain) Tj ET")
                    .Bytes());
  clsPDFCreator pdf(test::StandingClock());
  pdf.SetScale(0);
  pdf.SetPaperSize(255, 595, 842);
  pdf.BeginDoc(PathText(Path("out.pdf")));
  pdf.BeginPage();
  pdf.SetColorFill("RED");
  pdf.SetColorLine("BLUE");
  pdf.SetColorText("RED");
  pdf.SetLineWidth(9);
  pdf.SetDash("3 5");
  pdf.SetTextMode(1);
  pdf.SetCharSpacing(4);
  pdf.SetFont("Arial", 10);
  pdf.DrawText(-100, 100, "off the page");
  pdf.DrawRect(-50, 10, 20, 20, 4);
  pdf.ImportPage(source, 1);
  pdf.EndDoc();
  EXPECT_EQ(pdf.ErrDescription(), "");
  const RenderedPage alone(Path("in.pdf"), 1);
  EXPECT_GT(alone.Width(), 0);
  EXPECT_LT(DifferentPixels(alone, RenderedPage(Path("out.pdf"), 1)), 20);  // edges may round
}

std::string FontOnThisMachine() {
  for (const char* file : {"/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                           "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"}) {
    if (std::filesystem::exists(file)) return file;
  }
  return "";
}

TEST_F(RenderingTest, FiltersChangeNoPixel) {
  std::string pixels;
  for (int i = 0; i < 12 * 12 * 3; ++i) pixels += static_cast<char>(i * i % 251);
  const std::string picture = Save("a.tga", test::Tga(2, 12, 12, 24, 0x20, pixels));
  const std::string source = Save("in.pdf", BytesOf(kSourcePages[2]));
  const auto render = [&](int filters) {
    const auto path = Path(std::to_string(filters) + ".pdf");
    clsPDFCreator pdf(test::StandingClock());
    pdf.SetCompression(filters, filters, filters);
    pdf.SetScale(0);
    pdf.SetPaperSize(255, 595, 842);
    pdf.BeginDoc(PathText(path));
    const std::string font = FontOnThisMachine();
    if (!font.empty()) pdf.AddFont(font, "Embedded");
    pdf.BeginObject("mark");
    pdf.DrawCircle(300, 300, 40, kFilled);
    pdf.EndObject();
    pdf.AddGradient("dusk", 0, "RED", "BLUE", 50, 600, 250, 600);
    pdf.BeginPage();
    pdf.ImportPage(source, 1);
    pdf.DrawImage(picture, 40, 40, 200, 150);
    pdf.DrawObject("mark");
    pdf.SetColorFill("dusk");
    pdf.DrawRect(50, 500, 200, 100, kFilled);
    pdf.SetFont("Arial", 30);
    pdf.DrawText(50, 400, "Filters \x80");
    if (!font.empty()) {
      pdf.SetFont("Embedded", 30);
      pdf.DrawText(50, 450, "embedded");
    }
    pdf.EndDoc();
    EXPECT_EQ(pdf.ErrDescription(), "") << filters;
    EXPECT_EQ(test::CheckPdf(path), 0) << filters;
    return RenderedPage(path, 1, 100);
  };
  const RenderedPage plain = render(0);
  EXPECT_NE(plain.At(5, 5), kBlack);
  EXPECT_GT(EdgesOf(plain, kBlack).right, 0);
  for (const int filters : {pdf::kFlate, pdf::kFlate | 0x900, pdf::kLzw, pdf::kRunLength,
                            pdf::kAscii85, pdf::kAsciiHex, 31}) {
    EXPECT_TRUE(render(filters) == plain) << filters;
  }
}

}  // namespace
}  // namespace lm
