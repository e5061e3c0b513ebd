// Texts with tags in angle brackets, wrapped into a box.
//
//   <b> <i> <u> <s>            bold, italic, underlined, struck through
//   <sup> <sub>                60% of the size, raised or lowered
//   <color=#ff0000>            any colour notation; one that cannot be read fails the operation
//   <size=12> <font=Arial>     points, at most kMostFontSize; a font's name
//   <br>                       a new line, as line breaks in the text are
//   <NAME>                     a tag defined by SetTextTag, which goes before those above
//   &lt; &gt; &amp;            the characters < > &
//
// Tags are read in any case. Each but <br> lasts until its closing tag (</b>, </color>); a closing
// tag closes the innermost open one of its name, or does nothing. What is no tag is printed as it
// stands, and so is an opening tag inside kMostOpenTags others. Runs of blanks count as one blank,
// across tags too. A line is as high as its highest font, times the line factor.
#pragma once

#include <compare>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/textbox.h"

namespace lm::pdf {

constexpr std::size_t kMostOpenTags = 50;
constexpr double kMostFontSize = 1000;  // points
constexpr double kScriptPercent = 60;

struct RichStyle {
  std::string font;
  double size = 0;     // points, before <sup> and <sub>
  int style = 0;       // 1 bold, 2 italic, 4 underline, 8 overline, 16 strike-through
  std::string colour;  // as the caller wrote it, "" the text colour in force
  int script = 0;      // 1 raised, -1 lowered
  auto operator<=>(const RichStyle&) const = default;
};

// What a user's tag changes: an empty font or colour, a size of 0 and a negative style keep.
struct TextTag {
  std::string font;
  double size = 0;
  int style = -1;
  std::string colour;
};
using TextTags = std::map<std::string, TextTag, std::less<>>;  // by upper-case name

struct RichPiece {
  enum class Kind { Text, Blank, Break };
  Kind kind = Kind::Text;
  std::string text;       // without blanks, of Kind::Text only
  std::size_t style = 0;  // index into RichText::styles
};

struct RichText {
  std::vector<RichStyle> styles;
  std::vector<RichPiece> pieces;
};

// `base` is the style outside of all tags.
RichText ParseRichText(std::string_view text, const RichStyle& base, const TextTags& tags);

// Measures of a style, in points.
struct RichFace {
  Advances advances{};
  double lineHeight = 0;
  double descent = 0;  // negative
};

struct RichFragment {
  double x = 0;      // points from the box's left
  double width = 0;  // points
  std::string text;
  std::size_t style = 0;
  bool blankBefore = false;  // a blank that is left free and not in the text
};

struct RichLine {
  std::vector<RichFragment> fragments;
  double width = 0;    // points
  double height = 0;   // points, without the line factor
  double descent = 0;  // points, negative
  int gaps = 0;        // blanks
  bool last = false;   // ends at a break or at the text's end
};

// `faces` by style. A word that is too wide is cut and ends in an ellipsis.
std::vector<RichLine> BreakRichText(const RichText& text, const std::vector<RichFace>& faces,
                                    double width);

// Puts a line's fragments where the alignment wants them: kTextRight, kTextCentre, kTextJustify.
void AlignRichLine(RichLine& line, double width, int flags);

}  // namespace lm::pdf
