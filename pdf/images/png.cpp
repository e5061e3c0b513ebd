#include "pdf/images/png.h"

#include <zlib.h>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
constexpr unsigned kGray = 0, kRgb = 2, kIndexed = 3, kGrayAlpha = 4, kRgbAlpha = 6;

struct Chunk {
  std::string_view type;
  std::string_view data;
  bool intact = false;  // its checksum holds
  std::size_t next = 0;
  bool Critical() const { return type[0] >= 'A' && type[0] <= 'Z'; }
};

Chunk ReadChunk(const Bytes& bytes, std::size_t at) {
  const std::size_t length = bytes.Big32(at);
  Chunk chunk;
  chunk.type = bytes.Part(at + 4, 4);
  chunk.data = bytes.Part(at + 8, length);
  const std::uint32_t stored = bytes.Big32(at + 8 + length);
  const std::string_view summed = bytes.Part(at + 4, 4 + length);
  const auto sum = crc32_z(0, reinterpret_cast<const Bytef*>(summed.data()), summed.size());
  chunk.intact = sum == stored;
  chunk.next = at + 12 + length;
  return chunk;
}

bool BitsAllowed(unsigned colourType, unsigned bits) {
  switch (bits) {
    case 1:
    case 2:
    case 4:
      return colourType == kGray || colourType == kIndexed;
    case 8:
      return true;
    case 16:
      return colourType != kIndexed;
    default:
      return false;
  }
}

class PngReader {
 public:
  Picture Read(std::string_view file) {
    const Bytes bytes(file);
    if (!bytes.StartsWith(kSignature)) throw Error("This is no PNG picture");
    Chunk chunk = ReadChunk(bytes, kSignature.size());
    if (chunk.type != "IHDR") throw Error("The PNG picture does not begin with its header");
    std::string_view before;
    for (;; chunk = ReadChunk(bytes, chunk.next)) {
      if (chunk.intact) {
        Take(chunk, before);
      } else if (chunk.Critical()) {
        throw Error("A checksum of the PNG picture is wrong");
      }
      if (chunk.type == "IEND") break;
      before = chunk.type;
    }
    Finish();
    return std::move(picture_);
  }

 private:
  void Take(const Chunk& chunk, std::string_view before) {
    if (chunk.type == "IHDR") {
      TakeHeader(chunk.data, before);
    } else if (chunk.type == "PLTE") {
      TakePalette(chunk.data);
    } else if (chunk.type == "tRNS") {
      if (picture_.data.empty()) transparency_ = chunk.data;
    } else if (chunk.type == "IDAT") {
      if (!picture_.data.empty() && before != "IDAT") throw Error("The PNG picture's data is torn");
      picture_.data += chunk.data;
    } else if (chunk.Critical() && chunk.type != "IEND") {
      throw Error("The PNG picture needs the unknown chunk " + std::string(chunk.type));
    }
  }

  void TakeHeader(std::string_view data, std::string_view before) {
    if (!before.empty() || data.size() != 13) throw Error("The PNG picture's header is damaged");
    const Bytes header(data);
    CheckPictureSize(header.Big32(0), header.Big32(4));
    picture_.width = static_cast<int>(header.Big32(0));
    picture_.height = static_cast<int>(header.Big32(4));
    picture_.bits = header.Byte(8);
    colourType_ = header.Byte(9);
    if (colourType_ == kGrayAlpha || colourType_ == kRgbAlpha) {
      throw Error("PNG pictures with an alpha channel are not supported");
    }
    if ((colourType_ != kGray && colourType_ != kRgb && colourType_ != kIndexed) ||
        !BitsAllowed(colourType_, header.Byte(8)) || header.Byte(10) != 0 || header.Byte(11) != 0) {
      throw Error("The PNG picture's header is damaged");
    }
    if (header.Byte(12) != 0) throw Error("Interlaced PNG pictures are not supported");
  }

  // Other than palette pictures may bring one as a hint to poor screens.
  void TakePalette(std::string_view data) {
    if (colourType_ != kIndexed) return;
    const std::size_t most = std::size_t{3} << picture_.bits;
    if (data.empty() || data.size() % 3 != 0 || data.size() > most || !picture_.palette.empty() ||
        !picture_.data.empty()) {
      throw Error("The PNG picture's palette is damaged");
    }
    picture_.palette = data;
  }

  void Finish() {
    if (picture_.data.empty()) throw Error("The PNG picture has no data");
    if (colourType_ == kIndexed && picture_.palette.empty()) {
      throw Error("The PNG picture has no palette");
    }
    if (colourType_ == kGray) picture_.colourSpace = "DeviceGray";
    const int colours = colourType_ == kRgb ? 3 : 1;
    picture_.filter = "/FlateDecode";
    picture_.decodeParms = "<</Predictor 15 /Colors " + std::to_string(colours) +
                           " /BitsPerComponent " + std::to_string(picture_.bits) + " /Columns " +
                           std::to_string(picture_.width) + ">>";
    picture_.mask = colourType_ == kIndexed ? MaskOfEntries() : MaskOfSamples(colours);
  }

  // Several runs of transparent entries cannot be told as one range, and half of them would look
  // worse than none.
  std::string MaskOfEntries() const {
    const std::string_view entries = transparency_.substr(0, picture_.palette.size() / 3);
    const std::size_t first = entries.find('\0');
    if (first == std::string_view::npos) return "";
    const std::size_t last = entries.rfind('\0');
    if (entries.find_first_not_of('\0', first) < last) return "";
    return MaskRange(static_cast<unsigned>(first), static_cast<unsigned>(last));
  }

  std::string MaskOfSamples(int colours) const {
    const std::size_t count = static_cast<std::size_t>(colours);
    if (transparency_.size() != count * 2) return "";
    std::string mask;
    for (std::size_t i = 0; i < count; ++i) {
      const unsigned sample = Bytes(transparency_).Big16(i * 2);
      if (sample >> picture_.bits != 0) return "";
      mask += (i == 0 ? "" : " ") + MaskRange(sample, sample);
    }
    return mask;
  }

  Picture picture_;
  unsigned colourType_ = 0;
  std::string_view transparency_;
};

}  // namespace

Picture ReadPng(std::string_view bytes) { return PngReader().Read(bytes); }

}  // namespace lm::pdf
