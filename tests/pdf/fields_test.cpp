#include "pdf/fields.h"

#include "tests/pdf/annotated_pdf.h"

namespace lm::test {
namespace {

// The number of the object of the field whose name is told.
std::string NumberOf(const std::string& bytes, const std::string& name) {
  const std::size_t at = bytes.find("/T (" + name + ")");
  const std::size_t end = bytes.rfind(" 0 obj\n", at);
  if (at == std::string::npos || end == std::string::npos) return "none";
  const std::size_t begin = bytes.rfind('\n', end) + 1;
  return bytes.substr(begin, end - begin);
}

std::string FieldOf(const std::string& bytes, const std::string& name) {
  return ObjectOf(bytes, NumberOf(bytes, name));
}

TEST(DrawField, WritesEachType) {
  AnnotatedPdf file;
  file.pdf.SetFont("Courier New", 8);
  file.pdf.DrawField(0, "own", 50, 50, 100, 20, "typed (1)", "Your own", 0x1000 | 2, "#000000",
                     "#FFFF00", 2, 1);
  file.pdf.DrawField(1, "push", 50, 100, 100, 20, "Press");
  file.pdf.DrawField(2, "combo", 50, 150, 100, 20, "two", "", 0x40000, "", "", 1, 0, "one|two|");
  file.pdf.DrawField(3, "list", 50, 200, 100, 60, "a|c", "", 0x200000, "", "", 1, 9, "a|b|c");
  file.pdf.DrawField(4, "check", 50, 300, 20, 20, "1", "", 0, "#000000");
  file.pdf.DrawField(4, "unchecked", 50, 350, 20, 20, "No", "", 0, "#000000", "", 1, 0, "Agreed");
  file.pdf.DrawField(0, "other", 50, 400, 100, 20, "x", "", 0x8000 | 0x10000);
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  const std::string bytes = file.Finish();
  struct Case {
    const char* name;
    std::vector<const char*> pieces;
  };
  const Case cases[] = {
      {"own",
       {"<< /Type /Annot /Subtype /Widget  /Rect [ 50 772 150 792 ] /F 4 ",
        "/BS << /Type /Border /W 2 /S /D /D [ 1 1 ] >>", "/FT /Tx /Ff 4098 ", " 8 Tf 0 0 0 rg)",
        "/TU (Your own)", "/V (typed \\(1\\)) /DV (typed \\(1\\))",
        "/MK << /BC [ 0 0 0 ] /BG [ 1 1 0 ] >>"}},
      {"push", {"/FT /Btn /Ff 65536 ", "/MK << /CA (Press) >>"}},
      {"combo", {"/FT /Ch /Ff 393216 ", "/V (two)", "/Opt [ (one) (two) () ]"}},
      {"list", {"/FT /Ch /Ff 2097152 ", "/V [ (a) (c) ] ", "/S /S >>"}},
      {"check", {"/V /Yes /DV /Yes ", "/AS /Yes /AP << /N << /Yes "}},
      {"unchecked", {"/V /Off ", "/AS /Off /AP << /N << /Agreed "}},
      {"other", {"/FT /Tx /Ff 0 "}},
  };
  for (const Case& c : cases)
    for (const char* piece : c.pieces)
      EXPECT_TRUE(Has(FieldOf(bytes, c.name), piece)) << c.name << ": " << piece;

  const std::string catalog = ObjectOf(bytes, NumberAfter(bytes, "/Root "));
  EXPECT_TRUE(Has(catalog, "/AcroForm <</NeedAppearances true /Fields [ "));
  EXPECT_TRUE(Has(catalog, "/CO [ ] /DR << /Font << /A"));
  const std::string page = NumberAfter(FieldOf(bytes, "own"), " /P ");
  EXPECT_EQ(page, NumberAfter(bytes, "/Kids ["));

  EXPECT_GT(file.Inked(50, 50, 150, 70), 1000);  // a yellow ground
  EXPECT_GT(file.Inked(85, 102, 115, 118), 10);  // a caption in the middle
  EXPECT_GT(file.Inked(52, 152, 80, 168), 10);   // the chosen item
  EXPECT_GT(file.Inked(54, 304, 66, 316), 10);   // a tick
  EXPECT_EQ(file.Inked(54, 354, 66, 366), 0);    // and none
  EXPECT_GT(file.Inked(49, 349, 71, 371), 40);   // but a frame
}

TEST(DrawField, RadioButtonsOfANameAreAGroup) {
  AnnotatedPdf file;
  file.pdf.DrawField(5, "pay", 50, 50, 20, 20, "card", "How", 2, "#000000", "", 1, 0, "cash");
  file.pdf.DrawField(5, "pay", 50, 100, 20, 20, "card", "", 0, "#000000", "", 1, 0, "card");
  file.pdf.BeginPage();
  file.pdf.DrawField(5, "pay", 50, 150, 20, 20, "card", "", 0, "", "", 1, 0, "card");
  file.pdf.DrawField(5, "pay", 50, 200, 20, 20);
  file.pdf.DrawField(5, "pay", 50, 250, 20, 20, "", "", 0, "", "", 1, 0, "off");
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  const std::string bytes = file.Finish();
  const std::string group = FieldOf(bytes, "pay");
  for (const char* piece : {"/FT /Btn /Ff 32770 ", "/TU (How)", "/V /card /DV /card ", "/Kids [ "})
    EXPECT_TRUE(Has(group, piece)) << piece;
  EXPECT_EQ(bytes.find("/T (pay)"), bytes.rfind("/T (pay)"));
  EXPECT_EQ(bytes.find("/AS /card"), bytes.rfind("/AS /card"));
  EXPECT_TRUE(Has(bytes, "/AP << /N << /cash "));
  EXPECT_TRUE(Has(bytes, "/AP << /N << /4 "));
  EXPECT_EQ(file.Inked(55, 55, 65, 65), 0);
  EXPECT_GT(file.Inked(55, 105, 65, 115), 40);
}

TEST(DrawField, RadioButtonsAreNumberedPastTheNamesThatWereGiven) {
  AnnotatedPdf file;
  const auto draw = [&](const char* state) {
    file.pdf.DrawField(5, "pay", 50, 50, 20, 20, "2", "", 0, "", "", 1, 0, state);
  };
  draw("2");
  draw("");
  draw("");
  EXPECT_EQ(file.pdf.ErrNumber(), 0);
  draw("3");  // is the second one's by now
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  const std::string bytes = file.Finish();
  for (const char* state : {"/2 ", "/3 ", "/4 "}) {
    const std::string entry = "/AP << /N << " + std::string(state);
    EXPECT_TRUE(Has(bytes, entry) && bytes.find(entry) == bytes.rfind(entry)) << state;
  }
}

// Viewers that do not draw ticks and dots themselves show the field's own.
TEST(DrawField, BringsPicturesOfItsStates) {
  AnnotatedPdf file;
  for (const int type : {4, 5}) {
    const std::string name = std::to_string(type);
    file.pdf.DrawField(type, "on" + name, 50, type * 50, 40, 40, "1", "", 0, "#000000", "%0.9", 4,
                       0, "1");
    file.pdf.DrawField(type, "off" + name, 150, type * 50, 40, 40, "", "", 0, "", "", 1, 0, "1");
  }
  file.FinishWithPictures();
  for (const int top : {200, 250}) {
    EXPECT_GT(file.Dark(60, top + 10, 80, top + 30), 40) << top;  // the mark
    EXPECT_GT(file.Dark(50, top + 15, 54, top + 25), 30) << top;  // the frame
    EXPECT_EQ(file.Inked(150, top, 190, top + 40), 0) << top;
  }
  EXPECT_GT(file.Dark(50, 200, 54, 204), 10);  // a corner of the box
  EXPECT_EQ(file.Inked(50, 250, 54, 254), 0);  // the circle has none
}

struct Texted {
  const char* name;
  int type;
  const char* value;
  int flags;
  const char* items;
  std::vector<const char*> drawn;  // pieces of the picture
};

TEST(DrawField, BringsPicturesOfItsText) {
  const Texted cases[] = {
      {"line", 0, "one\r(two)", 0, "", {"/Tx BMC\r", "(one \\(two\\)) Tj", "EMC\r"}},
      {"lines", 0, "one two three four\r\nfive", 0x1000, "", {"(one two) Tj", "(five) Tj"}},
      {"password", 0, "pass", 0x2000 | 0x1000, "", {"(****) Tj"}},
      {"empty", 0, "", 0, "", {"/Tx BMC\r"}},
      {"combo", 2, "two", 0, "one|two", {"(two) Tj"}},
      {"list", 3, "two", 0, "one|two|one|one", {"(one) Tj", "0.6 0.757 0.855 rg\r", "(two) Tj"}},
      {"sorted",
       3,
       "b|C",
       0x280000,
       "b|a|C",
       {"(a) Tj", "0.6 0.757", "(b) Tj", "0.6 0.757", "(C) Tj"}},
      {"button", 1, "Go \x80", 0, "", {"(Go \x80) Tj"}},
  };
  AnnotatedPdf file;
  file.pdf.SetFont("Courier New", 10, 1);
  file.pdf.SetColorText("#C00000");
  file.pdf.SetCharSpacing(30);
  file.pdf.SetTextHorizontalScaling(400);
  int top = 50;
  for (const Texted& c : cases) {
    file.pdf.DrawField(c.type, c.name, 50, top, 80, 40, c.value, "", c.flags, "#000000", "#FFFF00",
                       1, 0, c.items);
    top += 60;
  }
  file.pdf.SetFont("Times", 20);
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  const std::string bytes = file.FinishWithPictures();
  top = 50;
  for (const Texted& c : cases) {
    const std::string picture = PictureOf(bytes, FieldOf(bytes, c.name));
    const std::string font = picture.substr(0, picture.find("stream"));
    EXPECT_TRUE(Has(font, " /BBox [ 0 0 80 40 ] /Matrix [1 0 0 1 0 0] /Resources << "));
    EXPECT_TRUE(Has(font, "/Font << /A") && Has(font, "FNT_1 ")) << c.name;
    EXPECT_TRUE(Has(picture, "0.753 0 0 rg")) << c.name;
    std::size_t at = 0;  // the pieces stand in this order
    for (const char* piece : c.drawn) {
      at = picture.find(piece, at);
      ASSERT_NE(at, std::string::npos) << c.name << ": " << piece << "\n" << picture;
      ++at;
    }
    EXPECT_EQ(Has(picture, "BMC"), c.type != 1) << c.name;
    EXPECT_EQ(file.Inked(52, top + 2, 128, top + 38), 76 * 36) << c.name;  // the ground
    EXPECT_EQ(file.Inked(131, top, 200, top + 40), 0) << c.name;           // nothing beside it
    EXPECT_EQ(file.Dark(54, top + 2, 126, top + 38) > 0, c.value[0] != 0) << c.name;
    top += 60;
  }
  EXPECT_FALSE(Has(PictureOf(bytes, FieldOf(bytes, "password")), "pass"));
  EXPECT_TRUE(Has(FieldOf(bytes, "sorted"), "/Opt [ (a) (b) (C) ]"));
}

TEST(DrawField, ChoosesASizeThatFits) {
  AnnotatedPdf file;
  file.pdf.SetFont("Courier New", 10);
  file.pdf.SetFontSize(0);
  struct Case {
    const char* name;
    double width, height;
    const char* value;
    int flags;
    const char* size;
  };
  // A letter is 0.6 wide and 1.133 high; the border takes 1 and the padding 2 on each side.
  const Case cases[] = {{"high", 300, 24.66, "ab", 0, " 20 Tf "},
                        {"narrow", 30, 100, "abcd", 0, " 10 Tf "},
                        {"smallest", 30, 3, "abcdefghijkl", 0, " 4 Tf "},
                        {"largest", 300, 100, "one two", 0x1000, " 12 Tf "},
                        {"lines", 54, 26, "one two three four", 0x1000, " 8 Tf "}};
  for (const Case& c : cases)
    file.pdf.DrawField(0, c.name, 50, 50, c.width, c.height, c.value, "", c.flags);
  const std::string bytes = file.Finish();
  for (const Case& c : cases) {
    const std::string picture = PictureOf(bytes, FieldOf(bytes, c.name));
    EXPECT_TRUE(Has(picture, c.size)) << c.name << picture;
    EXPECT_TRUE(Has(FieldOf(bytes, c.name), " 0 Tf 0 0 0 rg)")) << c.name;
  }
}

TEST(DrawField, DrawsEachStyleOfBorder) {
  AnnotatedPdf file;
  for (int style = 0; style < 5; ++style)
    file.pdf.DrawField(0, "f" + std::to_string(style), 50, 50 + 50 * style, 60, 30, "", "", 0,
                       "#000000", "#FFFFFF", 4, style);
  file.FinishWithPictures();
  const auto dark = [&](int left, int top, int right, int bottom) {
    return file.Dark(left, top, right, bottom);
  };
  for (int style = 0; style < 5; ++style) {
    const int y = 50 + 50 * style;
    const int top = dark(70, y + 1, 90, y + 3), bottom = dark(70, y + 27, 90, y + 29);
    EXPECT_EQ(bottom, style == 1 ? bottom : 40) << style;
    EXPECT_EQ(top, style == 4 ? 0 : style == 1 ? top : 40) << style;
  }
  EXPECT_GT(dark(70, 101, 90, 103), 0);  // dashes
  EXPECT_LT(dark(70, 101, 90, 103), 40);
  const auto inked = [&](int y) { return file.Inked(70, y, 90, y + 2); };
  EXPECT_EQ(inked(155), 0);   // raised: white above
  EXPECT_EQ(inked(173), 40);  // and gray below
  EXPECT_EQ(inked(205), 40);
  EXPECT_EQ(inked(223), 40);
  EXPECT_EQ(inked(55), 0);  // a line has no edges
}

TEST(DrawField, ConformsToPdfA) {
  AnnotatedPdf file;
  file.pdf.SetPDFa(true);
  file.pdf.AddFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", "Archive");
  file.pdf.SetFont("Archive", 10);
  for (int type = 0; type < 6; ++type)
    file.pdf.DrawField(type, "f" + std::to_string(type), 50, 50 + 50 * type, 60, 30, "1", "", 0,
                       "#000000", "", 1, 0, "1");
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  file.pdf.OnFieldEvent("K", "app.beep(0);");
  EXPECT_TRUE(Has(file.pdf.ErrDescription(), "PDF/A allows no scripts"));
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "/AcroForm <</Fields [ "));
  for (const char* left : {"NeedAppearances", "Dingbats", "/ZaDb", "/AA <<", "JavaScript"})
    EXPECT_FALSE(Has(bytes, left)) << left;
  for (int type = 0; type < 6; ++type)
    EXPECT_GT(file.Dark(50, 50 + 50 * type, 110, 80 + 50 * type), 20) << type;
}

TEST(DrawField, NamesStandInATree) {
  AnnotatedPdf file;
  const auto draw = [&](const std::string& name, int type = 0) {
    file.pdf.DrawField(type, name, 10, 10, 50, 20);
    return file.pdf.ErrNumber();
  };
  EXPECT_EQ(draw(std::string(1000, 'n')), 0);
  EXPECT_EQ(draw("client.name"), 0);
  EXPECT_EQ(draw("client.address.street"), 0);
  EXPECT_EQ(draw("client.sex", 5), 0);
  for (const char* wrong : {"", ".", "a.", ".a", "a..b", "client", "client.name",
                            "client.name.first", "client.address", "client.sex", "client.sex.x"})
    EXPECT_EQ(draw(wrong), 5) << wrong;
  draw(std::string(1001, 'n'));
  draw("client", 5);
  const std::string bytes = file.Finish();
  std::size_t fields = 0;
  for (std::size_t at = 0; (at = bytes.find("/Widget", at)) != std::string::npos; ++at) ++fields;
  EXPECT_EQ(fields, 4u);
  const std::string client = FieldOf(bytes, "client"), address = FieldOf(bytes, "address");
  EXPECT_TRUE(Has(address, "/Parent "));
  EXPECT_FALSE(Has(client, "/Parent "));
  EXPECT_TRUE(Has(FieldOf(bytes, "street"), " /Parent "));
  EXPECT_TRUE(Has(file.Tool("qpdf --json --json-key=acroform FILE"), "\"client.address.street\""));
}

TEST(DrawField, RefusesNonsense) {
  struct Case {
    int type;
    double width;
    const char* colour;
  };
  for (const Case& c : {Case{-1, 10, ""}, Case{6, 10, ""}, Case{0, 0, ""}, Case{0, -5, ""},
                        Case{0, 0.0 / 0.0, ""}, Case{0, 1.0 / 0.0, ""}, Case{0, 10, "no colour"}}) {
    AnnotatedPdf file;
    file.pdf.DrawField(c.type, "x", 10, 10, c.width, 10, "", "", 0, c.colour);
    EXPECT_EQ(file.pdf.ErrNumber(), 5) << c.type << " " << c.width << c.colour;
    EXPECT_FALSE(Has(file.Finish(), "Widget"));
  }
}

TEST(OnFieldEvent, BelongsToTheLastField) {
  AnnotatedPdf file;
  file.pdf.DrawField(0, "plain", 10, 10, 50, 20);
  file.pdf.DrawField(0, "sum", 10, 50, 50, 20);
  for (const char* kind : {"K", "Validate", "c", "F", "D", "E", "X", "Fo", "Blur"})
    file.pdf.OnFieldEvent(kind, kind);
  file.pdf.OnFieldEvent("A", "app.alert('pressed');");
  EXPECT_EQ(file.pdf.ErrNumber(), 0);
  file.pdf.OnFieldEvent("Q", "unknown");
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  const std::string bytes = file.Finish();
  const std::string field = FieldOf(bytes, "sum");
  for (const char* key : {"/AA <<", " /K <<", " /V <<", " /C <<", " /F <<", " /D <<", " /E <<",
                          " /X <<", " /Fo <<", " /Bl <<"})
    EXPECT_TRUE(Has(field, key)) << key;
  const std::string action = NumberAfter(field, " /A << /Type /Action /S /JavaScript /JS ");
  EXPECT_TRUE(Has(ObjectOf(bytes, action), "app.alert('pressed');"));
  EXPECT_FALSE(Has(FieldOf(bytes, "plain"), "/AA <<"));
  EXPECT_EQ(NumberAfter(bytes, "/CO [ "), NumberOf(bytes, "sum"));
}

TEST(OnFieldEvent, NeedsAField) {
  AnnotatedPdf file;
  file.pdf.DrawField(0, "before", 10, 10, 50, 20);
  file.pdf.BeginPage();
  file.pdf.OnFieldEvent("K", "too early");
  EXPECT_EQ(file.pdf.ErrNumber(), 5);
  EXPECT_FALSE(Has(file.Finish(), "too early"));
}

}  // namespace
}  // namespace lm::test
