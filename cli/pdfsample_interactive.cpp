// Links, notes, stamps and attachments.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

void DrawLinks(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Links", "Each lies on the box of what was drawn before it");
  pdf.DefineRef("top of the links", "", 0, 0);
  pdf.DefineRef("a page on", "+1", 0, 0);
  const int mark = pdf.AddBookmark("A place within the links", 0, 0, "XYZ", 0, 120, 1.5, kWarm, 1);

  struct Target {
    const char *text, *target, *explanation;
  };
  const std::string byNumber = "bookmark:" + std::to_string(mark);
  const std::array<Target, 12> targets{
      {{"A page of the web", "https://www.ledgerminder.example", "http: and https: an address"},
       {"A letter", "mailto:doctor@ledgerminder.example", "mailto: the mail program"},
       {"Another document", "file:slips.pdf", "file: a file beside this one"},
       {"The first page", "page:1", "page: by its number"},
       {"The last page, whole", "page:#LAST,Fit",
        "page: #FIRST, #LAST, #NEXT, #PREV, and how it is shown"},
       {"Two pages back", "page:-2,FitH,0", "page: relative to this one"},
       {"The top of this page", "ref:top of the links", "ref: a name that DefineRef gave"},
       {"One page on", "ref:a page on", "ref: a name for a relative page"},
       {"A bookmark", byNumber.c_str(), "bookmark: by its number; it zooms to 150 percent"},
       {"The latest bookmark", "bookmark:@", "bookmark:@ the one made last"},
       {"A script", "script:app.alert('A script of the picture book');",
        "script: runs in the viewer"},
       {"Water on or off", "layer:TOGGLE(Water)",
        "layer: ON(...), OFF(...), TOGGLE(...), see the layers"}}};
  book.Section(kTop, "Targets");
  double y = kTop + 8;
  for (const Target& one : targets) {
    book.Link(kLeft, y, one.text, one.target);
    book.Caption(kLeft + 58, y, one.explanation);
    y += 7.5;
  }
  book.Section(150, "Borders and answers to a press", "the border in millimetres");
  for (const auto& [index, border, highlight, caption] : {std::tuple{0, 0.2, 0, "0.2, nothing"},
                                                          {1, 0.4, 1, "0.4, inverted"},
                                                          {2, 0.8, 2, "0.8, its outline"},
                                                          {3, 0.0, 3, "none, pushed in"}}) {
    const Column column = ColumnOf(4, index);
    pdf.SetColorFill(kLight);
    pdf.DrawRect(column.x, 155, column.width, 11, 5);
    pdf.LinkTo("page:1", border, highlight);
    pdf.DrawText(column.x + column.width / 2, 162, "To the cover", 4);
    book.Caption(column.x, 171, caption);
  }
  book.Section(186, "Pictures and shapes", "can be pressed as well");
  pdf.DrawImage(book.files.Scene("png"), kLeft, 191, 42, 28);
  pdf.LinkTo("page:1");
  pdf.DrawImage(book.files.Path("boat.eps"), kLeft + 48, 191, 42, 28);
  pdf.LinkTo("page:#NEXT");
  pdf.DrawCircle(kLeft + 116, 205, 14, 4);
  pdf.LinkTo("page:#PREV");
  book.Caption(kLeft, 223, "to the cover");
  book.Caption(kLeft + 48, 223, "one page on");
  book.Caption(kLeft + 116, 223, "one page back", 4);
  pdf.EndPage();
}

void DrawNotes(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Notes, stamps and files", "Laid upon the page, and carried inside the document");
  book.Section(kTop, "Free text", "left, centred and right, in the font that was in force");
  for (const auto& [index, text] : {std::pair{0, "Written on the page"},
                                    {1, "In the middle of its box"},
                                    {2, "Up to the right edge"}}) {
    const Column column = ColumnOf(3, index);
    book.Ink(10);
    pdf.DrawNote(0, text, column.x, kTop + kBelowSection, column.width, 12, "LedgerMinder",
                 "#FFF7DC", index);
  }
  book.Section(72, "Notes that open", "in colours");
  for (const auto& [index, colour] :
       {std::pair{0, "GOLD"}, {1, "#9DBEDD"}, {2, "LIGHTGREEN"}, {3, "PINK"}}) {
    const Column column = ColumnOf(4, index);
    pdf.DrawNote(1, "A note of the colour " + std::string(colour), column.x, 77, 8, 8,
                 "LedgerMinder", colour);
    book.Caption(column.x + 11, 82.5, colour);
  }
  book.Section(98, "Stamps", "the fourteen that the format names, and one of one's own");
  constexpr std::array<const char*, 15> kStamps{"Approved",       "AsIs",
                                                "Confidential",   "Departmental",
                                                "Draft",          "Experimental",
                                                "Expired",        "Final",
                                                "ForComment",     "ForPublicRelease",
                                                "NotApproved",    "NotForPublicRelease",
                                                "Sold",           "TopSecret",
                                                "PAID 03/02/2026"};
  for (int i = 0; i < 15; ++i) {
    const Column column = ColumnOf(3, i % 3);
    pdf.DrawNote(2, kStamps[static_cast<std::size_t>(i)], column.x, 103 + 21.0 * (i / 3),
                 column.width, 15, "LedgerMinder", i == 14 ? kAccent : "");
  }
  book.Section(216, "Files", "in the viewer's list of attachments");
  pdf.AddAttach(book.files.Path("note.txt"), "A note in plain text");
  pdf.AddAttach(book.files.Scene("jpg"), "The evening at the sea");
  book.Text(kLeft, 224, "note.txt");
  book.Caption(kLeft + 30, 224, "A note in plain text");
  book.Text(kLeft, 230, "scene.jpg");
  book.Caption(kLeft + 30, 230, "The evening at the sea");
  pdf.EndPage();
}

}  // namespace

void DrawInteractivePages(Book& book) {
  book.Chapter("Interaction");
  DrawLinks(book);
  DrawFieldPage(book);
  DrawNotes(book);
  DrawLayerPage(book);
  DrawEventPage(book);
}

}  // namespace lm::sample
