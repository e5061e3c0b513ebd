#include "pdf/import.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/encryption.h"
#include "pdf/filters.h"
#include "pdf/reader/parsedfile.h"
#include "tests/pdf/handmade.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm {
namespace {

using pdf::EncodeFlate;
using test::HandMade;
using test::OnePage;
using test::StreamText;

struct ImportTest : testing::Test {
  test::TempDirectory directory;
  clsPDFCreator writer{test::StandingClock()};

  std::string Path(const std::string& name) { return PathText(directory.Path() / name); }
  std::string Save(const std::string& name, const std::string& bytes) {
    std::string error;
    EXPECT_TRUE(ReplaceFile(directory.Path() / name, bytes, error)) << error;
    return Path(name);
  }
  void Begin() {
    writer.BeginDoc(Path("out.pdf"));
    writer.SetScale(0);
    writer.BeginPage();
  }
  // The finished file, which must be sound.
  std::string End() {
    writer.EndDoc();
    const std::string check = "qpdf --check '" + Path("out.pdf") + "' >'" + Path("log") + "' 2>&1";
    std::string error;
    EXPECT_EQ(test::RunTool(check), 0) << ReadFile(directory.Path() / "log", error).value_or("");
    return ReadFile(directory.Path() / "out.pdf", error).value_or("");
  }
  std::string DrawnText() {
    const std::string command =
        "pdftotext '" + Path("out.pdf") + "' '" + Path("text") + "' 2>/dev/null";
    std::string error;
    if (test::RunTool(command) != 0) return "";
    return ReadFile(directory.Path() / "text", error).value_or("");
  }
  static int Count(const std::string& text, std::string_view part) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
    return count;
  }
};

TEST_F(ImportTest, ThePageIsAFormAtItsNaturalSize) {
  Begin();
  writer.ImportPage(Save("a.pdf", OnePage().Bytes()), 1, 0, 0, 0, 0);
  EXPECT_EQ(writer.ErrDescription(), "");
  const std::string bytes = End();
  EXPECT_NE(bytes.find("<< /Type /XObject /Subtype /Form /FormType 1\n"
                       "   /BBox [ 0 0 595 842 ]\n   /Resources << /Font << /F1 "),
            std::string::npos);
  EXPECT_NE(bytes.find("   /Length 24\n>>\nstream\r\nBT /F1 12 Tf (one) Tj ET\r\nendstream"),
            std::string::npos);
  EXPECT_NE(bytes.find("q\n1 0 0 -1 0 842 cm\n/A"), std::string::npos);
  EXPECT_NE(bytes.find("+PDF_1.1 Do\nQ"), std::string::npos);
  EXPECT_TRUE(bytes.starts_with("%PDF-1.4"));  // as the source
  EXPECT_NE(DrawnText().find("one"), std::string::npos);
}

TEST_F(ImportTest, ASizeAndAPlaceScaleIt) {
  const std::string source = Save("a.pdf", OnePage().Bytes());
  Begin();
  writer.SetScale(2);
  writer.ImportPage(source, 1, 10, 20, 100, 0);
  writer.SetScale(0);
  writer.SetPrecision(0);
  writer.ImportPage(source, 1, 0, 0, 0, 421);
  const std::string bytes = End();
  EXPECT_NE(bytes.find("q\n0.476411 0 0 -1 28.346 898.693 cm\n"), std::string::npos);
  EXPECT_NE(bytes.find("q\n1 0 0 -0.5 0 421 cm\n"), std::string::npos);
}

TEST_F(ImportTest, WhatIsSharedIsWrittenOnce) {
  HandMade file = OnePage();
  file.objects[1] =
      "<< /Type /Pages /Kids [3 0 R 6 0 R] /Count 2 /MediaBox [0 0 595 842] /Resources 7 0 R >>";
  file.objects.push_back("<< /Type /Page /Parent 2 0 R >>");
  file.objects.push_back(
      "<< /Font << /F1 5 0 R /F2 8 0 R /F3 99 0 R >> /Odd [3 0 R 7 0 R] /Twice 1 /Twice <4z1> "
      "/Numbers [--5 0.00-35 +1.2.3 .-5 4. -.5] /A#zz#41 1 >>");
  file.objects.push_back("5 0 R");
  const std::string source = Save("a.pdf", file.Bytes());
  Begin();
  for (const int page : {1, 2, 1, 2}) writer.ImportPage(source, page);
  const std::string bytes = End();
  EXPECT_EQ(Count(bytes, "/BaseFont /Helvetica "), 1);
  EXPECT_EQ(Count(bytes, "/Subtype /Form"), 2);
  EXPECT_EQ(Count(bytes, "+PDF_1.1 Do"), 2);
  EXPECT_EQ(Count(bytes, "   /Length 0\n>>\nstream\r\n\r\nendstream"), 1);
  EXPECT_EQ(Count(bytes, "/F3 null"), 1);
  EXPECT_EQ(Count(bytes, "/Twice <41> /Numbers [ -5 0.00 +1.2 0 4. -.5 ] /A#23zzA 1 >>"), 1);
  EXPECT_EQ(Count(bytes, "[ null "), 1);  // a page is no resource
}

// The bytes of a single stream, of pictures and fonts go over as they stand.
TEST_F(ImportTest, BytesAreKeptWithTheirFilters) {
  const std::string flate = EncodeFlate("BT /F1 12 Tf (kept) Tj ET q 9 0 0 9 50 50 cm /I Do Q");
  const std::string rows = EncodeFlate(std::string("\2\x10\x20\2\x30\x40", 6));
  HandMade file = OnePage();
  file.objects[1] =
      "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 595 842] /Resources << /Font "
      "<</F1 5 0 R>>/XObject<< /I 6 0 R /J 9 0 R >> >> >>";
  file.objects[3] = StreamText(pdf::EncodeAsciiHex(flate),
                               "/Filter [/ASCIIHexDecode /FlateDecode] /DecodeParms [null 8 0 R]");
  file.objects.push_back(StreamText(
      pdf::EncodeAscii85(rows),
      "/Subtype /Image /Width 2 /Height 2 /BitsPerComponent 8 /ColorSpace /DeviceGray "
      "/Filter 7 0 R /DecodeParms [null << /Predictor 12 /Columns 2 >>] /Note (\\)\\\\x)"));
  file.objects.push_back("[/ASCII85Decode /FlateDecode]");
  file.objects.push_back("<< /Predictor 1 >>");
  file.objects.push_back(
      StreamText(rows,
                 "/Subtype /Image /Width 2 /Height 2 /BitsPerComponent 8 /ColorSpace /DeviceGray "
                 "/Filter [/FlateDecode] /DecodeParms [<< /Predictor 12 /Columns 2 >>]"));
  const std::string source = Save("a.pdf", file.Bytes());
  for (const bool protect : {false, true}) {
    if (protect) writer.SetProtection(pdf::kMayPrint | pdf::kKey128, "", "owner");
    Begin();
    writer.SetCompression(2, 2, 2);
    writer.ImportPage(source, 1);
    EXPECT_EQ(writer.ErrDescription(), "");
    const std::string bytes = End();
    EXPECT_EQ(Count(bytes, "/Filter [/ASCIIHexDecode /FlateDecode]"), 1);
    EXPECT_EQ(Count(bytes, "/Filter [/ASCII85Decode /FlateDecode] /Length"), 1);
    EXPECT_EQ(Count(bytes, "/DecodeParms [ null << /Predictor 12 /Columns 2 >> ]"), 1);
    EXPECT_EQ(Count(bytes, "/Filter [/FlateDecode] /Length"), 1);
    EXPECT_EQ(Count(bytes, "/DecodeParms [ << /Predictor 12 /Columns 2 >> ]"), 1);
    EXPECT_EQ(Count(bytes, rows), protect ? 0 : 1);
    EXPECT_EQ(Count(bytes, "(\\)\\\\x)"), protect ? 0 : 1);
    EXPECT_NE(DrawnText().find("kept"), std::string::npos);
  }
}

TEST_F(ImportTest, TurnedAndMovedPagesStandUpright) {
  const struct {
    int rotate;
    std::string matrix, place;
  } cases[] = {
      {0, "/Matrix [ 1 0 0 1 -10 -20 ]", "1 0 0 -1 0 300 cm"},
      {90, "/Matrix [ 0 -1 1 0 -20 210 ]", "1 0 0 -1 0 200 cm"},
      {180, "/Matrix [ -1 0 0 -1 210 320 ]", "1 0 0 -1 0 300 cm"},
      {270, "/Matrix [ 0 1 -1 0 320 -10 ]", "1 0 0 -1 0 200 cm"},
  };
  for (const auto& each : cases) {
    HandMade file = OnePage();
    file.objects[2] = "<< /Type /Page /Contents 4 0 R /MediaBox [10 20 210 320] /Rotate " +
                      std::to_string(each.rotate) + " /Parent 2 0 R >>";
    const std::string source = Save("a.pdf", file.Bytes());
    Begin();
    writer.ImportPage(source, 1);
    double width = 0, height = 0;
    int rotate = -1;
    EXPECT_TRUE(writer.GetInfoPage(source, 1, width, height, rotate));
    EXPECT_EQ(std::vector({width, height}), std::vector({200.0, 300.0}));
    EXPECT_EQ(rotate, each.rotate);
    const std::string bytes = End();
    EXPECT_NE(bytes.find(each.matrix), std::string::npos) << each.rotate;
    EXPECT_NE(bytes.find(each.place), std::string::npos) << each.rotate;
    EXPECT_NE(bytes.find("/BBox [ 10 20 210 320 ]"), std::string::npos) << each.rotate;
    writer.Abort();
  }
}

TEST_F(ImportTest, WhatCannotBeReadDrawsNothing) {
  HandMade broken = OnePage();
  broken.objects[4] = "<< /Type /Font (not closed >>";
  const struct {
    std::string name;
    int page, number;
    std::string reason;
  } cases[] = {
      {Path("missing.pdf"), 1, 53, "does not exist"},
      {Save("text.pdf", "banana"), 1, 5, "not a PDF"},
      {Save("one.pdf", OnePage().Bytes()), 2, 5, "no page 2"},
      {Save("broken.pdf", broken.Bytes()), 1, 5, "breaks off"},
      {Path(""), 1, 5, ""},
  };
  Begin();
  pdf::FileInfo info;
  for (const auto& each : cases) {
    EXPECT_FALSE(writer.ImportPage(each.name, each.page));
    EXPECT_EQ(writer.ErrNumber(), each.number) << each.name;
    EXPECT_EQ(writer.ErrSource(), "PageWriter.ImportPage");
    EXPECT_NE(writer.ErrDescription().find(each.reason), std::string::npos)
        << writer.ErrDescription();
    EXPECT_EQ(writer.GetContentPage(each.name, 7), "");
  }
  EXPECT_EQ(writer.GetInfo(Path("missing.pdf"), info), 0);
  EXPECT_EQ(writer.GetInfo(Path("text.pdf"), info), 0);
  const std::string bytes = End();
  EXPECT_EQ(Count(bytes, "/Form"), 0);
  EXPECT_EQ(Count(bytes, "PDF_"), 0);
  EXPECT_EQ(Count(bytes, "/XObject"), 0);
}

TEST_F(ImportTest, RecordsAreNumberedByFile) {
  const std::string a = Save("a.pdf", OnePage().Bytes());
  const std::string b = Save("b.pdf", OnePage("BT /F1 9 Tf (two) Tj ET").Bytes());
  pdf::FileInfo info;
  Begin();
  EXPECT_EQ(writer.GetInfo(a, info), 1);
  EXPECT_EQ(writer.GetInfo(b, info), 2);
  EXPECT_EQ(writer.GetInfo(a, info), 1);
  EXPECT_EQ(writer.GetContentPage(b, 1), "BT /F1 9 Tf (two) Tj ET");
  writer.ImportPage(b, 1);
  writer.ImportPage(a, 1);
  const std::string bytes = End();
  EXPECT_EQ(Count(bytes, "+PDF_2.1 Do"), 1);
  EXPECT_EQ(Count(bytes, "+PDF_1.1 Do"), 1);
  // What was written can be read again.
  EXPECT_EQ(writer.GetInfo(Path("out.pdf"), info), 3);
  EXPECT_EQ(info.pages, 1);
  EXPECT_EQ(info.creator, "PageWriter 6.0");
}

TEST_F(ImportTest, DocumentsShareParsedFiles) {
  const std::string source = Save("a.pdf", OnePage().Bytes());
  const auto cache = std::make_shared<pdf::FileCache>();
  const auto parsed = cache->Open(source);
  const auto users = parsed.use_count();
  for (int i = 0; i < 2; ++i) {
    pdf::Document document;
    document.out.Open(directory.Path() / "b.pdf");
    pdf::Import import(document);
    import.Share(cache);
    import.ImportPage(source, 1);
    EXPECT_EQ(parsed.use_count(), users + 1);
    EXPECT_NE(document.resources.Entries(pdf::ResourceKind::XObject).find("PDF_1.1 "),
              std::string::npos);
  }
}

}  // namespace
}  // namespace lm
