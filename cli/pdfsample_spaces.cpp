// Spaces, axes and objects.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

void DrawCard(clsPDFCreator& pdf) {
  pdf.SetLineWidth(0.3);
  pdf.DrawRect(0, 0, 26, 13, 4, 255, 2);
  pdf.SetFont("Arial", 10, 1);
  pdf.DrawText(13, 8, "Space", 4);
}

void DrawBeginSpace(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Spaces",
               "have an origin, a scale and an angle, and give everything back at their end");
  struct Case {
    double scaleX, scaleY, angle;
    const char* caption;
  };
  constexpr std::array<Case, 4> kCases{{{1, 1, 0, "moved only"},
                                        {0.7, 1.5, 0, "0.7 wide, 1.5 high"},
                                        {1, 1, 20, "turned by 20 degrees"},
                                        {-1, 1, 0, "mirrored: -1 wide"}}};
  for (int i = 0; i < 4; ++i) {
    const Case& one = kCases[static_cast<std::size_t>(i)];
    const Column column = ColumnOf(4, i);
    const double x = column.x + (one.scaleX < 0 ? 32 : 6), top = y + 9;
    pdf.BeginSpace(x, top, one.scaleX, one.scaleY, one.angle);
    DrawCard(pdf);
    pdf.EndSpace();
    pdf.SetColorFill(kWarm);
    pdf.DrawCircle(x, top, 0.9, 5);
    book.Outline();
    book.Caption(column.x, y + 35, one.caption);
  }
}

void DrawAxes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Axes", "the same, one matrix at a time");
  constexpr std::array<const char*, 4> kNames{"AxisTranslation(8, 5)", "AxisScaling(1.3, 0.7)",
                                              "AxisRotation(-15)", "AxisSkewing(0, -0.4)"};
  for (int i = 0; i < 4; ++i) {
    const Column column = ColumnOf(4, i);
    pdf.BeginSpace(column.x, y + 13);
    pdf.SetColorLine(kRule);
    pdf.SetDash("1;1");
    pdf.DrawRect(0, 0, 26, 13, 0, 255, 2);
    pdf.SetDash("SOLID");
    if (i == 0) pdf.AxisTranslation(8, 5);
    if (i == 1) pdf.AxisScaling(1.3, 0.7);
    if (i == 2) pdf.AxisRotation(-15);
    if (i == 3) pdf.AxisSkewing(0, -0.4);
    pdf.SetColorLine(kAccent);
    DrawCard(pdf);
    pdf.EndSpace();
    book.Caption(column.x, y + 38, kNames[static_cast<std::size_t>(i)]);
  }
}

void DrawNestedSpaces(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  const Column left = ColumnOf(2, 0);
  book.Section(y, "Spaces in spaces", "thirty of them, each 0.9 of the last");
  constexpr int kDepth = 30;
  pdf.BeginSpace(left.x + left.width / 2, y + 42);
  pdf.SetColorLine("WHITE");
  for (int i = 0; i < kDepth; ++i) {
    const double share = static_cast<double>(i) / kDepth;
    pdf.SetColorFill("#" + Number(0.12 + 0.65 * share, 3) + " " + Number(0.38 - 0.04 * share, 3) +
                     " " + Number(0.63 - 0.46 * share, 3));
    pdf.DrawRect(-26, -26, 52, 52, 4);
    pdf.BeginSpace(0, 0, 0.9, 0.9, 7);
  }
  for (int i = 0; i < kDepth; ++i) pdf.EndSpace();
  pdf.EndSpace();
  book.Outline();
}

void DrawObjects(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  const Column right = ColumnOf(2, 1);
  book.Section(y, "Objects", "drawn once, used again, one inside the other", right.x);
  // An object ends at its left and upper edge, so a flower grows around a place inside.
  constexpr double kMiddle = 12, kHalfPetal = 2.2;
  pdf.BeginObject("Flower");
  for (int i = 0; i < 8; ++i) {
    pdf.BeginSpace(kMiddle, kMiddle, 1, 1, 45.0 * i);
    pdf.AxisTranslation(1, -kHalfPetal);
    pdf.DrawObject("Petal");  // comes later
    pdf.EndSpace();
  }
  pdf.SetColorFill("GOLD");
  pdf.DrawCircle(kMiddle, kMiddle, 2.2, 5);
  pdf.EndObject();
  pdf.BeginObject("Petal");
  pdf.SetColorFill("#D9825B");
  pdf.SetColorLine("WHITE");
  pdf.SetLineWidth(0.2);
  pdf.DrawEllipse(5, kHalfPetal, 4.8, 2, 4);
  pdf.EndObject();
  struct Place {
    double x, y, scale;
  };
  for (const Place& place : {Place{22, 28, 2},
                             {58, 20, 1.1},
                             {52, 48, 1.5},
                             {24, 60, 0.9},
                             {72, 38, 0.6},
                             {70, 62, 0.8},
                             {42, 64, 0.5}}) {
    pdf.BeginSpace(right.x + place.x - kMiddle * place.scale, y + place.y - kMiddle * place.scale,
                   place.scale, place.scale);
    pdf.DrawObject("Flower");
    pdf.EndSpace();
  }
  book.Outline();
}

}  // namespace

void DrawSpacePage(Book& book) {
  book.Page("Spaces and objects", "Move, scale, turn, skew, mirror; draw once and use again");
  DrawBeginSpace(book, kTop);
  DrawAxes(book, 88);
  DrawNestedSpaces(book, 138);
  DrawObjects(book, 138);
  book.Section(224, "Objects of pages");
  book.Paragraph(
      {kLeft, kWidth}, 228,
      "An object can also place itself: the ground of the cover was asked for on the "
      "first page, the tab at the outer edge is one object for odd pages and another for "
      "even ones, and the name of this book at the foot is drawn on all pages, at their "
      "end. None of them was drawn by hand.");
  book.pdf.EndPage();
}

}  // namespace lm::sample
