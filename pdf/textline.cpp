#include "pdf/textline.h"

#include <algorithm>

#include "pdf/colours.h"
#include "pdf/fonts.h"
#include "pdf/notation.h"

namespace lm::pdf {

namespace {

// The lines that belong to a text: which bit of the font style, and how far below the baseline, in
// parts of the size.
struct Decoration {
  int style;
  double below;
};
constexpr std::size_t kRoomForOperators = 128;  // around a line's text
constexpr Decoration kDecorations[] = {{4, 0.125}, {8, -0.8}, {16, -0.3}};

}  // namespace

// How a line is spread over the room that it has.
struct LineWriter::Spacing {
  double width = 0;  // points, as drawn
  double shift = 0;  // points
  std::string before, after;
};

void LineWriter::EnsureFont() { fonts_.Ensure(); }

LineWriter::Spacing LineWriter::Space(const TextLine& line) const {
  const TextState& state = document_.state.text;
  // Tw and Tz work on lengths before horizontal scaling.
  const double unscaled = 100 / state.horizontalScaling;

  Spacing spacing;
  spacing.width = fonts_.TextWidth(line.text);
  const double fullWidth = spacing.width * unscaled;

  switch (line.flags & kTextAlignment) {
    case kTextRight:
      spacing.shift = line.available - spacing.width;
      break;
    case kTextCentre:
      spacing.shift = (line.available - spacing.width) / 2;
      break;
    case kTextJustify:
      if (const auto gaps = static_cast<double>(std::ranges::count(line.text, ' ')); gaps > 0) {
        const double natural = fullWidth - gaps * state.wordSpacing;
        const double gap = (line.available * unscaled - natural) / gaps;
        spacing.before = document_.Points(gap) + " Tw ";
        spacing.after = document_.Points(state.wordSpacing) + " Tw ";
        spacing.width = line.available;
      }
      break;
    case kTextShrink:
    case kTextFit: {
      const bool fits = fullWidth <= line.available && !(line.flags & kTextFit);
      if (!fits && fullWidth > 0 && line.available > 0) {
        spacing.before = document_.Points(line.available * 100 / fullWidth) + " Tz ";
        spacing.after = document_.Points(state.horizontalScaling) + " Tz ";
        spacing.width = line.available;
      }
      break;
    }
    default:
      break;
  }
  return spacing;
}

std::string LineWriter::DecorationLines(double x, double y, double width) const {
  const TextState& state = document_.state.text;
  if (!(state.fontStyle & kDecoratedStyles) || width <= 0) return {};
  std::string lines = "q " + LineOperator(document_.state.colours.line, document_) +
                      document_.Points(state.size / 16) + " w 1 0 0 1 " + document_.Points(x) +
                      " " + document_.Points(y) + " cm ";
  for (const Decoration& decoration : kDecorations) {
    if (!(state.fontStyle & decoration.style)) continue;
    const std::string below = document_.Points(decoration.below * state.size);
    lines += "0 " + below + " m " + document_.Points(width) + " " + below + " l S ";
  }
  return lines + "Q\n";
}

ComposedLine LineWriter::Compose(const TextLine& given) const {
  const DrawState& state = document_.state;
  TextLine line = given;
  std::string collapsed;
  if (line.flags & kTextJustify) {
    line.text = collapsed = CollapseBlanks(line.text);
    if (line.text.ends_with(' ')) line.text.remove_suffix(1);
  }
  const Spacing spacing = Space(line);
  const double x = line.x + line.offset + spacing.shift;

  ComposedLine composed;
  composed.endX = x + spacing.width;
  composed.box = {x, line.y - Descent() - fonts_.LineHeight(), composed.endX, line.y - Descent()};

  // A page begins in black, whatever the fill colour is before one was chosen.
  const bool recoloured =
      state.colours.text != state.colours.fill || state.colours.fill == Colours().fill;
  std::string& out = composed.operators;
  out.reserve(line.text.size() + kRoomForOperators);
  if (recoloured) out += FillOperator(state.colours.text, document_);
  out += "BT /";
  out += document_.prefix;
  out += state.text.fontResource;
  out += ' ';
  document_.AppendPoints(state.text.size, out);
  out += " Tf ";
  out += spacing.before;
  out += "1 0 0 -1 ";
  document_.AppendPoints(x, out);
  out += ' ';
  document_.AppendPoints(line.y, out);
  out += " Tm ";
  AppendLiteral(line.text, out);
  out += " Tj ";
  out += spacing.after;
  out += "ET\n";
  out += DecorationLines(x, line.y, spacing.width);
  if (recoloured) out += FillOperator(state.colours.fill, document_);
  return composed;
}

void LineWriter::Write(const TextLine& line, bool nextLine) {
  EnsureFont();
  const ComposedLine composed = Compose(line);
  document_.Draw(composed.operators);
  const LastBox& box = composed.box;
  document_.RememberBox(box.left, box.top, box.right, box.bottom);
  DrawState& state = document_.state;
  state.x = nextLine ? 0 : composed.endX;
  state.y = nextLine ? line.y + fonts_.LineHeight() * state.text.lineFactor : line.y;
}

const Advances& LineWriter::CurrentAdvances() const {
  constexpr std::size_t kKept = 32;
  const TextState& state = document_.state.text;
  const Measure measure{state.fontIndex, state.size, state.charSpacing, state.wordSpacing,
                        state.horizontalScaling};
  for (const Measured& known : measured_)
    if (known.measure == measure) return known.advances;
  if (measured_.size() == kKept) measured_.pop_back();
  Advances& advances = measured_.emplace_front(Measured{measure, {}}).advances;
  for (std::size_t code = 0; code < advances.size(); ++code) {
    const char c = static_cast<char>(code);
    advances[code] = fonts_.TextWidth(std::string_view(&c, 1));
  }
  return advances;
}

double LineWriter::Descent() const {
  return fonts_.Current().descent * document_.state.text.size / 1000;
}

double LineWriter::LineHeight() const { return fonts_.LineHeight(); }

}  // namespace lm::pdf
