#include "cli/pdfsample_book.h"

#include <cstdio>

namespace lm::sample {

void Book::Chapter(std::string_view title) {
  chapterTitle_ = title;
  chapterBegins_ = true;
  entries_.push_back({chapterTitle_, 0});
}

void Book::Page(std::string_view title, std::string_view what) {
  constexpr int kTransitions = 28, kBold = 2;
  pdf.BeginPage();
  if (chapterBegins_)
    chapter_ = pdf.AddBookmark(chapterTitle_, 0, 0, "Fit", 0, 0, 0, kAccent, kBold);
  chapterBegins_ = false;
  pdf.AddBookmark(title, chapter_, 0, "XYZ", 0, 0);
  transition_ = transition_ % kTransitions + 1;
  pdf.SetPageTransition(transition_, 1);
  entries_.push_back({std::string(title), pdf.GetPage()});
  Furnish(title, what);
}

void Book::Furnish(std::string_view title, std::string_view what) {
  const double bottom = pdf.GetPageHeight();
  const double right = pdf.GetPageWidth() - kLeft;
  Ink(20, 1);
  pdf.DrawText(kLeft, 23, title);
  pdf.SetFont("Arial", 9.5);
  pdf.SetColorText(kGray);
  pdf.DrawText(kLeft, 29.5, what);
  pdf.SetColorLine(kAccent);
  pdf.DrawLine(kLeft, 33, right, 33, 0.35);
  pdf.SetColorLine(kRule);
  pdf.DrawLine(kLeft, bottom - 15, right, bottom - 15, 0.15);
  pdf.SetFont("Arial", 7.5);
  pdf.DrawText(kLeft, bottom - 10.5, chapterTitle_);
  pdf.SetPlaceHolder("Folio", "#PAGE of #PAGES");
  pdf.DrawPlaceHolder("Folio", right - 30, bottom - 10.5, 30, 2);
  Ink();
  Outline();
}

void Book::Section(double y, std::string_view title, std::string_view explanation, double x) {
  pdf.SetFont("Arial", 9.5, 1);
  pdf.SetColorText(kAccent);
  pdf.DrawText(x, y, title);
  const double behind = x + pdf.GetTextWidth(title) + 3;
  pdf.SetFont("Arial", 8);
  pdf.SetColorText(kGray);
  pdf.DrawText(behind, y, explanation);
  Ink();
}

void Book::Caption(double x, double y, std::string_view text, int flags) {
  pdf.SetFont("Arial", 7);
  pdf.SetColorText(kGray);
  pdf.DrawText(x, y, text, flags);
  Ink();
}

void Book::Text(double x, double y, std::string_view text, double size, int style) {
  Ink(size, style);
  pdf.DrawText(x, y, text);
}

void Book::Link(double x, double y, std::string_view text, std::string_view target) {
  pdf.SetFont("Arial", 10, 4);
  pdf.SetColorText(kAccent);
  pdf.DrawText(x, y, text);
  pdf.LinkTo(target);
  Ink();
}

double Book::Paragraph(Column column, double y, std::string_view text, double size) {
  Ink(size);
  pdf.SetBoxStyle(1.15, 0, 0, 0, 0, 0);
  pdf.DrawTextBox(column.x, y, column.width, 0, text);
  const double below = pdf.GetY();
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
  return below;
}

void Book::Ink(double size, int style) {
  pdf.SetFont("Arial", size, style);
  pdf.SetColorText(kInk);
}

void Book::Outline(double width) {
  pdf.SetColorFill(kLight);
  pdf.SetColorLine(kAccent);
  pdf.SetLineWidth(width);
}

std::string Number(double value, int decimals) {
  char text[40];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

}  // namespace lm::sample
