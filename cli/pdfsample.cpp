#include "cli/pdfsample.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "core/text.h"

namespace lm {
namespace {

// All lengths are millimetres on A4.
constexpr double kLeft = 20;
constexpr double kTop = 38;

void BeginSubject(clsPDFCreator& pdf, std::string_view title, std::string_view what) {
  pdf.BeginPage();
  pdf.SetColorText("#203040");
  pdf.SetFont("Arial", 18, 1);
  pdf.DrawText(kLeft, 22, title);
  pdf.SetFont("Arial", 9);
  pdf.SetColorText("GRAY");
  pdf.DrawText(kLeft, 28, what);
  pdf.SetColorText("BLACK");
  pdf.SetColorLine("#8090A0");
  pdf.DrawLine(kLeft, 31, 190, 31, 0.2);
  pdf.SetColorLine("BLACK");
  pdf.SetLineWidth(0.3);
  pdf.AddBookmark(title);
}

void Label(clsPDFCreator& pdf, double x, double y, std::string_view text) {
  pdf.SetFont("Arial", 7.5);
  pdf.SetColorText("GRAY");
  pdf.DrawText(x, y, text);
  pdf.SetColorText("BLACK");
}

void DrawFonts(clsPDFCreator& pdf) {
  BeginSubject(pdf, "Fonts", "The base family in its styles, sizes and code pages");
  pdf.SetLabel(2);  // i, ii, iii in the viewer
  double y = kTop + 6;
  for (const char* font : {"Arial", "Times New Roman", "Courier New"}) {
    for (const auto& [style, name] :
         {std::pair{0, "regular"}, {1, "bold"}, {2, "italic"}, {3, "bold italic"}}) {
      pdf.SetFont(font, 12, style);
      pdf.DrawText(
          kLeft, y,
          std::string(font) + " " + name + ": " + std::string("£1,234.50 for Dr Müller"_w));
      y += 7;
    }
  }
  pdf.SetFont("Symbol", 12);
  pdf.DrawText(kLeft, y, "abgdepS");
  pdf.SetFont("ZapfDingbats", 12);
  pdf.DrawText(kLeft + 60, y, "4lnu");
  y += 10;
  for (const auto& [style, name] :
       {std::pair{4, "underlined"}, {8, "overlined"}, {16, "struck through"}, {28, "all three"}}) {
    pdf.SetFont("Arial", 11, style);
    pdf.DrawText(kLeft, y, name);
    y += 8;
  }
  for (const auto& [page, bytes] : {std::pair{238, "Zlin, Plze\xF2, \xA3\xF3\x64\x9F"},
                                    {204, "\xCC\xEE\xF1\xEA\xE2\xE0"},
                                    {161, "\xC1\xE8\xDE\xED\xE1"},
                                    {162, "\xDDstanbul"},
                                    {186, "R\xEEga"}}) {
    pdf.SetFont("Arial", 11, 0, page);
    pdf.DrawText(kLeft, y, bytes);
    Label(pdf, kLeft + 50, y, "code page " + std::to_string(page));
    y += 7;
  }
  pdf.EndPage();
}

constexpr std::string_view kParagraph =
    "A locum works at six practices in a month and loses two evenings to paperwork: invoices, "
    "pension "
    "forms, expenses, tax. Each session has its date, its times and its fee.";

void DrawTexts(clsPDFCreator& pdf) {
  BeginSubject(pdf, "Text",
               "Boxes, alignment, justification, spacing, rich text, text on a circle");
  constexpr std::array<std::pair<int, std::string_view>, 6> kBoxes{{{1 + 8, "left, top"},
                                                                    {4 + 32, "centre, middle"},
                                                                    {2 + 16, "right, bottom"},
                                                                    {64, "justified"},
                                                                    {512, "ended with an ellipsis"},
                                                                    {256, "stretched to fit"}}};
  for (std::size_t i = 0; i < kBoxes.size(); ++i) {
    const double x = kLeft + 58 * static_cast<double>(i % 3);
    const double y = kTop + 38 * static_cast<double>(i / 3);
    pdf.SetFont("Times", 9.5);
    pdf.SetColorFill("#F4F6F8");
    pdf.SetBoxStyle(1, 0, 2, 2, 2, 2);
    const bool oneLine = kBoxes[i].first == 256;
    pdf.DrawTextBox(x, y, 54, kBoxes[i].first == 512 ? 16 : 30,
                    oneLine ? "One line, stretched" : kParagraph, kBoxes[i].first, 4);
    Label(pdf, x, y + 34, kBoxes[i].second);
  }
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
  double y = kTop + 86;
  pdf.SetFont("Arial", 11);
  pdf.SetCharSpacing(2);
  pdf.DrawText(kLeft, y, "Characters two points apart");
  pdf.SetCharSpacing(0);
  pdf.SetWordSpacing(8);
  pdf.DrawText(kLeft + 85, y, "Words eight points apart");
  pdf.SetWordSpacing(0);
  y += 9;
  pdf.SetTextHorizontalScaling(60);
  pdf.DrawText(kLeft, y, "At 60 percent of the width");
  pdf.SetTextHorizontalScaling(140);
  pdf.DrawText(kLeft + 85, y, "At 140 percent");
  pdf.SetTextHorizontalScaling(100);
  y += 10;
  pdf.SetXY(kLeft, y);
  pdf.WriteText("Water is H");
  pdf.WriteText("2", 2);
  pdf.WriteText("O, the area 12 m");
  pdf.WriteText("2", 1);
  pdf.WriteTextLn(".");
  pdf.SetTextTag("amount", "Courier New", 11, 1, "#A03020");
  pdf.DrawTextRich(
      kLeft, y + 6, 170, 30,
      "Rich text: <b>bold</b>, <i>italic</i>, <u>underlined</u>, <color=#2060A0>blue</color>, "
      "<size=15>large</size> and a tag of one's own: <amount>340.00</amount>. It wraps where the "
      "line ends.");
  pdf.SetFont("Arial", 11, 1);
  pdf.SetColorText("#2060A0");
  pdf.DrawTextCircular(105, 215, 30, "TEXT ON A CIRCLE * LEDGERMINDER * ", 180);
  pdf.EndPage();
}

void DrawTables(clsPDFCreator& pdf) {
  BeginSubject(pdf, "Tables", "Cells wrap and rows grow with their text; spans and borders");
  pdf.SetFont("Arial", 9, 1);
  pdf.SetBoxStyle(1, 0, 1.5, 1, 1.5, 1);
  pdf.BeginTable(kLeft, kTop, "30;60;40;40", 7);
  for (const char* head : {"Date", "Practice", "Type", "Fee"}) pdf.TableCell(head, 1 + 32);
  pdf.SetFont("Arial", 9);
  for (const auto& [date, practice, type, fee] :
       {std::array{"03/02/2026", "Riverside Surgery", "NHS Normal", "340.00"},
        std::array{"06/02/2026", "Harbour Out of Hours, the centre at the old hospital by the quay",
                   "NHS OOH", "1,146.00"},
        std::array{"10/02/2026", "Old Mill Medical Centre", "Private", "220.00"}}) {
    pdf.TableCell(date, 1 + 32);
    pdf.TableCell(practice, 1 + 32);
    pdf.TableCell(type, 1 + 32);
    pdf.TableCell(fee, 2 + 32);
  }
  pdf.TableRowHeight(10);
  pdf.SetFont("Arial", 9, 1);
  pdf.TableCell("Total", 2 + 32, 3);
  pdf.TableCell("1,706.00", 2 + 32);
  pdf.EndTable();
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
  pdf.EndPage();
}

void DrawShapes(clsPDFCreator& pdf) {
  BeginSubject(pdf, "Shapes", "Paint modes, rounded corners, dashes, curves, arcs, polygons");
  pdf.DefineRef("shapes");
  pdf.SetColorFill("#CFE2F3");
  for (int mode = 0; mode <= 6; ++mode) {
    pdf.DrawRect(kLeft + 24.0 * mode, kTop, 20, 14, mode);
    Label(pdf, kLeft + 24.0 * mode, kTop + 18, "mode " + std::to_string(mode));
  }
  pdf.DrawRect(kLeft, kTop + 24, 40, 20, 4, 15 + 240, 5);
  pdf.DrawRect(kLeft + 50, kTop + 24, 40, 20, 0, 1 + 4, 0);
  pdf.DrawCircle(kLeft + 115, kTop + 34, 10, 4);
  pdf.DrawEllipse(kLeft + 150, kTop + 34, 18, 9, 4);
  double y = kTop + 54;
  for (const char* dash : {"SOLID", "DASH", "DOT", "DASHDOT", "DASHDOTDOT", "4;1"}) {
    pdf.SetDash(dash);
    pdf.DrawLine(kLeft, y, kLeft + 80, y, 0.5);
    Label(pdf, kLeft + 84, y + 1, dash);
    y += 6;
  }
  pdf.SetDash("SOLID");
  pdf.MoveTo(kLeft + 110, kTop + 84);
  pdf.DrawCurve(kLeft + 120, kTop + 50, kLeft + 150, kTop + 100, kLeft + 165, kTop + 56);
  pdf.DrawArc(kLeft + 20, kTop + 115, 18, 18, 0, 120, 4, true);
  pdf.DrawArc(kLeft + 65, kTop + 115, 18, 12, 30, 300, 0);
  pdf.DrawPolygon("110;170;128;143;146;170", 6);
  pdf.DrawPolyline("152;170;158;145;164;170;170;145;176;170", 0);
  pdf.BeginSpace(kLeft + 10, kTop + 160, 1, 1, 15);
  pdf.DrawRect(0, 0, 50, 12, 4);
  pdf.SetFont("Arial", 10);
  pdf.DrawText(4, 8, "A space turned by 15 degrees");
  pdf.EndSpace();
  pdf.EndPage();
}

void DrawColours(clsPDFCreator& pdf, const std::string& picture) {
  BeginSubject(pdf, "Colours, gradients and patterns",
               "RGB, CMYK and gray, axial and radial gradients, tilings, transparency");
  double x = kLeft;
  for (const char* colour : {"RED", "ORANGE", "GOLD", "GREEN", "TEAL", "BLUE", "PURPLE", "#FF8800",
                             "@1;0;0;0", "@0;1;0;0", "%0.5"}) {
    pdf.SetColorFill(colour);
    pdf.DrawRect(x, kTop, 13, 13, 5);
    Label(pdf, x, kTop + 17, colour);
    x += 15.5;
  }
  pdf.AddGradient("Axial", 0, "#FFFFFF", "#2060A0", kLeft, kTop + 26, kLeft + 80, kTop + 26);
  pdf.SetColorFill("Axial");
  pdf.DrawRect(kLeft, kTop + 26, 80, 30, 4);
  pdf.AddGradient("Radial", 1, "#FFF4C0", "#C05020", 150, kTop + 41, 150, kTop + 41, 0, 30);
  pdf.SetColorFill("Radial");
  pdf.DrawRect(110, kTop + 26, 80, 30, 4);
  pdf.BeginTiling("Dots", 6, 6);
  pdf.SetColorFill("#2060A0");
  pdf.DrawCircle(3, 3, 1.5, 5);
  pdf.EndTiling();
  pdf.SetColorFill("Dots");
  pdf.DrawRect(kLeft, kTop + 64, 80, 30, 4);
  pdf.AddImagePattern("Wall", picture, 10, 10);
  pdf.SetColorFill("Wall");
  pdf.DrawRect(110, kTop + 64, 80, 30, 4);
  for (int i = 0; i < 5; ++i) {
    pdf.SetAlpha(20.0 * (i + 1));
    pdf.SetColorFill("BLUE");
    pdf.DrawCircle(kLeft + 14 + 16.0 * i, kTop + 116, 13, 5);
  }
  pdf.SetAlpha(100);
  pdf.SetColorFill("GOLD");
  pdf.DrawRect(125, kTop + 104, 40, 25, 5);
  pdf.SetBlend("Multiply");
  pdf.SetColorFill("CYAN");
  pdf.DrawRect(145, kTop + 112, 40, 25, 5);
  pdf.SetBlend("Normal");
  pdf.EndPage();
}

void DrawPictures(clsPDFCreator& pdf, const std::string& picture) {
  BeginSubject(pdf, "Pictures, objects, layers and bar codes",
               "One picture in several sizes, a form object used twice, layers, six symbologies");
  pdf.DrawImage(picture, kLeft, kTop, 30, 30);
  pdf.DrawImage(picture, kLeft + 40, kTop, 60, 20);
  pdf.DrawImage(picture, kLeft + 110, kTop, 12, 0);
  pdf.BeginObject("Badge");
  pdf.SetColorFill("#2060A0");
  pdf.DrawRect(0, 0, 30, 10, 5, 255, 3);
  pdf.SetFont("Arial", 9, 1);
  pdf.SetColorText("WHITE");
  pdf.DrawText(15, 6.5, "BADGE", 4);
  pdf.EndObject();
  pdf.SetColorText("BLACK");
  for (const double x : {kLeft, kLeft + 45}) {
    pdf.BeginSpace(x, kTop + 40);
    pdf.DrawObject("Badge");
    pdf.EndSpace();
  }
  pdf.BeginLayer("On the screen alone", true, false, "SCREEN");
  pdf.SetFont("Arial", 10);
  pdf.DrawText(kLeft, kTop + 62, "This line is on a layer that is shown and not printed.");
  pdf.EndLayer();
  constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kCodes{
      {{"Code 128", "LM-2026/00017"},
       {"Code 39", "LEDGER 26"},
       {"EAN-13", "501234567890"},
       {"EAN-8", "9638507"},
       {"Interleaved 2 of 5", "12345678"},
       {"Standard 2 of 5", "1234567"}}};
  for (int kind = 0; kind < 6; ++kind) {
    const double x = kLeft + 60.0 * (kind % 3);
    const double y = kTop + 75 + 42.0 * (kind / 3);
    pdf.DrawBarCode(kind, kCodes[static_cast<std::size_t>(kind)].second, x, y, 50, 22);
    Label(pdf, x, y + 34, kCodes[static_cast<std::size_t>(kind)].first);
  }
  pdf.EndPage();
}

void DrawInteractive(clsPDFCreator& pdf, const std::string& picture) {
  BeginSubject(pdf, "Links, fields, notes and attachments", "What answers to a click");
  pdf.SetFont("Arial", 11, 4);
  pdf.SetColorText("BLUE");
  pdf.DrawText(kLeft, kTop + 4, "The product's website");
  pdf.LinkTo("https://www.ledgerminder.example");
  pdf.DrawText(kLeft + 60, kTop + 4, "To the first page");
  pdf.LinkTo("page:1");
  pdf.DrawText(kLeft + 110, kTop + 4, "To the shapes");
  pdf.LinkTo("ref:shapes");
  pdf.SetColorText("BLACK");
  double y = kTop + 16;
  const auto field = [&](int type, const char* name, const char* value, const char* items) {
    Label(pdf, kLeft, y + 4, name);
    pdf.DrawField(type, name, kLeft + 35, y, type >= 4 ? 6 : 60, type == 3 ? 18 : 7, value, name, 0,
                  "#8090A0", "#F4F6F8", 1, 0, items);
    y += type == 3 ? 24 : 12;
  };
  field(0, "Text", "Dr Alex Morgan", "");
  field(1, "Button", "Press", "");
  field(2, "Combo", "Private", "NHS Normal|NHS OOH|Private");
  field(3, "List", "Two", "One|Two|Three");
  field(4, "Check", "Yes", "");
  field(5, "Radio", "A", "A|B");
  pdf.DrawNote(0, "A free text note", 130, kTop + 20, 50, 12);
  pdf.DrawNote(1, "A note that opens", 130, kTop + 40, 8, 8, "LedgerMinder");
  pdf.DrawNote(2, "Approved", 130, kTop + 56, 50, 16);
  pdf.AddAttach(picture, "The picture of this document");
  pdf.SetPageTransition(5, 1);
  pdf.SetFont("Arial", 10);
  pdf.DrawPlaceHolder("#PAGES", kLeft, 270, 30);
  Label(pdf, kLeft + 35, 270, "pages in this document, written at its end");
  pdf.EndPage();
}

// A small BMP of four colours, made here so that the document needs no other file.
std::string MakePicture(const std::string& path) {
  constexpr int kSide = 32;
  std::string bytes = "BM";
  const auto number = [&](std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
  };
  const std::uint32_t size = kSide * kSide * 3;
  number(54 + size, 4);
  number(0, 4);
  number(54, 4);
  number(40, 4);
  number(kSide, 4);
  number(kSide, 4);
  number(1, 2);
  number(24, 2);
  number(0, 4);
  number(size, 4);
  number(2835, 4);
  number(2835, 4);
  number(0, 8);
  for (int y = 0; y < kSide; ++y)
    for (int x = 0; x < kSide; ++x) {
      const int dx = x - kSide / 2;
      const int dy = y - kSide / 2;
      const bool inside = dx * dx + dy * dy < 150;
      number(inside ? 0xFFFFFFu : 0x2060A0u + static_cast<std::uint32_t>(x * 3 << 8), 3);
    }
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

}  // namespace

void DrawSample(clsPDFCreator& pdf, const std::string& out) {
  const std::string picture = MakePicture(out + ".bmp");
  pdf.SetScale(2);
  pdf.SetPaperSize(0);
  pdf.SetCompression(2, 2, 2);
  pdf.SetDocProperty("The picture book", "Every feature of the PDF writer", "LedgerMinder");
  pdf.SetViewerPreferences(16384 + 2);
  pdf.BeginDoc(out);
  DrawFonts(pdf);
  DrawTexts(pdf);
  DrawTables(pdf);
  DrawShapes(pdf);
  DrawColours(pdf, picture);
  DrawPictures(pdf, picture);
  DrawInteractive(pdf, picture);
  pdf.EndDoc();
  std::error_code ignored;
  std::filesystem::remove(picture, ignored);
}

}  // namespace lm
