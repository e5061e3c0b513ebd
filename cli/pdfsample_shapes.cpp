// Shapes, lines and curves.
#include <array>
#include <cmath>
#include <numbers>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

// The corners of a star as "x;y;...": every second one of five, so that its lines cross.
std::string Star(double x, double y, double radius) {
  std::string points;
  for (int i = 0; i < 5; ++i) {
    const double angle = 2 * std::numbers::pi * (2 * i) / 5 - std::numbers::pi / 2;
    points += (i == 0 ? "" : ";") + Number(x + radius * std::cos(angle), 3) + ";" +
              Number(y + radius * std::sin(angle), 3);
  }
  return points;
}

void DrawPaintModes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Paint modes", "bits: 1 no line, 2 close, 4 fill; shown by an open path");
  constexpr std::array<const char*, 7> kNames{"0 line",     "1 nothing",       "2 close, line",
                                              "3 close",    "4 fill and line", "5 fill",
                                              "6 all three"};
  for (int mode = 0; mode < 7; ++mode) {
    const Column column = ColumnOf(7, mode);
    pdf.SetLineWidth(0.6);
    pdf.SetColorFill("#9DBEDD");
    pdf.DrawPolyline(Star(column.x + column.width / 2, y + 15, 9), mode);
    book.Caption(column.x + column.width / 2, y + 29, kNames[static_cast<std::size_t>(mode)], 4);
  }
  book.Outline();
}

void DrawRectangles(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Sides", "1 top, 2 right, 4 bottom, 8 left");
  constexpr std::array<int, 6> kSides{1, 2, 4, 8, 1 + 4, 15};
  constexpr std::array<int, 6> kCorners{16, 32, 64, 128, 16 + 64, 240};
  for (int i = 0; i < 6; ++i) {
    const Column column = ColumnOf(6, i);
    const int sides = kSides[static_cast<std::size_t>(i)];
    const int corners = kCorners[static_cast<std::size_t>(i)];
    pdf.SetLineWidth(0.8);
    pdf.DrawRect(column.x, y + kBelowSection, column.width, 14, 0, sides);
    book.Caption(column.x, y + 24, Number(sides));
    pdf.DrawRect(column.x, y + 38, column.width, 14, 4, 15 + corners, 5);
    book.Caption(column.x, y + 57, Number(corners));
  }
  book.Section(y + 33, "Corners", "16 top left, 32 top right, 64 bottom right, 128 bottom left");
  book.Outline();
}

void DrawClipping(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Clipping", "bit 128: what follows is seen within the shape only");
  for (int i = 0; i < 4; ++i) {
    const Column column = ColumnOf(4, i);
    const double x = column.x + column.width / 2;
    pdf.BeginSpace(x, y + 21);
    constexpr int kClip = 128 + 1;
    if (i == 0) pdf.DrawCircle(0, 0, 15, kClip);
    if (i == 1) pdf.DrawRect(-17, -15, 34, 30, kClip, 15 + 240, 8);
    if (i == 2) pdf.DrawPolygon(Star(0, 1, 17), kClip);
    if (i == 3) pdf.DrawArc(0, 0, 16, 16, 40, 320, kClip, true);
    for (int ring = 12; ring > 0; --ring) {
      pdf.SetColorFill(ring % 2 == 0 ? kLight : ring % 3 == 0 ? kWarm : kAccent);
      pdf.DrawCircle(-6, 4, 2.4 * ring, 5);
    }
    pdf.EndSpace();
    constexpr std::array<const char*, 4> kNames{"circle", "rounded rectangle", "star", "pie"};
    book.Caption(x, y + 42, kNames[static_cast<std::size_t>(i)], 4);
  }
  book.Outline();
}

void DrawShapes(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Shapes", "Rectangles, circles, polygons: how they are painted, and what they cut out");
  DrawPaintModes(book, kTop);
  DrawRectangles(book, 82);
  book.Section(150, "Round and straight");
  const double y = 168;
  pdf.DrawCircle(ColumnOf(4, 0).x + 19, y, 13, 4);
  pdf.DrawEllipse(ColumnOf(4, 1).x + 19, y, 19, 9, 4);
  std::string hexagon, chart;
  for (int i = 0; i < 6; ++i)
    hexagon += (i == 0 ? "" : ";") +
               Number(ColumnOf(4, 2).x + 19 + 14 * std::cos(i * std::numbers::pi / 3), 3) + ";" +
               Number(y + 14 * std::sin(i * std::numbers::pi / 3), 3);
  constexpr std::array<int, 8> kHeights{4, 9, 7, 15, 11, 19, 16, 24};
  for (std::size_t i = 0; i < kHeights.size(); ++i)
    chart += (i == 0 ? "" : ";") + Number(ColumnOf(4, 3).x + 5.4 * static_cast<double>(i), 2) +
             ";" + Number(y + 12 - kHeights[i], 2);
  pdf.DrawPolygon(hexagon, 6);
  pdf.DrawPolyline(chart);
  int column = 0;
  for (const char* name : {"DrawCircle", "DrawEllipse", "DrawPolygon", "DrawPolyline"})
    book.Caption(ColumnOf(4, column++).x + 19, y + 19, name, 4);
  DrawClipping(book, 202);
  pdf.EndPage();
}

void DrawDashes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Dashes", "by name, in multiples of the line width, or by lengths");
  const Column left = ColumnOf(2, 0);
  double line = y + 7;
  for (const char* dash : {"SOLID", "DASH", "DOT", "DASHDOT", "DASHDOTDOT", "6;1.5;1;1.5"}) {
    pdf.SetDash(dash);
    pdf.DrawLine(left.x + 27, line, left.x + left.width, line, 0.5);
    pdf.SetDash("SOLID");
    book.Caption(left.x, line + 0.9, dash);
    line += 6;
  }
  const Column right = ColumnOf(2, 1);
  line = y + 7;
  for (const double width : {0.1, 0.25, 0.5, 1.0, 2.0}) {
    pdf.SetDash("5;3", width);
    pdf.DrawLine(right.x + 27, line, right.x + right.width, line, width);
    pdf.SetDash("SOLID");
    book.Caption(right.x, line + 0.9, Number(width, 2) + " mm wide");
    line += 7.5;
  }
  book.Outline();
}

void DrawEnds(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Ends and corners", "of thick lines; the thin line is what was asked for");
  constexpr std::array<const char*, 6> kNames{"cap 0 butt",    "cap 1 round",    "cap 2 square",
                                              "join 0 mitred", "join 1 rounded", "join 2 bevelled"};
  for (int i = 0; i < 6; ++i) {
    const Column column = ColumnOf(6, i);
    const bool cap = i < 3;
    const double x = column.x + 3, end = column.x + column.width - 3;
    const std::string path = cap ? Number(x, 2) + ";" + Number(y + 13, 2) + ";" + Number(end, 2) +
                                       ";" + Number(y + 13, 2)
                                 : Number(x, 2) + ";" + Number(y + 19, 2) + ";" +
                                       Number((x + end) / 2, 2) + ";" + Number(y + 9, 2) + ";" +
                                       Number(end, 2) + ";" + Number(y + 19, 2);
    pdf.SetLineStyle(cap ? i : 0, cap ? 0 : i - 3, 10);
    pdf.SetLineWidth(5);
    pdf.SetColorLine("#9DBEDD");
    pdf.DrawPolyline(path);
    pdf.SetLineStyle(0, 0, 10);
    pdf.SetLineWidth(0.2);
    pdf.SetColorLine(kInk);
    pdf.DrawPolyline(path);
    book.Caption(column.x, y + 28, kNames[static_cast<std::size_t>(i)]);
  }
  book.Outline();
}

void DrawCurves(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Curves", "from the cursor, by two control points, or one");
  constexpr std::array<const char*, 3> kNames{"form 0: two control points",
                                              "form 1: the beginning is the first",
                                              "form 2: the end is the second"};
  for (int form = 0; form < 3; ++form) {
    const Column column = ColumnOf(3, form);
    const double x1 = column.x, y1 = y + 30, x2 = column.x + 12, y2 = y + 6, x3 = column.x + 40,
                 y3 = y + 38, x4 = column.x + column.width, y4 = y + 12;
    pdf.SetColorLine(kRule);
    if (form != 1) pdf.DrawLine(x1, y1, x2, y2, 0.2);
    if (form != 2) pdf.DrawLine(x4, y4, x3, y3, 0.2);
    pdf.SetColorLine(kAccent);
    pdf.SetLineWidth(0.8);
    pdf.MoveTo(x1, y1);
    pdf.DrawCurve(x2, y2, x3, y3, x4, y4, form);
    pdf.SetColorFill(kWarm);
    if (form != 1) pdf.DrawCircle(x2, y2, 0.9, 5);
    if (form != 2) pdf.DrawCircle(x3, y3, 0.9, 5);
    book.Caption(column.x, y + 45, kNames[static_cast<std::size_t>(form)]);
  }
  book.Outline();
}

void DrawArcs(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Arcs", "counter-clockwise from three o'clock; a pie is joined with its centre");
  const auto centre = [](int i) { return ColumnOf(4, i).x + ColumnOf(4, i).width / 2; };
  pdf.SetLineWidth(0.8);
  pdf.DrawArc(centre(0), y + 20, 14, 14, 0, 135);
  pdf.DrawArc(centre(1), y + 20, 18, 10, 30, 330);
  pdf.SetLineWidth(0.4);
  pdf.DrawArc(centre(2), y + 20, 14, 14, 20, 290, 4, true);
  double angle = 90;
  const std::array<std::pair<double, std::string_view>, 4> slices{
      {{150, kAccent}, {95, "#6E9CC8"}, {70, kWarm}, {45, "#E3B48F"}}};
  pdf.SetColorLine("WHITE");
  for (const auto& [share, colour] : slices) {
    pdf.SetColorFill(colour);
    pdf.DrawArc(centre(3), y + 20, 15, 15, angle, angle + share, 4, true);
    angle += share;
  }
  constexpr std::array<const char*, 4> kNames{"0 to 135", "30 to 330 of an ellipse",
                                              "20 to 290, a pie", "four pies"};
  for (int i = 0; i < 4; ++i)
    book.Caption(centre(i), y + 41, kNames[static_cast<std::size_t>(i)], 4);
  book.Outline();
}

void DrawLinesAndCurves(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Lines and curves",
            "Dashes, widths, ends, curves, arcs, and lines from point to point");
  DrawDashes(book, kTop);
  DrawEnds(book, 92);
  DrawCurves(book, 132);
  DrawArcs(book, 188);
  book.Section(240, "From point to point", "each line begins where the last one ended");
  pdf.SetLineWidth(0.4);
  const double middle = 260;
  pdf.MoveTo(kLeft, middle);
  for (int i = 1; i <= 170; ++i) {
    const double swing = 13 * std::sin(i * 0.37) * std::cos((i - 85) * std::numbers::pi / 170);
    pdf.DrawLineTo(kLeft + i, middle - swing);
  }
  pdf.EndPage();
}

}  // namespace

void DrawShapePages(Book& book) {
  book.Chapter("Drawing");
  DrawShapes(book);
  DrawLinesAndCurves(book);
}

}  // namespace lm::sample
