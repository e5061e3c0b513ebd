#include "pdf/images/bmp.h"

#include <array>
#include <bit>
#include <cstdlib>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kOs2Header = 12, kWindowsHeader = 40, kOs2Version2 = 64;
constexpr std::uint32_t kPlain = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6;

// One colour's bits within a pixel.
struct Field {
  explicit Field(std::uint32_t bits) : mask(bits) {
    if (mask == 0) return;
    shift = std::countr_zero(mask);
    const std::uint32_t ones = mask >> shift;
    if ((ones & (ones + 1)) != 0) throw Error("The bitmap's bit fields are damaged");
  }
  // 0 to 255
  char Value(std::uint32_t pixel) const {
    if (mask == 0) return 0;
    const std::uint64_t largest = mask >> shift;
    const std::uint64_t value = (pixel & mask) >> shift;
    return static_cast<char>((value * 255 + largest / 2) / largest);
  }
  std::uint32_t mask = 0;
  int shift = 0;
};

struct Header {
  std::uint32_t size = 0;
  std::int64_t width = 0, height = 0;
  bool topDown = false;
  unsigned bits = 0;
  std::uint32_t compression = kPlain;
  std::uint32_t colours = 0;  // entries of the palette, 0 all that the depth has
  std::size_t pixels = 0;     // offset of the rows
};

Header ReadHeader(const Bytes& bytes) {
  Header header;
  header.pixels = bytes.Little32(10);
  header.size = bytes.Little32(kFileHeader);
  if (header.size == kOs2Header) {
    header.width = bytes.Little16(18);
    header.height = bytes.Little16(20);
    header.bits = bytes.Little16(24);
  } else if (header.size >= 16) {
    header.width = static_cast<std::int32_t>(bytes.Little32(18));
    header.height = static_cast<std::int32_t>(bytes.Little32(22));
    header.bits = bytes.Little16(28);
    if (header.size >= kWindowsHeader) {
      header.compression = bytes.Little32(30);
      header.colours = bytes.Little32(46);
    }
  } else {
    throw Error("The bitmap's header is damaged");
  }
  header.topDown = header.height < 0;
  header.height = std::abs(header.height);
  CheckPictureSize(header.width, header.height);
  return header;
}

// Missing entries are black, so that every index has one.
std::string ReadPalette(const Bytes& bytes, const Header& header) {
  const std::size_t all = std::size_t{1} << header.bits;
  const std::size_t count = header.colours == 0 || header.colours > all ? all : header.colours;
  const std::size_t entry = header.size == kOs2Header ? 3 : 4;
  const std::size_t start = kFileHeader + header.size;
  std::string palette;
  for (std::size_t i = 0; i < count && start + (i + 1) * entry <= header.pixels; ++i) {
    const std::string_view colour = bytes.Part(start + i * entry, 3);
    palette += {colour[2], colour[1], colour[0]};
  }
  palette.resize(all * 3);
  return palette;
}

class BmpReader {
 public:
  explicit BmpReader(std::string_view file) : bytes_(file) {}

  Picture Read() {
    if (!bytes_.StartsWith("BM")) throw Error("This is no bitmap");
    header_ = ReadHeader(bytes_);
    picture_.width = static_cast<int>(header_.width);
    picture_.height = static_cast<int>(header_.height);
    const bool indexed = header_.bits == 1 || header_.bits == 4 || header_.bits == 8;
    const bool coloured = header_.bits == 16 || header_.bits == 24 || header_.bits == 32;
    const bool fields = header_.size != kOs2Version2 && (header_.compression == kBitFields ||
                                                         header_.compression == kAlphaBitFields);
    if (indexed) picture_.palette = ReadPalette(bytes_, header_);
    if (indexed && header_.compression == kPlain) {
      ReadIndices();
    } else if ((header_.compression == kRle8 && header_.bits == 8) ||
               (header_.compression == kRle4 && header_.bits == 4)) {
      ReadRuns();
    } else if (coloured && (header_.compression == kPlain || (fields && header_.bits != 24))) {
      ReadColours(fields);
    } else {
      throw Error("This kind of bitmap is not supported");
    }
    return std::move(picture_);
  }

 private:
  // A row of the picture, counted from the top, as it stands in the file.
  std::string_view StoredRow(std::size_t row, std::size_t used, std::size_t stride) const {
    const std::size_t height = static_cast<std::size_t>(header_.height);
    return bytes_.Part(header_.pixels + (header_.topDown ? row : height - 1 - row) * stride, used);
  }

  // Calls take(row bytes) from the top, once all are known to be there.
  template <typename Take>
  void EachRow(Take take) const {
    const std::size_t rowBits = static_cast<std::size_t>(header_.width) * header_.bits;
    const std::size_t used = (rowBits + 7) / 8;
    const std::size_t stride = (rowBits + 31) / 32 * 4;
    const std::size_t height = static_cast<std::size_t>(header_.height);
    bytes_.Part(header_.pixels, (height - 1) * stride + used);
    for (std::size_t row = 0; row < height; ++row) take(Bytes(StoredRow(row, used, stride)));
  }

  void ReadIndices() {
    const std::size_t width = static_cast<std::size_t>(header_.width);
    const std::size_t perByte = 8 / header_.bits;
    EachRow([&](const Bytes& row) {
      if (picture_.data.empty()) picture_.data.reserve(PixelCount());
      for (std::size_t x = 0; x < width; ++x) {
        const std::size_t place = perByte - 1 - x % perByte;
        const unsigned index = row.Byte(x / perByte) >> (place * header_.bits);
        picture_.data += static_cast<char>(index & ((1U << header_.bits) - 1));
      }
    });
  }

  void ReadColours(bool fieldsInFile) {
    std::array<Field, 3> fields = {Field(0xFF0000), Field(0xFF00), Field(0xFF)};
    if (header_.bits == 16) fields = {Field(0x7C00), Field(0x3E0), Field(0x1F)};
    if (fieldsInFile) {
      // Behind a short header, inside a longer one: both is the same place.
      const std::size_t at = kFileHeader + kWindowsHeader;
      fields = {Field(bytes_.Little32(at)), Field(bytes_.Little32(at + 4)),
                Field(bytes_.Little32(at + 8))};
    }
    const std::size_t width = static_cast<std::size_t>(header_.width);
    const std::size_t size = header_.bits / 8;
    EachRow([&](const Bytes& row) {
      if (picture_.data.empty()) picture_.data.reserve(PixelCount() * 3);
      for (std::size_t x = 0; x < width; ++x) {
        const std::uint32_t pixel = row.Little(x * size, size);
        for (const Field& field : fields) picture_.data += field.Value(pixel);
      }
    });
  }

  // Runs of indices. Pixels that the file skips keep the index 0; what a run has beyond its row is
  // dropped.
  void ReadRuns() {
    if (header_.topDown) throw Error("Packed bitmaps cannot be top-down");
    picture_.data.assign(PixelCount(), '\0');
    std::size_t x = 0, line = 0;  // line from the bottom
    std::size_t at = header_.pixels;
    const std::size_t height = static_cast<std::size_t>(header_.height);
    while (line < height) {
      const std::uint8_t count = bytes_.Byte(at);
      const std::uint8_t code = bytes_.Byte(at + 1);
      at += 2;
      if (count > 0) {
        for (unsigned i = 0; i < count; ++i) Put(x++, line, Nibble(code, i));
      } else if (code == 0) {
        x = 0;
        ++line;
      } else if (code == 1) {
        return;
      } else if (code == 2) {
        x += bytes_.Byte(at);
        line += bytes_.Byte(at + 1);
        at += 2;
      } else {
        at = PutLiterals(at, code, x, line);
        x += code;
      }
    }
  }

  // Single indices, filled up to an even number of bytes; returns the offset behind them.
  std::size_t PutLiterals(std::size_t at, unsigned count, std::size_t x, std::size_t line) {
    const unsigned perByte = 8 / header_.bits;
    const std::size_t size = (count + perByte - 1) / perByte;
    const Bytes literals(bytes_.Part(at, size));
    for (unsigned i = 0; i < count; ++i) Put(x + i, line, Nibble(literals.Byte(i / perByte), i));
    return at + size + size % 2;
  }

  // The index of the pixel at an even or odd place of a run.
  std::uint8_t Nibble(std::uint8_t byte, unsigned place) const {
    if (header_.bits == 8) return byte;
    return static_cast<std::uint8_t>(place % 2 == 0 ? byte >> 4 : byte & 15);
  }

  void Put(std::size_t x, std::size_t line, std::uint8_t index) {
    const std::size_t width = static_cast<std::size_t>(header_.width);
    if (x >= width) return;
    const std::size_t row = static_cast<std::size_t>(header_.height) - 1 - line;
    picture_.data[row * width + x] = static_cast<char>(index);
  }

  std::size_t PixelCount() const {
    return static_cast<std::size_t>(header_.width * header_.height);
  }

  Bytes bytes_;
  Header header_;
  Picture picture_;
};

}  // namespace

Picture ReadBmp(std::string_view bytes) { return BmpReader(bytes).Read(); }

}  // namespace lm::pdf
