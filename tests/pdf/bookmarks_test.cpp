#include "pdf/bookmarks.h"

#include <algorithm>

#include "tests/pdf/annotated_pdf.h"

namespace lm::test {
namespace {

// The object of the page at a position.
std::string PageAt(const std::string& bytes, int position) {
  const std::string tree = ObjectOf(bytes, "1");
  std::size_t at = tree.find("/Kids [") + 7;
  for (int i = 1; i < position; ++i) at = tree.find("R ", at) + 2;
  return tree.substr(at, tree.find(' ', at) - at);
}

TEST(DefineRef, IsResolvedAtTheEnd) {
  struct Case {
    const char* name;
    const char* page;
    int position;
  };
  // Defined on page 3 of 5.
  const Case cases[] = {{"here", "", 3},
                        {"two", "2", 2},
                        {"plus", "+1", 4},
                        {"minus", "-2", 1},
                        {"beyond", "99", 5},
                        {"below", "0", 1},
                        {"far", "+99", 5},
                        {"before", "-99", 1},
                        {"first", "#FIRST", 1},
                        {"last", "#last", 5},
                        {"next", "#NEXT", 4},
                        {"prev", "#PREV", 2},
                        {"odd (1)", " 4 ", 4},
                        {"huge", "99999999999999999999", 5},
                        {"deep", "-99999999999999999999", 1}};
  AnnotatedPdf file;
  file.pdf.BeginPage();
  file.pdf.BeginPage();
  for (const Case& c : cases) file.pdf.DefineRef(c.name, c.page, 20, 42);
  EXPECT_EQ(file.pdf.ErrNumber(), 0);
  for (const char* wrong : {"x", "1.5", "+", "-", "#", "#SECOND", "1e3"}) {
    file.pdf.DefineRef("wrong", wrong);
    EXPECT_EQ(file.pdf.ErrNumber(), 5) << wrong;
  }
  file.pdf.BeginPage();
  file.pdf.BeginPage();
  const std::string bytes = file.Finish();
  const std::string destinations = ObjectOf(bytes, NumberAfter(bytes, "/Dests "));
  for (const Case& c : cases) {
    const std::string name = c.name == std::string("odd (1)") ? "odd#20#281#29" : c.name;
    EXPECT_TRUE(
        Has(destinations, "REF_" + name + " [" + PageAt(bytes, c.position) + " 0 R /XYZ 20 800 0]"))
        << c.name;
  }
  EXPECT_FALSE(Has(destinations, "wrong"));
  EXPECT_TRUE(Has(file.Tool("pdfinfo -dests FILE"), "REF_plus"));
}

TEST(DefineRef, MovesWithItsPage) {
  AnnotatedPdf file;
  file.pdf.DefineRef("mine");
  file.pdf.DefineRef("next", "#NEXT");
  file.pdf.DrawRect(10, 10, 10, 10);
  file.pdf.LinkTo("ref:mine");
  file.pdf.BeginPage();
  file.pdf.BeginPage(1);
  file.pdf.SwapPages(1, 3);
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "REF_mine [" + PageAt(bytes, 2) + " 0 R"));
  EXPECT_TRUE(Has(bytes, "REF_next [" + PageAt(bytes, 3) + " 0 R"));
  const std::size_t link = bytes.find("/Dest /");
  EXPECT_EQ(bytes.substr(bytes.find("REF_", link), 8), "REF_mine");
}

TEST(LinkTo, ReachesPagesNotYetWritten) {
  AnnotatedPdf file;
  file.pdf.DrawRect(10, 10, 10, 10);
  file.pdf.LinkTo("page:#LAST,FitH,0,42");
  const int bookmark = file.pdf.AddBookmark("Second", 0, 2, "FitV", 30);
  file.pdf.AddBookmark("Third", 0, 3, "Fit");
  file.pdf.LinkTo("bookmark:" + std::to_string(bookmark));
  file.pdf.LinkTo("bookmark:@");
  file.pdf.BeginPage();
  file.pdf.BeginPage();
  const std::string bytes = file.Finish();
  EXPECT_TRUE(Has(bytes, "/H /I /Dest [" + PageAt(bytes, 3) + " 0 R /FitH 800] >>"));
  EXPECT_TRUE(Has(bytes, "/H /I /Dest [" + PageAt(bytes, 2) + " 0 R /FitV 30] >>"));
  EXPECT_TRUE(Has(bytes, "/H /I /Dest [" + PageAt(bytes, 3) + " 0 R /Fit] >>"));
}

TEST(AddBookmark, WritesTheTree) {
  AnnotatedPdf file;
  const int one = file.pdf.AddBookmark("One (a)", 0, 0, "XYZ", 10, 42, 1.5, "#FF0000", 3);
  const int inner = file.pdf.AddBookmark("Inner", one, 1, "fitb", 0, 0, 0, "", 0, false);
  file.pdf.AddBookmark("Leaf", inner, -5, "FitR", 10, 42);
  file.pdf.AddBookmark("Two \x80", 0, 99, "FitH", 0, 42, 0, "@0;1;1;0.5", 8);
  EXPECT_EQ(file.pdf.AddBookmark("No parent", 99), 0);
  EXPECT_EQ(file.pdf.AddBookmark("No parent", -1), 0);
  EXPECT_EQ(file.pdf.AddBookmark("No fit", 0, 0, "Wide"), 0);
  EXPECT_EQ(file.pdf.AddBookmark("No colour", 0, 0, "Fit", 0, 0, 0, "no colour"), 0);
  const std::string bytes = file.Finish();

  const std::string rootNumber = NumberAfter(bytes, "/Outlines ");
  const std::string root = ObjectOf(bytes, rootNumber);
  EXPECT_TRUE(root.starts_with("<< /Count 1 /First "));
  const std::string firstNumber = NumberAfter(root, "/First ");
  const std::string first = ObjectOf(bytes, firstNumber);
  const std::string second = ObjectOf(bytes, NumberAfter(root, "/Last "));
  const std::string innerEntry = ObjectOf(bytes, NumberAfter(first, "/First "));
  const std::string leaf = ObjectOf(bytes, NumberAfter(innerEntry, "/First "));
  const std::string page = PageAt(bytes, 1);
  EXPECT_TRUE(Has(first, "/Title (One \\(a\\)) /Parent " + rootNumber + " 0 R "));
  EXPECT_TRUE(Has(first, "/Count 1 /Dest [" + page + " 0 R /XYZ 10 800 1.5] /C [1 0 0] /F 3 "));
  EXPECT_TRUE(Has(innerEntry, "/Count -1 /Dest [" + page + " 0 R /FitB]"));
  EXPECT_TRUE(Has(leaf, "/Dest [" + page + " 0 R /FitR 10 0 596 800]"));
  EXPECT_FALSE(Has(leaf, "/Count"));
  EXPECT_TRUE(Has(second, "/Prev " + firstNumber + " 0 R"));
  EXPECT_TRUE(Has(second, "/FitH 800] /C [0.5 0 0] >>"));
  EXPECT_TRUE(Has(second, "\xFE\xFF"));
  EXPECT_FALSE(Has(bytes, "No "));
}

TEST(AddBookmark, TakesManyAndDeepOnes) {
  AnnotatedPdf file;
  int parent = 0;
  for (int i = 0; i < 2000; ++i) {
    file.pdf.AddBookmark("wide", 0);
    parent = file.pdf.AddBookmark("deep", parent);
  }
  file.pdf.EndDoc();
  std::string reason;
  const std::string bytes = ReadFile(file.File(), reason).value_or("");
  std::size_t titles = 0;
  for (std::size_t at = 0; (at = bytes.find("/Title (", at)) != std::string::npos; ++at) ++titles;
  EXPECT_EQ(titles, 4001u);  // with the document's own
  EXPECT_TRUE(Has(bytes, "/Count 1999 "));
}

}  // namespace
}  // namespace lm::test
