#include "pdf/images/tga.h"

#include <algorithm>
#include <array>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

constexpr std::size_t kHeader = 18;
constexpr unsigned kIndexed = 1, kColoured = 2, kGray = 3, kRunLength = 8;
constexpr unsigned kRightToLeft = 0x10, kTopDown = 0x20;

char FiveBits(unsigned value) { return static_cast<char>(((value & 31) * 255 + 15) / 31); }

// Red, green and blue of a pixel or palette entry of 2, 3 or 4 bytes.
std::array<char, 3> Rgb(std::string_view pixel) {
  if (pixel.size() > 2) return {pixel[2], pixel[1], pixel[0]};
  const unsigned value = Bytes(pixel).Little16(0);
  return {FiveBits(value >> 10), FiveBits(value >> 5), FiveBits(value)};
}

bool IsColourDepth(unsigned bits) { return bits == 15 || bits == 16 || bits == 24 || bits == 32; }

class TgaReader {
 public:
  explicit TgaReader(std::string_view file) : bytes_(file) {}

  Picture Read() {
    ReadHeader();
    std::size_t at = kHeader + bytes_.Byte(0);
    at = ReadPalette(at);
    const std::string pixels = packed_ ? UnpackRuns(at) : std::string(bytes_.Part(at, Total()));
    PutRows(pixels);
    return std::move(picture_);
  }

 private:
  void ReadHeader() {
    const unsigned type = bytes_.Byte(2);
    packed_ = (type & kRunLength) != 0;
    kind_ = type & ~kRunLength;
    const unsigned depth = bytes_.Byte(16);
    const bool supported = kind_ == kColoured ? IsColourDepth(depth)
                                              : (kind_ == kIndexed || kind_ == kGray) && depth == 8;
    if (!supported) throw Error("This kind of TGA picture is not supported");
    pixelSize_ = (depth + 7) / 8;
    picture_.width = bytes_.Little16(12);
    picture_.height = bytes_.Little16(14);
    CheckPictureSize(picture_.width, picture_.height);
    corner_ = bytes_.Byte(17);
    if (kind_ == kGray) picture_.colourSpace = "DeviceGray";
  }

  // Missing entries are black, so that every index has one. Returns the offset behind the palette,
  // which pictures without indices may bring too.
  std::size_t ReadPalette(std::size_t at) {
    const bool present = bytes_.Byte(1) == 1;
    if (!present && kind_ == kIndexed) throw Error("The TGA picture has no palette");
    if (!present) return at;
    const std::size_t first = bytes_.Little16(3);
    const std::size_t count = bytes_.Little16(5);
    const unsigned depth = bytes_.Byte(7);
    const std::size_t size = (depth + 7U) / 8;
    const std::string_view entries = bytes_.Part(at, count * size);
    if (kind_ == kIndexed) {
      if (!IsColourDepth(depth)) throw Error("The TGA picture's palette is damaged");
      picture_.palette.assign(256 * 3, '\0');
      for (std::size_t i = 0; i < count && first + i < 256; ++i) {
        const auto rgb = Rgb(entries.substr(i * size, size));
        std::copy(rgb.begin(), rgb.end(),
                  picture_.palette.begin() + static_cast<long>((first + i) * 3));
      }
    }
    return at + count * size;
  }

  std::string UnpackRuns(std::size_t at) const {
    std::string pixels;
    while (pixels.size() < Total()) {
      const unsigned head = bytes_.Byte(at++);
      const std::size_t count = (head & 127) + 1;
      if ((head & 128) != 0) {
        const std::string_view pixel = bytes_.Part(at, pixelSize_);
        for (std::size_t i = 0; i < count; ++i) pixels += pixel;
        at += pixelSize_;
      } else {
        pixels += bytes_.Part(at, count * pixelSize_);
        at += count * pixelSize_;
      }
    }
    return pixels;
  }

  void PutRows(std::string_view pixels) {
    const std::size_t width = static_cast<std::size_t>(picture_.width);
    const std::size_t height = static_cast<std::size_t>(picture_.height);
    picture_.data.reserve(width * height * (kind_ == kColoured ? 3 : 1));
    for (std::size_t y = 0; y < height; ++y) {
      const std::size_t row = (corner_ & kTopDown) != 0 ? y : height - 1 - y;
      for (std::size_t x = 0; x < width; ++x) {
        const std::size_t column = (corner_ & kRightToLeft) != 0 ? width - 1 - x : x;
        const std::string_view pixel =
            pixels.substr((row * width + column) * pixelSize_, pixelSize_);
        if (kind_ == kColoured) {
          const auto rgb = Rgb(pixel);
          picture_.data.append(rgb.data(), rgb.size());
        } else {
          picture_.data += pixel[0];
        }
      }
    }
  }

  std::size_t Total() const {
    return static_cast<std::size_t>(picture_.width) * static_cast<std::size_t>(picture_.height) *
           pixelSize_;
  }

  Bytes bytes_;
  Picture picture_;
  unsigned kind_ = 0;  // without the run-length bit
  bool packed_ = false;
  std::size_t pixelSize_ = 0;  // bytes
  unsigned corner_ = 0;        // which corner comes first
};

}  // namespace

Picture ReadTga(std::string_view bytes) { return TgaReader(bytes).Read(); }

}  // namespace lm::pdf
