// What happens by itself: scripts, transitions, place holders.
#include <array>

#include "cli/pdfsample_book.h"
#include "core/text.h"

namespace lm::sample {
namespace {

void DrawTransitions(Book& book, double y) {
  book.Section(y, "Turning over",
               "of the pages of this book when they fill the screen, in this order");
  const std::vector<std::string_view> names = Split(
      "split across, in;split down, in;split across, out;split down, out;wipe to the left;wipe to "
      "the right;wipe down;wipe up;box in;box out;blinds across;blinds down;dissolve;glitter to "
      "the right;glitter down;glitter to the corner;replace;fly in;fly out;push to the right;push "
      "down;push to the left;push up;cover to the right;cover down;cover to the left;cover up;fade",
      ';');
  for (int i = 0; i < 28; ++i) {
    const Column column = ColumnOf(4, i / 7);
    const double line = y + 8 + 8.5 * (i % 7);
    book.Caption(column.x + 5, line, std::to_string(i + 1), 2);
    book.Text(column.x + 7, line, names[static_cast<std::size_t>(i)], 8.5);
  }
}

}  // namespace

void DrawEventPage(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Events", "Scripts that the viewer runs by itself, and how pages turn");
  pdf.OnDocEvent("Global", "function tell(what) { console.println('Picture book: ' + what); }");
  struct Event {
    const char *kind, *when;
  };
  constexpr std::array<Event, 6> kOfDocument{{{"Open", "the document has opened"},
                                              {"WillPrint", "it is about to be printed"},
                                              {"DidPrint", "it was printed"},
                                              {"WillSave", "it is about to be saved"},
                                              {"DidSave", "it was saved"},
                                              {"WillClose", "it is about to be closed"}}};
  book.Section(kTop, "Of the document", "each writes a line to the viewer's console");
  double y = kTop + 8;
  const auto tell = [&](const Event& event) {
    book.Text(kLeft, y, event.kind);
    book.Caption(kLeft + 30, y, event.when);
    y += 6;
    return "tell('" + std::string(event.when) + "');";
  };
  for (const Event& event : kOfDocument) pdf.OnDocEvent(event.kind, tell(event));
  y = 96;
  book.Section(y, "Of this page");
  y += 8;
  for (const Event& event : {Event{"Open", "this page is shown"}, Event{"Close", "it is left"}})
    pdf.OnPageEvent(event.kind, tell(event));
  DrawTransitions(book, 126);
  book.Section(208, "Place holders", "room that is filled when the document ends");
  book.Caption(kLeft, 216, "pages of this document");
  book.Ink();
  pdf.DrawPlaceHolder("#PAGES", kLeft + 62, 216, 30);
  book.Caption(kLeft, 222, "where this page stands");
  book.Ink();
  pdf.DrawPlaceHolder("#PAGE", kLeft + 62, 222, 30);
  book.Caption(kLeft, 228, "a text that was set after this page");
  book.Ink(9.5, 1);
  pdf.DrawPlaceHolder("Late", kLeft + 62, 228, 100);
  pdf.EndPage();
  pdf.SetPlaceHolder("Late", "set when the page was already on the disk");
}

}  // namespace lm::sample
