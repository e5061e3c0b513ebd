// Paper sizes, precision, margins, and pages that change their place.
#include <array>
#include <cmath>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

constexpr double kMillimetre = 72 / 25.4;  // points

// Papers inside each other, at a scale.
void DrawPapers(Book& book, double x, double y, double scale,
                std::initializer_list<std::pair<int, const char*>> papers) {
  clsPDFCreator& pdf = book.pdf;
  clsPDFCreator probe(book.clock);
  for (const auto& [code, name] : papers) {
    probe.SetPaperSize(code);
    const double width = probe.GetPageWidth(false) / kMillimetre * scale;
    const double height = probe.GetPageHeight(false) / kMillimetre * scale;
    pdf.SetColorFill("WHITE");
    pdf.DrawRect(x, y, width, height, 4);
    book.Caption(x + width - 1, y + height - 1.2, name, 2);
    book.Outline(0.2);
  }
}

void DrawPrecision(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Precision",
               "decimals of written numbers; a small wheel, seen eight times as large");
  for (int decimals = 0; decimals < 4; ++decimals) {
    const Column column = ColumnOf(4, decimals);
    pdf.BeginSpace(column.x + column.width / 2, y + 24, 8, 8);
    pdf.SetPrecision(decimals);
    std::string wheel;
    for (int i = 0; i < 48; ++i) {
      const double angle = i * 2 * std::acos(-1.0) / 48, radius = i % 4 < 2 ? 2.1 : 1.7;
      wheel += (i == 0 ? "" : ";") + Number(radius * std::cos(angle), 4) + ";" +
               Number(radius * std::sin(angle), 4);
    }
    pdf.SetLineWidth(0.05);
    pdf.DrawPolygon(wheel, 6);
    pdf.DrawCircle(0, 0, 0.8, 4);
    pdf.SetPrecision(3);
    pdf.EndSpace();
    book.Caption(column.x + column.width / 2, y + 47,
                 Number(decimals) + (decimals == 1 ? " decimal" : " decimals"), 4);
  }
  book.Outline();
}

void DrawPaper(Book& book) {
  book.Page("Paper and precision", "Sizes by number, or any size; what rounding does");
  const Column left = ColumnOf(2, 0), right = ColumnOf(2, 1);
  book.Section(kTop, "A sizes", "at 9 percent; odd numbers lie on their side", left.x);
  DrawPapers(book, left.x, kTop + kBelowSection, 0.09,
             {{-8, "-8  A0"}, {-6, "-6  A1"}, {-4, "-4  A2"}, {-2, "-2  A3"}, {0, "0  A4"}});
  book.Section(kTop, "Smaller and American sizes", "at 15 percent", right.x);
  DrawPapers(book, right.x, kTop + kBelowSection, 0.15,
             {{0, "0  A4"}, {2, "2  A5"}, {4, "4  A6"}, {6, "6  A7"}});
  DrawPapers(book, right.x + 40, kTop + kBelowSection, 0.15,
             {{10, "10  11 x 17"}, {12, "12  Legal"}, {8, "8  Letter"}, {14, "14  Half"}});
  DrawPapers(book, right.x, kTop + kBelowSection + 52, 0.15, {{16, "16  Executive"}});
  DrawPrecision(book, 166);
  book.Section(230, "Labels", "what viewers call the pages of this book, one kind after the other");
  constexpr std::array<std::pair<const char*, const char*>, 7> kLabels{
      {{"Cover", "0 the prefix alone"},
       {"2 to 23", "1 figures"},
       {"A-1, A-2", "1 behind a prefix"},
       {"Swap i, ii", "3 small Roman"},
       {"A", "4 capitals"},
       {"I to III", "2 Roman"},
       {"a", "5 letters"}}};
  for (int i = 0; i < 7; ++i) {
    const auto& [label, kind] = kLabels[static_cast<std::size_t>(i)];
    const Column column = ColumnOf(7, i);
    book.Text(column.x, 239, label);
    book.Caption(column.x, 243.5, kind);
  }

  book.pdf.EndPage();
}

// A page of half the size, without an entry in the contents.
void BeginSmallPage(Book& book, const char* title, const char* what, int position = 0) {
  constexpr int kHalfAcross = 3;
  book.pdf.SetPaperSize(kHalfAcross);
  book.pdf.BeginPage(position);
  book.Furnish(title, what);
}

void Statement(Book& book, const char* text) {
  book.Ink(26, 1);
  book.pdf.SetColorText(kAccent);
  book.pdf.SetBoxStyle(1.1, 0, 0, 0, 0, 0);
  book.pdf.DrawTextBox(kLeft, 48, kWidth, 70, text, 4 + 32);
  book.pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
  book.Ink();
}

void DrawInsertedAndSwapped(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  BeginSmallPage(book, "Behind the inserted page", "It was written before the page before it");
  pdf.SetLabel(1, "A-", 2);
  Statement(book, "Written first, now the second.");
  const int here = pdf.GetPage();
  pdf.EndPage();
  BeginSmallPage(book, "An inserted page", "BeginPage with a position puts a page before another",
                 here);
  pdf.SetLabel(1, "A-", 1);
  Statement(book, "Written later, put before.");
  pdf.EndPage();

  BeginSmallPage(book, "Swapped, the second",
                 "SwapPages moved it behind; its tab is still that of an even page");
  Statement(book, "Written first, now behind.");
  pdf.SetLabel(3, "Swap ", 2);
  const int first = pdf.GetPage();
  pdf.EndPage();
  BeginSmallPage(book, "Swapped, the first",
                 "SwapPages moved it forward; its tab is still that of an odd page");
  Statement(book, "Written second, now in front.");
  pdf.SetLabel(3, "Swap ", 1);
  pdf.EndPage();
  pdf.SwapPages(first, first + 1);
}

void DrawClippedPage(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  constexpr double kMargin = 20, kHead = 24, kFoot = 24;
  pdf.SetPaperSize(3);
  pdf.SetMargins(kMargin, kMargin, kHead, kFoot, true);
  pdf.BeginPage();
  const double width = pdf.GetPageWidth(), height = pdf.GetPageHeight();
  pdf.SetColorLine("#9DBEDD");
  for (double x = -height; x < width; x += 7) pdf.DrawLine(x, height, x + height, 0, 2.5);
  pdf.SetFont("Arial", 120, 1);
  pdf.SetColorText(kAccent);
  pdf.DrawText(width / 2, height / 2 + 6, "CLIPPED", 4);
  pdf.SetLabel(4);
  const int page = pdf.GetPage();
  pdf.EndPage();
  pdf.SetMargins(kLeft, kLeft, kTop, 28);

  pdf.BeginOnPage(page);
  pdf.SetColorFill("WHITE");
  pdf.DrawRect(width / 2 - 55, height - 52, 110, 20, 5, 255, 3);
  book.Ink(11, 1);
  pdf.DrawText(width / 2, height - 43.5, "Margins that clip", 4);
  book.Caption(width / 2, height - 37.5,
               "The stripes run over the whole page. This box was added when it was written.", 4);
  pdf.EndOnPage();
}

void DrawTurnedPages(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  for (int view = 1; view <= 3; ++view) {
    pdf.SetPaperSize(5);
    pdf.SetPageView(view);
    pdf.BeginPage();
    if (view == 1) pdf.SetLabel(2);
    const double width = pdf.GetPageWidth(), middle = width / 2;
    pdf.SetColorFill("#9DBEDD");
    pdf.DrawPolygon(Number(middle, 1) + ";14;" + Number(middle + 16, 1) + ";34;" +
                        Number(middle - 16, 1) + ";34",
                    5);
    pdf.DrawRect(middle - 6, 34, 12, 20, 5);
    book.Ink(12, 1);
    pdf.DrawText(middle, 68, "Page view " + std::to_string(view), 4);
    book.Caption(middle, 74, "the arrow points to the page's upper edge", 4);
    pdf.EndPage();
  }
  pdf.SetPageView(0);
  pdf.SetPaperSize(255, 210, 60);
  pdf.BeginPage();
  pdf.SetLabel(5);
  pdf.SetColorFill(kLight);
  pdf.DrawRect(0, 0, 210, 60, 5);
  book.Ink(30, 1);
  pdf.DrawText(105, 34, "A page of 210 by 60 millimetres", 4);
  book.Caption(105, 42, "the last page of the picture book", 4);
  pdf.EndPage();
}

}  // namespace

void DrawPaperPages(Book& book) {
  book.Chapter("Pages");
  DrawPaper(book);
  DrawInsertedAndSwapped(book);
  DrawClippedPage(book);
  DrawTurnedPages(book);
}

}  // namespace lm::sample
