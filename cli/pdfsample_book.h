// The grid, the letters and the colours that all pages of the picture book share. All lengths are
// millimetres.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/pdfsample_files.h"
#include "cli/pdfsample_fonts.h"
#include "pdf/clsPDFCreator.h"

namespace lm::sample {

constexpr double kLeft = 20, kRight = 190, kWidth = kRight - kLeft, kGutter = 6;
constexpr double kTop = 42, kFooter = 282;

constexpr std::string_view kInk = "#1F2A37", kGray = "#6B7280", kAccent = "#2060A0",
                           kWarm = "#C4562B", kLight = "#E8EFF6", kRule = "#C3CCD6";

// Left edge and width of `span` of `count` equal columns, counted from 0.
struct Column {
  double x, width;
};
constexpr Column ColumnOf(int count, int index, int span = 1) {
  const double step = (kWidth + kGutter) / count;
  return {kLeft + step * index, step * span - kGutter};
}

class Book {
 public:
  Book(clsPDFCreator& creator, ClockPort& clockPort, const SampleFiles& sampleFiles,
       const FontFiles& fontFiles)
      : pdf(creator), clock(clockPort), files(sampleFiles), fonts(fontFiles) {}

  clsPDFCreator& pdf;
  ClockPort& clock;
  const SampleFiles& files;
  const FontFiles& fonts;

  struct Entry {
    std::string title;
    int page;  // 0: a chapter, which has no page of its own
  };
  const std::vector<Entry>& Entries() const { return entries_; }

  void Chapter(std::string_view title);
  // Begins a page with its heading, and enters it into the outline and the table of contents.
  void Page(std::string_view title, std::string_view what);
  // Heading and page number of the open page.
  void Furnish(std::string_view title, std::string_view what);
  // A heading within the page; y is its baseline, contents begin kBelowSection below.
  void Section(double y, std::string_view title, std::string_view explanation = "",
               double x = kLeft);

  void Caption(double x, double y, std::string_view text, int flags = 0);
  void Text(double x, double y, std::string_view text, double size = 9.5, int style = 0);
  void Link(double x, double y, std::string_view text, std::string_view target);
  // Small text wrapped into a column; returns the y below it.
  double Paragraph(Column column, double y, std::string_view text, double size = 9);

  void Ink(double size = 9.5, int style = 0);  // Arial in the colour of text
  void Outline(double width = 0.3);            // lines in accent, light fill

 private:
  std::vector<Entry> entries_;
  int chapter_ = 0;  // bookmark
  int transition_ = 0;
  bool chapterBegins_ = false;
  std::string chapterTitle_;
};

constexpr double kBelowSection = 5;

std::string Number(double value, int decimals = 0);

// The chapters, page by page.
void DrawFontPages(Book& book);
void DrawTextPages(Book& book);
void DrawTablePages(Book& book);
void DrawShapePages(Book& book);
void DrawColourPages(Book& book);
void DrawSpacePage(Book& book);
void DrawPicturePages(Book& book);
void DrawImportPage(Book& book);
void DrawInteractivePages(Book& book);
void DrawFieldPage(Book& book);
void DrawLayerPage(Book& book);
void DrawEventPage(Book& book);
void DrawPaperPages(Book& book);

}  // namespace lm::sample
