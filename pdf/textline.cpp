#include "pdf/textline.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "pdf/colours.h"
#include "pdf/fonts.h"

namespace lm::pdf {

namespace {

// The lines that belong to a text: which bit of the font style, and how far below the baseline, in
// parts of the size.
struct Decoration {
  int style;
  double below;
};
constexpr std::size_t kRoomForOperators = 96;  // around a line's text
constexpr Decoration kDecorations[] = {{4, 0.125}, {8, -0.8}, {16, -0.3}};

// What stands behind the backslash of a character that needs one; 0 for the others.
constexpr auto kEscapes = [] {
  std::array<char, 256> escapes{};
  for (const char c : {'\\', '(', ')'}) escapes[static_cast<unsigned char>(c)] = c;
  escapes['\r'] = 'r';
  escapes['\n'] = 'n';
  return escapes;
}();

void AppendEscaped(std::string_view text, std::string& out) {
  out += '(';
  std::size_t plain = 0;  // where the run of characters as they stand begins
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char escape = kEscapes[static_cast<unsigned char>(text[i])];
    if (escape == 0) continue;
    out += text.substr(plain, i - plain);
    out += '\\';
    out += escape;
    plain = i + 1;
  }
  out += text.substr(plain);
  out += ')';
}

}  // namespace

// How a line is spread over the room that it has.
struct LineWriter::Spacing {
  std::string text;
  double width = 0;  // points, as drawn
  double shift = 0;  // points
  std::string before, after;
};

void LineWriter::EnsureFont() {
  TextState& state = document_.state.text;
  if (!state.fontResource.empty()) return;
  const double size = state.size;
  fonts_.Set("Arial", 0, state.fontStyle, state.codePage);
  state.size = size;
}

LineWriter::Spacing LineWriter::Space(const TextLine& line) const {
  const TextState& state = document_.state.text;
  // Tw and Tz work on lengths before horizontal scaling.
  const double unscaled = 100 / state.horizontalScaling;

  Spacing spacing;
  spacing.text = line.text;
  if (line.flags & kTextJustify) {
    spacing.text = CollapseBlanks(spacing.text);
    if (spacing.text.ends_with(' ')) spacing.text.pop_back();
  }
  spacing.width = fonts_.TextWidth(spacing.text);
  const double fullWidth = spacing.width * unscaled;
  const auto gaps = std::count(spacing.text.begin(), spacing.text.end(), ' ');

  switch (line.flags & kTextAlignment) {
    case kTextRight:
      spacing.shift = line.available - spacing.width;
      break;
    case kTextCentre:
      spacing.shift = (line.available - spacing.width) / 2;
      break;
    case kTextJustify:
      if (gaps > 0) {
        const double natural = fullWidth - static_cast<double>(gaps) * state.wordSpacing;
        const double gap = (line.available * unscaled - natural) / static_cast<double>(gaps);
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

ComposedLine LineWriter::Compose(const TextLine& line) const {
  const DrawState& state = document_.state;
  const Spacing spacing = Space(line);
  const double x = line.x + line.offset + spacing.shift;

  ComposedLine composed;
  composed.endX = x + spacing.width;
  composed.box = {x, line.y - Descent() - fonts_.LineHeight(), composed.endX, line.y - Descent()};

  // A page begins in black, whatever the fill colour is before one was chosen.
  const bool recoloured =
      state.colours.text != state.colours.fill || state.colours.fill == Colours().fill;
  std::string& out = composed.operators;
  if (recoloured) out += FillOperator(state.colours.text, document_);
  out.reserve(out.size() + spacing.text.size() + kRoomForOperators);
  out += "BT ";
  out += document_.Name(state.text.fontResource);
  out += ' ';
  out += document_.Points(state.text.size);
  out += " Tf ";
  out += spacing.before;
  out += "1 0 0 -1 ";
  out += document_.Points(x);
  out += ' ';
  out += document_.Points(line.y);
  out += " Tm ";
  AppendEscaped(spacing.text, out);
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
  document_.lastBox = composed.box;
  DrawState& state = document_.state;
  state.x = nextLine ? 0 : composed.endX;
  state.y = nextLine ? line.y + fonts_.LineHeight() * state.text.lineFactor : line.y;
}

Advances LineWriter::CurrentAdvances() const {
  Advances advances;
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
