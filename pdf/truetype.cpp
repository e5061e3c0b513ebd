#include "pdf/truetype.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "core/text.h"
#include "pdf/error.h"

namespace lm::pdf {
namespace {

constexpr unsigned kVersion1 = 0x00010000;
constexpr unsigned kVersionTrue = 0x74727565;  // "true", as Apple's files have it
constexpr unsigned kWindows = 3;
constexpr unsigned kFullName = 4;
constexpr std::size_t kLongestName = 127;  // bytes, as a name in a PDF may have

[[noreturn]] void ThrowDamaged() { throw Error("The font file is damaged"); }

// Part of the file. Every access is checked: what lies outside throws.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  bool Empty() const { return bytes_.empty(); }
  std::size_t Size() const { return bytes_.size(); }
  unsigned U16(std::size_t at) const {
    const std::string_view two = Slice(at, 2);
    return static_cast<unsigned>(Byte(two[0]) << 8 | Byte(two[1]));
  }
  int S16(std::size_t at) const { return static_cast<std::int16_t>(U16(at)); }
  std::size_t U32(std::size_t at) const { return std::size_t{U16(at)} << 16 | U16(at + 2); }
  std::string_view Slice(std::size_t at, std::size_t length) const {
    if (at > bytes_.size() || length > bytes_.size() - at) ThrowDamaged();
    return bytes_.substr(at, length);
  }
  // From an offset to the end, or as much of `length` as there is.
  Bytes From(std::size_t at, std::size_t length = std::string_view::npos) const {
    if (at > bytes_.size()) ThrowDamaged();
    return Bytes(bytes_.substr(at, length));
  }

 private:
  static int Byte(char c) { return static_cast<unsigned char>(c); }

  std::string_view bytes_;
};

// The table of this tag; empty when the file has none.
Bytes Table(const Bytes& file, std::string_view tag) {
  const std::size_t count = file.U16(4);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = 12 + 16 * i;
    if (file.Slice(entry, 4) == tag) return file.From(file.U32(entry + 8), file.U32(entry + 12));
  }
  return Bytes({});
}

Bytes NeededTable(const Bytes& file, std::string_view tag) {
  const Bytes table = Table(file, tag);
  if (table.Empty()) throw Error("The font file has no table " + std::string(tag));
  return table;
}

// Glyph numbers by character, up to kLastCharacter; 0 is no glyph.
using CharacterMap = std::vector<std::uint16_t>;

// A cmap subtable of format 4: segments in ascending order, each a run of characters whose glyphs
// follow by adding a delta, or stand in an array.
CharacterMap ReadSegments(const Bytes& subtable) {
  CharacterMap glyphs(kLastCharacter + 1);
  const std::size_t columnSize = subtable.U16(6) / 2 * 2u;
  const std::size_t starts = 16 + columnSize;
  const std::size_t deltas = starts + columnSize;
  const std::size_t ranges = deltas + columnSize;
  unsigned unread = 0;  // no character is read twice, so that damaged segments cost no time
  for (std::size_t i = 0; i < columnSize; i += 2) {
    const unsigned start = subtable.U16(starts + i);
    if (start > kLastCharacter) break;
    const unsigned end = std::min(subtable.U16(14 + i), kLastCharacter);
    const unsigned delta = subtable.U16(deltas + i);
    const std::size_t range = subtable.U16(ranges + i);
    for (unsigned c = std::max(start, unread); c <= end; ++c) {
      unsigned glyph = c;
      if (range != 0) glyph = subtable.U16(ranges + i + range + 2 * (c - start));
      // 0 in the array stays no glyph, whatever the delta.
      if (range == 0 || glyph != 0) glyphs[c] = static_cast<std::uint16_t>(glyph + delta);
    }
    unread = std::max(unread, end + 1);
  }
  return glyphs;
}

CharacterMap ReadCharacterMap(const Bytes& cmap, bool& symbol) {
  const std::size_t count = cmap.Empty() ? 0 : cmap.U16(2);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t record = 4 + 8 * i;
    if (cmap.U16(record) != kWindows) continue;
    symbol = cmap.U16(record + 2) == 0;
    const Bytes subtable = cmap.From(cmap.U32(record + 4));
    if (subtable.U16(0) == 4) return ReadSegments(subtable);
  }
  return CharacterMap(kLastCharacter + 1);
}

bool IsEnglish(unsigned language) {
  constexpr unsigned kEnglish[] = {1033, 2057, 3081, 4105, 5129, 6153};
  return std::ranges::find(kEnglish, language) != std::end(kEnglish);
}

// One-byte text of big-endian UTF-16: the low byte of each unit. No PDF name has a NUL.
std::string LowBytes(std::string_view utf16) {
  std::string text;
  for (std::size_t i = 1; i < utf16.size() && text.size() < kLongestName; i += 2)
    if (utf16[i] != '\0') text += utf16[i];
  return std::string(Trim(text));
}

std::string ReadName(const Bytes& table, bool symbol) {
  std::string name;
  const std::size_t count = table.Empty() ? 0 : table.U16(2);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t record = 6 + 12 * i;
    if (table.U16(record) != kWindows || table.U16(record + 2) != (symbol ? 0u : 1u) ||
        table.U16(record + 6) != kFullName)
      continue;
    const bool english = IsEnglish(table.U16(record + 4));
    if (english || name.empty())
      name = LowBytes(table.Slice(table.U16(4) + table.U16(record + 10), table.U16(record + 8)));
    if (english) break;
  }
  return name;
}

class FaceReader {
 public:
  FaceReader(std::string_view bytes, const CodePage& codePage)
      : file_(bytes), codePage_(codePage) {}

  TrueTypeFace Read() {
    const Bytes head = NeededTable(file_, "head");
    unitsPerEm_ = static_cast<int>(head.U16(18));
    if (unitsPerEm_ < 16 || unitsPerEm_ > 16384) ThrowDamaged();
    longOffsets_ = head.U16(50) != 0;
    ReadMetrics();
    ReadStyle();
    const CharacterMap glyphs = ReadCharacterMap(Table(file_, "cmap"), face_.symbol);
    ReadGlyphs(glyphs);
    face_.name = ReadName(Table(file_, "name"), face_.symbol);
    return face_;
  }

 private:
  double Exact(int units) const { return units * 1000.0 / unitsPerEm_; }
  int Scaled(int units) const { return static_cast<int>(std::lround(Exact(units))); }

  static std::int16_t Width(int thousandths) {
    constexpr int kMost = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(thousandths, 0, kMost));
  }

  void ReadMetrics() {
    const Bytes hhea = NeededTable(file_, "hhea");
    face_.maxWidth = Scaled(static_cast<int>(hhea.U16(10)));
    advanceCount_ = std::max(1u, hhea.U16(34));
    face_.missingWidth = static_cast<int>(Exact(static_cast<int>(advances_.U16(0))));

    const Bytes os2 = Table(file_, "OS/2");
    if (os2.Size() < 78) {  // fonts made for Apple's systems have none, or a short one
      face_.ascent = Scaled(hhea.S16(4));
      face_.descent = Scaled(-std::abs(hhea.S16(6)));
      return;
    }
    face_.avgWidth = Scaled(os2.S16(2));
    face_.weight = static_cast<int>(os2.U16(4));
    face_.ascent = Scaled(static_cast<int>(os2.U16(74)));
    face_.descent = -Scaled(static_cast<int>(os2.U16(76)));
  }

  void ReadStyle() {
    const Bytes post = Table(file_, "post");
    if (post.Empty()) return;
    const double angle = post.S16(4) + post.U16(6) / 65535.0;
    face_.italicAngle = std::round(angle * 100) / 100;
    face_.fixedPitch = post.U32(12) != 0;
  }

  void ReadGlyphs(const CharacterMap& glyphs) {
    face_.widths.fill(Width(face_.missingWidth));
    for (unsigned code = 1; code < 256; ++code) {
      const unsigned character = codePage_.Unicode(static_cast<unsigned char>(code));
      const unsigned glyph = character <= kLastCharacter ? glyphs[character] : 0;
      if (glyph == 0) continue;
      const std::size_t advance = std::min(glyph, advanceCount_ - 1);
      face_.widths[code] = Width(Scaled(static_cast<int>(advances_.U16(4 * advance))));
      ExtendBox(glyph);
    }
    for (int* side : {&face_.xMin, &face_.yMin, &face_.xMax, &face_.yMax}) *side = Scaled(*side);
  }

  std::size_t GlyphOffset(unsigned glyph) const {
    return longOffsets_ ? loca_.U32(4 * std::size_t{glyph}) : 2 * loca_.U16(2 * std::size_t{glyph});
  }

  // A composite glyph counts below 0 contours, and its parts are met by themselves; a glyph without
  // an outline, such as the blank, ends where it begins.
  void ExtendBox(unsigned glyph) {
    if (loca_.Empty() || glyf_.Empty()) return;
    const std::size_t offset = GlyphOffset(glyph);
    if (offset == GlyphOffset(glyph + 1) || glyf_.S16(offset) < 0) return;
    face_.xMin = std::min(face_.xMin, glyf_.S16(offset + 2));
    face_.yMin = std::min(face_.yMin, glyf_.S16(offset + 4));
    face_.xMax = std::max(face_.xMax, glyf_.S16(offset + 6));
    face_.yMax = std::max(face_.yMax, glyf_.S16(offset + 8));
  }

  Bytes file_;
  const CodePage& codePage_;
  Bytes advances_ = NeededTable(file_, "hmtx");
  Bytes loca_ = Table(file_, "loca");
  Bytes glyf_ = Table(file_, "glyf");
  int unitsPerEm_ = 0;
  bool longOffsets_ = false;
  unsigned advanceCount_ = 1;
  TrueTypeFace face_;
};

}  // namespace

TrueTypeFace ReadTrueType(std::string_view bytes, const CodePage& codePage) {
  const std::size_t version = Bytes(bytes).U32(0);
  if (version != kVersion1 && version != kVersionTrue) throw Error("Not a TrueType font file");
  return FaceReader(bytes, codePage).Read();
}

}  // namespace lm::pdf
