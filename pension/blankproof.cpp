#include "pension/blankproof.h"

#include "core/files.h"
#include "core/platform.h"
#include "pdf/clsPDFCreator.h"
#include "pension/formdrawing.h"

namespace lm {
namespace {

constexpr int kMillimetres = 2;
constexpr int kDeflate = 2;
constexpr int kWidth = 210, kHeight = 297;
constexpr int kNumbered = 10;
constexpr double kNumberSize = 5;  // points
constexpr int kAtRight = 2, kCentred = 4;

// Drawn once, and laid over every page by its name.
constexpr std::string_view kGrid = "Grid";

struct GridLines {
  int step;  // millimetres
  std::string_view colour;
  double width;
};

constexpr GridLines kLines[] = {
    {1, "#ECF4FA", 0.05}, {5, "#CDE1F1", 0.08}, {kNumbered, "#8DBBE0", 0.12}};

void DefineGrid(clsPDFCreator& pdf) {
  pdf.BeginObject(kGrid);
  pdf.SetBlend("Multiply");  // what is printed on the blank stays as dark as it is
  for (const GridLines& lines : kLines) {
    pdf.SetColorLine(lines.colour);
    for (int x = lines.step; x < kWidth; x += lines.step)
      pdf.DrawLine(x, 0, x, kHeight, lines.width);
    for (int y = lines.step; y < kHeight; y += lines.step)
      pdf.DrawLine(0, y, kWidth, y, lines.width);
  }
  pdf.SetColorText("#1F5F93");
  pdf.SetFont("Arial", kNumberSize);
  for (int x = kNumbered; x < kWidth; x += kNumbered) {
    pdf.DrawText(x, 3, std::to_string(x), kCentred);
    pdf.DrawText(x, kHeight - 2, std::to_string(x), kCentred);
  }
  for (int y = kNumbered; y < kHeight; y += kNumbered) {
    pdf.DrawText(1.5, y + 0.6, std::to_string(y));
    pdf.DrawText(kWidth - 1.5, y + 0.6, std::to_string(y), kAtRight);
  }
  pdf.EndObject();
}

void DrawSample(clsPDFCreator& pdf, const FormPlace& place) {
  const std::string sample = FormPlaceSample(place);
  if (sample.empty()) return;
  if (place.kind == PlaceKind::Picture || place.kind == PlaceKind::Field) {
    pdf.DrawRect(place.x, place.y, place.width, place.height);
    pdf.SetFont("Arial", kNumberSize);
    pdf.DrawText(place.x + 1, place.y + place.height - 1, sample);
    return;
  }
  FormFigures figures;
  figures.rate = place.tier;
  figures.texts[place.item].assign(static_cast<std::size_t>(place.rows), sample);
  DrawFigures(pdf, {&place, 1}, place.page, figures);
}

void DrawSamples(clsPDFCreator& pdf, const FormBlank& blank, int page) {
  pdf.SetColorText("#C00000");
  pdf.SetColorLine("#C00000");
  pdf.SetLineWidth(0.2);
  for (const FormPlace& place : blank.places)
    if (place.page == page) DrawSample(pdf, place);
}

}  // namespace

std::string WriteBlankProof(Ledger& ledger, const FormBlank& blank, int pages,
                            const std::filesystem::path& proof) {
  const std::string file = PathText(ledger.File(kBlankFolder) / blank.file);
  clsPDFCreator pdf(ledger.platform.clock);
  pdf.SetScale(kMillimetres);
  pdf.SetCompression(kDeflate, 0, 0);
  pdf.SetDocProperty("Proof of " + std::string(blank.file));
  pdf.BeginDoc(PathText(proof));
  for (int page = 1; page <= pages && pdf.ErrNumber() == 0; ++page) {
    pdf.BeginPage();
    if (page == 1) DefineGrid(pdf);
    if (!pdf.ImportPage(file, page)) return "cannot be used: " + pdf.ErrDescription();
    pdf.DrawObject(kGrid);
    DrawSamples(pdf, blank, page);
    pdf.EndPage();
  }
  if (pdf.ErrNumber() == 0 && pdf.EndDoc()) return "";
  return "the proof cannot be written: " + pdf.ErrDescription();
}

}  // namespace lm
