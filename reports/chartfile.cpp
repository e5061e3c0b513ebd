#include "reports/chartfile.h"

#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "reports/chartpdf.h"
#include "reports/chartsvg.h"

namespace lm {

std::string ChartSvg(const Chart& chart, const ChartTitles& titles) {
  SvgCanvas canvas(kChartPage.width, kChartPage.height);
  canvas.FillBox(kChartPage, kPaperInk.ground);
  ChartDrawing(chart, titles, kChartOnPage, {}, canvas).Paint(canvas);
  return canvas.Finish();
}

bool WriteChartPdf(const Chart& chart, const ChartTitles& titles, ClockPort& clock,
                   const std::filesystem::path& path, std::string& error) {
  constexpr int kPoints = 0, kOwnPaper = 255, kDeflate = 2;
  clsPDFCreator pdf(clock);
  pdf.SetScale(kPoints);
  pdf.SetCompression(kDeflate, 0, 0);
  pdf.SetDocProperty(titles.main, titles.sub, "",
                     std::string(kProductName) + " " + std::string(ProgramVersion()));
  if (pdf.BeginDoc(PathText(path)).empty()) {
    error = pdf.ErrDescription();
    return false;
  }
  pdf.SetPaperSize(kOwnPaper, kChartPage.width, kChartPage.height);
  pdf.BeginPage();
  PdfCanvas canvas(pdf);
  ChartDrawing(chart, titles, kChartOnPage, {}, canvas).Paint(canvas);
  const bool written = pdf.EndDoc() && pdf.ErrNumber() == 0;
  if (!written) error = pdf.ErrDescription();
  return written;
}

}  // namespace lm
