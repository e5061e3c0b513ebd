#include "pdf/annotations.h"

#include <functional>

#include "core/text.h"
#include "tests/pdf/annotated_pdf.h"

namespace lm::test {
namespace {

// A drawing whose box is 100, 50 to 180, 80 from the top left.
void DrawBox(clsPDFCreator& pdf) { pdf.DrawRect(100, 50, 80, 30); }

TEST(LinkTo, WritesEachKindOfTarget) {
  struct Case {
    const char* target;
    const char* written;
  };
  const Case cases[] = {
      {"http://example.org/a", "/A << /S /URI /URI (http://example.org/a) >> "},
      {"HTTPS://example.org", "/A << /S /URI /URI (HTTPS://example.org) >> "},
      {"mailto:a@b.org", "/A << /S /URI /URI (mailto:a@b.org) >> "},
      {"http://x/a b(\xE9)", "/URI (http://x/a%20b\\(%C3%A9\\)) >> "},
      {"file:terms.pdf", "<< /Type /Action /S /GoToR /F (terms.pdf) /D [-1 /XYZ 0 0 0] >> "},
      {"file:///home/a.pdf", "/F (/home/a.pdf) /D"},
      {"file:C:\\x\\a.pdf", "/F (/C/x/a.pdf) /D"},
      {"file:///c:/a.pdf", "/F (/c/a.pdf) /D"},
      {"file:/", "/F (/) /D"},
      {"file:\\\\host\\a.pdf", "/F (//host/a.pdf) /D"},
      {"script:app.beep(0);", "/A << /S /JavaScript /JS "},
      {"page:1", "/Dest ["},
  };
  for (const Case& c : cases) {
    AnnotatedPdf file;
    DrawBox(file.pdf);
    file.pdf.LinkTo(c.target);
    const std::string bytes = file.Finish();
    EXPECT_TRUE(Has(bytes, c.written)) << c.target;
    EXPECT_TRUE(Has(bytes, "/Subtype /Link /Rect [100 762 180 792] /Border [ 0 0 0]  /H /I"))
        << c.target;
  }
}

TEST(LinkTo, RefusesWhatLeadsNowhere) {
  for (const char* target : {"",
                             "http",
                             "ftp://example.org",
                             "www.example.org",
                             "layer:",
                             "layer:ON",
                             "layer:ON()",
                             "layer:ON(A",
                             "layer:HIDE(A)",
                             "layer:)ON(",
                             "bookmark:",
                             "bookmark:1",
                             "bookmark:@",
                             "bookmark:-1",
                             "page:one",
                             "page:1,Near",
                             "page:1,XYZ,a",
                             "page:1,XYZ,1,2,3,4",
                             "page:+",
                             "ref:",
                             "script:",
                             "http:"}) {
    AnnotatedPdf file;
    DrawBox(file.pdf);
    file.pdf.LinkTo(target);
    EXPECT_EQ(file.pdf.ErrNumber(), 5) << target;
    EXPECT_FALSE(Has(file.Finish(), "/Annot")) << target;
  }
}

TEST(LinkTo, DrawsBordersAndHighlights) {
  AnnotatedPdf file;
  DrawBox(file.pdf);
  const char* highlights[] = {" /H /N", " /H /I", " /H /O", " /H /P"};
  for (int i = 0; i < 4; ++i) file.pdf.LinkTo("http:x", 1.5, i);
  file.pdf.LinkTo("http:none", 1.5, 4);
  const std::string bytes = file.Finish();
  for (const char* highlight : highlights)
    EXPECT_TRUE(Has(bytes, std::string("/Border [ 0 0 1.5]\r") + highlight)) << highlight;
  EXPECT_TRUE(Has(bytes, "/Border [ 0 0 1.5]\r /A << /S /URI /URI (http:none)"));
}

TEST(LinkTo, ScriptsSwitchLayers) {
  AnnotatedPdf file;
  DrawBox(file.pdf);
  file.pdf.LinkTo("layer:ON(Front, It's)off(Back)Toggle(Grid)");
  const std::string bytes = file.Finish();
  const std::string script = ObjectOf(bytes, NumberAfter(bytes, "/S /JavaScript /JS "));
  for (const char* piece :
       {"var ocgArray = this.getOCGs();", "for (var i=0; i < ocgArray.length; i++) {",
        "if (ocgArray[i].name == 'Front') { ocgArray[i].state = true; };",
        "if (ocgArray[i].name == 'It\\'s') { ocgArray[i].state = true; };",
        "if (ocgArray[i].name == 'Back') { ocgArray[i].state = false; };",
        "if (ocgArray[i].name == 'Grid') { ocgArray[i].state = !ocgArray[i].state; };"})
    EXPECT_TRUE(Has(script, piece)) << piece;
}

TEST(DrawNote, WritesNotesThatViewersDraw) {
  AnnotatedPdf file;
  file.pdf.DrawNote(0, "Paid in full \x80 5", 50, 50, 200, 40, "Anna", "#FFFF80", 1);
  file.pdf.DrawNote(1, "Ask again", 50, 150, 20, 20, "Ben");
  file.pdf.DrawNote(2, "approved", 50, 250, 200, 60);
  file.pdf.DrawNote(2, "Banked (2)", 50, 350, 200, 60, "", "%0.5");
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "<< /Type /Annot /Subtype /FreeText/Rect [50 752 250 792] /F 4 "));
  EXPECT_TRUE(Has(bytes, "/Q 1 /BS << "));
  EXPECT_TRUE(Has(bytes, "/Subtype /Text /Name /Note/Rect [50 672 70 692] /F 28 "));
  EXPECT_TRUE(Has(bytes, "/Subtype /Stamp /Name /Approved"));
  EXPECT_TRUE(Has(bytes, "/Subtype /Stamp /Name /Banked#20#282#29"));
  for (const int top : {50, 150, 250, 350}) EXPECT_GT(file.Inked(50, top, 70, top + 20), 20) << top;
  const std::string note = ObjectOf(bytes, NumberAfter(bytes, "/Annots [ "));
  const std::string picture = PictureOf(bytes, note);
  for (const char* piece :
       {"/Resources << ", "/Font << /A", "1 1 0.502 rg", "(Paid in full \x80 5) Tj"})
    EXPECT_TRUE(Has(picture, piece)) << piece;
  EXPECT_TRUE(Has(bytes, "(Banked \\(2\\)) Tj"));
  EXPECT_TRUE(Has(bytes, "/C [0.5 0.5 0.5] "));  // of three numbers for every viewer
}

TEST(DrawNote, RefusesNonsense) {
  struct Case {
    int type;
    const char* text;
    double width;
    const char* colour;
  };
  for (const Case& c : {Case{-1, "x", 10, ""}, Case{3, "x", 10, ""}, Case{0, "x", 0, ""},
                        Case{2, "", 10, ""}, Case{1, "x", 10, "no colour"}}) {
    AnnotatedPdf file;
    file.pdf.DrawNote(c.type, c.text, 10, 10, c.width, 10, "", c.colour);
    EXPECT_EQ(file.pdf.ErrNumber(), 5) << c.type << c.text;
    EXPECT_FALSE(Has(file.Finish(), "/Annot")) << c.type << c.text;
  }
}

TEST(DrawNote, WrapsAndAlignsItsText) {
  AnnotatedPdf file;
  file.pdf.SetFont("Arial", 20);
  for (const int alignment : {0, 1, 2, 3})
    file.pdf.DrawNote(0, "I I I I I I", 50, 50 + 100 * alignment, 60, 80, "", "", alignment);
  file.Finish();
  const auto dark = [&](int left, int top, int right, int bottom) {
    return file.Dark(left, top, right, bottom) > 0;
  };
  for (const int alignment : {0, 1, 2, 3}) {
    const int top = 50 + 100 * alignment;
    EXPECT_TRUE(dark(53, top + 4, 107, top + 22)) << alignment;   // a first line
    EXPECT_TRUE(dark(53, top + 28, 107, top + 46)) << alignment;  // and a second one
    EXPECT_FALSE(dark(111, top, 200, top + 80)) << alignment;
    // The second line is short and stands on its side.
    EXPECT_EQ(dark(52, top + 28, 58, top + 46), alignment == 0 || alignment == 3) << alignment;
    EXPECT_EQ(dark(102, top + 28, 108, top + 46), alignment == 2) << alignment;
  }
}

TEST(Annotations, ConformToPdfA) {
  const std::function<void(clsPDFCreator&)> refused[] = {
      [](clsPDFCreator& pdf) { pdf.LinkTo("script:app.beep(0);"); },
      [](clsPDFCreator& pdf) { pdf.LinkTo("layer:ON(A)"); },
      [](clsPDFCreator& pdf) { pdf.OnDocEvent("", "x"); },
      [](clsPDFCreator& pdf) { pdf.OnDocEvent("WC", "x"); },
      [](clsPDFCreator& pdf) { pdf.OnPageEvent("O", "x"); },
      [](clsPDFCreator& pdf) { pdf.AddAttach("anything"); },
  };
  for (const auto& operation : refused) {
    AnnotatedPdf file;
    file.pdf.SetPDFa(true);
    DrawBox(file.pdf);
    operation(file.pdf);
    EXPECT_TRUE(Has(file.pdf.ErrDescription(), "PDF/A allows no ")) << file.pdf.ErrDescription();
    const std::string bytes = file.Finish();
    for (const char* left : {"JavaScript", "/Annots", "EmbeddedFile", "/AA <<"})
      EXPECT_FALSE(Has(bytes, left)) << left;
  }
  AnnotatedPdf file;
  file.pdf.SetPDFa(true);
  file.pdf.AddFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", "Archive");
  file.pdf.SetFont("Archive", 10);
  DrawBox(file.pdf);
  file.pdf.LinkTo("http:x");
  file.pdf.LinkTo("page:1");
  for (const int type : {0, 1, 2}) file.pdf.DrawNote(type, "Draft", 50, 150, 100, 40);
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  const std::string bytes = file.Finish();
  std::size_t links = 0;
  for (std::size_t at = 0; (at = bytes.find(" /H /I /F 4 /", at)) != std::string::npos; ++at)
    ++links;
  EXPECT_EQ(links, 2u);
  EXPECT_EQ(file.Tool("pdffonts FILE | tail -n +3 | wc -l"), "1\n");  // the caller's alone
}

TEST(SetLabel, FollowsThePages) {
  AnnotatedPdf file;
  const char* styles[] = {"", " /S /D", " /S /R", " /S /r", " /S /A", " /S /a"};
  for (int kind = 0; kind < 6; ++kind) {
    file.pdf.BeginPage();
    file.pdf.SetLabel(kind, "P", 4);
  }
  file.pdf.SetLabel(6, "never");
  file.pdf.BeginPage(1);
  file.pdf.SetLabel(1);
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "/PageLabels << /Nums [ 0 << /S /D >> 2 << "));
  for (int kind = 0; kind < 6; ++kind)
    EXPECT_TRUE(
        Has(bytes, " " + std::to_string(kind + 2) + " <<" + styles[kind] + " /P (P) /St 4 >> "));
  EXPECT_FALSE(Has(bytes, "never"));
}

TEST(AddAttach, CarriesTheFile) {
  AnnotatedPdf file;
  const std::string contents("line\r\n\0\xFF end", 12);
  std::string reason;
  for (const char* name : {"b.bin", "a (1).txt"})
    ASSERT_TRUE(ReplaceFile(file.Folder() / name, contents, reason));
  file.pdf.AddAttach(PathText(file.Folder() / "b.bin"), "second");
  file.pdf.AddAttach(PathText(file.Folder() / "a (1).txt"));
  file.pdf.AddAttach(PathText(file.Folder() / "b.bin"), "again");
  file.pdf.AddAttach(PathText(file.Folder() / "missing"));
  EXPECT_EQ(file.pdf.ErrNumber(), 53);
  file.pdf.AddAttach(PathText(file.Folder()));
  EXPECT_EQ(file.pdf.ErrNumber(), 53);
  file.pdf.OnDocEvent("", "var rate = 5;");
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "/Names <</EmbeddedFiles << /Names [ (a \\(1\\).txt) "));
  EXPECT_TRUE(Has(bytes, "/JavaScript << /Names [ (globalscript) << /S /JavaScript /JS "));
  EXPECT_TRUE(Has(bytes, "%PDF-1.4"));
  EXPECT_TRUE(Has(file.Tool("pdfdetach -list FILE"), "3 embedded files"));
  file.Tool("pdfdetach -save 2 -o " + (file.Folder() / "saved").string() + " FILE");
  EXPECT_EQ(ReadFile(file.Folder() / "saved", reason), contents);
}

TEST(Events, GoToTheirDictionaries) {
  AnnotatedPdf file;
  file.pdf.OnPageEvent("O", "first");
  file.pdf.OnPageEvent("open", "app.alert('open');");
  file.pdf.OnPageEvent("C", "close");
  for (const char* kind : {"WC", "WillSave", "ds", "WP", "DP"}) file.pdf.OnDocEvent(kind, kind);
  file.pdf.OnDocEvent("Open", "opening \x80");
  EXPECT_EQ(file.pdf.ErrNumber(), 0);
  file.pdf.OnDocEvent("XX", "unknown");
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  file.pdf.OnPageEvent("WC", "unknown");
  file.pdf.BeginPage();
  const std::string bytes = file.Finish();
  const std::string page = ObjectOf(bytes, NumberAfter(bytes, "/Kids ["));
  EXPECT_TRUE(Has(ObjectOf(bytes, NumberAfter(page, "/O << /Type /Action /S /JavaScript /JS ")),
                  "app.alert('open');"));
  EXPECT_TRUE(Has(page, " /C << /Type /Action"));
  const std::string catalog = ObjectOf(bytes, NumberAfter(bytes, "/Root "));
  for (const char* key : {"/WC <<", "/WS <<", "/DS <<", "/WP <<", "/DP <<", "/OpenAction <<"})
    EXPECT_TRUE(Has(catalog, key)) << key;
  EXPECT_TRUE(Has(bytes, std::string("\xFE\xFF\0o\0p", 6)));
  EXPECT_TRUE(Has(bytes, "\x20\xAC"));
  for (const char* left : {"first", "unknown"}) EXPECT_FALSE(Has(bytes, left)) << left;
}

TEST(SetPageTransition, IsOfOnePage) {
  struct Case {
    int kind;
    double duration, shownFor;
    const char* written;
  };
  const Case cases[] = {{1, 2, 0, "/Trans << /Type /Trans /D 2 /S /Split /Dm /H /M /I >> "},
                        {8, 0, 0, "/D 1 /S /Wipe /Di 90 >> "},
                        {9, 1, 2.5, "/S /Box /M /I >> /Dur 2.5 "},
                        {28, 1, 0, "/S /Fade >> "}};
  for (const Case& c : cases) {
    AnnotatedPdf file;
    file.pdf.SetPageTransition(3);
    file.pdf.SetPageTransition(c.kind, c.duration, c.shownFor);
    file.pdf.SetPageTransition(29, 7, 7);
    file.pdf.SetPageTransition(-1, 7, 7);
    file.pdf.BeginPage();
    const std::string bytes = file.Finish();
    EXPECT_TRUE(Has(bytes, c.written)) << c.kind;
    EXPECT_EQ(bytes.find("/Trans "), bytes.rfind("/Trans <<")) << c.kind;
  }
  AnnotatedPdf none;
  none.pdf.SetPageTransition(3, 1, 5);
  none.pdf.SetPageTransition(0);
  EXPECT_FALSE(Has(none.Finish(), "/Trans"));
}

TEST(Annotations, NeedAPage) {
  const std::function<void(clsPDFCreator&)> operations[] = {
      [](clsPDFCreator& pdf) { pdf.LinkTo("http:x"); },
      [](clsPDFCreator& pdf) { pdf.DrawNote(0, "x", 1, 1, 1, 1); },
      [](clsPDFCreator& pdf) { pdf.DrawField(0, "x", 1, 1, 1, 1); },
      [](clsPDFCreator& pdf) { pdf.SetLabel(1); },
      [](clsPDFCreator& pdf) { pdf.SetPageTransition(1); },
      [](clsPDFCreator& pdf) { pdf.OnPageEvent("O", "x"); },
  };
  for (const auto& operation : operations) {
    AnnotatedPdf file;
    operation(file.pdf);
    EXPECT_EQ(file.pdf.ErrNumber(), 0);
    file.pdf.EndPage();
    operation(file.pdf);
    EXPECT_EQ(file.pdf.ErrNumber(), 5);
    EXPECT_TRUE(Has(file.pdf.ErrDescription(), "No page is open")) << file.pdf.ErrDescription();
    file.Finish();
  }
}

TEST(Annotations, HangOnAPageThatIsOpenAgain) {
  AnnotatedPdf file;
  file.pdf.EndPage();
  file.pdf.SetPaperSize(1);
  file.pdf.BeginPage();
  file.pdf.BeginOnPage(1);
  DrawBox(file.pdf);
  file.pdf.LinkTo("http:late");
  file.pdf.DrawField(4, "late", 10, 10, 10, 10);
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  file.pdf.SetPageTransition(1);
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  file.pdf.EndOnPage();
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "/Rect [100 762 180 792]"));
  const std::string page = NumberAfter(bytes, " /P ");
  EXPECT_EQ(page, NumberAfter(bytes, "/Kids ["));
  EXPECT_TRUE(Has(ObjectOf(bytes, page), "/Annots [ "));
}

TEST(Annotations, AreEnciphered) {
  AnnotatedPdf file;
  file.pdf.Abort();
  file.pdf.SetScale(0);
  file.pdf.SetProtection(0x1000 | 4, "", "owner");
  file.pdf.BeginDoc(PathText(file.File()));
  file.pdf.BeginPage();
  DrawBox(file.pdf);
  file.pdf.LinkTo("http://secret.example");
  file.pdf.AddBookmark("Hidden chapter");
  file.pdf.DrawField(0, "secretfield", 10, 10, 90, 20, "secretvalue");
  file.pdf.SetLabel(0, "secretlabel");
  file.pdf.OnDocEvent("", "secretscript");
  const std::string bytes = file.Finish();
  for (const char* clear : {"secret", "Hidden", "globalscript"})
    EXPECT_FALSE(Has(bytes, clear)) << clear;
  const std::string plain = file.Tool("qpdf --decrypt --qdf --object-streams=disable FILE -");
  for (const char* clear : {"http://secret.example", "Hidden chapter", "secretfield", "secretvalue",
                            "secretlabel", "secretscript", "globalscript"})
    EXPECT_TRUE(Has(plain, clear)) << clear;
}

}  // namespace
}  // namespace lm::test
