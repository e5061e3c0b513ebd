// PDF/A: what a file of it cannot hold is refused or made right, and a checker has nothing to say.
#include <functional>

#include "pdf/filters.h"
#include "pdf/import.h"
#include "tests/pdf/annotated_pdf.h"
#include "tests/pdf/handmade.h"
#include "tests/pdf/picture_bytes.h"

namespace lm {
namespace {

using namespace test;

constexpr const char* kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

std::string Save(const AnnotatedPdf& file, const std::string& name, const std::string& bytes) {
  std::string reason;
  EXPECT_TRUE(ReplaceFile(file.Folder() / name, bytes, reason)) << reason;
  return PathText(file.Folder() / name);
}

// What Apache PDFBox says of a file; the test is skipped where that or Java is missing.
#define EXPECT_VALID(file)                                                                  \
  do {                                                                                      \
    const std::string said = (file).Tool("'" SOURCE_DIR "/tests/pdf/preflight.sh' 'FILE'"); \
    if (said.starts_with("missing")) GTEST_SKIP() << "The PDF/A was not checked: " << said; \
    EXPECT_TRUE(Has(said, "is a valid PDF/A-1b file")) << said;                             \
  } while (false)

TEST(PdfA, IsValidWhateverItHolds) {
  AnnotatedPdf file;
  clsPDFCreator& pdf = file.pdf;
  pdf.Abort();
  pdf.SetScale(0);
  pdf.SetColorLine("@0;0.2;0.4;0.6");
  pdf.SetViewerPreferences(16 + 8 + 0x200);
  pdf.SetPDFa(true);
  pdf.BeginDoc(PathText(file.File()));
  pdf.BeginPage();
  pdf.SetCompression(4 + 2, 4, 2);
  pdf.AddFont(kFont, "Archive");
  pdf.SetFont("Archive", 12);
  pdf.SetColorFill("@1;0;0;0");
  pdf.DrawRect(10, 10, 50, 20, 4);
  pdf.AddGradient("fade", 0, "@1;0;0;0", "@0;1;0;0", 0, 0, 100, 0);
  pdf.SetColorFill("fade");
  pdf.DrawRect(10, 40, 50, 20, 5);
  pdf.BeginTiling("tiles", 5, 5, 0, 0, false);
  pdf.DrawRect(0, 0, 2, 2, 5);
  pdf.EndTiling();
  pdf.SetColorFill("@0;1;1;0");
  pdf.SetColorFill("tiles");
  pdf.DrawRect(10, 70, 50, 20, 5);
  pdf.SetColorText("@0;0;0;1");
  pdf.DrawBarCode(0, "ARCHIVE", 10, 100, 100, 30);
  pdf.DrawImage(Save(file, "a.eps",
                     "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n0.5 0 0 0 setcmykcolor\n"
                     "0 0 moveto 10 0 lineto 10 10 lineto closepath fill\n"),
                10, 140);
  pdf.DrawImage(Save(file, "a.jpeg", Jpeg(1)), 30, 140, 10, 10);
  pdf.DrawTextRich(10, 160, 200, 20, "<color=@0;1;0;0>r</color><b>bold</b><sup>2</sup>");
  pdf.DrawPlaceHolder("#PAGES", 10, 200, 50);
  pdf.SetAlpha(100);
  pdf.BeginLayer("left out");
  pdf.DrawLine(10, 210, 50, 210);
  pdf.LinkTo("http://example.org");
  pdf.LinkTo("page:1");
  pdf.EndLayer();
  for (const int type : {0, 1, 2})
    pdf.DrawNote(type, "Draft", 50 + 60 * type, 220, 50, 30, "note", "@0;1;0;0");
  for (int type = 0; type < 6; ++type)
    pdf.DrawField(type, "f" + std::to_string(type), 10 + 60 * type, 260, 50, 20, "1", "tip", 0,
                  "#000000", "@0;0;0.2;0", 1, 0, "1");
  pdf.BeginObject("stamp");
  pdf.DrawText(10, 300, "stamp");
  pdf.EndObject();
  pdf.DrawObject("stamp");
  pdf.AddBookmark("One", 0, 0, "Fit", 0, 0, 0, "@0;1;0;0", 1);
  pdf.DefineRef("here");
  pdf.SetLabel(2);
  pdf.SetPageTransition(3);
  EXPECT_EQ(pdf.ErrDescription(), "");
  const std::string bytes = file.Finish();
  for (const char* left : {" k\n", " K\n", "CourierNew", "/LZWDecode", "/PageMode", "OCProperties"})
    EXPECT_FALSE(Has(bytes, left)) << left;
  EXPECT_TRUE(Has(bytes, "/CenterWindow true"));
  EXPECT_EQ(file.Dark(12, 12, 58, 28), 0);
  EXPECT_EQ(file.Inked(12, 12, 58, 28), 46 * 16);
  EXPECT_GT(file.Dark(10, 122, 110, 130), 20);  // the bar code's text
  EXPECT_VALID(file);
}

TEST(PdfA, RefusesWhatCannotBeMadeRight) {
  const struct {
    const char* reason;
    std::function<void(AnnotatedPdf&)> operation;
  } cases[] = {
      {"fonts that are not embedded", [](auto& f) { f.pdf.SetFont("Arial", 10); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.SetFont("Symbol", 10); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.SetFont("No such font", 10); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.DrawText(10, 10, "x"); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.DrawBarCode(1, "A", 9, 9, 9, 9); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.DrawPlaceHolder("#PAGE", 9, 9, 9); }},
      {"fonts that are not embedded", [](auto& f) { f.pdf.DrawField(0, "f", 10, 10, 50, 20); }},
      {"fonts of a code page", [](auto& f) { f.pdf.AddFont(kFont, "Archive", true, 204); }},
      {"CMYK pictures", [](auto& f) { f.pdf.DrawImage(Save(f, "a.jpg", Jpeg(4)), 1, 1); }},
  };
  for (const auto& c : cases) {
    AnnotatedPdf file;
    file.pdf.SetPDFa(true);
    c.operation(file);
    EXPECT_TRUE(Has(file.pdf.ErrDescription(), std::string("PDF/A allows no ") + c.reason))
        << file.pdf.ErrDescription() << ", not " << c.reason;
    const std::string bytes = file.Finish();
    for (const char* left : {"/Type /Font", "/DCTDecode", "/Annots"})
      EXPECT_FALSE(Has(bytes, left)) << left;
  }
}

TEST(PdfA, TakesTheNameOfABaseFontForAnAddedOne) {
  AnnotatedPdf file;
  file.pdf.SetPDFa(true);
  file.pdf.AddFont(kFont, "Arial");
  file.pdf.SetFont("Arial", 20, 1);
  file.pdf.DrawText(10, 30, "embedded");
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  EXPECT_TRUE(Has(file.Finish(), "/FontFile2"));
}

// What was drawn before might be anything.
TEST(PdfA, BeginsBeforeAnythingIsDrawn) {
  const std::function<void(clsPDFCreator&)> early[] = {
      [](clsPDFCreator& pdf) { pdf.SetColorFill("@1;0;0;0"); },
      [](clsPDFCreator& pdf) { pdf.BeginLayer("layer"); },
      [](clsPDFCreator& pdf) { pdf.BeginObject("object"); },
      [](clsPDFCreator& pdf) { pdf.BeginTiling("tiling", 1, 1); },
  };
  for (const auto& operation : early) {
    AnnotatedPdf file;
    operation(file.pdf);
    file.pdf.SetPDFa(true);
    EXPECT_NE(file.pdf.ErrNumber(), 0);
    EXPECT_FALSE(Has(file.Finish(), "pdfaid"));
  }
}

// The page of another file: its resources, and what its contents draw.
struct ForeignPage {
  const char* reason;  // "" for a page that is taken
  const char* entries;
  std::string contents;
};

TEST(PdfA, LooksAtPagesOfOtherFiles) {
  const std::string inForm =
      StreamText("0 0 0 1 k 0 0 9 9 re f", "/Type /XObject /Subtype /Form /BBox [0 0 9 9]");
  const ForeignPage cases[] = {
      {"", "/Resources << >>", "0.5 g 10 10 50 50 re f (k) pop"},
      {"", "/Resources << /ColorSpace << /C [/ICCBased 6 0 R] >> >>", "10 10 50 50 re f"},
      {"transparency", "/Resources << /ExtGState << /G << /ca .5 >> >> >>", ""},
      {"transparency", "/Resources << /ExtGState << /G << /CA 0 >> >> >>", ""},
      {"transparency", "/Resources << /ExtGState << /G << /BM /Multiply >> >> >>", ""},
      {"transparency", "/Resources << /ExtGState << /G << /SMask << /S /Alpha >> >> >> >>", ""},
      {"", "/Resources << /ExtGState << /G << /SMask /None /BM /Normal /ca 1 >> >> >>", ""},
      {"transparency", "/Group << /S /Transparency >> /Resources << >>", ""},
      {"fonts that are not embedded", "/Resources << /Font << /F1 5 0 R >> >>", ""},
      {"CMYK", "/Resources << >>", "1 0 0 0 k 10 10 50 50 re f"},
      {"CMYK", "/Resources << >>", "/DeviceCMYK CS 1 0 0 0 SCN"},
      {"CMYK", "/Resources << /ColorSpace << /C [/Indexed /DeviceCMYK 0 <00000000>] >> >>", ""},
      {"CMYK", "/Resources << /XObject << /X 7 0 R >> >>", "/X Do"},
      {"", "/Resources << >>", "BI /W 1 /H 3 /BPC 8 /CS /G ID k K\nEI 10 10 5 5 re f"},
      {"CMYK",
       "/Resources << >> /Annots [ << /Subtype /Widget /F 4 /Rect [1 1 9 9] /AP << /N 7 0 R >> >> "
       "]",
       ""},
      {"LZWDecode", "/Resources << /XObject << /X 8 0 R >> >>", "/X Do"},
      {"pictures of 16 bits", "/Resources << /XObject << /X 9 0 R >> >>", "/X Do"},
  };
  for (const ForeignPage& c : cases) {
    HandMade source = OnePage(c.contents);
    source.objects[2] =
        "<< /Type /Page /Parent 2 0 R /Contents 4 0 R " + std::string(c.entries) + " >>";
    source.objects.push_back(StreamText("profile", "/N 4 /Alternate /DeviceCMYK"));
    source.objects.push_back(inForm);
    const std::string image = "/Type /XObject /Subtype /Image /Width 1 /Height 1 ";
    source.objects.push_back(
        StreamText("\x80\x0B\x60\x50", image + "/BitsPerComponent 8 /ColorSpace /DeviceGray "
                                               "/Filter [/LZWDecode]"));
    source.objects.push_back(
        StreamText("\1\1", image + "/BitsPerComponent 16 /ColorSpace /DeviceGray"));

    AnnotatedPdf file;
    file.pdf.SetPDFa(true);
    const bool taken = file.pdf.ImportPage(Save(file, "source.pdf", source.Bytes()), 1);
    EXPECT_EQ(taken, *c.reason == '\0') << c.entries << c.contents;
    if (!taken) {
      EXPECT_TRUE(Has(file.pdf.ErrDescription(), std::string("PDF/A allows no ") + c.reason))
          << file.pdf.ErrDescription();
    }
    EXPECT_EQ(Has(file.Finish(), "PDF_1.1"), taken);
  }
  AnnotatedPdf file;
  file.pdf.SetPDFa(true);
  HandMade packed = OnePage();
  packed.objects[3] = StreamText(pdf::EncodeLzw("1 1 5 5 re f"), "/Filter /LZWDecode");
  packed.objects[4] = "null";
  EXPECT_FALSE(file.pdf.ImportPage(Save(file, "packed.pdf", packed.Bytes()), 1));
  EXPECT_TRUE(Has(file.pdf.ErrDescription(), "PDF/A allows no LZWDecode"));
}

}  // namespace
}  // namespace lm
