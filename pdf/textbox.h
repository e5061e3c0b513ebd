// How a text is broken into the lines of a box. Pure functions: widths come in, lines go out.
//
// Paragraphs end with a carriage return, a line feed, or both. Words are parted by blanks. A
// leftover that begins with kContinued goes on inside a paragraph, so its first line has no indent.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace lm::pdf {

// Flags of a text, added up. Of the horizontal ones (kLeft to kCentre, kJustify to kFit) one at
// a time counts: two together act as none.
constexpr int kTextLeft = 1;
constexpr int kTextRight = 2;
constexpr int kTextCentre = 4;
constexpr int kTextTop = 8;
constexpr int kTextBottom = 16;
constexpr int kTextMiddle = 32;
constexpr int kTextJustify = 64;
constexpr int kTextShrink = 128;    // a line that is too wide is drawn narrower; no wrapping
constexpr int kTextFit = 256;       // the same, and a short one is stretched
constexpr int kTextEllipsis = 512;  // overflow ends in an ellipsis and is dropped
constexpr int kTextAlignment =
    kTextLeft | kTextRight | kTextCentre | kTextJustify | kTextShrink | kTextFit;
constexpr int kTextUnwrapped = kTextShrink | kTextFit;

// Bits of a font style that draw lines along the text: under, over and through it.
constexpr int kDecoratedStyles = 4 | 8 | 16;

constexpr char kContinued = '\x01';
constexpr char kEllipsis = '\x85';

// Lengths that differ by less are the same: user units do not convert to points exactly.
constexpr double kLengthTolerance = 0.001;  // points

// Widths of the 256 characters in points, spacings and scaling included.
using Advances = std::array<double, 256>;
double Advance(const Advances& advances, std::string_view text);

// Runs of blanks become one.
std::string CollapseBlanks(std::string_view text);

// The word, or as much of its beginning as fits the width together with an ellipsis; "" when not
// even that fits.
std::string CutToFit(std::string_view word, double width, const Advances& advances);

// As much of the text's beginning as fits the width with an ellipsis behind it, in any case an
// ellipsis; "" when not even that fits.
std::string EndedWithEllipsis(std::string_view text, double width, const Advances& advances);

struct BoxMeasures {
  double width = 0;       // points
  double indent = 0;      // points, of a paragraph's first line
  double height = -1;     // points; negative: as high as it takes
  double lineHeight = 0;  // points
  int flags = 0;
};

struct BoxLine {
  std::string text;
  bool first = false;  // of its paragraph
  bool last = false;
};

struct BrokenText {
  std::vector<BoxLine> lines;
  std::string leftover;               // paragraphs parted by carriage return and line feed
  std::vector<std::string> cutWords;  // as they were before an ellipsis took their ends
};

// How much of the free height stands above the text: half for kTextMiddle, all for kTextBottom.
double FreeAbove(double freeHeight, int flags);

BrokenText BreakText(std::string_view text, const BoxMeasures& box, const Advances& advances);

}  // namespace lm::pdf
