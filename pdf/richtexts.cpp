#include "pdf/richtexts.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/text.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/fonts.h"
#include "pdf/scope.h"
#include "pdf/textline.h"

namespace lm::pdf {

struct RichTexts::Look {
  TextState text;
  std::string colour;  // stored form
  RichFace face;
  double shift = 0;  // points, downwards
};

// Leaves the text state as the style has it.
RichTexts::Look RichTexts::MakeLook(const RichStyle& style, const RichStyle& base) {
  DrawState& state = document_.state;
  Look look;
  look.colour = style.colour.empty() ? state.colours.text : StoredColour(style.colour, document_);
  if (style.font != base.font || style.size != base.size || style.style != base.style)
    fonts_.Set(style.font, style.size, style.style, state.text.codePage);
  const double fullDescent = lines_.Descent();
  if (style.script != 0) {
    state.text.size *= kScriptPercent / 100;
    look.shift = style.script * (fullDescent - lines_.Descent());
  }
  look.text = state.text;
  look.face = {lines_.CurrentAdvances(), fonts_.LineHeight(), lines_.Descent()};
  return look;
}

void RichTexts::Draw(double x, double y, double width, double height, std::string_view text,
                     int flags) {
  lines_.EnsureFont();
  const TextState box = document_.state.text;
  const RichStyle base{box.fontName, box.size, box.fontStyle, {}, 0};
  const RichText rich = ParseRichText(text, base, tags_);
  std::vector<Look> looks;
  std::vector<RichFace> faces;
  for (const RichStyle& style : rich.styles) {
    const Restored<TextState> restored(document_.state.text);
    looks.push_back(MakeLook(style, base));
    faces.push_back(looks.back().face);
  }

  const double left = document_.ToPoints(x) + box.padLeft;
  const double boxTop = document_.ToPoints(y);
  const double boxWidth =
      width == 0 ? document_.pageWidth - document_.ToPoints(x) : document_.ToPoints(width);
  const double inner = boxWidth - box.padLeft - box.padRight;
  std::vector<RichLine> lines = BreakRichText(rich, faces, inner);

  const double padding = box.padTop + box.padBottom;
  const double room = height == 0 ? 0 : std::max(0.0, document_.ToPoints(height) - padding);
  double used = 0;
  std::size_t count = 0;
  for (; count < lines.size(); ++count) {
    const double lineHeight = lines[count].height * box.lineFactor;
    if (height != 0 && used + lineHeight > room + kLengthTolerance) break;
    used += lineHeight;
  }
  lines.resize(count);
  const double boxHeight = height == 0 ? used + padding : document_.ToPoints(height);
  double top = boxTop + box.padTop + FreeAbove(room - used, height == 0 ? kTextTop : flags);

  {
    const Restored<TextState> restoredText(document_.state.text);
    const Restored<std::string> restoredColour(document_.state.colours.text);
    for (RichLine& line : lines) {
      const double natural = line.width;
      AlignRichLine(line, inner, flags);
      const int spread = line.width > natural ? kTextJustify : kTextLeft;
      top += line.height * box.lineFactor;
      for (const RichFragment& fragment : line.fragments) {
        const Look& look = looks[fragment.style];
        document_.state.text = look.text;
        document_.state.colours.text = look.colour;
        lines_.Write({.text = fragment.text,
                      .x = left + fragment.x,
                      .y = top + line.descent + look.shift,
                      .available = fragment.width,
                      .flags = spread});
      }
    }
  }
  document_.state.x = document_.ToPoints(x);
  document_.state.y = boxTop + boxHeight;
  document_.RememberBox(document_.ToPoints(x), boxTop, document_.ToPoints(x) + boxWidth,
                        boxTop + boxHeight);
}

void RichTexts::SetTag(std::string_view tag, TextTag meaning) {
  if (tag.empty() || tag.find_first_of("<>=/") != tag.npos)
    throw Error("Not a tag name: " + std::string(tag));
  tags_.insert_or_assign(ToUpper(tag), std::move(meaning));
}

}  // namespace lm::pdf
