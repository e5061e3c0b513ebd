// Picture files made in memory, for tests.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "pdf/filters.h"

namespace lm::test {

inline std::string Little(std::uint64_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
  return bytes;
}

inline std::string Big(std::uint32_t value, int count) {
  const std::string bytes = Little(value, count);
  return {bytes.rbegin(), bytes.rend()};
}

inline std::string Codes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

// PNG

inline std::uint32_t Crc(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) {
    crc ^= static_cast<std::uint8_t>(c);
    for (int i = 0; i < 8; ++i) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

inline std::string PngChunk(const std::string& type, const std::string& data) {
  return Big(static_cast<std::uint32_t>(data.size()), 4) + type + data + Big(Crc(type + data), 4);
}

constexpr int kPngGray = 0, kPngRgb = 2, kPngIndexed = 3, kPngGrayAlpha = 4, kPngRgbAlpha = 6;

inline std::string PngHeader(int width, int height, int bits, int colourType, int interlace = 0) {
  return std::string("\x89PNG\r\n\x1A\n") +
         PngChunk("IHDR", Big(static_cast<std::uint32_t>(width), 4) +
                              Big(static_cast<std::uint32_t>(height), 4) +
                              Codes({bits, colourType, 0, 0, interlace}));
}

// rows: each with its filter byte in front.
inline std::string PngEnd(const std::string& rows) {
  return PngChunk("IDAT", pdf::EncodeFlate(rows)) + PngChunk("IEND", "");
}

// JPEG: one gray square of 8 x 8 points, all of one shade; its tables know the codes it needs.

inline std::string JpegSegment(int marker, const std::string& data) {
  return Codes({0xFF, marker}) + Big(static_cast<std::uint32_t>(data.size() + 2), 2) + data;
}

inline std::string JpegFrame(int marker, int components, int width = 8, int height = 8,
                             int bits = 8) {
  std::string data = Codes({bits}) + Big(static_cast<std::uint32_t>(height), 2) +
                     Big(static_cast<std::uint32_t>(width), 2) + Codes({components});
  for (int i = 1; i <= components; ++i) data += Codes({i, 0x11, 0});
  return JpegSegment(marker, data);
}

// lastCoefficient: 63 for all of a block, 0 for a progressive picture's first scan.
inline std::string JpegScan(int components, int lastCoefficient = 63) {
  std::string head = Codes({components});
  for (int i = 1; i <= components; ++i) head += Codes({i, 0x00});
  const std::string oneCode = Codes({1}) + std::string(15, '\0') + Codes({0});
  return JpegSegment(0xC4, Codes({0x00}) + oneCode) + JpegSegment(0xC4, Codes({0x10}) + oneCode) +
         JpegSegment(0xDA, head + Codes({0, lastCoefficient, 0})) +
         Codes({0xFF >> (2 * components)}) + "\xFF\xD9";
}

// A mid-gray picture of 8 x 8 points with this many components.
inline std::string Jpeg(int components, const std::string& before = "", bool progressive = false) {
  return "\xFF\xD8" + before + JpegSegment(0xDB, Codes({0}) + std::string(64, '\1')) +
         JpegFrame(progressive ? 0xC2 : 0xC0, components) +
         JpegScan(components, progressive ? 0 : 63);
}

inline std::string AdobeMark() {
  return JpegSegment(0xEE, "Adobe" + Codes({0, 100, 0, 0, 0, 0, 0}));
}

// BMP, behind a Windows header of 40 bytes. A height below 0 is top-down.
inline std::string Bmp(int width, int height, int bits, int compression, const std::string& palette,
                       const std::string& rows) {
  const std::size_t offset = 54 + palette.size();
  return "BM" + Little(static_cast<std::uint32_t>(offset + rows.size()), 4) + Little(0, 4) +
         Little(static_cast<std::uint32_t>(offset), 4) + Little(40, 4) +
         Little(static_cast<std::uint32_t>(width), 4) +
         Little(static_cast<std::uint32_t>(height), 4) + Little(1, 2) +
         Little(static_cast<std::uint32_t>(bits), 2) +
         Little(static_cast<std::uint32_t>(compression), 4) + std::string(12, '\0') +
         Little(compression == 3 ? 0 : static_cast<std::uint32_t>(palette.size() / 4), 4) +
         Little(0, 4) + palette + rows;
}

// GIF

class GifPacker {
 public:
  explicit GifPacker(int rootBits) : rootBits_(rootBits) {}

  std::string Pack(std::string_view indices) {
    Clear();
    int prefix = -1;
    for (const char c : indices) {
      const int index = static_cast<std::uint8_t>(c);
      const auto known = codes_.find({prefix, index});
      if (prefix < 0) {
        prefix = index;
      } else if (known != codes_.end()) {
        prefix = known->second;
      } else {
        Put(prefix);
        if (next_ == 4096) {
          Clear();
        } else {
          codes_[{prefix, index}] = next_;
          if (next_ == 1 << width_) ++width_;
          ++next_;
        }
        prefix = index;
      }
    }
    Put(prefix);
    Put((1 << rootBits_) + 1);
    if (held_ > 0) bytes_ += static_cast<char>(bits_);

    std::string blocks = Codes({rootBits_});
    for (std::size_t at = 0; at < bytes_.size(); at += 255) {
      const std::string block = bytes_.substr(at, 255);
      blocks += static_cast<char>(block.size()) + block;
    }
    return blocks + Codes({0});
  }

 private:
  void Clear() {
    if (width_ == 0) width_ = rootBits_ + 1;
    Put(1 << rootBits_);
    codes_.clear();
    next_ = (1 << rootBits_) + 2;
    width_ = rootBits_ + 1;
  }
  void Put(int code) {
    bits_ |= static_cast<std::uint32_t>(code) << held_;
    for (held_ += width_; held_ >= 8; held_ -= 8, bits_ >>= 8) bytes_ += static_cast<char>(bits_);
  }

  int rootBits_;
  int width_ = 0, next_ = 0, held_ = 0;
  std::uint32_t bits_ = 0;
  std::map<std::pair<int, int>, int> codes_;
  std::string bytes_;
};

// palettes: of 4 entries, or of 256 when rootBits is 8; "" for none. flags 0x40 interlaced.
inline std::string Gif(int width, int height, int rootBits, const std::string& global,
                       const std::string& local, const std::string& indices, int flags = 0,
                       const std::string& extensions = "") {
  const int hasPalette = 0x80 | (rootBits - 1);
  const std::string size =
      Little(static_cast<std::uint32_t>(width), 2) + Little(static_cast<std::uint32_t>(height), 2);
  return "GIF89a" + size + Codes({global.empty() ? 0 : hasPalette, 0, 0}) + global + extensions +
         Codes({0x2C, 0, 0, 0, 0}) + size + Codes({flags | (local.empty() ? 0 : hasPalette)}) +
         local + GifPacker(rootBits).Pack(indices) + ";";
}

inline std::string GifTransparency(int entry) { return Codes({0x21, 0xF9, 4, 1, 0, 0, entry, 0}); }

// TGA. type 1 indexed, 2 colours, 3 gray, 8 more run-length; corner 0x10 right first, 0x20 top
// first.
inline std::string Tga(int type, int width, int height, int bits, int corner,
                       const std::string& data, const std::string& palette = "",
                       int paletteBits = 24, int first = 0) {
  const int entry = (paletteBits + 7) / 8;
  return Codes({0, palette.empty() ? 0 : 1, type}) + Little(static_cast<std::uint32_t>(first), 2) +
         Little(static_cast<std::uint32_t>(palette.size()) / static_cast<std::uint32_t>(entry), 2) +
         Codes({palette.empty() ? 0 : paletteBits, 0, 0, 0, 0}) +
         Little(static_cast<std::uint32_t>(width), 2) +
         Little(static_cast<std::uint32_t>(height), 2) + Codes({bits, corner}) + palette + data;
}

}  // namespace lm::test
