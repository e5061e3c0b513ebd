// A font file is put together here table by table, so that every rule has a number to show for it.
#include "pdf/truetype.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

#include "core/files.h"
#include "pdf/fonts.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::pdf {
namespace {

std::string Big16(int value) {
  return {static_cast<char>(value >> 8 & 0xFF), static_cast<char>(value & 0xFF)};
}

std::string Big32(long value) {
  return Big16(static_cast<int>(value >> 16)) + Big16(static_cast<int>(value & 0xFFFF));
}

void Put16(std::string& table, std::size_t at, int value) { table.replace(at, 2, Big16(value)); }

using Tables = std::map<std::string, std::string>;

std::string FontFile(const Tables& tables) {
  std::string directory =
      Big32(0x00010000) + Big16(static_cast<int>(tables.size())) + Big16(0) + Big16(0) + Big16(0);
  std::string body;
  const std::size_t bodyAt = 12 + 16 * tables.size();
  for (const auto& [tag, bytes] : tables) {
    directory += tag + Big32(0) + Big32(static_cast<long>(bodyAt + body.size())) +
                 Big32(static_cast<long>(bytes.size()));
    body += bytes;
  }
  return directory + body;
}

struct Segment {
  int start, end, delta, range;
};

std::string CharacterMapOf(int encoding, const std::vector<Segment>& segments,
                           const std::string& glyphArray = "", int format = 4) {
  std::string ends, starts, deltas, ranges;
  for (const Segment& segment : segments) {
    ends += Big16(segment.end);
    starts += Big16(segment.start);
    deltas += Big16(segment.delta);
    ranges += Big16(segment.range);
  }
  return Big16(0) + Big16(2) +                     // version, records
         Big16(1) + Big16(0) + Big32(20) +         // another platform comes first
         Big16(3) + Big16(encoding) + Big32(20) +  //
         Big16(format) + Big16(0) + Big16(0) +     //
         Big16(static_cast<int>(2 * segments.size())) + Big16(0) + Big16(0) + Big16(0) +  //
         ends + Big16(0) + starts + deltas + ranges + glyphArray;
}

struct NameRecord {
  int platform, encoding, language, id;
  std::string text;
};

std::string NameTable(const std::vector<NameRecord>& records) {
  std::string table = Big16(0) + Big16(static_cast<int>(records.size())) +
                      Big16(static_cast<int>(6 + 12 * records.size()));
  std::string storage;
  for (const NameRecord& record : records) {
    std::string utf16;
    for (const char c : record.text) utf16 += {'\0', c};
    table += Big16(record.platform) + Big16(record.encoding) + Big16(record.language) +
             Big16(record.id) + Big16(static_cast<int>(utf16.size())) +
             Big16(static_cast<int>(storage.size()));
    storage += utf16;
  }
  return table + storage;
}

std::string Glyph(int contours, int xMin, int yMin, int xMax, int yMax) {
  return Big16(contours) + Big16(xMin) + Big16(yMin) + Big16(xMax) + Big16(yMax);
}

// 2000 units: a thousandth is two. Glyphs: 0 missing, 1 "A", 2 "B" (composite), 3 blank.
Tables Plain() {
  Tables tables;
  std::string& head = tables["head"] = std::string(54, '\0');
  Put16(head, 18, 2000);
  std::string& hhea = tables["hhea"] = std::string(36, '\0');
  Put16(hhea, 4, 1700);
  Put16(hhea, 6, -300);
  Put16(hhea, 10, 2401);
  Put16(hhea, 34, 3);
  tables["hmtx"] = Big16(1001) + Big16(0) + Big16(1301) + Big16(0) + Big16(1400) + Big16(0);
  std::string& os2 = tables["OS/2"] = std::string(78, '\0');
  Put16(os2, 2, 1101);
  Put16(os2, 4, 400);
  Put16(os2, 74, 1801);
  Put16(os2, 76, 421);
  tables["post"] = std::string(32, '\0');
  tables["cmap"] =
      CharacterMapOf(1, {{32, 32, 3 - 32, 0}, {65, 66, 1 - 65, 0}, {0xFFFF, 0xFFFF, 1, 0}});
  tables["glyf"] = Glyph(1, -20, -40, 1201, 1401) + Glyph(-1, -900, -900, 1999, 1999);
  tables["loca"] = Big16(0) + Big16(0) + Big16(5) + Big16(10) + Big16(10);
  tables["name"] = NameTable({{3, 1, 1033, 4, "Plain Sans"}});
  return tables;
}

TrueTypeFace Read(const Tables& tables, int codePage = 0) {
  return ReadTrueType(FontFile(tables), CodePageOf(codePage));
}

TEST(TrueType, ReadsMetrics) {
  const TrueTypeFace face = Read(Plain());
  EXPECT_EQ(face.avgWidth, 551);      // 550.5
  EXPECT_EQ(face.ascent, 901);        // 900.5
  EXPECT_EQ(face.descent, -211);      // -210.5
  EXPECT_EQ(face.maxWidth, 1201);     // 1200.5
  EXPECT_EQ(face.missingWidth, 500);  // 500.5, cut
  EXPECT_EQ(face.weight, 400);
  EXPECT_FALSE(face.symbol);
  EXPECT_EQ(face.italicAngle, 0);
  // The composite glyph and the blank leave the box alone.
  EXPECT_EQ(std::vector<int>({face.xMin, face.yMin, face.xMax, face.yMax}),
            std::vector<int>({-10, -20, 601, 701}));
  EXPECT_EQ(face.widths['A'], 651);
  EXPECT_EQ(face.widths['B'], 700);
  EXPECT_EQ(face.widths[' '], 700);  // beyond the last advance
  EXPECT_EQ(face.widths['C'], 500);
  EXPECT_EQ(face.widths[0], 500);
  EXPECT_EQ(face.name, "Plain Sans");
}

TEST(TrueType, ReadsStyle) {
  Tables tables = Plain();
  Put16(tables["post"], 4, -13);
  Put16(tables["post"], 6, 49152);  // three quarters
  Put16(tables["post"], 14, 1);
  const TrueTypeFace face = Read(tables);
  EXPECT_DOUBLE_EQ(face.italicAngle, -12.25);
  EXPECT_TRUE(face.fixedPitch);
}

TEST(TrueType, MapsCharacters) {
  struct Case {
    const char* what;
    std::vector<Segment> segments;
    std::string glyphArray;
    int codePage;
    unsigned char code;
    int width;
  };
  const Case cases[] = {
      {"glyph array", {{65, 66, 0, 2}}, Big16(2) + Big16(1), 0, 'A', 700},
      {"glyph array, second", {{65, 66, 0, 2}}, Big16(2) + Big16(1), 0, 'B', 651},
      {"glyph array and delta", {{65, 65, 1, 2}}, Big16(1), 0, 'A', 700},
      {"0 in the glyph array", {{65, 65, 1, 2}}, Big16(0), 0, 'A', 500},
      {"delta turns over", {{65, 65, 65536 - 64, 0}}, "", 0, 'A', 651},
      {"euro of the code page", {{0x20AC, 0x20AC, 1 - 0x20AC, 0}}, "", 0, 0x80, 651},
      {"last character", {{8482, 8482, 1 - 8482, 0}}, "", 0, 0x99, 651},
      {"numero sign of the code page", {{8470, 8470, 1 - 8470, 0}}, "", 204, 0xB9, 651},
      {"segment clipped at the end", {{8482, 9000, 1 - 8482, 0}}, "", 0, 0x99, 651},
      {"segment above ends the walk", {{8483, 8483, 0, 0}, {65, 65, 1 - 65, 0}}, "", 0, 'A', 500},
      {"alpha in Greek", {{0x3B1, 0x3B1, 1 - 0x3B1, 0}}, "", 161, 0xE1, 651},
      {"alpha elsewhere", {{0x3B1, 0x3B1, 1 - 0x3B1, 0}}, "", 0, 0xE1, 500},
      {"a code without character", {{0x81, 0x81, 1 - 0x81, 0}}, "", 0, 0x81, 500},
  };
  for (const Case& c : cases) {
    Tables tables = Plain();
    tables["cmap"] = CharacterMapOf(1, c.segments, c.glyphArray);
    EXPECT_EQ(Read(tables, c.codePage).widths[c.code], c.width) << c.what;
  }
}

TEST(TrueType, WithoutUsableMapAllCodesAreMissing) {
  Tables none = Plain(), otherFormat = Plain();
  none.erase("cmap");
  otherFormat["cmap"] = CharacterMapOf(1, {{65, 65, 1 - 65, 0}}, "", 6);
  for (const Tables& tables : {none, otherFormat})
    for (const int width : Read(tables).widths) EXPECT_EQ(width, 500);
}

TEST(TrueType, ChoosesName) {
  struct Case {
    int encoding;
    std::vector<NameRecord> records;
    const char* name;
  };
  const Case cases[] = {
      {1, {{3, 1, 1031, 4, "Schrift"}, {3, 1, 2057, 4, "Face"}, {3, 1, 1033, 4, "No"}}, "Face"},
      {1, {{3, 1, 6153, 4, "Face"}, {3, 1, 1031, 4, "Schrift"}}, "Face"},
      {1, {{3, 1, 1031, 4, "Schrift"}}, "Schrift"},
      {1, {{3, 1, 1033, 1, "Family"}, {1, 1, 1033, 4, "Mac"}, {3, 0, 1033, 4, "Sym"}}, ""},
      {1, {{3, 1, 1033, 4, "  Face  "}}, "Face"},
      {0, {{3, 1, 1033, 4, "Face"}, {3, 0, 1033, 4, "Sym"}}, "Sym"},
  };
  for (const Case& c : cases) {
    Tables tables = Plain();
    tables["cmap"] = CharacterMapOf(c.encoding, {{65, 65, 1 - 65, 0}});
    tables["name"] = NameTable(c.records);
    const TrueTypeFace face = Read(tables);
    EXPECT_EQ(face.name, c.name);
    EXPECT_EQ(face.symbol, c.encoding == 0);
  }
}

TEST(TrueType, DoesWithoutTablesThatMayBeMissing) {
  Tables tables = Plain();
  for (const char* tag : {"OS/2", "post", "name", "cmap", "loca", "glyf"}) tables.erase(tag);
  const TrueTypeFace face = Read(tables);
  EXPECT_EQ(face.ascent, 850);
  EXPECT_EQ(face.descent, -150);
  EXPECT_EQ(face.xMax, 0);
  for (const char* tag : {"head", "hhea", "hmtx"}) {
    Tables damaged = Plain();
    damaged.erase(tag);
    EXPECT_THROW(Read(damaged), Error) << tag;
  }
}

TEST(TrueType, HostileBytes) {
  const std::string good = FontFile(Plain());
  const CodePage& page = CodePageOf(0);
  for (const std::string& bytes : {std::string(), std::string("\0\1\0\0", 4), std::string("OTTO"),
                                   "OTTO" + good.substr(4), std::string(5000, '\xFF')})
    EXPECT_THROW(ReadTrueType(bytes, page), Error);
  // Neither a file cut short anywhere nor any byte turned over does more than throw.
  std::size_t readable = 0;
  const auto tryOut = [&](const std::string& bytes) {
    try {
      ReadTrueType(bytes, page);
      ++readable;
    } catch (const Error&) {
    }
  };
  for (std::size_t length = 0; length < good.size(); ++length) tryOut(good.substr(0, length));
  EXPECT_LT(readable, good.size() / 2);
  for (std::size_t at = 0; at < good.size(); ++at)
    for (const char value : {'\0', '\x7F', '\xFF'}) {
      std::string bytes = good;
      bytes[at] = value;
      tryOut(bytes);
    }
  EXPECT_GT(readable, good.size());

  for (const int units : {0, 15, 16385}) {
    Tables tables = Plain();
    Put16(tables["head"], 18, units);
    EXPECT_THROW(Read(tables), Error) << units;
  }
  // The widest advance in the coarsest units is cut to what a width can be.
  Tables wide = Plain();
  Put16(wide["head"], 18, 16);
  Put16(wide["hmtx"], 4, 65535);
  EXPECT_EQ(Read(wide).widths['A'], 32767);

  // Thousands of segments over the same characters.
  Tables overlapping = Plain();
  overlapping.erase("loca");  // the glyph numbers go beyond it
  overlapping["cmap"] =
      CharacterMapOf(1, std::vector<Segment>(8000, Segment{0, 0xFFFE, 1 - 65, 0}));
  EXPECT_EQ(Read(overlapping).widths['A'], 651);
  Tables beyond = Plain();
  beyond["cmap"] = CharacterMapOf(1, {{65, 65, 900 - 65, 0}});
  EXPECT_THROW(Read(beyond), Error);
}

// The file that Fonts::Add writes, as a whole PDF around one line of text.
struct Written {
  test::TempDirectory directory;
  Document document;
  Fonts fonts{document};
  std::filesystem::path pdf = directory.Path() / "font.pdf";

  Written() {
    document.out.Open(pdf);
    document.out.Write("%PDF-1.3");
    document.out.SetObjectCount(3);
    document.prefix = "A1F+";
  }

  std::string Save(const std::string& name, const std::string& bytes) {
    const std::filesystem::path path = directory.Path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return PathText(path);
  }

  std::string Finish(const std::string& text) {
    Output& out = document.out;
    const TextState& state = document.state.text;
    const std::string show =
        "BT " + document.Name(state.fontResource) + " 12 Tf 20 20 Td (" + text + ") Tj ET";
    out.BeginNewObject();
    out.WriteStream(StreamClass::Contents, "<< ", show);
    const int contents = out.ObjectCount();
    out.EndObject();
    out.WriteObject(1, "<< /Type /Pages /Count 1 /Kids [3 0 R] >>");
    out.WriteObject(2, "<< /Type /Catalog /Pages 1 0 R >>");
    out.WriteObject(3, "<< /Type /Page /Parent 1 0 R /MediaBox [0 0 300 100] /Contents " +
                           std::to_string(contents) + " 0 R /Resources << /Font << " +
                           document.resources.Entries(ResourceKind::Font) + ">> >> >>");
    const std::int64_t at = out.Size();
    out.WriteCrossReference();
    out.Write("trailer\n<< /Size " + std::to_string(out.ObjectCount() + 1) +
              " /Root 2 0 R >>\nstartxref\n" + std::to_string(at) + "\n%%EOF");
    out.Close();
    std::string reason;
    return ReadFile(pdf, reason).value_or("");
  }

  int Run(const std::string& before, const std::string& after = "") {
    return test::RunTool(before + " '" + pdf.string() + "' " + after + " > '" +
                         (directory.Path() / "said").string() + "' 2>&1");
  }
  std::string Said() {
    std::string reason;
    return ReadFile(directory.Path() / "said", reason).value_or("");
  }
};

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(AddFont, WritesDictionaryDescriptorAndFile) {
  Tables tables = Plain();
  Put16(tables["OS/2"], 4, 501);
  Put16(tables["post"], 4, -12);
  Put16(tables["post"], 14, 1);
  const std::string bytes = FontFile(tables);
  Written written;
  const std::string path = written.Save("plain.ttf", bytes);
  EXPECT_EQ(written.fonts.Add(path, "", true, 0), "FNT_1");
  written.fonts.Set("plain sans", 10, 0, 0);
  EXPECT_EQ(written.fonts.Count(), 1);
  EXPECT_EQ(written.fonts.Current().baseName, "PlainSans,BoldItalic");
  EXPECT_EQ(written.fonts.Current().lineHeight, 1112);
  EXPECT_NEAR(written.fonts.TextWidth("AB"), 13.51, 1e-9);

  const std::string pdf = written.Finish("A");
  EXPECT_TRUE(Has(pdf,
                  "4 0 obj\n<< /Type /Font /Subtype /TrueType /Name /A1F+FNT_1 /BaseFont "
                  "/PlainSans,BoldItalic /FirstChar 32 /LastChar 255"));
  EXPECT_TRUE(Has(pdf, "/Widths [700 500 500"));
  EXPECT_TRUE(Has(pdf, "\r500 651 700 500"));
  EXPECT_TRUE(Has(pdf, "/FontDescriptor 5 0 R >>\nendobj\n5 0 obj\n"));
  EXPECT_TRUE(Has(pdf,
                  "<< /Type /FontDescriptor /FontName /PlainSans /Flags 97 /FontBBox [-10 -20 601 "
                  "701] /MissingWidth 500 /StemV 120 /ItalicAngle -12 /CapHeight 901 /XHeight 450 "
                  "/Ascent 901 /Descent -211 /MaxWidth 1201 /AvgWidth 551\r/FontFile2 6 0 R >>\n"));
  EXPECT_TRUE(Has(pdf, "/Length1 " + std::to_string(bytes.size())));
  EXPECT_TRUE(Has(pdf, bytes));
  EXPECT_EQ(written.Run("qpdf --check"), 0) << written.Said();
}

TEST(AddFont, EmbedsWhenAskedOrUnderPdfA) {
  struct Case {
    bool embed, pdfA, embedded;
  };
  for (const Case& c :
       {Case{true, false, true}, Case{false, false, false}, Case{false, true, true}}) {
    Written written;
    written.document.pdfA = c.pdfA;
    const std::string path = written.Save("plain.ttf", FontFile(Plain()));
    written.fonts.Add(path, "X/Y (1)", c.embed, 0);
    written.fonts.Set("x/y(1)", 10, 0, 0);
    EXPECT_TRUE(written.fonts.Current().trueType);
    const std::string pdf = written.Finish("A");
    EXPECT_EQ(Has(pdf, "/FontFile2"), c.embedded);
    EXPECT_TRUE(Has(pdf, "/FontName /X#2FY#281#29 "));
    EXPECT_EQ(written.Run("qpdf --check"), 0) << written.Said();
  }
}

TEST(AddFont, SymbolFlagAndCodePage) {
  Tables tables = Plain();
  tables["cmap"] = CharacterMapOf(0, {{0x410, 0x410, 1 - 0x410, 0}});
  Written written;
  const std::string path = written.Save("symbol.ttf", FontFile(tables));
  written.fonts.Add(path, "Signs", false, 204);
  written.fonts.Set("Signs", 10, 0, 0);
  EXPECT_FALSE(written.fonts.Current().trueType);  // it was added with a code page only
  written.fonts.Set("Signs", 10, 0, 204);
  EXPECT_TRUE(written.fonts.Current().trueType);
  EXPECT_EQ(written.fonts.Current().widths[0xC0], 651);
  const std::string pdf = written.Finish("A");
  EXPECT_TRUE(Has(pdf, "/Flags 4 "));
  EXPECT_TRUE(Has(pdf, "/Differences [128 /afii10051"));
}

TEST(AddFont, StylesHaveTheirOwnFiles) {
  Written written;
  Tables bold = Plain();
  bold["name"] = NameTable({{3, 1, 1033, 4, "Plain Sans Bold"}});
  written.fonts.Add(written.Save("p.ttf", FontFile(Plain())), "", false, 0);
  written.fonts.Add(written.Save("b.ttf", FontFile(bold)), "", false, 0);
  EXPECT_EQ(written.fonts.Add(written.Save("b2.ttf", FontFile(bold)), "", false, 0), "FNT_2");
  const std::pair<int, const char*> cases[] = {
      {0, "PlainSans"}, {1, "PlainSansBold"}, {2, "PlainSans"}, {5, "PlainSansBold"}};
  for (const auto& [style, name] : cases) {
    written.fonts.Set("Plain Sans", 0, style, 0);
    EXPECT_EQ(written.fonts.Current().baseName, name) << style;
  }
}

TEST(AddFont, FailureLeavesNoFont) {
  Written written;
  const int objects = written.document.out.ObjectCount();
  const auto number = [&](const std::string& path, const char* name) {
    try {
      written.fonts.Add(path, name, true, 0);
      return 0;
    } catch (const Error& error) {
      return error.Number();
    }
  };
  Tables nameless = Plain();
  nameless.erase("name");
  EXPECT_EQ(number("/no/such/font.ttf", ""), 53);
  EXPECT_EQ(number("", ""), 53);
  EXPECT_EQ(number(PathText(written.directory.Path()), ""), 53);
  EXPECT_EQ(number(written.Save("bad.ttf", "banana"), "Bad"), 5);
  EXPECT_EQ(number(written.Save("nameless.ttf", FontFile(nameless)), ""), 5);
  EXPECT_EQ(number(written.Save("blank.ttf", FontFile(nameless)), "  "), 5);
  EXPECT_EQ(written.fonts.Count(), 0);
  EXPECT_EQ(written.document.resources.Entries(ResourceKind::Font), "");
  EXPECT_EQ(written.document.out.ObjectCount(), objects);
}

// A real font shows its text again: the glyph names and the code pages belong together.
TEST(AddFont, RealFontIsReadBack) {
  const char* const path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "no DejaVu Sans here";
  struct Case {
    int codePage;
    const char* codes;
    const char* utf8;
  };
  const Case cases[] = {
      {0, "Se\xF1or \x80", "Señor €"},
      {161, "\xC1\xE8\xDE\xED\xE1", "Αθήνα"},
      {162, "\xDDstanbul \xFE", "İstanbul ş"},
      {186, "R\xEEga \xD0\xE8", "Rīga Šč"},
      {204, "\xCC\xEE\xF1\xEA\xE2\xE0", "Москва"},
      {238, "\x8Elu\x9Dou\xE8k\xFD", "Žluťoučký"},
  };
  for (const Case& c : cases) {
    Written written;
    written.fonts.Add(path, "Deja", true, c.codePage);
    written.fonts.Set("Deja", 12, 0, c.codePage);
    EXPECT_EQ(written.fonts.Current().widths['A'], 684);
    written.Finish(c.codes);
    EXPECT_EQ(written.Run("qpdf --check"), 0) << written.Said();
    EXPECT_EQ(written.Run("pdftotext", "-"), 0);
    EXPECT_EQ(written.Said().substr(0, written.Said().find('\n')), c.utf8);
  }
}

}  // namespace
}  // namespace lm::pdf
