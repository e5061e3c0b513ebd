// Tables, and one that goes on over a page's end.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

constexpr int kLeftMiddle = 1 + 32, kRightMiddle = 2 + 32;

void DrawSpans(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Cells", "a row is as high as its highest cell; cells can span columns");
  pdf.SetColorLine(kRule);
  pdf.SetBoxStyle(1, 0, 2, 1.2, 2, 1.2);
  pdf.BeginTable(kLeft, y + 4, "26;74;40;30", 8);
  book.Ink(9, 1);
  for (const char* head : {"Date", "Practice", "Type"}) pdf.TableCell(head, kLeftMiddle);
  pdf.TableCell("Fee", kRightMiddle);
  book.Ink(9);
  for (const auto& [date, practice, type, fee] :
       {std::array{"03/02/2026", "Riverside Surgery", "NHS Normal", "340.00"},
        std::array{"06/02/2026", "Harbour Out of Hours, the centre at the old hospital by the quay",
                   "NHS OOH", "1,146.00"},
        std::array{"10/02/2026", "Old Mill Medical Centre", "Private", "220.00"}}) {
    pdf.TableCell(date, kLeftMiddle);
    pdf.TableCell(practice, kLeftMiddle);
    pdf.TableCell(type, kLeftMiddle);
    pdf.TableCell(fee, kRightMiddle);
  }
  pdf.TableRowHeight(11);
  book.Ink(9, 1);
  pdf.TableCell("Total, a span of three columns in a row of 11 mm", kRightMiddle, 3);
  pdf.TableCell("1,706.00", kRightMiddle);
  pdf.EndTable();
}

void DrawAlignments(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Place in the cell", "nine ways");
  pdf.SetColorLine(kRule);
  pdf.BeginTable(kLeft, y + 4, "28;28;24", 12);
  for (const int down : {8, 32, 16})
    for (const int across : {1, 4, 2}) {
      book.Ink(9);
      pdf.TableCell(across == 1 ? "left" : across == 4 ? "centre" : "right", across + down);
    }
  pdf.EndTable();

  const Column right = ColumnOf(2, 1);
  book.Section(y, "Borders", "none, and rules above and below", right.x);
  for (const auto& [mask, x] : {std::pair{0, right.x}, {1 + 4, right.x + 44}}) {
    pdf.BeginTable(x, y + 4, "20;18", 7, mask);
    for (const auto& [type, fee] : {std::pair{"Normal", "340.00"},
                                    {"Out of hours", "1,146.00"},
                                    {"Private", "220.00"},
                                    {"Teaching", "95.00"}}) {
      book.Ink(9);
      pdf.TableCell(type, 1 + 32 + 128);
      pdf.TableCell(fee, kRightMiddle);
    }
    pdf.EndTable();
  }
}

void DrawLongTable(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Over the page", "rows are never parted; what does not fit begins a new page");
  pdf.BeginTable(kLeft, y + 4, "14;30;86;40", 7.2, 4);
  for (int week = 1; week <= 32; ++week) {
    book.Ink(9, week % 4 == 0 ? 1 : 0);
    pdf.TableCell(Number(week), kRightMiddle);
    pdf.TableCell("Week " + Number(week), kLeftMiddle);
    pdf.TableCell(week % 4 == 0 ? "The month's invoices are sent" : "Sessions at two practices",
                  kLeftMiddle);
    pdf.TableCell(Number(680 + 35.5 * week, 2), kRightMiddle);
  }
  pdf.EndTable();
}

}  // namespace

void DrawTablePages(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Tables", "Cells from left to right, rows from top to bottom");
  DrawSpans(book, kTop);
  DrawLongTable(book, 108);
  const double below = pdf.GetY();

  book.Furnish("Tables, continued", "This page was begun by the table");

  book.Caption(kLeft, below + 6, "After the table the cursor stands below it.");
  DrawAlignments(book, below + 22);
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);

  pdf.EndPage();
}

}  // namespace lm::sample
