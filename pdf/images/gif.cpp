#include "pdf/images/gif.h"

#include <array>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

constexpr unsigned kExtension = 0x21, kImage = 0x2C, kGraphicControl = 0xF9;
constexpr unsigned kHasPalette = 0x80, kInterlaced = 0x40, kHasTransparency = 0x01;
constexpr int kNone = -1;
constexpr int kMaxCodeBits = 12;
constexpr unsigned kMaxCodes = 1U << kMaxCodeBits;

// Data sub-blocks joined; `at` moves behind them.
std::string JoinBlocks(const Bytes& bytes, std::size_t& at) {
  std::string joined;
  while (const std::size_t size = bytes.Byte(at++)) {
    joined += bytes.Part(at, size);
    at += size;
  }
  return joined;
}

// The palette that a flags byte announces, "" for none; `at` moves behind it.
std::string ReadPalette(const Bytes& bytes, std::size_t& at, unsigned flags) {
  if ((flags & kHasPalette) == 0) return "";
  const std::size_t size = std::size_t{3} << ((flags & 7) + 1);
  const std::string palette(bytes.Part(at, size));
  at += size;
  return palette;
}

// Codes of growing width, least significant bit first.
class CodeStream {
 public:
  explicit CodeStream(std::string_view bytes) : bytes_(bytes) {}
  unsigned Next(int width) {
    while (held_ < width) {
      bits_ |= static_cast<std::uint32_t>(bytes_.Byte(at_++)) << held_;
      held_ += 8;
    }
    const unsigned code = bits_ & ((1U << width) - 1);
    bits_ >>= width;
    held_ -= width;
    return code;
  }

 private:
  Bytes bytes_;
  std::size_t at_ = 0;
  std::uint32_t bits_ = 0;
  int held_ = 0;
};

// The string of a code is the string of its prefix and one byte more.
class Dictionary {
 public:
  explicit Dictionary(int rootBits) : clear_(1U << rootBits) { Clear(); }
  unsigned ClearCode() const { return clear_; }
  unsigned EndCode() const { return clear_ + 1; }
  unsigned Size() const { return size_; }
  void Clear() { size_ = clear_ + 2; }

  void AppendString(unsigned code, std::string& out) const {
    const std::size_t length = Length(code);
    out.resize(out.size() + length);
    for (std::size_t i = 1; i <= length; ++i) {
      out[out.size() - i] = Last(code);
      code = code < clear_ ? code : prefix_[code];
    }
  }
  char First(unsigned code) const { return static_cast<char>(code < clear_ ? code : first_[code]); }
  void Add(unsigned prefix, char last) {
    if (size_ == kMaxCodes) return;  // full: the stream goes on with what there is
    prefix_[size_] = static_cast<std::uint16_t>(prefix);
    last_[size_] = static_cast<std::uint8_t>(last);
    first_[size_] = static_cast<std::uint8_t>(First(prefix));
    length_[size_] = static_cast<std::uint16_t>(Length(prefix) + 1);
    ++size_;
  }

 private:
  std::size_t Length(unsigned code) const { return code < clear_ ? 1 : length_[code]; }
  char Last(unsigned code) const { return static_cast<char>(code < clear_ ? code : last_[code]); }

  unsigned clear_;
  unsigned size_ = 0;
  std::array<std::uint16_t, kMaxCodes> prefix_{}, length_{};
  std::array<std::uint8_t, kMaxCodes> last_{}, first_{};
};

// The first `count` bytes of the packed ones.
std::string Unpack(std::string_view packed, int rootBits, std::size_t count) {
  CodeStream codes(packed);
  Dictionary dictionary(rootBits);
  std::string out;
  int width = rootBits + 1;
  int before = kNone;  // code
  while (out.size() < count) {
    const unsigned code = codes.Next(width);
    if (code == dictionary.EndCode()) throw Error("The picture breaks off before its end");
    if (code == dictionary.ClearCode()) {
      dictionary.Clear();
      width = rootBits + 1;
      before = kNone;
      continue;
    }
    if (code > dictionary.Size() || (code == dictionary.Size() && before == kNone)) {
      throw Error("The GIF picture's data is damaged");
    }
    // A code that is made this moment begins as the string before it does.
    if (before != kNone) {
      const auto prefix = static_cast<unsigned>(before);
      dictionary.Add(prefix, dictionary.First(code < dictionary.Size() ? code : prefix));
    }
    if (code >= dictionary.Size()) throw Error("The GIF picture's data is damaged");
    dictionary.AppendString(code, out);
    before = static_cast<int>(code);
    if (dictionary.Size() == 1U << width && width < kMaxCodeBits) ++width;
  }
  out.resize(count);
  return out;
}

// Rows stored in four passes, put in order.
std::string Deinterlaced(const std::string& rows, std::size_t width, std::size_t height) {
  constexpr std::array<std::array<std::size_t, 2>, 4> kPasses = {{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  std::string ordered(rows.size(), '\0');
  std::size_t stored = 0;
  for (const auto& [first, step] : kPasses) {
    for (std::size_t row = first; row < height; row += step) {
      ordered.replace(row * width, width, rows, stored * width, width);
      ++stored;
    }
  }
  return ordered;
}

Picture ReadImage(const Bytes& bytes, std::size_t at, std::string palette) {
  Picture picture;
  picture.width = bytes.Little16(at + 4);
  picture.height = bytes.Little16(at + 6);
  CheckPictureSize(picture.width, picture.height);
  const unsigned flags = bytes.Byte(at + 8);
  at += 9;
  std::string local = ReadPalette(bytes, at, flags);
  picture.palette = local.empty() ? std::move(palette) : std::move(local);
  if (picture.palette.empty()) throw Error("The GIF picture has no palette");

  const int rootBits = bytes.Byte(at++);
  if (rootBits < 1 || rootBits > 8) throw Error("The GIF picture's data is damaged");
  // Missing entries are black, so that every index has one.
  picture.palette.resize(std::max(picture.palette.size(), std::size_t{3} << rootBits));
  const std::size_t width = static_cast<std::size_t>(picture.width);
  const std::size_t height = static_cast<std::size_t>(picture.height);
  picture.data = Unpack(JoinBlocks(bytes, at), rootBits, width * height);
  if ((flags & kInterlaced) != 0) picture.data = Deinterlaced(picture.data, width, height);
  return picture;
}

}  // namespace

Picture ReadGif(std::string_view file) {
  const Bytes bytes(file);
  if (!bytes.StartsWith("GIF87a") && !bytes.StartsWith("GIF89a")) {
    throw Error("This is no GIF picture");
  }
  std::size_t at = 13;
  std::string palette = ReadPalette(bytes, at, bytes.Byte(10));
  int transparent = kNone;  // palette entry
  for (;;) {
    const unsigned kind = bytes.Byte(at++);
    if (kind == kImage) break;
    if (kind != kExtension) throw Error("The GIF file has no picture");
    const unsigned label = bytes.Byte(at++);
    const std::string data = JoinBlocks(bytes, at);
    if (label == kGraphicControl && data.size() >= 4) {
      transparent = kNone;
      if ((Bytes(data).Byte(0) & kHasTransparency) != 0)
        transparent = static_cast<int>(Bytes(data).Byte(3));
    }
  }
  Picture picture = ReadImage(bytes, at, std::move(palette));
  if (transparent != kNone && transparent < static_cast<int>(picture.palette.size() / 3)) {
    picture.mask =
        MaskRange(static_cast<unsigned>(transparent), static_cast<unsigned>(transparent));
  }
  return picture;
}

}  // namespace lm::pdf
