#include <gtest/gtest.h>

#include <cstdlib>

#include "core/files.h"
#include "core/text.h"
#include "pdf/error.h"
#include "pdf/filters.h"
#include "pdf/reader/fileinfo.h"
#include "pdf/reader/parsedfile.h"
#include "tests/pdf/handmade.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::pdf {
namespace {

using std::string_literals::operator""s;
using test::BigEndian;
using test::HandMade;
using test::OnePage;
using test::StreamText;

constexpr const char* kContents = "BT /F1 12 Tf (one) Tj ET";

std::string ContentsOf(const std::string& bytes, int page = 1) {
  ParsedFile file(bytes);
  return file.JoinedContents(file.Page(page));
}

std::string Replaced(std::string text, std::string_view old, std::string_view with) {
  const std::size_t at = text.find(old);
  EXPECT_NE(at, std::string::npos) << old;
  return at == std::string::npos ? text : text.replace(at, old.size(), with);
}

// The page tree in an object stream, the rest in the file, found through a cross-reference stream.
std::string WithStreams(bool extended) {
  HandMade file = OnePage();
  const std::string pages = file.objects[1];
  const std::string page = file.objects[2];
  file.objects[1] = file.objects[2] = "";
  const std::string head = "2 0 3 " + std::to_string(pages.size() + 1) + " ";
  const std::string members = head + pages + " " + page;
  file.objects.push_back(
      StreamText(EncodeFlate(members),
                 "/Type /ObjStm /Filter /FlateDecode /N 2 /First " + std::to_string(head.size())));
  if (extended)
    file.objects.push_back(StreamText("", "/Type /ObjStm /N 0 /First 0 /Extends 6 0 R"));
  std::vector<std::size_t> offsets;
  std::string bytes = file.Body(offsets);
  const std::size_t container = extended ? 7 : 6;
  offsets.push_back(bytes.size());
  std::string rows;
  std::string above(4, '\0');
  for (std::size_t number = 0; number < offsets.size(); ++number) {
    const bool member = number == 2 || number == 3;
    const std::string row = BigEndian(member        ? 2
                                      : number == 0 ? 0
                                                    : 1,
                                      1) +
                            BigEndian(member ? container : offsets[number], 2) +
                            BigEndian(number == 3 ? 1 : 0, 1);
    rows += '\2';  // each row the difference from the one above
    for (std::size_t i = 0; i < row.size(); ++i) rows += static_cast<char>(row[i] - above[i]);
    above = row;
  }
  const std::string start = std::to_string(bytes.size());
  bytes += std::to_string(offsets.size() - 1) + " 0 obj\n" +
           StreamText(EncodeFlate(rows), "/Type /XRef /W [1 2 1] /Root 1 0 R /Size " +
                                             std::to_string(offsets.size()) +
                                             " /Filter /FlateDecode /DecodeParms << /Columns 4 "
                                             "/Predictor 12 >>") +
           "\nendobj\nstartxref\n" + start + "\n%%EOF";
  return bytes;
}

// A file for old and new readers: the table calls the page free, the stream has it.
std::string Hybrid() {
  HandMade file = OnePage();
  std::vector<std::size_t> offsets;
  const std::string body = file.Body(offsets);
  const std::string page = std::to_string(offsets[3]);
  std::string bytes = file.Bytes();
  const std::size_t stream = bytes.find("xref");
  const std::string rows = BigEndian(1, 1) + BigEndian(offsets[3], 3);
  const std::string object =
      "9 0 obj\n" + StreamText(rows, "/Type /XRef /W [1 3 0] /Index [3 1] /Size 4") + "\nendobj\n";
  bytes.insert(stream, object);
  bytes =
      Replaced(bytes, std::string(10 - page.size(), '0') + page + " 00000 n", "0000000000 00000 f");
  bytes = Replaced(bytes, "/Root", "/XRefStm " + std::to_string(stream) + " /Root");
  return Replaced(bytes, "startxref\n" + std::to_string(stream),
                  "startxref\n" + std::to_string(stream + object.size()));
}

// A newer version of the contents at the end, with its own table and /Prev.
std::string Updated() {
  std::string bytes = OnePage("old").Bytes();
  const std::size_t old = bytes.rfind("xref\n0");
  const std::string object = std::to_string(bytes.size());
  bytes += "4 0 obj\n" + StreamText(kContents) + "\nendobj\n";
  const std::string start = std::to_string(bytes.size());
  return bytes + "xref\n4 1\n" + std::string(10 - object.size(), '0') + object +
         " 00000 n \ntrailer << /Size 6 /Root 1 0 R /Prev " + std::to_string(old) +
         " >>\nstartxref\n" + start + "\n%%EOF";
}

TEST(Reader, ShapesOfFiles) {
  const std::string plain = OnePage().Bytes();
  const std::string length = "/Length " + std::to_string(std::string(kContents).size());
  HandMade indirect = OnePage();
  indirect.objects[3] = Replaced(indirect.objects[3], length, "/Length 6 0 R");
  indirect.objects.push_back(std::to_string(std::string(kContents).size()));
  HandMade comments = OnePage();
  comments.objects[2] = "% [ (\n<</Type%x\r/P#61ge/Parent 2 0 R\f/Contents[\0004 0 R]>>"s;
  HandMade parts = OnePage("BT /F1 12");
  parts.objects[2] = "<< /Type /Page /Contents 7 0 R >>";
  parts.objects.push_back(StreamText(EncodeFlate("Tf (one) "), "/Filter [/FlateDecode]"));
  parts.objects.push_back("[4 0 R 99 0 R 6 0 R 8 0 R]");
  parts.objects.push_back(StreamText("547A>", "/Filter /ASCIIHexDecode"));
  HandMade oneOfMany = OnePage();
  oneOfMany.objects[2] = "<< /Type /Page /Contents [4 0 R] >>";
  oneOfMany.objects[3] =
      StreamText(EncodeAsciiHex(EncodeLzw(kContents)), "/Filter [/ASCIIHexDecode /LZWDecode]");
  HandMade twoReferences = OnePage();
  twoReferences.objects[2] = "<< /Type /Page /Contents 6 0 R >>";
  twoReferences.objects.push_back("7 0 R");
  twoReferences.objects.push_back("4 0 R");
  const std::string cut = plain.substr(0, plain.find("xref"));
  std::string carriageReturns = plain;
  for (char& sign : carriageReturns) sign = sign == '\n' ? '\r' : sign;

  const struct {
    const char* name;
    std::string bytes;
    std::string contents = kContents;
  } cases[] = {
      {"table", plain},
      {"streams", WithStreams(false)},
      {"extended streams", WithStreams(true)},
      {"hybrid", Hybrid()},
      {"updated", Updated()},
      {"junk before the header", "HTTP/1.1 200 OK\r\n\r\n" + plain},
      {"junk behind the end", plain + std::string(2000, '\0')},
      {"indirect length", indirect.Bytes()},
      {"comments and odd white space", comments.Bytes()},
      {"array of contents", parts.Bytes(), "BT /F1 12\nTf (one) \n547A>"},
      {"keys that stand there twice", Replaced(plain, "/Contents", "/Contents 9 0 R /Contents")},
      {"array of one", oneOfMany.Bytes()},
      {"references to references", twoReferences.Bytes()},
      {"carriage returns", carriageReturns},
      {"length too small", Replaced(plain, length, "/Length 3")},
      {"length too large", Replaced(plain, length, "/Length 300")},
      {"length of gigabytes", Replaced(plain, length, "/Length 99999999999")},
      {"negative length", Replaced(plain, length, "/Length -5")},
      {"length of itself", Replaced(plain, length, "/Length 4 0 R")},
      {"no length", Replaced(plain, length, "")},
      {"wrong offset of the table", Replaced(plain, "startxref\n", "startxref\n1")},
      {"root is nowhere",
       Replaced(Replaced(plain, "/Root 1 0 R", "/Root 9 0 R"), "startxref\n", "startxref\n1")},
      {"no startxref", Replaced(plain, "startxref", "startxxxx")},
      {"wrong offsets", Replaced(plain, "%PDF-1.4\n", "%PDF-1.4\n% moved by an editor\n")},
      {"table cut off", cut},
      {"streams without their table",
       WithStreams(false).substr(0, WithStreams(false).rfind("startxref"))},
      {"cut within the last object", plain.substr(0, plain.find("/BaseFont"))},
      {"table full of letters", Replaced(plain, "0000000000 65535 f", "banana          f")},
      {"previous is itself",
       Replaced(plain, "/Root", "/Prev " + std::to_string(plain.rfind("xref\n0")) + " /Root")},
      {"previous is nowhere", Replaced(plain, "/Root", "/Prev 123456789 /Root")},
      {"an endobj is missing", Replaced(plain, "endobj\n5 0 obj", "5 0 obj")},
      {"no header", plain.substr(9)},
      {"damaged header", Replaced(plain, "%PDF-1.4", "\x01\x02P%F-1.4")},
      {"no version", Replaced(plain, "%PDF-1.4", "%PDF-")},
      {"header far down", std::string(5000, 'x') + "\n" + plain},
      {"no catalog", Replaced(Replaced(plain, "/Type /Catalog", ""), "/Pages 2 0 R", "")},
      {"no catalog and no trailer", Replaced(cut, "/Type /Catalog", "")},
      {"endless digits", Replaced(plain, "/Count 1", "/Count " + std::string(5000, '9'))},
      {"a font that breaks off", Replaced(plain, "/Helvetica >>", "/Helvetica")},
  };
  for (const auto& each : cases) {
    try {
      EXPECT_EQ(ContentsOf(each.bytes), each.contents) << each.name;
    } catch (const Error& error) {
      ADD_FAILURE() << each.name << ": " << error.what();
    }
  }
}

// Each as the page, or as the tree above it.
TEST(Reader, OddDictionariesAndTrees) {
  const std::string head = "<< /Type /Page /Contents 4 0 R ";
  const std::string tree = "<< /Type /Pages /MediaBox [0 0 9 9] ";
  const struct {
    const char* name;
    std::string pages, page;
    int count = 1;
  } cases[] = {
      {"name with a blank", "", "<< /Na me (x) /Type /Page /Contents 4 0 R >>"},
      {"stray words", "", "<< 7 (x) /Type /Page [1] stray /Contents 4 0 R true null >>"},
      {"key without value", "", head + "/Odd >>"},
      {"names with two blanks", "", "<< /My own name /Type /Page /Contents 4 0 R >>"},
      {"reference to a reference's arguments", "", head + "0 R /Parent 2 0 R 0 R >>"},
      {"reference of nothing", "", "<< /Odd R /Type /Page R /Contents [R 4 0 R 0 R] >>"},
      {"reference without its number", "", head + "/Odd 0 R >>"},
      {"reference by decimals and signs", "", "<< /Type /Page /Contents +4. -0 R /Odd -4 0 R >>"},
      {"bracket too many", "", head + "] ] >>"},
      {"list that is not closed", "", "<< /Type /Page /Contents [4 0 R >>"},
      {"dictionary that is not closed", "", head + "/Odd << /A [ 1 /B"},
      {"dictionary in a list not closed", "", head + "/Odd [ << /A 1 ] /B 2 >>"},
      {"signs that are none of PDF's", "", head + "/A { 1 } /B ) > /C \xFF\x80 >>"},
      {"page without a type", "", "<< /Contents 4 0 R >>"},
      {"page of another type", "", "<< /Type /Font /Contents 4 0 R >>"},
      {"page called pages", "", "<< /Type /Pages /Contents 4 0 R >>"},
      {"page with kids", "", head + "/Kids [3 0 R 2 0 R] >>"},
      {"kids in place", tree + "/Kids [" + head + ">>] >>", ""},
      {"one kid in place", tree + "/Kids " + head + ">> >>", ""},
      {"one kid without brackets", tree + "/Kids 3 0 R >>", head + ">>"},
      {"kids that are none", tree + "/Kids [null 7 (x) [3 0 R] 3 0 R 99 0 R] >>", head + ">>"},
      {"a kid that cannot be read", tree + "/Kids [3 0 R 6 0 R] >>", head + ">>"},
      {"kids listed twice", tree + "/Kids [3 0 R 3 0 R] >>", head + ">>", 2},
      {"negative count", tree + "/Kids [3 0 R] /Count -7 >>", head + ">>"},
      {"count too large", tree + "/Kids [3 0 R] /Count 2147483648 >>", head + ">>"},
      {"count of a name", tree + "/Kids [3 0 R] /Count /Many >>", head + ">>"},
      {"tree with a loop", tree + "/Kids [2 0 R 3 0 R 2 0 R] >>", head + ">>"},
      {"tree that is the page", head + ">>", ""},
      {"tree that is a page called pages", tree + "/Contents 4 0 R >>", ""},
      {"tree without kids", tree + ">>", head + "/Parent 2 0 R >>"},
      {"tree of nothing but a loop", tree + "/Kids [2 0 R] >>", head + "/Parent 2 0 R >>"},
      {"tree that cannot be read", "<< /Kids [3 0 R] ) (x", head + "/Parent 2 0 R >>"},
      {"page of a circle of parents", tree + "/Parent 3 0 R >>", head + "/Parent 2 0 R >>"},
  };
  for (const auto& each : cases) {
    HandMade file = OnePage();
    if (!each.pages.empty()) file.objects[1] = each.pages;
    file.objects[2] = each.page;
    file.objects.emplace_back("<< /Type /Page (not closed");
    try {
      ParsedFile parsed(file.Bytes());
      EXPECT_EQ(parsed.PageCount(), each.count) << each.name;
      EXPECT_EQ(parsed.JoinedContents(parsed.Page(1)), kContents) << each.name;
    } catch (const Error& error) {
      ADD_FAILURE() << each.name << ": " << error.what();
    }
  }
}

TEST(Reader, DeepTreesAreWalked) {
  constexpr int kLevels = 20000;
  HandMade file = OnePage();
  file.objects[1] = "<< /Type /Pages /Kids [6 0 R] /MediaBox [0 0 9 9] >>";
  for (int number = 6; number < 6 + kLevels; ++number) {
    file.objects.push_back("<< /Type /Pages /Kids [" + std::to_string(number + 1) + " 0 R] >>");
  }
  file.objects.push_back("<< /Type /Page /Contents 4 0 R >>");
  ParsedFile parsed(file.Bytes());
  ASSERT_EQ(parsed.PageCount(), 1);
  EXPECT_EQ(parsed.JoinedContents(parsed.Page(1)), kContents);
  EXPECT_EQ(parsed.MediaBox(parsed.Page(1)).x1, 9);
}

// Pages whose tree is lost inherit from those that they call their parents.
TEST(Reader, LostPagesInherit) {
  HandMade file = OnePage();
  file.objects[0] = "<< /Type /Catalog >>";
  ParsedFile parsed(file.Bytes());
  EXPECT_EQ(parsed.MediaBox(parsed.Page(1)).x1, 595);
  EXPECT_NE(parsed.Page(1).resources, nullptr);
}

TEST(Reader, NumbersMayBeReferences) {
  HandMade file = OnePage();
  file.objects[2] =
      "<< /Type /Page /Contents 6 0 R /MediaBox 7 0 R /CropBox [8 0 R 8 0 R 9 0 R 9 0 R] /Rotate "
      "10 0 R /UserUnit 8 0 R >>";
  file.objects.push_back(StreamText(EncodeAsciiHex(kContents), "/Filter 11 0 R /Length 12 0 R"));
  file.objects.push_back("[0 0 9 0 R 9 0 R]");
  for (const char* number : {"2", "50", "90"}) file.objects.emplace_back(number);
  file.objects.emplace_back("[13 0 R]");
  file.objects.emplace_back("8 0 R");
  file.objects.emplace_back("/ASCIIHexDecode");
  ParsedFile parsed(file.Bytes());
  const PageNode& page = parsed.Page(1);
  EXPECT_EQ(parsed.JoinedContents(page), kContents);
  EXPECT_EQ(parsed.MediaBox(page).x1, 50);
  EXPECT_EQ(parsed.CropBox(page).x0, 2);
  EXPECT_EQ(parsed.Rotation(page), 90);
  EXPECT_EQ(parsed.UserUnit(page), 2);
}

TEST(Reader, WhatCannotBeReadThrows) {
  const std::string plain = OnePage().Bytes();
  HandMade noPages = OnePage();
  noPages.objects[1] = "<< /Type /Pages /Kids [] >>";
  noPages.objects[2] = "";
  HandMade circle = noPages;
  circle.objects[1] = "<< /Type /Pages /Kids [2 0 R 2 0 R] >>";
  HandMade deep = OnePage();
  deep.objects[1] = std::string(100000, '[');
  deep.objects[2] = "";
  const struct {
    const char* name;
    std::string bytes, reason;
  } cases[] = {
      {"empty", "", "not a PDF"},
      {"text", "banana", "not a PDF"},
      {"header alone", "%PDF-1.4", "not a PDF"},
      {"encrypted", Replaced(plain, "/Root", "/Encrypt 5 0 R /Root"), "encrypted"},
      {"encrypted and broken",
       Replaced(Replaced(plain, "/Root", "/Encrypt 5 0 R /Root"), "startxref\n", "startxref\n9"),
       "encrypted"},
      {"no pages", noPages.Bytes(), "no pages"},
      {"tree in circles", circle.Bytes(), "no pages"},
      {"nested", deep.Bytes(), "no pages"},
      {"zeros", "%PDF-1.7" + std::string(100000, '\0'), "not a PDF"},
  };
  for (const auto& each : cases) {
    try {
      ContentsOf(each.bytes);
      ADD_FAILURE() << each.name;
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find(each.reason), std::string::npos)
          << each.name << ": " << error.what();
    }
  }
  ParsedFile file(plain);
  for (const int page : {0, -1, 2, 2147483647}) EXPECT_THROW(file.Page(page), Error);
}

TEST(Reader, BombsAndGiantsEndSoon) {
  HandMade bomb = OnePage();
  bomb.objects[2] = "<< /Type /Page /Contents [4 0 R 4 0 R 4 0 R 4 0 R 4 0 R] >>";
  bomb.objects[3] =
      StreamText(EncodeFlate(std::string(std::size_t{60} << 20, ' ')), "/Filter /FlateDecode");
  EXPECT_THROW(ContentsOf(bomb.Bytes()), Error);

  // Strings in strings, each an object of its own to a scan.
  std::string nested = "%PDF-1.4\n";
  std::string kids;
  for (int i = 10; i < 40010; ++i) {
    nested += std::to_string(i) + " 0 obj (";
    kids += std::to_string(i) + " 0 R ";
  }
  nested += std::string(40000, ')') + "\n1 0 obj << /Type /Catalog /Pages 2 0 R >> endobj\n";
  nested += "2 0 obj << /Type /Pages /Kids [" + kids + "] >> endobj\ntrailer << /Root 1 0 R >>";
  EXPECT_THROW(ContentsOf(nested), Error);

  // A chain of lengths, each object's told by the next.
  HandMade chain = OnePage();
  for (int i = 6; i < 5000; ++i) {
    chain.objects.push_back("<< /Length " + std::to_string(i + 1) + " 0 R >> stream\n\nendstream");
  }
  chain.objects[3] = Replaced(chain.objects[3], "/Length 24", "/Length 6 0 R");
  EXPECT_EQ(ContentsOf(chain.Bytes()), kContents);
}

// As the last thing in a stream of objects such a string would swallow what is written behind it.
TEST(Reader, StringsThatAreNotClosedAreNone) {
  for (const char* text : {"(abc", "(a(b)", "(a\\)", "(", "<12", "<"}) {
    Tokens tokens(text);
    EXPECT_EQ(tokens.Next().kind, TokenKind::End) << text;
    EXPECT_EQ(tokens.Position(), std::string_view(text).size()) << text;
  }
}

// Bytes are cut off, changed and left out one after the other: whatever comes of it, it ends.
TEST(Reader, EveryDamageEnds) {
  for (const std::string& bytes : {OnePage().Bytes(), WithStreams(false), Hybrid()}) {
    int read = 0;
    const auto tryOut = [&read](const std::string& damaged) {
      try {
        ContentsOf(damaged);
        ++read;
      } catch (const Error&) {
      }
    };
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      tryOut(bytes.substr(0, at));
      tryOut(bytes.substr(0, at) + bytes.substr(at + 1));
      std::string changed = bytes;
      changed[at] = static_cast<char>(changed[at] ^ 0x11);
      tryOut(changed);
    }
    EXPECT_GT(read, static_cast<int>(bytes.size()));  // most damage is repaired
  }
}

TEST(Reader, PagesInheritInPageOrder) {
  HandMade file = OnePage();
  file.objects[1] =
      "<< /Type /Pages /Kids [3 0 R 6 0 R << /Type /Page /MediaBox [9 9 1 1] >> ] "
      "/MediaBox [0 0 100 200] /Rotate 90 >>";
  file.objects.push_back("<< /Kids [7 0 R 8 0 R 6 0 R] /Rotate -90 /MediaBox 9 0 R >>");
  file.objects.push_back("<< /Type /Page /MediaBox [10 0 R 2 +3. 4.5] /Rotate 450 >>");
  file.objects.push_back("<< /Type /Page /Rotate 45 >>");
  file.objects.push_back("[0 0 (x) 5]");
  file.objects.push_back("-.5");
  ParsedFile parsed(file.Bytes());
  const struct {
    Box box;
    int rotation;
  } expected[] = {
      {{0, 0, 100, 200}, 90}, {{-0.5, 2, 3, 4.5}, 90}, {{0, 0, 612, 792}, 0}, {{1, 1, 9, 9}, 90}};
  ASSERT_EQ(parsed.PageCount(), 4);
  for (int page = 1; page <= 4; ++page) {
    const auto& [box, rotation] = expected[page - 1];
    const Box found = parsed.MediaBox(parsed.Page(page));
    EXPECT_EQ(std::vector({found.x0, found.y0, found.x1, found.y1}),
              std::vector({box.x0, box.y0, box.x1, box.y1}))
        << page;
    EXPECT_EQ(parsed.Rotation(parsed.Page(page)), rotation) << page;
  }
}

TEST(Reader, InformationOfAFile) {
  HandMade file = OnePage();
  file.header = "%PDF-1.5\r%\xE2\xE3\xCF\xD3\r";
  file.objects[0] =
      "<< /Type /Catalog /Pages 2 0 R /Version /1.7 /OutputIntents [<< /S /GTS_PDFA1 >>] >>";
  file.trailer =
      "/Root 1 0 R /Info << /Title (A \\(b\\) \\101\\r\\\nc) /Author <FEFF00C5 2013D83DDE00> "
      "/Creator (\\240 5\\225) /Producer 12 /Subject (\xEF\xBB\xBF\xC3\xA9) >>";
  ParsedFile parsed(file.Bytes());
  const FileInfo info = ReadFileInfo(parsed);
  EXPECT_EQ(info.title, "A (b) A\rc");
  EXPECT_EQ(info.author, FromUtf8("\u00C5\u2013?"));
  EXPECT_EQ(info.creator, FromUtf8("\u20AC 5\u0141"));
  EXPECT_EQ(info.producer, "");
  EXPECT_EQ(info.subject, FromUtf8("\u00E9"));
  EXPECT_EQ(info.version, 7);
  EXPECT_EQ(info.pages, 1);
  EXPECT_TRUE(info.pdfA);

  HandMade metadata = OnePage();
  metadata.header = "%PDF-2.0\n";
  metadata.objects[0] = "<< /Pages 2 0 R /Type /Catalog /Metadata 6 0 R >>";
  metadata.objects.push_back(
      StreamText(EncodeFlate("<x xmlns:pdfaid='y'/> xmlns:pdfaid="), "/Filter /FlateDecode"));
  ParsedFile second(metadata.Bytes());
  EXPECT_EQ(ReadFileInfo(second).version, 20);
  EXPECT_TRUE(ReadFileInfo(second).pdfA);
  ParsedFile third(OnePage().Bytes());
  EXPECT_FALSE(ReadFileInfo(third).pdfA);
}

TEST(Reader, ReadsWhatQpdfWrites) {
  test::TempDirectory directory;
  const std::string source = (directory.Path() / "a.pdf").string();
  const std::string target = (directory.Path() / "b.pdf").string();
  std::string error;
  ASSERT_TRUE(ReplaceFile(source, OnePage().Bytes(), error));
  for (const char* options : {"--object-streams=generate", "--linearize", "--qdf",
                              "--linearize --object-streams=generate", "--force-version=2.0",
                              "--object-streams=generate --compress-streams=n"}) {
    const std::string command =
        "qpdf " + std::string(options) + " '" + source + "' '" + target + "'";
    ASSERT_EQ(test::RunTool(command), 0);
    const auto file = ParsedFile::Read(target);
    const std::string contents = file->JoinedContents(file->Page(1));
    EXPECT_TRUE(contents.starts_with(kContents)) << options << ": " << contents;
  }
  const std::string encrypt =
      "qpdf --encrypt a b 128 -- '" + source + "' '" + target + "' 2>/dev/null";
  test::RunTool(encrypt);
  EXPECT_THROW(ParsedFile::Read(target), Error);
}

TEST(Reader, CacheReadsAChangedFileAgain) {
  test::TempDirectory directory;
  const auto path = directory.Path() / "a.pdf";
  std::string error;
  ASSERT_TRUE(ReplaceFile(path, OnePage("first").Bytes(), error));
  FileCache cache;
  const auto first = cache.Open(path);
  EXPECT_EQ(cache.Open(path), first);
  ASSERT_TRUE(ReplaceFile(path, OnePage("another").Bytes(), error));
  const auto second = cache.Open(path);
  EXPECT_EQ(second->JoinedContents(second->Page(1)), "another");
  EXPECT_EQ(first->JoinedContents(first->Page(1)), "first");
  std::filesystem::remove(path);
  try {
    cache.Open(path);
    FAIL();
  } catch (const Error& missing) {
    EXPECT_EQ(missing.Number(), 53);
  }
}

}  // namespace
}  // namespace lm::pdf
