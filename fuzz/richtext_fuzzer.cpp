// Texts with tags: what is parsed, broken into lines and aligned stays inside the box, and nothing
// is lost where there is room. The first byte chooses the alignment, the second one the width.
#include "pdf/richtext.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace lm::pdf;

void Require(bool holds) {
  if (!holds) __builtin_trap();
}

// Every style has its own widths, for a word that runs through several.
std::vector<RichFace> Faces(const RichText& rich) {
  std::vector<RichFace> faces;
  for (const RichStyle& style : rich.styles) {
    Require(style.size > 0 && style.size <= kMostFontSize);
    const double size = style.script == 0 ? style.size : style.size * kScriptPercent / 100;
    RichFace face;
    for (std::size_t code = 0; code < face.advances.size(); ++code)
      face.advances[code] = size * static_cast<double>(code % 7 + 3) / 10;
    face.lineHeight = size;
    face.descent = -size / 5;
    faces.push_back(face);
  }
  return faces;
}

void CheckLine(const RichLine& line, double width) {
  Require(line.width <= width + 2 * kLengthTolerance);
  double end = -kLengthTolerance;  // of the fragment before
  for (const RichFragment& fragment : line.fragments) {
    Require(!fragment.text.empty() && fragment.x >= end - kLengthTolerance);
    end = fragment.x + fragment.width;
    Require(end <= width + 2 * kLengthTolerance);
  }
}

template <typename Pieces>
std::string Letters(const Pieces& pieces) {
  std::string letters;
  for (const auto& piece : pieces)
    for (const char c : piece.text)
      if (c != ' ') letters += c;
  return letters;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  constexpr int kAlignments[] = {kTextLeft, kTextRight, kTextCentre, kTextJustify};
  const int alignment = kAlignments[data[0] % std::size(kAlignments)];
  const double width = 4.0 * data[1];
  const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
  const TextTags tags{{"WARN", {"Courier", 14, 3, "#ff0000"}}, {"U", {"", 0, -1, "BLUE"}}};

  const RichText rich = ParseRichText(text, {"Arial", 10, 0, "", 0}, tags);
  for (const RichPiece& piece : rich.pieces) Require(piece.style < rich.styles.size());
  const std::vector<RichFace> faces = Faces(rich);
  for (RichLine& line : BreakRichText(rich, faces, width)) {
    AlignRichLine(line, width, alignment);
    CheckLine(line, width);
  }

  constexpr double kRoomForAll = 1e12;
  std::string placed;
  for (const RichLine& line : BreakRichText(rich, faces, kRoomForAll))
    placed += Letters(line.fragments);
  Require(placed == Letters(rich.pieces));
  return 0;
}
