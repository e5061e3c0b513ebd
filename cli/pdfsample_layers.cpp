// Layers, and layers upon conditions.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

void DrawMap(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "A map in three layers", "switched by the viewer's list, or here:");
  for (const auto& [index, layer] : {std::pair{0, "Water"}, {1, "Roads"}, {2, "Names"}})
    book.Link(kLeft + 110 + 20.0 * index, y, layer, "layer:TOGGLE(" + std::string(layer) + ")");
  const double top = y + kBelowSection;
  pdf.BeginSpace(0, 0);
  pdf.SetColorFill("#EEF1E4");
  pdf.DrawRect(kLeft, top, kWidth, 62, 5 + 128);
  pdf.BeginLayer("Water");
  pdf.SetColorLine("#9DC3E0");
  pdf.SetLineWidth(9);
  pdf.MoveTo(kLeft - 5, top + 50);
  pdf.DrawCurve(kLeft + 50, top + 60, kLeft + 60, top + 5, kLeft + 110, top + 22);
  pdf.DrawCurve(kLeft + 140, top + 32, kLeft + 150, top + 50, kLeft + 180, top + 42);
  pdf.SetColorFill("#9DC3E0");
  pdf.DrawEllipse(kLeft + 142, top + 40, 17, 11, 5);
  pdf.EndLayer();
  pdf.BeginLayer("Roads");
  for (const auto& [width, colour] : {std::pair{3.2, "#B9A27E"}, {2.2, "#FFFFFF"}}) {
    pdf.SetColorLine(colour);
    pdf.SetLineWidth(width);
    pdf.DrawPolyline(Number(kLeft - 5) + ";" + Number(top + 14) + ";62;" + Number(top + 20) +
                     ";120;" + Number(top + 44) + ";" + Number(kRight + 5) + ";" +
                     Number(top + 10));
    pdf.DrawPolyline("62;" + Number(top + 20) + ";80;" + Number(top - 5));
    pdf.DrawPolyline("120;" + Number(top + 44) + ";104;" + Number(top + 70));
  }
  pdf.EndLayer();
  pdf.BeginLayer("Names");
  for (const auto& [x, down, name] : {std::tuple{62.0, 20.0, "Riverside Surgery"},
                                      {120.0, 44.0, "Old Mill Medical Centre"},
                                      {168.0, 23.0, "Harbour Out of Hours"}}) {
    pdf.SetColorFill(kWarm);
    pdf.DrawCircle(x, top + down, 1.6, 5);
    pdf.SetFont("Arial", 8, 1);
    pdf.SetColorText(kInk);
    pdf.DrawText(x, top + down - 4.5, name, 4);
  }
  pdf.EndLayer();
  pdf.EndSpace();
  book.Outline();
}

void DrawConditions(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Layers upon conditions", "shown by the state of Water and Roads");
  constexpr std::array<const char*, 4> kKinds{"any is on", "any is off", "all are on",
                                              "all are off"};
  for (int kind = 0; kind < 4; ++kind) {
    const Column column = ColumnOf(4, kind);
    pdf.SetColorLine(kRule);
    pdf.DrawRect(column.x, y + kBelowSection, column.width, 12);
    pdf.SetColorFill(kLight);
    pdf.BeginConditionalLayer("Water,Roads", kind);
    pdf.DrawRect(column.x, y + kBelowSection, column.width, 12, 5);
    book.Ink(10, 1);
    pdf.DrawText(column.x + column.width / 2, y + 12.5, "shown", 4);
    pdf.EndConditionalLayer();
    book.Caption(column.x, y + 21, kKinds[static_cast<std::size_t>(kind)]);
  }
  book.Outline();
}

void DrawUses(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Screen and paper");
  struct Use {
    const char *name, *usage, *text;
    bool view, print;
  };
  constexpr std::array<Use, 4> kUses{
      {{"On the screen alone", "SCREEN", "This line is not printed.", true, true},
       {"On paper alone", "PRINTER", "This line is printed only.", true, true},
       {"Hidden until asked for", "", "This line was hidden.", false, true},
       {"Always", "", "This line is shown and printed.", true, true}}};
  double line = y + 8;
  for (const Use& use : kUses) {
    book.Caption(kLeft, line, use.name);
    pdf.BeginLayer(use.name, use.view, use.print, use.usage);
    book.Text(kLeft + 44, line, use.text);
    pdf.EndLayer();
    line += 6.5;
  }
}

}  // namespace

void DrawLayerPage(Book& book) {
  book.Page("Layers", "Parts of a page that can be shown and hidden");
  DrawMap(book, kTop);
  DrawConditions(book, 122);
  DrawUses(book, 158);
  book.pdf.EndPage();
}

}  // namespace lm::sample
