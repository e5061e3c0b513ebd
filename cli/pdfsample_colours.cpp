// Colours, gradients, patterns and transparency.
#include <array>
#include <utility>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

void DrawNotations(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Notations", "one colour in all of them, and a gray in two");
  constexpr std::array<const char*, 8> kNotations{
      "33023", "#FF8000", "#1 0.502 0", "@255;128;0", "@0;0.5;1;0", "ORANGE", "@0.6", "%0.6"};
  constexpr std::array<const char*, 8> kNames{"a number: B G R", "hexadecimal", "red green blue",
                                              "bytes",           "C;M;Y;K",     "a name",
                                              "one value",       "gray"};
  for (int i = 0; i < 8; ++i) {
    const Column column = ColumnOf(8, i);
    const char* notation = kNotations[static_cast<std::size_t>(i)];
    pdf.SetColorFill(notation);
    pdf.DrawRect(column.x, y + kBelowSection, column.width, 14, 5);
    book.Text(column.x, y + 23.5, notation, 7.5);
    book.Caption(column.x, y + 27.5, kNames[static_cast<std::size_t>(i)]);
  }
}

void DrawRamps(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Inks and gray", "in steps of ten percent");
  constexpr std::array<const char*, 5> kNames{"cyan", "magenta", "yellow", "black", "gray"};
  for (int row = 0; row < 5; ++row) {
    const double top = y + kBelowSection + 9 * row;
    book.Caption(kLeft, top + 5, kNames[static_cast<std::size_t>(row)]);
    for (int step = 0; step <= 10; ++step) {
      const std::string share = Number(step / 10.0, 1);
      std::string colour = "%" + share;
      if (row < 4) {
        std::array<std::string, 4> inks{"0", "0", "0", "0"};
        inks[static_cast<std::size_t>(row)] = share;
        colour = "@" + inks[0] + ";" + inks[1] + ";" + inks[2] + ";" + inks[3];
      }
      pdf.SetColorFill(colour);
      pdf.SetColorLine(kRule);
      pdf.SetLineWidth(0.1);
      pdf.DrawRect(kLeft + 16 + 14 * step, top, 14, 7.5, 4);
    }
  }
  book.Outline();
}

void DrawColours(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Colours", "By name, by number, in RGB, CMYK and gray");
  book.Section(kTop, "Names");
  constexpr std::array<const char*, 35> kNames{
      "BLACK",  "GRAY",      "DARKGRAY", "SILVER",     "WHITE",  "IVORY",     "BEIGE",
      "MAROON", "BROWN",     "RED",      "TOMATO",     "ORANGE", "GOLD",      "YELLOW",
      "OLIVE",  "GREEN",     "LIME",     "LIGHTGREEN", "TEAL",   "DARKCYAN",  "CYAN",
      "AQUA",   "LIGHTCYAN", "AZURE",    "LIGHTBLUE",  "BLUE",   "DARKBLUE",  "NAVY",
      "PURPLE", "VIOLET",    "FUCHSIA",  "MAGENTA",    "PINK",   "LIGHTPINK", "LIGHTYELLOW"};
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const Column column = ColumnOf(7, static_cast<int>(i % 7));
    const double top = kTop + kBelowSection + 21 * static_cast<double>(i / 7);
    pdf.SetColorFill(kNames[i]);
    pdf.SetColorLine(kRule);
    pdf.SetLineWidth(0.1);
    pdf.DrawRect(column.x, top, column.width, 13, 4);
    book.Caption(column.x, top + 16.6, kNames[i]);
  }
  DrawNotations(book, 162);
  DrawRamps(book, 204);
  pdf.EndPage();
}

void DrawGradients(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Gradients", "along a line, or from circle to circle, placed on the page");
  const double top = y + kBelowSection, height = 28;
  const auto column = [](int i) { return ColumnOf(4, i); };
  const auto left = [&](int i) { return column(i).x; };
  const auto right = [&](int i) { return column(i).x + column(i).width; };
  const auto middle = [&](int i) { return column(i).x + column(i).width / 2; };
  const double second = top + height + 10, down = second + height / 2;
  pdf.AddGradient("Across", 0, "#FFFFFF", kAccent, left(0), top, right(0), top);
  pdf.AddGradient("Slant", 0, "GOLD", kWarm, left(1), top, right(1), top + height);
  pdf.AddGradient("Bent", 0, "#FFFFFF", kAccent, left(2), top, right(2), top, 0, 0, 4);
  pdf.AddGradient("Ended", 0, "GOLD", kWarm, left(3) + 10, top, right(3) - 10, top, 0, 0, 1, 1);
  pdf.AddGradient("Glow", 1, "#FFF4C0", kWarm, middle(0), down, middle(0), down, 0, 22);
  pdf.AddGradient("Ball", 1, "WHITE", kAccent, middle(1) - 4, down - 5, middle(1), down, 1, 14, 1,
                  1);
  pdf.AddGradient("Inks", 0, "@1;0;0;0", "@0;0;1;0", left(2), second, right(2), second);
  pdf.AddGradient("Grays", 0, "%1", "%0", left(3), second, right(3), second);
  constexpr std::array<std::pair<const char*, const char*>, 8> kAll{
      {{"Across", "along the page"},
       {"Slant", "from corner to corner"},
       {"Bent", "the same with exponent 4"},
       {"Ended", "extended at its beginning only"},
       {"Glow", "radial, one centre"},
       {"Ball", "radial, two centres: a ball"},
       {"Inks", "between two inks"},
       {"Grays", "between white and black"}}};
  for (int i = 0; i < 8; ++i) {
    const auto& [name, caption] = kAll[static_cast<std::size_t>(i)];
    const double here = i < 4 ? top : second;
    pdf.SetColorFill(name);
    pdf.DrawRect(left(i % 4), here, column(i % 4).width, height, 5);
    book.Caption(left(i % 4), here + height + 4.2, caption);
  }
}

// Scales of a fish, to be painted in any colour.
void DefineScales(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  pdf.BeginTiling("Scales", 6, 6, 0, 0, false);
  pdf.SetLineWidth(0.4);
  for (const auto& [x, y] : {std::pair{3.0, 0.0}, {0.0, 3.0}, {6.0, 3.0}})
    pdf.DrawArc(x, y, 3, 3, 180, 360);
  pdf.EndTiling();
}

void DrawPatterns(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Tiles", "drawn once, repeated over an area; tiles without colours take any");
  pdf.BeginTiling("Dots", 6, 6);
  pdf.SetColorFill(kLight);
  pdf.DrawRect(0, 0, 6, 6, 5);
  pdf.SetColorFill(kAccent);
  pdf.DrawCircle(1.5, 1.5, 1, 5);
  pdf.SetColorFill(kWarm);
  pdf.DrawCircle(4.5, 4.5, 1, 5);
  pdf.EndTiling();
  pdf.BeginTiling("Apart", 4, 4, 8, 6);
  pdf.SetColorFill(kWarm);
  pdf.DrawRect(0, 0, 4, 4, 5, 255, 1);
  pdf.EndTiling();
  DefineScales(book);
  pdf.AddImagePattern("Wall", book.files.Scene("png"), 18, 12);

  constexpr std::array<std::pair<const char*, const char*>, 6> kAll{
      {{"Dots", "coloured tiles"},
       {"Apart", "steps wider than the tile"},
       {"Scales", "uncoloured, in blue"},
       {"Scales", "the same in green"},
       {"Wall", "tiles of a picture"},
       {"Glow", "a gradient along a line"}}};
  for (int i = 0; i < 6; ++i) {
    const Column column = ColumnOf(3, i % 3);
    const double top = y + kBelowSection + 34.0 * (i / 3);
    pdf.SetColorFill(i == 3 ? "GREEN" : kAccent);
    pdf.SetColorFill(kAll[static_cast<std::size_t>(i)].first);
    if (i == 5) {
      pdf.AddGradient("Rim", 0, kAccent, "GOLD", column.x, top, column.x + column.width, top);
      pdf.SetColorLine("Rim");
      pdf.SetLineWidth(3);
      pdf.DrawRect(column.x + 1.5, top + 1.5, column.width - 3, 21, 0, 255, 8);
    } else {
      pdf.DrawRect(column.x, top, column.width, 24, 5);
    }
    book.Caption(column.x, top + 28.2, kAll[static_cast<std::size_t>(i)].second);
  }
  book.Outline();
}

void DrawGradientsAndPatterns(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Gradients and patterns",
            "Colours with a name of their own, for areas, lines and letters");
  DrawGradients(book, kTop);
  DrawPatterns(book, 131);
  book.Section(216, "Letters", "are painted by patterns as well");
  pdf.AddGradient("Letters", 0, kAccent, kWarm, kLeft, 240, kRight, 240);
  pdf.SetFont("Arial", 76, 1);
  pdf.SetColorText("Letters");
  pdf.DrawText(kLeft, 250, "Picture book");
  book.Ink();
  pdf.EndPage();
}

void DrawAlphas(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Opacity", "of fills and lines together, of fills, of lines; in percent");
  enum { kBoth, kFill, kLine };
  for (int row = kBoth; row <= kLine; ++row) {
    const double middle = y + 15 + 24.0 * row;
    pdf.SetColorLine(kRule);
    pdf.DrawLine(kLeft + 22, middle, kRight, middle, 3);
    for (int i = 0; i < 5; ++i) {
      const double percent = 20.0 * (i + 1), x = kLeft + 40 + 30.0 * i;
      pdf.BeginSpace(0, 0);
      if (row == kBoth) pdf.SetAlpha(percent);
      if (row == kFill) pdf.SetAlphaFill(percent);
      if (row == kLine) pdf.SetAlphaLine(percent);
      pdf.SetColorFill("#6E9CC8");
      pdf.SetColorLine(kWarm);
      pdf.SetLineWidth(2);
      pdf.DrawCircle(x, middle, 9, 4);
      pdf.EndSpace();
      if (row == kLine) book.Caption(x, middle + 15, Number(percent) + "%", 4);
    }
    constexpr std::array<const char*, 3> kNames{"both", "fill", "line"};
    book.Caption(kLeft, middle + 1, kNames[static_cast<std::size_t>(row)]);
  }
  book.Outline();
}

void DrawBlends(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Blending", "of the disc with what lies below it");
  constexpr std::array<const char*, 16> kModes{
      "Normal",     "Multiply",   "Screen",    "Overlay",   "Darken",     "Lighten",
      "ColorDodge", "ColorBurn",  "HardLight", "SoftLight", "Difference", "Exclusion",
      "Hue",        "Saturation", "Color",     "Luminosity"};
  for (int i = 0; i < 16; ++i) {
    const Column column = ColumnOf(4, i % 4);
    const double top = y + kBelowSection + 35.0 * (i / 4), half = column.width / 2;
    const std::string under = "Under" + std::to_string(i);
    pdf.AddGradient(under, 0, "GOLD", kAccent, 0, top, 0, top + 26);
    pdf.BeginSpace(0, 0);
    pdf.DrawImage(book.files.Scene("png"), column.x, top, half, 26);
    pdf.SetColorFill(under);
    pdf.DrawRect(column.x + half, top, half, 26, 5);
    pdf.SetBlend(kModes[static_cast<std::size_t>(i)]);
    pdf.SetColorFill("TEAL");
    pdf.DrawCircle(column.x + half, top + 13, 10, 5);
    pdf.EndSpace();
    book.Caption(column.x, top + 30, kModes[static_cast<std::size_t>(i)]);
  }
}

void DrawTransparency(Book& book) {
  book.Page("Transparency", "Opacity and blend modes, each written into the file once");
  DrawAlphas(book, kTop);
  DrawBlends(book, 129);
  book.pdf.EndPage();
}

}  // namespace

void DrawColourPages(Book& book) {
  DrawColours(book);
  DrawGradientsAndPatterns(book);
  DrawTransparency(book);
}

}  // namespace lm::sample
