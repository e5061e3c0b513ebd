// The PDF writer beside libharu and cairo on an invoice-like page, and the importer beside libqpdf.
// The peers are linked here and nowhere else.

#include <benchmark/benchmark.h>
#include <cairo-pdf.h>
#include <cairo.h>
#include <hpdf.h>

#include <filesystem>
#include <fstream>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>

#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"

namespace {

constexpr int kPages = 200;
constexpr int kLines = 60;
constexpr int kRectangles = 40;

const std::filesystem::path& Folder() {
  static const lm::test::TempDirectory folder;
  return folder.Path();
}

std::string PathOf(const char* name) { return (Folder() / name).string(); }

// The picture of every page: 64 x 64 pixels.
const std::string& Logo() {
  static const std::string path = [] {
    const std::string file = PathOf("logo.png");
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 64, 64);
    cairo_t* cairo = cairo_create(surface);
    cairo_set_source_rgb(cairo, 0.1, 0.4, 0.7);
    cairo_paint(cairo);
    cairo_set_source_rgb(cairo, 1, 1, 1);
    cairo_arc(cairo, 32, 32, 20, 0, 6.3);
    cairo_fill(cairo);
    cairo_surface_write_to_png(surface, file.c_str());
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    return file;
  }();
  return path;
}

std::string LineText(int page, int line) {
  return "Session " + std::to_string(page * kLines + line) +
         " at Riverside Surgery, 08:30 to 12:30, 340.00";
}

void TellSize(benchmark::State& state, const char* name) {
  state.SetItemsProcessed(state.iterations() * kPages);
  state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(PathOf(name)));
}

// Two bands at the foot of the page: of changing colour, or flat ones for peers that draw no
// others.
enum Bands { kFlat, kGradients };

void DrawBands(lm::clsPDFCreator& pdf, Bands bands, int page) {
  const std::string n = std::to_string(page);
  if (bands == kGradients) {
    pdf.AddGradient("A" + n, 0, "#FFFFFF", "#3060A0", 40, 800, 300, 830);
    pdf.AddGradient("B" + n, 0, "#FFFFFF", "#A06030", 300, 800, 540, 830);
  }
  pdf.SetColorFill(bands == kGradients ? "A" + n : "#3060A0");
  pdf.DrawRect(40, 800, 260, 30, 5);
  pdf.SetColorFill(bands == kGradients ? "B" + n : "#A06030");
  pdf.DrawRect(300, 800, 240, 30, 5);
  if (bands == kFlat) pdf.SetColorFill("BLACK");
}

// level: of deflate, 0 uncompressed.
void WriteOurs(benchmark::State& state) {
  const auto bands = static_cast<Bands>(state.range(0));
  const auto level = static_cast<int>(state.range(1));
  for (auto _ : state) {
    lm::clsPDFCreator pdf(lm::test::StandingClock());
    pdf.SetScale(0);
    pdf.SetPaperSize(0);
    pdf.SetCompression(level == 0 ? 0 : 2 + 256 * level, 0, 0);
    pdf.BeginDoc(PathOf("ours.pdf"));
    for (int page = 0; page < kPages; ++page) {
      pdf.BeginPage();
      for (int i = 0; i < kRectangles; ++i) pdf.DrawRect(40, 40 + 18 * i, 500, 16, 0);
      DrawBands(pdf, bands, page);
      for (int line = 0; line < kLines; ++line) {
        pdf.SetFont(line % 2 ? "Arial" : "Times", 9);
        pdf.DrawText(45, 50 + 12 * line, LineText(page, line));
      }
      pdf.DrawImage(Logo(), 500, 20, 40, 40);
      pdf.EndPage();
    }
    pdf.EndDoc();
    if (pdf.ErrNumber() != 0) state.SkipWithError(pdf.ErrDescription().c_str());
  }
  TellSize(state, "ours.pdf");
}

// Flat bands. It deflates by zlib's usual level, 6, and knows no other.
void WriteHaru(benchmark::State& state) {
  const bool compressed = state.range(0) != 0;
  for (auto _ : state) {
    HPDF_Doc pdf = HPDF_New(nullptr, nullptr);
    if (compressed) HPDF_SetCompressionMode(pdf, HPDF_COMP_TEXT);
    const HPDF_Font fonts[] = {HPDF_GetFont(pdf, "Times-Roman", "WinAnsiEncoding"),
                               HPDF_GetFont(pdf, "Helvetica", "WinAnsiEncoding")};
    const HPDF_Image logo = HPDF_LoadPngImageFromFile(pdf, Logo().c_str());
    for (int number = 0; number < kPages; ++number) {
      const HPDF_Page page = HPDF_AddPage(pdf);
      HPDF_Page_SetWidth(page, 596);
      HPDF_Page_SetHeight(page, 842);
      for (int i = 0; i < kRectangles; ++i) {
        HPDF_Page_Rectangle(page, 40, static_cast<float>(802 - 18 * i), 500, 16);
        HPDF_Page_Stroke(page);
      }
      HPDF_Page_SetRGBFill(page, 0.188F, 0.376F, 0.627F);
      HPDF_Page_Rectangle(page, 40, 12, 260, 30);
      HPDF_Page_Fill(page);
      HPDF_Page_SetRGBFill(page, 0.627F, 0.376F, 0.188F);
      HPDF_Page_Rectangle(page, 300, 12, 240, 30);
      HPDF_Page_Fill(page);
      HPDF_Page_SetRGBFill(page, 0, 0, 0);
      for (int line = 0; line < kLines; ++line) {
        HPDF_Page_BeginText(page);
        HPDF_Page_SetFontAndSize(page, fonts[line % 2], 9);
        HPDF_Page_TextOut(page, 45, static_cast<float>(792 - 12 * line),
                          LineText(number, line).c_str());
        HPDF_Page_EndText(page);
      }
      HPDF_Page_DrawImage(page, logo, 500, 780, 40, 40);
    }
    HPDF_SaveToFile(pdf, PathOf("haru.pdf").c_str());
    HPDF_Free(pdf);
  }
  TellSize(state, "haru.pdf");
}

// Gradients. It always deflates, by zlib's usual level, 6.
void WriteCairo(benchmark::State& state) {
  for (auto _ : state) {
    cairo_surface_t* surface = cairo_pdf_surface_create(PathOf("cairo.pdf").c_str(), 596, 842);
    cairo_t* cairo = cairo_create(surface);
    cairo_surface_t* logo = cairo_image_surface_create_from_png(Logo().c_str());
    for (int page = 0; page < kPages; ++page) {
      cairo_set_source_rgb(cairo, 0, 0, 0);
      for (int i = 0; i < kRectangles; ++i) {
        cairo_rectangle(cairo, 40, 40 + 18 * i, 500, 16);
        cairo_stroke(cairo);
      }
      for (int i = 0; i < 2; ++i) {
        cairo_pattern_t* gradient =
            cairo_pattern_create_linear(40 + 260 * i, 800, 300 + 240 * i, 830);
        cairo_pattern_add_color_stop_rgb(gradient, 0, 1, 1, 1);
        cairo_pattern_add_color_stop_rgb(gradient, 1, 0.2, 0.4, 0.6);
        cairo_set_source(cairo, gradient);
        cairo_rectangle(cairo, 40 + 260 * i, 800, 250, 30);
        cairo_fill(cairo);
        cairo_pattern_destroy(gradient);
      }
      cairo_set_source_rgb(cairo, 0, 0, 0);
      for (int line = 0; line < kLines; ++line) {
        cairo_select_font_face(cairo, line % 2 ? "Liberation Sans" : "Liberation Serif",
                               CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cairo, 9);
        cairo_move_to(cairo, 45, 50 + 12 * line);
        cairo_show_text(cairo, LineText(page, line).c_str());
      }
      cairo_save(cairo);
      cairo_translate(cairo, 500, 20);
      cairo_scale(cairo, 40.0 / 64, 40.0 / 64);
      cairo_set_source_surface(cairo, logo, 0, 0);
      cairo_paint(cairo);
      cairo_restore(cairo);
      cairo_show_page(cairo);
    }
    cairo_surface_destroy(logo);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
  }
  TellSize(state, "cairo.pdf");
}

// A form of five pages, as another program would have written it.
const std::string& Form() {
  static const std::string path = [] {
    const std::string file = PathOf("form.pdf");
    lm::clsPDFCreator pdf(lm::test::StandingClock());
    pdf.SetScale(2);
    pdf.SetPaperSize(0);
    pdf.SetCompression(2, 0, 0);
    pdf.BeginDoc(file);
    for (int page = 0; page < 5; ++page) {
      pdf.BeginPage();
      pdf.SetFont("Arial", 9);
      for (int line = 0; line < kLines; ++line) {
        pdf.DrawText(20, 20 + 4 * line, "Pensionable pay, line " + std::to_string(line));
        pdf.DrawRect(120, 17 + 4 * line, 60, 4);
      }
      pdf.EndPage();
    }
    pdf.EndDoc();
    return file;
  }();
  return path;
}

constexpr int kForms = 500;

void ImportOurs(benchmark::State& state) {
  Form();
  for (auto _ : state)
    for (int i = 0; i < kForms; ++i) {
      lm::clsPDFCreator pdf(lm::test::StandingClock());
      pdf.SetScale(2);
      pdf.SetPaperSize(0);
      pdf.BeginDoc(PathOf("filled.pdf"));
      for (int page = 1; page <= 5; ++page) {
        pdf.BeginPage();
        pdf.ImportPage(Form(), page);
        pdf.SetFont("Courier", 10);
        pdf.DrawText(125, 20, "340.00");
        pdf.EndPage();
      }
      pdf.EndDoc();
      if (pdf.ErrNumber() != 0) state.SkipWithError(pdf.ErrDescription().c_str());
    }
  state.SetItemsProcessed(state.iterations() * kForms);
}

// The page's contents as they stand, packed.
QPDFObjectHandle FormOf(QPDF& pdf, QPDFPageObjectHelper& page) {
  QPDFObjectHandle form = pdf.copyForeignObject(page.getObjectHandle().getKey("/Contents"));
  QPDFObjectHandle dictionary = form.getDict();
  dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
  dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Form"));
  dictionary.replaceKey("/BBox", QPDFObjectHandle::parse("[0 0 596 842]"));
  dictionary.replaceKey("/Resources",
                        pdf.copyForeignObject(page.getAttribute("/Resources", false)));
  return form;
}

void ImportQpdf(benchmark::State& state) {
  Form();
  for (auto _ : state)
    for (int i = 0; i < kForms; ++i) {
      QPDF source;
      source.processFile(Form().c_str());
      QPDF pdf;
      pdf.emptyPDF();
      QPDFPageDocumentHelper pages(pdf);
      for (QPDFPageObjectHelper& from : QPDFPageDocumentHelper(source).getAllPages()) {
        auto blank = QPDFObjectHandle::parse(
            "<< /Type /Page /MediaBox [0 0 596 842] /Resources << /XObject << >> "
            "/Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >> >> >>");
        QPDFPageObjectHelper page(pdf.makeIndirectObject(blank));
        page.getAttribute("/Resources", true)
            .getKey("/XObject")
            .replaceKey("/Fx0", FormOf(pdf, from));
        page.getObjectHandle().replaceKey(
            "/Contents",
            pdf.newStream("q 1 0 0 1 0 0 cm /Fx0 Do Q BT /F1 10 Tf 354 785 Td (340.00) Tj ET"));
        pages.addPage(page, false);
      }
      QPDFWriter writer(pdf, PathOf("qpdf.pdf").c_str());
      writer.setStreamDataMode(qpdf_s_preserve);
      writer.write();
    }
  state.SetItemsProcessed(state.iterations() * kForms);
}

BENCHMARK(WriteOurs)->ArgsProduct({{kFlat, kGradients}, {0, 1, 6}})->Unit(benchmark::kMillisecond);
BENCHMARK(WriteHaru)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteCairo)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportQpdf)->Unit(benchmark::kMillisecond);

}  // namespace
