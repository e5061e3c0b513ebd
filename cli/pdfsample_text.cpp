// Lines, boxes and rich text.
#include <array>

#include "cli/pdfsample_book.h"

namespace lm::sample {
namespace {

constexpr std::string_view kStory =
    "A locum works at six practices in a month and loses two evenings to paperwork: invoices, "
    "pension forms, expenses and tax. Each session has its date, its times and its fee; each "
    "practice has its own rate, its own address and its own idea of when to pay.";

void DrawSpacings(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Spacing", "of letters and words in points, width of the letters in percent");
  const Column letters = ColumnOf(3, 0), words = ColumnOf(3, 1), scale = ColumnOf(3, 2);
  for (int i = 0; i < 4; ++i) {
    const double line = y + 9 + 7 * i;
    const double points = i == 0 ? -0.5 : 1.0 * (i - 1);
    book.Ink(10.5);
    pdf.SetCharSpacing(points);
    pdf.DrawText(letters.x + 9, line, "Letters apart");
    pdf.SetCharSpacing(0);
    book.Caption(letters.x, line, Number(points, 1));
    book.Ink(10.5);
    pdf.SetWordSpacing(4.0 * i);
    pdf.DrawText(words.x + 9, line, "Three words apart");
    pdf.SetWordSpacing(0);
    book.Caption(words.x, line, Number(4.0 * i));
    const double percent = 60 + 30.0 * i;
    book.Ink(10.5);
    pdf.SetTextHorizontalScaling(percent);
    pdf.DrawText(scale.x + 9, line, "Wide or narrow");
    pdf.SetTextHorizontalScaling(100);
    book.Caption(scale.x, line, Number(percent) + "%");
  }
}

void DrawTextModes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Text modes", "4 to 7 do the same and make the letters the clipping area");
  constexpr std::array<const char*, 8> kNames{
      "0 filled",       "1 outlined",           "2 filled and outlined", "3 invisible",
      "4 filled, clip", "5 outlined, and clip", "6 both, and clip",      "7 clip alone"};
  for (int mode = 0; mode < 8; ++mode) {
    const Column column = ColumnOf(4, mode % 4);
    const double line = y + 15 + 24.0 * (mode / 4);
    pdf.BeginSpace(column.x, line);
    pdf.SetFont("Arial", 34, 1);
    pdf.SetColorText("#9DBEDD");
    pdf.SetColorLine(kAccent);
    pdf.SetLineWidth(0.25);
    pdf.SetTextMode(mode);
    pdf.DrawText(0, 0, "Agri");
    if (mode >= 4) {
      pdf.SetColorLine(kWarm);
      for (int i = 0; i < 16; ++i) pdf.DrawLine(-2 + 3.0 * i, 4, 6 + 3.0 * i, -12, 0.5);
    }
    pdf.EndSpace();
    book.Caption(column.x, line + 6.5, kNames[static_cast<std::size_t>(mode)]);
  }
  book.Outline();
}

void DrawLines(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Lines of text", "Alignment, spacing, the cursor, measures, modes, circles");
  book.Section(kTop, "Alignment", "against a point: from it, around it, up to it");
  const double middle = ColumnOf(2, 0).x + ColumnOf(2, 0).width / 2;
  pdf.SetColorLine(kWarm);
  pdf.DrawLine(middle, kTop + 4, middle, kTop + 23, 0.2);
  int row = 0;
  for (const auto& [flags, text] :
       {std::pair{0, "begins at the line"}, {4, "centred on the line"}, {2, "ends at the line"}}) {
    book.Ink(10.5);
    pdf.DrawText(middle, kTop + 8 + 7 * row++, text, flags);
  }
  const Column right = ColumnOf(2, 1);
  book.Section(kTop, "Measures", "of letters and lines", right.x);
  book.Ink(22);
  const double width = pdf.GetTextWidth("Measured"), height = pdf.GetTextHeight();
  pdf.DrawText(right.x, kTop + 15, "Measured");
  pdf.SetColorLine(kWarm);
  pdf.DrawLine(right.x, kTop + 18.5, right.x + width, kTop + 18.5, 0.2);
  book.Caption(right.x, kTop + 22,
               Number(width, 2) + " mm wide, a line is " + Number(height, 2) + " mm high");

  DrawSpacings(book, 78);

  book.Section(120, "At the cursor", "each text begins where the last one ended");
  book.Ink(11);
  pdf.SetXY(kLeft, 130);
  pdf.WriteText("Water is H");
  pdf.WriteText("2", 2);
  pdf.WriteText("O, the room has 12 m");
  pdf.WriteText("2", 1);
  pdf.WriteText(", and ");
  pdf.WriteText("SMALL CAPITALS", 3, 75);
  pdf.WriteText(" stand on the line; ");
  pdf.WriteText("half", 1, 50);
  pdf.WriteText(" the size is a choice.");
  book.Caption(kLeft, 135,
               "modes 0 plain, 1 raised, 2 lowered, 3 reduced, at 60, 75 and 50 percent");

  DrawTextModes(book, 147);

  book.Section(202, "On a circle",
               "clockwise, upright at its top; the middle at 90 degrees, the end at 0");
  for (const auto& [index, start, flags] : {std::tuple{0, 180.0, 0}, {1, 90.0, 4}, {2, 0.0, 2}}) {
    const Column column = ColumnOf(3, index);
    const double x = column.x + column.width / 2;
    pdf.SetColorLine(kRule);
    pdf.DrawCircle(x, 240, 19);
    pdf.SetFont("Arial", 12, 1);
    pdf.SetColorText(kAccent);
    pdf.DrawTextCircular(x, 240, 20.5, "SET AROUND A CIRCLE", start, flags);
    constexpr std::array<const char*, 3> kNames{"begins at 180", "centred on 90", "ends at 0"};
    book.Caption(x, 241, kNames[static_cast<std::size_t>(index)], 4);
  }
  pdf.EndPage();
}

void DrawPlacedBoxes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Place in the box", "left, centre, right; top, middle, bottom");
  constexpr std::array<std::pair<int, std::string_view>, 3> kAcross{
      {{1, "left"}, {4, "centre"}, {2, "right"}}};
  constexpr std::array<std::pair<int, std::string_view>, 3> kDown{
      {{8, "top"}, {32, "middle"}, {16, "bottom"}}};
  pdf.SetBoxStyle(1, 0, 2, 1.5, 2, 1.5);
  for (int i = 0; i < 9; ++i) {
    const auto& [across, acrossName] = kAcross[static_cast<std::size_t>(i % 3)];
    const auto& [down, downName] = kDown[static_cast<std::size_t>(i / 3)];
    const Column column = ColumnOf(3, i % 3);
    book.Ink(9);
    pdf.DrawTextBox(column.x, y + kBelowSection + 17.0 * (i / 3), column.width, 14,
                    std::string(acrossName) + "\r" + std::string(downName), across + down, 5);
  }
}

void DrawBoxStyles(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Paragraphs", "indent, padding, line factor, borders, corners");
  const auto box = [&](int index, int flags, int mode, std::string_view caption) {
    const Column column = ColumnOf(3, index);
    pdf.SetFont("Times", 9.5);
    pdf.DrawTextBox(column.x, y + kBelowSection, column.width, 39, kStory, flags, mode);
    book.Caption(column.x, y + 48.2, caption);
  };
  pdf.SetBoxStyle(1, 4, 3, 2.5, 3, 2.5, 15 + 240, 4);
  box(0, 64, 4, "justified, first line indented, round corners");
  pdf.SetBoxStyle(1.25, 0, 0, 2.5, 0, 2.5, 1 + 4);
  box(1, 64, 0, "lines 1.25 apart, borders above and below");
  pdf.SetBoxStyle(1, 0, 4, 2.5, 0, 2.5, 8);
  box(2, 1, 0, "ragged, a border at the left");
}

void DrawTightBoxes(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "Too much, too little", "what happens to a text that does not fit");
  pdf.SetBoxStyle(1, 0, 2, 1.5, 2, 1.5);
  for (const auto& [index, flags, text, caption] :
       {std::tuple{0, 512, kStory, "512 ended with an ellipsis"},
        {1, 128 + 32, std::string_view("A line of some length that is shrunk"),
         "128 shrunk to the box"},
        {2, 256 + 32, std::string_view("Stretched"), "256 stretched to the box"}}) {
    const Column column = ColumnOf(3, index);
    book.Ink(9.5);
    pdf.DrawTextBox(column.x, y + kBelowSection, column.width, 13, text, flags, 5);
    book.Caption(column.x, y + 22, caption);
  }
}

void DrawFlow(Book& book, double y) {
  clsPDFCreator& pdf = book.pdf;
  book.Section(y, "From box to box", "what a box has no room for goes on in the next");
  const std::string story(kStory);
  std::string rest = story + "\r" + story + "\r" + story;
  pdf.SetBoxStyle(1.1, 4, 0, 0, 0, 0);
  for (int i = 0; i < 3; ++i) {
    const Column column = ColumnOf(3, i);
    pdf.SetFont("Times", 9.5);
    std::string leftover;
    pdf.DrawTextBox(column.x, y + kBelowSection, column.width, 35, rest, 64, 1, &leftover);
    rest = leftover;
  }
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
}

void DrawBoxes(Book& book) {
  book.Page("Text boxes", "Text wrapped into a rectangle, in millimetres");
  DrawPlacedBoxes(book, kTop);
  DrawBoxStyles(book, 108);
  DrawTightBoxes(book, 170);
  DrawFlow(book, 208);
  book.pdf.EndPage();
}

void DrawRichText(Book& book) {
  clsPDFCreator& pdf = book.pdf;
  book.Page("Rich text", "Tags in angle brackets change the letters within a wrapped text");
  const Column wide{kLeft, kWidth};
  const auto example = [&](double y, std::string_view source, int flags = 0) {
    pdf.SetColorFill("#F6F8FA");
    pdf.DrawRect(wide.x, y, wide.width, 15, 5);
    pdf.SetFont("Courier New", 7.5);
    pdf.SetColorText(kGray);
    pdf.SetBoxStyle(1.15, 0, 2.5, 2, 2.5, 2);
    pdf.DrawTextBox(wide.x, y, wide.width, 15, source, 8);
    pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
    book.Ink(11);
    pdf.SetColorLine(kInk);
    pdf.DrawTextRich(wide.x, y + 18, wide.width, 22, source, flags);
  };
  book.Section(kTop, "Styles");
  example(kTop + 4,
          "<b>Bold</b>, <i>italic</i>, <b><i>both</i></b>, <u>underlined</u>, <s>struck "
          "through</s>, H<sub>2</sub>O and m<sup>2</sup>; tags nest, and a line wraps where it "
          "ends.");
  book.Section(88, "Sizes, colours, fonts");
  example(92,
          "<size=18>Large</size> and <size=7>small</size> on one line, <color=#C4562B>warm</color> "
          "and <color=@1;0.4;0;0.2>cool</color>, <font=Times>another family</font>.<br>A break, "
          "and signs: &lt; &gt; &amp;");
  book.Section(134, "Tags of one's own", "a name for a font, a size, a style and a colour");
  pdf.SetTextTag("fee", "Courier New", 11, 1, kWarm);
  pdf.SetTextTag("place", "", 0, 2, kAccent);
  example(138,
          "On Tuesday at <place>Riverside Surgery</place>: <fee>340.00</fee>; on Friday at "
          "<place>Harbour Out of Hours</place>: <fee>1,146.00</fee>.");
  book.Section(178, "Alignment", "left, centred, right and justified, with mixed sizes");
  for (const auto& [index, flags, caption] :
       {std::tuple{0, 1, "left"}, {1, 4, "centred"}, {2, 2, "right"}, {3, 64, "justified"}}) {
    const Column column = ColumnOf(4, index);
    book.Ink(9.5);
    pdf.DrawTextRich(column.x, 183, column.width, 60,
                     "A locum works at <b>six practices</b> in a month and loses "
                     "<size=13><color=#C4562B>two evenings</color></size> to <i>paperwork</i>: "
                     "invoices, pension forms, expenses and tax.",
                     flags);
    book.Caption(column.x, 214, caption);
  }
  book.Section(228, "Height",
               "text in the middle or at the bottom; lines that do not fit are dropped");
  for (const auto& [index, flags, text] :
       {std::tuple{0, 4 + 32, "In the <b>middle</b> of its frame"},
        {1, 4 + 16, "At its <b>bottom</b>"},
        {2, 1, "Five lines for a frame of three:<br><i>one,<br>two,<br>three,<br>four</i>"}}) {
    const Column column = ColumnOf(3, index);
    pdf.SetColorLine(kRule);
    pdf.SetLineWidth(0.2);
    pdf.DrawRect(column.x, 233, column.width, 18);
    pdf.SetBoxStyle(1, 0, 2, 1.5, 2, 1.5);
    book.Ink(10);
    pdf.DrawTextRich(column.x, 233, column.width, 18, text, flags);
  }
  pdf.SetBoxStyle(1, 0, 0, 0, 0, 0);
  book.Outline();

  pdf.EndPage();
}

}  // namespace

void DrawTextPages(Book& book) {
  DrawLines(book);
  DrawBoxes(book);
  DrawRichText(book);
}

}  // namespace lm::sample
