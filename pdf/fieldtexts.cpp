#include "pdf/fieldtexts.h"

#include <algorithm>

#include "pdf/annots.h"
#include "pdf/fonts.h"
#include "pdf/scope.h"
#include "pdf/textline.h"

namespace lm::pdf {
namespace {

constexpr double kPadding = 2;  // points between the border and a text beside it
// Font sizes that are chosen for the caller: several lines need not be large.
constexpr double kSmallestSize = 4, kLargestSize = 12;
constexpr std::string_view kChosenGround = "0.6 0.757 0.855 rg\r";

// The room inside a frame. While it lives, the state is the one that the frame's text is drawn in.
class Room {
 public:
  Room(Document& document, Fonts& fonts, const Frame& frame)
      : document_(document),
        fonts_(fonts),
        lines_(document, fonts),
        restored_(document.state),
        inset_(frame.Inset()),
        width_(std::max(frame.width - 2 * (inset_ + kPadding), 0.0)),
        height_(std::max(frame.height - 2 * inset_, 0.0)) {
    TextState& text = document.state.text;
    text.charSpacing = text.wordSpacing = 0;
    text.horizontalScaling = 100;
    // The colours are chosen here: patterns are no resources of pictures.
    Colours& colours = document.state.colours;
    colourOperators_ =
        ColourOperator(colours.text, false) + "\r" + ColourOperator(colours.line, true) + "\r";
    colours = {"", "", ""};
  }

  double Width() const { return width_; }
  double Height() const { return height_; }
  double& Size() { return document_.state.text.size; }
  double LineHeight() const { return fonts_.LineHeight(); }
  double WidthOf(std::string_view text) const { return fonts_.TextWidth(text); }

  std::vector<BoxLine> Broken(std::string_view text) const {
    return BreakText(text, {.width = width_, .lineHeight = LineHeight()}, lines_.CurrentAdvances())
        .lines;
  }

  // A line whose upper edge is `top` points below the room's.
  std::string LineAt(double top, std::string_view text, int flags) const {
    return lines_
        .Compose({.text = text,
                  .x = inset_ + kPadding,
                  .y = inset_ + top + LineHeight() + lines_.Descent(),
                  .available = width_,
                  .flags = flags})
        .operators;
  }

  std::string ChosenGround(double top) const {
    return std::string(kChosenGround) + Box(top, LineHeight()) + "f\r" + colourOperators_;
  }

  std::string Clipped(std::string_view operators) const {
    return (Box(0, height_) + "W n\r" + colourOperators_).append(operators);
  }

 private:
  std::string Box(double top, double height) const {
    return document_.Points(inset_) + " " + document_.Points(inset_ + top) + " " +
           document_.Points(width_ + 2 * kPadding) + " " + document_.Points(height) + " re\r";
  }

  Document& document_;
  Fonts& fonts_;
  LineWriter lines_;
  Restored<DrawState> restored_;
  double inset_, width_, height_;
  std::string colourOperators_;
};

// As large as the line fits.
void ChooseSizeForLine(Room& room, std::string_view text) {
  if (room.Size() > 0) return;
  room.Size() = 1;
  const double high = room.Height() / std::max(room.LineHeight(), 0.1);
  const double width = room.WidthOf(text);
  const double size = width > 0 ? std::min(high, room.Width() / width) : high;
  room.Size() = std::max(size, kSmallestSize);
}

}  // namespace

void FieldTexts::EnsureFont() const { LineWriter(document_, fonts_).EnsureFont(); }

std::string FieldTexts::Line(const Frame& frame, std::string_view text, int flags) const {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](unsigned char c) { return c < ' '; }, ' ');
  Room room(document_, fonts_, frame);
  ChooseSizeForLine(room, line);
  const double above = FreeAbove(room.Height() - room.LineHeight(), kTextMiddle);
  return room.Clipped(room.LineAt(above, line, flags));
}

std::string FieldTexts::Paragraphs(const Frame& frame, std::string_view text, int flags) const {
  Room room(document_, fonts_, frame);
  const auto used = [&] {
    return static_cast<double>(room.Broken(text).size()) * room.LineHeight();
  };
  if (!(room.Size() > 0))
    for (room.Size() = kLargestSize; room.Size() > kSmallestSize && used() > room.Height();)
      room.Size() -= 1;
  std::string operators;
  double top = 0;
  for (const BoxLine& line : room.Broken(text)) {
    if (top > room.Height()) break;
    operators += room.LineAt(top, line.text, flags);
    top += room.LineHeight();
  }
  return room.Clipped(operators);
}

std::string FieldTexts::Rows(const Frame& frame, const std::vector<std::string>& items,
                             const std::vector<std::string>& chosen) const {
  Room room(document_, fonts_, frame);
  if (!(room.Size() > 0)) room.Size() = kLargestSize;
  std::string operators;
  double top = 0;
  for (const std::string& item : items) {
    if (top > room.Height()) break;
    if (std::ranges::find(chosen, item) != chosen.end()) operators += room.ChosenGround(top);
    operators += room.LineAt(top, item, kTextLeft);
    top += room.LineHeight();
  }
  return room.Clipped(operators);
}

std::string FieldTexts::DefaultAppearance() const {
  const TextState& text = document_.state.text;
  return document_.Name(text.fontResource) + " " + document_.Points(text.size) + " Tf " +
         ColourOperator(document_.state.colours.text, false);
}

}  // namespace lm::pdf
