#include "cli/pdfsample_raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "pdf/filters.h"

namespace lm::sample {
namespace {

char Byte(unsigned value) { return static_cast<char>(value & 255); }

std::uint32_t Crc(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) {
    crc ^= static_cast<std::uint8_t>(c);
    for (int i = 0; i < 8; ++i) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

std::string PngChunk(const std::string& body) {
  return Big(static_cast<std::uint32_t>(body.size() - 4), 4) + body + Big(Crc(body), 4);
}

std::uint32_t Unsigned(int value) { return static_cast<std::uint32_t>(value); }

// Bits into bytes, the highest bit first; 0xFF is followed by 0, as JPEG wants it.
class JpegBits {
 public:
  void Put(unsigned value, int count) {
    for (int i = count - 1; i >= 0; --i) {
      held_ = held_ << 1 | (value >> i & 1);
      if (++count_ < 8) continue;
      bytes_ += Byte(held_);
      if (Byte(held_) == '\xFF') bytes_ += '\0';
      count_ = 0;
    }
  }
  std::string Finish() {
    while (count_ != 0) Put(1, 1);
    return std::move(bytes_);
  }

 private:
  std::string bytes_;
  unsigned held_ = 0;
  int count_ = 0;
};

// How many bits a difference needs is told by a code of this length and value.
struct SizeCode {
  int length;
  unsigned code;
};
constexpr std::array<SizeCode, 12> kSizeCodes{{{2, 0},
                                               {3, 2},
                                               {3, 3},
                                               {3, 4},
                                               {3, 5},
                                               {3, 6},
                                               {4, 14},
                                               {5, 30},
                                               {6, 62},
                                               {7, 126},
                                               {8, 254},
                                               {9, 510}}};

std::string JpegSegment(int marker, const std::string& data) {
  return std::string("\xFF") + Byte(Unsigned(marker)) +
         Big(static_cast<std::uint32_t>(data.size() + 2), 2) + data;
}

// The table of the codes above, and one that knows nothing but "the rest of the block is 0".
std::string JpegTables() {
  std::string sizes = Big(0, 1);
  for (int length = 1; length <= 16; ++length)
    sizes += Byte(Unsigned(
        static_cast<int>(std::count_if(kSizeCodes.begin(), kSizeCodes.end(),
                                       [&](const SizeCode& c) { return c.length == length; }))));
  for (unsigned value = 0; value < kSizeCodes.size(); ++value) sizes += Byte(value);
  const std::string endOnly = Big(0x10, 1) + Big(1, 1) + std::string(16, '\0');
  return JpegSegment(0xDB, Big(0, 1) + std::string(64, '\x08')) + JpegSegment(0xC4, sizes) +
         JpegSegment(0xC4, endOnly);
}

std::array<int, 3> BrightnessAndColour(const Rgb& c) {
  const double red = c.red, green = c.green, blue = c.blue;
  const auto level = [](double value) {
    return static_cast<int>(std::clamp(std::lround(value), -128L, 127L));
  };
  return {level(0.299 * red + 0.587 * green + 0.114 * blue - 128),
          level(-0.168736 * red - 0.331264 * green + 0.5 * blue),
          level(0.5 * red - 0.418688 * green - 0.081312 * blue)};
}

void PutDifference(JpegBits& bits, int difference) {
  int size = 0;
  while (std::abs(difference) >> size != 0) ++size;
  const SizeCode& code = kSizeCodes[static_cast<std::size_t>(size)];
  bits.Put(code.code, code.length);
  bits.Put(Unsigned(difference < 0 ? difference - 1 : difference), size);
}

}  // namespace

std::string Little(std::uint32_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += Byte(value >> (8 * i));
  return bytes;
}

std::string Big(std::uint32_t value, int count) {
  const std::string bytes = Little(value, count);
  return {bytes.rbegin(), bytes.rend()};
}

std::string BmpFile(const Raster& raster) {
  std::string rows;
  for (int y = raster.height - 1; y >= 0; --y) {
    for (int x = 0; x < raster.width; ++x) {
      const Rgb& c = raster.At(x, y);
      rows += {Byte(c.blue), Byte(c.green), Byte(c.red)};
    }
    rows.append((4 - rows.size() % 4) % 4, '\0');
  }
  const auto size = static_cast<std::uint32_t>(rows.size());
  return "BM" + Little(54 + size, 4) + Little(0, 4) + Little(54, 4) + Little(40, 4) +
         Little(Unsigned(raster.width), 4) + Little(Unsigned(raster.height), 4) + Little(1, 2) +
         Little(24, 2) + Little(0, 4) + Little(size, 4) + Little(2835, 4) + Little(2835, 4) +
         std::string(8, '\0') + rows;
}

std::string TgaFile(const Raster& raster) {
  constexpr int kColours = 2, kTopFirst = 0x20;
  std::string bytes = Little(0, 2) + Little(kColours, 1) + std::string(9, '\0') +
                      Little(Unsigned(raster.width), 2) + Little(Unsigned(raster.height), 2) +
                      Little(24, 1) + Little(kTopFirst, 1);
  for (const Rgb& c : raster.pixels) bytes += {Byte(c.blue), Byte(c.green), Byte(c.red)};
  return bytes;
}

std::string PngFile(const Raster& raster) {
  std::string rows;
  for (int y = 0; y < raster.height; ++y) {
    rows += '\0';  // this row is written as it is
    for (int x = 0; x < raster.width; ++x) {
      const Rgb& c = raster.At(x, y);
      rows += {Byte(c.red), Byte(c.green), Byte(c.blue)};
    }
  }
  const std::string kind("\x08\x02\x00\x00\x00", 5);  // 8 bits each of red, green and blue
  return "\x89PNG\r\n\x1A\n" +
         PngChunk("IHDR" + Big(Unsigned(raster.width), 4) + Big(Unsigned(raster.height), 4) +
                  kind) +
         PngChunk("IDAT" + pdf::EncodeFlate(rows)) + PngChunk("IEND");
}

std::string GifFile(const Raster& raster, const Rgb* transparent) {
  std::vector<Rgb> palette;
  std::vector<unsigned> indices;
  for (const Rgb& c : raster.pixels) {
    const auto found = std::find(palette.begin(), palette.end(), c);
    indices.push_back(static_cast<unsigned>(found - palette.begin()));
    if (found == palette.end()) palette.push_back(c);
  }
  if (palette.size() > 256) throw std::runtime_error("too many colours for a GIF");

  std::string bytes = "GIF89a" + Little(Unsigned(raster.width), 2) +
                      Little(Unsigned(raster.height), 2) + Little(0xF7, 1) + Little(0, 2);
  for (std::size_t i = 0; i < 256; ++i) {
    const Rgb c = i < palette.size() ? palette[i] : Rgb{0, 0, 0};
    bytes += {Byte(c.red), Byte(c.green), Byte(c.blue)};
  }
  if (transparent != nullptr) {
    const auto index = std::find(palette.begin(), palette.end(), *transparent) - palette.begin();
    bytes += "!\xF9" + Little(4, 1) + Little(1, 1) + Little(0, 2) +
             Little(static_cast<std::uint32_t>(index), 1) + Little(0, 1);
  }
  bytes += "," + Little(0, 4) + Little(Unsigned(raster.width), 2) +
           Little(Unsigned(raster.height), 2) + Little(0, 1) + Little(8, 1);

  // Codes stay 9 bits wide as long as the table is emptied before it has 512 entries.
  constexpr unsigned kClear = 256, kEnd = 257;
  constexpr std::size_t kRun = 250;
  std::string packed;
  unsigned held = 0;
  int count = 0;
  const auto put = [&](unsigned code) {
    held |= code << count;
    for (count += 9; count >= 8; count -= 8, held >>= 8) packed += Byte(held);
  };
  for (std::size_t i = 0; i < indices.size(); ++i) {
    if (i % kRun == 0) put(kClear);
    put(indices[i]);
  }
  put(kEnd);
  packed += Byte(held);
  for (std::size_t at = 0; at < packed.size(); at += 255) {
    const std::string block = packed.substr(at, 255);
    bytes += Little(static_cast<std::uint32_t>(block.size()), 1) + block;
  }
  return bytes + std::string(1, '\0') + ";";
}

std::string JpegFile(const Raster& raster) {
  std::string frame =
      Big(8, 1) + Big(Unsigned(raster.height) * 8, 2) + Big(Unsigned(raster.width) * 8, 2);
  frame += Big(3, 1);
  std::string scan = Big(3, 1);
  for (std::uint32_t component = 1; component <= 3; ++component) {
    frame += Big(component, 1) + Big(0x11, 1) + Big(0, 1);
    scan += Big(component, 1) + Big(0, 1);
  }
  JpegBits bits;
  std::array<int, 3> before{};
  for (const Rgb& c : raster.pixels) {
    const std::array<int, 3> levels = BrightnessAndColour(c);
    for (std::size_t i = 0; i < 3; ++i) {
      PutDifference(bits, levels[i] - before[i]);
      bits.Put(0, 1);  // the block has no detail
    }
    before = levels;
  }
  return "\xFF\xD8" + JpegTables() + JpegSegment(0xC0, frame) +
         JpegSegment(0xDA, scan + std::string("\0\x3F\0", 3)) + bits.Finish() + "\xFF\xD9";
}

}  // namespace lm::sample
