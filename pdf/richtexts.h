// Draws texts with tags; their language stands in pdf/richtext.h.
#pragma once

#include <string_view>

#include "pdf/document.h"
#include "pdf/richtext.h"

namespace lm::pdf {

class Fonts;
class LineWriter;

class RichTexts {
 public:
  RichTexts(Document& document, Fonts& fonts, LineWriter& lines)
      : document_(document), fonts_(fonts), lines_(lines) {}

  // In the box style's padding, lines from the top, or by kTextMiddle and kTextBottom. Lines that
  // do not fit into the height are dropped. Throws Error for a colour that is none, before
  // anything is drawn. The cursor goes to the left edge below the box, the text state stays as it
  // was.
  void Draw(double x, double y, double width, double height, std::string_view text, int flags);

  // Defines <tag>; see TextTag for what keeps. A tag of no name, or with one of "<>=/" in it,
  // throws Error.
  void SetTag(std::string_view tag, TextTag meaning);

 private:
  struct Look;  // a style made ready for drawing
  Look MakeLook(const RichStyle& style, const RichStyle& base);

  Document& document_;
  Fonts& fonts_;
  LineWriter& lines_;
  TextTags tags_;
};

}  // namespace lm::pdf
