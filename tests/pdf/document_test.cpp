// The frame of a document: its pages, settings and what it tells about itself.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <regex>

#include "core/files.h"
#include "core/text.h"
#include "pdf/clsPDFCreator.h"
#include "pdf/data/srgb.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

std::string Bytes(const fs::path& path) {
  std::string error;
  return ReadFile(path, error).value_or("");
}

// Output of a command, with what it told on the error channel.
std::string OutputOf(const std::string& command) { return test::OutputOf(command + " 2>&1"); }

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
    ++count;
  return count;
}

bool Has(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

class DocumentTest : public testing::Test {
 protected:
  test::TempDirectory directory_;
  test::ScriptedPlatform platform_;
  fs::path path_ = directory_.Path() / "out.pdf";
  clsPDFCreator writer_{platform_};

  void Begin() { writer_.BeginDoc(PathText(path_)); }

  // Ends the document, which must be faultless, and gives the file's bytes.
  std::string End() {
    writer_.EndDoc();
    EXPECT_EQ(writer_.ErrDescription(), "");
    const std::string report = OutputOf("qpdf --check " + path_.string());
    EXPECT_TRUE(Has(report, "No syntax or stream encoding errors found")) << report;
    EXPECT_FALSE(Has(report, "WARNING")) << report;
    const std::string bytes = Bytes(path_);
    EXPECT_EQ(writer_.FileSize(), std::ssize(bytes));
    return bytes;
  }

  // Width x height and rotation of each page, as a reader sees them.
  std::string PageSizes() {
    const std::string report = OutputOf("pdfinfo -f 1 -l 99 " + path_.string());
    const std::regex line("Page +\\d+ (size|rot): +(\\d+)");
    std::string sizes;
    for (std::sregex_iterator it(report.begin(), report.end(), line), end; it != end; ++it)
      sizes += (*it)[1] == "size" ? (*it)[2].str() : "/" + (*it)[2].str() + " ";
    return sizes;
  }
};

TEST_F(DocumentTest, WithoutPagesHasOneBlankPage) {
  Begin();
  const std::string bytes = End();
  EXPECT_TRUE(bytes.starts_with("%PDF-1.3\n%\xFF\xFF\xFF\xFF\n% PageWriter Library 2020.1\n"));
  EXPECT_TRUE(Has(bytes, "1 0 0 -1 0 842 cm \r"));
  EXPECT_TRUE(Has(bytes, "/Type /Pages /Count 1"));
  EXPECT_EQ(PageSizes(), "596/0 ");

  // Every line of the table leads to its object.
  const std::size_t table = bytes.rfind("\nxref\n0 ") + 1;
  const int count = std::stoi(bytes.substr(table + 7));
  std::size_t line = bytes.find('\n', table + 7) + 1;
  for (int number = 1; number < count; ++number) {
    const std::string entry = bytes.substr(line + 20 * static_cast<std::size_t>(number), 20);
    EXPECT_EQ(entry.substr(10), " 00000 n\r\n");
    const std::string object = std::to_string(number) + " 0 obj\n";
    EXPECT_EQ(bytes.substr(std::stoul(entry), object.size()), object);
  }
  EXPECT_TRUE(bytes.ends_with("startxref\n" + std::to_string(table) + "\n%%EOF\n"));
}

TEST_F(DocumentTest, MakesUpANameAndOpensWhatIsFinished) {
  const fs::path before = fs::current_path();
  fs::current_path(directory_.Path());
  const std::string name = writer_.BeginDoc();
  std::string opened;
  const auto open = [&](std::string_view file) { opened = file; };
  writer_.OpenDoc(open);
  EXPECT_EQ(opened, "");
  EXPECT_EQ(writer_.ErrSource(), "PageWriter.OpenDoc");
  writer_.EndDoc();
  writer_.OpenDoc(open);
  EXPECT_TRUE(std::regex_match(name, std::regex("~[0-9A-F]{6}\\.pdf"))) << name;
  EXPECT_EQ(opened, name);
  EXPECT_TRUE(fs::exists(name));
  fs::current_path(before);
}

TEST_F(DocumentTest, KeepsPagesInOrder) {
  Begin();
  const auto page = [&](int position, int width) {
    if (writer_.GetPages() > 0) writer_.EndPage();
    writer_.SetPaperSize(255, width, 100);
    return writer_.BeginPage(position);
  };
  EXPECT_EQ(writer_.GetPage(), 0);
  EXPECT_EQ(page(0, 201), 1);
  writer_.SetPageView(3);  // this page's
  EXPECT_EQ(page(0, 202), 2);
  writer_.BeginOnPage(2);
  writer_.EndOnPage();
  writer_.SetPageView(2);  // of those to come
  EXPECT_EQ(writer_.BeginPage(1), 1);
  writer_.SetPaperSize(255, 203, 100);  // of the open page
  EXPECT_EQ(page(99, 204), 4);
  writer_.SwapPages(4, 2);
  EXPECT_EQ(writer_.GetPage(), 2);
  EXPECT_EQ(writer_.GetPages(), 4);
  EXPECT_EQ(writer_.ErrNumber(), 0);
  writer_.SwapPages(1, 5);
  EXPECT_EQ(writer_.ErrDescription(), "There is no page 5");
  writer_.EndDoc();
  EXPECT_EQ(PageSizes(), "203/180 204/180 202/0 201/90 ");
}

TEST_F(DocumentTest, OpensAWrittenPageAgain) {
  Begin();
  writer_.SetPaperSize(4);
  writer_.BeginPage();
  writer_.SetPaperSize(255, 300, 400);
  writer_.DrawLine(1, 2, 3, 4);
  writer_.EndPage();
  writer_.SetPaperSize(8);
  writer_.BeginPage();
  writer_.BeginOnPage(1);
  EXPECT_EQ(writer_.GetPage(), 1);
  EXPECT_EQ(writer_.GetPageHeight(), 400);
  writer_.SetXY(5, 6);
  writer_.DrawLine(7, 8, 9, 10);
  writer_.EndOnPage();
  EXPECT_EQ(writer_.GetPageHeight(), 792);
  EXPECT_EQ(writer_.BeginPage(), 3);
  const std::string bytes = End();
  EXPECT_EQ(PageSizes(), "300/0 612/0 612/0 ");
  EXPECT_TRUE(Has(bytes, "/Contents [4 0 R 8 0 R]"));
  EXPECT_EQ(Count(bytes, " 0 0 -1 0 400 cm"), 1u);  // the page is turned once
  EXPECT_TRUE(Has(bytes, "7 8 m 9 10 l"));

  writer_.EndOnPage();
  EXPECT_EQ(writer_.ErrSource(), "PageWriter.EndOnPage");
  writer_.BeginOnPage(1);
  EXPECT_EQ(writer_.ErrDescription(), "No document is open");
}

// What texts are measured with is what the page's contents say.
TEST_F(DocumentTest, BeginsPagesWithoutSpacingsAndOpensThemWithThoseInForce) {
  const auto setAll = [&](double value, int mode) {
    writer_.SetCharSpacing(value);
    writer_.SetWordSpacing(value);
    writer_.SetTextHorizontalScaling(value);
    writer_.SetTextMode(mode);
  };
  Begin();
  writer_.BeginPage();
  const double width = writer_.GetTextWidth("a b");
  setAll(50, 3);
  EXPECT_NE(writer_.GetTextWidth("a b"), width);
  writer_.BeginPage();
  EXPECT_EQ(writer_.GetTextWidth("a b"), width);
  writer_.BeginOnPage(1);
  EXPECT_EQ(writer_.GetTextWidth("a b"), width);
  writer_.EndOnPage();
  writer_.BeginPage();
  setAll(25, 2);
  writer_.BeginOnPage(2);
  const std::string bytes = End();
  EXPECT_EQ(Count(bytes, "0 Tc\n0 Tw\n100 Tz\n0 Tr\n"), 1u);
  EXPECT_EQ(Count(bytes, "25 Tc\n25 Tw\n25 Tz\n2 Tr\n"), 2u);  // the last page, and the second
}

TEST_F(DocumentTest, GoesOnInTheCoordinatesThatAPageEndedWith) {
  Begin();
  writer_.BeginPage();
  writer_.AxisTranslation(100, 200);
  writer_.BeginPage();
  writer_.BeginOnPage(1);
  writer_.DrawRect(10, 20, 30, 40);
  writer_.LinkTo("http://example.org");
  EXPECT_TRUE(Has(End(), "/Rect [110 582 140 622]"));
}

TEST_F(DocumentTest, PlaceHoldersKnowPatternsOnlyWhenInOne) {
  for (const bool patterned : {false, true}) {
    Begin();
    writer_.BeginPage();
    writer_.AddGradient("fade", 0, "RED", "BLUE", 0, 0, 100, 0);
    if (patterned) writer_.SetColorText("fade");
    writer_.DrawPlaceHolder("#PAGES", 10, 20, 30);
    const std::string bytes = End();
    const std::size_t form = bytes.find("/Matrix [1 0 0 1 0 0] /Resources << ");
    const std::string dictionary = bytes.substr(form, bytes.find("stream", form) - form);
    EXPECT_EQ(Has(dictionary, "/Pattern << /A"), patterned) << dictionary;
  }
}

TEST_F(DocumentTest, TakesSettingsInsideTheirRange) {
  EXPECT_EQ(writer_.GetPageWidth(), 596);
  writer_.SetScale(2);
  writer_.SetScale(4);
  writer_.SetScale(255, 0);
  writer_.SetPaperSize(18);
  writer_.SetPaperSize(255, 10, -1);
  EXPECT_DOUBLE_EQ(writer_.GetPageWidth(), 596 / 2.834645510);
  EXPECT_EQ(writer_.GetPageWidth(false), 596);
  writer_.SetPaperSize(-8);
  EXPECT_EQ(writer_.GetPageHeight(false), 3371);
  writer_.SetPaperSize(255, 100, 50);
  writer_.SetPrecision(2);
  writer_.SetPrecision(7);
  writer_.SetMemoryUsage(10);
  writer_.SetMemoryUsage(11);
  writer_.SetMargins(10, 20, 5, 15, true);
  writer_.SetXY(25.4, 1);
  EXPECT_DOUBLE_EQ(writer_.GetX(), 25.4);
  Begin();
  writer_.BeginPage();
  EXPECT_EQ(writer_.GetX(), 0);
  const std::string bytes = End();
  EXPECT_TRUE(Has(bytes, "1 0 0 -1 0 141.73 cm \r28.35 14.17 198.43 85.04 re W n\r"));
  EXPECT_TRUE(Has(bytes, "/MediaBox [0 0 283.46 141.73]\r/CropBox [0 0 283.46 141.73]\r"));
  EXPECT_EQ(writer_.Version(), "2020.1");
}

TEST_F(DocumentTest, WritesViewerPreferences) {
  struct Case {
    std::int32_t flags;
    const char* entries;
    int version;
  };
  for (const Case& each : {
           Case{8192, "", 3},
           Case{16384, "/PageLayout /OneColumn ", 3},
           Case{-32768 | 0x1000 | 1,
                "/PageLayout /TwoColumnLeft /PageMode /FullScreen /ViewerPreferences << "
                "/FitWindow true >>\r",
                3},
           Case{65536 | 2, "/PageLayout /TwoColumnRight ", 3},  // there are no bookmarks
           Case{16384 | 65536 | 3, "", 3},
           Case{8, "/PageMode /UseOC ", 5},
           Case{16, "/PageMode /UseAttachments ", 6},
           Case{0x3E0 | 4,
                "/PageMode /UseThumbs /ViewerPreferences << /HideMenubar true /HideToolbar true "
                "/HideWindowUI true /DisplayDocTitle true /CenterWindow true >>\r",
                4},
       }) {
    writer_.SetViewerPreferences(each.flags);
    Begin();
    const std::string bytes = End();
    const std::size_t catalog = bytes.find("/Type /Catalog");
    const std::size_t metadata = bytes.find('\r', bytes.find("/Metadata", catalog));
    const std::string entries =
        bytes.substr(metadata + 1, bytes.find(">>\nendobj", catalog) - metadata - 1);
    EXPECT_EQ(entries, each.entries) << each.flags;
    EXPECT_EQ(bytes.substr(0, 9), "%PDF-1." + std::to_string(each.version) + "\n") << each.flags;
  }
}

TEST_F(DocumentTest, TellsAboutItself) {
  Begin();
  std::string bytes = End();
  EXPECT_TRUE(Has(bytes, "<< /Title (senza titolo)\r") ||
              Has(bytes, "/Title (\\(senza titolo\\))"));
  EXPECT_TRUE(Has(bytes,
                  "/Author (PageWriter Team)\r/Creator (PageWriter 6.0)\r"
                  "/Producer (PageWriter Library 2020.1)\r"
                  "/CreationDate (D:20260203103000+01'00')\r"));

  writer_.SetDocProperty("\x80 <b> & \x93q\x94", "About\x01", "", "LM", "", "k1");
  writer_.SetDocProperty("\x80 <b> & \x93q\x94", "About\r\x01", "J\xF6rg", "", "", "k1, k2");
  Begin();
  bytes = End();
  const std::string report =
      OutputOf("pdfinfo -meta " + path_.string()) + OutputOf("pdfinfo " + path_.string());
  for (const char* part :
       {"Title:           € <b> & “q”\n", "Author:          Jörg\n", "Creator:         LM\n",
        "Producer:        PageWriter Library 2020.1\n", "Keywords:        k1, k2\n",
        "<rdf:li xml:lang='x-default'>€ &lt;b&gt; &amp; “q”</rdf:li>", ">About&#13; </rdf:li>",
        "<xap:CreateDate>2026-02-03T10:30:00+01:00</xap:CreateDate>",
        "<xap:MetadataDate>2026-02-03T10:30:00+01:00</xap:MetadataDate>",
        "<pdf:Keywords>k1, k2</pdf:Keywords>", "id='W5M0MpCehiHzreSzNTczkc9d'",
        "<?xpacket end='r'?>"})
    EXPECT_TRUE(Has(report, part)) << part << report;
  EXPECT_FALSE(Has(report, "pdfaid"));
  EXPECT_TRUE(Has(bytes, "/Subject (About\\r )\r"));  // as the packet tells it

  // Standard MD5 of the creation date.
  const std::regex id("/ID \\[<([0-9A-F]{32})><([0-9A-F]{32})>\\]");
  std::smatch found;
  ASSERT_TRUE(std::regex_search(bytes, found, id));
  EXPECT_EQ(found[1], found[2]);
  EXPECT_EQ(ToLower(std::string(found[1])),
            OutputOf("printf %s \"D:20260203103000+01'00'\" | md5sum").substr(0, 32));
}

TEST_F(DocumentTest, CarriesWhatPdfANeeds) {
  EXPECT_EQ(pdf::SrgbProfile().size(), 6922u);
  EXPECT_EQ(pdf::SrgbProfile().substr(12, 12), "mntrRGB XYZ ");
  writer_.SetPDFa(true);
  writer_.SetProtection(4, "a", "b");
  EXPECT_EQ(writer_.ErrDescription(), "PDF/A allows no encryption");
  writer_.Abort();
  Begin();
  writer_.BeginPage();
  writer_.EndPage();
  writer_.SetPDFa(true);  // pages might hold anything by now
  EXPECT_EQ(writer_.ErrSource(), "PageWriter.SetPDFa");
  writer_.EndDoc();
  EXPECT_FALSE(Has(Bytes(path_), "pdfaid"));

  writer_.Abort();
  writer_.SetPDFa(true);
  writer_.SetCompression(4, 0, 0);
  writer_.SetViewerPreferences(16384);
  Begin();
  const std::string bytes = End();
  EXPECT_TRUE(bytes.starts_with("%PDF-1.4\n"));
  EXPECT_FALSE(Has(bytes, "/LZWDecode"));
  EXPECT_TRUE(Has(bytes, "<</N 3 /Length 6922 >>\rstream\r\n" + std::string(pdf::SrgbProfile())));
  EXPECT_TRUE(Has(bytes, "/OutputIntents [ "));
  EXPECT_TRUE(Has(bytes,
                  "    <pdfaid:part>1</pdfaid:part>\n"
                  "    <pdfaid:conformance>B</pdfaid:conformance>\n"));
  EXPECT_TRUE(Has(bytes,
                  "/ViewerPreferences << /HideMenubar true /HideToolbar true "
                  "/HideWindowUI true /DisplayDocTitle true /FitWindow true >>"));
  EXPECT_FALSE(Has(bytes, "/PageLayout"));
}

TEST_F(DocumentTest, CompressesByClass) {
  for (const int setting : {1, 2, 0x902, 4, 8, 16, 31}) {
    writer_.SetCompression(setting, setting, setting);
    Begin();
    writer_.BeginPage();
    for (int i = 0; i < 100; ++i) writer_.DrawLine(i, i, 200, 300);
    const std::string bytes = End();
    EXPECT_EQ(Has(bytes, "200 300 l"), setting == 1) << setting;  // literals of run lengths
    const std::string plain = OutputOf("qpdf --qdf --decode-level=all " + path_.string() + " -");
    EXPECT_EQ(Count(plain, "200 300 l"), 100u) << setting;
  }
}

TEST_F(DocumentTest, ReportsTroubleAndGoesOn) {
  const std::string missing = PathText(directory_.Path() / "none" / "x.pdf");
  EXPECT_EQ(writer_.BeginDoc(missing), "");
  EXPECT_EQ(writer_.ErrNumber(), 75);
  EXPECT_TRUE(writer_.ErrDescription().starts_with(missing + " - The file cannot be written: "));
  EXPECT_EQ(writer_.BeginPage(), 0);
  EXPECT_EQ(writer_.ErrSource(), "PageWriter.BeginPage");
  writer_.EndPage();
  EXPECT_EQ(writer_.ErrDescription(), "No page is open");
  writer_.EndDoc();
  EXPECT_EQ(writer_.ErrDescription(), "No document is open");

  writer_.Abort();
  EXPECT_EQ(writer_.ErrDescription(), "");
  writer_.SetScale(2);
  Begin();
  writer_.BeginPage();
  writer_.DrawLine(1, 1, 2, 2);
  Begin();  // gives the first one up, and keeps the settings
  EXPECT_EQ(writer_.GetPages(), 0);
  EXPECT_NEAR(writer_.GetPageHeight(), 297, 0.1);
  End();
}

TEST_F(DocumentTest, GrowsByPageRecordsOnly) {
  writer_.SetCompression(4, 0, 0);
  Begin();
  for (int page = 0; page < 300; ++page) {
    writer_.BeginPage(page % 2);
    for (int i = 0; i < 40; ++i) writer_.DrawRect(i, i, 10, 10, 0);
  }
  const std::string bytes = End();
  EXPECT_EQ(Count(bytes, "/Type /Page "), 300u);
}

}  // namespace
}  // namespace lm
