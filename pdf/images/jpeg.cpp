#include "pdf/images/jpeg.h"

#include <algorithm>
#include <array>

#include "pdf/images/bytes.h"

namespace lm::pdf {

namespace {

constexpr unsigned kStartOfImage = 0xD8, kStartOfScan = 0xDA, kAdobe = 0xEE;
constexpr std::string_view kEndOfImage = "\xFF\xD9";
// Baseline, extended, progressive; the other frames are lossless, differential or arithmetic.
constexpr std::array<unsigned, 3> kFrames = {0xC0, 0xC1, 0xC2};
constexpr std::array<unsigned, 3> kNoFrames = {0xC4, 0xC8, 0xCC};  // tables in between

bool IsFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF &&
         std::find(kNoFrames.begin(), kNoFrames.end(), marker) == kNoFrames.end();
}

bool StandsAlone(unsigned marker) { return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7); }

void ReadFrame(const Bytes& segment, unsigned marker, Picture& picture) {
  if (std::find(kFrames.begin(), kFrames.end(), marker) == kFrames.end() || segment.Byte(0) != 8) {
    throw Error("This kind of JPEG picture is not supported");
  }
  picture.height = segment.Big16(1);
  picture.width = segment.Big16(3);
  CheckPictureSize(picture.width, picture.height);
  switch (segment.Byte(5)) {
    case 1:
      picture.colourSpace = "DeviceGray";
      break;
    case 3:
      picture.colourSpace = "DeviceRGB";
      break;
    case 4:
      picture.colourSpace = "DeviceCMYK";
      break;
    default:
      throw Error("JPEG pictures of this number of colours are not supported");
  }
  segment.Part(6, std::size_t{3} * segment.Byte(5));
}

}  // namespace

Picture ReadJpeg(std::string_view file) {
  const Bytes bytes(file);
  if (!bytes.StartsWith("\xFF\xD8\xFF")) throw Error("This is no JPEG picture");
  Picture picture;
  bool adobe = false;
  std::size_t at = 2;
  for (;;) {
    if (bytes.Byte(at) != 0xFF) throw Error("The JPEG picture is damaged");
    const unsigned marker = bytes.Byte(at + 1);
    if (marker == 0xFF) {  // a fill byte
      ++at;
      continue;
    }
    at += 2;
    if (StandsAlone(marker)) continue;
    const std::size_t length = bytes.Big16(at);
    if (length < 2 || marker == kStartOfImage) throw Error("The JPEG picture is damaged");
    const Bytes segment(bytes.Part(at + 2, length - 2));
    at += length;
    if (IsFrame(marker)) {
      if (picture.width != 0) throw Error("The JPEG picture has two frames");
      ReadFrame(segment, marker, picture);
    }
    if (marker == kAdobe && segment.StartsWith("Adobe")) adobe = true;
    if (marker == kStartOfScan) break;
  }
  if (picture.width == 0) throw Error("The JPEG picture has no frame");
  if (bytes.From(at).find(kEndOfImage) == std::string_view::npos) {
    throw Error("The picture breaks off before its end");
  }
  if (adobe && picture.colourSpace == "DeviceCMYK") picture.decode = "[1 0 1 0 1 0 1 0]";
  picture.filter = "/DCTDecode";
  picture.data = file;
  return picture;
}

}  // namespace lm::pdf
