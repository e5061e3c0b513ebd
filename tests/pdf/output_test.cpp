// Numbers, texts, streams and the cross-reference table, as they stand in the file.
#include "pdf/output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "core/files.h"
#include "pdf/document.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

TEST(Points, PrintNumbersAsTheFormatNeedsThem) {
  struct Case {
    int precision;
    double value;
    const char* text;
  };
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const Case& each : {
           Case{3, 0, "0"},
           Case{3, -0.0004, "0"},
           Case{3, 0.0005, "0.001"},
           Case{3, -0.0005, "-0.001"},
           Case{3, 0.5, "0.5"},
           Case{3, 28.3464551, "28.346"},
           Case{3, -1.0995, "-1.1"},
           Case{3, 100, "100"},
           Case{3, 1000.05, "1000.05"},
           Case{3, 9999.9994, "9999.999"},
           Case{0, 2.5, "3"},
           Case{0, -841.89, "-842"},
           Case{6, 1.0000014, "1.000001"},
           Case{6, 0.000001, "0.000001"},
           // Where the single-precision number has fewer digits than were asked for.
           Case{3, 12345.678, "12345.678"},
           Case{6, 123.456789, "123.45679"},
           Case{3, 1e10, "10000000000"},
           Case{3, 1e300, "0"},
           Case{3, kInfinite, "0"},
           Case{3, -kInfinite, "0"},
           Case{3, std::numeric_limits<double>::quiet_NaN(), "0"},
       }) {
    pdf::Document document;
    document.precision = each.precision;
    EXPECT_EQ(document.Points(each.value), each.text) << each.value;
  }
}

TEST(OutputFile, EscapesTexts) {
  const pdf::Output out;
  EXPECT_EQ(out.Text("a\\b(c)\r\n"), "(a\\\\b\\(c\\)\\r\\n)");
  EXPECT_EQ(out.Text("caf\xE9"), "(caf\xE9)");
  const std::string unicode = out.Text("\x80\x81(");  // a euro, an empty code, a bracket
  EXPECT_EQ(unicode, std::string("(\xFE\xFF\x20\xAC\x00\x81\x00\\()", 11));
  // Where the format's own code has other signs or none, and where a text looks like Unicode.
  EXPECT_EQ(out.Text("\xA0\xAD"), std::string("(\xFE\xFF\x00\xA0\x00\xAD)", 8));
  EXPECT_EQ(out.Text("\x18\x7F"), std::string("(\xFE\xFF\x00\x18\x00\x7F)", 8));
  EXPECT_EQ(out.Text("\xFE\xFF"), std::string("(\xFE\xFF\x00\xFE\x00\xFF)", 8));
  EXPECT_TRUE(out.Text("\xEF\xBB\xBFx").starts_with("(\xFE\xFF"));
}

TEST(OutputFile, AppliesFiltersInOrderAndRefusesToWriteNowhere) {
  test::TempDirectory directory;
  const fs::path path = directory.Path() / "stream";
  pdf::Output out;
  EXPECT_THROW(out.Write("x"), pdf::Error);
  EXPECT_THROW(out.BeginNewObject(), pdf::Error);
  EXPECT_EQ(out.ObjectCount(), 0);

  out.Open(path);
  out.Write("%");
  out.SetCompression(pdf::kRunLength | pdf::kAsciiHex, 0, pdf::kLzw);
  out.BeginNewObject();
  out.WriteStream(pdf::StreamClass::Contents, "<< ", "aaaa");
  out.WriteStream(pdf::StreamClass::Contents, "<< ", "");
  out.WriteStream(pdf::StreamClass::Images, "<< ", "raw", {"/DCTDecode", 7, false});
  out.pdfA = true;
  out.WriteStream(pdf::StreamClass::Fonts, "<< ", "no lzw");
  out.ReserveObject();
  out.WriteCrossReference();
  out.Close();
  std::string error;
  EXPECT_EQ(ReadFile(path, error),
            "%\n1 0 obj\n"
            "<< /Filter [/ASCIIHexDecode /RunLengthDecode] /Length 7 >>\rstream\r\nFD6180>\n"
            "endstream\n"
            "<< /Length 0 >>\rstream\r\n\nendstream\n"
            "<< /Filter /DCTDecode /Length1 7 /Length 3 >>\rstream\r\nraw\nendstream\n"
            "<< /Length 6 >>\rstream\r\nno lzw\nendstream\n"
            "xref\n0 3\n0000000000 65535 f\r\n0000000002 00000 n\r\n0000000000 65535 f\r\n");
}

}  // namespace
}  // namespace lm
