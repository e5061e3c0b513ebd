// Resource dictionaries: pages have one of everything, all else one of what it uses.
#include "pdf/resources.h"

#include <set>

#include "pdf/reader/parsedfile.h"
#include "tests/pdf/annotated_pdf.h"
#include "tests/pdf/picture_bytes.h"

namespace lm {
namespace {

using namespace test;
using pdf::ResourceKind;

TEST(Resources, AreFoundByTheOperatorsThatNameThem) {
  pdf::Resources resources;
  resources.Add(ResourceKind::Font, "/A1+FNT_1", 4);
  resources.Add(ResourceKind::XObject, "/A1+IMG_1", 5);
  resources.Add(ResourceKind::XObject, "/A1+a#20b", 6);
  resources.Add(ResourceKind::ExtGState, "/A1+GS_50", 7);
  resources.Add(ResourceKind::Properties, "/A1+LAY_1", 8);
  resources.Add(ResourceKind::Pattern, "/A1+IMG_1", 9);
  resources.Add(ResourceKind::ColorSpace, "/CS-RGB", "[ /Pattern /DeviceRGB ]");
  const struct {
    const char *operators, *entries;
  } cases[] = {
      {"0 0 m 1 1 l S", ""},
      {"BT /A1+FNT_1 9 Tf (/A1+IMG_1 Do \\) /A1+IMG_1 Do) Tj ET", "/Font << /A1+FNT_1 4 0 R >>\r"},
      {"q /A1+IMG_1 Do Q /A1+IMG_1 Do /A1+a#20b Do",
       "/XObject << /A1+IMG_1 5 0 R /A1+a#20b 6 0 R >>\r"},
      {"/A1+GS_50 gs /OC /A1+LAY_1 BDC EMC",
       "/Properties << /A1+LAY_1 8 0 R >>\r/ExtGState << /A1+GS_50 7 0 R >>\r"},
      {"/CS-RGB cs 1 0 0 /A1+IMG_1 scn",
       "/ColorSpace << /CS-RGB [ /Pattern /DeviceRGB ] >>\r/Pattern << /A1+IMG_1 9 0 R >>\r"},
      {"/Pattern CS /A1+IMG_1 SCN", "/Pattern << /A1+IMG_1 9 0 R >>\r"},
      {"/A1+unknown Do /Tx BMC EMC", ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(resources.UsedBy(c.operators), "<< /ProcSet 3 0 R " + std::string(c.entries) + ">>")
        << c.operators;
}

// Counts the dictionaries of a value and of all that it refers to, walked as a tree, which has no
// end where one contains itself.
class TreeWalk {
 public:
  explicit TreeWalk(pdf::Objects& objects) : objects_(objects) {}
  int Count(const pdf::Value& value) {
    const pdf::Value& found = objects_.Resolve(value);
    if (found.IsDictionary() && ++count_ > kEnough) return count_;
    for (const pdf::Value& item : found.items) {
      if (found.IsDictionary() && item.IsName("Parent")) continue;
      Count(item);
    }
    return count_;
  }
  static constexpr int kEnough = 100'000;

 private:
  pdf::Objects& objects_;
  int count_ = 0;
};

TEST(Resources, OfFormsAndTilingsAreATree) {
  AnnotatedPdf file;
  for (int i = 0; i < 30; ++i) {
    const std::string number = std::to_string(i);
    file.pdf.BeginTiling("t" + number, 10, 10);
    if (i > 0) file.pdf.DrawObject("o" + std::to_string(i - 1));
    file.pdf.DrawText(1, 8, number);
    file.pdf.EndTiling();
    file.pdf.BeginObject("o" + number);
    file.pdf.DrawObject("o" + std::to_string(i - 1));
    file.pdf.DrawPlaceHolder("#PAGES", 10, 10, 50);
    file.pdf.DrawRect(10 * i, 10, 5, 5);
    file.pdf.EndObject();
    file.pdf.SetColorFill("t" + number);
    file.pdf.DrawRect(10, 20 * i, 100, 15, 5);
  }
  file.pdf.DrawObject("o29");
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  file.Finish();
  const auto parsed = pdf::ParsedFile::Read(file.File());
  EXPECT_LT(TreeWalk(parsed->objects).Count(*parsed->Page(1).resources), 10'000);
}

// Everything that can be drawn is drawn within an object, a tiling and a place holder alike.
TEST(Resources, AreAllThereInObjectsAndTilings) {
  AnnotatedPdf file;
  const std::string picture = PathText(file.Folder() / "a.png");
  std::string reason;
  ASSERT_TRUE(
      ReplaceFile(picture, PngHeader(1, 1, 8, kPngGray) + PngEnd(std::string(2, '\0')), reason));
  file.pdf.BeginObject("dot");
  file.pdf.SetColorFill("BLACK");
  file.pdf.DrawRect(60, 0, 10, 10, 5);
  file.pdf.EndObject();
  const auto draw = [&] {
    file.pdf.SetFont("Courier New", 20, 1);
    file.pdf.SetColorText("BLACK");
    file.pdf.DrawText(0, 15, "#");
    file.pdf.DrawImage(picture, 20, 0, 10, 10);
    file.pdf.BeginLayer("shown");
    file.pdf.SetAlpha(50);
    file.pdf.SetColorFill("BLACK");
    file.pdf.DrawRect(40, 0, 10, 10, 5);
    file.pdf.SetAlpha(100);
    file.pdf.EndLayer();
    file.pdf.DrawObject("dot");
    file.pdf.DrawPlaceHolder("#PAGES", 80, 15, 20);
  };
  file.pdf.BeginObject("object");
  draw();
  file.pdf.EndObject();
  file.pdf.BeginTiling("tiling", 100, 20);
  draw();
  file.pdf.EndTiling();
  file.pdf.DrawObject("object");
  file.pdf.BeginSpace(0, 100);
  file.pdf.SetColorFill("tiling");
  file.pdf.DrawRect(0, 0, 300, 100, 5);
  file.pdf.EndSpace();
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  file.Finish();
  // The tiling's own grid begins at the page's lower left corner.
  const int tile = 842 - 20 * 36;
  for (const int top : {0, tile}) {
    for (const int left : {0, 20, 60, 80}) EXPECT_GT(file.Dark(left, top, left + 12, top + 20), 10);
    EXPECT_GT(file.Inked(40, top, 50, top + 10), 80);
    EXPECT_EQ(file.Dark(40, top, 50, top + 10), 0);
  }
}

TEST(Resources, NamesOfUsersAndOfTheWriterNeverMeet) {
  AnnotatedPdf file;
  const std::string picture = PathText(file.Folder() / "a.png");
  std::string reason;
  ASSERT_TRUE(
      ReplaceFile(picture, PngHeader(1, 1, 8, kPngGray) + PngEnd(std::string(2, '\0')), reason));
  const std::string form = PathText(file.Folder() / "form.pdf");
  clsPDFCreator other(StandingClock());
  other.BeginDoc(form);
  other.EndDoc();

  const std::string names[] = {"IMG_1", "OBJ_IMG_1", "OBJ_OBJ_IMG_1",
                               "PH_30", "logo",      std::string("PD\0F_1.1", 8)};
  for (const std::string& name : names) {
    file.pdf.BeginObject(name);
    file.pdf.DrawRect(10, 10, 50, 50);
    file.pdf.EndObject();
  }
  file.pdf.DrawImage(picture, 0, 0, 10, 10);
  file.pdf.ImportPage(form, 1);
  constexpr std::size_t kPlaces = 30;  // numbered as their objects are, past "PH_30"
  for (std::size_t i = 0; i < kPlaces; ++i) file.pdf.DrawPlaceHolder("#PAGE", 10, 10, 10);
  for (const std::string& name : names) file.pdf.DrawObject(name);
  EXPECT_EQ(file.pdf.ErrDescription(), "");
  // A zero is in no name of the format: these two are one there.
  file.pdf.BeginTiling("A", 1, 1);
  file.pdf.EndTiling();
  file.pdf.BeginTiling(std::string("A\0", 2), 1, 1);
  EXPECT_NE(file.pdf.ErrNumber(), 0);
  file.pdf.DefineRef("A");
  file.pdf.DefineRef(std::string("A\0", 2));
  const std::string bytes = file.Finish();

  const auto parsed = pdf::ParsedFile::Read(file.File());
  pdf::Objects& objects = parsed->objects;
  const auto& xObjects = objects.Find(objects.Resolve(*parsed->Page(1).resources), "XObject");
  std::set<std::string> keys;
  for (std::size_t i = 0; i < xObjects.items.size(); i += 2)
    EXPECT_TRUE(keys.insert(xObjects.items[i].Name()).second) << xObjects.items[i].Name();
  EXPECT_EQ(keys.size(), std::size(names) + 2 + kPlaces);
  EXPECT_TRUE(Has(bytes, "+logo Do"));
  const std::size_t ref = bytes.find("+REF_A ");
  EXPECT_TRUE(ref != bytes.npos && bytes.find("+REF_A ", ref + 1) == bytes.npos);
}

}  // namespace
}  // namespace lm
