#include "cli/pdfsample_fonts.h"

#include <array>
#include <filesystem>
#include <initializer_list>

#include "cli/pdfsample_book.h"
#include "core/files.h"
#include "core/text.h"
#include "pdf/truetype.h"

namespace lm::sample {
namespace {

constexpr const char* kFolders[] = {"/usr/share/fonts/truetype/liberation",
                                    "/usr/share/fonts/truetype/liberation2",
                                    "/usr/share/fonts/truetype/dejavu",
                                    "/usr/share/fonts/liberation-serif",
                                    "/usr/share/fonts/liberation-mono",
                                    "/usr/share/fonts/liberation",
                                    "/usr/share/fonts/TTF",
                                    "C:/Windows/Fonts",
                                    "/System/Library/Fonts/Supplemental"};

std::string FindFont(std::initializer_list<const char*> names) {
  std::error_code ignored;
  for (const char* name : names)
    for (const char* folder : kFolders) {
      const std::filesystem::path path = std::filesystem::path(folder) / name;
      if (std::filesystem::is_regular_file(path, ignored)) return PathText(path);
    }
  return "";
}

void DrawBaseFonts(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Base fonts", "Fourteen fonts that every viewer has: nothing is put into the file");
  pdf.SetLabel(1, "", 2);
  book.Section(kTop, "Families", "each in four styles");
  constexpr std::array<const char*, 3> kFamilies{"Arial", "Times New Roman", "Courier New"};
  constexpr std::array<const char*, 4> kStyles{"Regular", "Bold", "Italic", "Bold italic"};
  for (int family = 0; family < 3; ++family) {
    const Column column = ColumnOf(3, family);
    const char* name = kFamilies[static_cast<std::size_t>(family)];
    book.Ink();
    pdf.SetFont(name, 40);
    pdf.DrawText(column.x, kTop + 19, "Rg&4");
    for (int style = 0; style < 4; ++style) {
      pdf.SetFont(name, 12, style);
      pdf.DrawText(column.x, kTop + 29 + 6.5 * style, kStyles[static_cast<std::size_t>(style)]);
    }
    pdf.SetFont(name, 8.5);
    pdf.DrawText(column.x, kTop + 55, "“£1,234.50” – Dr Müller, 40 €"_w);
    book.Caption(column.x, kTop + 60, name);
  }

  double y = 112;
  book.Section(y, "Sizes", "in points, set beside each other by their measured widths");
  double x = kLeft;
  for (const double size : {6.0, 8.0, 10.0, 12.0, 15.0, 19.0, 24.0, 30.0, 38.0}) {
    book.Ink();
    pdf.SetFont("Times", size);
    pdf.DrawText(x, y + 16, "Ag");
    const double width = pdf.GetTextWidth("Ag");
    book.Caption(x, y + 22, Number(size));
    pdf.SetFont("Times", size);
    x += width + 5;
  }

  y = 144;
  book.Section(y, "Lines along the text", "they belong to the style and move with the text");
  pdf.SetColorLine(kInk);
  int index = 0;
  for (const auto& [style, name] : {std::pair{4, "Underlined"},
                                    {8, "Overlined"},
                                    {16, "Struck through"},
                                    {4 + 8 + 16, "All three"}})
    book.Text(ColumnOf(4, index++).x, y + 9, name, 12, style);

  y = 166;
  book.Section(y, "Signs", "Symbol and ZapfDingbats have an encoding of their own");
  const std::string_view signs = "abgdepqlmsfwDFGLPQSYW";
  for (const auto& [font, row] : {std::pair{"Symbol", 0}, {"ZapfDingbats", 1}}) {
    for (std::size_t i = 0; i < signs.size(); ++i) {
      pdf.SetFont(font, 15);
      pdf.DrawText(kLeft + 3 + 8.2 * static_cast<double>(i), y + 10 + 12 * row, signs.substr(i, 1),
                   4);
      book.Caption(kLeft + 3 + 8.2 * static_cast<double>(i), y + 14.5 + 12 * row,
                   signs.substr(i, 1), 4);
    }
  }

  y = 208;
  book.Section(y, "Code pages", "one byte a letter, the font's table tells which letter it is");
  struct Sample {
    int codePage;
    std::string_view name, bytes;
  };
  constexpr std::array<Sample, 6> kSamples{
      {{0, "Western: the standard table",
        "Caf\xE9, Stra\xDF"
        "e, \x80 12.50"},
       {238, "238 Central European", "Plze\xF2, \xA3\xF3\x64\x9F, Gy\xF5r"},
       {204, "204 Cyrillic", "\xCC\xEE\xF1\xEA\xE2\xE0, \xCA\xE8\xE5\xE2"},
       {161, "161 Greek", "\xC1\xE8\xDE\xED\xE1, \xD0\xDC\xF4\xF1\xE1"},
       {162, "162 Turkish",
        "\xDDstanbul, Eski\xFE"
        "ehir"},
       {186, "186 Baltic", "R\xEEga, \xD0iauliai, P\xE4rnu"}}};
  for (std::size_t i = 0; i < kSamples.size(); ++i) {
    const Column column = ColumnOf(3, static_cast<int>(i % 3));
    const double line = y + 10 + 19 * static_cast<double>(i / 3);
    book.Ink();
    pdf.SetFont("Arial", 15, 0, kSamples[i].codePage);
    pdf.DrawText(column.x, line, kSamples[i].bytes);
    book.Caption(column.x, line + 5, kSamples[i].name);
  }
  pdf.EndPage();
}

// The name by which viewers know the font.
std::string NameOf(const std::string& file) {
  std::string ignored;
  return pdf::ReadTrueType(*ReadFile(file, ignored), pdf::CodePageOf(0)).name;
}

// The codes 32 to 255 in rows of sixteen.
void DrawCodeChart(Book& book, const char* font, double top) {
  clsPDFCreator& pdf = book.pdf;
  constexpr double kCell = kWidth / 16, kRow = 7.4;
  pdf.SetColorLine(kRule);
  pdf.SetLineWidth(0.1);
  for (int row = 0; row <= 14; ++row)
    pdf.DrawLine(kLeft, top + kRow * row, kRight, top + kRow * row);
  for (int code = 32; code < 256; ++code) {
    const double x = kLeft + kCell * (code % 16), y = top + kRow * (code / 16 - 2);
    book.Ink();
    pdf.SetFont(font, 13);
    pdf.DrawText(x + 6.4, y + 5.3, std::string(1, static_cast<char>(code)), 4);
    pdf.SetFont("Arial", 5);
    pdf.SetColorText(kGray);
    pdf.DrawText(x + 0.4, y + 2.4, std::to_string(code));
  }
  book.Outline();
}

void DrawTrueType(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("TrueType fonts", "A font file of this machine, carried inside the document");
  if (book.fonts.regular.empty()) {
    book.Paragraph({kLeft, kWidth}, kTop,
                   "None of the usual folders of this machine holds a TrueType font that this "
                   "page knows, so there is none to show.");
    pdf.EndPage();
    return;
  }
  pdf.AddFont(book.fonts.regular, "Specimen");
  pdf.AddFont(book.fonts.bold, "SpecimenBold");
  pdf.AddFont(book.fonts.italic, "SpecimenItalic");
  pdf.AddFont(book.fonts.mono, "SpecimenMono");
  pdf.AddFont(book.fonts.regular, "SpecimenCyrillic", true, 204);
  const std::string named = NameOf(book.fonts.regular);
  pdf.AddFont(book.fonts.regular, named, false);

  book.Ink();
  pdf.SetFont("Specimen", 34);
  pdf.DrawText(kLeft, 54, "Hand gloves & 0123456789");
  pdf.SetFont("Specimen", 11);
  pdf.DrawText(kLeft, 63,
               "The quick brown fox jumps over the lazy dog; the doctor keeps the accounts.");
  book.Caption(
      kLeft, 68,
      PathText(PathFromText(book.fonts.regular).filename()) + ", embedded whole, packed by Flate");

  struct Face {
    const char *font, *text, *caption;
    int style;
  };
  const Face faces[] = {{"Specimen", "Bold Angle", "style 1 finds the bold file", 1},
                        {"Specimen", "Italic Angle", "style 2 the italic one", 2},
                        {"SpecimenMono", "Fixed 0O1lI", "a font of fixed pitch", 0},
                        {"SpecimenCyrillic", "\xCC\xEE\xF1\xEA\xE2\xE0", "code page 204", 0}};
  for (int i = 0; i < 4; ++i) {
    const Column column = ColumnOf(4, i);
    book.Ink();
    pdf.SetFont(faces[i].font, 16, faces[i].style, i == 3 ? 204 : 0);
    pdf.DrawText(column.x, 82, faces[i].text);
    book.Caption(column.x, 87, faces[i].caption);
  }

  book.Section(100, "Sizes", "widths come from the file, so lines end where they were measured");
  double y = 109;
  for (const double size : {8.0, 11.0, 15.0, 20.0}) {
    const std::string_view line = "Sessions, expenses and mileage of a locum";
    book.Ink();
    pdf.SetFont("Specimen", size);
    pdf.DrawText(kLeft + 8, y, line);
    const double end = kLeft + 8 + pdf.GetTextWidth(line);
    book.Caption(kLeft, y, Number(size));
    pdf.SetColorLine(kWarm);
    pdf.DrawLine(end, y - size * 0.28, end, y + size * 0.08, 0.2);
    y += 3.5 + size * 0.36;
  }
  book.Outline();

  book.Section(149, "All codes", "32 to 255 of the standard table");
  DrawCodeChart(book, "Specimen", 153);
  book.Section(266, "Only named", "the file holds the metrics, the viewer has to find the font");
  book.Ink();
  pdf.SetFont(named, 11);
  pdf.DrawText(kLeft, 273, "Not embedded: " + named);
  pdf.EndPage();
}

}  // namespace

FontFiles FindFontFiles() {
  FontFiles files{FindFont({"LiberationSerif-Regular.ttf", "DejaVuSerif.ttf", "times.ttf",
                            "Times New Roman.ttf"}),
                  FindFont({"LiberationSerif-Bold.ttf", "DejaVuSerif-Bold.ttf", "timesbd.ttf",
                            "Times New Roman Bold.ttf"}),
                  FindFont({"LiberationSerif-Italic.ttf", "DejaVuSerif-Italic.ttf", "timesi.ttf",
                            "Times New Roman Italic.ttf"}),
                  FindFont({"LiberationMono-Regular.ttf", "DejaVuSansMono.ttf", "cour.ttf",
                            "Courier New.ttf"})};
  for (std::string* file : {&files.bold, &files.italic, &files.mono})
    if (file->empty()) *file = files.regular;
  return files;
}

void DrawFontPages(Book& book) {
  book.Chapter("Text");
  DrawBaseFonts(book);
  DrawTrueType(book);
}

}  // namespace lm::sample
