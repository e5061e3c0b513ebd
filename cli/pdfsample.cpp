#include "cli/pdfsample.h"

#include <filesystem>
#include <stdexcept>

#include "cli/pdfsample_book.h"
#include "cli/pdfsample_variants.h"
#include "core/files.h"
#include "core/text.h"

namespace lm {
namespace {

using namespace sample;

constexpr double kPaperWidth = 210;
constexpr int kFirstPage = 1, kEvenPages = 2, kOddPages = 4, kAllPages = 7, kAtPageEnd = 16;

// What pages get without being asked: the cover's ground, a tab at the outer edge, a line at the
// foot.
void DefinePageObjects(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  for (const auto& [name, pages, x] :
       {std::tuple{"TabOdd", kOddPages, kPaperWidth - 5}, {"TabEven", kEvenPages, 0.0}}) {
    pdf.BeginObject(name, pages);
    pdf.SetColorFill(kAccent);
    pdf.DrawRect(x, 16, 5, 17, 5);
    pdf.EndObject();
  }
  pdf.BeginObject("CoverGround", kFirstPage);
  pdf.SetColorFill("WHITE");
  pdf.DrawRect(0, 0, kPaperWidth, 297, 5);
  pdf.DrawImage(book.files.Path("boat.eps"), 0, 0, kPaperWidth, 140);
  pdf.SetColorFill(kAccent);
  pdf.DrawRect(0, 140, kPaperWidth, 1.5, 5);
  pdf.EndObject();
  pdf.BeginObject("Foot", kAllPages + kAtPageEnd);
  pdf.SetFont("Arial", 7.5);
  pdf.SetColorText(kGray);
  pdf.DrawText(kPaperWidth / 2, 286.5, "The picture book of the PDF writer", 4);
  pdf.EndObject();
}

void DrawCover(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  pdf.BeginPage();
  pdf.SetLabel(0, "Cover");
  pdf.AddBookmark("Cover", 0, 0, "Fit");
  book.Text(kLeft, 163, "The picture book", 38, 1);
  pdf.SetFont("Arial", 13);
  pdf.SetColorText(kGray);
  pdf.DrawText(kLeft, 172, "Every feature of the PDF writer, a page a subject");
  pdf.SetFont("Arial", 9);
  pdf.SetColorText(kGray);
  pdf.DrawPlaceHolder("Extent", kRight - 60, 172, 60, 2);
  pdf.EndPage();
  pdf.SetPlaceHolder("Extent", "#PAGES pages, writer " + pdf.Version());
}

// The cover gets its table of contents when all pages are there.
void DrawContents(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  constexpr double kFirstLine = 189, kStep = 5.6, kLastLine = 272;
  pdf.BeginOnPage(1);
  double y = kFirstLine;
  int index = 0;
  for (const Book::Entry& entry : book.Entries()) {
    const bool chapter = entry.page == 0;
    if (y + (chapter ? 2 * kStep : 0) > kLastLine) {
      y = kFirstLine;
      ++index;
    }
    if (chapter && y > kFirstLine) y += 2;
    const Column column = ColumnOf(2, index);
    if (chapter) {
      pdf.SetFont("Arial", 10, 1);
      pdf.SetColorText(kAccent);
      pdf.DrawText(column.x, y, entry.title);
    } else {
      const std::string page = std::to_string(entry.page);
      book.Ink(10);
      pdf.DrawText(column.x, y, entry.title);
      pdf.DrawText(column.x + column.width, y, page, 2);
      pdf.DrawRect(column.x, y - 4, column.width, kStep, 1);
      pdf.LinkTo("page:" + page);
    }
    y += kStep;
  }
  pdf.EndOnPage();
}

void DrawBook(clsPDFCreator& pdf, ClockPort& clock, const std::string& file,
              const SampleFiles& files, const FontFiles& fonts) {
  Book book(pdf, clock, files, fonts);
  PrepareSample(pdf, "The picture book", "Every feature of the PDF writer");
  constexpr int kOutlines = 2, kTitleInWindow = 0x100, kOneColumn = 16384;
  pdf.SetViewerPreferences(kOneColumn + kTitleInWindow + kOutlines);
  pdf.SetMargins(kLeft, kLeft, kTop, 28);
  pdf.SetMemoryUsage(5);
  pdf.BeginDoc(file);
  DefinePageObjects(book);
  DrawCover(book);
  DrawFontPages(book);
  DrawTextPages(book);
  DrawTablePages(book);
  DrawShapePages(book);
  DrawColourPages(book);
  DrawSpacePage(book);
  DrawPicturePages(book);
  DrawImportPage(book);
  DrawInteractivePages(book);
  DrawPaperPages(book);
  DrawContents(book);
  pdf.EndDoc();
}

}  // namespace

std::vector<SampleDocument> WriteSamples(const std::string& file, ClockPort& clock) {
  std::filesystem::path stem = PathFromText(file);

  if (EqualsIgnoreCase(PathText(stem.extension()), ".pdf")) stem.replace_extension();
  const std::string name = PathText(stem);
  const SampleFiles files(PathFromText(name + ".parts"));
  const FontFiles fonts = FindFontFiles();

  std::vector<SampleDocument> documents;
  const auto write = [&](SampleDocument document, auto draw) {
    clsPDFCreator pdf(clock);
    draw(pdf, document);
    if (pdf.ErrNumber() != 0)
      throw std::runtime_error(document.file + ": " + pdf.ErrSource() + ": " +
                               pdf.ErrDescription());
    document.pages = pdf.GetPages();
    document.bytes = pdf.FileSize();
    documents.push_back(std::move(document));
  };
  write({file, 0, 0, "every feature", "", ""},
        [&](clsPDFCreator& pdf, const SampleDocument& document) {
          DrawBook(pdf, clock, document.file, files, fonts);
        });
  for (const int bits : {40, 128}) {
    const std::string key = std::to_string(bits);
    write({name + "-protected-" + key + ".pdf", 0, 0, "encrypted with " + key + " bits",
           "reader" + key, "owner" + key},
          [&](clsPDFCreator& pdf, const SampleDocument& document) {
            DrawProtected(pdf, document, bits, files);
          });
  }
  if (!fonts.regular.empty())
    write({name + "-pdfa.pdf", 0, 0, "PDF/A-1b with embedded fonts", "", ""},
          [&](clsPDFCreator& pdf, const SampleDocument& document) {
            DrawPdfA(pdf, document, files, fonts);
          });
  else
    documents.push_back(
        {"", 0, 0, "no PDF/A: this machine has none of the font files looked for", "", ""});

  return documents;
}

}  // namespace lm
