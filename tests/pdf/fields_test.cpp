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

// Viewers that do not draw ticks and dots themselves show the field's own.
TEST(DrawField, BringsPicturesOfItsStates) {
  AnnotatedPdf file;
  for (const int type : {4, 5}) {
    const std::string name = std::to_string(type);
    file.pdf.DrawField(type, "on" + name, 50, type * 50, 40, 40, "1", "", 0, "#000000", "%0.9", 4,
                       0, "1");
    file.pdf.DrawField(type, "off" + name, 150, type * 50, 40, 40, "", "", 0, "", "", 1, 0, "1");
  }
  std::string bytes = file.Finish();
  const std::string_view told = "/NeedAppearances true /";
  const std::size_t at = bytes.find(told);
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, told.size(), "/NeedAppearances false/");
  std::string reason;
  ASSERT_TRUE(ReplaceFile(file.File(), bytes, reason));
  for (const int top : {200, 250}) {
    EXPECT_GT(file.Dark(60, top + 10, 80, top + 30), 40) << top;  // the mark
    EXPECT_GT(file.Dark(50, top + 15, 54, top + 25), 30) << top;  // the frame
    EXPECT_EQ(file.Inked(150, top, 190, top + 40), 0) << top;
  }
  EXPECT_GT(file.Dark(50, 200, 54, 204), 10);  // a corner of the box
  EXPECT_EQ(file.Inked(50, 250, 54, 254), 0);  // the circle has none
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
                        Case{0, 0.0 / 0.0, ""}, Case{0, 10, "no colour"}}) {
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
  EXPECT_FALSE(Has(FieldOf(bytes, "plain"), "/AA"));
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
