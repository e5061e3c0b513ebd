// Pictures, drawings and bar codes.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

void DrawFormats(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Formats", "one evening at the sea in five files");
  constexpr std::array<std::pair<const char*, const char*>, 5> kFormats{
      {{"png", "PNG: its packed rows, taken as they are"},
       {"jpg", "JPEG: the file, taken as it is"},
       {"gif", "GIF: a palette and indices"},
       {"bmp", "BMP: rows from the bottom"},
       {"tga", "TGA: rows from the top"}}};
  const Column first = ColumnOf(3, 0);
  const double height = first.width * kSceneHeight / kSceneWidth;
  for (int i = 0; i < 6; ++i) {
    const Column column = ColumnOf(3, i % 3);
    const double top = y + kBelowSection + (height + 9) * (i / 3);
    if (i < 5) {
      const auto& [extension, caption] = kFormats[static_cast<std::size_t>(i)];
      pdf.DrawImage(book.files.Scene(extension), column.x, top, column.width, height);
      book.Caption(column.x, top + height + 4, caption);
      continue;
    }
    const std::string name = pdf.AddImage(book.files.Scene("png"));
    for (int k = 0; k < 4; ++k) {
      const double half = (column.width - 2) / 2;
      pdf.DrawImage(name, column.x + (half + 2) * (k % 2), top + (height / 2 + 1) * (k / 2), half,
                    height / 2 - 1);
    }
    book.Caption(column.x, top + height + 4, "four times, by the name that AddImage gave");
  }
}

void DrawPictureSizes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Sizes", "the frame is a box that was asked for");
  struct Case {
    double x, width, height;
    const char* caption;
  };
  for (const Case& one : {Case{0, 38, 32, "the box filled"},
                          {46, 30, 0, "by its width alone"},
                          {84, 0, 26, "by its height alone"},
                          {kWidth - 42.3, 0, 0, "its pixels at 72 to the inch"}}) {
    const double x = kLeft + one.x;
    pdf.DrawImage(book.files.Scene("png"), x, y + kBelowSection, one.width, one.height);
    pdf.SetColorLine(kWarm);
    if (one.height > 0 && one.width > 0) pdf.DrawRect(x, y + kBelowSection, one.width, one.height);
    book.Caption(x, y + 41.5, one.caption);
  }
  book.Outline();
}

void DrawMasks(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Transparent grounds and pictures");
  const std::string emblem = book.files.Path("emblem.bmp");
  for (int i = 0; i < 7; ++i) {
    const double x = kLeft + 24.6 * i, side = 22;
    pdf.SetColorFill("#DCE6F0");
    for (int stripe = 0; stripe < 4; ++stripe)
      pdf.DrawRect(x, y + kBelowSection + 6 * stripe, side, 3, 5);
    const double top = y + kBelowSection;
    if (i == 0) pdf.DrawImage(emblem, x, top, side, side);
    if (i == 1) pdf.DrawImage(emblem, x, top, side, side, 0, kEmblemGround);
    if (i == 2) pdf.DrawImage(book.files.Path("emblem.gif"), x, top, side, side);
    if (i >= 3) pdf.DrawImage(emblem, x, top, side, side, 0, kEmblemGround, 25.0 * (i - 3));
    constexpr std::array<const char*, 7> kNames{"as it is",  "ground masked", "a GIF's own",
                                                "0 percent", "25 percent",    "50 percent",
                                                "75 percent"};
    book.Caption(x, top + side + 4, kNames[static_cast<std::size_t>(i)]);
  }
  book.Outline();
}

void DrawPictures(Book& book) {
  book.Page("Pictures", "Read once, written once, drawn as often as one likes");
  DrawFormats(book, kTop);
  DrawPictureSizes(book, 144);
  DrawMasks(book, 198);
  book.pdf.EndPage();
}

void DrawVectors(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  const Column left = ColumnOf(2, 0), right = ColumnOf(2, 1);
  book.Section(y, "EPS", "with inks, curves and dashes", left.x);
  book.Section(y, "WMF", "with pens and brushes", right.x);
  const double height = left.width * 2 / 3;
  const std::string boat = book.files.Path("boat.eps"), chart = book.files.Path("chart.wmf");
  pdf.DrawImage(boat, left.x, y + kBelowSection, left.width, 0);
  pdf.DrawImage(chart, right.x, y + kBelowSection, right.width, 0);
  const double below = y + kBelowSection + height + 5;
  for (const auto& [file, column] : {std::pair{boat, left}, {chart, right}}) {
    pdf.DrawImage(file, column.x, below, 32, 14);
    pdf.DrawImage(file, column.x + 37, below, 0, 14);
    pdf.DrawImage(file, column.x + 61, below, 0, 14, 0, -1, 60);
    book.Caption(column.x, below + 18, "a box filled");
    book.Caption(column.x + 37, below + 18, "its height alone");
    book.Caption(column.x + 61, below + 18, "60% transparent");
  }
}

void DrawBarCodes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Bar codes", "with their check digits, and the text below when it is wanted");
  constexpr std::array<std::pair<const char*, const char*>, 6> kCodes{
      {{"Code 128", "LM-2026/00017"},
       {"Code 39", "LEDGER 26"},
       {"EAN-13", "501234567890"},
       {"EAN-8", "9638507"},
       {"Interleaved 2 of 5", "12345678"},
       {"Standard 2 of 5, without text", "1234567"}}};
  for (int kind = 0; kind < 6; ++kind) {
    const Column column = ColumnOf(3, kind % 3);
    const double top = y + 8 + 52.0 * (kind / 3);
    const auto& [name, code] = kCodes[static_cast<std::size_t>(kind)];
    book.Ink();
    pdf.SetColorText("BLACK");
    pdf.DrawBarCode(kind, code, column.x, top, column.width, 32, kind < 5);
    book.Caption(column.x, top + 37.5, name);
  }
}

void DrawDrawings(Book& book) {
  book.Page("Drawings and bar codes", "Vector files as drawing operators; six symbologies");
  DrawVectors(book, kTop);
  DrawBarCodes(book, 144);
  book.pdf.EndPage();
}

}  // namespace

void DrawPicturePages(Book& book) {
  book.Chapter("Pictures");
  DrawPictures(book);
  DrawDrawings(book);
}

}  // namespace lm::sample
