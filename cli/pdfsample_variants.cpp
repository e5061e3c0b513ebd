#include "cli/pdfsample_variants.h"

#include "cli/pdfsample_book.h"
#include "core/text.h"
#include "pdf/encryption.h"

namespace lm::sample {
namespace {

struct Row {
  std::string name, text;
};

void DrawHead(clsPDFCreator& pdf, const char* font, const std::string& picture,
              std::string_view title, std::string_view what) {
  pdf.BeginPage();
  pdf.AddBookmark(title, 0, 0, "Fit");
  pdf.DrawImage(picture, 0, 0, 210, 140);
  pdf.SetColorText(kInk);
  pdf.SetFont(font, 30, 1);
  pdf.DrawText(kLeft, 163, title);
  pdf.SetFont(font, 12);
  pdf.SetColorText(kGray);
  pdf.DrawText(kLeft, 172, what);
  pdf.SetColorLine(kAccent);
  pdf.DrawLine(kLeft, 179, kRight, 179, 0.35);
}

void DrawRows(clsPDFCreator& pdf, const char* font, const std::vector<Row>& rows) {
  pdf.SetColorLine(kRule);
  pdf.SetLineWidth(0.15);
  pdf.SetBoxStyle(1.15, 0, 0, 2, 2, 2);
  pdf.BeginTable(kLeft, 182, "50;120", 9, 4);
  for (const Row& row : rows) {
    pdf.SetColorText(kGray);
    pdf.SetFont(font, 10);
    pdf.TableCell(row.name, 1 + 32);
    pdf.SetColorText(kInk);
    pdf.SetFont(font, 10);
    pdf.TableCell(row.text, 1 + 32);
  }
  pdf.EndTable();
}

}  // namespace

void PrepareSample(clsPDFCreator& pdf, std::string_view title, std::string_view subject) {
  constexpr int kMillimetres = 2, kA4 = 0, kFlate = 0x902;
  pdf.SetScale(kMillimetres);
  pdf.SetPaperSize(kA4);
  pdf.SetCompression(kFlate, kFlate, kFlate);
  pdf.SetDocProperty(title, subject, "LedgerMinder", "", "", "sample, PDF");
}

void DrawProtected(clsPDFCreator& pdf, const SampleDocument& document, int bits,
                   const SampleFiles& files) {
  PrepareSample(pdf, "A protected document", "Encrypted with " + std::to_string(bits) + " bits");
  const bool longKey = bits == 128;
  pdf.SetProtection(pdf::kMayPrint + (longKey ? pdf::kKey128 + pdf::kMayPrintWell : 0),
                    document.userPassword, document.ownerPassword);
  constexpr int kRunLength = 1, kDeflate = 2, kLzw = 4, kAscii85 = 8;
  pdf.SetCompression(longKey ? kRunLength + kDeflate + kAscii85 : kLzw, kDeflate, kDeflate);
  pdf.BeginDoc(document.file);

  DrawHead(pdf, "Arial", files.Path("boat.eps"), "A protected document",
           "Every text and every stream is enciphered by the object that holds it");
  DrawRows(pdf, "Arial",
           {{"Key", std::to_string(bits) + " bits"},
            {"Password to read it", document.userPassword},
            {"Password of its owner", document.ownerPassword},
            {"The reader may", longKey ? "print it, in full quality" : "print it"},
            {"Only the owner may", "change it, copy from it, annotate it"},
            {"Packed by", longKey ? "run length, then deflate, then ASCII85" : "LZW"}});
  pdf.EndPage();
  pdf.EndDoc();
}

void DrawPdfA(clsPDFCreator& pdf, const SampleDocument& document, const SampleFiles& files,
              const FontFiles& fonts) {
  PrepareSample(pdf, "A document for the archive", "All that it needs is inside");
  pdf.SetPDFa(true);
  pdf.BeginDoc(document.file);
  pdf.AddFont(fonts.regular, "Archive");
  pdf.AddFont(fonts.bold, "ArchiveBold");

  DrawHead(pdf, "Archive", files.Path("evening.png"), "A document for the archive",
           "All that is needed to show it in fifty years is inside: PDF/A-1b");
  DrawRows(
      pdf, "Archive",
      {{"Fonts", "embedded whole"},
       {"Colours", "RGB, by the profile of the output intent that the document carries"},
       {"Metadata", "title, author and dates as XMP, the same as in the information dictionary"},
       {"What it cannot have", "encryption, transparency, layers, scripts, LZW"},
       {"Special signs", std::string("“£1,234.50” – Dr Müller, café, 40 €"_w)}});
  pdf.EndPage();
  pdf.EndDoc();
}

}  // namespace lm::sample
