// Reads from a TrueType file what a one-byte font of a PDF needs: names, metrics and the widths of
// the 256 codes of a code page.
//
// The file: at offset 4 the number of tables, at 12 a directory of 16 bytes a table (tag, checksum,
// offset, length), all numbers big-endian. Used are `head` (units), `OS/2`, `hhea`, `post`
// (metrics), `cmap` (character to glyph), `hmtx` (advances), `loca` and `glyf` (boxes), `name`.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "pdf/codepages.h"

namespace lm::pdf {

// The trademark sign: characters above it are not looked up.
constexpr unsigned kLastCharacter = 8482;

// Lengths in thousandths of the font size.
struct TrueTypeFace {
  std::string name;  // full name, English if there is one; "" when the file has none
  int avgWidth = 0;
  int ascent = 0;
  int descent = 0;  // negative
  int maxWidth = 0;
  int missingWidth = 0;
  int xMin = 0, yMin = 0, xMax = 0, yMax = 0;  // around the glyphs of the code page
  double italicAngle = 0;                      // degrees, 2 decimals
  bool fixedPitch = false;
  bool symbol = false;
  int weight = 400;
  std::array<std::int16_t, 256> widths{};
};

// Throws Error for bytes that are no TrueType font, or that break off inside one. A font without a
// Windows character map has `missingWidth` for all codes.
TrueTypeFace ReadTrueType(std::string_view bytes, const CodePage& codePage);

}  // namespace lm::pdf
