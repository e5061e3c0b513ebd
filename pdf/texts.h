// Texts on the page: lines, wrapped boxes, rich texts, tables, place holders and the text state.
//
// Coordinates and sizes are user units unless said so; font sizes, spacings are points. The y of a
// single line is its baseline. With no font chosen Arial is taken. Settings that make no sense
// (not finite, a negative size, a scaling that is not positive, an unknown mode) are ignored.
//
// Flags of a text, added up: see pdf/textbox.h.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

class Fonts;
class Graphics;
class LineWriter;
class PlaceHolders;
class RichTexts;
class Tables;

// How a table goes on when a row does not fit on the page. Empty functions: it runs off the page.
struct PageFlow {
  std::function<double()> bottom;   // the lowest Y for contents on the open page
  std::function<double()> newPage;  // begins a page; the Y where its contents begin
};

class Texts {
 public:
  Texts(Document& document, Fonts& fonts, Graphics& graphics);
  ~Texts();

  // flags: only the low three bits count, as alignment against a width of nothing: 2 the text ends
  // at x, 4 it is centred on x.
  void DrawText(double x, double y, std::string_view text, int flags = 0);
  // Wraps the text into a box; y is its top. width 0: up to the page's right edge; height 0: the
  // box grows with its lines. rectMode 1 draws no rectangle, others are DrawRect's modes. A box
  // lower than one line takes no text at all. What found no room goes to `leftover`, which may be
  // drawn in a further box.
  void DrawTextBox(double x, double y, double width, double height, std::string_view text,
                   int flags = 0, int rectMode = 1, std::string* leftover = nullptr);
  // Letters around the outside of a circle, clockwise, upright at its top. startAngle counts in
  // degrees counter-clockwise from three o'clock. The text begins there; with flag 2 it ends
  // there, with flag 4 it is centred there. A radius that is not positive throws Error.
  void DrawTextCircular(double x, double y, double radius, std::string_view text, double startAngle,
                        int flags = 0);
  // A box of text with tags: see pdf/richtext.h. width and height as in DrawTextBox.
  void DrawTextRich(double x, double y, double width, double height, std::string_view text,
                    int flags = 0);
  // At the cursor, which stays behind the text. mode 0 plain, 1 superscript, 2 subscript, 3 small
  // on the same line; percent: the size of modes 1 to 3.
  void WriteText(std::string_view text, int mode = 0, double percent = 60);
  // At the cursor, which goes to the page's left edge, one line down.
  void WriteTextLn(std::string_view text);

  // A table: see pdf/tables.h.
  void BeginTable(double x, double y, std::string_view columnWidths, double rowHeight,
                  int borderMask = 15);
  void TableCell(std::string_view text, int flags = 0, int span = 1);
  void TableRowHeight(double height);
  void EndTable();
  void SetPageFlow(PageFlow flow);

  // Room for a text that is known at the end: see pdf/placeholders.h.
  void DrawPlaceHolder(std::string_view name, double x, double y, double width, int flags = 0);
  void SetPlaceHolder(std::string_view name, std::string_view text);

  double GetTextHeight() const;  // of a line, without the line factor
  double GetTextWidth(std::string_view text) const;
  double GetTextDescent() const;  // below the baseline
  // What DrawTextBox did not draw in this document: words that an ellipsis shortened, and the rest
  // that no leftover took.
  const std::vector<std::string>& CutTexts() const { return cutTexts_; }
  // The height that DrawTextBox takes for the text when its height is 0.
  double TextBoxHeight(double width, std::string_view text, int flags = 0);

  void SetCharSpacing(double points);
  void SetWordSpacing(double points);
  void SetTextHorizontalScaling(double percent);
  void SetTextMode(int mode);  // 0 to 7: fill, stroke, both, invisible, and the same as a clip
  void SetFontSize(double points);
  // A negative lineFactor keeps the one in force; lengths in user units.
  void SetBoxStyle(double lineFactor, double indent, double left, double top, double right,
                   double bottom, int borderMask = 15, double radius = 0);
  void SetTextTag(std::string_view tag, std::string_view fontName, double size, int style,
                  std::string_view colour);

  // Called when all pages are written: fills the place holders, forgets an unfinished table.
  void WriteAtEnd(int pageCount);

 private:
  struct BoxShape;
  BoxShape ShapeBox(double left, double width, double height, std::string_view text, int flags);

  Document& document_;
  Fonts& fonts_;
  Graphics& graphics_;
  std::unique_ptr<LineWriter> lines_;
  std::unique_ptr<RichTexts> richTexts_;
  std::unique_ptr<Tables> tables_;
  std::unique_ptr<PlaceHolders> placeHolders_;
  std::vector<std::string> cutTexts_;
};

}  // namespace lm::pdf
