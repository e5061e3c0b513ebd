// A small document, and its pages on a page of this one.
#include <algorithm>

#include "cli/pdfsample_book.h"
#include "core/text.h"
#include "pdf/import.h"

namespace lm::sample {
namespace {

constexpr double kSlipWidth = 105, kSlipHeight = 148.5;  // A6

// Two blank forms, as an office hands them out.
void WriteSlips(const std::string& file, ClockPort& clock) {
  clsPDFCreator pdf(clock);
  pdf.SetScale(2);
  pdf.SetPaperSize(4);
  pdf.SetCompression(2, 2, 2);
  pdf.SetDocProperty("Blank slips", "Forms to draw on", "The office");
  pdf.BeginDoc(file);
  for (const auto& [title, colour] :
       {std::pair{"Expense slip", kAccent}, {"Mileage slip", kWarm}}) {
    pdf.BeginPage();
    pdf.SetColorFill(colour);
    pdf.DrawRect(0, 0, kSlipWidth, 22, 5);
    pdf.SetColorText("WHITE");
    pdf.SetFont("Times", 20, 1);
    pdf.DrawText(10, 15, title);
    pdf.SetColorText(kInk);
    pdf.SetColorLine(kRule);
    double y = 38;
    for (const char* line : {"Date", "Practice", "What for", "Amount", "Signature"}) {
      pdf.SetFont("Times", 10);
      pdf.DrawText(10, y, line);
      pdf.DrawLine(32, y + 1, 95, y + 1, 0.2);
      y += 18;
    }
    pdf.SetFont("Times", 8, 2);
    pdf.DrawText(10, 138, "Please hand in by the end of the month.");
    pdf.EndPage();
  }
  pdf.EndDoc();
}

void Frame(clsPDFCreator& pdf, double x, double y, double width, double height) {
  pdf.SetColorLine(kRule);
  pdf.SetLineWidth(0.2);
  pdf.DrawRect(x, y, width, height);
}

void DrawFacts(Book& book, const std::string& file, double y) {
  clsPDFCreator& pdf = book.pdf;
  const Column left = ColumnOf(2, 0), right = ColumnOf(2, 1);
  book.Section(y, "What the file tells", "", left.x);
  pdf::FileInfo info;
  pdf.GetInfo(file, info);
  double width = 0, height = 0;
  int rotate = 0;
  pdf.GetInfoPage(file, 1, width, height, rotate);
  book.Paragraph(left, y + 4,
                 "Title: " + info.title + "\rSubject: " + info.subject +
                     "\rAuthor: " + info.author + "\rVersion 1." + std::to_string(info.version) +
                     ", " + std::to_string(info.pages) +
                     " pages, PDF/A: " + (info.pdfA ? "yes" : "no") + "\rPage 1: " + Number(width) +
                     " x " + Number(height) + " points, turned by " + std::to_string(rotate));
  book.Section(y, "How page 1 begins", "its contents, unpacked", right.x);
  std::string contents = pdf.GetContentPage(file, 1).substr(0, 230);
  std::replace(contents.begin(), contents.end(), '\n', '\r');
  pdf.SetFont("Courier New", 7);
  pdf.SetColorText(kInk);
  pdf.DrawTextBox(right.x, y + 4, right.width, 28, contents, 512);
}

}  // namespace

void DrawImportPage(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  const std::string file = book.files.Path("slips.pdf");
  WriteSlips(file, book.clock);

  book.Page("Pages of other documents",
            "Copied into this one and drawn like pictures, then drawn on");
  book.Section(kTop, "At its own size", "with a date, a practice and an amount put on it here");
  const double top = kTop + kBelowSection;
  pdf.ImportPage(file, 1, kLeft, top);
  Frame(pdf, kLeft, top, kSlipWidth, kSlipHeight);
  pdf.SetFont("Courier New", 10, 1);
  pdf.SetColorText(kAccent);
  pdf.DrawText(kLeft + 34, top + 38, "03/02/2026");
  pdf.DrawText(kLeft + 34, top + 56, "Riverside Surgery");
  pdf.DrawText(kLeft + 34, top + 92, std::string("£12.50"_w));

  const double x = kLeft + kSlipWidth + 12;
  book.Section(kTop, "Scaled", "to 40 mm", x);
  pdf.ImportPage(file, 2, x, top, 40, 40 * kSlipHeight / kSlipWidth);
  Frame(pdf, x, top, 40, 40 * kSlipHeight / kSlipWidth);
  book.Section(top + 70, "Turned", "in a space, by 12 degrees", x);
  pdf.BeginSpace(x + 14, top + 78, 1, 1, 12);
  pdf.ImportPage(file, 1, 0, 0, 40, 40 * kSlipHeight / kSlipWidth);
  Frame(pdf, 0, 0, 40, 40 * kSlipHeight / kSlipWidth);
  pdf.EndSpace();

  book.Outline();
  DrawFacts(book, file, 210);
  pdf.EndPage();
}

}  // namespace lm::sample
