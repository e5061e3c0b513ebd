#include "pdf/fonts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/files.h"
#include "pdf/codepages.h"
#include "tests/support/scripted_platform.h"

namespace lm::pdf {
namespace {

struct Open {
  test::TempDirectory directory;
  Document document;
  Fonts fonts{document};

  Open() {
    document.prefix = "A1F+";
    document.out.Open(directory.Path() / "a.pdf");
    document.out.SetObjectCount(3);
  }

  std::string Bytes() {
    document.out.Close();
    std::string reason;
    return ReadFile(directory.Path() / "a.pdf", reason).value_or("");
  }
};

TEST(Fonts, BaseFamilies) {
  struct Case {
    const char* name;
    int style, codePage;
    const char* baseName;
    int lineHeight, descent;
    unsigned char code;
    int width;
  };
  const Case cases[] = {
      {"Arial", 0, 0, "Arial", 1221, -221, 'A', 667},
      {"a r i a l", 0, 0, "Arial", 1221, -221, 'M', 833},
      {"HELVETICA", 1, 0, "Arial,Bold", 1221, -221, 'A', 722},
      {"Arial", 2, 0, "Arial,Italic", 1221, -221, 'W', 944},
      {"Arial", 3, 0, "Arial,BoldItalic", 1221, -221, 'a', 556},
      {"Arial", 4 + 8 + 16, 0, "Arial", 1221, -221, 0x80, 556},
      {"Times New Roman", 0, 0, "TimesNewRoman", 1107, -216, 'A', 722},
      {"times", 1, 0, "TimesNewRoman,Bold", 1107, -216, 'm', 833},
      {"times", 3, 0, "TimesNewRoman,BoldItalic", 1107, -216, 'A', 667},
      {"Courier New", 0, 0, "CourierNew", 1133, -300, 'i', 600},
      {"courier", 2, 204, "CourierNew,Italic", 1133, -300, 0, 600},
      {"Symbol", 3, 204, "Symbol", 1303, -293, 'a', 631},
      {"zapf dingbats", 1, 0, "ZapfDingbats", 963, -144, '!', 974},
      {"Arial", 0, 204, "Arial", 1221, -221, 0xCC, 833},          // Cyrillic Em
      {"Arial", 0, 161, "Arial", 1221, -221, 0xC1, 667},          // Alpha
      {"Times", 0, 238, "TimesNewRoman", 1107, -216, 0xF0, 500},  // d with stroke
      {"Arial", 0, 162, "Arial", 1221, -221, 0xFD, 278},          // dotless i
      {"Arial", 0, 186, "Arial", 1221, -221, 0xC1, 278},          // I with ogonek
      {"No Such Font", 1, 0, "Arial,Bold", 1221, -221, 'A', 722},
      {"", 0, 0, "Arial", 1221, -221, 'A', 667},
      {"\xFF\x00(", 0, 0, "Arial", 1221, -221, 'A', 667},
  };
  Open open;
  for (const Case& c : cases) {
    open.fonts.Set(c.name, 10, c.style, c.codePage);
    const FontRecord& font = open.fonts.Current();
    SCOPED_TRACE(std::string(c.name) + " " + std::to_string(c.style));
    EXPECT_EQ(font.baseName, c.baseName);
    EXPECT_EQ(font.lineHeight, c.lineHeight);
    EXPECT_EQ(font.descent, c.descent);
    EXPECT_EQ(font.widths[c.code], c.width);
    EXPECT_EQ(open.document.state.text.fontStyle, c.style);
    EXPECT_EQ(open.document.state.text.fontResource, font.resource);
  }
}

TEST(Fonts, ObjectIsWrittenOnceAtFirstUse) {
  Open open;
  open.fonts.Set("Arial", 10, 0, 0);
  open.fonts.Set("Helvetica", 12, 4, 0);
  open.fonts.Set("Nonsense", 12, 16, 0);
  EXPECT_EQ(open.fonts.Count(), 1);
  open.fonts.Set("Symbol", 12, 0, 0);
  open.fonts.Set("symbol", 12, 3, 238);
  EXPECT_EQ(open.fonts.Count(), 2);
  open.fonts.Set("Arial", 12, 3, 162);
  EXPECT_EQ(open.fonts.Count(), 3);
  EXPECT_EQ(open.document.resources.Entries(ResourceKind::Font),
            "/A1F+FNT_1 4 0 R /A1F+FNT_2 5 0 R /A1F+FNT_3 6 0 R ");
  const std::string bytes = open.Bytes();
  const std::string begin =
      "4 0 obj\n<< /Type /Font /Subtype /Type1 /Name /A1F+FNT_1 /BaseFont /Arial /FirstChar 32 "
      "/LastChar 255\r/Encoding << /Type /Encoding /BaseEncoding /WinAnsiEncoding  >> >>\nendobj\n"
      "5 0 obj\n<< /Type /Font /Subtype /Type1 /Name /A1F+FNT_2 /BaseFont /Symbol /FirstChar 32 "
      "/LastChar 255 >>\nendobj\n"
      "6 0 obj\n<< /Type /Font /Subtype /Type1 /Name /A1F+FNT_3 /BaseFont /Arial,BoldItalic "
      "/FirstChar 32 /LastChar 255\r/Encoding << /Type /Encoding /BaseEncoding /WinAnsiEncoding "
      "/Differences [128 /Euro 130 /quotesinglbase ";
  EXPECT_EQ(bytes.substr(0, begin.size()), begin);
}

TEST(Fonts, SizeIsKept) {
  struct Case {
    double before, asked, after;
  };
  const Case cases[] = {
      {12, 0, 12},
      {0, 0, 10},
      {12, 8.5, 8.5},
      {0, 7, 7},
      {12, -3, 12},
      {12, std::nan(""), 12},
      {12, std::numeric_limits<double>::infinity(), 12},
  };
  Open open;
  for (const Case& c : cases) {
    open.document.state.text.size = c.before;
    open.fonts.Set("Arial", c.asked, 0, 0);
    EXPECT_EQ(open.document.state.text.size, c.after) << c.before << " " << c.asked;
  }
}

TEST(Fonts, WithoutDocumentNothingChanges) {
  Document document;
  Fonts fonts(document);
  EXPECT_THROW(fonts.Set("Times", 20, 1, 0), Error);
  EXPECT_EQ(fonts.Count(), 0);
  EXPECT_EQ(document.out.ObjectCount(), 0);
  EXPECT_EQ(document.state.text.size, 10);
  EXPECT_EQ(fonts.Current().baseName, "Arial");
  document.state.text.fontIndex = 99;
  EXPECT_EQ(fonts.Current().baseName, "Arial");
}

TEST(Fonts, Measures) {
  Open open;
  open.fonts.Set("Courier New", 10, 0, 0);
  TextState& state = open.document.state.text;
  EXPECT_EQ(open.fonts.TextWidth(""), 0);
  EXPECT_DOUBLE_EQ(open.fonts.TextWidth("a b c"), 30);
  EXPECT_DOUBLE_EQ(open.fonts.LineHeight(), 11.33);
  state.charSpacing = 1;
  state.wordSpacing = 3;
  EXPECT_DOUBLE_EQ(open.fonts.TextWidth("a b c"), 41);
  state.horizontalScaling = 50;
  EXPECT_DOUBLE_EQ(open.fonts.TextWidth("a b c"), 20.5);
  open.fonts.Set("Times", 20, 0, 0);
  EXPECT_DOUBLE_EQ(open.fonts.LineHeight(), 22.14);
}

TEST(CodePages, NamesFollowTheCodes) {
  struct Case {
    int number;
    unsigned char code;
    int unicode;
    const char* part;
  };
  const Case cases[] = {
      {0, 0x80, 0x20AC, "[128 /Euro 130 /quotesinglbase /florin "},
      {0, 0x8E, 0x017D,
       "/circumflex /perthousand /Scaron /guilsinglleft /OE 142 /Zcaron 145 /quoteleft "},
      {0, 0xFF, 0x00FF, " /ydieresis]"},
      {77, 0x81, 0, "[128 /Euro 130 "},
      {161, 0xE1, 0x03B1, " /alpha /beta "},
      {161, 0xFF, 0, " /omegatonos]"},
      {162, 0xC5, 0x00C5, "/Adieresis  /Aring"},
      {162, 0xBB, 0x00BB, "/ordmasculine  /guillemotright"},
      {186, 0xA8, 0x00D8, " /Oslash "},
      {204, 0xC0, 0x0410, "[128 /afii10051 /afii10052 /quotesinglbase "},
      {238, 0xDE, 0x0162, " /Tcommaaccent "},
  };
  for (const Case& c : cases) {
    const CodePage& page = CodePageOf(c.number);
    EXPECT_EQ(page.Unicode(c.code), c.unicode) << c.number;
    EXPECT_NE(page.differences.find(c.part), std::string_view::npos) << c.number << c.part;
  }
  EXPECT_EQ(CodePageOf(204).Unicode('A'), 'A');
}

}  // namespace
}  // namespace lm::pdf
